#pragma once
#include "ReferenceProblem.h"

#include <ostream>
#include <set>
#include <vector>

/// The chain of nodes 0 .. mNodes - 1 and of lines 0 .. mNodes - 2; line i joins nodes i and i + 1.
struct ReferenceMesh
{
    long mNodes = 0;
    long mFirst = -1;               ///< first active node
    long mLast = -1;                ///< last active node
    std::vector<double> mPositions; ///< of each node; metres until scaled, then without dimension
    std::set<long> mSavingNodes;    ///< nodes at which results are written, ascending

    /// Builds the mesh of a problem, in metres. A problem without a usable mesh gives false.
    bool create(const ReferenceProblem& problem, std::ostream& log);

    /// Counts lengths in units of `scale`.
    void adimensionize(double scale);

    /// The length of the first line.
    double cellLength() const;

private:
    void addCaptor(double position, std::ostream& log);
};
