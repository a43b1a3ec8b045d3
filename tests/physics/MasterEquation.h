#pragma once
#include <complex>
#include <functional>
#include <vector>

/// The density matrix of one atom in a given field, by Runge and Kutta's method of fourth order: what the
/// program's schemes are held against where there is no closed form.
///     d rho / dt = i E(t) [P, rho] - i [diag(omega), rho] - decay off the diagonal + rates on it
class MasterEquation
{
public:
    using Matrix = std::vector<std::complex<double>>; ///< n by n, row after row.

    /// Frequencies of the levels, and dipoles times the peak field over hbar, n by n.
    MasterEquation(std::vector<double> omega, std::vector<double> dipoles);
    /// Decay of all coherences; rates[a n + b] leads from level b to level a.
    void setRelaxation(double decay, std::vector<double> rates);
    /// The density at each of `times`, ascending, from `rho` at 0, in steps of at most `step`.
    std::vector<Matrix> solve(Matrix rho, const std::function<double(double)>& field,
                              const std::vector<double>& times, double step) const;

private:
    Matrix derivative(const Matrix& rho, double field) const;

    std::vector<double> mOmega;
    std::vector<double> mDipoles;
    double mDecay = 0.0;
    std::vector<double> mRates; ///< Empty for none.
};
