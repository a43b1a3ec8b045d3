#pragma once
#include <QPoint>

/// How the points of a plot fall on the pixels of its panel, and back.
///
/// A model point is a point of the user's divided by the adimensioning factors, which keeps the arithmetic of
/// scales near 1 whatever the physical magnitude. Pixels count from the top left of the panel.
struct GUI2D_Mapping
{
    /// An end of a line, in model units and on its pixel.
    struct Point
    {
        double mX = 0.0;
        double mY = 0.0;
        QPoint mPixel;
    };

    double mOriginX = 0.0; ///< Model point at the top left corner of the graphics area.
    double mOriginY = 1.0;
    double mWidth = 1.0; ///< Extent of the visible model rectangle.
    double mHeight = 1.0;
    double mScaleX = 1.0; ///< Pixels per model unit.
    double mScaleY = 1.0;
    long mXDirection = 1; ///< Sign of the pixel axis against the model axis.
    long mYDirection = -1;
    QPoint mGraphicsOrigin; ///< Top left pixel of the graphics area.
    double mXadim = 1.0;    ///< Adimensioning factors.
    double mYadim = 1.0;

    // The limits of the view, in model units.
    double xMin() const { return mOriginX; }
    double xMax() const { return mOriginX + mWidth; }
    double yMin() const { return mOriginY - mHeight; }
    double yMax() const { return mOriginY; }

    /// The user's coordinates in model units. A factor that is not positive divides nothing.
    double modelX(double x) const { return mXadim > 0.0 ? x / mXadim : x; }
    double modelY(double y) const { return mYadim > 0.0 ? y / mYadim : y; }

    /// Where a model coordinate falls, between pixels too.
    double pixelX(double x) const
    {
        return mGraphicsOrigin.x() + (x - mOriginX) * static_cast<double>(mXDirection) * mScaleX;
    }
    double pixelY(double y) const
    {
        return mGraphicsOrigin.y() + (y - mOriginY) * static_cast<double>(mYDirection) * mScaleY;
    }
    QPoint pixel(double x, double y) const { return {toPixel(pixelX(x)), toPixel(pixelY(y))}; }
    Point point(double x, double y) const { return {x, y, pixel(x, y)}; }

    /// The model coordinates of a pixel. Requires: the scale is not 0.
    double modelOfPixelX(int x) const
    {
        return mOriginX + static_cast<double>((x - mGraphicsOrigin.x()) * mXDirection) / mScaleX;
    }
    double modelOfPixelY(int y) const
    {
        return mOriginY + static_cast<double>((y - mGraphicsOrigin.y()) * mYDirection) / mScaleY;
    }

    bool operator==(const GUI2D_Mapping&) const = default;
    /// The same view on a picture with `ratio` times the pixels along each axis.
    GUI2D_Mapping scaled(double ratio) const;

    /// The largest integer that is not above `value`. Not-a-number is 0, and pixels so far away that they
    /// could not be counted lie at 10^9.
    static int toPixel(double value);
};
