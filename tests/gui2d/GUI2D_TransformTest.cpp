#include "gui2d/GUI2D_Transform.h"

#include "gui2d/TestPlot.h"
#include "linearAlgebra/LA_RealVector.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <numbers>

namespace {

using Values = std::vector<double>;

struct Points
{
    Values mX;
    Values mY;
};

Values valuesOf(const LA_RealVector& v)
{
    return {v.getValues(), v.getValues() + v.getDimension()};
}

Points applied(const GUI2D_Transform& transform, const Values& x, const Values& y)
{
    const COM_Scoped xs(LA_RealVector::New(0UL));
    const COM_Scoped ys(LA_RealVector::New(0UL));
    xs->setValues(x);
    ys->setValues(y);
    transform.apply(*xs, *ys);
    return {valuesOf(*xs), valuesOf(*ys)};
}

/// The moduli of the discrete Fourier transform, by its sum.
Values spectrum(const Values& values)
{
    const std::size_t n = values.size();
    Values moduli;
    for (std::size_t k = 0; k < n; ++k) {
        std::complex<double> sum;
        for (std::size_t m = 0; m < n; ++m) {
            sum += values[m]
                   * std::polar(1.0, 2.0 * std::numbers::pi * static_cast<double>(m * k % n)
                                         / static_cast<double>(n));
        }
        moduli.push_back(std::abs(sum));
    }
    return moduli;
}

Values centred(Values values)
{
    std::rotate(values.begin(), values.begin() + static_cast<long>(values.size() / 2),
                values.end());
    return values;
}

void expectNear(const Values& values, const Values& expected)
{
    ASSERT_EQ(values.size(), expected.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        EXPECT_NEAR(values[i], expected[i], 1e-12) << i; // a few roundings of numbers near 10
    }
}

const Values sawtooth{1.0, -2.0, 3.0, 0.5, 4.0, -1.0, 2.5, 6.0};
const Values ramp{0.0, 0.5, 1.0, 1.5, 2.0, 2.5, 3.0, 3.5};

} // namespace

TEST(GUI2D_Transform, OfYPutsItsFrequenciesOnX)
{
    const Points points =
        applied({.mIsFFTY = true, .mPower = 3, .mPeriodX = 0.5, .mPeriodY = 7.0}, ramp, sawtooth);
    expectNear(points.mY, centred(spectrum(sawtooth)));
    const double step = 2.0 * std::numbers::pi / (8.0 * 0.5);
    expectNear(points.mX,
               {-4.0 * step, -3.0 * step, -2.0 * step, -step, 0.0, step, 2.0 * step, 3.0 * step});
}

TEST(GUI2D_Transform, OfXPutsItsFrequenciesOnY)
{
    const Points points =
        applied({.mIsFFTX = true, .mPower = 3, .mPeriodX = 7.0, .mPeriodY = 0.25}, sawtooth, ramp);
    expectNear(points.mX, centred(spectrum(sawtooth)));
    const double step = 2.0 * std::numbers::pi / (8.0 * 0.25);
    expectNear(points.mY,
               {-4.0 * step, -3.0 * step, -2.0 * step, -step, 0.0, step, 2.0 * step, 3.0 * step});
}

TEST(GUI2D_Transform, TakesTheLastValuesAlone)
{
    const Points points = applied({.mIsFFTY = true, .mPower = 2}, ramp, sawtooth);
    expectNear(points.mY, centred(spectrum({4.0, -1.0, 2.5, 6.0})));
    EXPECT_EQ(points.mX.size(), 4U);
}

TEST(GUI2D_Transform, OfBothAxesMakesNoFrequencies)
{
    const Points points = applied({.mIsFFTX = true, .mIsFFTY = true, .mPower = 3}, ramp, sawtooth);
    expectNear(points.mX, spectrum(ramp));
    expectNear(points.mY, spectrum(sawtooth));
}

