#include "gui2d/GUI2D_Plotter.h"

#include "common/COM_Color.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "gui2d/GUI2D_Curve.h"
#include "gui2d/GUI2D_Polygon.h"
#include "gui2d/GUI2D_Transform.h"
#include "linearAlgebra/LA_RealVector.h"

#include <QPainter>

#include <algorithm>

namespace {

/// Where a text of the subtitles or legends stands.
struct Place
{
    const GUI2D_Curve* mCurve;
    QPoint mBaseline;
};

} // namespace

GUI2D_Plotter::GUI2D_Plotter()
    : GUI2D_Plotter(nullptr)
{}

GUI2D_Plotter::GUI2D_Plotter(GUI_ParentPanel& parent)
    : GUI2D_Plotter(&parent)
{}

GUI2D_Plotter::GUI2D_Plotter(GUI_ParentPanel* parent)
    : GUI2D_DrawPanel(parent)
    , mCurves(COM_Array<GUI2D_Curve>::New())
{
    COM_TYPE(GUI2D_Plotter);
}

GUI2D_Plotter::~GUI2D_Plotter()
{
    mCurves->Delete();
}

// ---------------------------------------------------------------- curves

void GUI2D_Plotter::addPlot(const LA_RealVector& x, const LA_RealVector& y, const std::string& name,
                            bool shown, COM_Color& color)
{
    const COM_Scoped curve(GUI2D_Curve::New());
    add(*curve, x, y, name, shown, color);
}

void GUI2D_Plotter::addPlot(GEO_Polygon& polygon, const std::string& name, bool shown,
                            COM_Color& color)
{
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    polygon.getPoints(*points);
    const COM_Scoped x(LA_RealVector::New(points->size()));
    const COM_Scoped y(LA_RealVector::New(points->size()));
    for (unsigned long i = 0; i < points->size(); ++i) {
        (*x)[i] = (*points)[i].getValue(0);
        (*y)[i] = (*points)[i].getValue(1);
    }
    const COM_Scoped curve(GUI2D_Polygon::New());
    curve->setPolygon(polygon);
    add(*curve, *x, *y, name, shown, color);
}

void GUI2D_Plotter::addPlot(const std::vector<double>& x, const std::vector<double>& y,
                            const std::string& name, COM_Color& color)
{
    const COM_Scoped xs(LA_RealVector::New(0UL));
    const COM_Scoped ys(LA_RealVector::New(0UL));
    xs->setValues(x);
    ys->setValues(y);
    addPlot(*xs, *ys, name, true, color);
}

void GUI2D_Plotter::add(GUI2D_Curve& curve, const LA_RealVector& x, const LA_RealVector& y,
                        const std::string& name, bool shown, COM_Color& color)
{
    curve.setXValues(x);
    curve.setYValues(y);
    curve.setColor(color);
    curve.setName(name);
    curve.setShown(shown);
    mCurves->add(curve);
    fold(curve, mCurves->size());
    fitToGraphics();
    eraseAllExceptLastDrawingBoxes();
}

unsigned long GUI2D_Plotter::getPlotsNumber() const
{
    return mCurves->size();
}

void GUI2D_Plotter::fold(const GUI2D_Curve& curve, unsigned long number)
{
    const unsigned long points = curve.getPointsNumber();
    if (!mBoundsComputed) {
        mBoundsComputed = true;
        mXMin = curve.getXMin();
        mXMax = curve.getXMax();
        mYMin = curve.getYMin();
        mYMax = curve.getYMax();
        mMinDeltaX = curve.getMinDeltaX();
        mMinDeltaY = curve.getMinDeltaY();
        mMaxDeltaX = curve.getMaxDeltaX();
        mMaxDeltaY = curve.getMaxDeltaY();
        mMeanDeltaX = curve.getMeanDeltaX();
        mMeanDeltaY = curve.getMeanDeltaY();
        mMinPointsNumber = mMaxPointsNumber = points;
        return;
    }
    const auto n = static_cast<double>(number);
    mXMin = std::min(mXMin, curve.getXMin());
    mXMax = std::max(mXMax, curve.getXMax());
    mYMin = std::min(mYMin, curve.getYMin());
    mYMax = std::max(mYMax, curve.getYMax());
    mMinPointsNumber = std::min(mMinPointsNumber, points);
    mMaxPointsNumber = std::max(mMaxPointsNumber, points);
    mMeanDeltaX = (mMeanDeltaX * (n - 1.0) + curve.getMeanDeltaX()) / n;
    mMeanDeltaY = (mMeanDeltaY * (n - 1.0) + curve.getMeanDeltaY()) / n;
    // The smaller one for the greatest steps too: the step that every curve has at least once.
    const auto keepSmaller = [](double& field, double value) {
        if (value <= field) {
            field = value;
        }
    };
    keepSmaller(mMinDeltaX, curve.getMinDeltaX());
    keepSmaller(mMinDeltaY, curve.getMinDeltaY());
    keepSmaller(mMaxDeltaX, curve.getMaxDeltaX());
    keepSmaller(mMaxDeltaY, curve.getMaxDeltaY());
}

