// Reads the input as the files of a run: its parts, divided by lines of "--", are captors.res, tps.res and
// then the field and density files that captors.res promises, in the order of their names. All ways of reading
// one number must agree.
#include "FuzzSupport.h"
#include "quorvex/QV_Results.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

constexpr std::string_view divider = "--\n";
constexpr std::size_t mostFiles = 12;
constexpr unsigned long mostNames = 1000; ///< More of them only take time.
constexpr std::size_t sharedFiles = 3;    ///< captors.res, level_Frequencies.res and tps.res.

std::vector<std::string_view> partsOf(std::string_view text)
{
    std::vector<std::string_view> parts;
    while (parts.size() + 1 < mostFiles) {
        const std::size_t place = text.find(divider);
        if (place == std::string_view::npos) {
            break;
        }
        parts.push_back(text.substr(0, place));
        text.remove_prefix(place + divider.size());
    }
    parts.push_back(text);
    return parts;
}

bool isSame(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

bool areSame(const std::vector<double>& a, const std::vector<double>& b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), isSame);
}

void checkCaptor(const QV_Results::Captor& captor)
{
    require(captor.mLocation <= QV_Results::MAX_LOCATION, "a location has its limit");
    require(captor.mPosition.size() <= QV_Results::MAX_COORDINATES, "a position has its limit");
    require(captor.mRhoSize <= QV_Results::MAX_RHO_SIZE, "a density has its limit");
    require(captor.mBlochEquationsNumber <= QV_Results::MAX_SYSTEMS, "systems have their limit");
    require(captor.mEDimension <= QV_Results::MAX_E_DIMENSION, "components have their limit");
}

/// The column of that name in a table; empty when there is none.
std::vector<double> columnOf(const QV_Results::Table& table, const std::string& name,
                             std::size_t rows)
{
    std::vector<double> values;
    for (unsigned long column = 0; column < table.getColumnsNumber(); ++column) {
        if (table.getColumnName(column) == name) {
            for (unsigned long row = 0; row < rows; ++row) {
                values.push_back(table.getValue(row, column));
            }
            break;
        }
    }
    return values;
}

void checkColumn(const QV_Results& results, const QV_Results::Table& table, const std::string& name,
                 const QV_Results::Samples& samples)
{
    require(samples.mT.size() == samples.mValues.size(), "each value has its time");
    QV_Results::Curve curve = results.curveOf(samples.mValues);
    require(curve.mX.size() == curve.mY.size(), "a curve is made of points");
    if (table.getColumnsNumber() <= mostNames) {
        require(areSame(columnOf(table, name, curve.mY.size()), curve.mY),
                "a table has the values");
    }
}

void checkField(const QV_Results& results, const QV_Results::Table& table,
                const QV_Results::Captor& captor)
{
    const std::vector<std::vector<double>> all = results.readFields(captor);
    require(all.size() == captor.mEDimension, "each component is read");
    for (unsigned long k = 0; k < all.size(); ++k) {
        const QV_Results::Samples one = results.readField(captor, k);
        require(areSame(one.mValues, all[k]), "a component is the same among all");
        checkColumn(results, table, "E" + std::to_string(k) + " (V/m)", one);
    }
    require(results.readField(captor, captor.mEDimension).mValues.empty(), "no further component");
}

void checkDensity(const QV_Results& results, const QV_Results::Table& table,
                  const QV_Results::Captor& captor, unsigned long system)
{
    const std::string name = "Rho_Bloch" + std::to_string(system);
    checkColumn(results, table, name + " iterations", results.readIterations(captor, system));
    const unsigned long last = captor.mRhoSize - 1; // wraps when there is no element
    const std::vector<std::vector<double>> all =
        results.readDensities(captor, system, {{0, 0}, {last, last}, {0, captor.mRhoSize}});
    require(areSame(results.readDensity(captor, system, 0, 0).mValues, all[0]), "the first");
    require(
        areSame(results.densityCurve(captor, system, last, last).mY, results.curveOf(all[1]).mY),
        "an element is the same among several");
    require(all[2].empty(), "no element beyond the matrix");
    if (captor.mRhoSize > 0) {
        const std::string end = "[" + std::to_string(last) + "]";
        checkColumn(results, table, name + end + end,
                    results.readDensity(captor, system, last, last));
    }
}

