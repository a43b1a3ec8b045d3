#include "support/TestRun.h"

#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <unistd.h>

namespace {

pid_t tester = 0; ///< The process that runs the tests; 0 when they have run.
/// Removed when the tests have run, and by no process that a test forks: so no object with a destructor.
TestDirectory* temporaryRoot = nullptr;

void failUnlessFinished()
{
    if (getpid() == tester) {
        std::fprintf(stderr, "the process was ended from inside a test\n");
        std::_Exit(EXIT_FAILURE);
    }
}

/// Makes the directory in which this run and the processes that it starts make their temporary files: those of a
/// process that ends in the middle of a test would stay otherwise.
void makeTemporaryRoot()
{
    temporaryRoot = new TestDirectory;
    // Some tests go on as another user.
    std::filesystem::permissions(temporaryRoot->path(),
                                 std::filesystem::perms::group_exec
                                     | std::filesystem::perms::others_exec,
                                 std::filesystem::perm_options::add);
    setenv("TMPDIR", temporaryRoot->path().c_str(), 1);
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
        makeTemporaryRoot();
    }
    // Tests that end the process start a fresh copy of the program, so that no thread of the parent matters.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    testing::InitGoogleTest(&argc, argv);
}

int TestRun::run()
{
    const int result = RUN_ALL_TESTS();
    tester = 0;
    delete temporaryRoot;
    temporaryRoot = nullptr;
    return result;
}
