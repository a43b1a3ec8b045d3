#pragma once
#include "physics/PhysicsRun.h"

#include <complex>
#include <vector>

/// A weak pulse of four periods in a medium of two-level atoms, read at two probes six wavelengths apart: the
/// linear response of the medium to every frequency in the pulse.
///
/// The atoms are in their ground state and in resonance with the carrier, and their coherence decays at a
/// tenth of its frequency, by dephasing alone. The run ends before what the far end of the medium reflects
/// can reach the second probe. The Courant number is 0.95: the schemes that save before Ampere's step need
/// less than 1 where there are atoms.
class WeakPulse
{
public:
    using Complex = std::complex<double>;

    static constexpr double CFL = 0.95;
    static constexpr double COUPLING =
        0.001;                           ///< N mu^2 / (eps0 hbar) over the carrier's frequency.
    static constexpr double DECAY = 0.1; ///< Of the coherence, over the carrier's frequency.

    WeakPulse(unsigned char method, unsigned long cells);

    PhysicsRun* operator->() { return &mRun; }
    void run();

    /// What the way between the probes does to the amplitude at a frequency.
    Complex transmission(double omega) const;
    /// Distance of the two probes over the wavelength, times 2 pi.
    double distance() const;
    /// Difference of the wave number from `theory`, over the carrier's; the whole of it, and without what the
    /// leapfrog scheme does to light in the empty medium.
    double error(double omega, Complex theory) const;
    double errorOfAtoms(double omega, Complex theory) const;
    /// The exponent of the amplitude at the carrier over that of Beer and Lambert, exp(-alpha z / 2) with
    /// alpha = w N mu^2 / (eps0 hbar c gamma), all in SI units.
    double exponentOverLaw() const;

private:
    static constexpr unsigned long mWaves = 6; ///< Between the probes.

    PhysicsRun mRun;
    unsigned long mCells;
    std::vector<double> mNear;
    std::vector<double> mFar;
};
