#include "quorvexRun/RunProgress.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds refresh(100);
constexpr double minute = 60.0;

std::string duration(double seconds)
{
    if (seconds < minute) {
        return std::to_string(static_cast<long>(std::ceil(seconds))) + " s";
    }
    const auto minutes = static_cast<long>(std::ceil(seconds / minute));
    return minutes < 60
               ? std::to_string(minutes) + " min"
               : std::to_string(minutes / 60) + " h " + std::to_string(minutes % 60) + " min";
}

} // namespace

std::size_t RunProgress::mWidth = 0;

RunProgress::RunProgress(RunOptions::Progress mode, bool isQuiet, unsigned long steps)
    : mSteps(steps)
    , mBegin(Clock::now())
    , mLast(mBegin - refresh)
{
    COM_TYPE(RunProgress);
    if (mode == RunOptions::ALWAYS) {
        mForm = LIVE;
    } else if (mode == RunOptions::AUTO && !isQuiet) {
        mForm = isatty(STDERR_FILENO) != 0 ? LIVE : LINES;
    }
}

void RunProgress::printInt(int /*value*/) {}

double RunProgress::seconds() const
{
    return std::chrono::duration<double>(Clock::now() - mBegin).count();
}

std::string RunProgress::line(unsigned long step, unsigned long steps, double seconds)
{
    const double part = steps > 0 ? static_cast<double>(step) / static_cast<double>(steps) : 1.0;
    std::string text = "step " + std::to_string(step) + " of " + std::to_string(steps) + ", "
                       + std::to_string(static_cast<long>(part * 100.0)) + " %";
    if (step < steps && step > 0) {
        text += ", " + duration(seconds * (1.0 - part) / part) + " left";
    }
    return text;
}

void RunProgress::tell(unsigned long step)
{
    if (mForm == LIVE) {
        const Clock::time_point now = Clock::now();
        if (now - mLast < refresh && step < mSteps) {
            return;
        }
        mLast = now;
        const std::string text = line(step, mSteps, seconds());
        std::cerr << '\r' << text
                  << std::string(mWidth > text.size() ? mWidth - text.size() : 0, ' ')
                  << std::flush;
        mWidth = text.size();
    } else if (mForm == LINES && step * 10 / std::max(mSteps, 1UL) > mTenths) {
        mTenths = step * 10 / mSteps;
        std::cerr << line(step, mSteps, seconds()) << std::endl;
    }
}

void RunProgress::endLine()
{
    if (mWidth > 0) {
        std::cerr << std::endl;
    }
    mWidth = 0;
}
