#include "ReferencePulse.h"

#include <cmath>

namespace {

/// One cycle without carrier, of peak 1: -4.201355 x (1 - x^2)^3
double cycle(double x)
{
    return -4.201355 * x * ((1 - x * x) * (1 - x * x) * (1 - x * x));
}

} // namespace

void ReferencePulse::initialize(const ReferenceProblem& problem, double rabiFrequency)
{
    mShape = problem.mShape;
    mCarrier = problem.mOmega0 / rabiFrequency;               // w = omega0 / Rabi
    mDuration = rabiFrequency * problem.mWavePackageDuration; // A = Rabi * duration
}

void ReferencePulse::computeFields(std::size_t dimension, double t)
{
    if (mIField.empty()) {
        mIField.resize(dimension, 0.0);
    }
    if (t == mLastTime) {
        return;
    }
    mLastTime = t;
    for (double& value : mIField) {
        value = shape(t);
    }
    if (dimension == 2) {
        mIField[1] = 0.0; // the wave is polarized along the first component
    }
}

double ReferencePulse::shape(double t) const
{
    const double A = mDuration;
    const double w = mCarrier;
    const double x = (2 * t - A) / A;      // x  = (2t -  A) / A
    const double x3 = (2 * t - 3 * A) / A; // x3 = (2t - 3A) / A
    const double x7 = (2 * t - 7 * A) / A; // x7 = (2t - 7A) / A

    switch (mShape) {
    case ReferenceShape::Sinus:
        return std::sin(t * w); // sin(t w)
    case ReferenceShape::Sit:
        if (std::fabs(x) < 1) {
            return std::sin(t * w) / std::cosh(10 * x); // sin(t w) / cosh(10 x)
        }
        return 0.0;
    case ReferenceShape::Package:
        if (std::fabs(x) < 1) {
            const double q = 1 - x * x;
            return q * q * q * q * std::sin(t * w); // (1 - x^2)^4 sin(t w)
        }
        return 0.0;
    case ReferenceShape::Oscill1:
        if (std::fabs(x) < 1) {
            return cycle(x);
        }
        return 0.0;
    case ReferenceShape::Oscill2:
        if (std::fabs(x) < 1) {
            return cycle(x);
        }
        if (std::fabs(x7) < 1) {
            return cycle(x7);
        }
        return 0.0;
    case ReferenceShape::PompeSit:
        if (std::fabs(x) < 1) {
            return std::sin(t * w) / std::cosh(10 * x); // sin(t w) / cosh(10 x)
        }
        if (std::fabs(x3) < 1) {
            return std::sin(t * w) / (std::cosh(10 * x3) * 2.5); // sin(t w) / (2.5 cosh(10 x3))
        }
        return 0.0;
    case ReferenceShape::Marche:
        return t > A ? 1.0 : 0.0; // a step at time A
    }
    return 0.0;
}
