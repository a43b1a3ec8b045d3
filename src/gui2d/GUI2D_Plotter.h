#pragma once
#include "gui2d/GUI2D_DrawPanel.h"
#include "gui2d/GUI2D_Layer.h"

#include <string>
#include <vector>

class GEO_Polygon;
class GUI2D_Curve;
class LA_RealVector;

/// A panel that draws curves, with a line of subtitles above them and a column of legends at their right.
class GUI2D_Plotter : public GUI2D_DrawPanel
{
    COM_CLASS(GUI2D_Plotter)
public:
    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    void paintElements() override;
    void paintElementsInPanels() override;
    /// The extent of all curves, hidden ones included.
    void computeBoundingBox(GEO_Box& box) const override;

    /// Appends a curve through copies of the points and shows all curves, as a new view.
    void addPlot(const LA_RealVector& x, const LA_RealVector& y, const std::string& name,
                 bool shown, COM_Color& color);
    /// The same through the points of the polygon, whose shape is drawn; see GUI2D_Polygon.
    void addPlot(GEO_Polygon& polygon, const std::string& name, bool shown, COM_Color& color);
    void addPlot(const std::vector<double>& x, const std::vector<double>& y,
                 const std::string& name, COM_Color& color);
    COM_Array<GUI2D_Curve>& getCurves() const { return *mCurves; }
    unsigned long getPlotsNumber() const;

    // Over all curves.
    unsigned long getMinPointsNumber() const { return mMinPointsNumber; }
    unsigned long getMaxPointsNumber() const { return mMaxPointsNumber; }
    double getMinDeltaX() const { return mMinDeltaX; }
    double getMinDeltaY() const { return mMinDeltaY; }
    double getMaxDeltaX() const { return mMaxDeltaX; }
    double getMaxDeltaY() const { return mMaxDeltaY; }
    double getMeanDeltaX() const { return mMeanDeltaX; }
    double getMeanDeltaY() const { return mMeanDeltaY; }

    void showLegends(bool flag) { mLegendsPrinted = flag; }
    bool isLegendsPrinted() const { return mLegendsPrinted; }
    void showSubTitles(bool flag) { mSubTitlesPrinted = flag; }
    bool isSubTitlesPrinted() const { return mSubTitlesPrinted; }

    /// Divides the Y values of each curve whose name contains `key`.
    void curvesYNormalization(const std::string& key, double value);
    /// Shows all curves, transformed, in a window of their own; see GUI2D_Transform.
    void transform(bool isLogXTransform, bool isLogYTransform, bool isFFTXTransform,
                   bool isFFTYTransform, int n, double periodXFFTValue, double periodYFFTValue);

    // ---- drawing, while the panel is painted
    /// Draws the lines of a curve in user units, above what is drawn already. Those of neighbours in the list
    /// are put on the picture together.
    void drawTrace(GUI2D_Trace& trace, const COM_Color& color);
    /// Puts them there now. A curve that draws in another way begins with this.
    void finishTraces();

protected:
    GUI2D_Plotter();
    explicit GUI2D_Plotter(GUI_ParentPanel& parent);
    explicit GUI2D_Plotter(GUI_ParentPanel* parent);
    ~GUI2D_Plotter() override;

    /// Computes the extents anew from all curves and shows them, as a new view. Nothing without curves.
    void computeBounds();

private:
    void add(GUI2D_Curve& curve, const LA_RealVector& x, const LA_RealVector& y,
             const std::string& name, bool shown, COM_Color& color);
    /// Takes the figures of a curve into those of all. The means weigh it as one of `number` curves.
    void fold(const GUI2D_Curve& curve, unsigned long number);
    void paintSubTitles();
    void paintLegends();
    void drawName(const GUI2D_Curve& curve, const QPoint& baseline) const;
    void computePointsNumbers();

    double mXMin = -1.0; ///< Extent of all curves, in user units.
    double mXMax = 1.0;
    double mYMin = -1.0;
    double mYMax = 1.0;
    double mMinDeltaX = 0.0;
    double mMinDeltaY = 0.0;
    double mMaxDeltaX = 0.0; ///< The smallest of the curves' greatest steps.
    double mMaxDeltaY = 0.0;
    double mMeanDeltaX = 0.0;
    double mMeanDeltaY = 0.0;
    bool mBoundsComputed = false; ///< There was a curve.
    bool mLegendsPrinted = true;
    bool mSubTitlesPrinted = false;
    unsigned long mMinPointsNumber = 0;
    unsigned long mMaxPointsNumber = 0;
    COM_Array<GUI2D_Curve>* mCurves;         ///< In drawing order. Counted.
    std::vector<GUI2D_Layer::Curve> mTraces; ///< Drawn, but not yet on the picture.
    std::vector<GUI2D_Layer> mLayers;        ///< In drawing order.
    std::size_t mNextLayer = 0;              ///< The one that `finishTraces` takes.
};
