#pragma once
#include "gui2d/GUI2D_Trace.h"
#include "metaModel/MM_Object.h"

#include <string>

class COM_Color;
class GUI2D_Plotter;
class LA_RealVector;

/// A line of a plot: its points, a name, a colour, and figures about the points that are computed once when
/// they are set.
class GUI2D_Curve : public virtual MM_Object
{
    COM_CLASS(GUI2D_Curve)
public:
    void loadFromMetaClass(const MM_Class& metaClass) override;
    void saveToMetaClass(MM_Class& metaClass) const override;
    /// Draws the line while the plotter is painted, if it is shown. Without points nothing is drawn.
    virtual void draw(GUI2D_Plotter& plotter);

    void setShown(bool flag) { mIsShown = flag; }
    bool isShown() const { return mIsShown; }
    void setName(const std::string& name) { mName = name; }
    const std::string& getName() const { return mName; }
    void setColor(COM_Color& color);
    /// Null is `resetColor`.
    void setColor(COM_Color* color);
    void resetColor();
    /// Null without one: drawn black.
    COM_Color* getColor() const { return mColor; }

    /// Copies the values and computes the figures about them.
    void setXValues(const LA_RealVector& values) { setValues(mX, mXAxis, values); }
    void setYValues(const LA_RealVector& values) { setValues(mY, mYAxis, values); }
    const LA_RealVector* getXValues() const { return mX; }
    const LA_RealVector* getYValues() const { return mY; }
    /// Divides the values, unless `factor` is 0; and the figures about them, by 0 too.
    void divideXValues(double factor) { divideValues(mX, mXAxis, factor); }
    void divideYValues(double factor) { divideValues(mY, mYAxis, factor); }
    void setXBounds(double min, double max) { mXAxis.setBounds(min, max); }
    void setYBounds(double min, double max) { mYAxis.setBounds(min, max); }

    double getXMin() const { return mXAxis.mMin; }
    double getXMax() const { return mXAxis.mMax; }
    double getYMin() const { return mYAxis.mMin; }
    double getYMax() const { return mYAxis.mMax; }
    /// The greatest absolute value, or 1 where that is not positive.
    double getXMaxAmplitude() const { return mXAxis.mAbsMax; }
    double getYMaxAmplitude() const { return mYAxis.mAbsMax; }
    // Steps between neighbouring points, signed. The mean lacks the first step, though it divides by all.
    double getMinDeltaX() const { return mXAxis.mMinDelta; }
    double getMinDeltaY() const { return mYAxis.mMinDelta; }
    double getMaxDeltaX() const { return mXAxis.mMaxDelta; }
    double getMaxDeltaY() const { return mYAxis.mMaxDelta; }
    double getMeanDeltaX() const { return mXAxis.mMeanDelta; }
    double getMeanDeltaY() const { return mYAxis.mMeanDelta; }
    /// The smaller of both lengths; 0 if a vector is missing.
    unsigned long getPointsNumber() const;

protected:
    GUI2D_Curve();
    ~GUI2D_Curve() override;

private:
    /// Figures about the values along one axis.
    struct Axis
    {
        double mAbsMax = -1.0;
        double mMax = -1.0;
        double mMin = 1.0;
        double mMinDelta = 0.0;
        double mMaxDelta = 0.0;
        double mMeanDelta = 0.0;

        /// Without values the bounds stay.
        void set(const LA_RealVector& values);
        void setBounds(double min, double max);
        void divide(double factor);
    };

    void setValues(LA_RealVector*& field, Axis& axis, const LA_RealVector& values);
    void divideValues(LA_RealVector* values, Axis& axis, double factor);
    void updateTrace();
    void loadValues(const MM_Class& metaClass, const char* key, LA_RealVector*& field, Axis& axis);

    std::string mName = "Curve";
    bool mIsShown = true;
    LA_RealVector* mX = nullptr; ///< Counted; null: no points.
    LA_RealVector* mY = nullptr;
    Axis mXAxis;
    Axis mYAxis;
    COM_Color* mColor = nullptr; ///< Counted, shared.
    GUI2D_Trace mTrace;          ///< Of `mX` and `mY` as they are.
};
