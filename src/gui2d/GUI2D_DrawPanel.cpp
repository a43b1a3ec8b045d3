#include "gui2d/GUI2D_DrawPanel.h"

#include "common/COM_Color.h"
#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"
#include "gui/GUI_Dialog.h"
#include "gui/GUI_EventScope.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_ParentWindow.h"
#include "gui2d/GUI2D_Clip.h"
#include "gui2d/GUI2D_Graduation.h"
#include "gui2d/GUI2D_Image.h"

#include <QMouseEvent>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr int maxPasses = 8;             ///< Rules that fight over a margin would paint for ever.
constexpr double smallestExtent = 1e-24; ///< Of a view.
constexpr int wheelNotch = 120;          ///< Eighths of a degree.

QColor toQColor(const COM_Color& color)
{
    return {color.getRed(), color.getGreen(), color.getBlue()};
}

int toInt(unsigned long pixels)
{
    return GUI2D_Mapping::toPixel(static_cast<double>(pixels));
}

/// A rectangle of `width` times `height` pixels, line included. Without a size it is none.
void drawOutline(QPainter& painter, int x, int y, int width, int height)
{
    if (width > 0 && height > 0) {
        painter.drawRect(x, y, width - 1, height - 1);
    }
}

/// The exponent of the largest power of ten that is not above `extent`; 0 where there is none.
long exponentOf(double extent)
{
    const double exponent = std::floor(std::log10(extent));
    return std::isfinite(exponent) ? COM_Real::toLong(exponent) : 0;
}

bool isFinite(const GEO_Box& box)
{
    const auto isFinitePoint = [](const GEO_Point& point) {
        return std::isfinite(point.getValue(0)) && std::isfinite(point.getValue(1));
    };
    return isFinitePoint(*box.getMinPoint()) && isFinitePoint(*box.getMaxPoint())
           && std::isfinite(box.getWidth()) && std::isfinite(box.getHeight());
}

void setCorners(GEO_Box& box, double x0, double y0, double x1, double y1)
{
    const COM_Scoped p(GEO_Point::New(x0, y0));
    const COM_Scoped q(GEO_Point::New(x1, y1));
    box.setTo(*p, *q);
}

} // namespace

GUI2D_DrawPanel::GUI2D_DrawPanel(GUI_ParentPanel* parent)
    : GUI_FramePanel(parent)
    , mOrigin(GEO_Point::New(0.0, 1.0))
    , mCurrentGraphicPoint(GEO_Point::New())
    , mCurrentPoint(GEO_Point::New())
    , mDrawingBoxes(COM_Array<GEO_Box>::New())
{
    COM_TYPE(GUI2D_DrawPanel);
    initComponents();
}

GUI2D_DrawPanel::~GUI2D_DrawPanel()
{
    mDrawingBoxes->Delete();
    mCurrentPoint->Delete();
    mCurrentGraphicPoint->Delete();
    mOrigin->Delete();
}

void GUI2D_DrawPanel::initComponents()
{
    // The whole of the panel is painted by itself.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setMouseMoveListener(true);
    setBackgroundColor(Qt::white);
    updateGraphicsArea();
}

// ---------------------------------------------------------------- scale

GUI2D_Mapping GUI2D_DrawPanel::getMapping() const
{
    return {mOrigin->getValue(0), mOrigin->getValue(1), mWidth,          mHeight, mScaleX, mScaleY,
            mXDirection,          mYDirection,          mGraphicsOrigin, mXadim,  mYadim};
}

bool GUI2D_DrawPanel::isScaled() const
{
    return mScaleX != 0.0 && mScaleY != 0.0;
}

void GUI2D_DrawPanel::updateGraphicsArea()
{
    mGraphicsOrigin = {toInt(mWestSize), toInt(mNorthSize)};
    const auto rest = [](int size, unsigned long first, unsigned long second) {
        return std::max(0L, static_cast<long>(size) - toInt(first) - toInt(second));
    };
    mGraphicsWidth = rest(width(), mWestSize, mEastSize);
    mGraphicsHeight = rest(height(), mNorthSize, mSouthSize);
    computeScale();
}

void GUI2D_DrawPanel::computeScale()
{
    if (mHeight == 0.0) {
        mHeight = 1.0;
    }
    if (mWidth == 0.0) {
        mWidth = 1.0;
    }
    const auto width = static_cast<double>(mGraphicsWidth);
    const auto height = static_cast<double>(mGraphicsHeight);
    double scaleX = width / mWidth;
    double scaleY = height / mHeight;
    if (mOrthonormee && scaleY <= scaleX) {
        scaleX = scaleY;
        if (scaleY != 0.0) {
            mWidth = width / scaleY;
        }
    } else if (mOrthonormee) {
        scaleY = scaleX;
        if (scaleX != 0.0) {
            mHeight = height / scaleX;
        }
    }
    setScaleX(scaleX);
    setScaleY(scaleY);
    computeUnit();
}

