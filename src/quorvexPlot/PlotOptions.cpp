#include "quorvexPlot/PlotOptions.h"

#include "common/COM_CommandLine.h"
#include "quorvexPlot/PlotError.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <iterator>

namespace {

enum Option {
    OUTPUT = 'o',
    CAPTOR = 256,
    FIELD,
    DENSITY,
    SIZE,
    TITLE,
    LOG,
    FOURIER,
    NORMALIZE,
    VERSION,
    HELP
};

using Line = COM_CommandLine;
using Number = std::optional<unsigned long>;

constexpr Line::Option known[] = {{"output", OUTPUT, Line::SOME_VALUE},
                                  {"captor", CAPTOR, Line::ANY_VALUE},
                                  {"field", FIELD, Line::ANY_VALUE},
                                  {"density", DENSITY, Line::ANY_VALUE},
                                  {"size", SIZE, Line::ANY_VALUE},
                                  {"title", TITLE, Line::ANY_VALUE},
                                  {"log", LOG, Line::ANY_VALUE},
                                  {"fourier", FOURIER, Line::NO_VALUE},
                                  {"normalize", NORMALIZE, Line::NO_VALUE},
                                  {"version", VERSION, Line::NO_VALUE},
                                  {"help", HELP, Line::NO_VALUE}};

constexpr const char* formats[] = {"png", "jpg", "jpeg", "bmp", "gif", "pdf", "svg"};

/// What stands before and behind the first `separator`; nothing behind where there is none.
std::pair<std::string, std::optional<std::string>> split(const std::string& text, char separator)
{
    const std::size_t place = text.find(separator);
    if (place == std::string::npos) {
        return {text, std::nullopt};
    }
    return {text.substr(0, place), text.substr(place + 1)};
}

template <typename Value>
void addOnce(std::vector<Value>& values, const Value& value)
{
    if (std::find(values.begin(), values.end(), value) == values.end()) {
        values.push_back(value);
    }
}

std::string quoted(const std::string& text)
{
    return "\"" + text + "\"";
}

void addCaptor(PlotOptions& options, const std::string& text)
{
    const Number number = Line::numberOf(text);
    if (!number || *number == 0) {
        throw PlotError("--captor takes a whole number from 1 on, not " + quoted(text));
    }
    addOnce(options.mCaptors, *number);
}

void addFields(PlotOptions& options, const std::string& text)
{
    std::optional<std::string> rest = text;
    while (rest) {
        const auto [word, others] = split(*rest, ',');
        const auto* const found =
            std::find(std::begin(PlotOptions::COMPONENTS), std::end(PlotOptions::COMPONENTS), word);
        if (found == std::end(PlotOptions::COMPONENTS)) {
            throw PlotError("--field takes Ex, Ey or Ez, joined by commas, not " + quoted(text));
        }
        addOnce(options.mFields,
                static_cast<unsigned long>(found - std::begin(PlotOptions::COMPONENTS)));
        rest = others;
    }
    std::sort(options.mFields.begin(), options.mFields.end());
}

void addDensity(PlotOptions& options, const std::string& text)
{
    const auto [element, system] = split(text, ':');
    const auto [row, column] = split(element, ',');
    const Number i = Line::numberOf(row);
    const Number j = Line::numberOf(column.value_or(""));
    const Number s = Line::numberOf(system.value_or("0"));
    if (!i || !j || !s) {
        throw PlotError("--density takes I,J or I,J:SYSTEM, each from 0 on, for instance 1,1, not "
                        + quoted(text));
    }
    addOnce(options.mDensities, {*i, *j, *s});
}

void setSize(PlotOptions& options, const std::string& text)
{
    const auto [width, height] = split(text, 'x');
    const auto pixels = [&text](const std::string& number) {
        const Number value = Line::numberOf(number);
        if (!value || *value < PlotOptions::MIN_SIZE || *value > PlotOptions::MAX_SIZE) {
            throw PlotError("--size takes WIDTHxHEIGHT in pixels, each from "
                            + std::to_string(PlotOptions::MIN_SIZE) + " to "
                            + std::to_string(PlotOptions::MAX_SIZE) + ", not " + quoted(text));
        }
        return static_cast<int>(*value);
    };
    options.mWidth = pixels(width);
    options.mHeight = pixels(height.value_or(""));
}

void setLog(PlotOptions& options, const std::string& text)
{
    if (text != "x" && text != "y" && text != "xy") {
        throw PlotError("--log takes x, y or xy, not " + quoted(text));
    }
    options.mIsLogX = text != "y";
    options.mIsLogY = text != "x";
}

std::string formatOf(const std::string& file)
{
    std::string extension = std::filesystem::path(file).extension().string();
    extension.erase(0, 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (std::find(std::begin(formats), std::end(formats), extension) == std::end(formats)) {
        throw PlotError("the name of the picture, " + file
                        + ", ends in none of .png, .jpg, .bmp, .gif, .pdf and .svg");
    }
    return extension;
}

void set(PlotOptions& options, int option, const std::string& value)
{
    switch (option) {
    case OUTPUT:
        options.mOutput = value;
        break;
    case CAPTOR:
        addCaptor(options, value);
        break;
    case FIELD:
        addFields(options, value);
        break;
    case DENSITY:
        addDensity(options, value);
        break;
    case SIZE:
        setSize(options, value);
        break;
    case TITLE:
        options.mTitle = value;
        break;
    case LOG:
        setLog(options, value);
        break;
    case FOURIER:
        options.mIsFourier = true;
        break;
    case NORMALIZE:
        options.mIsNormalized = true;
        break;
    case VERSION:
        options.mIsVersion = true;
        break;
    default:
        options.mIsHelp = true;
    }
}

} // namespace

PlotOptions PlotOptions::parse(int argc, char** argv)
{
    PlotOptions options;
    COM_CommandLine line("quorvex-plot", known, argc, argv);
    for (int option = 0; (option = line.next()) != COM_CommandLine::END;) {
        if (option == COM_CommandLine::WRONG) {
            throw PlotError(line.error());
        }
        set(options, option, line.value());
    }
    if (options.mIsHelp || options.mIsVersion) {
        return options;
    }
    const std::vector<std::string> inputs = line.operands();
    if (inputs.size() != 1 || inputs.front().empty()) {
        throw PlotError(std::string(inputs.size() > 1 ? "more than one" : "no")
                        + " directory of results is given; it takes one");
    }
    options.mResults = inputs.front();
    if (options.mOutput.empty()) {
        throw PlotError("no file for the picture is given; -o FILE names it");
    }
    options.mFormat = formatOf(options.mOutput);
    if (options.mIsFourier && options.mIsLogX) {
        throw PlotError("one half of the frequencies of --fourier is negative; --log y is the "
                        "logarithm that goes with it");
    }
    return options;
}

std::string PlotOptions::helpText()
{
    return "usage: quorvex-plot [OPTIONS] RESULTS -o FILE\n"
           "\n"
           "Draws what the captors of a run have seen. No display is needed.\n"
           "\n"
           "  RESULTS              the directory of the result files\n"
           "  -o, --output FILE    the picture: .png, .jpg, .bmp, .gif, .pdf or .svg\n"
           "      --captor N       draws this captor, counted from 1 by ascending node; may be "
           "given again and\n"
           "                       again (default: all)\n"
           "      --field LIST     components of the field, for instance Ex,Ey (default: those "
           "that the run saved,\n"
           "                       or none with --density)\n"
           "      --density I,J[:SYSTEM]\n"
           "                       real part of an element of the density matrix, all from 0 "
           "(system 0); may be\n"
           "                       given again and again\n"
           "      --size WxH       pixels (800x500)\n"
           "      --title TEXT     a title of your own\n"
           "      --log x|y|xy     decimal logarithm of the absolute values\n"
           "      --fourier        modulus of the Fourier transform of all steps, over the angular "
           "frequency in\n"
           "                       rad/s\n"
           "      --normalize      divides the fields by the greatest absolute value of them all\n"
           "      --version\n"
           "      --help\n"
           "\n"
           "Exit status: 0 done, 1 the picture cannot be written, 2 bad usage or input (nothing "
           "was written).\n";
}
