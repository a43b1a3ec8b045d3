#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    // Tests that end the process start a fresh copy of the program, so that no thread of the parent matters.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
