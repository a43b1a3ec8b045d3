#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "quorvex/QV_IterationKernel.h"
#include "quorvex/QV_Object.h"
#include "quorvex/QV_ResultFile.h"
#include "quorvex/QV_SplitKernel.h"

#include <complex>
#include <optional>
#include <string>
#include <vector>

class GEO_Vertex;
class LA_RealMatrix;
class LA_RealVector;
class QV_Field;
class QV_Problem;

/// The density matrices of one class of atoms with n levels, one matrix for each node of the mesh.
///
/// An instance owns its densities and the frequencies of its atoms; all else about the atoms is class-level
/// and shared by all instances: several instances are an inhomogeneous line. In dimensionless form, with E
/// the field, P the dipoles, Nu and D the relaxation:
///     d rho[a][b] / dt = i E sum over k of (P[a][k] rho[k][b] - P[k][b] rho[a][k]) - Nu[a][b] rho[a][b]
///     d rho[a][a] / dt = i E (the same sum) + sum over k of D[a][k] rho[k][k]
/// Times are in 1 / Rabi frequency, fields in the peak field, dipoles in the largest dipole. The schemes are
/// derived in docs/physics.md; their node loops are in the kernels.
class QV_Bloch : public QV_Object
{
    COM_CLASS(QV_Bloch)
public:
    static constexpr unsigned char HRN_SPLIT_TYPE = 0; ///< Hamiltonian step, then relaxation.
    static constexpr unsigned char RNH_SPLIT_TYPE = 1; ///< Relaxation, then Hamiltonian step.
    static constexpr unsigned char HRNH_SPLIT_TYPE =
        2; ///< Relaxation between two Hamiltonian steps.
    static constexpr unsigned char RNHRN_SPLIT_TYPE =
        3; ///< Hamiltonian step between two relaxations.
    static constexpr unsigned char PAULI_RELAXATION_TYPE = 0;
    static constexpr unsigned char CASCADE_RELAXATION_TYPE = 1;
    static constexpr unsigned char EQUILIBRE_RELAXATION_TYPE = 2;
    /// Names in the older parameter files. The tables begin with an empty name, so each name's place
    /// is one above the constant of that meaning.
    static constexpr const char* mSplitTypesName[] = {"", "hrn", "rnh", "hrnh", "rnhrn"};
    static constexpr unsigned long mSplitTypesNameLength = 5;
    static constexpr const char* mRelaxationTypesName[] = {"", "Pauli", "Cascade", "Equilibre"};
    static constexpr unsigned long mRelaxationTypesNameLength = 4;
    static constexpr double HBAR_OVER_K = 7.63649529326575e-12; ///< K s

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;

    /// Gives each node of the problem's medium a copy of the initial density.
    virtual void initDensities();
    /// Stores a copy of `density`, forced to n by n, for a node; the array grows as needed.
    virtual void setDensity(const LA_ComplexMatrix& density, unsigned long index);

    /// From here to `endRun` the steps alone change densities and scaled data, so that what one step knows serves the
    /// next: the tables of the scheme, and the source that the densities leave.
    void beginRun();
    void endRun();

    /// The time step t / dt, of length `dt`, at every node of the medium: see the methods of
    /// `QV_Problem`. A field of several components ends the process with status 0, after a line that says
    /// so. Nodes that reach the limit of iterations are reported on standard output. True always.
    virtual bool solveBlochZiolko(double t, double dt);
    virtual bool solveBlochP(double t, double dt);
    /// Non-convergence ends the process with status 0 here.
    virtual bool solveBlochPredCorr(double t, double dt);
    virtual bool solveBlochCrank(double t, double dt);
    /// Advances the coherences of the first node of the medium, and of that node alone.
    virtual bool solveBlochRelaxExtraDiag(double t, double dt);
    /// Advances the populations of all nodes. `oldField` is the field before the step.
    virtual bool solveBlochRelaxDiag(double t, double dt, const QV_Field& oldField);
    /// False, after lines that say so, with a level count that the splitting cannot treat.
    virtual bool solveBlochSplit(double t, double dt);
    /// Prepares the population propagator and the tables of dipole products for steps of `dt`. Must run
    /// before the first `solveBlochSplit`.
    virtual bool solveBlochSplitInit(double t, double dt);

    // The problem, a two-way link with QV_Problem::addToBlochEquations.
    void setProblem(QV_Problem* problem);
    void setProblem(QV_Problem& problem) { setProblem(&problem); }
    void resetProblem();
    QV_Problem* getProblem() const { return mProblem; }

