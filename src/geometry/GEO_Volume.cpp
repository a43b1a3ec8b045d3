#include "geometry/GEO_Volume.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Shell.h"

GEO_Volume::GEO_Volume()
    : mShells(COM_Array<GEO_Shell>::New())
{
    COM_TYPE(GEO_Volume);
}

GEO_Volume::~GEO_Volume()
{
    mShells->Delete();
}

void GEO_Volume::move(const GEO_Motion& motion, Moved& moved)
{
    for (unsigned long i = 0; i < mShells->size(); ++i) {
        (*mShells)[i].move(motion, moved);
    }
}

void GEO_Volume::addToShells(GEO_Shell* shell)
{
    if (shell != nullptr && !mShells->exists(shell)) {
        mShells->add(shell);
        shell->addToVolumes(this);
    }
}

void GEO_Volume::removeFromShells(GEO_Shell& shell)
{
    if (!mShells->exists(shell)) {
        return;
    }
    const COM_Guard guard(shell);
    const COM_Guard ownGuard(*this);
    mShells->remove(shell);
    shell.removeFromVolumes(*this);
}

void GEO_Volume::resetShells()
{
    while (mShells->size() > 0) {
        removeFromShells((*mShells)[mShells->size() - 1]);
    }
}

void GEO_Volume::computeBoundingBox(GEO_Box& box) const
{
    box.setToBoxesOf(*mShells);
}
