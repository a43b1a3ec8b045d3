#pragma once
#include "common/COM_Array.h"
#include "common/COM_Out.h"
#include "quorvex/QV_Object.h"
#include "quorvex/QV_ResultFile.h"

#include <functional>
#include <string>

class GEO_Vertex;
class LA_RealVector;
class QV_Bloch;
class QV_Field;
class QV_Maxwell;
class QV_Milieu;

/// A simulation: a field system, a medium and an array of density-matrix systems, and the time loop that
/// drives them by one of six methods.
///
/// A run makes the mesh, turns the input in SI units into dimensionless ones (time in 1 / Rabi frequency,
/// length in C * index / Rabi frequency, field in its peak), writes its own parameters, opens the result
/// files and steps. It runs in the caller's thread; progress goes to a `COM_Out`, the log to standard
/// output. A problem can be run again and again. docs/physics.md, "Units" and "Methods".
class QV_Problem : public QV_Object
{
public:
    static constexpr unsigned char CN_Z_METHOD = 0;
    static constexpr unsigned char CN_P_METHOD = 1;
    static constexpr unsigned char CN_dtP_METHOD = 2;
    static constexpr unsigned char RELAX_METHOD = 3;
    static constexpr unsigned char SPLIT_METHOD = 4;
    static constexpr unsigned char PRED_CORR_METHOD = 5;
    static constexpr unsigned char GAUSS_STATISTICAL_METHOD = 0;
    static constexpr int RABBI_FREQUENCY_ERROR =
        -1;                               ///< No Rabi frequency: the largest dipole is 0.
    static constexpr int MESH_ERROR = -2; ///< No mesh, or a part of the problem is missing.
    static constexpr const char* mMethodsName[] = {"CN_Z",  "CN_P",  "CN_dtP",
                                                   "Relax", "Split", "pc"};
    static constexpr unsigned long mMethodsNameLength = 6;
    static constexpr const char* mStatisticalMethodsName[] = {"GAUSS"};
    static constexpr unsigned long mStatisticalMethodsNameLength = 1;
    static constexpr const char* RECORD_FILE =
        "paramBeforeSolving.xml"; ///< In the working directory.

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Forms the Rabi frequency and scales all parts by it. 0, or `RABBI_FREQUENCY_ERROR`.
    virtual int initialize();
    /// Writes the record of the parameters and the result files. 0 always.
    virtual int solve(COM_Out& out);
    /// The run below with its progress in the log. What it returns tells nothing: 0 always.
    virtual int run();
    /// Makes the mesh, initialises and solves. 0, or a negative value when nothing was written.
    virtual int run(COM_Out& out);
    /// Appends a line to every result file.
    virtual bool save(double t);
    /// Makes the result files in the directory `path`, which ends in a slash. A file that cannot be made
    /// ends the process with status 0.
    virtual bool initSaving(std::string path);
    /// Closes them. False, after a line on standard error for each file concerned, when not everything
    /// could be written.
    virtual bool closeSaving();
    /// True unless a file of the last run is incomplete.
    bool isSavingComplete() const { return mIsSavingComplete; }

    /// Called at the end of each step. Empty by default.
    void setWatcher(std::function<void()> watcher) { mWatcher = std::move(watcher); }

    void setMilieu(QV_Milieu* milieu);
    void setMilieu(QV_Milieu& milieu) { setMilieu(&milieu); }
    void resetMilieu() { setMilieu(nullptr); }
    QV_Milieu* getMilieu() const { return mMilieu; }

    // Two-way links with QV_Maxwell::setProblem and QV_Bloch::setProblem.
    void setMaxwellSystem(QV_Maxwell* maxwell);
    void setMaxwellSystem(QV_Maxwell& maxwell) { setMaxwellSystem(&maxwell); }
    void resetMaxwellSystem();
    QV_Maxwell* getMaxwellSystem() const { return mMaxwell; }
    void addToBlochEquations(QV_Bloch* bloch);
    void addToBlochEquations(QV_Bloch& bloch) { addToBlochEquations(&bloch); }
    void removeFromBlochEquations(QV_Bloch* bloch);
    void removeFromBlochEquations(QV_Bloch& bloch) { removeFromBlochEquations(&bloch); }
    void removeLastBlochEquation();
    void resetBlochEquations();
    COM_Array<QV_Bloch>* getBlochEquations() const { return mBlochEquations; }

