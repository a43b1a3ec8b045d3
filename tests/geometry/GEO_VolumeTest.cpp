#include "geometry/GEO_Volume.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_DelaunayPolygon.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Counts = std::vector<long>;

/// A volume that counts the changes it is told of.
class CountingVolume : public GEO_Volume
{
    COM_CLASS(CountingVolume)
public:
    void stateChanged() override { ++mChanges; }

    int mChanges = 0;

protected:
    CountingVolume() { COM_TYPE(CountingVolume); }
    ~CountingVolume() override = default;
};

/// Appends a vertex at (x, y) of that number.
void append(GEO_Polygon& polygon, long number, double x, double y)
{
    const COM_Scoped vertex(GEO_Vertex::New(number));
    vertex->setLocation(x, y);
    polygon.cat(*vertex);
}

class GEO_VolumeTest : public testing::Test
{
protected:
    /// Counts of the volumes, then of the shells.
    Counts counts() const
    {
        return {mVolume->getReferenceCount(), mOther->getReferenceCount(),
                mShell->getReferenceCount(), mSecond->getReferenceCount()};
    }

    const COM_Scoped<GEO_Volume> mVolume{GEO_Volume::New()};
    const COM_Scoped<GEO_Volume> mOther{GEO_Volume::New()};
    const COM_Scoped<GEO_DelaunayPolygon> mShell{GEO_DelaunayPolygon::New()};
    const COM_Scoped<GEO_Polygon> mSecond{GEO_Polygon::New()};
};

} // namespace

TEST_F(GEO_VolumeTest, NewVolumesAndShellsKnowNothingOfEachOther)
{
    EXPECT_EQ(mVolume->getShells().size(), 0UL);
    EXPECT_EQ(mShell->getVolumes().size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
    EXPECT_EQ(mVolume->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "GEO_Object", "GEO_Volume"}));
}

TEST_F(GEO_VolumeTest, AddingAShellLinksBothSides)
{
    mVolume->addToShells(*mShell);
    EXPECT_TRUE(mVolume->getShells().exists(mShell.get()));
    EXPECT_TRUE(mShell->getVolumes().exists(mVolume.get()));
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
    mVolume->addToShells(mShell.get());
    mShell->addToVolumes(mVolume.get());
    EXPECT_EQ(mVolume->getShells().size(), 1UL);
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
}

TEST_F(GEO_VolumeTest, AddingAVolumeToAShellLinksBothSides)
{
    mShell->addToVolumes(mVolume.get());
    EXPECT_TRUE(mVolume->getShells().exists(mShell.get()));
    EXPECT_TRUE(mShell->getVolumes().exists(mVolume.get()));
    EXPECT_EQ(counts(), (Counts{2, 1, 2, 1}));
}

TEST_F(GEO_VolumeTest, NullIsIgnored)
{
    mVolume->addToShells(nullptr);
    mShell->addToVolumes(nullptr);
    EXPECT_EQ(mVolume->getShells().size(), 0UL);
    EXPECT_EQ(mShell->getVolumes().size(), 0UL);
}

TEST_F(GEO_VolumeTest, AShellMayBelongToSeveralVolumesAndAVolumeHaveSeveralShells)
{
    mVolume->addToShells(*mShell);
    mVolume->addToShells(*mSecond);
    mOther->addToShells(*mShell);
    EXPECT_EQ(counts(), (Counts{3, 2, 3, 2}));
    EXPECT_EQ(mVolume->getShells().get(0), mShell.get());
    EXPECT_EQ(mVolume->getShells().get(1), mSecond.get());
    EXPECT_EQ(mShell->getVolumes().get(1), mOther.get());
}

TEST_F(GEO_VolumeTest, RemovingFromEitherSideClearsBoth)
{
    mVolume->addToShells(*mShell);
    mVolume->addToShells(*mSecond);
    mVolume->removeFromShells(*mShell);
    EXPECT_EQ(mShell->getVolumes().size(), 0UL);
    EXPECT_EQ(counts(), (Counts{2, 1, 1, 2}));
    mVolume->removeFromShells(*mShell);
    EXPECT_EQ(counts(), (Counts{2, 1, 1, 2}));
    mSecond->removeFromVolumes(*mVolume);
    EXPECT_EQ(mVolume->getShells().size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
    mSecond->removeFromVolumes(*mVolume);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
}

TEST_F(GEO_VolumeTest, ResettingTheShellsReleasesThemAll)
{
    mVolume->addToShells(*mShell);
    mVolume->addToShells(*mSecond);
    mOther->addToShells(*mShell);
    mVolume->resetShells();
    EXPECT_EQ(mVolume->getShells().size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 2, 2, 1}));
}

