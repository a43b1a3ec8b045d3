#include "physics/MasterEquation.h"

#include <cmath>

using Complex = std::complex<double>;

MasterEquation::MasterEquation(std::vector<double> omega, std::vector<double> dipoles)
    : mOmega(std::move(omega))
    , mDipoles(std::move(dipoles))
{}

void MasterEquation::setRelaxation(double decay, std::vector<double> rates)
{
    mDecay = decay;
    mRates = std::move(rates);
}

MasterEquation::Matrix MasterEquation::derivative(const Matrix& rho, double field) const
{
    const unsigned long n = mOmega.size();
    Matrix result(n * n);
    for (unsigned long a = 0; a < n; ++a) {
        for (unsigned long b = 0; b < n; ++b) {
            Complex commutator;
            for (unsigned long k = 0; k < n; ++k) {
                commutator +=
                    mDipoles[a * n + k] * rho[k * n + b] - rho[a * n + k] * mDipoles[k * n + b];
            }
            const Complex turn(a == b ? 0.0 : mDecay, mOmega[a] - mOmega[b]);
            result[a * n + b] = Complex(0.0, field) * commutator - turn * rho[a * n + b];
        }
    }
    for (unsigned long i = 0; i < mRates.size(); ++i) {
        const unsigned long to = i / n;
        const unsigned long from = i % n;
        result[to * n + to] += mRates[i] * rho[from * n + from];
        result[from * n + from] -= mRates[i] * rho[from * n + from];
    }
    return result;
}

std::vector<MasterEquation::Matrix>
MasterEquation::solve(Matrix rho, const std::function<double(double)>& field,
                      const std::vector<double>& times, double step) const
{
    const auto sum = [](const Matrix& x, double factor, const Matrix& y) {
        Matrix result(x);
        for (unsigned long i = 0; i < x.size(); ++i) {
            result[i] += factor * y[i];
        }
        return result;
    };
    std::vector<Matrix> found;
    double t = 0.0;
    for (const double end : times) {
        const auto count = static_cast<long>(std::ceil((end - t) / step));
        const double h = count > 0 ? (end - t) / static_cast<double>(count) : 0.0;
        for (long i = 0; i < count; ++i) {
            const Matrix k1 = derivative(rho, field(t));
            const Matrix k2 = derivative(sum(rho, h / 2.0, k1), field(t + h / 2.0));
            const Matrix k3 = derivative(sum(rho, h / 2.0, k2), field(t + h / 2.0));
            const Matrix k4 = derivative(sum(rho, h, k3), field(t + h));
            rho = sum(sum(sum(sum(rho, h / 6.0, k1), h / 3.0, k2), h / 3.0, k3), h / 6.0, k4);
            t += h;
        }
        t = end;
        found.push_back(rho);
    }
    return found;
}
