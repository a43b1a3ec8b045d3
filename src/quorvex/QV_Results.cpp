#include "quorvex/QV_Results.h"

#include "common/COM_Real.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <limits>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t blockSize = 1UL << 20;      ///< Bytes asked from the system at once.
constexpr std::size_t smallBlockSize = 1UL << 14; ///< The same where many files are open.

constexpr std::string_view fieldPrefix = "E_at_";
constexpr std::string_view densityPrefix = "Rho_Bloch";
constexpr std::string_view locationPrefix = "_at_";
constexpr std::string_view extension = ".res";

constexpr std::string_view captorWord = "captors";
constexpr std::string_view locationWord = "Location:";
constexpr std::string_view relativePositionWord = "RelPosition:";
constexpr std::string_view positionWord = "Position:";
constexpr std::string_view rhoSizeWord = "RhoSize:";
constexpr std::string_view systemsWord = "BlochEquationsNumber:";
constexpr std::string_view dimensionWord = "EDim:";

bool isLineEnd(char letter)
{
    return letter == '\n' || letter == '\r';
}

bool isSpace(char letter)
{
    return letter == ' ' || (letter >= '\t' && letter <= '\r');
}

bool isDigit(char letter)
{
    return letter >= '0' && letter <= '9';
}

// ---------------------------------------------------------------- words

/// Cuts a file into words at white space, block by block. It holds one block, or one word if that
/// is longer.
class Scanner
{
public:
    explicit Scanner(const std::string& name, std::size_t block = blockSize);
    ~Scanner();
    Scanner(const Scanner&) = delete;
    Scanner& operator=(const Scanner&) = delete;

    bool isOpen() const { return mHandle >= 0; }
    /// Goes to the next word. At the end of the file it gives false, and what is told of the last
    /// word stays.
    bool next();
    /// The present word, never empty. It is valid until `next`.
    std::string_view word() const { return {mBuffer.data() + mBegin, mEnd - mBegin}; }
    /// Whether the present word is the first of a line.
    bool isFirst() const { return mIsFirst; }
    /// Whether white space follows the present word. If not, the file ends here and may have been
    /// cut.
    bool isWhole() const { return mIsWhole; }
    /// Lets the next word begin behind the first `length` letters of the present one.
    void keep(std::size_t length) { mEnd = mBegin + length; }

private:
    /// Reads on behind the text from `mBegin` on. False at the end of the file.
    bool fill();

    int mHandle = -1;          ///< Owned; negative when closed.
    std::vector<char> mBuffer; ///< The text read last, [0, mFilled), and room for more.
    std::size_t mFilled = 0;
    std::size_t mBegin = 0; ///< The present word is [mBegin, mEnd).
    std::size_t mEnd = 0;
    bool mIsAtLineStart = true; ///< Only white space has come since the last line end.
    bool mIsFirst = false;
    bool mIsWhole = false;
};

// A pipe would let the reader wait for ever and a device need not have an end.
Scanner::Scanner(const std::string& name, std::size_t block)
    : mHandle(::open(name.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY))
{
    struct stat status
    {};
    if (mHandle >= 0 && (fstat(mHandle, &status) != 0 || !S_ISREG(status.st_mode))) {
        ::close(mHandle);
        mHandle = -1;
    }
    if (mHandle >= 0) {
        mBuffer.resize(std::min(block, static_cast<std::size_t>(status.st_size) + 1));
    }
}

Scanner::~Scanner()
{
    if (mHandle >= 0) {
        ::close(mHandle);
    }
}

bool Scanner::next()
{
    mBegin = mEnd;
    for (; mBegin < mFilled || fill(); ++mBegin) {
        if (!isSpace(mBuffer[mBegin])) {
            break;
        }
        mIsAtLineStart = mIsAtLineStart || isLineEnd(mBuffer[mBegin]);
    }
    mEnd = mBegin;
    if (mBegin == mFilled) {
        return false;
    }
    while ((mEnd < mFilled || fill()) && !isSpace(mBuffer[mEnd])) {
        ++mEnd;
    }
    mIsWhole = mEnd < mFilled;
    mIsFirst = mIsAtLineStart;
    mIsAtLineStart = false;
    return true;
}

