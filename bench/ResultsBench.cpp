#include "BenchDirectory.h"
#include "quorvex/QV_Results.h"

#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

// Reading the files of a run of a million steps: five captors with the field alone, and one with the density
// matrices of three levels. The files are in the system's cache, as they are after a run.

namespace {

constexpr unsigned long steps = 1000000;
constexpr unsigned long captors = 5;
constexpr unsigned long levels = 3;
constexpr double timeStep = 0.05;        // dimensionless
constexpr double rabiFrequency = 4.2e14; // rad/s
constexpr double field = 4.2e9;          // V/m

std::string number(double value)
{
    char text[32];
    return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.6e", value))};
}

/// The files of a run, in a directory of their own as long as the program runs.
class Run
{
public:
    static const Run& get()
    {
        static const Run run;
        return run;
    }
    const std::string& path() const { return mPath; }
    double bytesOf(const std::string& name) const
    {
        return static_cast<double>(std::filesystem::file_size(mPath + name));
    }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

private:
    Run()
    {
        std::ofstream list(mPath + QV_Results::CAPTORS_FILE);
        for (unsigned long k = 0; k < captors; ++k) {
            list << "captors Location: " << k << " RhoSize: " << levels
                 << " BlochEquationsNumber: 1 EDim: 1\n";
            std::ofstream values(mPath + QV_Results::fieldFileName(k));
            for (unsigned long step = 0; step < steps; ++step) {
                values << number(timeStep * static_cast<double>(step)) << " "
                       << number(valueAt(step, k)) << " \n";
            }
        }
        std::ofstream times(mPath + QV_Results::TIMES_FILE);
        std::ofstream densities(mPath + QV_Results::densityFileName(0, 0));
        for (unsigned long step = 0; step < steps; ++step) {
            const double t = timeStep * static_cast<double>(step);
            times << number(t) << " " << number(rabiFrequency) << " " << number(t / rabiFrequency)
                  << " \n";
            densities << number(t) << " 4";
            for (unsigned long element = 0; element < levels * levels; ++element) {
                densities << " " << number(valueAt(step, element) / field);
            }
            densities << " \n";
        }
    }

    static double valueAt(unsigned long step, unsigned long place)
    {
        const auto x = static_cast<double>(step);
        return field * std::sin(0.11 * x + static_cast<double>(place)) * std::exp(-1e-6 * x);
    }

    BenchDirectory mDirectory;
    std::string mPath = mDirectory.slashed();
};

void tellSpeed(benchmark::State& state, double bytes)
{
    state.counters["MB/s"] = benchmark::Counter(
        bytes * 1e-6 * static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

/// Everything that a plot of the field at all captors reads.
void readFields(benchmark::State& state)
{
    const Run& run = Run::get();
    double bytes = run.bytesOf(QV_Results::TIMES_FILE);
    for (unsigned long k = 0; k < captors; ++k) {
        bytes += run.bytesOf(QV_Results::fieldFileName(k));
    }
    for (auto _ : state) {
        QV_Results results;
        results.readCaptors(run.path());
        results.readTimes();
        for (const QV_Results::Captor& captor : results.getCaptors()) {
            const auto components = results.readFields(captor);
            if (components.size() != 1 || components[0].size() != steps) {
                state.SkipWithError("a field is not whole");
            }
        }
    }
    tellSpeed(state, bytes);
}

/// Two elements of the density matrices at one captor.
void readDensities(benchmark::State& state)
{
    const Run& run = Run::get();
    QV_Results results;
    results.readCaptors(run.path());
    for (auto _ : state) {
        const auto values = results.readDensities(results.getCaptors()[0], 0, {{0, 0}, {1, 2}});
        if (values.size() != 2 || values[1].size() != steps) {
            state.SkipWithError("a density is not whole");
        }
    }
    tellSpeed(state, run.bytesOf(QV_Results::densityFileName(0, 0)));
}

BENCHMARK(readFields)->Unit(benchmark::kMillisecond);
BENCHMARK(readDensities)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
