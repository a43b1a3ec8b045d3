#include "gui2d/GUI2D_CaptorCurves.h"

#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Plotter.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/EnglishTexts.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;
using Values = std::vector<double>;

class GUI2D_CaptorCurvesTest : public testing::Test
{
protected:
    const GUI2D_Curve& curve(unsigned long i) const { return mPlotter->getCurves()[i]; }
    Texts names() const
    {
        Texts texts;
        for (unsigned long i = 0; i < mPlotter->getPlotsNumber(); ++i) {
            texts.push_back(curve(i).getName());
        }
        return texts;
    }
    /// Red, green and blue of a curve.
    std::vector<int> color(unsigned long i) const
    {
        const COM_Color& color = *curve(i).getColor();
        return {color.getRed(), color.getGreen(), color.getBlue()};
    }
    Values y(unsigned long i) const
    {
        const LA_RealVector& values = *curve(i).getYValues();
        return {values.getValues(), values.getValues() + values.getDimension()};
    }

    const EnglishTexts mEnglish;
    const COM_Scoped<GUI2D_Plotter> mPlotter{GUI2D_Plotter::New()};
    const Values mSeconds{0.0, 1e-15, 2e-15};
};

} // namespace

TEST_F(GUI2D_CaptorCurvesTest, TextsOfThePlotAreThoseOfWhatItShows)
{
    GUI2D_CaptorCurves curves(*mPlotter, 2);
    EXPECT_EQ(mPlotter->getTitle(), "Quorvex Solutions");
    EXPECT_EQ(mPlotter->getXLabel(), "Times");
    EXPECT_EQ(mPlotter->getYLabel(), "");
    curves.addFields(0, mSeconds, {{1.0, 2.0, 3.0}}, {{"Ex", 0}});
    EXPECT_EQ(mPlotter->getYLabel(), "E Fields");
    curves.addDensity(0, {0, 1, 0, 0, 2}, mSeconds, {1.0, 1.0, 1.0});
    curves.addDensity(1, {0, 1, 0, 0, 2}, mSeconds, {1.0, 1.0, 1.0});
    curves.addFields(1, mSeconds, {{1.0, 2.0, 3.0}}, {{"Ex", 0}});
    EXPECT_EQ(mPlotter->getYLabel(), "E Fields Rho Fields");
}

TEST_F(GUI2D_CaptorCurvesTest, DensitiesAloneNameTheirAxis)
{
    GUI2D_CaptorCurves curves(*mPlotter, 1);
    curves.addDensity(0, {0, 1, 1, 1, 2}, mSeconds, {0.0, 0.5, 1.0});
    EXPECT_EQ(mPlotter->getYLabel(), "Rho Fields");
}

TEST_F(GUI2D_CaptorCurvesTest, FieldsGoFromRedToBlueFromCaptorToCaptor)
{
    GUI2D_CaptorCurves curves(*mPlotter, 2);
    const std::vector<Values> columns{{1.0, 2.0, 3.0}, {4.0, 5.0, 6.0}};
    curves.addFields(0, mSeconds, columns, {{"Ex", 0}, {"Ey", 1}, {"Ez", 1}});
    curves.addFields(1, mSeconds, columns, {{"Ey", 1}});
    EXPECT_EQ(names(),
              (Texts{"Ex at Captor 1", "Ey at Captor 1", "Ez at Captor 1", "Ey at Captor 2"}));
    for (const unsigned long i : {0UL, 1UL, 2UL}) {
        EXPECT_EQ(color(i), (std::vector<int>{255, 0, 0})) << i;
    }
    EXPECT_EQ(color(3), (std::vector<int>{127, 0, 127}));
    EXPECT_EQ(y(0), columns[0]);
    EXPECT_EQ(y(2), columns[1]);
}

TEST_F(GUI2D_CaptorCurvesTest, AColumnThatIsNotThereGivesACurveWithoutPoints)
{
    GUI2D_CaptorCurves curves(*mPlotter, 1);
    curves.addFields(0, mSeconds, {}, {{"Ex", 0}});
    ASSERT_EQ(mPlotter->getPlotsNumber(), 1UL);
    EXPECT_EQ(curve(0).getPointsNumber(), 0UL);
}

TEST_F(GUI2D_CaptorCurvesTest, TheColourOfADensityTellsElementSystemAndCaptor)
{
    GUI2D_CaptorCurves curves(*mPlotter, 4);
    curves.addDensity(0, {0, 2, 0, 1, 3}, mSeconds, {1.0, 2.0, 3.0});
    curves.addDensity(3, {1, 2, 2, 2, 3}, mSeconds, {4.0, 5.0, 6.0});
    EXPECT_EQ(names(),
              (Texts{"Bloch Eq:0 Rho[0][1] at Captor 1", "Bloch Eq:1 Rho[2][2] at Captor 4"}));
    EXPECT_EQ(color(0), (std::vector<int>{1, 1, 1}));
    EXPECT_EQ(color(1), (std::vector<int>{113, 128, 191})); // 1 + 254 * 4/9, 1/2 and 3/4
    EXPECT_EQ(y(1), (Values{4.0, 5.0, 6.0}));
}

TEST_F(GUI2D_CaptorCurvesTest, NormalizationDividesTheFieldsByTheGreatestOfAllColumns)
{
    GUI2D_CaptorCurves curves(*mPlotter, 2);
    curves.addFields(0, mSeconds, {{1.0, -2.0, 3.0}, {0.0, -8.0, 1.0}}, {{"Ex", 0}});
    curves.addDensity(0, {0, 1, 0, 0, 2}, mSeconds, {1.0, 0.5, 0.25});
    curves.addFields(1, mSeconds, {{4.0, 0.0, 0.0}, {1.0, 1.0, 1.0}}, {{"Ey", 1}});
    curves.normalize();
    EXPECT_EQ(y(0), (Values{0.125, -0.25, 0.375}));
    EXPECT_EQ(y(1), (Values{1.0, 0.5, 0.25}));
    EXPECT_EQ(y(2), (Values{0.125, 0.125, 0.125}));
    EXPECT_EQ(mPlotter->getTitle(), "Quorvex Solutions (E Normalized by 8.000000e+00)");
}

TEST_F(GUI2D_CaptorCurvesTest, WithoutFieldsThereIsNothingToNormalize)
{
    GUI2D_CaptorCurves curves(*mPlotter, 1);
    curves.addDensity(0, {0, 1, 0, 0, 2}, mSeconds, {1.0, 0.5, 0.25});
    curves.normalize();
    EXPECT_EQ(y(0), (Values{1.0, 0.5, 0.25}));
    EXPECT_EQ(mPlotter->getTitle(), "Quorvex Solutions");
}
