#pragma once
#include <complex>
#include <vector>

/// n x n elements, row after row.
using PlainMatrix = std::vector<std::complex<double>>;

inline PlainMatrix product(const PlainMatrix& a, const PlainMatrix& b, unsigned long n)
{
    PlainMatrix result(n * n);
    for (unsigned long i = 0; i < n; ++i) {
        for (unsigned long j = 0; j < n; ++j) {
            for (unsigned long k = 0; k < n; ++k) {
                result[i * n + j] += a[i * n + k] * b[k * n + j];
            }
        }
    }
    return result;
}
