#include "common/COM_Scoped.h"
#include "golden/Scenario.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

namespace {

// The arithmetic is reproducible to 1e-8 of a column's largest magnitude; this leaves room for another
// association of the same sums.
constexpr double columnTolerance = 1e-6;
// A column that is zero but for rounding is judged against the peak field, or against a full population.
constexpr double floorTolerance = 1e-9;
// The log shows six digits.
constexpr double logTolerance = 2e-5;

std::string wholeFile(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    EXPECT_TRUE(stream.is_open()) << path;
    return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::vector<std::string> wordsOf(const std::string& line)
{
    std::istringstream stream(line);
    return {std::istream_iterator<std::string>(stream), std::istream_iterator<std::string>()};
}

/// A text with its numbers taken out and put aside. A digit that belongs to a word stays.
struct Numbered
{
    std::string mText;
    std::vector<double> mNumbers;

    explicit Numbered(const std::string& text)
    {
        for (std::size_t i = 0; i < text.size();) {
            const bool isInWord =
                i > 0 && std::isalpha(static_cast<unsigned char>(text[i - 1])) != 0;
            char* end = nullptr;
            const double value = std::strtod(text.c_str() + i, &end);
            const std::size_t length = static_cast<std::size_t>(end - (text.c_str() + i));
            if (length == 0 || isInWord || std::isspace(static_cast<unsigned char>(text[i])) != 0) {
                mText += text[i++];
                continue;
            }
            mText += '#';
            mNumbers.push_back(value);
            i += length;
        }
    }
};

void expectSameText(const std::string& name, const std::string& got, const std::string& expected,
                    double tolerance)
{
    const Numbered a(got);
    const Numbered b(expected);
    ASSERT_EQ(a.mText, b.mText) << name;
    ASSERT_EQ(a.mNumbers.size(), b.mNumbers.size()) << name;
    for (std::size_t i = 0; i < a.mNumbers.size(); ++i) {
        EXPECT_NEAR(a.mNumbers[i], b.mNumbers[i], tolerance * std::fabs(b.mNumbers[i]))
            << name << ", number " << i;
    }
}

/// Compares columns of numbers; the count of iterations, column 1 of a density, exactly.
void expectSameColumns(const std::string& name, const std::string& got, const std::string& expected,
                       double floor)
{
    const std::vector<std::string> a = linesOf(got);
    const std::vector<std::string> b = linesOf(expected);
    ASSERT_EQ(a.size(), b.size()) << name;
    const bool isDensity = name.starts_with("Rho_");
    std::vector<double> largest;
    for (const std::string& line : b) {
        const std::vector<std::string> words = wordsOf(line);
        largest.resize(std::max(largest.size(), words.size()), 0.0);
        for (std::size_t j = 0; j < words.size(); ++j) {
            const double magnitude = std::fabs(std::stod(words[j]));
            largest[j] = std::max(largest[j], std::isfinite(magnitude) ? magnitude : 0.0);
        }
    }
    for (std::size_t i = 0; i < a.size(); ++i) {
        const std::vector<std::string> x = wordsOf(a[i]);
        const std::vector<std::string> y = wordsOf(b[i]);
        ASSERT_EQ(x.size(), y.size()) << name << ", line " << i;
        for (std::size_t j = 0; j < x.size(); ++j) {
            if (isDensity && j == 1) {
                ASSERT_EQ(x[j], y[j]) << name << ", iterations of line " << i;
                continue;
            }
            const double u = std::stod(x[j]);
            const double v = std::stod(y[j]);
            const double allowed = std::max(columnTolerance * largest[j], j == 0 ? 0.0 : floor);
            ASSERT_TRUE((std::isnan(u) && std::isnan(v)) || u == v || std::fabs(u - v) <= allowed)
                << name << ", line " << i << ", column " << j << ": " << x[j] << " for " << y[j];
        }
    }
}

/// The log of the run without what depends on the clock.
std::string withoutTime(const std::string& log)
{
    std::string kept;
    for (std::size_t begin = 0; begin < log.size();) {
        std::size_t end = log.find('\n', begin);
        end = end == std::string::npos ? log.size() : end + 1;
        std::string line = log.substr(begin, end - begin);
        begin = end;
        const std::size_t time = line.find("execution time:");
        kept += time == std::string::npos ? line : line.substr(0, time);
    }
    return kept;
}

class Golden : public testing::TestWithParam<std::string>
{};

} // namespace

TEST_P(Golden, RunGivesTheFilesOfTheIndependentProgram)
{
    const Scenario scenario(Scenario::root() / GetParam());
    const TestDirectory directory;
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(directory.path());
    testing::internal::CaptureStdout();
    {
        const COM_Scoped problem(scenario.newProblem());
        const COM_Scoped out(COM_Out::New());
        problem->setSavingPath(directory.slashed());
        for (int run = 0; run < scenario.runs(); ++run) {
            EXPECT_EQ(problem->run(*out), 0);
        }
    }
    const std::string log = testing::internal::GetCapturedStdout();
    std::filesystem::current_path(former);
    QV_Bloch::resetShared();

    expectSameText("log.txt", withoutTime(log), wholeFile(scenario.expected() / "log.txt"),
                   logTolerance);
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(scenario.expected())) {
        const std::string name = entry.path().filename().string();
        if (name == "log.txt") {
            continue;
        }
        names.insert(name);
        ASSERT_TRUE(std::filesystem::exists(directory.path() / name)) << name;
        const std::string got = directory.read(name);
        const std::string expected = wholeFile(entry.path());
        if (name == "captors.res" || name == "level_Frequencies.res") {
            expectSameText(name, got, expected, columnTolerance);
        } else if (name == "tps.res") {
            expectSameColumns(name, got, expected, 0.0);
        } else {
            expectSameColumns(name, got, expected,
                              floorTolerance
                                  * (name.starts_with("E_") ? scenario.peakField() : 1.0));
        }
    }
    EXPECT_GE(names.size(), 3U);
    for (const auto& entry : std::filesystem::directory_iterator(directory.path())) {
        const std::string name = entry.path().filename().string();
        EXPECT_TRUE(names.contains(name) || name == "paramBeforeSolving.xml") << name;
    }
}

INSTANTIATE_TEST_SUITE_P(Scenarios, Golden, testing::ValuesIn(Scenario::names()),
                         [](const auto& scenario) { return scenario.param; });
