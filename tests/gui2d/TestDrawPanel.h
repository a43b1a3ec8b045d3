#pragma once
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"
#include "gui2d/GUI2D_DrawPanel.h"
#include "support/Description.h"
#include "support/Printed.h"

#include <QImage>
#include <QPainter>
#include <QPixmap>

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// From now on the panel shows nothing but what `paintElements` draws, and legends.
inline void printNothing(GUI2D_DrawPanel& panel)
{
    panel.printGrid(false);
    panel.printAxes(false);
    panel.printTitle(false);
    panel.printXLabel(false);
    panel.printYLabel(false);
    panel.printScale(false);
}

/// A panel of known extent that paints what a test tells it to.
class TestDrawPanel : public GUI2D_DrawPanel
{
    COM_CLASS(TestDrawPanel)
public:
    void computeBoundingBox(GEO_Box& box) const override
    {
        const COM_Scoped p(GEO_Point::New(mXMin, mYMin));
        const COM_Scoped q(GEO_Point::New(mXMax, mYMax));
        box.setTo(*p, *q);
    }
    void paintElements() override
    {
        ++mPasses;
        if (mPaint) {
            mPaint();
        }
    }
    void paintElementsInPanels() override
    {
        if (mPaintInPanels) {
            mPaintInPanels();
        }
    }
    void setExtent(double xMin, double yMin, double xMax, double yMax)
    {
        mXMin = xMin;
        mYMin = yMin;
        mXMax = xMax;
        mYMax = yMax;
    }
    void printNothing() { ::printNothing(*this); }
    /// Of the paint that is under way.
    QTransform getPainterTransform() const { return getPainter()->worldTransform(); }
    using GUI2D_DrawPanel::getFontHeight;
    using GUI2D_DrawPanel::getTextWidth;
    using GUI2D_DrawPanel::requestPass;
    using GUI2D_DrawPanel::setWestWidth;

    int mPasses = 0; ///< Of all paints.
    std::function<void()> mPaint;
    std::function<void()> mPaintInPanels;

protected:
    TestDrawPanel()
        : TestDrawPanel(nullptr)
    {}
    explicit TestDrawPanel(GUI_ParentPanel* parent)
        : GUI2D_DrawPanel(parent)
    {
        COM_TYPE(TestDrawPanel);
    }
    ~TestDrawPanel() override = default;

private:
    double mXMin = 0.0;
    double mYMin = 0.0;
    double mXMax = 8.0;
    double mYMax = 4.0;
};

