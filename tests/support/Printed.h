#pragma once
#include <gtest/gtest.h>

#include <string>

/// What `action` writes to standard output.
template <typename Action>
std::string printedBy(Action action)
{
    testing::internal::CaptureStdout();
    action();
    return testing::internal::GetCapturedStdout();
}