void GUI2D_DrawPanel::computeUnit()
{
    mUPx = GUI2D_Graduation::exponentFor(mWidth);
    mUPy = GUI2D_Graduation::exponentFor(mHeight);
}

void GUI2D_DrawPanel::setExponents(long x, long y)
{
    const auto choose = [](long exponent, long& field, double& factor) {
        field = exponent;
        factor = GUI2D_Graduation::power(exponent);
        // Beyond the range of a double nothing is divided.
        if (!std::isfinite(factor) || factor <= 0.0) {
            field = 0;
            factor = 1.0;
        }
    };
    choose(x, mPXadim, mXadim);
    choose(y, mPYadim, mYadim);
}

void GUI2D_DrawPanel::setOrthonormee(bool flag)
{
    mOrthonormee = flag;
    computeScale();
    if (flag) {
        const long exponent = std::max(mPXadim, mPYadim);
        setExponents(exponent, exponent);
        return;
    }
    const COM_Scoped box(GEO_Box::New());
    computeBoundingBox(*box);
    setExponents(exponentOf(box->getWidth()), exponentOf(box->getHeight()));
}

void GUI2D_DrawPanel::getGraphicsSize(int& width, int& height) const
{
    width = static_cast<int>(mGraphicsWidth);
    height = static_cast<int>(mGraphicsHeight);
}

void GUI2D_DrawPanel::resetMargins()
{
    mNorthSize = 0;
    mSouthSize = 0;
    mWestSize = 0;
    mEastSize = 10;
}

// ---------------------------------------------------------------- views

void GUI2D_DrawPanel::fitToGraphics()
{
    const COM_Scoped box(GEO_Box::New());
    computeBoundingBox(*box);
    const auto exponent = [](double extent) { return extent > 0.0 ? exponentOf(extent) : 0; };
    long x = exponent(box->getWidth());
    long y = exponent(box->getHeight());
    if (mOrthonormee) {
        x = y = std::max(x, y);
    }
    setExponents(x, y);
    box->adimensionize(mXadim, mYadim);
    setModelArea(*box);
}

void GUI2D_DrawPanel::setModelArea(GEO_Box& box)
{
    if (!isFinite(box)) {
        setCorners(box, 0.0, 0.0, 1.0, 1.0);
    }
    ++mCurrentIndexBox;
    mDrawingBoxes->insert(static_cast<unsigned long>(mCurrentIndexBox), box);
    mHeight = box.getHeight();
    mWidth = box.getWidth();
    const double x = box.getMinPoint()->getValue(0);
    const double y = box.getMaxPoint()->getValue(1);
    mOrigin->setLocation(x, y);
    if (mHeight < smallestExtent || mWidth < smallestExtent) {
        const double centreX = 0.5 * (x + box.getMaxPoint()->getValue(0));
        const double centreY = 0.5 * (box.getMinPoint()->getValue(1) + y);
        mWidth = std::max(mWidth, smallestExtent);
        mHeight = std::max(mHeight, smallestExtent);
        const double w = 0.5 * mWidth;
        const double h = 0.5 * mHeight;
        setCorners(box, centreX - w, centreY - h, centreX + w, centreY + h);
        mOrigin->setLocation(centreX - w, centreY + h);
    }
    computeScale();
}

GEO_Box* GUI2D_DrawPanel::getCurrentBox() const
{
    const auto index = static_cast<unsigned long>(mCurrentIndexBox);
    return mCurrentIndexBox >= 0 && index < mDrawingBoxes->size() ? mDrawingBoxes->get(index)
                                                                  : nullptr;
}

void GUI2D_DrawPanel::takeCurrentBox()
{
    const GEO_Box* const box = getCurrentBox();
    if (box == nullptr) {
        return;
    }
    // A file may bring any box.
    const bool isUsable = isFinite(*box);
    mHeight = isUsable ? box->getHeight() : 1.0;
    mWidth = isUsable ? box->getWidth() : 1.0;
    mOrigin->setLocation(isUsable ? box->getMinPoint()->getValue(0) : 0.0,
                         isUsable ? box->getMaxPoint()->getValue(1) : 1.0);
    computeScale();
    redraw();
}

GEO_Box* GUI2D_DrawPanel::getBounds() const
{
    if (const GEO_Box* const box = getCurrentBox()) {
        return GEO_Box::New(*box);
    }
    GEO_Box* const unit = GEO_Box::New();
    setCorners(*unit, 0.0, 0.0, 1.0, 1.0);
    return unit;
}

void GUI2D_DrawPanel::zoom(const double& factor)
{
    if (const GEO_Box* const present = getCurrentBox()) {
        const COM_Scoped box(GEO_Box::New(*present));
        box->zoom(factor);
        setModelArea(*box);
    }
}

void GUI2D_DrawPanel::zoomAt(double factor, double x, double y)
{
    if (const GEO_Box* const present = getCurrentBox()) {
        const COM_Scoped box(GEO_Box::New(*present));
        const COM_Scoped centre(GEO_Point::New(x, y));
        box->homothetize(*centre, factor);
        setModelArea(*box);
    }
}