void GUI2D_Plotter::computeBounds()
{
    const unsigned long n = mCurves->size();
    if (n == 0) {
        return;
    }
    mBoundsComputed = false;
    for (unsigned long i = 0; i < n; ++i) {
        fold((*mCurves)[i], n);
    }
    fitToGraphics();
    eraseAllExceptLastDrawingBoxes();
}

void GUI2D_Plotter::computePointsNumbers()
{
    mMinPointsNumber = mMaxPointsNumber = 0;
    for (unsigned long i = 0; i < mCurves->size(); ++i) {
        const unsigned long points = (*mCurves)[i].getPointsNumber();
        mMinPointsNumber = i == 0 ? points : std::min(mMinPointsNumber, points);
        mMaxPointsNumber = std::max(mMaxPointsNumber, points);
    }
}

void GUI2D_Plotter::computeBoundingBox(GEO_Box& box) const
{
    box.getMinPoint()->setLocation(mXMin, mYMin);
    box.getMaxPoint()->setLocation(mXMax, mYMax);
}

void GUI2D_Plotter::curvesYNormalization(const std::string& key, double value)
{
    bool isFound = false;
    for (unsigned long i = 0; i < mCurves->size(); ++i) {
        GUI2D_Curve& curve = (*mCurves)[i];
        if (curve.getName().find(key) != std::string::npos) {
            curve.divideYValues(value);
            isFound = true;
        }
    }
    if (isFound) {
        computeBounds();
    }
}

void GUI2D_Plotter::transform(bool isLogXTransform, bool isLogYTransform, bool isFFTXTransform,
                              bool isFFTYTransform, int n, double periodXFFTValue,
                              double periodYFFTValue)
{
    const GUI2D_Transform transformation{
        isLogXTransform, isLogYTransform, isFFTXTransform, isFFTYTransform, n,
        periodXFFTValue, periodYFFTValue};
    transformation.show(*this);
}

// ---------------------------------------------------------------- picture

void GUI2D_Plotter::paintElements()
{
    mNextLayer = 0;
    for (unsigned long i = 0; i < mCurves->size(); ++i) {
        (*mCurves)[i].draw(*this);
    }
    finishTraces();
}

void GUI2D_Plotter::drawTrace(GUI2D_Trace& trace, const COM_Color& color)
{
    if (getPainter() != nullptr) {
        mTraces.push_back({&trace, qRgb(color.getRed(), color.getGreen(), color.getBlue())});
    }
}

void GUI2D_Plotter::finishTraces()
{
    if (getPainter() == nullptr || mTraces.empty()) {
        return;
    }
    if (mNextLayer == mLayers.size()) {
        mLayers.emplace_back();
    }
    mLayers[mNextLayer++].paint(*getPainter(), getMapping(), size(), mTraces);
    mTraces.clear();
}

void GUI2D_Plotter::paintElementsInPanels()
{
    if (mCurves->size() == 0) {
        return;
    }
    if (mSubTitlesPrinted) {
        paintSubTitles();
    }
    if (mLegendsPrinted) {
        paintLegends();
    }
}

void GUI2D_Plotter::paintSubTitles()
{
    const auto widthOf = [this](unsigned long i) {
        return getTextWidth(toQString((*mCurves)[i].getName() + " "));
    };
    const unsigned long n = mCurves->size();
    const int height = getFontHeight();
    const int openWidth = getTextWidth("( ");
    int total = openWidth + getTextWidth(")");
    for (unsigned long i = 0; i < n; ++i) {
        total += (*mCurves)[i].isShown() ? widthOf(i) : 0;
    }
    // The places first: the number of lines decides about the margin.
    const QPoint open(std::max((width() - total) / 2, 0), 2 * height);
    QPoint pen = open + QPoint(openWidth, 0);
    std::vector<Place> places;
    int next = widthOf(0);
    for (unsigned long i = 0; i < n; ++i) {
        const GUI2D_Curve& curve = (*mCurves)[i];
        if (!curve.isShown()) {
            continue;
        }
        places.push_back({&curve, pen});
        pen.rx() += next;
        if (i + 1 < n) {
            next = widthOf(i + 1);
            if (pen.x() + next > width()) {
                pen = {0, pen.y() + height};
            }
        }
    }
    const int north = height / 2 + pen.y();
    if (static_cast<unsigned long>(north) != getNorthWidth()) {
        setNorthWidth(static_cast<unsigned long>(north));
        requestPass();
    }
    setPen(getTitleColor(), SOLID_LINE);
    drawText(open.x(), open.y(), "( ");
    drawText(pen.x(), pen.y(), ")");
    for (const Place& place : places) {
        drawName(*place.mCurve, place.mBaseline);
    }
}