bool Scanner::fill()
{
    if (!isOpen()) {
        return false;
    }
    if (mBegin > 0) {
        std::memmove(mBuffer.data(), mBuffer.data() + mBegin, mFilled - mBegin);
        mFilled -= mBegin;
        mEnd -= std::min(mBegin, mEnd);
        mBegin = 0;
    }
    if (mFilled == mBuffer.size()) {
        mBuffer.resize(2 * mBuffer.size());
    }
    ssize_t count = 0;
    do {
        count = ::read(mHandle, mBuffer.data() + mFilled, mBuffer.size() - mFilled);
    } while (count < 0 && errno == EINTR);
    mFilled += static_cast<std::size_t>(std::max<ssize_t>(count, 0));
    return count > 0;
}

// ---------------------------------------------------------------- numbers

/// Reads the number at the start of `word` as COM_Real::parseReal does, and tells how many letters
/// it takes: none when there is no number, `value` then being 0.
std::size_t parseReal(std::string_view word, double& value)
{
    // What the program itself writes, but for infinities and the like, goes this faster way. Both
    // ways round to the nearest double.
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error == std::errc() && end == word.data() + word.size() && std::isfinite(value)) {
        return word.size();
    }
    std::size_t length = 0;
    value = COM_Real::parseReal(std::string(word), length);
    return length;
}

/// The same as COM_Integer::parseInt does.
std::size_t parseInteger(std::string_view word, long& value)
{
    const bool hasPlus = word.size() > 1 && word[0] == '+' && isDigit(word[1]);
    const auto [end, error] =
        std::from_chars(word.data() + (hasPlus ? 1 : 0), word.data() + word.size(), value);
    if (error == std::errc::invalid_argument) {
        value = 0;
        return 0;
    }
    if (error == std::errc::result_out_of_range) {
        value =
            word[0] == '-' ? std::numeric_limits<long>::min() : std::numeric_limits<long>::max();
    }
    return static_cast<std::size_t>(end - word.data());
}

// ---------------------------------------------------------------- lines of numbers

/// What each line of a file holds.
struct Shape
{
    unsigned long mColumns = 1; ///< Numbers in a line, at least 1.
    bool mHasCount = false;     ///< The second of them is a count, not a real.
};

/// Reads `word`, the whole of it, as the number of a column.
bool readCell(std::string_view word, bool isCount, double& value)
{
    if (!isCount) {
        return parseReal(word, value) == word.size();
    }
    long count = 0;
    const bool isNumber = parseInteger(word, count) == word.size();
    value = static_cast<double>(count);
    return isNumber && count >= 0;
}

/// Reads a file line by line up to the first damaged one.
class LineReader
{
public:
    LineReader(const std::string& name, const Shape& shape, std::size_t block = blockSize)
        : mScanner(name, block)
        , mShape(shape)
    {}

    bool isOpen() const { return mScanner.isOpen(); }
    /// Goes to the next line. False, then and ever after, at the end or at a damaged line.
    bool next();
    /// The present line, `mColumns` numbers. It is valid until `next`.
    const std::vector<double>& line() const { return mLine; }

private:
    bool readLine();

    Scanner mScanner;
    Shape mShape;
    std::vector<double> mLine;   ///< Grows with what is there, not with what should be.
    bool mIsWordWaiting = false; ///< The scanner stands at the first word of the next line.
    bool mIsAtEnd = false;
};

bool LineReader::next()
{
    mIsAtEnd = mIsAtEnd || !readLine();
    return !mIsAtEnd;
}

