#include "geometry/GEO_Pairs.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Vertex.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

/// Lines from the vertex 100 to those of greater and smaller numbers: chains that branch.
class Star
{
public:
    Star()
    {
        for (long i = 1; i <= 4; ++i) {
            mEnds.push_back(GEO_Vertex::New(100 + (i % 2 == 0 ? -i : i)));
            mLines.push_back(GEO_Line::New(*mCentre, *mEnds.back()));
        }
    }
    ~Star()
    {
        for (std::size_t i = 0; i < mLines.size(); ++i) {
            remove(i);
            mEnds[i]->Delete();
        }
    }
    Star(const Star&) = delete;
    Star& operator=(const Star&) = delete;

    GEO_Vertex& centre() { return *mCentre; }
    GEO_Vertex& end(std::size_t i) { return *mEnds[i]; }
    GEO_Line* line(std::size_t i) { return mLines[i]; }
    std::size_t size() const { return mLines.size(); }
    void remove(std::size_t i)
    {
        if (mLines[i] != nullptr) {
            mLines[i]->Delete();
            mLines[i] = nullptr;
        }
    }
    void expectEachFound()
    {
        for (std::size_t i = 0; i < size(); ++i) {
            EXPECT_EQ(GEO_Curve::get(*mCentre, end(i)), line(i)) << i;
            EXPECT_EQ(GEO_Curve::get(end(i), *mCentre), line(i)) << i;
        }
    }

private:
    const COM_Scoped<GEO_Vertex> mCentre{GEO_Vertex::New(100)};
    std::vector<GEO_Vertex*> mEnds;
    std::vector<GEO_Line*> mLines; ///< Null: gone.
};

TEST(GEO_Pairs, EachCurveOfABranchIsFoundInBothDirections)
{
    Star star;
    star.expectEachFound();
    EXPECT_EQ(GEO_Curve::get(star.end(0), star.end(1)), nullptr);
}

TEST(GEO_Pairs, ACurveThatGoesLeavesTheOthersOfTheBranch)
{
    for (std::size_t i = 0; i < 4; ++i) {
        Star star;
        star.remove(i);
        star.expectEachFound();
        const COM_Scoped again(GEO_Line::New(star.end(i), star.centre()));
        EXPECT_EQ(GEO_Curve::get(star.centre(), star.end(i)), again.get());
    }
}

TEST(GEO_Pairs, AVertexWithAnotherNumberTakesItsCurvesAlong)
{
    Star star;
    EXPECT_TRUE(star.centre().setLocationNumber(1));
    star.expectEachFound();
    EXPECT_TRUE(star.centre().setLocationNumber(1000));
    star.expectEachFound();
    EXPECT_TRUE(star.end(2).setLocationNumber(-1));
    EXPECT_EQ(GEO_Curve::get(star.centre(), star.end(2)), nullptr);
    EXPECT_TRUE(star.end(2).setLocationNumber(7));
    star.expectEachFound();
}

TEST(GEO_Pairs, TheCurveThatCameLastHasThePairUntilItGoes)
{
    const COM_Scoped a(GEO_Vertex::New(1));
    const COM_Scoped b(GEO_Vertex::New(2));
    const COM_Scoped line(GEO_Line::New());
    line->setStartingVertex(*a);
    line->setEndingVertex(*b);
    EXPECT_EQ(GEO_Curve::get(*a, *b), line.get());
    {
        const COM_Scoped second(GEO_Line::New());
        second->setStartingVertex(*b);
        second->setEndingVertex(*a);
        EXPECT_EQ(GEO_Curve::get(*a, *b), second.get());
        line->resetEndingVertex();
        EXPECT_EQ(GEO_Curve::get(*a, *b), second.get());
        line->setEndingVertex(*b);
        EXPECT_EQ(GEO_Curve::get(*a, *b), line.get());
    }
    EXPECT_EQ(GEO_Curve::get(*a, *b), line.get());
    EXPECT_EQ(line->getPair(), GEO_Pairs::Pair(1, 2));
}

} // namespace
