#pragma once
#include "quorvex/QV_Results.h"
#include "quorvexPlot/PlotOptions.h"

#include <string>
#include <vector>

/// The results that are to be drawn, read from their directory as the command line asks.
class PlotResults
{
public:
    using Values = std::vector<double>;

    /// An element of a density matrix with its values.
    struct Density
    {
        PlotOptions::Density mElement;
        Values mValues;
    };
    /// What is to be drawn of a captor.
    struct Captor
    {
        unsigned long mPlace;               ///< From 0, among all captors by ascending node.
        QV_Results::Captor mFiles;          ///< What captors.res tells of it.
        std::vector<unsigned long> mFields; ///< Components that are drawn, ascending.
        std::vector<Values> mColumns; ///< All components of the field; empty when none is drawn.
        std::vector<Density> mDensities;
    };

    /// Reads everything. Throws PlotError for what is missing or damaged, or has no points.
    explicit PlotResults(const PlotOptions& options);

    /// Those that are drawn, by ascending node.
    const std::vector<Captor>& captors() const { return mCaptors; }
    /// All captors of the run.
    unsigned long captorsNumber() const { return mResults.getCaptors().size(); }
    const Values& seconds() const { return mResults.getTimes().mSeconds; }
    /// What the user should know about the files, a sentence each.
    const std::vector<std::string>& remarks() const { return mRemarks; }

private:
    void readCaptor(unsigned long place, const PlotOptions& options);
    void readFields(Captor& captor, const PlotOptions& options);
    void readDensities(Captor& captor, const std::vector<PlotOptions::Density>& elements);
    /// Looks at the number of lines that a file has given; 0 is no use.
    void checkLines(const std::string& fileName, unsigned long number);

    std::string mDirectory; ///< With its slash.
    QV_Results mResults;
    std::vector<Captor> mCaptors;
    std::vector<std::string> mRemarks;
};
