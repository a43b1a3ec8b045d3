#pragma once
#include <clocale>
#include <locale>
#include <string>

/// A comma for the decimal point and points between groups of three digits.
class CommaPunctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// Makes the process write and read decimal commas for the scope: the streams made in it in any case, and
/// the C library where the machine has such a locale.
class CommaLocale
{
public:
    CommaLocale()
        : mLibrary(std::setlocale(LC_ALL, nullptr))
        , mStreams(std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation)))
    {
        for (const char* name : {"fr_FR.UTF-8", "de_DE.UTF-8", "fr_FR.utf8", "de_DE.utf8", "fr_FR",
                                 "de_DE", "it_IT.UTF-8", "es_ES.UTF-8"}) {
            if (std::setlocale(LC_ALL, name) != nullptr) {
                break;
            }
        }
    }
    ~CommaLocale()
    {
        std::locale::global(mStreams);
        std::setlocale(LC_ALL, mLibrary.c_str());
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    /// The decimal mark of the C library in the scope: a comma where a locale was found.
    static std::string libraryMark() { return std::localeconv()->decimal_point; }

private:
    std::string mLibrary; ///< Name of the C library's locale before.
    std::locale mStreams; ///< The streams' locale before.
};
