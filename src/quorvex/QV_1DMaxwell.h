#pragma once
#include "quorvex/QV_FieldKernel.h"
#include "quorvex/QV_Maxwell.h"

#include <vector>

/// The field of a one-dimensional problem, advanced by leapfrog half-steps.
///
/// E stands on the nodes 0..n of the mesh and B on the n lines between them: B[i] lies between E[i] and
/// E[i + 1]. The incident wave enters through line 0. What the first step reads from the mesh, and the
/// state of the ends, is kept between runs and in saved problems. docs/physics.md, "Leapfrog" and "Ends".
class QV_1DMaxwell : public QV_Maxwell
{
    COM_CLASS(QV_1DMaxwell)
public:
    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    bool solveAmpere(double t, double dt) override;
    bool solveAmpereZiolko(double t, double dt) override;
    bool solveFaraday(double t, double dt) override;

    /// What a former run has left: scaled cell size, active zone, and the state of the ends, which is null
    /// before the first run.
    double getDz() const { return mDz; }
    long getFirstNode() const { return mIFirst; }
    long getLastNode() const { return mILast; }
    const LA_RealVector* getMovingIncidentFieldValue() const { return mMovingIncidentFieldValue; }

protected:
    QV_1DMaxwell();
    ~QV_1DMaxwell() override;

private:
    /// The arrays of both fields; no lines when a field is missing.
    QV_FieldKernel::Fields fields() const;
    void resolveCell();
    void resolveNodes();
    void useDefaultFactors();
    /// Node 0, and node n where a cavity reflects there, for one component.
    void solveEnds(const QV_FieldKernel::Fields& fields, unsigned long j, double sign, double r);

    bool mSolvingInEmptyMilieu = false; ///< True while `solveAmpere` treats the empty zones.
    double mDz = -1.0; ///< Scaled cell size; not positive until the first step has read it.
    long mIFirst = -1; ///< First active node; negative until read.
    long mILast = -1;  ///< Last active node; negative until read.
    LA_RealVector* mMovingIncidentFieldValue =
        nullptr; ///< The incoming wave just outside node 0, one
                 ///< value per component. Counted.
    LA_RealVector* mE1Old =
        nullptr; ///< E at node 1 one step ago, one value per component. Counted.
    LA_RealVector* mEn1Old = nullptr; ///< E at node n - 1 one step ago, likewise. Counted.
    std::vector<double> mTerms;       ///< Scratch: the polarization's source at the active nodes.
};