    /// Makes everything dimensionless: densities anew, rates and frequencies by `omegac`, the Rabi
    /// frequency in rad/s, dipoles by `muc`, the largest dipole in C m. `Emax` is the peak field in V/m.
    void initialize(double omegac, double muc, double Emax);

    /// The source in Ampere's equation at a node, one value for each component of `term`.
    void computePolarizationTerm(const LA_ComplexMatrix& rho, const double* E,
                                 LA_RealVector& term) const;
    /// The same for the first dipole matrix alone.
    double computePolarizationTerm(const LA_ComplexMatrix& rho) const;
    /// The same with the density of node `index`; 0 beyond the last node.
    void computePolarizationTermAtIndex(unsigned long index, const double* E,
                                        LA_RealVector& term) const;
    /// Adds `factor` times the source at nodes `first` to `last` to `terms`, which holds `components`
    /// values for each of them; nodes without density add nothing.
    void addPolarizationTerms(long first, long last, unsigned long components, double factor,
                              double* terms);

    // Result files.
    void initSaving(const std::string& path, const COM_Array<GEO_Vertex>* vertices,
                    unsigned long nBloch);
    void save(double t, unsigned long nNode, unsigned long nFile);
    /// False when a file could not be written completely.
    bool closeSaving();

    // This class of atoms.
    /// Frequencies of the levels in rad/s; forces `omega` to n values.
    void setLevelsFrequency(LA_RealVector& omega) { setLevelsFrequency(&omega); }
    void setLevelsFrequency(LA_RealVector* omega);
    LA_RealVector* getLevelsFrequency() const { return mOmega; }
    const COM_Array<LA_ComplexMatrix>* getDensities() const { return mDensities; }
    /// The density of a node, or null.
    LA_ComplexMatrix* getDensity(unsigned long index) const;
    /// Largest number of iterations of a node in the last step.
    unsigned long getIterationsNumber() const { return mIterMax; }
    double getDz() const { return mDz; }
    long getFirstNode() const { return mIFirst; }
    long getLastNode() const { return mILast; }
    double getDzeta() const { return mDzeta; }
    const LA_RealMatrix* getPopulationRelaxation() const { return mRelaxDiag; }
    const LA_ComplexMatrix* getCoherenceRelaxation() const { return mRelaxNut; }
    const LA_RealMatrix* getPopulationPropagator() const { return mExpA; }
    const COM_Array<LA_RealMatrix>* getPolarizationsPower() const { return mPPower; }
    const std::vector<double>& getTracesPower() const { return mTrPPower; }
    const LA_RealMatrix* getLongitudinalRelaxationAdim() const { return mWAdim; }
    const LA_RealVector* getLevelsFrequencyAdim() const { return mOmegaAdim; }
    const COM_Array<LA_RealMatrix>* getPolarizationsAdim() const { return mPsAdim; }

    // All atoms.
    /// Resizes everything that counts in levels, keeping the old values as far as they fit. The largest
    /// dipole stays as it was.
    static void setLevelsNumber(unsigned long n);
    static unsigned long getLevelsNumber() { return mLevelsNumber; }
    static void setIterationsMaxNumber(unsigned long number) { mIterationsMaxNumber = number; }
    static unsigned long getIterationsMaxNumber() { return mIterationsMaxNumber; }
    static void setConvergenceRate(double rate) { mConvergenceRate = rate; }
    static double getConvergenceRate() { return mConvergenceRate; }
    static void setTemperature(double temperature);
    static double getTemperature() { return mTemperature; }
    static double getBeta() { return mBeta; }
    static void setTransversalRelaxation(double rate) { mTransversalRelaxation = rate; }
    static double getTransversalRelaxation() { return mTransversalRelaxation; }
    static double getTransversalRelaxationAdim() { return mTransversalRelaxationAdim; }
    static void setAtomsNumber(double number) { mAtomsNumber = number; }
    static double getAtomsNumber() { return mAtomsNumber; }
    static void setSplitType(unsigned char type) { mSplitType = type; }
    /// Stores the name's place in its table; an unknown name changes nothing and is announced.
    static void setSplitType(const std::string& name);
    static unsigned char getSplitType() { return mSplitType; }
    static void setRelaxationType(unsigned char type) { mRelaxationType = type; }
    static void setRelaxationType(const std::string& name);
    static unsigned char getRelaxationType() { return mRelaxationType; }

