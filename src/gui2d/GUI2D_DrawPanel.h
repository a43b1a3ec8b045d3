#pragma once
#include "common/COM_Array.h"
#include "gui/GUI_FramePanel.h"
#include "gui2d/GUI2D_Mapping.h"
#include "gui2d/GUI2D_Texts.h"
#include "metaModel/MM_Class.h"

#include <QColor>
#include <QPoint>
#include <QString>

#include <array>
#include <string>

class COM_Color;
class GEO_Box;
class GEO_Point;
class QPainter;
class QPixmap;
class QPrinter;

/// A rectangle of model space on a panel: grid, axes, graduated scales, a title, labels, and in the middle
/// whatever an heir paints.
///
/// Each view that the user visits stays in a stack, through which `back` and `next` step. The mouse drags a
/// rectangle to zoom to, and the status bar of the window tells the point below it. Coordinates inside the
/// panel are adimensioned (see GUI2D_Mapping); those that come from heirs and go to the user are not.
class GUI2D_DrawPanel : public GUI_FramePanel, public virtual MM_Object
{
    Q_OBJECT
public:
    static constexpr unsigned char REAL_SCALE_TYPE = 0;
    static constexpr unsigned char INTEGER_SCALE_TYPE = 1;
    static constexpr unsigned char WEST_DIRECTION = 2;
    static constexpr unsigned char EAST_DIRECTION = 3;
    static constexpr unsigned char NORTH_DIRECTION = 4;
    static constexpr unsigned char SOUTH_DIRECTION = 5;
    static constexpr unsigned char NO_BRUSH = 0;
    static constexpr unsigned char SOLID_LINE = 1;
    static constexpr unsigned long MAX_DIGITS = 24; ///< Of `setNbCharsAfterComa`.

    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Draws inside the graphics area, with `moveTo` and `lineTo`.
    virtual void paintElements() = 0;
    /// Draws in the margins, and may change them.
    virtual void paintElementsInPanels() = 0;
    /// Fills the box with the extent of what there is to see, in user units.
    virtual void computeBoundingBox(GEO_Box& box) const = 0;

    // ---- views
    /// Chooses the adimensioning factors and shows the whole bounding box, as a new view.
    void fitToGraphics();
    /// Scales the view about its centre, each side by `factor`, as a new view. Paints nothing.
    void zoom(const double& factor);
    /// The same about a model point, which keeps its pixel.
    void zoomAt(double factor, double x, double y);
    /// Moves the view by a step of `mPanX` or `mPanY` pixels, as a new view. Paints nothing.
    void pan(unsigned char direction);
    void back();
    void next();
    bool isBackValid() const;
    bool isNextValid() const;
    /// The present view; without one a unit box. The caller releases it.
    GEO_Box* getBounds() const;
    long getCurrentIndexBox() const { return mCurrentIndexBox; }
    const COM_Array<GEO_Box>& getDrawingBoxes() const { return *mDrawingBoxes; }
    void getGraphicsSize(int& width, int& height) const;
    /// The present relation of model points and pixels.
    GUI2D_Mapping getMapping() const;
    /// Takes the margins and the size of the panel into account.
    void updateGraphicsArea();
    /// Asks for a repaint.
    void redraw();

    /// The same scale on both axes.
    void setOrthonormee(bool flag);
    bool isOrthonormee() const { return mOrthonormee; }
    /// Whether releasing a drag zooms to it.
    void setZoomSelection(bool flag) { mZoomSelection = flag; }
    bool getZoomSelection() const { return mZoomSelection; }
    /// 1 stands for integer labels, everything else for real ones.
    void setXScaleType(unsigned char type);
    void setYScaleType(unsigned char type);
    unsigned char getXScaleType() const { return mXScaleType; }
    unsigned char getYScaleType() const { return mYScaleType; }
    void setScaleX(double scale) { mScaleX = scale; }
    void setScaleY(double scale) { mScaleY = scale; }
    double getScaleX() const { return mScaleX; }
    double getScaleY() const { return mScaleY; }
    /// The exponent shown beside the scale as "x10" and a raised number; 0 shows nothing.
    void setPXFactor(int exponent) { mPXFactor = exponent; }
    void setPYFactor(int exponent) { mPYFactor = exponent; }
    double getPXFactor() const { return mPXFactor; }
    double getPYFactor() const { return mPYFactor; }

