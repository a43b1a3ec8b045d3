#include "ReferenceProblem.h"

#include <algorithm>

const std::array<std::string, 6> ReferenceProblem::METHOD_NAMES{"CN_Z",  "CN_P",  "CN_dtP",
                                                                "Relax", "Split", "pc"};

const std::array<std::string, 7> ReferenceProblem::SHAPE_NAMES{
    "sinus", "SIT", "PACKAGE", "OSCILL1", "OSCILL2", "POMPE_SIT", "MARCHE"};

const std::array<std::string, 3> ReferenceProblem::ENDS_NAMES{"absorbing", "laser", "reflexive"};

ReferenceProblem::ReferenceProblem()
    : mPs(1, ReferenceRealMatrix(2))
    , mW(2)
    , mRhoE{1.303080409700614e-6, 1e8}
    , mInitialDensity(2)
{
    mPs[0](0, 1) = 1e-29;
    mPs[0](1, 0) = 1e-29;
    mW(0, 1) = 1e8;
    mW(1, 0) = 1e8;
    mInitialDensity(1, 1) = 1.0; // the atoms start in level 1
    setSystemsNumber(1);
}

void ReferenceProblem::setWaveLength(double waveLength)
{
    mWaveLength = waveLength;
    mOmega0 = 1883070636.561722 / waveLength; // 2 pi C / lambda
    mCaracteristicLength = waveLength;
}

void ReferenceProblem::setTemperature(double temperature)
{
    mTemperature = temperature;
    mBeta = 7.63649529326575e-12 / temperature;
}

void ReferenceProblem::setLevelsNumber(std::size_t n)
{
    mLevelsNumber = n;
    for (ReferenceRealMatrix& polarization : mPs) {
        polarization = polarization.resized(n);
    }
    mW = mW.resized(n);
    mRhoE.resize(n, 0.0);
    mInitialDensity = mInitialDensity.resized(n);
    for (std::vector<double>& omega : mOmegas) {
        omega.resize(n, 0.0);
    }
}

void ReferenceProblem::setDimension(std::size_t dimension)
{
    mDimension = dimension;
    const ReferenceRealMatrix last = mPs.back();
    mPs.resize(dimension, last);
}

void ReferenceProblem::setPolarization(std::size_t index, const ReferenceRealMatrix& polarization)
{
    mPs[index] = polarization;
    mPMax = 0.0;
    for (const ReferenceRealMatrix& matrix : mPs) {
        for (std::size_t a = 0; a < mLevelsNumber; ++a) {
            for (std::size_t b = 0; b < mLevelsNumber; ++b) {
                mPMax = std::max(mPMax, matrix(a, b));
            }
        }
    }
}

void ReferenceProblem::setSystemsNumber(std::size_t systems)
{
    std::vector<double> omega(mLevelsNumber, 0.0);
    if (mLevelsNumber > 1) {
        omega[1] = 1.256e15;
    }
    mOmegas.resize(systems, omega);
}
