#pragma once
#include <stdexcept>
#include <string>

/// What keeps the program from doing what it was asked to: bad usage or bad input. The text is one line that
/// says what is wrong and what would be right.
class RunError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