    void setSavingPath(const std::string& path) { mSavingPath = path; }
    std::string getSavingPath() const { return mSavingPath; }
    /// Overwritten by each run: the step follows from wavelength, cells and Courant number.
    void setTimeStep(double timeStep) { mTimeStep = timeStep; }
    double getTimeStep() const { return mTimeStep; }
    double getTimeStepAdim() const { return mTimeStepAdim; }
    unsigned long getTimeStepNumber() const { return mTimeStepNumber; }
    void setMaxTimeStepsNumber(unsigned long number) { mMaxTimeStepsNumber = number; }
    unsigned long getMaxTimeStepsNumber() const { return mMaxTimeStepsNumber; }
    double getRabiFrequency() const { return mRabiFrequency; }
    void setMethod(unsigned char method) { mMethod = method; }
    /// Ends the process with status 0 for a name that is none of `mMethodsName`.
    void setMethod(const std::string& name);
    unsigned char getMethod() const { return mMethod; }

    void setFrequenciesDistributionMethod(unsigned char method) { mStatisticalMethod = method; }
    /// Old parameter files know one word here, the first of the methods' names, and it chooses that method;
    /// every other word, the law's own name included, ends the process with status 0.
    void setFrequenciesDistributionMethod(const std::string& name);
    unsigned char getFrequenciesDistributionMethod() const { return mStatisticalMethod; }
    void setFrequenciesDistributionDelta(double delta) { mDelta = delta; }
    double getFrequenciesDistributionDelta() const { return mDelta; }
    void setFrequenciesDistributionMean(double mean) { mMean = mean; }
    double getFrequenciesDistributionMean() const { return mMean; }
    /// Draws the level frequencies of the systems past the first from a Gaussian law around those of the
    /// first.
    void generateBlochFrequencies();
    /// The same around `omega`, which the first system gets unchanged.
    void generateBlochFrequencies(LA_RealVector& omega);

protected:
    QV_Problem();
    ~QV_Problem() override;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

private:
    /// Steps `sequence(t, dt)` up to the maximum, telling `out` the number of every step that `interval`
    /// divides. An interval of 0 is a division by zero at the first step and ends the process by its
    /// signal.
    template <typename Sequence>
    void eachStep(unsigned long interval, COM_Out& out, Sequence sequence);
    template <typename Operation>
    void eachSystem(Operation operation);
    void solveRelaxation(unsigned long interval, COM_Out& out);
    // False when the file is incomplete.
    bool writeCaptors(const std::string& path) const;
    bool writeLevelFrequencies(const std::string& path) const;

    std::string mSavingPath = "resultats/"; ///< Directory of the result files, with its slash.
    double mTimeStep = 1.0;                 ///< s
    unsigned long mTimeStepNumber = 0; ///< 1 when a loop starts, the maximum + 1 when it has ended.
    double mTimeStepAdim = 0.0;        ///< In 1 / Rabi frequency; 0 before the first run.
    [[maybe_unused]] bool mCreateResultFiles = true; ///< Read by nobody.
    unsigned long mMaxTimeStepsNumber = 2000;
    double mRabiFrequency = 0.0; ///< rad/s; 0 before the first run.
    unsigned char mMethod = CN_Z_METHOD;
    QV_ResultFile mFileTPS; ///< The times; open while a run lasts.
    unsigned char mStatisticalMethod = GAUSS_STATISTICAL_METHOD;
    double mDelta = 0.0;                  ///< Standard deviation of the frequencies, rad/s.
    double mMean = 0.0;                   ///< Their mean shift, rad/s.
    QV_Maxwell* mMaxwell = nullptr;       ///< Counted.
    COM_Array<QV_Bloch>* mBlochEquations; ///< Counted, never null.
    QV_Milieu* mMilieu = nullptr;         ///< Counted.
    std::function<void()> mWatcher;
    COM_Array<GEO_Vertex>*
        mSavingNodes; ///< The nodes of the result files while a run lasts. Counted,
                      ///< never null.
    bool mIsSavingComplete = true;
    std::string mLine; ///< Scratch: a line of the times.
};
