#pragma once

/// Hartley transform in place, n = 2^ldn values, unscaled:
///
///     H[k] = sum over m of f[m] (cos(2 pi m k / n) + sin(2 pi m k / n)).
void fht_dit(double* f, unsigned long ldn);

/// The same of values that stand in bit-reversed order, by decimation in time with radix 4.
///
/// Requires: ldn is above 2.
void fht_dit_core(double* f, unsigned long ldn);
