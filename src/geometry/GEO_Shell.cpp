#include "geometry/GEO_Shell.h"

#include "common/COM_Guard.h"
#include "geometry/GEO_Volume.h"

GEO_Shell::GEO_Shell()
    : mVolumes(COM_Array<GEO_Volume>::New())
{
    COM_TYPE(GEO_Shell);
}

GEO_Shell::~GEO_Shell()
{
    mVolumes->Delete(); // empty: a volume holds its shells
}

void GEO_Shell::stateChanged()
{
    for (unsigned long i = 0; i < mVolumes->size(); ++i) {
        (*mVolumes)[i].stateChanged();
    }
}

void GEO_Shell::addToVolumes(GEO_Volume* volume)
{
    if (volume != nullptr && !mVolumes->exists(volume)) {
        mVolumes->add(volume);
        volume->addToShells(this);
    }
}

void GEO_Shell::removeFromVolumes(GEO_Volume& volume)
{
    if (!mVolumes->exists(volume)) {
        return;
    }
    const COM_Guard guard(volume);
    const COM_Guard ownGuard(*this); // the volume may be the last to hold this shell
    mVolumes->remove(volume);
    volume.removeFromShells(*this);
}

void GEO_Shell::resetVolumes()
{
    const COM_Guard guard(*this); // the last volume may be the last to hold this shell
    while (mVolumes->size() > 0) {
        removeFromVolumes((*mVolumes)[mVolumes->size() - 1]);
    }
}
