#pragma once
#include "common/COM_Array.h"
#include "common/COM_Object.h"
#include "linearAlgebra/LA_IntegerMatrix.h"

#include <string>
#include <vector>

class LA_RealVector;

/// What the user wants to see of the results at one captor, a node of the mesh at which a run saves field and
/// density matrices. Made from captors.res, never saved.
///
/// A matrix of marks is made when it is first asked for: a damaged file may promise more and larger ones than
/// the memory holds.
class QVG_Captor : public virtual COM_Object
{
    COM_CLASS(QVG_Captor)
public:
    /// The identity string and what is stored, a line each.
    std::string toString() const override;

    // Components of the field to plot.
    void setEx(bool flag) { mShowEx = flag; }
    void setEy(bool flag) { mShowEy = flag; }
    void setEz(bool flag) { mShowEz = flag; }
    bool isEx() const { return mShowEx; }
    bool isEy() const { return mShowEy; }
    bool isEz() const { return mShowEz; }

    /// Number of the node in the mesh, and in file names.
    void setLocation(unsigned long location) { mLocation = location; }
    unsigned long getLocation() const { return mLocation; }
    /// A fraction.
    void setRelativePosition(double position) { mRelativePosition = position; }
    double getRelativePosition() const { return mRelativePosition; }
    /// Components of the field that were saved.
    void setEDimension(unsigned long dimension) { mEDimension = dimension; }
    unsigned long getEDimension() const { return mEDimension; }
    void setPosition(double x);
    void setPosition(double x, double y);
    void setPosition(double x, double y, double z);
    void setPosition(const std::vector<double>& coordinates);
    LA_RealVector& getPosition() const { return *mPosition; }
    /// The system whose marks are shown, from 0.
    void setLastIndex(unsigned long index) { mLastIndex = index; }
    unsigned long getLastIndex() const { return mLastIndex; }

    /// Erases all marks. The size of the matrices stays, but for that of none at all, which is 0.
    void setBlochEquationsNumber(unsigned long number);
    unsigned long getBlochEquationsNumber() const { return mSystems; }
    /// Erases all marks. Nothing while there are no matrices.
    void setRhoSize(unsigned long size);
    /// 0 without a matrix.
    unsigned long getRhoSize() const { return mSystems > 0 ? mRhoSize : 0; }
    /// The marks of system `b`, 1 at each element of the density matrix to plot; null beyond the last.
    LA_IntegerMatrix* getShowRho(unsigned long b) const;
    /// False while nobody has asked for the marks of system `b`: none of its elements is marked then.
    bool hasMarks(unsigned long b) const;
    /// Whether an element is marked. Beyond the matrix the last row or column stands in.
    bool isRho(unsigned long b, unsigned long i, unsigned long j) const;
    /// The same addressing; nothing beyond the last system.
    void setRhoVisible(unsigned long b, unsigned long i, unsigned long j, bool value);

protected:
    QVG_Captor();
    ~QVG_Captor() override;

private:
    bool mShowEx = true;
    bool mShowEy = false;
    bool mShowEz = false;
    unsigned long mLocation = 0;
    double mRelativePosition = 0.0;
    unsigned long mLastIndex = 0;
    unsigned long mEDimension = 1;
    /// Marks by system; none in null slots and behind the end. Counted, never null.
    COM_Array<LA_IntegerMatrix>* mShowRho;
    LA_RealVector* mPosition; ///< Dimensionless. Counted, never null.
    unsigned long mSystems = 1;
    unsigned long mRhoSize = 1;
};