TEST(GUI2D_Transform, OfOneValueHasLengthOne)
{
    const Points points = applied({.mIsFFTY = true, .mPower = 0, .mPeriodX = 2.0}, {3.0}, {-5.0});
    expectNear(points.mY, {5.0});
    expectNear(points.mX, {-0.5 * 2.0 * std::numbers::pi / 2.0});
}

TEST(GUI2D_Transform, LogarithmsAreDecimal)
{
    const Points points = applied({.mIsLogX = true, .mIsLogY = true}, {1.0, 10.0}, {0.0, -100.0});
    expectNear(points.mX, {0.0, 1.0});
    expectNear(points.mY, {-50.0, 2.0}); // the floor, and the modulus
}

TEST(GUI2D_Transform, TheLogarithmFollowsTheFourierTransform)
{
    const Points points = applied({.mIsLogY = true, .mIsFFTY = true, .mPower = 3}, ramp, sawtooth);
    Values expected = centred(spectrum(sawtooth));
    for (double& value : expected) {
        value = std::log10(value);
    }
    expectNear(points.mY, expected);
    EXPECT_LT(points.mX.front(), 0.0); // the frequencies stay as they are
}

TEST(GUI2D_Transform, ALogarithmOfTheOtherAxisMeetsTheFrequencies)
{
    const Points points = applied({.mIsLogY = true, .mIsFFTX = true, .mPower = 3}, sawtooth, ramp);
    const double step = 2.0 * std::numbers::pi / 8.0;
    EXPECT_NEAR(points.mY[0], std::log10(4.0 * step), 1e-12);
    EXPECT_NEAR(points.mY[7], std::log10(3.0 * step), 1e-12);
}

TEST(GUI2D_Transform, APeriodOfZeroMakesAnInfiniteAxis)
{
    const Points points =
        applied({.mIsFFTY = true, .mPower = 1, .mPeriodX = 0.0}, {0.0, 1.0}, {1.0, 1.0});
    ASSERT_EQ(points.mX.size(), 2U);
    EXPECT_TRUE(std::isinf(points.mX[0]));
}

TEST(GUI2D_Transform, NothingLeavesEmptyVectorsAsTheyAre)
{
    const Points points = applied({.mIsLogX = true, .mIsFFTX = true, .mIsFFTY = true}, {}, {});
    EXPECT_TRUE(points.mX.empty());
    EXPECT_TRUE(points.mY.empty());
}

TEST(GUI2D_Transform, DescribesEachAxis)
{
    EXPECT_EQ(GUI2D_Transform{}.getDescription(), "");
    EXPECT_EQ((GUI2D_Transform{.mIsLogX = true}.getDescription()), "LOG(X)");
    EXPECT_EQ((GUI2D_Transform{.mIsFFTY = true}.getDescription()), "FFT(Y)");
    EXPECT_EQ((GUI2D_Transform{.mIsLogX = true, .mIsLogY = true, .mIsFFTX = true}.getDescription()),
              "LOG(FFT(X)) - LOG(Y)");
}

TEST(GUI2D_Transform, ShowsTheCurvesInANewWindow)
{
    const TestPlot plot;
    plot.add(ramp, sawtooth, "one");
    plot.add(ramp, ramp, "two");
    plot.curve(1).setShown(false);
    plot.plotter().setTitle("Title");
    plot.plotter().setXLabel("t");
    plot.plotter().setYLabel("E");
    plot->show();
    plot->move(30, 40);
    plot->setSize(500, 400);
    plot.plotter().transform(false, true, false, true, 3, 0.5, 1.0);

    const std::vector<GUI2D_PlotterWindow*> windows = plot.root().children<GUI2D_PlotterWindow>();
    ASSERT_EQ(windows.size(), 2U);
    GUI2D_PlotterWindow& result = *windows[1];
    EXPECT_EQ(result.getName(), "Quorvex Tools - LOG(FFT(Y))");
    EXPECT_EQ(result.getPlotter()->getTitle(), "Title - LOG(FFT(Y))");
    EXPECT_EQ(result.getPlotter()->getXLabel(), "t");
    EXPECT_EQ(result.getPlotter()->getYLabel(), "LOG(FFT(E))");
    EXPECT_TRUE(result.isVisible());
    EXPECT_EQ(result.pos(), plot->pos());
    EXPECT_EQ(result.size(), plot->size());
    ASSERT_EQ(result.getPlotsNumber(), 2U);
    const GUI2D_Curve& curve = result.getPlotter()->getCurves()[0];
    EXPECT_EQ(curve.getName(), "one");
    EXPECT_EQ(curve.getColor(), plot.curve(0).getColor());
    EXPECT_TRUE(curve.isShown());
    EXPECT_FALSE(result.getPlotter()->getCurves()[1].isShown());
    EXPECT_EQ(curve.getPointsNumber(), 8U);
    EXPECT_NEAR(curve.getXMin(), -4.0 * 2.0 * std::numbers::pi / (8.0 * 0.5), 1e-12);

    EXPECT_EQ(valuesOf(*plot.curve(0).getYValues()), sawtooth);
    EXPECT_EQ(plot.plotter().getTitle(), "Title");
    result.close(false);
}

