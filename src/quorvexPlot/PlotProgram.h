#pragma once
#include "quorvexPlot/PlotOptions.h"

/// The program that draws results into a file: reads them, has them drawn without a display, and writes the
/// picture.
class PlotProgram
{
public:
    static constexpr int FAILED = 1;
    static constexpr int BAD_INPUT = 2;

    /// Does all that the command line asks for and returns the exit status.
    static int main(int argc, char** argv);

private:
    explicit PlotProgram(PlotOptions options)
        : mOptions(std::move(options))
    {}

    int perform(char* programName) const;
    /// What the toolkit and the words need before the application exists.
    static void prepareApplication();

    PlotOptions mOptions;
};
