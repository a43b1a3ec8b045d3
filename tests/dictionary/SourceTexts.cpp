#include "SourceTexts.h"

namespace {

constexpr std::size_t before = 40; ///< Characters of code that are given with each text.

/// Walks through a source from token to token.
class Reader
{
public:
    explicit Reader(const std::string& source)
        : mSource(source)
    {}

    std::vector<SourceText> read()
    {
        while (mAt < mSource.size()) {
            if (startsWith("//")) {
                skipTo("\n");
            } else if (startsWith("/*")) {
                skipTo("*/");
            } else if (startsWith("\"")) {
                addLiteral();
            } else {
                addCode();
            }
        }
        return mTexts;
    }

private:
    bool startsWith(const char* text) const
    {
        return mSource.compare(mAt, std::char_traits<char>::length(text), text) == 0;
    }

    void skipTo(const char* end)
    {
        const std::size_t found = mSource.find(end, mAt);
        mAt = found == std::string::npos ? mSource.size()
                                         : found + std::char_traits<char>::length(end);
    }

    void addLiteral()
    {
        std::string text;
        for (++mAt; mAt < mSource.size() && mSource[mAt] != '"'; ++mAt) {
            text += mSource[mAt] == '\\' ? escaped() : mSource[mAt];
        }
        ++mAt;
        if (mIsJoining) {
            mTexts.back().mText += text;
        } else {
            mTexts.push_back({text, lastCode()});
        }
        mIsJoining = true;
    }

    std::string lastCode() const
    {
        return mCode.size() > before ? mCode.substr(mCode.size() - before) : mCode;
    }

    char escaped()
    {
        ++mAt;
        if (mAt >= mSource.size()) {
            return '\\';
        }
        switch (mSource[mAt]) {
        case 'n':
            return '\n';
        case 't':
            return '\t';
        default:
            return mSource[mAt];
        }
    }

    void addCode()
    {
        const char c = mSource[mAt];
        ++mAt;
        if (c == ' ' || c == '\n' || c == '\t') {
            return;
        }
        mIsJoining = false;
        mCode += c;
        // A quote inside a character constant opens no text; an apostrophe between digits is no constant.
        const bool isConstant = mAt < mSource.size() && mSource[mAt] == '"' && c == '\'';
        if (isConstant) {
            mCode += mSource[mAt];
            ++mAt;
        } else if (c == '\'' && startsWith("\\\"'")) {
            mAt += 2;
        }
    }

    const std::string& mSource;
    std::size_t mAt = 0;
    std::vector<SourceText> mTexts;
    std::string mCode;       ///< What has been read of it, without blanks, comments and literals.
    bool mIsJoining = false; ///< Nothing but blanks and comments since the last literal.
};

} // namespace

std::vector<SourceText> sourceTexts(const std::string& source)
{
    return Reader(source).read();
}