TEST(GUI2D_Transform, TheLabelOfXIsWrappedInItsOwnTransforms)
{
    const TestPlot plot;
    plot.add(ramp, sawtooth);
    plot.plotter().setXLabel("t");
    plot.plotter().setYLabel("E");
    plot.plotter().transform(true, false, true, false, 3, 1.0, 1.0);
    const std::vector<GUI2D_PlotterWindow*> windows = plot.root().children<GUI2D_PlotterWindow>();
    ASSERT_EQ(windows.size(), 2U);
    EXPECT_EQ(windows[1]->getPlotter()->getXLabel(), "LOG(FFT(t))");
    EXPECT_EQ(windows[1]->getPlotter()->getYLabel(), "E");
    EXPECT_EQ(windows[1]->getPlotter()->getTitle(), "Title - LOG(FFT(X))");
}

TEST(GUI2D_Transform, WithoutAnyTheTitleStays)
{
    const TestPlot plot;
    plot.add({1.0}, {2.0});
    plot.curve(0).resetColor();
    plot.plotter().transform(false, false, false, false, 0, 1.0, 1.0);
    const std::vector<GUI2D_PlotterWindow*> windows = plot.root().children<GUI2D_PlotterWindow>();
    ASSERT_EQ(windows.size(), 2U);
    EXPECT_EQ(windows[1]->getName(), "Quorvex Tools");
    EXPECT_EQ(windows[1]->getPlotter()->getTitle(), "Title");
    EXPECT_EQ(valuesOf(*windows[1]->getPlotter()->getCurves()[0].getXValues()), Values{1.0});
}

TEST(GUI2D_Transform, IsDrawnOnAPlotterWithoutAWindow)
{
    const COM_Scoped source(GUI2D_Plotter::New());
    const COM_Scoped green(COM_Color::New(0, 255, 0));
    source->addPlot({1.0, 10.0}, {-100.0, 1000.0}, "one", *green);
    const COM_Scoped target(GUI2D_Plotter::New());
    GUI2D_Transform{.mIsLogX = true, .mIsLogY = true}.draw(*source, *target);
    EXPECT_EQ(target->getTitle(), "Title - LOG(X) - LOG(Y)");
    EXPECT_EQ(target->getXLabel(), "LOG(XLabel)");
    EXPECT_EQ(target->getYLabel(), "LOG(YLabel)");
    ASSERT_EQ(target->getPlotsNumber(), 1U);
    const GUI2D_Curve& curve = target->getCurves()[0];
    EXPECT_EQ(curve.getName(), "one");
    EXPECT_EQ(curve.getColor(), green.get());
    expectNear(valuesOf(*curve.getXValues()), {0.0, 1.0});
    expectNear(valuesOf(*curve.getYValues()), {2.0, 3.0});
    EXPECT_EQ(valuesOf(*source->getCurves()[0].getYValues()), (Values{-100.0, 1000.0}));
}