    // ---- texts, what is printed, colours
    void setXLabel(const std::string& label);
    void setYLabel(const std::string& label);
    void setTitle(const std::string& title);
    std::string getXLabel() const;
    std::string getYLabel() const;
    std::string getTitle() const;
    void printGrid(bool flag) { mGridPrinted = flag; }
    void printAxes(bool flag) { mAxesPrinted = flag; }
    void printTitle(bool flag) { mTitlePrinted = flag; }
    void printXLabel(bool flag) { mXLabelPrinted = flag; }
    void printYLabel(bool flag) { mYLabelPrinted = flag; }
    void printScale(bool flag) { mScalePrinted = flag; }
    bool isGridPrinted() const { return mGridPrinted; }
    bool isAxesPrinted() const { return mAxesPrinted; }
    bool isTitlePrinted() const { return mTitlePrinted; }
    bool isXLabelPrinted() const { return mXLabelPrinted; }
    bool isYLabelPrinted() const { return mYLabelPrinted; }
    bool isScalePrinted() const { return mScalePrinted; }
    void setBackgroundColor(const QColor& color);
    QColor getBackgroundColor() const;
    void setBorderColor(const QColor& color) { mBorderColor = color; }
    void setBorderLineColor(const QColor& color) { mBorderLineColor = color; }
    void setScaleColor(const QColor& color) { mScaleColor = color; }
    void setXLabelColor(const QColor& color) { mXLabelColor = color; }
    void setYLabelColor(const QColor& color) { mYLabelColor = color; }
    void setTitleColor(const QColor& color) { mTitleColor = color; }
    void setGridColor(const QColor& color) { mGridColor = color; }
    void setAxesColor(const QColor& color) { mAxesColor = color; }
    const QColor& getBorderColor() const { return mBorderColor; }
    const QColor& getBorderLineColor() const { return mBorderLineColor; }
    const QColor& getScaleColor() const { return mScaleColor; }
    const QColor& getXLabelColor() const { return mXLabelColor; }
    const QColor& getYLabelColor() const { return mYLabelColor; }
    const QColor& getTitleColor() const { return mTitleColor; }
    const QColor& getGridColor() const { return mGridColor; }
    const QColor& getAxesColor() const { return mAxesColor; }
    /// At most `MAX_DIGITS`.
    void setNbCharsAfterComa(unsigned long digits);
    unsigned long getNbCharsAfterComa() const { return mNbCharsAfterComa; }
    void setZoomFactor(double factor) { mZoomFactor = factor; }
    double getZoomFactor() const { return mZoomFactor; }
    void setPanX(unsigned long pixels) { mPanX = pixels; }
    void setPanY(unsigned long pixels) { mPanY = pixels; }
    unsigned long getPanX() const { return mPanX; }
    unsigned long getPanY() const { return mPanY; }
    void setStatusMessage(const std::string& key) { mStatusMessage = key; }
    const std::string& getStatusMessage() const { return mStatusMessage; }
    void reverseX() { mXDirection = -mXDirection; }
    void reverseY() { mYDirection = -mYDirection; }
    long getXDirection() const { return mXDirection; }
    long getYDirection() const { return mYDirection; }

    // ---- margins, in pixels
    void setEastWidth(unsigned long width) { mEastSize = width; }
    void setNorthWidth(unsigned long width) { mNorthSize = width; }
    unsigned long getEastWidth() const { return mEastSize; }
    unsigned long getWestWidth() const { return mWestSize; }
    unsigned long getNorthWidth() const { return mNorthSize; }
    unsigned long getSouthWidth() const { return mSouthSize; }
    /// Back to the margins of a new panel, from which they grow again.
    void resetMargins();

