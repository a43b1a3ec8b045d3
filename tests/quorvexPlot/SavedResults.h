#pragma once
#include "support/TestDirectory.h"

#include <string>
#include <vector>

/// The result files of a run, in a directory of their own inside one where pictures go.
///
/// At the captor of place k, in step s of `STEPS`, component c of the field is FIELD * (k + 1) * (s mod 4 - 1.5) / (c + 1),
/// and the element (i, j) of system b is 0.1 * (i + 2 j) + 0.01 * b + 0.001 * s. A step takes 1e-16 s.
class SavedResults
{
public:
    static constexpr int STEPS = 12;
    static constexpr double FIELD = 1e9;
    static constexpr double PERIOD = 1e-16;

    /// Captors at the nodes 10, 20 and so on.
    explicit SavedResults(int captors = 3, int dimension = 1, int systems = 1, int levels = 2,
                          int steps = STEPS);

    static double field(int captor, int step, int component = 0);
    static double density(int step, int i, int j, int system = 0);
    static std::vector<double> seconds(int steps = STEPS);

    const TestDirectory& directory() const { return mDirectory; }
    /// The directory of the results.
    std::string path() const { return mDirectory.file("run"); }
    /// Writes a result file anew.
    void write(const std::string& name, const std::string& text) const;
    void remove(const std::string& name) const;

private:
    TestDirectory mDirectory;
};
