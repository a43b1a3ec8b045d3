#include "support/TestRun.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <unistd.h>

namespace {

pid_t tester = 0; ///< The process that runs the tests; 0 when they have run.

void failUnlessFinished()
{
    if (getpid() == tester) {
        std::fprintf(stderr, "the process was ended from inside a test\n");
        std::_Exit(EXIT_FAILURE);
    }
}

/// True in the fresh copy of the program in which a test waits for the end of the process.
bool isDeathTest(int argc, char** argv)
{
    for (int i = 1; i < argc; ++i) {
        if (std::strstr(argv[i], "gtest_internal_run_death_test") != nullptr) {
            return true;
        }
    }
    return false;
}

} // namespace

TestRun::TestRun(int& argc, char** argv)
{
    if (!isDeathTest(argc, argv)) {
        tester = getpid();
        std::atexit(failUnlessFinished);
    }
    // Tests that end the process start a fresh copy of the program, so that no thread of the parent matters.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    testing::InitGoogleTest(&argc, argv);
}

int TestRun::run()
{
    const int result = RUN_ALL_TESTS();
    tester = 0;
    return result;
}