    // ---- drawing, while the panel is painted
    /// A solid line, one pixel wide, if `style` is `SOLID_LINE`; nothing otherwise.
    void setPen(const QColor& color, unsigned char style);
    void setPen(const COM_Color& color, unsigned char style);
    /// No fill, if `style` is `NO_BRUSH`; nothing otherwise.
    void setBrush(const QColor& color, unsigned char style);
    void setBrush(const COM_Color& color, unsigned char style);
    /// Puts the pen on a point, in user units.
    void moveTo(double x, double y);
    /// Draws what the view shows of the line from the pen to a point, in user units. A coordinate that is
    /// not finite draws nothing and lifts the pen.
    void lineTo(double x, double y);
    /// A text in pixels, `y` being its baseline.
    void drawText(int x, int y, const std::string& text, const COM_Color& color) const;
    /// A filled box with a line around it.
    void drawColorBox(int x, int y, int width, int height, const COM_Color& line,
                      const COM_Color& fill) const;

    // ---- pictures
    /// Writes the picture in the format of the extension, in one of its spellings "bmp", "gif", "jpg",
    /// "jpeg" or their capitals; as BMP under every other. False: nothing was written.
    bool saveAsImage(const std::string& fileName);
    /// On a printer that the user chooses.
    void print();
    /// As large as the page allows. False: the printer takes nothing.
    bool printOn(QPrinter& printer);
    /// Everything, grid to margins, on any device, at the size of the panel.
    void drawInPainter(QPainter& painter);

protected:
    explicit GUI2D_DrawPanel(GUI_ParentPanel* parent);
    ~GUI2D_DrawPanel() override;

    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    /// A notch zooms by `mZoomFactor` about the pointer.
    void wheelEvent(QWheelEvent* event) override;

    /// Null outside a paint.
    QPainter* getPainter() const { return mPainting ? mPainter : nullptr; }
    /// Asks for another pass of the present paint, since a margin has changed.
    void requestPass() { mRedraw = true; }
    void setWestWidth(unsigned long width) { mWestSize = width; }
    /// A text in pixels, `y` being its baseline, in the colour of the pen.
    void drawText(int x, int y, const QString& text) const;
    // Of the widget's font, in pixels.
    int getTextWidth(const QString& text) const;
    int getFontHeight() const;
    /// Reads an association of many. A file that lacks it leaves the array as it is, with a line on
    /// standard output.
    template <typename T>
    static void getMany(const MM_Class& metaClass, const std::string& key, COM_Array<T>& objects)
    {
        std::string first;
        metaClass.getAttributeFromMetaFields(key, &first);
        if (metaClass.getFromMetaFields(key) != nullptr) {
            metaClass.getAssociationFromMetaFields(key, objects);
        }
    }
    /// Does nothing: every view stays in the stack.
    void eraseAllExceptLastDrawingBoxes() {}

private:
    void initComponents();
    void computeScale();
    void computeUnit();
    /// Chooses the adimensioning factors for these exponents.
    void setExponents(long x, long y);
    /// Makes the box a view: inserts it into the stack behind the present one. A box of no size becomes one
    /// of 1e-24, one that is not finite the unit box.
    void setModelArea(GEO_Box& box);
    /// The box at `mCurrentIndexBox`, or null.
    GEO_Box* getCurrentBox() const;
    /// Shows the box at `mCurrentIndexBox`.
    void takeCurrentBox();
    /// Makes `mCurrentIndexBox` this index, kept within the stack, and shows what was not shown before.
    void step(long index);
    void zoomSelection();
    void updateWindowMenus();
    /// Tells the window which model point a pixel shows.
    void showPoint(const QPoint& pixel);
    /// Pixels show model points: the graphics area has a size.
    bool isScaled() const;