bool LineReader::readLine()
{
    mLine.clear();
    while (mIsWordWaiting || mScanner.next()) {
        mIsWordWaiting = mScanner.isFirst() && mLine.size() == mShape.mColumns;
        if (mIsWordWaiting) {
            return true;
        }
        const bool isCutShort = mScanner.isFirst() && !mLine.empty();
        const bool isTooLong = mLine.size() == mShape.mColumns;
        const bool isCount = mShape.mHasCount && mLine.size() == 1;
        double value = 0.0;
        if (isCutShort || isTooLong || !readCell(mScanner.word(), isCount, value)) {
            return false;
        }
        mLine.push_back(value);
    }
    return mLine.size() == mShape.mColumns && mScanner.isWhole();
}

/// Gives each line of a file to `sink`, as a vector of `mColumns` numbers, up to the first damaged
/// one. False when the file cannot be opened.
template <typename Sink>
bool eachLine(const std::string& name, const Shape& shape, Sink sink)
{
    LineReader reader(name, shape);
    while (reader.next()) {
        sink(reader.line());
    }
    return reader.isOpen();
}

constexpr Shape timesShape{3};

std::string unreadable(const std::string& fileName)
{
    return "The file " + fileName + " could not be read.";
}

QV_Results::Samples readColumn(const std::string& name, const Shape& shape, unsigned long column)
{
    QV_Results::Samples samples;
    eachLine(name, shape, [&samples, column](const std::vector<double>& line) {
        samples.mT.push_back(line[0]);
        samples.mValues.push_back(line[column]);
    });
    return samples;
}

bool hasField(const QV_Results::Captor& captor)
{
    return captor.mEDimension <= QV_Results::MAX_E_DIMENSION;
}

bool hasSystem(const QV_Results::Captor& captor, unsigned long system)
{
    return system < captor.mBlochEquationsNumber && captor.mRhoSize <= QV_Results::MAX_RHO_SIZE;
}

bool hasElement(const QV_Results::Captor& captor, unsigned long i, unsigned long j)
{
    return i < captor.mRhoSize && j < captor.mRhoSize;
}

Shape fieldShape(const QV_Results::Captor& captor)
{
    return {1 + captor.mEDimension};
}

Shape densityShape(const QV_Results::Captor& captor)
{
    return {2 + captor.mRhoSize * captor.mRhoSize, true};
}

// ---------------------------------------------------------------- captors.res

bool isCaptorsWord(std::string_view word)
{
    return word == captorWord || word == locationWord || word == relativePositionWord
           || word == positionWord || word == rhoSizeWord || word == systemsWord
           || word == dimensionWord;
}

/// Reads the next word into `number`. What of it belongs to no number is left as a word of its own.
void readReal(Scanner& scanner, double& number)
{
    if (!scanner.next()) {
        return;
    }
    double value = 0.0;
    const std::size_t length = parseReal(scanner.word(), value);
    scanner.keep(length);
    if (length > 0) {
        number = value;
    }
}

/// The same for a number of 0 to `limit`; another is passed over.
void readCount(Scanner& scanner, unsigned long limit, unsigned long& number)
{
    if (!scanner.next()) {
        return;
    }
    long value = 0;
    const std::size_t length = parseInteger(scanner.word(), value);
    scanner.keep(length);
    if (length > 0 && value >= 0 && static_cast<unsigned long>(value) <= limit) {
        number = static_cast<unsigned long>(value);
    }
}

void readPosition(Scanner& scanner, std::vector<double>& position)
{
    position.clear();
    if (!scanner.next()) {
        return;
    }
    std::string_view text = scanner.word();
    if (isCaptorsWord(text)) {
        scanner.keep(0);
        return;
    }
    if (text.size() < 2) {
        return;
    }
    text = text.substr(1, text.size() - 2);
    while (!text.empty() && position.size() < QV_Results::MAX_COORDINATES) {
        const std::string_view piece = text.substr(0, text.find(','));
        text.remove_prefix(std::min(piece.size() + 1, text.size()));
        if (!piece.empty()) {
            parseReal(piece, position.emplace_back());
        }
    }
}

