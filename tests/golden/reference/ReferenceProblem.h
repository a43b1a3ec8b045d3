#pragma once
#include "ReferenceMatrix.h"

#include <array>
#include <string>
#include <vector>

/// The numerical schemes; the values are the program's numbers for them.
enum class ReferenceMethod { CnZ, CnP, CnDtP, Relax, Split, PredCorr };

/// The shapes of the incident pulse; the values are the program's numbers for them.
enum class ReferenceShape { Sinus, Sit, Package, Oscill1, Oscill2, PompeSit, Marche };

/// What the two ends of the mesh do with the field that reaches them.
enum class ReferenceEnds { Absorbing, Laser, Reflexive };

/// All parameters of a problem in SI units. A new one is the program's default problem: a SIT pulse
/// of 1.5 micrometres on two-level atoms of one system.
///
/// Sizes that belong together are kept so by the set operations: matrices and vectors have
/// mLevelsNumber rows, mPs has mDimension matrices, mOmegas one vector for each system.
struct ReferenceProblem
{
    static constexpr double HBAR = 1.0546e-34; ///< J s
    static constexpr double EPS0 = 8.85e-12;   ///< F/m
    static constexpr double C = 2.997e8;       ///< m/s

    static const std::array<std::string, 6> METHOD_NAMES; ///< indexed by ReferenceMethod
    static const std::array<std::string, 7> SHAPE_NAMES;  ///< indexed by ReferenceShape
    static const std::array<std::string, 3> ENDS_NAMES;   ///< indexed by ReferenceEnds

    ReferenceProblem();

    /// Sets the wavelength, and with it the carrier and the characteristic length of the mesh.
    void setWaveLength(double waveLength);
    /// Sets the temperature, and with it mBeta.
    void setTemperature(double temperature);
    /// Resizes all that counts in levels; mPMax stays as it was.
    void setLevelsNumber(std::size_t n);
    /// Sets the components of the field and as many dipole matrices; new ones copy the last.
    void setDimension(std::size_t dimension);
    /// Sets one dipole matrix and takes mPMax anew, from 0, over all of them.
    void setPolarization(std::size_t index, const ReferenceRealMatrix& polarization);
    /// Sets the number of systems; new ones have the default frequencies.
    void setSystemsNumber(std::size_t systems);

    // The run
    unsigned long mMaxTimeStepsNumber = 2000;
    unsigned long mRunsNumber = 1; ///< the same objects are run again that often
    ReferenceMethod mMethod = ReferenceMethod::CnZ;

    // The pulse
    ReferenceShape mShape = ReferenceShape::Sit;
    double mFieldMaxValue = 8.537e9;     ///< V/m
    double mWaveLength = 1.5e-6;         ///< m
    double mOmega0 = 1255380424374481.3; ///< carrier, rad/s
    double mWavePackageDuration = 1e-13; ///< s
    double mCFL = 0.8;

    // The medium
    double mLength = 0.0001; ///< m, empty zones included
    double mIndice = 1.0;
    double mStartingPosition = 10.0;                ///< percent of the mesh
    double mEndingPosition = 90.0;                  ///< percent of the mesh
    unsigned long mDiscretizationNumber = 20;       ///< cells per characteristic length
    double mCaracteristicLength = 1.5e-6;           ///< m
    std::vector<double> mCaptors{30.0, 50.0, 70.0}; ///< percent of the mesh

    // The field
    ReferenceEnds mEnds = ReferenceEnds::Absorbing;
    double mR = 1.0;              ///< reflection factor of the ends
    std::size_t mDimension = 1;   ///< components of E and of B
    std::vector<double> mFactors; ///< weight of each system; empty: equal weights

    // The atoms
    std::size_t mLevelsNumber = 2;
    double mAtomsNumber = 1e24;                  ///< 1/m^3
    double mTemperature = 300.0;                 ///< K
    double mBeta = 7.63649529326575e-12 / 300.0; ///< hbar / (k T), s
    double mTransversalRelaxation = 1e12;        ///< 1/s
    unsigned long mIterationsMaxNumber = 50;
    double mConvergenceRate = 1e-6;
    unsigned long mRelaxationType = 0;    ///< 0 Pauli, 1 cascade, 2 equilibrium, others as 0
    unsigned long mSplitType = 0;         ///< 0 HR, 1 RH, 2 HRH, 3 RHR, others as 0
    std::vector<ReferenceRealMatrix> mPs; ///< dipoles, C m, one matrix for each component
    double mPMax = 1e-29;                 ///< largest dipole, C m
    ReferenceRealMatrix mW;               ///< longitudinal rates, 1/s
    std::vector<double> mRhoE;            ///< equilibrium populations
    ReferenceComplexMatrix mInitialDensity;
    std::vector<std::vector<double>> mOmegas; ///< mOmegas[system][level], rad/s
};