void GUI2D_DrawPanel::pan(unsigned char direction)
{
    const GEO_Box* const present = getCurrentBox();
    if (present == nullptr || !isScaled()) {
        return;
    }
    const double x = static_cast<double>(mPanX) / mScaleX;
    const double y = static_cast<double>(mPanY) / mScaleY;
    const COM_Scoped step(GEO_Point::New());
    switch (direction) {
    case EAST_DIRECTION:
        step->setLocation(x, 0.0);
        break;
    case WEST_DIRECTION:
        step->setLocation(-x, 0.0);
        break;
    case NORTH_DIRECTION:
        step->setLocation(0.0, y);
        break;
    case SOUTH_DIRECTION:
        step->setLocation(0.0, -y);
        break;
    default:
        break;
    }
    const COM_Scoped box(GEO_Box::New(*present));
    box->translate(*step);
    setModelArea(*box);
    updateWindowMenus();
}

void GUI2D_DrawPanel::back()
{
    step(mCurrentIndexBox - 1);
}

void GUI2D_DrawPanel::next()
{
    step(mCurrentIndexBox + 1);
}

void GUI2D_DrawPanel::step(long index)
{
    if (getCurrentBox() == nullptr) {
        return;
    }
    const long former = mCurrentIndexBox;
    const auto size = static_cast<long>(mDrawingBoxes->size());
    mCurrentIndexBox = std::clamp(index, 0L, size - 1);
    if (mCurrentIndexBox != former) {
        takeCurrentBox();
        updateWindowMenus();
    }
}

bool GUI2D_DrawPanel::isBackValid() const
{
    return mCurrentIndexBox > 0;
}

bool GUI2D_DrawPanel::isNextValid() const
{
    return getCurrentBox() != nullptr
           && mCurrentIndexBox + 1 < static_cast<long>(mDrawingBoxes->size());
}

void GUI2D_DrawPanel::zoomSelection()
{
    if (getCurrentBox() == nullptr || !isScaled()) {
        return;
    }
    const GUI2D_Mapping mapping = getMapping();
    const COM_Scoped box(GEO_Box::New());
    setCorners(*box, mapping.modelOfPixelX(mStartPoint.x()), mapping.modelOfPixelY(mStartPoint.y()),
               mapping.modelOfPixelX(mEndPoint.x()), mapping.modelOfPixelY(mEndPoint.y()));
    setModelArea(*box);
    updateWindowMenus();
}

void GUI2D_DrawPanel::updateWindowMenus()
{
    GUI_ParentWindow* const window = findWindow();
    if (GUI_MenuPanel* const menu = window != nullptr ? window->getMenu() : nullptr) {
        menu->updateStateMenus();
    }
}

void GUI2D_DrawPanel::redraw()
{
    update();
}

// ---------------------------------------------------------------- texts and colours

void GUI2D_DrawPanel::setXScaleType(unsigned char type)
{
    mXScaleType = type == INTEGER_SCALE_TYPE ? INTEGER_SCALE_TYPE : REAL_SCALE_TYPE;
}

void GUI2D_DrawPanel::setYScaleType(unsigned char type)
{
    mYScaleType = type == INTEGER_SCALE_TYPE ? INTEGER_SCALE_TYPE : REAL_SCALE_TYPE;
}

void GUI2D_DrawPanel::setXLabel(const std::string& label)
{
    mXLabel = toQString(label);
}

void GUI2D_DrawPanel::setYLabel(const std::string& label)
{
    mYLabel = toQString(label);
}

void GUI2D_DrawPanel::setTitle(const std::string& title)
{
    mTitle = toQString(title);
}

std::string GUI2D_DrawPanel::getXLabel() const
{
    return toTString(mXLabel);
}

std::string GUI2D_DrawPanel::getYLabel() const
{
    return toTString(mYLabel);
}

std::string GUI2D_DrawPanel::getTitle() const
{
    return toTString(mTitle);
}

void GUI2D_DrawPanel::setBackgroundColor(const QColor& color)
{
    QPalette colors = palette();
    colors.setColor(QPalette::Window, color);
    setPalette(colors);
}

QColor GUI2D_DrawPanel::getBackgroundColor() const
{
    return palette().color(QPalette::Window);
}

void GUI2D_DrawPanel::setNbCharsAfterComa(unsigned long digits)
{
    mNbCharsAfterComa = std::min(digits, MAX_DIGITS);
}

// ---------------------------------------------------------------- drawing

void GUI2D_DrawPanel::setLinePen(const QColor& color)
{
    mPainter->setPen(QPen(color, 0, Qt::SolidLine));
}

void GUI2D_DrawPanel::setPen(const QColor& color, unsigned char style)
{
    if (style == SOLID_LINE && mPainting) {
        setLinePen(color);
    }
}

void GUI2D_DrawPanel::setPen(const COM_Color& color, unsigned char style)
{
    setPen(toQColor(color), style);
}

