#pragma once
#include <string>

/// Where the data of the program are: words, icons, pages of help.
class GUI_BaseDirectory
{
public:
    /// The directory beside the installed program, else the one of the sources, with a slash at its end.
    /// Where neither exists it is the first.
    static std::string find();
};