    /// Paints the panel, and again while its margins change, though not for ever.
    void paintPasses(QPainter& painter);
    /// A picture of the panel, pixel by pixel. Null where the panel has no size.
    QPixmap render();
    /// The margins, by which passes are compared.
    std::array<unsigned long, 4> getMargins() const;
    /// Makes a margin at least this wide.
    void grow(unsigned long& margin, int width);
    /// A text of the scales, from a value in user units.
    QString getScaleText(double value, unsigned char type) const;
    void setLinePen(const QColor& color);

    void paintGrid();
    void paintAxes();
    void paintScales();
    void paintXScale();
    void paintYScale();
    void paintFactors();
    void paintLabels();
    void paintBorder();
    void paintBorderLine();
    void paintDraggedRectangle();

    std::string mStatusMessage = "Current Point"; ///< Key of what the status bar begins with.
    double mScaleX = 1.0;                         ///< Pixels per model unit.
    double mScaleY = 1.0;
    long mPXadim = 0; ///< Exponent of `mXadim`.
    double mXadim = 1.0;
    long mPYadim = 0;
    double mYadim = 1.0;
    unsigned long mNorthSize = 0; ///< Margins in pixels.
    unsigned long mSouthSize = 0;
    unsigned long mWestSize = 0;
    unsigned long mEastSize = 10;
    QPoint mGraphicsOrigin;
    long mGraphicsWidth = 0; ///< Never negative.
    long mGraphicsHeight = 0;
    bool mOrthonormee = false;
    long mXDirection = 1;
    long mYDirection = -1;
    unsigned long mGraduationSize = 5; ///< Length of a graduation in pixels.
    unsigned long mNbCharsAfterComa = 6;
    double mHeight = 1.0; ///< Extent of the visible model rectangle.
    double mWidth = 1.0;
    QString mXLabel = "XLabel";
    QString mYLabel = "YLabel";
    QString mTitle = "Title";
    double mZoomFactor = 1.2;
    unsigned long mPanX = 10; ///< Pixels.
    unsigned long mPanY = 10;
    bool mAxesPrinted = true;
    bool mGridPrinted = true;
    bool mBorderLinePrinted = true;
    bool mTitlePrinted = true;
    bool mXLabelPrinted = true;
    bool mYLabelPrinted = true;
    bool mScalePrinted = true;
    QColor mBorderColor = Qt::white;
    QColor mBorderLineColor = Qt::black;
    QColor mScaleColor = Qt::blue;
    QColor mXLabelColor = Qt::red;
    QColor mYLabelColor = Qt::red;
    QColor mTitleColor = Qt::red;
    QColor mGridColor = Qt::black;
    QColor mAxesColor = Qt::black;
    QColor mDraggedRectangleColor = Qt::red;
    unsigned char mXScaleType = REAL_SCALE_TYPE;
    unsigned char mYScaleType = REAL_SCALE_TYPE;
    bool mDraggedRectangle = false; ///< The mouse drags.
    QPoint mStartPoint;             ///< Corners of the drag, in pixels.
    QPoint mEndPoint;
    bool mZoomSelection = true;
    bool mScientificNotation = true; ///< Kept for files alone.
    bool mRedraw = false;            ///< A margin has changed during the paint.
    double mPXFactor = 0.0;
    double mPYFactor = 0.0;
    long mUPx = 0; ///< Exponent of the graduation step.
    long mUPy = 0;
    long mCurrentIndexBox = -1; ///< Index of the present view; -1 without one.
    bool mStatusPrinted = true;
    GEO_Point* mOrigin;              ///< Model point at the top left of the graphics area. Counted.
    GEO_Point* mCurrentGraphicPoint; ///< The pen, in pixels. Counted.
    GEO_Point* mCurrentPoint;        ///< The pen, in model units. Counted.
    COM_Array<GEO_Box>* mDrawingBoxes; ///< Every view visited. Counted.
    QPainter* mPainter = nullptr; ///< Of the last paint; only good while `mPainting`. Borrowed.
    bool mPainting = false;
    mutable GUI2D_Texts mTexts;
    int mWheelAngle = 0; ///< Turned since the last notch, in eighths of a degree.
};
