#pragma once
#include "quorvex/QV_1DProblem.h"

#include <vector>

/// The problem that the solver's benchmarks run: a mesh, 80 % of it with atoms whose levels all stand one carrier apart,
/// each with a dipole to its neighbours, and a continuous wave, which has filled the mesh after 1.25 steps a node.
struct BenchProblem
{
    static constexpr double CELL = 1.5e-6 / 20.0;  // m
    static constexpr double PEAK_FIELD = 4.2186e9; // V/m: a Rabi frequency of 4e14 1/s
    static constexpr double CARRIER = 1883070636.561722 / 1.5e-6; // rad/s

    unsigned char mMethod = 0;
    unsigned long mLevels = 2;
    unsigned long mNodes = 5000;
    unsigned long mSteps = 8000;
    unsigned long mSystems = 1;
    unsigned long mCaptors = 3;
    /// Atoms start with equal populations and weak coherences, and radiate at once: each node iterates from the first
    /// step on.
    bool mIsExcited = false;

    /// A new problem, which the caller deletes. Sets what all atoms share.
    QV_1DProblem* create() const;
    /// Positions of the captors, in percent of the length.
    std::vector<double> captors() const;
    /// m; half a cell longer than the nodes, so that rounding drops none of them.
    double length() const { return (static_cast<double>(mNodes) + 0.5) * CELL; }
    /// Between two levels, C m.
    static double dipole(unsigned long a, unsigned long b);
};
