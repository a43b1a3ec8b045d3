#pragma once
#include "quorvex/QV_Results.h"
#include "support/TestProblem.h"

#include <complex>
#include <initializer_list>
#include <string>
#include <vector>

/// A problem in the units in which laws of physics are written: frequencies and rates as multiples of the
/// carrier's, times in periods of the carrier, fields in the peak field, places as numbers of nodes.
///
/// One at a time: meshes share the nodes of equal numbers, and atoms their data.
///
/// The carrier has the wavelength of 1.5e-6 m and the largest dipole is 1e-29 C m, with equal signs for all
/// dipoles given. The mesh is set first, then what stands in it. After a run the results are read from its
/// files, with seven digits, and the state at its end is in the problem.
class PhysicsRun : public TestProblem
{
public:
    using Matrix = std::vector<std::complex<double>>; ///< Row after row.

    /// Two levels, one at 0 and one at the carrier's frequency, all atoms in the lower one, no relaxation, a
    /// coupling of 0 and a Rabi frequency of 1 / 100; iterations are carried to nine digits.
    explicit PhysicsRun(unsigned char method);
    ~PhysicsRun();

    /// The mesh: number of nodes, cells of a wavelength, and Courant number.
    void setMesh(unsigned long nodes, unsigned long cells, double cfl);
    /// First and last node with atoms.
    void setZone(unsigned long first, unsigned long last);
    /// The nodes that results are read from, besides node 1 and the last but one.
    void saveAt(std::initializer_list<unsigned long> nodes);

    /// Rabi frequency of the peak field.
    void setRabi(double rabi);
    /// Shape and duration of the pulse.
    void setPulse(unsigned char type, double duration);

    /// Number of levels and their frequencies; puts all atoms in level 0 and takes all rates and dipoles away.
    void setLevels(const std::vector<double>& omega);
    /// Frequencies of one of several systems.
    void setLevels(unsigned long system, const std::vector<double>& omega);
    void setWeights(const std::vector<double>& weights);
    /// Dipoles of one component of the field, n by n.
    void setDipoles(const std::vector<double>& dipoles, unsigned long component = 0);
    /// Density of the atoms, as N mu^2 / (eps0 hbar) for the largest dipole mu.
    void setCoupling(double coupling);
    /// Dephasing rate as the program takes it, and longitudinal rates, n by n.
    void setDephasing(double rate);
    void setRates(unsigned char type, const std::vector<double>& rates);
    void setEquilibrium(const std::vector<double>& populations);
    void setDensity(const Matrix& density);
    void startIn(unsigned long level);

    /// Runs; a run that fails fails the test.
    void run(unsigned long steps);

    /// Values of the last run, one for each step, from its files. A node that was not saved fails the test.
    std::vector<double> field(unsigned long node, unsigned long component = 0) const;
    std::vector<double> density(unsigned long node, unsigned long i, unsigned long j,
                                unsigned long system = 0) const;
    std::vector<double> seconds() const;

    /// The state at the end of the last run.
    double fieldNow(unsigned long node, unsigned long component = 0) const;
    std::complex<double> densityNow(unsigned long node, unsigned long i, unsigned long j,
                                    unsigned long system = 0) const;

    /// Phase of the carrier in a step: 2 pi CFL / cells.
    double stepPhase() const { return mStepPhase; }
    /// Cells that light crosses in a step.
    double courant() const;
    /// The level frequency that the method turns coherences at `omega` with: `omega` itself by splitting, and
    /// tan(w dt / 2) 2 / dt for the trapezoidal steps, which lower every frequency.
    double tuned(double omega) const;
    /// Frequency and rates over the Rabi frequency are the program's dimensionless numbers; this is the time
    /// step in them.
    double stepInRabiUnits() const { return mRabi * mStepPhase; }

private:
    const QV_Results::Captor& captor(const QV_Results& results, unsigned long node) const;
    QV_Results results() const;

    static inline int mLiving = 0;

    unsigned long mNodes = 0;
    double mStepPhase = 0.0;
    double mRabi = 0.0;
};

/// The name of a method in reports and in the names of tests.
std::string methodName(unsigned char method);
/// Prints a line "measured: <what> = <value>" for docs/physics.md.
void report(const std::string& what, double value);