void GUI2D_Plotter::paintLegends()
{
    const int height = getFontHeight();
    const int blank = getTextWidth(" ");
    int column = 0;
    for (unsigned long i = 0; i < mCurves->size(); ++i) {
        const GUI2D_Curve& curve = (*mCurves)[i];
        if (curve.isShown()) {
            column = std::max(column, getTextWidth(toQString(curve.getName())));
        }
    }
    column += blank;
    int total = column;
    QPoint pen(width() - GUI2D_Mapping::toPixel(static_cast<double>(getEastWidth())) + blank,
               height);
    for (unsigned long i = 0; i < mCurves->size(); ++i) {
        const GUI2D_Curve& curve = (*mCurves)[i];
        if (!curve.isShown()) {
            continue;
        }
        drawName(curve, pen);
        pen.ry() += height;
        if (pen.y() > QWidget::height() - height) {
            pen = {pen.x() + column, height};
            total += column;
        }
    }
    const auto east = static_cast<unsigned long>(total);
    if (east != getEastWidth()) {
        setEastWidth(east);
        requestPass();
    }
}

void GUI2D_Plotter::drawName(const GUI2D_Curve& curve, const QPoint& baseline) const
{
    const COM_Scoped black(COM_Color::New());
    drawText(baseline.x(), baseline.y(), curve.getName(),
             curve.getColor() != nullptr ? *curve.getColor() : *black);
}

// ---------------------------------------------------------------- persistence

void GUI2D_Plotter::saveToMetaClass(MM_Class& metaClass) const
{
    GUI2D_DrawPanel::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mXMin", mXMin);
    metaClass.addAttributeToMetaFields("mXMax", mXMax);
    metaClass.addAttributeToMetaFields("mYMin", mYMin);
    metaClass.addAttributeToMetaFields("mYMax", mYMax);
    metaClass.addAttributeToMetaFields("mMinDeltaX", mMinDeltaX);
    metaClass.addAttributeToMetaFields("mMinDeltaY", mMinDeltaY);
    metaClass.addAttributeToMetaFields("mMaxDeltaX", mMaxDeltaX);
    metaClass.addAttributeToMetaFields("mMaxDeltaY", mMaxDeltaY);
    metaClass.addAttributeToMetaFields("mMeanDeltaX", mMeanDeltaX);
    metaClass.addAttributeToMetaFields("mMeanDeltaY", mMeanDeltaY);
    metaClass.addAttributeToMetaFields("mLegendsPrinted", mLegendsPrinted);
    metaClass.addAttributeToMetaFields("mSubTitlesPrinted", mSubTitlesPrinted);
    metaClass.addAssociationToMetaFields("mCurves", *mCurves);
}

void GUI2D_Plotter::loadFromMetaClass(const MM_Class& metaClass)
{
    GUI2D_DrawPanel::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mXMin", &mXMin);
    metaClass.getAttributeFromMetaFields("mXMax", &mXMax);
    metaClass.getAttributeFromMetaFields("mYMin", &mYMin);
    metaClass.getAttributeFromMetaFields("mYMax", &mYMax);
    metaClass.getAttributeFromMetaFields("mMinDeltaX", &mMinDeltaX);
    metaClass.getAttributeFromMetaFields("mMinDeltaY", &mMinDeltaY);
    metaClass.getAttributeFromMetaFields("mMaxDeltaX", &mMaxDeltaX);
    metaClass.getAttributeFromMetaFields("mMaxDeltaY", &mMaxDeltaY);
    metaClass.getAttributeFromMetaFields("mMeanDeltaX", &mMeanDeltaX);
    metaClass.getAttributeFromMetaFields("mMeanDeltaY", &mMeanDeltaY);
    metaClass.getAttributeFromMetaFields("mLegendsPrinted", &mLegendsPrinted);
    metaClass.getAttributeFromMetaFields("mSubTitlesPrinted", &mSubTitlesPrinted);
    getMany(metaClass, "mCurves", *mCurves);
    mBoundsComputed = mCurves->size() > 0;
    computePointsNumbers();
}
