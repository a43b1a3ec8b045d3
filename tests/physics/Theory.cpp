#include "physics/Theory.h"

#include <algorithm>
#include <cmath>
#include <numbers>

using Complex = std::complex<double>;

double leapfrogCellPhase(double stepPhase, double courant)
{
    return 2.0 * std::asin(std::sin(stepPhase / 2.0) / courant);
}

// The end advances by E[n] = (E[n] - E'[n - 1]) c + E[n - 1], the prime marking the new value. With a wave
// of 1 + R at node n and exp(-i x) + R exp(i x) at node n - 1 that is an equation for R.
Complex absorbingEndReflection(double stepPhase, double courant)
{
    const double x = leapfrogCellPhase(stepPhase, courant);
    const double c = (1.0 - courant) / (1.0 + courant);
    const Complex a = std::polar(1.0, -stepPhase);
    const auto side = [a, c, x](double sign) {
        return a - c + (c * a - 1.0) * std::polar(1.0, sign * x);
    };
    return -side(-1.0) / side(1.0);
}

Complex lineResponse(double omega, double frequency, double decay)
{
    const Complex i(0.0, 1.0);
    return i / (decay + i * (frequency - omega)) - i / (decay - i * (frequency + omega));
}

// The coherence is that of a time `lag` steps later than the middle of the step, without the light of that time,
// and the source in Ampere's equation is -(decay + i frequency) times it, plus the conjugate.
Complex splitLineResponse(double omega, double frequency, double decay, double stepPhase,
                          double lag)
{
    const Complex i(0.0, 1.0);
    const Complex nu(decay, frequency);
    const Complex late = std::exp(-nu * (lag * stepPhase));
    const Complex up = i * late / (nu - i * omega);
    const Complex down = -i * std::conj(late) / (std::conj(nu) - i * omega);
    return -i / omega * (nu * up + std::conj(nu) * down);
}

Complex spectrumAt(const std::vector<double>& signal, double stepPhase, unsigned long first,
                   unsigned long last)
{
    Complex sum;
    for (unsigned long m = std::max(first, 1UL); m <= std::min<unsigned long>(last, signal.size());
         ++m) {
        sum += signal[m - 1] * std::polar(1.0, static_cast<double>(m) * stepPhase);
    }
    return sum;
}

Complex spectrumAt(const std::vector<double>& signal, double stepPhase)
{
    return spectrumAt(signal, stepPhase, 1, signal.size());
}

std::vector<double> envelope(const std::vector<double>& signal, unsigned long periodSteps)
{
    const double phase = 2.0 * std::numbers::pi / static_cast<double>(periodSteps);
    std::vector<double> values;
    for (unsigned long i = 0; i + periodSteps <= signal.size(); ++i) {
        Complex sum;
        for (unsigned long k = 0; k < periodSteps; ++k) {
            sum += signal[i + k] * std::polar(1.0, phase * static_cast<double>(k));
        }
        values.push_back(2.0 * std::abs(sum) / static_cast<double>(periodSteps));
    }
    return values;
}

std::vector<Peak> peaks(const std::vector<double>& values, unsigned long reach, double floor)
{
    std::vector<Peak> found;
    for (unsigned long i = reach; i + reach < values.size(); ++i) {
        const auto at = values.begin() + static_cast<long>(i);
        const auto span = static_cast<long>(reach);
        if (*at <= floor || std::max_element(at - span, at + span + 1) != at) {
            continue;
        }
        const double before = *(at - span);
        const double behind = *(at + span);
        const double shift =
            0.5 * (before - behind) / (before - 2.0 * *at + behind) * static_cast<double>(reach);
        found.push_back({static_cast<double>(i) + shift, *at});
    }
    return found;
}

double orderOf(double coarse, double fine, double ratio)
{
    return std::log(coarse / fine) / std::log(ratio);
}
