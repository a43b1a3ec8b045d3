#pragma once
#include "ReferenceProblem.h"

#include <vector>

/// The light that enters at node 0, in units of the peak field. The moving reference, a second
/// value at a time shifted by the Courant number, reaches no result and isn't formed here.
class ReferencePulse
{
public:
    void initialize(const ReferenceProblem& problem, double rabiFrequency);

    /// Forms the value at time t for each component; the time of the last call is not formed again.
    void computeFields(std::size_t dimension, double t);

    double getDuration() const { return mDuration; }
    const std::vector<double>& getIncidentField() const { return mIField; }

private:
    double shape(double t) const;

    ReferenceShape mShape = ReferenceShape::Sit;
    double mDuration = 0.0;      ///< A, in units of 1 / Rabi frequency
    double mCarrier = 0.0;       ///< w, in units of the Rabi frequency
    double mLastTime = -1.0;     ///< of the last computation; kept between runs
    std::vector<double> mIField; ///< one value per component; kept between runs
};