void GUI2D_DrawPanel::setBrush(const QColor& color, unsigned char style)
{
    if (style == NO_BRUSH && mPainting) {
        mPainter->setBrush(QBrush(color, Qt::NoBrush));
    }
}

void GUI2D_DrawPanel::setBrush(const COM_Color& color, unsigned char style)
{
    setBrush(toQColor(color), style);
}

void GUI2D_DrawPanel::moveTo(double x, double y)
{
    const GUI2D_Mapping mapping = getMapping();
    mCurrentPoint->setLocation(mapping.modelX(x), mapping.modelY(y));
    mCurrentGraphicPoint->setLocation(mapping.pixelX(mCurrentPoint->getValue(0)),
                                      mapping.pixelY(mCurrentPoint->getValue(1)));
}

void GUI2D_DrawPanel::lineTo(double x, double y)
{
    const auto pen = [this] {
        const QPoint pixel(GUI2D_Mapping::toPixel(mCurrentGraphicPoint->getValue(0)),
                           GUI2D_Mapping::toPixel(mCurrentGraphicPoint->getValue(1)));
        return GUI2D_Mapping::Point{mCurrentPoint->getValue(0), mCurrentPoint->getValue(1), pixel};
    };
    const GUI2D_Mapping::Point from = pen();
    moveTo(x, y);
    if (!mPainting) {
        return;
    }
    for (const QLine& line : GUI2D_Clip::clip(getMapping(), from, pen())) {
        mPainter->drawLine(line);
    }
}

void GUI2D_DrawPanel::drawText(int x, int y, const std::string& text, const COM_Color& color) const
{
    if (QPainter* const painter = getPainter()) {
        painter->setPen(toQColor(color));
        drawText(x, y, toQString(text));
    }
}

void GUI2D_DrawPanel::drawText(int x, int y, const QString& text) const
{
    if (QPainter* const painter = getPainter()) {
        mTexts.draw(*painter, x, y, text);
    }
}

void GUI2D_DrawPanel::drawColorBox(int x, int y, int width, int height, const COM_Color& line,
                                   const COM_Color& fill) const
{
    if (QPainter* const painter = getPainter()) {
        painter->fillRect(x, y, width, height, toQColor(fill));
        painter->setPen(QPen(toQColor(line), 0));
        painter->setBrush(Qt::NoBrush);
        drawOutline(*painter, x, y, width, height);
    }
}

// ---------------------------------------------------------------- painting

void GUI2D_DrawPanel::drawInPainter(QPainter& painter)
{
    mPainter = &painter;
    mPainting = true;
    painter.setFont(font());
    if (mGridPrinted) {
        paintGrid();
    }
    if (mAxesPrinted) {
        paintAxes();
    }
    if (mDraggedRectangle) {
        paintDraggedRectangle();
    }
    paintElements();
    paintBorder();
    if (mBorderLinePrinted) {
        paintBorderLine();
    }
    paintLabels();
    if (mScalePrinted) {
        paintScales();
    }
    paintElementsInPanels();
    mPainting = false;
}

std::array<unsigned long, 4> GUI2D_DrawPanel::getMargins() const
{
    return {mNorthSize, mSouthSize, mWestSize, mEastSize};
}

void GUI2D_DrawPanel::paintPasses(QPainter& painter)
{
    updateGraphicsArea();
    for (int pass = 0; pass < maxPasses; ++pass) {
        const std::array<unsigned long, 4> margins = getMargins();
        mRedraw = false;
        painter.save();
        painter.fillRect(rect(), getBackgroundColor());
        drawInPainter(painter);
        painter.restore();
        updateGraphicsArea();
        if (!mRedraw || getMargins() == margins) {
            break;
        }
    }
    mRedraw = false;
}

QPixmap GUI2D_DrawPanel::render()
{
    QPixmap picture(size());
    if (!picture.isNull()) {
        QPainter painter(&picture);
        paintPasses(painter);
    }
    return picture;
}

// Widgets are painted aside and shown when they are done: no pass but the last is seen.
void GUI2D_DrawPanel::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    paintPasses(painter);
}

bool GUI2D_DrawPanel::saveAsImage(const std::string& fileName)
{
    return GUI2D_Image::write(render().toImage(), fileName);
}

void GUI2D_DrawPanel::print()
{
    // The window may close while the dialog waits.
    const GUI_EventScope scope;
    const COM_Guard guard(*this);
    QPrinter printer(QPrinter::ScreenResolution);
    QPrintDialog dialog(&printer, this);
    if (GUI_Dialog::run(dialog) == QDialog::Accepted) {
        printOn(printer);
    }
}

bool GUI2D_DrawPanel::printOn(QPrinter& printer)
{
    // Finds the margins if the panel was not painted yet.
    if (render().isNull()) {
        return false;
    }
    const double factor = std::min(static_cast<double>(printer.width()) / width(),
                                   static_cast<double>(printer.height()) / height());
    QPainter painter;
    if (!painter.begin(&printer)) {
        return false;
    }
    painter.scale(factor, factor);
    drawInPainter(painter);
    return painter.end();
}