/// Reads the value that the present word announces; another word is passed over.
void readProperty(Scanner& scanner, QV_Results::Captor& captor)
{
    const std::string_view word = scanner.word();
    if (word == locationWord) {
        readCount(scanner, QV_Results::MAX_LOCATION, captor.mLocation);
    } else if (word == relativePositionWord) {
        readReal(scanner, captor.mRelativePosition);
    } else if (word == positionWord) {
        readPosition(scanner, captor.mPosition);
    } else if (word == rhoSizeWord) {
        readCount(scanner, QV_Results::MAX_RHO_SIZE, captor.mRhoSize);
    } else if (word == systemsWord) {
        readCount(scanner, QV_Results::MAX_SYSTEMS, captor.mBlochEquationsNumber);
    } else if (word == dimensionWord) {
        readCount(scanner, QV_Results::MAX_E_DIMENSION, captor.mEDimension);
    }
}

// ---------------------------------------------------------------- names

/// Takes `prefix` from the front of `text`, if it is there.
bool skip(std::string_view& text, std::string_view prefix)
{
    if (!text.starts_with(prefix)) {
        return false;
    }
    text.remove_prefix(prefix.size());
    return true;
}

bool isNumber(std::string_view text)
{
    return !text.empty() && std::all_of(text.begin(), text.end(), isDigit);
}

/// The names in a directory, the working directory when `directory` is empty.
std::vector<std::string> namesIn(const std::string& directory, std::error_code& error)
{
    std::vector<std::string> names;
    std::filesystem::directory_iterator entry(directory.empty() ? "." : directory, error);
    for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
        names.push_back(entry->path().filename().string());
    }
    return names;
}

} // namespace

// ---------------------------------------------------------------- captors and times

bool QV_Results::readCaptors(const std::string& directory)
{
    mDirectory = directory;
    mCaptors.clear();
    mTimes = {};
    mMessage.clear();
    Scanner scanner(mDirectory + CAPTORS_FILE);
    if (!scanner.isOpen()) {
        mMessage = unreadable(mDirectory + CAPTORS_FILE);
        return false;
    }
    while (scanner.next()) {
        if (scanner.word() == captorWord) {
            mCaptors.emplace_back();
        } else if (!mCaptors.empty()) {
            readProperty(scanner, mCaptors.back());
        }
    }
    std::stable_sort(mCaptors.begin(), mCaptors.end(),
                     [](const Captor& a, const Captor& b) { return a.mLocation < b.mLocation; });
    return true;
}

bool QV_Results::readTimes()
{
    mTimes = {};
    mMessage.clear();
    const bool isOpen =
        eachLine(mDirectory + TIMES_FILE, timesShape, [this](const std::vector<double>& line) {
            mTimes.mT.push_back(line[0]);
            mTimes.mRabiFrequencies.push_back(line[1]);
            mTimes.mSeconds.push_back(line[2]);
        });
    if (!isOpen) {
        mMessage = unreadable(mDirectory + TIMES_FILE);
    }
    return isOpen;
}

// ---------------------------------------------------------------- columns

QV_Results::Samples QV_Results::readField(const Captor& captor, unsigned long component) const
{
    if (!hasField(captor) || component >= captor.mEDimension) {
        return {};
    }
    return readColumn(mDirectory + fieldFileName(captor.mLocation), fieldShape(captor),
                      1 + component);
}

std::vector<std::vector<double>> QV_Results::readFields(const Captor& captor) const
{
    if (!hasField(captor)) {
        return {};
    }
    std::vector<std::vector<double>> components(captor.mEDimension);
    eachLine(mDirectory + fieldFileName(captor.mLocation), fieldShape(captor),
             [&components](const std::vector<double>& line) {
                 for (std::size_t k = 0; k < components.size(); ++k) {
                     components[k].push_back(line[1 + k]);
                 }
             });
    return components;
}

