#pragma once
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
    void setXValues(const LA_RealVector& values);
    void setYValues(const LA_RealVector& values);
    const LA_RealVector* getXValues() const { return mX; }
    const LA_RealVector* getYValues() const { return mY; }
    /// Divides the values, unless `factor` is 0; and the figures about them, by 0 too.
    void divideXValues(double factor);
    void divideYValues(double factor);
    void setXBounds(double min, double max);
    void setYBounds(double min, double max);

    double getXMin() const { return mXMin; }
    double getXMax() const { return mXMax; }
    double getYMin() const { return mYMin; }
    double getYMax() const { return mYMax; }
    /// The greatest absolute value, or 1 where that is not positive.
    double getXMaxAmplitude() const { return mAbsXMax; }
    double getYMaxAmplitude() const { return mAbsYMax; }
    // Steps between neighbouring points, signed. The mean lacks the first step, though it divides by all.
    double getMinDeltaX() const { return mMinDeltaX; }
    double getMinDeltaY() const { return mMinDeltaY; }
    double getMaxDeltaX() const { return mMaxDeltaX; }
    double getMaxDeltaY() const { return mMaxDeltaY; }
    double getMeanDeltaX() const { return mMeanDeltaX; }
    double getMeanDeltaY() const { return mMeanDeltaY; }
    /// The smaller of both lengths; 0 if a vector is missing.
    unsigned long getPointsNumber() const;

protected:
    GUI2D_Curve();
    ~GUI2D_Curve() override;

private:
    std::string mName = "Curve";
    bool mIsShown = true;
    LA_RealVector* mX = nullptr; ///< Counted; null: no points.
    LA_RealVector* mY = nullptr;
    double mAbsXMax = -1.0;
    double mAbsYMax = -1.0;
    double mXMax = -1.0;
    double mYMax = -1.0;
    double mXMin = 1.0;
    double mYMin = 1.0;
    double mMinDeltaX = 0.0;
    double mMinDeltaY = 0.0;
    double mMaxDeltaX = 0.0;
    double mMaxDeltaY = 0.0;
    double mMeanDeltaX = 0.0;
    double mMeanDeltaY = 0.0;
    COM_Color* mColor = nullptr; ///< Counted, shared.
};