// ---------------------------------------------------------------- grid and axes

void GUI2D_DrawPanel::paintGrid()
{
    mPainter->setPen(QPen(mGridColor, 0, Qt::DotLine));
    const GUI2D_Mapping mapping = getMapping();
    const double xMin = mapping.xMin();
    const double xMax = mapping.xMax();
    const double yMin = mapping.yMin();
    const double yMax = mapping.yMax();
    for (const double x : GUI2D_Graduation::between(xMin, xMax, mUPx).mTicks) {
        mPainter->drawLine(mapping.pixel(x, yMin), mapping.pixel(x, yMax));
    }
    for (const double y : GUI2D_Graduation::between(yMin, yMax, mUPy).mTicks) {
        mPainter->drawLine(mapping.pixel(xMin, y), mapping.pixel(xMax, y));
    }
}

void GUI2D_DrawPanel::paintAxes()
{
    setLinePen(mAxesColor);
    const GUI2D_Mapping mapping = getMapping();
    const double xMin = mapping.xMin();
    const double xMax = mapping.xMax();
    const double yMin = mapping.yMin();
    const double yMax = mapping.yMax();
    const QPoint zero = mapping.pixel(0.0, 0.0);
    if (zero.x() >= 0 && zero.x() < mGraphicsWidth) {
        mPainter->drawLine(mapping.pixel(0.0, yMin), mapping.pixel(0.0, yMax));
    }
    if (zero.y() >= 0 && zero.y() < mGraphicsHeight) {
        mPainter->drawLine(mapping.pixel(xMin, 0.0), mapping.pixel(xMax, 0.0));
    }
    const int size = toInt(mGraduationSize);
    const GUI2D_Graduation xTicks = GUI2D_Graduation::between(xMin, xMax, mUPx);
    for (const double x : xTicks.mTicks) {
        const int px = GUI2D_Mapping::toPixel(mapping.pixelX(x));
        mPainter->drawLine(px, zero.y() - size, px, zero.y() + size);
    }
    // All marks for Y lie on one line, at the height that equals the place of the last X graduation.
    const int q = xTicks.mIsEmpty ? zero.x() : GUI2D_Mapping::toPixel(mapping.pixelX(xTicks.mLast));
    if (!GUI2D_Graduation::between(yMin, yMax, mUPy).mTicks.empty()) {
        mPainter->drawLine(zero.y() - size, q, zero.y() + size, q);
    }
}

// ---------------------------------------------------------------- margins

int GUI2D_DrawPanel::getTextWidth(const QString& text) const
{
    return mTexts.getWidth(font(), text);
}

int GUI2D_DrawPanel::getFontHeight() const
{
    return fontMetrics().height();
}

void GUI2D_DrawPanel::grow(unsigned long& margin, int width)
{
    const auto wanted = static_cast<unsigned long>(std::max(width, 0));
    if (margin < wanted) {
        margin = wanted;
        requestPass();
    }
}

QString GUI2D_DrawPanel::getScaleText(double value, unsigned char type) const
{
    const unsigned long digits = mNbCharsAfterComa;
    return toQString(type == INTEGER_SCALE_TYPE ? COM_Integer::toString(COM_Real::toLong(value))
                                                : COM_Real::toString(value, digits + 1, digits));
}

void GUI2D_DrawPanel::paintScales()
{
    setLinePen(mScaleColor);
    mPainter->setBrush(QBrush(mScaleColor, Qt::NoBrush));
    paintXScale();
    paintYScale();
    paintFactors();
}

void GUI2D_DrawPanel::paintXScale()
{
    const GUI2D_Mapping mapping = getMapping();
    const int top = toInt(mNorthSize);
    const int bottom = top + static_cast<int>(mGraphicsHeight);
    const int size = toInt(mGraduationSize);
    const int dash = getTextWidth("-");
    int limit = toInt(mWestSize);
    for (const double x : GUI2D_Graduation::between(mapping.xMin(), mapping.xMax(), mUPx).mTicks) {
        const int p = GUI2D_Mapping::toPixel(mapping.pixelX(x));
        if (p < limit) {
            continue;
        }
        const QString label = getScaleText(x * mXadim, mXScaleType);
        limit = p + getTextWidth(label);
        if (limit > width()) {
            break;
        }
        drawText(p, getFontHeight() + bottom, label);
        mPainter->drawLine(p, bottom, p, bottom - size);
        mPainter->drawLine(p, top, p, top + size);
        limit += dash;
    }
}

