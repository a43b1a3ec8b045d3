#pragma once
#include "BenchDirectory.h"
#include "quorvex/QV_1DProblem.h"

#include <filesystem>
#include <iostream>
#include <streambuf>
#include <string>
#include <vector>

/// The problem that the solver's benchmarks run: a mesh, 80 % of it with atoms whose levels all stand one carrier apart,
/// each with a dipole to its neighbours, and a continuous wave, which has filled the mesh after 1.25 steps a node.
struct BenchProblem
{
    static constexpr double CELL = 1.5e-6 / 20.0;  // m
    static constexpr double PEAK_FIELD = 4.2186e9; // V/m: a Rabi frequency of 4e14 1/s
    static constexpr double CARRIER = 1883070636.561722 / 1.5e-6; // rad/s
    static constexpr double ACTIVE = 0.8; ///< Part of the nodes that has atoms.

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
    double length() const
    {
        return (static_cast<double>(mNodes) + 0.5) * CELL;
    } // so that rounding drops no node
    /// Between two levels, C m.
    static double dipole(unsigned long a, unsigned long b);
};

/// A directory of its own for the files of a run, and nothing on standard output meanwhile.
class QuietDirectory
{
public:
    QuietDirectory()
        : mFormer(std::filesystem::current_path())
        , mBuffer(std::cout.rdbuf(nullptr))
    {
        std::filesystem::current_path(mDirectory.path());
    }
    ~QuietDirectory()
    {
        std::cout.rdbuf(mBuffer);
        std::cout.clear();
        std::filesystem::current_path(mFormer);
    }
    QuietDirectory(const QuietDirectory&) = delete;
    QuietDirectory& operator=(const QuietDirectory&) = delete;

    std::string slashed() const { return mDirectory.slashed(); }

private:
    std::filesystem::path mFormer;
    BenchDirectory mDirectory;
    std::streambuf* mBuffer;
};
