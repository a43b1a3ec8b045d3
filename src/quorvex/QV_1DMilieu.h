#pragma once
#include "quorvex/QV_Milieu.h"

class LA_RealVector;

/// A medium along one axis: a chain of equal cells in three zones, "bound1", "milieu" and "bound2", of
/// which the middle one is filled with atoms. Neighbouring zones share their node.
class QV_1DMilieu : public QV_Milieu
{
    COM_CLASS(QV_1DMilieu)
public:
    /// The mesh that the present data give, before it is built. Numbers that are no mesh come out as they
    /// are computed, cut to what a long can hold.
    struct Mesh
    {
        static constexpr long LARGEST =
            1000000000; ///< Nodes; more than any machine has memory for.

        double mCell;      ///< Length of a cell, m.
        long mNodesNumber; ///< Nodes 0 to mNodesNumber - 1.
        long mFirstActive; ///< First node of the active zone.
        long mLastActive;  ///< Its last node; the first one when the zone ends before it starts.
        bool isValid() const
        {
            return mNodesNumber >= 3 && mNodesNumber <= LARGEST && mFirstActive >= 0
                   && mLastActive < mNodesNumber;
        }
    };

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Builds the chain, names the first and the last active node, and chooses the saving nodes: those
    /// next to the ends, and one for each captor. Data that give no mesh are built as far as they go: a
    /// boundary without node gets no name.
    void create() override;
    /// Requires: the data are those of the next `create`.
    Mesh computeMesh() const;
    /// Time in s that light takes for the whole length. It moves at C times the index: docs/physics.md,
    /// "Units".
    double computeTransitTime() const { return mLength / (C * getIndice()); }

    void setLength(double length) { mLength = length; }
    double getLength() const { return mLength; }
    void setStartingPosition(double position) { mStartingPosition = position; }
    double getStartingPosition() const { return mStartingPosition; }
    void setEndingPosition(double position) { mEndingPosition = position; }
    double getEndingPosition() const { return mEndingPosition; }
    void setDiscretizationNumber(unsigned long number) { mDiscretizationNumber = number; }
    unsigned long getDiscretizationNumber() const { return mDiscretizationNumber; }
    void setCaracteristicLength(double length) { mCaracteristicLength = length; }
    double getCaracteristicLength() const { return mCaracteristicLength; }

    void setCaptors(LA_RealVector& captors) { setCaptors(&captors); }
    void setCaptors(LA_RealVector* captors);
    void resetCaptors() { setCaptors(nullptr); }
    LA_RealVector* getCaptors() const { return mCaptors; }
    /// The default: captors at 30, 50 and 70 percent.
    void initCaptors();
    /// Stores a captor's position, in percent; the vector grows as needed.
    void addToCaptors(int index, double position);

protected:
    QV_1DMilieu();
    ~QV_1DMilieu() override;

private:
    void createSavingVertices();
    /// Saves at the node that stands at `position` percent of `vertices`, at the first or the last one for
    /// a position outside.
    void addSavingVertexAt(double position, const COM_Array<GEO_Vertex>& vertices);

    double mLength = 0.0001;                  ///< Length with the empty zones, m.
    double mStartingPosition = 10.0;          ///< Start of the active zone, percent of the mesh.
    double mEndingPosition = 90.0;            ///< End of the active zone, percent of the mesh.
    unsigned long mDiscretizationNumber = 20; ///< Cells in a characteristic length.
    double mCaracteristicLength = 1.5e-6;     ///< m; the wavelength by convention.
    LA_RealVector* mCaptors = nullptr; ///< Positions of the captors, percent. Counted, may be null.
};