void GUI2D_DrawPanel::paintYScale()
{
    const GUI2D_Mapping mapping = getMapping();
    const int left = mGraphicsOrigin.x();
    const int right = left + static_cast<int>(mGraphicsWidth);
    const int size = toInt(mGraduationSize);
    const int height = getFontHeight();
    const int dash = getTextWidth("-");
    // Unsigned: a graduation above the panel lies far below it.
    const unsigned long first = static_cast<unsigned long>(height / 2) + mNorthSize;
    const unsigned long last = mNorthSize + static_cast<unsigned long>(mGraphicsHeight)
                               - static_cast<unsigned long>(height / 2);
    for (const double y : GUI2D_Graduation::between(mapping.yMin(), mapping.yMax(), mUPy).mTicks) {
        const int q = GUI2D_Mapping::toPixel(mapping.pixelY(y));
        const auto place = static_cast<unsigned long>(q);
        if (!(first < place && place < last)) {
            continue;
        }
        const QString label = getScaleText(y * mYadim, mYScaleType);
        drawText(2 * height, q + height / 3, label);
        mPainter->drawLine(left, q, left + size, q);
        mPainter->drawLine(right, q, right - size, q);
        grow(mWestSize, 2 * height + getTextWidth(label) + dash);
    }
}

void GUI2D_DrawPanel::paintFactors()
{
    const QString ten = "x10";
    const int tenWidth = getTextWidth(ten);
    const int height = getFontHeight();
    const auto exponent = [](double factor) {
        return toQString(COM_Integer::toString(COM_Real::toLong(factor)));
    };
    if (mPXFactor != 0.0) {
        const QString power = exponent(mPXFactor);
        const int x = static_cast<int>(mGraphicsWidth) + toInt(mWestSize);
        const int y = static_cast<int>(mGraphicsHeight) + toInt(mNorthSize);
        drawText(x, y + height / 4, ten);
        drawText(x + tenWidth, y - height / 8, power);
        grow(mEastSize, tenWidth + getTextWidth(power));
    }
    if (mPYFactor != 0.0) {
        const QString power = exponent(mPYFactor);
        const int x = 2 * height;
        const int y = toInt(mNorthSize);
        drawText(x, y - height / 4, ten);
        drawText(x + tenWidth, y - 3 * height / 4, power);
        grow(mWestSize, x + tenWidth + getTextWidth(power));
    }
}

void GUI2D_DrawPanel::paintLabels()
{
    const int fontHeight = getFontHeight();
    if (mTitlePrinted) {
        setLinePen(mTitleColor);
        drawText((width() - getTextWidth(mTitle)) / 2, fontHeight, mTitle);
        grow(mNorthSize, fontHeight + fontHeight / 2);
    }
    if (mXLabelPrinted) {
        setLinePen(mXLabelColor);
        const int y = static_cast<int>(mGraphicsHeight) + toInt(mNorthSize) + toInt(mSouthSize);
        drawText((width() - getTextWidth(mXLabel)) / 2, y - fontHeight, mXLabel);
        grow(mSouthSize, 4 * fontHeight);
    }
    if (mYLabelPrinted) {
        setLinePen(mYLabelColor);
        mPainter->save();
        mPainter->translate(fontHeight, (height() + getTextWidth(mYLabel)) / 2.0);
        mPainter->rotate(-90.0);
        mPainter->drawText(0, 0, mYLabel);
        mPainter->restore();
        grow(mWestSize, 3 * fontHeight);
    }
}

void GUI2D_DrawPanel::paintBorder()
{
    const int north = toInt(mNorthSize);
    const int south = toInt(mSouthSize);
    const int west = toInt(mWestSize);
    const int east = toInt(mEastSize);
    mPainter->fillRect(0, 0, width(), north, mBorderColor);
    mPainter->fillRect(0, height() - south, width(), south, mBorderColor);
    mPainter->fillRect(0, 0, west, height(), mBorderColor);
    mPainter->fillRect(width() - east, 0, east, height(), mBorderColor);
}

void GUI2D_DrawPanel::paintBorderLine()
{
    setLinePen(mBorderLineColor);
    mPainter->setBrush(Qt::NoBrush);
    drawOutline(*mPainter, mGraphicsOrigin.x(), mGraphicsOrigin.y(),
                static_cast<int>(mGraphicsWidth), static_cast<int>(mGraphicsHeight));
}

void GUI2D_DrawPanel::paintDraggedRectangle()
{
    setLinePen(mDraggedRectangleColor);
    mPainter->setBrush(Qt::NoBrush);
    drawOutline(*mPainter, std::min(mStartPoint.x(), mEndPoint.x()),
                std::min(mStartPoint.y(), mEndPoint.y()), std::abs(mEndPoint.x() - mStartPoint.x()),
                std::abs(mEndPoint.y() - mStartPoint.y()));
}

// ---------------------------------------------------------------- mouse

void GUI2D_DrawPanel::mousePressEvent(QMouseEvent* event)
{
    mDraggedRectangle = true;
    mStartPoint = mEndPoint = event->position().toPoint();
}

void GUI2D_DrawPanel::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint pixel = event->position().toPoint();
    if (mDraggedRectangle) {
        mEndPoint = pixel;
        redraw();
    }
    if (mStatusPrinted) {
        showPoint(pixel);
    }
}

