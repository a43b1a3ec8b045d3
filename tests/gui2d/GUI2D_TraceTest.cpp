#include "gui2d/GUI2D_Trace.h"

#include "gui2d/GUI2D_Clip.h"
#include "gui2d/GUI2D_Layer.h"

#include <QImage>
#include <QPainter>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr QRgb ink = 0xffb00020;

struct Data
{
    std::vector<double> mX;
    std::vector<double> mY;

    void add(double x, double y)
    {
        mX.push_back(x);
        mY.push_back(y);
    }
    GUI2D_Trace trace() const { return {mX.data(), mY.data(), mX.size()}; }
};

/// A view of `width` by `height` pixels with margins around it.
GUI2D_Mapping viewOf(double xMin, double xMax, double yMin, double yMax, int width, int height)
{
    GUI2D_Mapping view;
    view.mOriginX = xMin;
    view.mOriginY = yMax;
    view.mWidth = xMax - xMin;
    view.mHeight = yMax - yMin;
    view.mScaleX = width / view.mWidth;
    view.mScaleY = height / view.mHeight;
    view.mGraphicsOrigin = QPoint(7, 5);
    return view;
}

QImage blank(int width, int height)
{
    QImage image(width + 20, height + 20, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    return image;
}

/// Each segment drawn by itself.
QImage drawnPlainly(const Data& data, const GUI2D_Mapping& view, int width, int height)
{
    QImage image = blank(width, height);
    QPainter painter(&image);
    painter.setPen(QPen(QColor(ink), 0));
    const auto point = [&](std::size_t i) {
        return view.point(view.modelX(data.mX[i]), view.modelY(data.mY[i]));
    };
    for (std::size_t i = 1; i < data.mX.size(); ++i) {
        for (const QLine& line : GUI2D_Clip::clip(view, point(i - 1), point(i))) {
            painter.drawLine(line);
        }
    }
    return image;
}

QImage drawnByTrace(GUI2D_Trace& trace, const GUI2D_Mapping& view, int width, int height)
{
    QImage image = blank(width, height);
    GUI2D_Layer::drawLines(image, trace.lines(view, width, height), ink);
    return image;
}

int inkedPixels(const QImage& image)
{
    int number = 0;
    for (int y = 0; y < image.height(); ++y) {
        const auto* const line = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        number += static_cast<int>(std::count(line, line + image.width(), ink));
    }
    return number;
}

void expectEqualPictures(const Data& data, GUI2D_Trace& trace, const GUI2D_Mapping& view, int width,
                         int height)
{
    const QImage plain = drawnPlainly(data, view, width, height);
    const QImage traced = drawnByTrace(trace, view, width, height);
    ASSERT_EQ(plain, traced) << inkedPixels(plain) << " pixels became " << inkedPixels(traced);
}

/// The whole, parts of it, and views beyond it.
void expectEqualInManyViews(const Data& data, unsigned seed)
{
    GUI2D_Trace trace = data.trace();
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> place(-0.1, 1.1);
    double xLow = infinity;
    double xHigh = -infinity;
    double yLow = infinity;
    double yHigh = -infinity;
    for (std::size_t i = 0; i < data.mX.size(); ++i) {
        if (std::isfinite(data.mX[i]) && std::isfinite(data.mY[i])) {
            xLow = std::min(xLow, data.mX[i]);
            xHigh = std::max(xHigh, data.mX[i]);
            yLow = std::min(yLow, data.mY[i]);
            yHigh = std::max(yHigh, data.mY[i]);
        }
    }
    const auto x = [&](double t) { return xLow + t * (xHigh - xLow); };
    const auto y = [&](double t) { return yLow + t * (yHigh - yLow); };
    {
        SCOPED_TRACE("whole");
        const GUI2D_Mapping whole = viewOf(x(0.0), x(1.0), y(0.0), y(1.0), 211, 130);
        expectEqualPictures(data, trace, whole, 211, 130);
        EXPECT_GT(inkedPixels(drawnByTrace(trace, whole, 211, 130)), 0);
    }
    for (int i = 0; i < 12; ++i) {
        SCOPED_TRACE(i);
        std::array<double, 4> t{place(random), place(random), place(random), place(random)};
        std::sort(t.begin(), t.begin() + 2);
        std::sort(t.begin() + 2, t.end());
        const GUI2D_Mapping part = viewOf(x(t[0]), x(t[1]), y(t[2]), y(t[3]), 173, 97);
        expectEqualPictures(data, trace, part, 173, 97);
    }
    GUI2D_Mapping turned = viewOf(x(0.2), x(0.9), y(0.1), y(0.7), 150, 90);
    turned.mXadim = 0.01;
    turned.mYadim = 100.0;
    turned.mOriginX /= turned.mXadim;
    turned.mWidth /= turned.mXadim;
    turned.mScaleX *= turned.mXadim;
    turned.mOriginY /= turned.mYadim;
    turned.mHeight /= turned.mYadim;
    turned.mScaleY *= turned.mYadim;
    {
        SCOPED_TRACE("adimensioned");
        expectEqualPictures(data, trace, turned, 150, 90);
    }
    SCOPED_TRACE("reversed");
    GUI2D_Mapping reversed = viewOf(x(0.1), x(0.8), y(0.2), y(0.9), 150, 90);
    reversed.mXDirection = -1;
    reversed.mYDirection = 1;
    reversed.mGraphicsOrigin = QPoint(157, 95);
    expectEqualPictures(data, trace, reversed, 150, 90);
}

} // namespace