QV_Results::Samples QV_Results::readDensityColumn(const Captor& captor, unsigned long system,
                                                  unsigned long column) const
{
    if (!hasSystem(captor, system)) {
        return {};
    }
    return readColumn(mDirectory + densityFileName(system, captor.mLocation), densityShape(captor),
                      column);
}

QV_Results::Samples QV_Results::readDensity(const Captor& captor, unsigned long system,
                                            unsigned long i, unsigned long j) const
{
    if (!hasElement(captor, i, j)) {
        return {};
    }
    return readDensityColumn(captor, system, 2 + i * captor.mRhoSize + j);
}

QV_Results::Samples QV_Results::readIterations(const Captor& captor, unsigned long system) const
{
    return readDensityColumn(captor, system, 1);
}

std::vector<std::vector<double>>
QV_Results::readDensities(const Captor& captor, unsigned long system,
                          const std::vector<Element>& elements) const
{
    std::vector<std::vector<double>> values(elements.size());
    if (!hasSystem(captor, system)) {
        return values;
    }
    eachLine(mDirectory + densityFileName(system, captor.mLocation), densityShape(captor),
             [&](const std::vector<double>& line) {
                 for (std::size_t k = 0; k < elements.size(); ++k) {
                     const Element& element = elements[k];
                     if (hasElement(captor, element.mI, element.mJ)) {
                         values[k].push_back(line[2 + element.mI * captor.mRhoSize + element.mJ]);
                     }
                 }
             });
    return values;
}

// ---------------------------------------------------------------- curves

QV_Results::Curve QV_Results::curveOf(std::vector<double> values) const
{
    const std::size_t size = std::min(values.size(), mTimes.mSeconds.size());
    values.resize(size);
    const auto begin = mTimes.mSeconds.begin();
    return {{begin, begin + static_cast<std::ptrdiff_t>(size)}, std::move(values)};
}

QV_Results::Curve QV_Results::fieldCurve(const Captor& captor, unsigned long component) const
{
    return curveOf(readField(captor, component).mValues);
}

QV_Results::Curve QV_Results::densityCurve(const Captor& captor, unsigned long system,
                                           unsigned long i, unsigned long j) const
{
    return curveOf(readDensity(captor, system, i, j).mValues);
}

QV_Results::Curve QV_Results::iterationsCurve(const Captor& captor, unsigned long system) const
{
    return curveOf(readIterations(captor, system).mValues);
}

// ---------------------------------------------------------------- table

const QV_Results::Table::Part* QV_Results::Table::partOf(unsigned long column) const
{
    const auto next =
        std::upper_bound(mParts.begin(), mParts.end(), column,
                         [](unsigned long k, const Part& part) { return k < part.mFirstColumn; });
    return next == mParts.begin() || column >= mColumnsNumber ? nullptr : &*std::prev(next);
}

std::string QV_Results::Table::getColumnName(unsigned long column) const
{
    if (column < 2) {
        return column == 0 ? "t" : "t (s)";
    }
    const Part* const part = partOf(column);
    if (part == nullptr) {
        return "";
    }
    const unsigned long place = column - part->mFirstColumn;
    if (part->mIsField) {
        return "E" + std::to_string(place) + " (V/m)";
    }
    const std::string name = std::string(densityPrefix) + std::to_string(part->mSystem);
    if (place == 0) {
        return name + " iterations";
    }
    return name + "[" + std::to_string((place - 1) / part->mRhoSize) + "]["
           + std::to_string((place - 1) % part->mRhoSize) + "]";
}

