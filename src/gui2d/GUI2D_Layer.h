#pragma once
#include "gui2d/GUI2D_Mapping.h"

#include <QImage>
#include <QLine>
#include <QRect>

#include <cstdint>
#include <vector>

class GUI2D_Trace;
class QPainter;

/// The curves of a plot as a picture that is kept: as long as view and curves are the same, painting them means
/// copying it.
class GUI2D_Layer
{
public:
    struct Curve
    {
        GUI2D_Trace* mTrace; ///< Borrowed for the call.
        QRgb mColor;         ///< Opaque.
    };

    /// Paints the curves in their order, as one pixel wide lines, over a panel of this size. On a screen with a
    /// higher ratio of pixels they have that resolution. A device without pixels, such as a printer, gets the
    /// lines themselves.
    void paint(QPainter& painter, const GUI2D_Mapping& mapping, const QSize& size,
               const std::vector<Curve>& curves);

    /// Whether the painter fills pixels. A printer or a file of shapes gets lines and letters instead.
    static bool hasPixels(const QPainter& painter);
    /// Draws lines on a picture, exactly as a painter does.
    static void drawLines(QImage& picture, const std::vector<QLine>& lines, QRgb color);

private:
    struct Drawn
    {
        std::uint64_t mTrace;
        QRgb mColor;

        bool operator==(const Drawn&) const = default;
    };

    /// Draws the picture, unless it is drawn.
    void update(const GUI2D_Mapping& mapping, const QSize& size, const std::vector<Curve>& curves);

    QImage mPicture;            ///< In pixels of the screen. Null: none is kept.
    QRect mCovered;             ///< The part of the picture outside which nothing is drawn.
    GUI2D_Mapping mMapping;     ///< Onto the picture.
    std::vector<Drawn> mCurves; ///< Those on the picture.
};
