#include "ReferenceInput.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace {

[[noreturn]] void fail(const std::string& message)
{
    throw std::runtime_error(message);
}

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r");
    if (begin == std::string::npos) {
        return "";
    }
    return text.substr(begin, text.find_last_not_of(" \t\r") - begin + 1);
}

template <typename T>
T parseNumber(const std::string& key, const std::string& word)
{
    T value{};
    const char* const end = word.data() + word.size();
    const std::from_chars_result result = std::from_chars(word.data(), end, value);
    bool good = result.ec == std::errc() && result.ptr == end;
    if constexpr (std::is_floating_point_v<T>) {
        good = good && std::isfinite(value);
    }
    if (!good) {
        fail("key " + key + ": \"" + word + "\" is not a number of the kind that is wanted");
    }
    return value;
}

/// "re" or "(re,im)"
std::complex<double> parseComplex(const std::string& key, const std::string& word)
{
    const std::size_t comma = word.find(',');
    if (word.front() != '(' || word.back() != ')' || comma == std::string::npos) {
        return parseNumber<double>(key, word);
    }
    return {parseNumber<double>(key, word.substr(1, comma - 1)),
            parseNumber<double>(key, word.substr(comma + 1, word.size() - comma - 2))};
}

/// The lines of a scenario by key. What has been read is taken out, so that what is left at the end
/// are keys that nobody knows.
class Lines
{
public:
    explicit Lines(std::istream& input)
    {
        std::string line;
        for (unsigned long number = 1; std::getline(input, line); ++number) {
            line = trimmed(line);
            if (line.empty() || line.front() == '#') {
                continue;
            }
            const std::size_t equals = line.find('=');
            const std::string key = trimmed(line.substr(0, equals));
            if (equals == std::string::npos || key.empty()) {
                fail("line " + std::to_string(number) + ": not of the form key = value");
            }
            if (!mValues.emplace(key, trimmed(line.substr(equals + 1))).second) {
                fail("line " + std::to_string(number) + ": key " + key + " is given twice");
            }
        }
    }

    /// The words of a key's value; none when the key isn't given.
    std::vector<std::string> take(const std::string& key)
    {
        std::vector<std::string> words;
        const auto entry = mValues.find(key);
        if (entry != mValues.end()) {
            std::istringstream stream(entry->second);
            for (std::string word; stream >> word;) {
                words.push_back(word);
            }
            if (words.empty()) {
                fail("key " + key + " has no value");
            }
            mValues.erase(entry);
        }
        return words;
    }

    /// Sets `value` to the one number of a key, if the key is given. Says whether it was.
    template <typename T>
    bool number(const std::string& key, T& value)
    {
        const std::vector<std::string> words = take(key);
        if (words.size() > 1) {
            fail("key " + key + " takes one value");
        }
        for (const std::string& word : words) {
            value = parseNumber<T>(key, word);
        }
        return !words.empty();
    }

    /// Like `number`, for a count that must not be 0.
    template <typename T>
    bool count(const std::string& key, T& value)
    {
        const bool given = number(key, value);
        if (value == 0) {
            fail("key " + key + " must be at least 1");
        }
        return given;
    }

    /// Sets `value` to the entry of a table whose name is the value of the key, if it is given.
    template <typename T, std::size_t N>
    void name(const std::string& key, const std::array<std::string, N>& names, T& value)
    {
        const std::vector<std::string> words = take(key);
        if (words.empty()) {
            return;
        }
        const auto* const found = std::find(names.begin(), names.end(), words.front());
        if (words.size() > 1 || found == names.end()) {
            std::string message = "key " + key + " takes one of:";
            for (const std::string& known : names) {
                message += " " + known;
            }
            fail(message);
        }
        value = static_cast<T>(found - names.begin());
    }

    /// Sets `values` to the reals of a key, if it is given; `size` of them, any number for 0.
    bool reals(const std::string& key, std::size_t size, std::vector<double>& values)
    {
        const std::vector<std::string> words = take(key);
        if (words.empty()) {
            return false;
        }
        checkSize(key, size, words.size());
        values.clear();
        for (const std::string& word : words) {
            values.push_back(parseNumber<double>(key, word));
        }
        return true;
    }

    bool realMatrix(const std::string& key, ReferenceRealMatrix& matrix)
    {
        const std::size_t n = matrix.size();
        std::vector<double> values;
        if (!reals(key, n * n, values)) {
            return false;
        }
        for (std::size_t i = 0; i < n * n; ++i) {
            matrix(i / n, i % n) = values[i];
        }
        return true;
    }

