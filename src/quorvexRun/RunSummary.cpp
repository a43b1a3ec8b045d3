#include "quorvexRun/RunSummary.h"

#include "common/COM_FileWriter.h"
#include "common/COM_Real.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>

namespace {

constexpr unsigned long plotWidth = 60;
constexpr const char* steps[] = {" ",      "\u2581", "\u2582", "\u2583", "\u2584",
                                 "\u2585", "\u2586", "\u2587", "\u2588"};
constexpr double levels = 8.0;

double largest(const std::vector<double>& values)
{
    double top = 0.0;
    for (const double value : values) {
        top = std::isfinite(value) ? std::max(top, std::fabs(value)) : top;
    }
    return top;
}

std::string format(const char* pattern, double x)
{
    char text[64];
    std::snprintf(text, sizeof text, pattern, x);
    return text;
}

} // namespace

RunSummary::RunSummary()
{
    mResults.readCaptors("");
    mResults.readTimes();
}

void RunSummary::writeFiles(std::ostream& out, const std::string& directory) const
{
    std::vector<std::string> found;
    for (const std::string& name : mResults.expectedFileNames()) {
        if (std::filesystem::exists(name)) {
            found.push_back(name);
        }
    }
    out << found.size() << " result files with " << mResults.getTimes().mSeconds.size()
        << " lines in " << directory << ":\n";
    std::string line = " ";
    for (const std::string& name : found) {
        if (line.size() + name.size() > 95) {
            out << line << "\n";
            line = " ";
        }
        line += " " + name;
    }
    out << line << "\n";
}

std::string RunSummary::sparkline(const std::vector<double>& values, unsigned long width,
                                  double top)
{
    std::string line;
    for (unsigned long i = 0; i < width; ++i) {
        const unsigned long first = i * values.size() / width;
        const unsigned long last = std::max((i + 1) * values.size() / width, first + 1);
        double size = 0.0;
        for (unsigned long j = first; j < std::min<unsigned long>(last, values.size()); ++j) {
            size = std::isfinite(values[j]) ? std::max(size, std::fabs(values[j])) : size;
        }
        const double part = top > 0.0 ? std::min(size / top, 1.0) : 0.0;
        line += steps[static_cast<unsigned long>(std::lround(part * levels))];
    }
    return line;
}

void RunSummary::writePlot(std::ostream& out) const
{
    if (mResults.getTimes().mSeconds.empty()) {
        return;
    }
    double top = 0.0;
    for (const QV_Results::Captor& captor : mResults.getCaptors()) {
        top = std::max(top, largest(mResults.readField(captor, 0).mValues));
    }
    out << "field, and population of the highest level, from 0 to "
        << format("%.3g s", mResults.getTimes().mSeconds.back()) << ":\n";
    for (const QV_Results::Captor& captor : mResults.getCaptors()) {
        const std::vector<double> field = mResults.readField(captor, 0).mValues;
        const unsigned long highest = captor.mRhoSize - 1;
        const std::vector<double> population =
            mResults.readDensity(captor, 0, highest, highest).mValues;
        out << format("%5.1f %%", captor.mRelativePosition * 100.0) << " E   |"
            << sparkline(field, plotWidth, top) << "| " << format("%.3g V/m", largest(field))
            << "\n";
        out << "        rho |" << sparkline(population, plotWidth, 1.0) << "| "
            << format("%.3g", largest(population)) << "\n";
    }
}

bool RunSummary::writeTable(const std::string& fileName) const
{
    COM_FileWriter file(fileName);
    if (!file.isOpen()) {
        return false;
    }
    std::vector<QV_Results::Table> tables;
    for (const QV_Results::Captor& captor : mResults.getCaptors()) {
        tables.push_back(mResults.readTable(captor));
    }
    std::string line = "t\tt (s)";
    for (std::size_t i = 0; i < tables.size(); ++i) {
        for (unsigned long column = 2; column < tables[i].getColumnsNumber(); ++column) {
            line += "\t" + tables[i].getColumnName(column) + " at "
                    + std::to_string(mResults.getCaptors()[i].mLocation);
        }
    }
    file.stream() << line << "\n";
    const QV_Results::Times& times = mResults.getTimes();
    for (unsigned long row = 0; row < times.mSeconds.size(); ++row) {
        line.clear();
        COM_Real::append(line, times.mT[row], 0, 6);
        line += "\t";
        COM_Real::append(line, times.mSeconds[row], 0, 6);
        for (const QV_Results::Table& table : tables) {
            for (unsigned long column = 2; column < table.getColumnsNumber(); ++column) {
                line += "\t";
                COM_Real::append(line, table.getValue(row, column), 0, 6);
            }
        }
        file.stream() << line << "\n";
    }
    return file.commit();
}
