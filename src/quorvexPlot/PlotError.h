#pragma once
#include <stdexcept>

/// What keeps the picture from being drawn: bad usage or bad input. The text is one line that says what is wrong
/// and what would be right.
class PlotError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};