    void complexMatrix(const std::string& key, ReferenceComplexMatrix& matrix)
    {
        const std::size_t n = matrix.size();
        const std::vector<std::string> words = take(key);
        if (words.empty()) {
            return;
        }
        checkSize(key, n * n, words.size());
        for (std::size_t i = 0; i < n * n; ++i) {
            matrix(i / n, i % n) = parseComplex(key, words[i]);
        }
    }

    void checkAllTaken() const
    {
        if (!mValues.empty()) {
            fail("key " + mValues.begin()->first + " is not known here");
        }
    }

private:
    static void checkSize(const std::string& key, std::size_t wanted, std::size_t given)
    {
        if (wanted != 0 && wanted != given) {
            fail("key " + key + " takes " + std::to_string(wanted) + " values, not "
                 + std::to_string(given));
        }
    }

    std::map<std::string, std::string> mValues;
};

void readRun(Lines& lines, ReferenceProblem& problem)
{
    lines.number("steps", problem.mMaxTimeStepsNumber);
    lines.count("runs", problem.mRunsNumber);
    lines.name("method", ReferenceProblem::METHOD_NAMES, problem.mMethod);
}

void readPulse(Lines& lines, ReferenceProblem& problem)
{
    double waveLength = 0.0;
    if (lines.number("waveLength", waveLength)) {
        problem.setWaveLength(waveLength);
    }
    lines.name("pulse", ReferenceProblem::SHAPE_NAMES, problem.mShape);
    lines.number("fieldMaxValue", problem.mFieldMaxValue);
    lines.number("duration", problem.mWavePackageDuration);
    lines.number("CFL", problem.mCFL);
}

void readMedium(Lines& lines, ReferenceProblem& problem)
{
    lines.number("length", problem.mLength);
    lines.number("indice", problem.mIndice);
    lines.number("start", problem.mStartingPosition);
    lines.number("end", problem.mEndingPosition);
    lines.count("cells", problem.mDiscretizationNumber);
    lines.reals("captors", 0, problem.mCaptors);
}

void readField(Lines& lines, ReferenceProblem& problem)
{
    lines.name("ends", ReferenceProblem::ENDS_NAMES, problem.mEnds);
    lines.number("reflection", problem.mR);
    lines.reals("factors", 0, problem.mFactors);
}

void readAtoms(Lines& lines, ReferenceProblem& problem)
{
    std::size_t levels = problem.mLevelsNumber;
    lines.count("levels", levels);
    problem.setLevelsNumber(levels);

    ReferenceRealMatrix polarization(levels);
    if (lines.realMatrix("polarization0", polarization)) {
        problem.setPolarization(0, polarization);
    }
    std::size_t dimension = problem.mDimension;
    lines.count("dimension", dimension);
    if (dimension > 2) {
        fail("key dimension takes 1 or 2");
    }
    problem.setDimension(dimension);
    if (dimension == 2 && lines.realMatrix("polarization1", polarization)) {
        problem.setPolarization(1, polarization);
    }

    std::size_t systems = problem.mOmegas.size();
    lines.count("systems", systems);
    problem.setSystemsNumber(systems);
    for (std::size_t b = 0; b < systems; ++b) {
        lines.reals("omega" + std::to_string(b), levels, problem.mOmegas[b]);
    }

    lines.number("atoms", problem.mAtomsNumber);
    double temperature = 0.0;
    if (lines.number("temperature", temperature)) {
        problem.setTemperature(temperature);
    }
    lines.number("transversal", problem.mTransversalRelaxation);
    lines.number("iterationsMax", problem.mIterationsMaxNumber);
    lines.number("convergence", problem.mConvergenceRate);
    lines.number("relaxationType", problem.mRelaxationType);
    lines.number("splitType", problem.mSplitType);
    lines.realMatrix("longitudinal", problem.mW);
    lines.reals("equilibrium", levels, problem.mRhoE);
    lines.complexMatrix("initialDensity", problem.mInitialDensity);
}

} // namespace

ReferenceProblem readScenario(std::istream& input)
{
    Lines lines(input);
    ReferenceProblem problem;
    readRun(lines, problem);
    readPulse(lines, problem);
    readMedium(lines, problem);
    readField(lines, problem);
    readAtoms(lines, problem);
    lines.checkAllTaken();
    return problem;
}
