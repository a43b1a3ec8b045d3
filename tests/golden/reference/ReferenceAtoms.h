#pragma once
#include "ReferenceField.h"
#include "ReferenceMatrix.h"
#include "ReferenceMesh.h"
#include "ReferenceProblem.h"

#include <complex>
#include <cstddef>
#include <map>
#include <ostream>
#include <vector>

/// How close the tests of a run's iterations came to the opposite outcome.
struct ReferenceMargins
{
    /// Smallest |conv norm0 - norme| / norme of the tests for another iteration and smallest
    /// |conv norm0 - 1| of those for the first.
    double mSmallest = 1e300;
    unsigned long mTests = 0; ///< number of tests met
    /// Number of nodes that stood still because of the residual that a node before had left.
    unsigned long mSkipped = 0;
};

/// One system of atoms: a density matrix at each node and the schemes that advance it by one step.
///
/// In dimensionless units, with P the dipoles, Nu the decay and rotation of the coherences and D
/// the relaxation of the populations:
///   d rho[a][b] / dt = i E sum_k (P[a][k] rho[k][b] - P[k][b] rho[a][k]) - Nu[a][b] rho[a][b]
///   d rho[a][a] / dt = i E sum_k (P[a][k] rho[k][a] - P[k][a] rho[a][k]) + sum_k D[a][k] rho[k][k]
class ReferenceAtoms
{
public:
    ReferenceAtoms(const ReferenceProblem& problem, std::size_t system, ReferenceMargins* margins);

    /// Starts all nodes from the initial density and forms the dimensionless operators.
    void initialize(const ReferenceMesh& mesh, double omegac, std::ostream& log);
    /// Reads cell size and active zone of the scaled mesh, at the first run only.
    void readMesh(const ReferenceMesh& mesh);

    /// The source term of Ampere's equation at a node, one value per component of E.
    std::vector<double> polarizationTerm(long node, const std::vector<double>& E) const;

    /// @name One time step each; false where the program ends after its message.
    /// @{
    bool solveBlochZiolko(double t, double dt, ReferenceField& field, std::ostream& log);
    bool solveBlochP(double t, double dt, ReferenceField& field, std::ostream& log);
    bool solveBlochPredCorr(double t, double dt, ReferenceField& field, std::ostream& log);
    bool solveBlochCrank(double t, double dt, const ReferenceField& field, std::ostream& log);
    bool solveBlochRelaxExtraDiag(double t, double dt, const ReferenceField& field,
                                  std::ostream& log);
    bool solveBlochRelaxDiag(double t, double dt, const ReferenceField& field,
                             const std::vector<std::vector<double>>& Eold, std::ostream& log);
    /// @}

    /// Prepares the propagator of the populations and the tables of dipole products.
    void solveBlochSplitInit(double dt, const ReferenceField& field, std::ostream& log);
    void solveBlochSplit(double dt, const ReferenceField& field, std::ostream& log);

    unsigned long getIterationsNumber() const { return mIterMax; }
    /// What the file of a node holds for element (a, b) at time t.
    double savedValue(long node, std::size_t a, std::size_t b, double t) const;

private:
    /// The three schemes that advance field and density of a node together.
    enum class Scheme { Ziolko, P, PredCorr };

    /// Traces of the powers of A = sum over p of E[p] P_p.
    struct Traces
    {
        double mS2 = 0.0;
        double mS3 = 0.0;
        double mS4 = 0.0;
    };

    void initRelaxation();
    void initPauli();
    void setLosses(const ReferenceRealMatrix& gains);
    double dipoleTrace(const ReferenceComplexMatrix& X, std::size_t p) const;
    bool solveWithField(Scheme scheme, double t, double dt, ReferenceField& field,
                        std::ostream& log);
    double polarizationStep(Scheme scheme, const ReferenceComplexMatrix& R,
                            const ReferenceComplexMatrix& rho, double dt) const;
    double densityStepP(ReferenceComplexMatrix& R, const ReferenceComplexMatrix& Rp,
                        const ReferenceComplexMatrix& rho, double Ef, double dt) const;
    double densityStepPredCorr(ReferenceComplexMatrix& R, const ReferenceComplexMatrix& Rp,
                               const ReferenceComplexMatrix& rho, double Ef, double dt) const;
    double densityStepCrank(ReferenceComplexMatrix& R, const ReferenceComplexMatrix& Rp,
                            const ReferenceComplexMatrix& rho, double E, double dt) const;
    double densityStepExtraDiag(ReferenceComplexMatrix& R, const ReferenceComplexMatrix& Rp,
                                const ReferenceComplexMatrix& rho, double E, double dt) const;
    double densityStepDiag(std::vector<std::complex<double>>& Dn,
                           const std::vector<std::complex<double>>& Dp,
                           const ReferenceComplexMatrix& rho, double Esum, double dt) const;
    std::complex<double> commutator(const ReferenceComplexMatrix& Rp,
                                    const ReferenceComplexMatrix& rho, std::size_t a,
                                    std::size_t b) const;

    /// True when a node is iterated at all: the limit isn't 0, and norm0 conv < 1 for the norm0
    /// that the node before left.
    bool mayIterate(double norm0);
    /// True when another iteration is due: iter < limit and conv norm0 < norme.
    bool goesOn(unsigned long iter, double norm0, double norme);
    void record(double margin);
    void reportLimit(double t, double dt, unsigned long iter, std::ostream& log) const;

    void computePolarizationsPower(unsigned long s, unsigned long p, std::ostream& log);
    double traceOfProduct(unsigned long index) const;
    Traces tracesOfPowers(const std::vector<double>& E) const;
    void addProduct(ReferenceComplexMatrix& U, std::complex<double> factor,
                    unsigned long index) const;
    void hamiltonianPropagator(std::complex<double> c, const std::vector<double>& E,
                               ReferenceComplexMatrix& U, std::ostream& log) const;
    void relaxationStep(double tau, ReferenceComplexMatrix& rho) const;

    const ReferenceProblem& mProblem;
    const std::vector<double>& mOmega; ///< level frequencies, rad/s
    ReferenceMargins* mMargins;        ///< where the tests are recorded; null: nowhere
    std::size_t mN;                    ///< levels

    std::vector<ReferenceComplexMatrix> mDensities; ///< one for each node

    double mDzeta = 0.0; ///< coupling of the polarization to the field
    double mTransversalRelaxationAdim = 0.0;
    std::vector<double> mOmegaAdim;
    std::vector<ReferenceRealMatrix> mPsAdim; ///< dipoles in units of the largest
    ReferenceRealMatrix mWAdim;
    ReferenceRealMatrix mRelaxDiag;   ///< D
    ReferenceComplexMatrix mRelaxNut; ///< Nu, zero diagonal

    ReferenceRealMatrix mExpA; ///< propagator of the populations
    /// P_p1 P_p2 ... P_pr, components counted from 1, stands at index p1 p2 ... pr in base m + 1.
    /// An entry that was never formed is missing and counts as zero.
    std::map<unsigned long, ReferenceRealMatrix> mPPower;
    unsigned long mTableSize = 0; ///< entries that the tables may hold

    // What follows is kept from run to run.
    unsigned long mIterMax = 0; ///< largest iteration count of the last step
    double mDz = -1.0;          ///< cell size; negative until read
    long mIFirst = -1;          ///< first active node; negative until read
    long mILast = -1;           ///< last active node; negative until read
};