void checkTable(const QV_Results::Table& table, const QV_Results& results)
{
    const unsigned long rows = table.getRowsNumber();
    const unsigned long columns = table.getColumnsNumber();
    require(rows == results.getTimes().mSeconds.size(), "a row for each time");
    require(table.getColumnName(columns).empty(), "no further column");
    require(std::isnan(table.getValue(rows, 0)), "no further row");
    require(std::isnan(table.getValue(0, columns)), "no further value");
}

/// The rows of all captors and the tables of each hold the same.
void checkRows(const QV_Results& results)
{
    QV_Results::Rows rows(results);
    unsigned long columns = 0;
    for (const auto& part : rows.getParts()) {
        columns += part.mWidth;
    }
    if (columns > mostNames || !rows.getMessage().empty()) {
        return;
    }
    std::vector<QV_Results::Table> tables;
    for (const QV_Results::Captor& captor : results.getCaptors()) {
        tables.push_back(results.readTable(captor));
    }
    for (unsigned long row = 0; row < results.getTimes().mSeconds.size(); ++row) {
        require(rows.next(), "a row for each time");
        require(isSame(rows.getSeconds(), results.getTimes().mSeconds[row]), "a row has its time");
        std::vector<double> expected;
        for (const QV_Results::Table& table : tables) {
            for (unsigned long column = 2; column < table.getColumnsNumber(); ++column) {
                expected.push_back(table.getValue(row, column));
            }
        }
        std::vector<double> values;
        for (const auto& part : rows.getParts()) {
            require(part.mValues.empty() || part.mValues.size() == part.mWidth,
                    "all cells or none");
            values.insert(values.end(), part.mValues.begin(), part.mValues.end());
            values.resize(values.size() + part.mWidth - part.mValues.size(), std::nan(""));
        }
        require(areSame(values, expected), "rows have the values of tables");
    }
    require(!rows.next(), "no further row");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::vector<std::string_view> parts = partsOf(textOf(data, size));
    unsigned long written = 1;
    writeScratch(QV_Results::CAPTORS_FILE, parts[0]);
    if (parts.size() > 1) {
        writeScratch(QV_Results::TIMES_FILE, parts[1]);
        ++written;
    }
    QV_Results results;
    require(results.readCaptors(scratchDirectory()), "a file that is there is read");
    require(results.readTimes() == (parts.size() > 1), "the times are read if they are there");
    require(results.getTimes().mT.size() == results.getTimes().mSeconds.size(), "times are whole");

    std::vector<std::string> names;
    if (results.expectedFilesNumber() <= mostNames) {
        names = results.expectedFileNames();
        require(names.size() == results.expectedFilesNumber(), "each file has its name");
    }
    std::sort(names.begin() + std::min(sharedFiles, names.size()), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    for (std::size_t i = 2; i < parts.size() && i + 1 < names.size(); ++i) {
        require(QV_Results::isResultFileName(names[i + 1]), "an expected name is one of a run");
        writeScratch(names[i + 1], parts[i]);
        ++written;
    }
    for (const QV_Results::Captor& captor : results.getCaptors()) {
        checkCaptor(captor);
    }
    const std::size_t looked = std::min(results.getCaptors().size(), mostFiles);
    for (std::size_t i = 0; i < looked; ++i) {
        const QV_Results::Captor& captor = results.getCaptors()[i];
        const QV_Results::Table table = results.readTable(captor);
        checkTable(table, results);
        checkField(results, table, captor);
        for (unsigned long system = 0;
             system < std::min<unsigned long>(captor.mBlochEquationsNumber, mostFiles); ++system) {
            checkDensity(results, table, captor, system);
        }
    }
    if (results.getCaptors().size() <= mostFiles) {
        checkRows(results);
    }
    const QV_Results::Removal removal = QV_Results::removeResultFiles(scratchDirectory());
    require(removal.mIsComplete && removal.mRemoved == written, "the files of a run are removed");
    return 0;
}
