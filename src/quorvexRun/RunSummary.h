#pragma once
#include "quorvex/QV_Results.h"

#include <ostream>
#include <string>
#include <vector>

/// What a run has left in the working directory: the list of its files, a small picture, a table.
class RunSummary
{
public:
    /// Reads the captors and times of the working directory.
    RunSummary();

    /// Names the files, those of the captors in short.
    void writeFiles(std::ostream& out, const std::string& directory) const;
    /// A line for each captor with the size of the field over the time of the run, and one with the
    /// population of the highest level of the first system.
    void writePlot(std::ostream& out) const;
    /// One row for each step: the times, then the columns of all captors, joined by tabs. False when the file
    /// cannot be written.
    bool writeTable(const std::string& fileName) const;

    /// `values` as a row of `width` characters from blank to full, each standing for the largest magnitude in
    /// its share of them; `top` is full.
    static std::string sparkline(const std::vector<double>& values, unsigned long width,
                                 double top);

private:
    QV_Results mResults;
};
