#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "quorvex/QV_Object.h"
#include "quorvex/QV_ResultFile.h"

#include <string>
#include <vector>

class GEO_Vertex;
class LA_RealVector;
class QV_Field;
class QV_IncidentFields;
class QV_Problem;

/// The electromagnetic field of a run: E on the nodes, B on the lines, `mDimension` components each, in
/// dimensionless units. Heirs advance it; this class holds it, scales the source and writes the results.
class QV_Maxwell : public QV_Object
{
public:
    static constexpr unsigned char E_FIELD = 0;
    static constexpr unsigned char B_FIELD = 1;

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Starts from zero fields on the present mesh and scales the source by the Rabi frequency, in rad/s.
    virtual void initialize(double rabiFrequency);
    /// Half-steps of length `dt` that end at `t`. `solveAmpere` advances all nodes, with the polarization
    /// of the atoms, `solveAmpereZiolko` the empty zones and the ends alone. True always.
    virtual bool solveAmpere(double t, double dt) = 0;
    virtual bool solveAmpereZiolko(double t, double dt) = 0;
    virtual bool solveFaraday(double t, double dt) = 0;

    // The problem, a two-way link with QV_Problem::setMaxwellSystem.
    void setProblem(QV_Problem* problem);
    void setProblem(QV_Problem& problem) { setProblem(&problem); }
    void resetProblem();
    QV_Problem* getProblem() const { return mProblem; }

    void setIncidentFields(QV_IncidentFields* fields);
    void setIncidentFields(QV_IncidentFields& fields) { setIncidentFields(&fields); }
    void resetIncidentFields() { setIncidentFields(nullptr); }
    QV_IncidentFields* getIncidentFields() const { return mIncidentFields; }

    /// Weight of each density-matrix system in the polarization; null for equal weights.
    void setPolarizationTermFactors(LA_RealVector* factors);
    void setPolarizationTermFactors(LA_RealVector& factors)
    {
        setPolarizationTermFactors(&factors);
    }
    void resetPolarizationTermFactors() { setPolarizationTermFactors(nullptr); }
    LA_RealVector* getPolarizationTermFactors() const { return mFactors; }

    void setField(unsigned char key, QV_Field& field);
    /// The field under `E_FIELD` or `B_FIELD`, or null.
    QV_Field* getField(unsigned char key) const { return mFields->get(key); }

    void setDimension(unsigned long dimension) { mDimension = dimension; }
    unsigned long getDimension() const { return mDimension; }
    void setLaserReflectorFactor(double factor) { mR = factor; }
    double getLaserReflectorFactor() const { return mR; }
    void setLaserType(bool flag) { mIsLaserType = flag; }
    bool isLaserType() const { return mIsLaserType; }
    void setReflexiveLaserType(bool flag) { mIsRLaserType = flag; }
    bool isReflexifLaserType() const { return mIsRLaserType; }

    // Result files.
    void initSaving(const std::string& path, const COM_Array<GEO_Vertex>* vertices);
    void save(double t, unsigned long nNode, unsigned long nFile);
    /// False when a file could not be written completely.
    bool closeSaving();

protected:
    QV_Maxwell();
    ~QV_Maxwell() override;

    void initFields();

private:
    unsigned long mFilesNumber = 0;               ///< Open result files.
    std::vector<QV_ResultFile> mFiles;            ///< One for each saving node while a run lasts.
    bool mIsLaserType = false;                    ///< Laser cavity at the left end.
    bool mIsRLaserType = false;                   ///< Laser cavity with two reflecting ends.
    double mR = 1.0;                              ///< Reflection factor of the ends.
    unsigned long mDimension = 1;                 ///< Components of E and of B.
    QV_Problem* mProblem = nullptr;               ///< Counted back reference.
    QV_IncidentFields* mIncidentFields = nullptr; ///< The source. Counted.
    LA_RealVector* mFactors =
        nullptr; ///< Weights of the systems. Counted; null until set or needed.
    COM_Map<unsigned char, QV_Field>* mFields; ///< E and B by key. Counted, never null.
    std::string mLine;                         ///< Scratch: a line of a result file.
};