void GUI2D_DrawPanel::showPoint(const QPoint& pixel)
{
    GUI_ParentWindow* const window = findWindow();
    if (window == nullptr) {
        return;
    }
    const auto isInside = [](long place, long size) { return place * (place - size) < 0; };
    if (!isScaled() || !isInside(pixel.x() - mGraphicsOrigin.x(), mGraphicsWidth)
        || !isInside(pixel.y() - mGraphicsOrigin.y(), mGraphicsHeight)) {
        window->setStatusMessage(" ");
        return;
    }
    const GUI2D_Mapping mapping = getMapping();
    const auto text = [this](double value) {
        return COM_Real::toString(value, mNbCharsAfterComa + 4, mNbCharsAfterComa + 3);
    };
    window->setStatusMessage(translate(mStatusMessage) + ":("
                             + text(mapping.modelOfPixelX(pixel.x()) * mXadim) + ","
                             + text(mapping.modelOfPixelY(pixel.y()) * mYadim) + ")");
}

void GUI2D_DrawPanel::mouseReleaseEvent(QMouseEvent* event)
{
    const GUI_EventScope scope;
    mEndPoint = event->position().toPoint();
    if (mDraggedRectangle) {
        mDraggedRectangle = false;
        if (mZoomSelection) {
            zoomSelection();
        }
    }
    updateWindowMenus();
    redraw();
}

void GUI2D_DrawPanel::wheelEvent(QWheelEvent* event)
{
    const GUI_EventScope scope;
    const QPoint pixel = event->position().toPoint();
    mWheelAngle += event->angleDelta().y();
    const int notches = mWheelAngle / wheelNotch;
    mWheelAngle -= notches * wheelNotch;
    if (notches == 0 || getCurrentBox() == nullptr || !isScaled() || !(mZoomFactor > 0.0)) {
        return;
    }
    const GUI2D_Mapping mapping = getMapping();
    zoomAt(std::pow(mZoomFactor, -notches), mapping.modelOfPixelX(pixel.x()),
           mapping.modelOfPixelY(pixel.y()));
    updateWindowMenus();
    redraw();
}

// ---------------------------------------------------------------- persistence

void GUI2D_DrawPanel::saveToMetaClass(MM_Class& metaClass) const
{
    const auto addColor = [&metaClass](const char* key, const QColor& color) {
        metaClass.addAttributeToMetaFields(key, toTString(color.name()));
    };
    MM_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mStatusMessage", mStatusMessage);
    metaClass.addAttributeToMetaFields("mOrthonormee", mOrthonormee);
    metaClass.addAttributeToMetaFields("mXDirection", mXDirection);
    metaClass.addAttributeToMetaFields("mYDirection", mYDirection);
    metaClass.addAttributeToMetaFields("mGraduationSize", mGraduationSize);
    metaClass.addAttributeToMetaFields("mNbCharsAfterComa", mNbCharsAfterComa);
    metaClass.addAttributeToMetaFields("mXLabel", getXLabel());
    metaClass.addAttributeToMetaFields("mYLabel", getYLabel());
    metaClass.addAttributeToMetaFields("mTitle", getTitle());
    metaClass.addAttributeToMetaFields("mZoomFactor", mZoomFactor);
    metaClass.addAttributeToMetaFields("mPanX", mPanX);
    metaClass.addAttributeToMetaFields("mPanY", mPanY);
    metaClass.addAttributeToMetaFields("mTitlePrinted", mTitlePrinted);
    metaClass.addAttributeToMetaFields("mXLabelPrinted", mXLabelPrinted);
    metaClass.addAttributeToMetaFields("mYLabelPrinted", mYLabelPrinted);
    metaClass.addAttributeToMetaFields("mAxesPrinted", mAxesPrinted);
    metaClass.addAttributeToMetaFields("mGridPrinted", mGridPrinted);
    metaClass.addAttributeToMetaFields("mBorderLinePrinted", mBorderLinePrinted);
    metaClass.addAttributeToMetaFields("mScalePrinted", mScalePrinted);
    metaClass.addAttributeToMetaFields("mXScaleType", mXScaleType);
    metaClass.addAttributeToMetaFields("mYScaleType", mYScaleType);
    metaClass.addAttributeToMetaFields("mDraggedRectangle", mDraggedRectangle);
    metaClass.addAttributeToMetaFields("mZoomSelection", mZoomSelection);
    metaClass.addAttributeToMetaFields("mScientificNotation", mScientificNotation);
    metaClass.addAttributeToMetaFields("mPXFactor", mPXFactor);
    metaClass.addAttributeToMetaFields("mPYFactor", mPYFactor);
    metaClass.addAttributeToMetaFields("mPXadim", mPXadim);
    metaClass.addAttributeToMetaFields("mPYadim", mPYadim);
    metaClass.addAttributeToMetaFields("mXadim", mXadim);
    metaClass.addAttributeToMetaFields("mYadim", mYadim);
    metaClass.addAttributeToMetaFields("mStatusPrinted", mStatusPrinted);
    metaClass.addAttributeToMetaFields("mCurrentIndexBox", mCurrentIndexBox);
    addColor("mBorderColor", mBorderColor);
    addColor("mBorderLineColor", mBorderLineColor);
    addColor("mScaleColor", mScaleColor);
    addColor("mXLabelColor", mXLabelColor);
    addColor("mYLabelColor", mYLabelColor);
    addColor("mTitleColor", mTitleColor);
    addColor("mAxesColor", mAxesColor);
    addColor("mGridColor", mGridColor);
    addColor("mDraggedRectangleColor", mDraggedRectangleColor);
    addColor("BackgroundColor", getBackgroundColor());
    metaClass.addAssociationToMetaFields("mDrawingBoxes", *mDrawingBoxes);
}

