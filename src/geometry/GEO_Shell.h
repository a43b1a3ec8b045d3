#pragma once
#include "common/COM_Array.h"
#include "geometry/GEO_Movable.h"

class GEO_Box;
class GEO_Volume;

/// A part of a volume's surface. It counts the volumes that hold it as back references.
class GEO_Shell : public GEO_Movable
{
public:
    /// Tells the volumes.
    void stateChanged() override;
    /// A new shell of the same kind, empty.
    virtual GEO_Shell* NewShellInstance() const = 0;
    /// Without any point to hold nothing is done.
    virtual void computeBoundingBox(GEO_Box& box) const = 0;

    // Two-way link with GEO_Volume::addToShells.
    void addToVolumes(GEO_Volume* volume);
    void removeFromVolumes(GEO_Volume& volume);
    void resetVolumes();
    const COM_Array<GEO_Volume>& getVolumes() const { return *mVolumes; }

protected:
    GEO_Shell();
    ~GEO_Shell() override;

private:
    COM_Array<GEO_Volume>* mVolumes; ///< Counted back references, never null.
};