double QV_Results::Table::getValue(unsigned long row, unsigned long column) const
{
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    if (row >= getRowsNumber()) {
        return none;
    }
    if (column < 2) {
        return (column == 0 ? mTimes.mT : mTimes.mSeconds)[row];
    }
    const Part* const part = partOf(column);
    if (part == nullptr || row >= part->mValues.size() / part->mWidth) {
        return none;
    }
    return part->mValues[row * part->mWidth + column - part->mFirstColumn];
}

QV_Results::Table QV_Results::readTable(const Captor& captor) const
{
    Table table;
    table.mTimes = mTimes;
    const auto add = [&](const std::string& name, const Shape& shape, Table::Part part) {
        const bool isOpen =
            eachLine(mDirectory + name, shape, [&part](const std::vector<double>& line) {
                part.mValues.insert(part.mValues.end(), line.begin() + 1, line.end());
            });
        if (isOpen) {
            part.mFirstColumn = table.mColumnsNumber;
            part.mWidth = shape.mColumns - 1;
            table.mColumnsNumber += part.mWidth;
            table.mParts.push_back(std::move(part));
        }
    };
    if (hasField(captor) && captor.mEDimension > 0) {
        add(fieldFileName(captor.mLocation), fieldShape(captor), {true, 0, 0, 0, 0, {}});
    }
    std::error_code ignored;
    for (const unsigned long system : findSystems(captor, ignored)) {
        add(densityFileName(system, captor.mLocation), densityShape(captor),
            {false, system, captor.mRhoSize, 0, 0, {}});
    }
    return table;
}

// Asked one by one, a hundred thousand systems that a damaged captors.res promises would cost as
// many look-ups.
std::vector<unsigned long> QV_Results::findSystems(const Captor& captor,
                                                   std::error_code& error) const
{
    const std::size_t slash = mDirectory.rfind('/');
    const std::size_t size = slash == std::string::npos ? 0 : slash + 1;
    const std::string front = mDirectory.substr(size);
    std::vector<unsigned long> systems;
    for (const std::string& name : namesIn(mDirectory.substr(0, size), error)) {
        std::string_view rest = name;
        long number = 0;
        if (!skip(rest, front) || !skip(rest, densityPrefix) || parseInteger(rest, number) == 0) {
            continue;
        }
        const auto system = static_cast<unsigned long>(number); // negative ones become too large
        if (hasSystem(captor, system)
            && name == front + densityFileName(system, captor.mLocation)) {
            systems.push_back(system);
        }
    }
    std::sort(systems.begin(), systems.end());
    return systems;
}

// ---------------------------------------------------------------- rows

/// One reader for each of the parts, in their order.
struct QV_Results::Rows::Files
{
    std::unique_ptr<LineReader> mTimes;
    std::vector<std::unique_ptr<LineReader>> mParts;
};

QV_Results::Rows::Rows(const QV_Results& results)
    : mFiles(std::make_unique<Files>())
{
    const std::string& directory = results.mDirectory;
    mFiles->mTimes =
        std::make_unique<LineReader>(directory + TIMES_FILE, timesShape, smallBlockSize);
    if (!mFiles->mTimes->isOpen()) {
        mMessage = unreadable(directory + TIMES_FILE);
    }
    for (std::size_t i = 0; i < results.mCaptors.size(); ++i) {
        const Captor& captor = results.mCaptors[i];
        if (hasField(captor) && captor.mEDimension > 0) {
            open(directory + fieldFileName(captor.mLocation),
                 {i + 1, captor.mLocation, true, 0, 0, captor.mEDimension, {}});
        }
        std::error_code error;
        for (const unsigned long system : results.findSystems(captor, error)) {
            open(directory + densityFileName(system, captor.mLocation),
                 {i + 1,
                  captor.mLocation,
                  false,
                  system,
                  captor.mRhoSize,
                  1 + captor.mRhoSize * captor.mRhoSize,
                  {}});
        }
        if (error && mMessage.empty()) {
            mMessage =
                "The directory " + (directory.empty() ? "." : directory) + " could not be read.";
        }
        if (!mMessage.empty()) {
            return;
        }
    }
}

