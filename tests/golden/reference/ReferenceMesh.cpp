#include "ReferenceMesh.h"

#include <algorithm>
#include <cmath>

bool ReferenceMesh::create(const ReferenceProblem& problem, std::ostream& log)
{
    // dz = characteristic length / cells per characteristic length
    const double dz =
        problem.mCaracteristicLength / static_cast<double>(problem.mDiscretizationNumber);
    // maxZ = length / dz, truncated: the number of nodes
    mNodes = static_cast<long>(problem.mLength / dz);
    // begZ, endZ = percent * maxZ / 100, truncated, minus 1
    const auto nodes = static_cast<double>(mNodes);
    mFirst = static_cast<long>(problem.mStartingPosition * nodes / 100) - 1;
    mLast = static_cast<long>(problem.mEndingPosition * nodes / 100) - 1;
    if (mNodes < 3 || mFirst < 0 || mFirst >= mNodes || mLast >= mNodes) {
        log << "the mesh has no usable active zone\n";
        return false;
    }
    // An end before the start leaves one active node, the start.
    mLast = std::max(mFirst, mLast);

    mPositions.clear();
    for (long i = 0; i < mNodes; ++i) {
        mPositions.push_back(static_cast<double>(i) * dz); // z[i] = i dz
    }
    log << mNodes << " pas d'espace de longueur " << dz << "\n";

    mSavingNodes.clear();
    mSavingNodes.insert(1);
    mSavingNodes.insert(mNodes - 2);
    for (const double position : problem.mCaptors) {
        addCaptor(position, log);
    }
    return true;
}

void ReferenceMesh::addCaptor(double position, std::ostream& log)
{
    // i = nodes * percent / 100, truncated, minus 1, held inside the mesh
    long i = static_cast<long>(static_cast<double>(mNodes) * position / 100) - 1;
    if (i < 0) {
        i = 0;
    }
    if (i >= mNodes) {
        i = mNodes - 1;
    }
    log << "nVertex saving:" << i << " at " << position << "\n";
    mSavingNodes.insert(i);
}

void ReferenceMesh::adimensionize(double scale)
{
    if (scale != 0.0) {
        for (double& position : mPositions) {
            position /= scale; // z' = z / scale
        }
    }
}

double ReferenceMesh::cellLength() const
{
    return std::fabs(mPositions[1] - mPositions[0]); // dz' = |z'[1] - z'[0]|
}
