#pragma once
#include <string>
#include <vector>

/// A text that stands in a source file.
struct SourceText
{
    std::string mText; ///< Adjacent literals joined, escapes resolved.
    std::string
        mBefore; ///< The code of the file that stands before it, without blanks and comments.

    /// True when `code` stands right before the text.
    bool follows(const std::string& code) const { return mBefore.ends_with(code); }
};

/// The string literals of a C++ source, in order. Raw ones are not expected.
std::vector<SourceText> sourceTexts(const std::string& source);
