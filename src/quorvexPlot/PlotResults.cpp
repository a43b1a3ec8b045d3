#include "quorvexPlot/PlotResults.h"

#include "quorvexPlot/PlotError.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

namespace {

/// "captors 1 to 5 (at the nodes 1, 11, 19, 27, 38)", for a complaint.
std::string describe(const std::vector<QV_Results::Captor>& captors)
{
    constexpr std::size_t most = 20; // nodes to list
    std::string nodes;
    for (std::size_t i = 0; i < std::min(captors.size(), most); ++i) {
        nodes += (i > 0 ? ", " : "") + std::to_string(captors[i].mLocation);
    }
    nodes += captors.size() > most ? " and so on" : "";
    return captors.size() == 1
               ? "captor 1 alone (at node " + nodes + ")"
               : "captors 1 to " + std::to_string(captors.size()) + " (at the nodes " + nodes + ")";
}

std::string upTo(unsigned long number)
{
    return number == 1 ? "0" : "0 to " + std::to_string(number - 1);
}

} // namespace

PlotResults::PlotResults(const PlotOptions& options)
    : mDirectory(options.mResults + (options.mResults.ends_with('/') ? "" : "/"))
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(options.mResults, ignored)) {
        throw PlotError("there is no directory " + options.mResults);
    }
    const bool areCaptorsRead = mResults.readCaptors(mDirectory);
    if (!areCaptorsRead || !mResults.readTimes()) {
        throw PlotError(
            "the file " + mDirectory
            + (areCaptorsRead ? QV_Results::TIMES_FILE : QV_Results::CAPTORS_FILE)
            + " cannot be read; every run writes one into the directory of its results");
    }
    const std::vector<QV_Results::Captor>& all = mResults.getCaptors();
    if (all.empty() || seconds().empty()) {
        throw PlotError(
            mDirectory + (all.empty() ? QV_Results::CAPTORS_FILE : QV_Results::TIMES_FILE)
            + " holds no " + (all.empty() ? "captor" : "time") + ": there is nothing to draw");
    }
    for (const unsigned long number : options.mCaptors) {
        if (number > all.size()) {
            throw PlotError("there is no captor " + std::to_string(number) + "; the results have "
                            + describe(all));
        }
    }
    for (unsigned long place = 0; place < all.size(); ++place) {
        const std::vector<unsigned long>& chosen = options.mCaptors;
        if (chosen.empty() || std::find(chosen.begin(), chosen.end(), place + 1) != chosen.end()) {
            readCaptor(place, options);
        }
    }
    const bool isEmpty = std::all_of(mCaptors.begin(), mCaptors.end(), [](const Captor& captor) {
        return captor.mFields.empty() && captor.mDensities.empty();
    });
    if (isEmpty) {
        throw PlotError("the run has saved no field; --density chooses elements of the density "
                        "matrices");
    }
}

void PlotResults::readCaptor(unsigned long place, const PlotOptions& options)
{
    Captor captor{place, mResults.getCaptors()[place], options.mFields, {}, {}};
    readFields(captor, options);
    readDensities(captor, options.mDensities);
    mCaptors.push_back(std::move(captor));
}

void PlotResults::readFields(Captor& captor, const PlotOptions& options)
{
    const unsigned long saved = captor.mFiles.mEDimension;
    if (options.isEveryField()) {
        for (unsigned long i = 0; i < std::min(saved, std::size(PlotOptions::COMPONENTS)); ++i) {
            captor.mFields.push_back(i);
        }
    }
    if (captor.mFields.empty()) {
        return;
    }
    if (captor.mFields.back() >= saved) {
        throw PlotError(std::string("the run has saved ")
                        + (saved == 0   ? "no field"
                           : saved == 1 ? "Ex alone"
                                        : "Ex and Ey alone")
                        + " at captor " + std::to_string(captor.mPlace + 1) + ", and no "
                        + PlotOptions::COMPONENTS[captor.mFields.back()]);
    }
    captor.mColumns = mResults.readFields(captor.mFiles);
    checkLines(QV_Results::fieldFileName(captor.mFiles.mLocation),
               captor.mColumns.empty() ? 0 : captor.mColumns.front().size());
}

void PlotResults::readDensities(Captor& captor, const std::vector<PlotOptions::Density>& elements)
{
    const unsigned long size = captor.mFiles.mRhoSize;
    const unsigned long systems = captor.mFiles.mBlochEquationsNumber;
    for (const PlotOptions::Density& element : elements) {
        if (element.mI >= size || element.mJ >= size || element.mSystem >= systems) {
            throw PlotError("captor " + std::to_string(captor.mPlace + 1)
                            + " has density matrices with rows and columns " + upTo(size)
                            + ", of system " + upTo(systems) + "; " + std::to_string(element.mI)
                            + "," + std::to_string(element.mJ) + ":"
                            + std::to_string(element.mSystem) + " is beyond them");
        }
        captor.mDensities.push_back({element, {}});
    }
    // One reading for each file. Its elements are drawn together, system after system.
    std::stable_sort(
        captor.mDensities.begin(), captor.mDensities.end(),
        [](const Density& a, const Density& b) { return a.mElement.mSystem < b.mElement.mSystem; });
    for (auto first = captor.mDensities.begin(); first != captor.mDensities.end();) {
        const unsigned long system = first->mElement.mSystem;
        const auto last =
            std::find_if(first, captor.mDensities.end(), [system](const Density& density) {
                return density.mElement.mSystem != system;
            });
        std::vector<QV_Results::Element> places;
        std::transform(first, last, std::back_inserter(places), [](const Density& density) {
            return QV_Results::Element{density.mElement.mI, density.mElement.mJ};
        });
        std::vector<Values> values = mResults.readDensities(captor.mFiles, system, places);
        checkLines(QV_Results::densityFileName(system, captor.mFiles.mLocation),
                   values.empty() ? 0 : values.front().size());
        for (Values& column : values) {
            (first++)->mValues = std::move(column);
        }
    }
}

void PlotResults::checkLines(const std::string& fileName, unsigned long number)
{
    const std::string path = mDirectory + fileName;
    std::error_code ignored;
    if (number == 0) {
        throw PlotError(
            "the file " + path
            + (std::filesystem::exists(path, ignored)
                   ? " begins with no whole line of the numbers that captors.res promises"
                   : " is missing"));
    }
    if (number < seconds().size()) {
        mRemarks.push_back("the file " + path + " holds " + std::to_string(number) + " of "
                           + std::to_string(seconds().size()) + " steps, and its curves end there");
    }
}