    /// Dipole matrices, C m, one for each component of the field; each is forced to n by n. The largest
    /// entry of all of them is kept, but never less than 0.
    static void setPolarization(LA_RealMatrix& polarization, unsigned long index);
    static void addToPolarizations(LA_RealMatrix& polarization);
    static void removeFromPolarizations(LA_RealMatrix& polarization);
    static void removeFromPolarizations(unsigned long index);
    /// New slots get a copy of the last matrix, or zeros. The largest dipole stays as it was.
    static void setPolarizationsSize(unsigned long size);
    static COM_Array<LA_RealMatrix>* getPolarizations() { return mPs; }
    static double getMaxPolarizationValue() { return mPMax; }

    /// Each is forced to n by n, or to n values, and held with a reference.
    static void setLongitudinalRelaxation(LA_RealMatrix& relaxation);
    static LA_RealMatrix* getLongitudinalRelaxation() { return mW; }
    static void setEquilibriumDensity(LA_RealVector& density);
    static LA_RealVector* getEquilibriumDensity() { return mRhoE; }
    static void setInitialDensity(LA_ComplexMatrix& density);
    static LA_ComplexMatrix* getInitialDensity() { return mINITIAL_DENSITY; }

    /// Defaults for n levels: a dipole of 1e-29 C m between the first two.
    static void initPolarizations();
    static void initEquilibriumDensity();
    /// Rates of 1e8 1/s between the first two.
    static void initLongitudinalRelaxation();
    /// All atoms in level 1.
    static void initInitialDensity();
    /// Puts everything shared back to its value at program start, and gives up the shared objects.
    static void resetShared();

protected:
    QV_Bloch();
    ~QV_Bloch() override;

private:
    static constexpr const char* RELAXATION_MESSAGE =
        "Bloch Relaxation method  not implemented for a field dimension superior to 1 \n";

    struct Range
    {
        unsigned long mFirst;
        unsigned long mCount;
    };

    /// Builds the relaxation operators from the rates and frequencies in SI units.
    void initLongitudinalRelaxationValues();
    /// Completes the scaled rates, which still are in SI units, by detailed balance.
    void balanceRates();
    /// D[i][j] = rates[i][j] with what flows off on the diagonal: each column adds up to zero.
    void initRelaxationFromRates(const LA_RealMatrix& rates);
    void initCoherenceRelaxation();
    /// Ampere's equation without the atoms: -r (H[j] - H[j - 1]) for each node of `range`, a line beyond
    /// the mesh counting as 0. False, and no result, when there are no lines.
    bool computeMBSecundMember(double dt, const Range& range, QV_Field& result) const;
    /// Products of one factor more than those that end below index `s`, for `p` components.
    void computePolarizationsPower(unsigned long s, unsigned long p);
    /// The tables of the splitting for `m` components, those of the last step while a run lasts.
    const QV_SplitKernel::Tables& splitTables(double tau, unsigned long m, bool isTreated);
    /// The tables of an iterated scheme, those of the last step while a run lasts.
    const QV_IterationKernel::Tables& iterationTables(QV_IterationKernel::Scheme scheme, double dt);
    /// Where a step leaves the source of the nodes that it advances, m values a node; null outside a run and for
    /// steps that do not leave it.
    double* newTerms(const Range& range, unsigned long m, bool leavesTerms);

    /// The electric field, or null. Several components end the process after `message`, if there is one.
    QV_Field* electricField(const char* message) const;
    void resolveMeshStep();
    void resolveNodes();
    /// The nodes that a step treats: the medium up to node `last`, as far as it has field, densities and
    /// scaled data.
    Range activeRange(const QV_Field& E, long last) const;
    /// True when the scaled data are there and fit the level count.
    bool isScaled() const;
    /// The densities as one run of values; matrices that lie elsewhere are brought there.
    double* packDensities();
    /// The scaled data as plain arrays, with a dipole matrix for each of `components`; those that are
    /// missing are zero. The matrices go to `polarizations`.
    QV_Atoms atoms(unsigned long components, std::vector<double>& polarizations) const;
    /// Runs an iterated scheme and returns the largest number of iterations.
    unsigned long iterate(QV_IterationKernel::Scheme scheme, QV_Field& E, const Range& range,
                          const double* aux, double dt);
    /// A step of one of the three schemes that advance the field.
    bool solveCoupled(QV_IterationKernel::Scheme scheme, const char* message, bool isLimitFatal,
                      double t, double dt);
    /// Tells each node that has reached the limit of iterations, with its number if `nodeWord` is given.
    void report(unsigned long firstNode, double t, double dt, const char* nodeWord,
                bool isFatal) const;

