#pragma once
#include "ReferenceMesh.h"
#include "ReferenceProblem.h"
#include "ReferencePulse.h"

#include <ostream>
#include <vector>

class ReferenceAtoms;

/// The leapfrog of E on the nodes and B on the lines. B[i] lies between E[i] and E[i + 1]; E[i][j]
/// and B[i][j] are component j. For p components, component j of E works on component
/// jp1 = (j + 1) mod p of B with the sign eps, +1 for j = 0 and alternating from there.
class ReferenceField
{
public:
    /// Zero fields on nodes and lines of the mesh, and the pulse in units of the Rabi frequency.
    void initialize(const ReferenceProblem& problem, const ReferenceMesh& mesh,
                    double rabiFrequency, std::ostream& log);
    /// Reads cell size and active zone of the scaled mesh, at the first run only.
    void readMesh(const ReferenceMesh& mesh);

    void solveFaraday(double t, double dt);
    void solveAmpere(double dt, const std::vector<ReferenceAtoms>& systems);
    void solveAmpereZiolko(double dt);

    std::size_t getDimension() const { return mDimension; }
    /// Component j of line i; a line outside the mesh has no field.
    double lineField(long i, std::size_t j) const;

    std::vector<std::vector<double>> mE; ///< mE[node][component], in units of the peak field
    std::vector<std::vector<double>> mB; ///< mB[line][component]

private:
    void advanceEmptyNode(long i, double r1);

    ReferencePulse mPulse;
    ReferenceEnds mEnds = ReferenceEnds::Absorbing;
    double mR = 1.0;              ///< reflection factor
    std::size_t mDimension = 1;   ///< p
    std::vector<double> mFactors; ///< weight of each system; empty until the first solveAmpere
    bool mSolvingInEmptyMilieu = false; ///< true while solveAmpere calls solveAmpereZiolko

    // What follows is kept from run to run.
    double mDz = -1.0;           ///< cell size; not positive until read
    long mIFirst = -1;           ///< first active node; negative until read
    long mILast = -1;            ///< last active node; negative until read
    std::vector<double> mMoving; ///< Es, the incident wave carried across the first cell
    std::vector<double> mE1Old;  ///< E at node 1 one step ago
    std::vector<double> mEn1Old; ///< E at node n - 1 one step ago
};
