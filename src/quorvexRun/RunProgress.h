#pragma once
#include "common/COM_Out.h"
#include "quorvexRun/RunOptions.h"

#include <chrono>
#include <string>

/// The progress of a run on standard error: one live line on a terminal, else a line for each tenth. It is also
/// the sink that the solver gets for its own progress numbers, which it drops.
class RunProgress : public COM_Out
{
    COM_CLASS(RunProgress)
public:
    void printInt(int value) override;

    /// Called at the end of each step, cheap: a live line changes at most ten times a second.
    void tell(unsigned long step);
    /// Ends the live line, if there is one on the terminal.
    static void endLine();
    /// Seconds since the object was made.
    double seconds() const;

    /// "step 500 of 2000, 25 %, 3 s left"
    static std::string line(unsigned long step, unsigned long steps, double seconds);

protected:
    RunProgress(RunOptions::Progress mode, bool isQuiet, unsigned long steps);
    ~RunProgress() override = default;

private:
    using Clock = std::chrono::steady_clock;

    enum Form { NOTHING, LIVE, LINES };

    Form mForm = NOTHING;
    unsigned long mSteps;
    Clock::time_point mBegin;
    Clock::time_point mLast;   ///< When the live line was written.
    unsigned long mTenths = 0; ///< Tenths of the run that have their line.

    static std::size_t mWidth; ///< Characters of the live line; 0 when there is none.
};
