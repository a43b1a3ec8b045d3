#pragma once

/// Complex Fourier transform of fr + i fi in place, n = 2^ldn values each, unscaled:
///
///     F[k] = sum over m of f[m] exp(+-2 pi i m k / n),
///
/// with the plus sign where `is` is at least 1 and the minus sign below. `fr` and `fi` do not overlap.
void fht_fft(double* fr, double* fi, unsigned long ldn, int is);

/// Turns the Hartley transforms of the two parts into the Fourier transform of the whole. The elements 0 and
/// n / 2 are the same in both and stay as they are.
void fht_fft_conversion(double* fr, double* fi, unsigned long ldn, int is);