TEST_F(GEO_VolumeTest, ResettingTheVolumesOfAShellTakesItOutOfThemAll)
{
    mVolume->addToShells(*mShell);
    mVolume->addToShells(*mSecond);
    mOther->addToShells(*mShell);
    mShell->resetVolumes();
    EXPECT_EQ(mShell->getVolumes().size(), 0UL);
    EXPECT_EQ(counts(), (Counts{2, 1, 1, 2}));
}

TEST_F(GEO_VolumeTest, AShellHeldByItsVolumesAloneGoesWhenItIsTakenOutOfThem)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    {
        const COM_Scoped polygon(GEO_Polygon::New());
        polygon->cat(*vertex);
        mVolume->addToShells(*polygon);
        mOther->addToShells(*polygon);
    }
    EXPECT_EQ(vertex->getNumberOfCurves(), 1UL);
    mVolume->getShells()[0].resetVolumes();
    EXPECT_EQ(mVolume->getShells().size(), 0UL);
    EXPECT_EQ(mOther->getShells().size(), 0UL);
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1, 1}));
}

TEST_F(GEO_VolumeTest, AVolumeKeepsItsShellsButAShellNotItsVolumes)
{
    const COM_Scoped vertex(GEO_Vertex::New(5));
    {
        const COM_Scoped volume(GEO_Volume::New());
        {
            const COM_Scoped polygon(GEO_Polygon::New());
            polygon->cat(*vertex);
            volume->addToShells(*polygon);
        }
        volume->addToShells(*mShell);
        EXPECT_EQ(volume->getReferenceCount(), 3);
        EXPECT_EQ(vertex->getNumberOfCurves(), 1UL);
    }
    EXPECT_EQ(vertex->getNumberOfCurves(), 0UL);
    EXPECT_EQ(vertex->getReferenceCount(), 1);
    EXPECT_EQ(mShell->getVolumes().size(), 0UL);
    EXPECT_EQ(mShell->getReferenceCount(), 1);
}

TEST_F(GEO_VolumeTest, AVolumeThatGoesWithAWholeMeshFreesItsNumbers)
{
    {
        const COM_Scoped volume(GEO_Volume::New());
        {
            const COM_Scoped polygon(GEO_DelaunayPolygon::New());
            for (long i = 0; i < 5; ++i) {
                append(*polygon, i, static_cast<double>(i), 0.0);
            }
            volume->addToShells(*polygon);
        }
        EXPECT_NE(GEO_Vertex::get(4), nullptr);
        EXPECT_TRUE(volume->getShells()[0].instanceOf("GEO_Polygon"));
    }
    for (unsigned long i = 0; i < 5; ++i) {
        EXPECT_EQ(GEO_Vertex::get(i), nullptr) << i;
    }
}

TEST_F(GEO_VolumeTest, AChangeOfAVertexReachesTheVolume)
{
    const COM_Scoped volume(CountingVolume::New());
    append(*mShell, 0, 0.0, 0.0);
    append(*mShell, 1, 1.0, 0.0);
    volume->addToShells(*mShell);
    volume->mChanges = 0;
    mShell->stateChanged();
    EXPECT_EQ(volume->mChanges, 1);
    GEO_Vertex::get(1)->setLocation(2.0, 0.0);
    EXPECT_EQ(volume->mChanges, 2);
}

TEST_F(GEO_VolumeTest, TheBoxHoldsTheBoxesOfAllShells)
{
    append(*mShell, 0, 1.0, 2.0);
    append(*mShell, 1, 3.0, 5.0);
    append(*mSecond, 2, 4.0, -1.0);
    append(*mSecond, 3, 2.0, 1.0);
    mVolume->addToShells(*mShell);
    mVolume->addToShells(*mSecond);
    const COM_Scoped box(GEO_Box::New());
    mVolume->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), " Min:(1.000000e+00,-1.000000e+00)\n"
                               " Max:(4.000000e+00,5.000000e+00)\n");
}

TEST_F(GEO_VolumeTest, WithoutShellsTheBoxStaysAsItIs)
{
    const COM_Scoped box(GEO_Box::New());
    box->setTo(7.0);
    const std::string before = box->toString();
    mVolume->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), before);
}

TEST_F(GEO_VolumeTest, AnEmptyShellDoesNotDrawTheBoxToTheOrigin)
{
    append(*mShell, 0, 1.0, 2.0);
    append(*mShell, 1, 3.0, 5.0);
    const COM_Scoped one(GEO_Polygon::New());
    append(*one, 2, 9.0, 9.0); // a chain of one vertex has no box either
    mVolume->addToShells(*mSecond);
    mVolume->addToShells(*mShell);
    mVolume->addToShells(*one);
    const COM_Scoped box(GEO_Box::New());
    mVolume->computeBoundingBox(*box);
    EXPECT_EQ(box->toString(), " Min:(1.000000e+00,2.000000e+00)\n"
                               " Max:(3.000000e+00,5.000000e+00)\n");
}
