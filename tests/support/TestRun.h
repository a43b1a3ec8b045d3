#pragma once

/// All tests of a program. A process that ends inside a test fails: deep in the solver bad data end it with
/// status 0, which would make a test that meets them pass.
class TestRun
{
public:
    /// Takes the test framework's arguments out of `argv`.
    TestRun(int& argc, char** argv);
    /// The status of the process.
    int run();
};
