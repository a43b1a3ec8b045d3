#pragma once
#include "common/COM_Array.h"
#include "geometry/GEO_Movable.h"

class GEO_Box;
class GEO_Shell;

/// A group of shells, which it holds. Their back references are left out by the inverse count.
class GEO_Volume : public GEO_Movable
{
    COM_CLASS(GEO_Volume)
public:
    void move(const GEO_Motion& motion, Moved& moved) override;

    // Two-way link with GEO_Shell::addToVolumes.
    void addToShells(GEO_Shell* shell);
    void addToShells(GEO_Shell& shell) { addToShells(&shell); }
    void removeFromShells(GEO_Shell& shell);
    void resetShells();
    const COM_Array<GEO_Shell>& getShells() const { return *mShells; }

    /// The box around those of all shells; without any nothing is done.
    void computeBoundingBox(GEO_Box& box) const;

protected:
    GEO_Volume();
    ~GEO_Volume() override;
    unsigned long getInverseAgregatedObjectsCount() const override { return mShells->size(); }
    void resetInverseAgregatedObjects() override { resetShells(); }

private:
    COM_Array<GEO_Shell>* mShells; ///< Counted, never null.
};