    static unsigned long levelsSquared() { return mLevelsNumber * mLevelsNumber; }
    static void computeMaxPolarization();
    static void forceToLevels(LA_RealMatrix& matrix);
    template <typename T>
    static void associateShared(T*& field, T* object);

    // Shared by all atoms.
    static unsigned long mIterationsMaxNumber; ///< Limit of the iterations at a node.
    static double mConvergenceRate;            ///< Threshold, relative to the first residual.
    static double mBeta;                       ///< hbar / (k T), s.
    static double mTemperature;                ///< K.
    static double mTransversalRelaxation;      ///< Dephasing rate, 1/s.
    static double mTransversalRelaxationAdim;  ///< The same, scaled by `initialize`.
    static unsigned long mLevelsNumber;        ///< n.
    static double mPMax;                       ///< Largest entry of all dipole matrices, C m.
    static double mAtomsNumber;                ///< Density of atoms, 1/m^3.
    static unsigned char mSplitType;
    static unsigned char mRelaxationType;
    static LA_ComplexMatrix* mINITIAL_DENSITY; ///< Density of each node at the start. Counted.
    static COM_Map<unsigned long, QV_Bloch>*
        mBlochEquations;                  ///< All instances by number; a view. Null
                                          ///< until the first one is made.
    static LA_RealMatrix* mW;             ///< Longitudinal rates, 1/s, n by n. Counted.
    static COM_Array<LA_RealMatrix>* mPs; ///< Dipole matrices, C m. Counted.
    static LA_RealVector* mRhoE;          ///< Equilibrium populations, n. Counted.

    std::vector<QV_ResultFile> mFiles; ///< One for each saving node while a run lasts.
    unsigned long mFilesNumber = 0;
    unsigned long mIterMax = 0;     ///< Largest iteration count of the last step.
    long mIFirst = -1;              ///< First node of the medium; negative until the first
    long mILast = -1;               ///< step has read it, then kept. The last node likewise.
    double mDzeta = 0.0;            ///< Coupling of the polarization; 0 before `initialize`.
    double mDz = -1.0;              ///< Scaled cell size; negative until read, then kept.
    std::vector<double> mTrPPower;  ///< Traces of the products in `mPPower`.
    QV_Problem* mProblem = nullptr; ///< Counted back reference.
    COM_Array<LA_ComplexMatrix>* mDensities; ///< By node. Counted, never null.
    LA_RealMatrix* mWAdim = nullptr;         ///< Scaled rates. Counted, null before `initialize`.
    LA_RealVector* mOmega = nullptr;         ///< Frequencies of the levels, rad/s, n. Counted.
    LA_RealVector* mOmegaAdim = nullptr;     ///< The same, scaled. Counted.
    COM_Array<LA_RealMatrix>* mPsAdim = nullptr; ///< Scaled dipole matrices. Counted.
    LA_RealMatrix* mRelaxDiag = nullptr;         ///< Population relaxation D, n by n. Counted.
    LA_ComplexMatrix* mRelaxNut = nullptr; ///< Coherence decay and rotation Nu, n by n. Counted.
    LA_RealMatrix* mExpA = nullptr;        ///< Population propagator, n by n. Counted.
    COM_Array<LA_RealMatrix>* mPPower; ///< Products of dipole matrices P_p1 ... P_pr, components
                                       ///< from 1 to m, at the number with the digits p1 ... pr
                                       ///< in base m + 1; other slots null. Counted.

    LA_Block<std::complex<double>>* mBlock =
        nullptr;                            ///< The densities' values in one run. Counted.
    QV_Field* mSecondMember = nullptr;      ///< Scratch of the coupled schemes. Counted.
    std::vector<double> mPolarizations;     ///< Scratch: dipole matrices in one run.
    std::vector<double> mWork;              ///< Scratch of the kernels.
    std::vector<unsigned long> mIterations; ///< Scratch: iterations of each node.
    std::string mLine;                      ///< Scratch: a line of a result file.

    // What a run keeps from step to step.
    bool mIsInRun = false;
    Range mTermsRange = {0, 0};         ///< Nodes whose source the last step has left in mTerms,
    unsigned long mTermsComponents = 0; ///< so many values a node.
    std::vector<double> mTerms;
    std::optional<QV_IterationKernel::Tables> mIterationTables;
    std::optional<QV_SplitKernel::Tables> mSplitTables;
    unsigned long mSplitComponents = 0; ///< Components of the field that they are for.
    std::vector<double> mSplitValues;   ///< What they point to.
};
