#pragma once
#include <complex>
#include <vector>

/// Closed forms that the program's results are held against, and the ways to read a signal. Phases per step
/// and per cell are in rad, frequencies in units of the carrier, with fields that go as exp(i (k z - w t)).

/// Phase of a wave in a cell, by the dispersion of the leapfrog scheme in the empty medium:
/// sin(w dt / 2) = r sin(k dz / 2), with r the cells that light crosses in a step.
double leapfrogCellPhase(double stepPhase, double courant);
/// What the absorbing end reflects of such a wave.
std::complex<double> absorbingEndReflection(double stepPhase, double courant);
/// Susceptibility over coupling of two levels that are `frequency` apart, all atoms in the lower one, with
/// the coherence decaying at `decay`.
std::complex<double> lineResponse(double omega, double frequency, double decay);

/// The same as splitting computes it, with the polarization `lag` steps late: 1 / 2 for the order 0, -1 / 2 for
/// the order 1.
std::complex<double> splitLineResponse(double omega, double frequency, double decay,
                                       double stepPhase, double lag);

/// sum over steps m = 1, 2, ... of signal[m - 1] exp(i m stepPhase), from step `first` to step `last`.
std::complex<double> spectrumAt(const std::vector<double>& signal, double stepPhase,
                                unsigned long first, unsigned long last);
std::complex<double> spectrumAt(const std::vector<double>& signal, double stepPhase);
/// Amplitude of the carrier in a window of one period that begins at each step: 2 / n times the modulus of the
/// sum over n = `periodSteps` steps of signal times exp(i 2 pi m / n).
std::vector<double> envelope(const std::vector<double>& signal, unsigned long periodSteps);
/// A maximum: place in a vector, refined by a parabola through the values `reach` places before and behind,
/// and value.
struct Peak
{
    double mPlace;
    double mValue;
};
/// The maxima above `floor` that are the largest values within `reach` places, in order.
std::vector<Peak> peaks(const std::vector<double>& values, unsigned long reach, double floor);
/// The order p for which errors e(h) and e(h / ratio) go as h^p.
double orderOf(double coarse, double fine, double ratio);
