#include "gui2d/GUI2D_Layer.h"

#include "gui2d/GUI2D_Trace.h"

#include <QPainter>
#include <QPicture>

#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace {

constexpr QRgb red = 0xffff0000;
constexpr QRgb blue = 0xff0000ff;
constexpr int width = 120;
constexpr int height = 80;
constexpr int wide = 20; ///< Of the pictures for single lines.
constexpr int tall = 1400;

/// A wave of some hundred points, and the part of it that a panel shows.
class GUI2D_LayerTest : public testing::Test
{
protected:
    GUI2D_LayerTest()
    {
        for (int i = 0; i < 400; ++i) {
            mX.push_back(i);
            mY.push_back(std::sin(0.1 * i));
            mOther.push_back(std::cos(0.1 * i));
        }
        mMapping.mOriginX = 10.0;
        mMapping.mWidth = 350.0;
        mMapping.mOriginY = 0.9;
        mMapping.mHeight = 1.8;
        mMapping.mScaleX = 100.0 / mMapping.mWidth;
        mMapping.mScaleY = 60.0 / mMapping.mHeight;
        mMapping.mGraphicsOrigin = QPoint(10, 8);
        mWave = GUI2D_Trace(mX.data(), mY.data(), mX.size());
        mOtherWave = GUI2D_Trace(mX.data(), mOther.data(), mX.size());
    }
    QImage painted(GUI2D_Layer& layer, const std::vector<GUI2D_Layer::Curve>& curves,
                   double ratio) const
    {
        QImage image(QSize(width, height) * ratio, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::white);
        QPainter painter(&image);
        layer.paint(painter, mMapping, QSize(width, height), curves);
        painter.end();
        image.setDevicePixelRatio(1.0);
        return image;
    }
    /// The lines of the curves, drawn one by one at the resolution of the picture.
    QImage expected(const std::vector<GUI2D_Layer::Curve>& curves, double ratio) const
    {
        const QSize size = QSize(width, height) * ratio;
        QImage image(size, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QPainter painter(&image);
        for (const GUI2D_Layer::Curve& curve : curves) {
            painter.setPen(QPen(QColor(curve.mColor), 0));
            for (const QLine& line :
                 curve.mTrace->lines(mMapping.scaled(ratio), size.width(), size.height())) {
                painter.drawLine(line);
            }
        }
        return image;
    }

    /// Expects the lines to be drawn as a painter draws them one by one.
    static void expectPlain(const std::vector<QLine>& lines)
    {
        QImage image(wide, tall, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        QImage plain = image;
        GUI2D_Layer::drawLines(image, lines, blue);
        QPainter painter(&plain);
        painter.setPen(QPen(QColor(blue), 0));
        for (const QLine& line : lines) {
            painter.drawLine(line);
        }
        painter.end();
        EXPECT_EQ(image, plain);
    }

    std::vector<double> mX;
    std::vector<double> mY;
    std::vector<double> mOther;
    GUI2D_Mapping mMapping;
    GUI2D_Trace mWave;
    GUI2D_Trace mOtherWave;
};

} // namespace

TEST_F(GUI2D_LayerTest, PaintsTheLinesAtTheResolutionOfTheScreen)
{
    for (const double ratio : {1.0, 1.5, 2.0, 3.0}) {
        GUI2D_Layer layer;
        const std::vector<GUI2D_Layer::Curve> curves{{&mWave, red}, {&mOtherWave, blue}};
        EXPECT_EQ(painted(layer, curves, ratio), expected(curves, ratio)) << ratio;
        // The picture that is kept looks the same.
        EXPECT_EQ(painted(layer, curves, ratio), expected(curves, ratio)) << ratio;
    }
}

TEST_F(GUI2D_LayerTest, FollowsWhatIsChanged)
{
    GUI2D_Layer layer;
    const std::vector<GUI2D_Layer::Curve> one{{&mWave, red}};
    const std::vector<GUI2D_Layer::Curve> two{{&mWave, red}, {&mOtherWave, blue}};
    const std::vector<GUI2D_Layer::Curve> turned{{&mOtherWave, blue}, {&mWave, red}};
    const std::vector<GUI2D_Layer::Curve> recoloured{{&mWave, blue}};
    for (const auto& curves : {one, two, turned, recoloured, {}, one}) {
        EXPECT_EQ(painted(layer, curves, 1.0), expected(curves, 1.0));
    }
    EXPECT_NE(painted(layer, two, 1.0), painted(layer, turned, 1.0));
    mMapping.mOriginX += 30.0;
    EXPECT_EQ(painted(layer, one, 1.0), expected(one, 1.0));
    EXPECT_EQ(painted(layer, one, 2.0), expected(one, 2.0));
}

TEST_F(GUI2D_LayerTest, NewPointsAreAnotherTrace)
{
    GUI2D_Layer layer;
    const QImage before = painted(layer, {{&mWave, red}}, 1.0);
    mY.assign(mY.size(), 0.25);
    mWave = GUI2D_Trace(mX.data(), mY.data(), mX.size());
    const QImage after = painted(layer, {{&mWave, red}}, 1.0);
    EXPECT_NE(after, before);
    EXPECT_EQ(after, expected({{&mWave, red}}, 1.0));
}

TEST_F(GUI2D_LayerTest, GivesTheLinesToADeviceWithoutPixels)
{
    GUI2D_Layer layer;
    QPicture record;
    {
        QPainter painter(&record);
        layer.paint(painter, mMapping, QSize(width, height), {{&mWave, red}});
    }
    QImage image(width, height, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    QPainter(&image).drawPicture(0, 0, record);
    EXPECT_EQ(image, expected({{&mWave, red}}, 1.0));
}

TEST_F(GUI2D_LayerTest, LinesBeyondThePictureAreCut)
{
    const std::vector<QLine> lines{QLine(-1, 2, -1, 5),     QLine(3, -7, 3, tall + 9),
                                   QLine(wide, 0, wide, 9), QLine(5, 4, 5, 2),
                                   QLine(0, 9, 19, 0),      QLine(7, tall + 3, 7, tall + 7)};
    expectPlain(lines);
}

TEST_F(GUI2D_LayerTest, LinesToTheNextColumnAreThoseOfAPainter)
{
    for (const int y : {0, tall / 2, tall - 14}) {
        for (int dy = -y; dy < tall - y; ++dy) {
            for (const int dx : {-2, -1, 1, 2}) {
                SCOPED_TRACE(testing::Message() << y << " " << dx << " " << dy);
                expectPlain({QLine(10, y, 10 + dx, y + dy)});
                if (HasFailure()) {
                    return;
                }
            }
        }
    }
    // Half on the picture.
    expectPlain({QLine(0, 5, -1, 90)});
    expectPlain({QLine(wide - 1, 5, wide, 90)});
    expectPlain({QLine(4, -30, 5, 90), QLine(8, tall - 10, 7, tall + 40)});
}
