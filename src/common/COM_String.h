#pragma once
#include "common/COM_Array.h"
#include "common/COM_Object.h"

#include <complex>
#include <string>

/// A boxed text that can be cut into tokens, and the texts of values of all kinds.
class COM_String : public COM_Object
{
    COM_CLASS(COM_String)
public:
    void setString(const std::string& text) { mString = text; }
    const std::string& getString() const { return mString; }
    /// A zero-terminated copy that the caller frees with delete[].
    char* toCharArray() const { return stringToCharArray(mString); }
    static char* stringToCharArray(const std::string& text);

    /// Cuts the text at each occurrence of `separator`; empty pieces are dropped. An empty separator
    /// cuts nothing.
    void tokenize(const std::string& separator);
    /// The same with the separator used last.
    void tokenize();
    bool hasNextToken() const;
    unsigned long tokensCount() const { return mTokenizer->size(); }
    /// The next token, empty when there is none left.
    std::string nextToken();

    std::string toString() const override { return mString; }
    /// Decimal.
    static std::string toString(unsigned char value);
    static std::string toString(unsigned long value);
    static std::string toString(long value);
    /// As `COM_Real::toString` and `COM_Complex::toString` write them.
    static std::string toString(double value);
    static std::string toString(const std::complex<double>& value);
    /// "1" or "0".
    static std::string toString(bool value);
    /// The character itself.
    static std::string toString(char value);
    static std::string toString(const char* value) { return value; }
    static std::string toString(const std::string& value) { return value; }

protected:
    explicit COM_String(const std::string& text = {});
    ~COM_String() override;

private:
    std::string mString;
    std::string mSeparator;
    int mTokenIndex = 0;               ///< Token that `nextToken` gives next.
    COM_Array<COM_String>* mTokenizer; ///< The tokens. Counted.
};
