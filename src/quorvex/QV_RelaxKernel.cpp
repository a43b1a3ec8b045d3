#include "quorvex/QV_RelaxKernel.h"

#include <algorithm>
#include <complex>

namespace {

using Complex = std::complex<double>;

Complex product(const Complex& a, const Complex& b)
{
    return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

/// The next iterate of one element. On the diagonal R holds the increment of a population, and what it
/// starts from is 0:
/// R[a][b] = Z + i dt E G - (dt / 2) Nu[a][b] (Rp[a][b] + Z), with Z the coherence at entry.
Complex nextElement(const QV_Atoms& atoms, double dt, double E, const Complex* rho,
                    const Complex* Rp, unsigned long a, unsigned long b)
{
    const unsigned long n = atoms.mLevels;
    const double* const P = atoms.mPs;
    const Complex nu(atoms.mNu[2 * (a * n + b)], atoms.mNu[2 * (a * n + b) + 1]);
    Complex c1;
    Complex c2;
    for (unsigned long j = 0; j < n; ++j) {
        if (j != b) {
            c1 += P[a * n + j] * (Rp[j * n + b] + rho[j * n + b]);
        }
        if (j != a) {
            c2 += (Rp[a * n + j] + rho[a * n + j]) * P[j * n + b];
        }
    }
    c1 += P[a * n + b] * Rp[b * n + b];
    c2 += Rp[a * n + a] * P[a * n + b];
    const Complex Z = a == b ? Complex() : rho[a * n + b];
    const Complex G = 0.5 * (c1 - c2) + P[a * n + b] * rho[b * n + b].real()
                      - P[a * n + b] * rho[a * n + a].real();
    const Complex rotated(-(dt * E) * G.imag(), (dt * E) * G.real());
    return Z + rotated - product(nu * dt * 0.5, Rp[a * n + b] + Z);
}

} // namespace

unsigned long QV_RelaxKernel::advanceCoherences(const QV_Atoms& atoms, double dt, double E,
                                                double* rho, std::vector<double>& work)
{
    const unsigned long n = atoms.mLevels;
    const unsigned long size = n * n;
    double norm0 = 1.0;
    if (atoms.mIterationsMax == 0 || !(norm0 * atoms.mConvergence < 1.0)) {
        return 0;
    }
    work.resize(std::max<std::size_t>(work.size(), 4 * size));
    auto* const entry = reinterpret_cast<Complex*>(rho);
    auto* const R = reinterpret_cast<Complex*>(work.data());
    Complex* const Rp = R + size;
    std::copy_n(entry, size, R);
    for (unsigned long a = 0; a < n; ++a) {
        R[a * n + a] = 0.0;
    }

    unsigned long iteration = 0;
    double residual = 0.0;
    do {
        ++iteration;
        std::copy_n(R, size, Rp);
        residual = 0.0;
        for (unsigned long a = 0; a < n; ++a) {
            for (unsigned long b = 0; b <= a; ++b) {
                R[a * n + b] = nextElement(atoms, dt, E, entry, Rp, a, b);
            }
            const Complex d = R[a * n + a] - Rp[a * n + a];
            residual += product(d, d).real();
        }
        for (unsigned long a = 0; a < n; ++a) {
            for (unsigned long c = 0; c < a; ++c) {
                R[c * n + a] = std::conj(R[a * n + c]);
                residual +=
                    2.0
                    * product(R[c * n + a] - Rp[c * n + a], R[a * n + c] - Rp[a * n + c]).real();
            }
        }
        if (iteration == 1) {
            norm0 = residual;
        }
    } while (iteration < atoms.mIterationsMax && norm0 * atoms.mConvergence < residual);

    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long b = 0; b < n; ++b) {
            entry[a * n + b] = a == b ? entry[a * n + b] + R[a * n + b] : R[a * n + b];
        }
    }
    return iteration;
}