void GUI2D_DrawPanel::loadFromMetaClass(const MM_Class& metaClass)
{
    const auto getText = [&metaClass](const char* key, QString& text) {
        std::string value = toTString(text);
        metaClass.getAttributeFromMetaFields(key, &value);
        text = toQString(value);
    };
    const auto getColor = [&metaClass](const char* key, QColor& color) {
        std::string name;
        metaClass.getAttributeFromMetaFields(key, &name);
        const QColor stored(toQString(name));
        if (stored.isValid()) {
            color = stored;
        }
    };
    MM_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mStatusMessage", &mStatusMessage);
    metaClass.getAttributeFromMetaFields("mOrthonormee", &mOrthonormee);
    metaClass.getAttributeFromMetaFields("mXDirection", &mXDirection);
    metaClass.getAttributeFromMetaFields("mYDirection", &mYDirection);
    metaClass.getAttributeFromMetaFields("mGraduationSize", &mGraduationSize);
    metaClass.getAttributeFromMetaFields("mNbCharsAfterComa", &mNbCharsAfterComa);
    getText("mXLabel", mXLabel);
    getText("mYLabel", mYLabel);
    getText("mTitle", mTitle);
    metaClass.getAttributeFromMetaFields("mZoomFactor", &mZoomFactor);
    metaClass.getAttributeFromMetaFields("mPanX", &mPanX);
    metaClass.getAttributeFromMetaFields("mPanY", &mPanY);
    metaClass.getAttributeFromMetaFields("mTitlePrinted", &mTitlePrinted);
    metaClass.getAttributeFromMetaFields("mXLabelPrinted", &mXLabelPrinted);
    metaClass.getAttributeFromMetaFields("mYLabelPrinted", &mYLabelPrinted);
    metaClass.getAttributeFromMetaFields("mAxesPrinted", &mAxesPrinted);
    metaClass.getAttributeFromMetaFields("mGridPrinted", &mGridPrinted);
    metaClass.getAttributeFromMetaFields("mBorderLinePrinted", &mBorderLinePrinted);
    metaClass.getAttributeFromMetaFields("mScalePrinted", &mScalePrinted);
    metaClass.getAttributeFromMetaFields("mXScaleType", &mXScaleType);
    metaClass.getAttributeFromMetaFields("mYScaleType", &mYScaleType);
    metaClass.getAttributeFromMetaFields("mDraggedRectangle", &mDraggedRectangle);
    metaClass.getAttributeFromMetaFields("mZoomSelection", &mZoomSelection);
    metaClass.getAttributeFromMetaFields("mScientificNotation", &mScientificNotation);
    metaClass.getAttributeFromMetaFields("mPXFactor", &mPXFactor);
    metaClass.getAttributeFromMetaFields("mPYFactor", &mPYFactor);
    metaClass.getAttributeFromMetaFields("mPXadim", &mPXadim);
    metaClass.getAttributeFromMetaFields("mPYadim", &mPYadim);
    metaClass.getAttributeFromMetaFields("mXadim", &mXadim);
    metaClass.getAttributeFromMetaFields("mYadim", &mYadim);
    metaClass.getAttributeFromMetaFields("mStatusPrinted", &mStatusPrinted);
    metaClass.getAttributeFromMetaFields("mCurrentIndexBox", &mCurrentIndexBox);
    getColor("mBorderColor", mBorderColor);
    getColor("mBorderLineColor", mBorderLineColor);
    getColor("mScaleColor", mScaleColor);
    getColor("mXLabelColor", mXLabelColor);
    getColor("mYLabelColor", mYLabelColor);
    getColor("mTitleColor", mTitleColor);
    getColor("mAxesColor", mAxesColor);
    getColor("mGridColor", mGridColor);
    getColor("mDraggedRectangleColor", mDraggedRectangleColor);
    QColor background = getBackgroundColor();
    getColor("BackgroundColor", background);
    setBackgroundColor(background);
    getMany(metaClass, "mDrawingBoxes", *mDrawingBoxes);

    // What a file may bring, and nobody else.
    setNbCharsAfterComa(mNbCharsAfterComa);
    setXScaleType(mXScaleType);
    setYScaleType(mYScaleType);
    mDraggedRectangle = false;
    mCurrentIndexBox =
        std::clamp(mCurrentIndexBox, -1L, static_cast<long>(mDrawingBoxes->size()) - 1);
    takeCurrentBox();
}