/// What the panel shows, painted by a real paint event.
inline QImage pictureOf(QWidget& panel)
{
    return panel.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

/// A picture that a test paints itself, pixel by pixel, to hold the panel's against.
class ExpectedPicture
{
public:
    ExpectedPicture(int width, int height, QColor background = Qt::white)
        : mImage(width, height, QImage::Format_RGB32)
    {
        mImage.fill(background);
    }
    operator const QImage&() const { return mImage; }

    void point(int x, int y, const QColor& color)
    {
        if (mImage.valid(x, y)) {
            mImage.setPixelColor(x, y, color);
        }
    }
    /// Limits included.
    void box(int x0, int y0, int x1, int y1, const QColor& color)
    {
        for (int y = y0; y <= y1; ++y) {
            for (int x = x0; x <= x1; ++x) {
                point(x, y, color);
            }
        }
    }
    void frame(int x0, int y0, int x1, int y1, const QColor& color)
    {
        box(x0, y0, x1, y0, color);
        box(x0, y1, x1, y1, color);
        box(x0, y0, x0, y1, color);
        box(x1, y0, x1, y1, color);
    }

private:
    QImage mImage;
};

/// A picture that a test paints with a painter in the panel's font, to hold the panel's against.
class PaintedPicture
{
public:
    explicit PaintedPicture(const QWidget& panel)
        : mPixmap(panel.size())
    {
        mPixmap.fill(Qt::white);
        mPainter.begin(&mPixmap);
        mPainter.setFont(panel.font());
    }
    QImage image()
    {
        mPainter.end();
        return mPixmap.toImage().convertToFormat(QImage::Format_RGB32);
    }

    void text(int x, int y, const QString& text, const QColor& color)
    {
        mPainter.setPen(color);
        mPainter.drawText(x, y, text);
    }
    /// Upwards from the point.
    void upwards(int x, double y, const QString& text, const QColor& color)
    {
        mPainter.save();
        mPainter.translate(x, y);
        mPainter.rotate(-90.0);
        this->text(0, 0, text, color);
        mPainter.restore();
    }
    /// Limits included.
    void line(int x0, int y0, int x1, int y1, const QColor& color)
    {
        mPainter.setPen(color);
        mPainter.drawLine(x0, y0, x1, y1);
    }
    void frame(int x0, int y0, int x1, int y1, const QColor& color)
    {
        line(x0, y0, x1, y0, color);
        line(x1, y0, x1, y1, color);
        line(x1, y1, x0, y1, color);
        line(x0, y1, x0, y0, color);
    }

private:
    QPixmap mPixmap;
    QPainter mPainter;
};

/// Where two pictures differ first, or nothing.
inline std::string difference(const QImage& picture, const QImage& expected)
{
    if (picture.size() != expected.size()) {
        return "size " + std::to_string(picture.width()) + " x " + std::to_string(picture.height());
    }
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixel(x, y) != expected.pixel(x, y)) {
                return "pixel " + std::to_string(x) + "," + std::to_string(y) + " is "
                       + picture.pixelColor(x, y).name().toStdString() + ", not "
                       + expected.pixelColor(x, y).name().toStdString();
            }
        }
    }
    return "";
}

/// Puts one value in the place of those that a node has under a key.
inline void replace(MM_Class& node, const std::string& key, const std::string& value)
{
    MM_Field& field = *node.getFromMetaFields(key);
    field.resetMetaValues();
    field.addToMetaValues({}, value);
}

/// Keys, each with one value.
using KeyValues = std::vector<std::pair<const char*, const char*>>;

/// Expects that each of these values, other ones than the panel's, is read by a new panel from its key alone and
/// changes what is stored under that key alone. Requires: a new panel stores what `panel` does.
template <typename Panel>
void expectEachKeyIsAField(const Panel& panel, const KeyValues& values)
{
    for (const auto& [key, value] : values) {
        const Description written(panel);
        const std::string former = written.text();
        replace(written.node(), key, value);
        ASSERT_NE(written.text(), former) << key;
        const COM_Scoped loaded(Panel::New());
        const std::string printed = printedBy([&] { loaded->loadFromMetaClass(written.node()); });
        EXPECT_EQ(printed.find("no attribute"), std::string::npos) << key << ": " << printed;
        EXPECT_EQ(Description(*loaded).text(), written.text()) << key;
    }
}

/// The keys of a draw panel in the order in which they are read.
inline std::vector<std::string> panelKeys()
{
    return {"mStatusMessage",
            "mOrthonormee",
            "mXDirection",
            "mYDirection",
            "mGraduationSize",
            "mNbCharsAfterComa",
            "mXLabel",
            "mYLabel",
            "mTitle",
            "mZoomFactor",
            "mPanX",
            "mPanY",
            "mTitlePrinted",
            "mXLabelPrinted",
            "mYLabelPrinted",
            "mAxesPrinted",
            "mGridPrinted",
            "mBorderLinePrinted",
            "mScalePrinted",
            "mXScaleType",
            "mYScaleType",
            "mDraggedRectangle",
            "mZoomSelection",
            "mScientificNotation",
            "mPXFactor",
            "mPYFactor",
            "mPXadim",
            "mPYadim",
            "mXadim",
            "mYadim",
            "mStatusPrinted",
            "mCurrentIndexBox",
            "mBorderColor",
            "mBorderLineColor",
            "mScaleColor",
            "mXLabelColor",
            "mYLabelColor",
            "mTitleColor",
            "mAxesColor",
            "mGridColor",
            "mDraggedRectangleColor",
            "BackgroundColor",
            "mDrawingBoxes"};
}
