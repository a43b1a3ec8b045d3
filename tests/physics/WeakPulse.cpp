#include "physics/WeakPulse.h"

#include "physics/Theory.h"

#include <cmath>
#include <numbers>

namespace {

constexpr std::complex<double> imaginaryUnit(0.0, 1.0);

} // namespace

WeakPulse::WeakPulse(unsigned char method, unsigned long cells)
    : mRun(method)
    , mCells(cells)
{
    mRun.setMesh(20 * cells, cells, CFL);
    mRun.setZone(cells, 19 * cells);
    mRun.saveAt({2 * cells, (2 + mWaves) * cells});
    mRun.setRabi(1e-7);
    mRun.setLevels({0.0, mRun.tuned(1.0)});
    mRun.setDephasing(DECAY / 2.0);
    mRun.setCoupling(COUPLING);
    mRun.setPulse(QV_IncidentFields::PACKAGE_TYPE, 4.0);
}

void WeakPulse::run()
{
    mRun.run(static_cast<unsigned long>(28.0 * static_cast<double>(mCells) / CFL));
    mNear = mRun.field(2 * mCells);
    mFar = mRun.field((2 + mWaves) * mCells);
}

WeakPulse::Complex WeakPulse::transmission(double omega) const
{
    const double phase = omega * mRun.stepPhase();
    return spectrumAt(mFar, phase) / spectrumAt(mNear, phase);
}

double WeakPulse::distance() const
{
    return 2.0 * std::numbers::pi * static_cast<double>(mWaves);
}

double WeakPulse::error(double omega, Complex theory) const
{
    const Complex expected = std::exp(imaginaryUnit * theory * distance());
    return std::abs(std::log(transmission(omega) / expected)) / distance();
}

double WeakPulse::errorOfAtoms(double omega, Complex theory) const
{
    const double empty = leapfrogCellPhase(omega * mRun.stepPhase(), CFL)
                         * static_cast<double>(mWaves * mCells) / distance();
    return error(omega, theory - omega + empty);
}

double WeakPulse::exponentOverLaw() const
{
    const double mu = QV_Bloch::getMaxPolarizationValue();
    const double omega = mRun.wave().getFrequency();
    const double alpha = omega * QV_Bloch::getAtomsNumber() * mu * mu
                         / (QV_Object::EPS0 * QV_Object::HBAR * QV_Object::C * DECAY * omega);
    const double z = static_cast<double>(mWaves) * mRun.wave().getWaveLength();
    return std::log(std::abs(transmission(1.0))) / (-0.5 * alpha * z);
}
