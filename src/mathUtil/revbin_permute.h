#pragma once

/// Exchanges f[i] and f[r], r being i with its bits in reversed order, for all i in [0, n).
///
/// Requires: n is a power of two.
void revbin_permute(double* f, unsigned long n);
