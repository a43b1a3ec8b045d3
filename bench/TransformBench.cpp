#include "mathUtil/fht_fft.h"

#include <benchmark/benchmark.h>
#include <complex>
#include <numbers>
#include <random>
#include <utility>
#include <vector>

// The complex transform of n = 2^8 to 2^20 values, in place, beside a transform of radix 2 as textbooks write it.
// Each iteration starts with a copy of the same signal, 16 bytes a value in both.

namespace {

std::vector<double> signal(unsigned long n)
{
    std::mt19937_64 engine(n);
    std::uniform_real_distribution<double> number(-1.0, 1.0);
    std::vector<double> values(n);
    for (double& value : values) {
        value = number(engine);
    }
    return values;
}

/// F[k] = sum over m of f[m] exp(2 pi i m k / n). Twiddles come by multiplication; their products and those of the
/// butterflies are written out, since std::complex would test each for not-a-numbers.
void radix2(std::vector<std::complex<double>>& f)
{
    const unsigned long n = f.size();
    for (unsigned long i = 1, j = 0; i < n; ++i) {
        unsigned long bit = n / 2;
        for (; (j & bit) != 0; bit /= 2) {
            j ^= bit;
        }
        j ^= bit;
        if (i < j) {
            std::swap(f[i], f[j]);
        }
    }
    for (unsigned long length = 2; length <= n; length *= 2) {
        const std::complex<double> step =
            std::polar(1.0, 2.0 * std::numbers::pi / static_cast<double>(length));
        for (unsigned long i = 0; i < n; i += length) {
            double c = 1.0;
            double s = 0.0;
            for (unsigned long j = i; j < i + length / 2; ++j) {
                const std::complex<double> even = f[j];
                const std::complex<double> odd = f[j + length / 2];
                const std::complex<double> turned(c * odd.real() - s * odd.imag(),
                                                  c * odd.imag() + s * odd.real());
                f[j] = even + turned;
                f[j + length / 2] = even - turned;
                const double next = c * step.real() - s * step.imag();
                s = c * step.imag() + s * step.real();
                c = next;
            }
        }
    }
}

void hartley(benchmark::State& state)
{
    const auto ldn = static_cast<unsigned long>(state.range(0));
    const std::vector<double> re = signal(1UL << ldn);
    const std::vector<double> im = signal((1UL << ldn) + 1);
    std::vector<double> fr(re.size());
    std::vector<double> fi(re.size());
    for ([[maybe_unused]] auto _ : state) {
        fr.assign(re.begin(), re.end());
        fi.assign(im.begin(), im.end() - 1);
        fht_fft(fr.data(), fi.data(), ldn, 1);
        benchmark::DoNotOptimize(fr.data());
        benchmark::DoNotOptimize(fi.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(hartley)->ArgName("ldn")->DenseRange(8, 20)->Unit(benchmark::kMicrosecond);

void plain(benchmark::State& state)
{
    const auto n = 1UL << static_cast<unsigned long>(state.range(0));
    const std::vector<double> re = signal(n);
    const std::vector<double> im = signal(n + 1);
    std::vector<std::complex<double>> start(n);
    for (unsigned long i = 0; i < n; ++i) {
        start[i] = {re[i], im[i]};
    }
    std::vector<std::complex<double>> f(n);
    for ([[maybe_unused]] auto _ : state) {
        f.assign(start.begin(), start.end());
        radix2(f);
        benchmark::DoNotOptimize(f.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(plain)->ArgName("ldn")->DenseRange(8, 20)->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