TEST(GUI2D_Trace, WavesLookAsIfEachSegmentWereDrawn)
{
    for (const int points : {2, 3, 17, 300, 5000, 40000}) {
        SCOPED_TRACE(points);
        Data data;
        for (int i = 0; i < points; ++i) {
            data.add(1e-15 * i, 4e9 * std::sin(0.7 * i) * std::exp(-1e-4 * i));
        }
        expectEqualInManyViews(data, points);
    }
}

TEST(GUI2D_Trace, NoiseLooksAsIfEachSegmentWereDrawn)
{
    std::mt19937 random(5);
    std::normal_distribution<double> noise;
    Data data;
    for (int i = 0; i < 30000; ++i) {
        data.add(i, noise(random));
    }
    expectEqualInManyViews(data, 1);
}

TEST(GUI2D_Trace, LonelySpikesStandOut)
{
    std::mt19937 random(8);
    Data data;
    for (int i = 0; i < 30000; ++i) {
        data.add(i, random() % 700 == 0 ? 1.0 * (random() % 100) - 50.0 : 0.0);
    }
    expectEqualInManyViews(data, 2);
}

TEST(GUI2D_Trace, StepsInXOfZeroAndGapsAreDrawn)
{
    std::mt19937 random(9);
    Data data;
    double x = 0.0;
    for (int i = 0; i < 8000; ++i) {
        x += random() % 3 == 0 ? 0.0 : 1.0 * (random() % 5);
        x += random() % 1000 == 0 ? 3000.0 : 0.0;
        data.add(x, 1.0 * (random() % 1000));
    }
    expectEqualInManyViews(data, 3);
}

TEST(GUI2D_Trace, CurvesThatTurnBackLookAsIfEachSegmentWereDrawn)
{
    std::mt19937 random(10);
    std::uniform_real_distribution<double> any(-1.0, 1.0);
    Data scattered;
    Data spiral;
    Data falling;
    for (int i = 0; i < 3000; ++i) {
        scattered.add(any(random), any(random));
        spiral.add(0.001 * i * std::cos(0.02 * i), 0.001 * i * std::sin(0.02 * i));
        falling.add(-i, any(random));
    }
    expectEqualInManyViews(scattered, 4);
    expectEqualInManyViews(spiral, 5);
    expectEqualInManyViews(falling, 6);
}

TEST(GUI2D_Trace, WhatIsNotFiniteLeavesAGap)
{
    std::mt19937 random(11);
    std::normal_distribution<double> noise;
    for (const double hole : {notANumber, infinity, -infinity}) {
        Data inY;
        Data inX;
        for (int i = 0; i < 20000; ++i) {
            const bool isHole = random() % 500 == 0 || (i > 8000 && i < 9000);
            inY.add(i, isHole ? hole : noise(random));
            inX.add(isHole ? hole : i, noise(random));
        }
        expectEqualInManyViews(inY, 7);
        expectEqualInManyViews(inX, 8);
    }
}

TEST(GUI2D_Trace, NothingButWhatIsNotFiniteDrawsNothing)
{
    Data data;
    data.add(0.0, notANumber);
    data.add(1.0, notANumber);
    data.add(2.0, infinity);
    GUI2D_Trace trace = data.trace();
    EXPECT_TRUE(trace.lines(viewOf(0.0, 2.0, -1.0, 1.0, 50, 50), 50, 50).empty());
}

TEST(GUI2D_Trace, OnePointOrNoneDrawsNothing)
{
    Data one;
    one.add(0.5, 0.5);
    GUI2D_Trace point = one.trace();
    EXPECT_TRUE(point.lines(viewOf(0.0, 1.0, 0.0, 1.0, 50, 50), 50, 50).empty());
    GUI2D_Trace none;
    EXPECT_TRUE(none.lines(viewOf(0.0, 1.0, 0.0, 1.0, 50, 50), 50, 50).empty());
}

TEST(GUI2D_Trace, AViewWithoutSizeDrawsNoMoreThanAPoint)
{
    Data data;
    for (int i = 0; i < 100; ++i) {
        data.add(i, i % 7);
    }
    GUI2D_Trace trace = data.trace();
    GUI2D_Mapping view = viewOf(0.0, 99.0, 0.0, 6.0, 100, 100);
    view.mScaleX = 0.0;
    view.mScaleY = 0.0;
    expectEqualPictures(data, trace, view, 0, 0);
}

TEST(GUI2D_Trace, AMillionPointsInsideTheViewBecomeAFewLinesAColumn)
{
    Data data;
    for (int i = 0; i < 1000000; ++i) {
        data.add(i, std::sin(0.1 * i));
    }
    GUI2D_Trace trace = data.trace();
    const int width = 800;
    EXPECT_LE(trace.lines(viewOf(0.0, 999999.0, -1.0, 1.0, width, 500), width, 500).size(),
              2U * width + 2U);
}

TEST(GUI2D_Trace, EachHasANumberOfItsOwn)
{
    Data data;
    data.add(0.0, 0.0);
    EXPECT_NE(data.trace().getId(), data.trace().getId());
    EXPECT_NE(data.trace().getId(), GUI2D_Trace().getId());
}