QV_Results::Rows::~Rows() = default;

void QV_Results::Rows::open(const std::string& name, Part part)
{
    std::error_code error; // set where nobody can tell whether the file is there
    const bool isMissing = !std::filesystem::exists(name, error) && !error;
    if (!mMessage.empty() || isMissing) {
        return;
    }
    auto reader =
        std::make_unique<LineReader>(name, Shape{1 + part.mWidth, !part.mIsField}, smallBlockSize);
    if (!reader->isOpen()) {
        mMessage = unreadable(name);
        return;
    }
    mFiles->mParts.push_back(std::move(reader));
    mParts.push_back(std::move(part));
}

bool QV_Results::Rows::next()
{
    if (!mMessage.empty() || !mFiles->mTimes->next()) {
        return false;
    }
    mSeconds = mFiles->mTimes->line()[2];
    for (std::size_t i = 0; i < mParts.size(); ++i) {
        LineReader& reader = *mFiles->mParts[i];
        std::vector<double>& values = mParts[i].mValues;
        if (reader.next()) {
            values.assign(reader.line().begin() + 1, reader.line().end());
        } else {
            values.clear();
        }
    }
    return true;
}

// ---------------------------------------------------------------- the files themselves

std::string QV_Results::fieldFileName(unsigned long location)
{
    return std::string(fieldPrefix) + std::to_string(location) + std::string(extension);
}

std::string QV_Results::densityFileName(unsigned long system, unsigned long location)
{
    return std::string(densityPrefix) + std::to_string(system) + std::string(locationPrefix)
           + std::to_string(location) + std::string(extension);
}

unsigned long QV_Results::expectedFilesNumber() const
{
    unsigned long number = 3;
    for (const Captor& captor : mCaptors) {
        number += 1 + captor.mBlochEquationsNumber;
    }
    return number;
}

std::vector<std::string> QV_Results::expectedFileNames() const
{
    std::vector<std::string> names{CAPTORS_FILE, FREQUENCIES_FILE, TIMES_FILE};
    for (const Captor& captor : mCaptors) {
        if (names.size() < MAX_FILES) {
            names.push_back(fieldFileName(captor.mLocation));
        }
        for (unsigned long b = 0; b < captor.mBlochEquationsNumber && names.size() < MAX_FILES;
             ++b) {
            names.push_back(densityFileName(b, captor.mLocation));
        }
    }
    return names;
}

bool QV_Results::isResultFileName(const std::string& name)
{
    std::string_view text = name;
    if (text == CAPTORS_FILE || text == FREQUENCIES_FILE || text == TIMES_FILE) {
        return true;
    }
    if (!text.ends_with(extension)) {
        return false;
    }
    text.remove_suffix(extension.size());
    if (skip(text, fieldPrefix)) {
        return isNumber(text);
    }
    if (!skip(text, densityPrefix)) {
        return false;
    }
    const std::size_t at = text.find(locationPrefix);
    return at != std::string_view::npos && isNumber(text.substr(0, at))
           && isNumber(text.substr(at + locationPrefix.size()));
}

QV_Results::Removal QV_Results::removeResultFiles(const std::string& directory)
{
    Removal removal;
    std::error_code error;
    // Listed to its end first: a directory that changes under the listing may hide a name.
    for (const std::string& name : namesIn(directory, error)) {
        if (!isResultFileName(name)) {
            continue;
        }
        const std::filesystem::path path = std::filesystem::path(directory) / name;
        if (unlink(path.c_str()) == 0) {
            ++removal.mRemoved;
        } else if (errno != ENOENT) {
            removal.mIsComplete = false;
        }
    }
    if (error && error != std::errc::no_such_file_or_directory) {
        removal.mIsComplete = false;
    }
    return removal;
}
