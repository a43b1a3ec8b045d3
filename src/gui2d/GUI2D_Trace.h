#pragma once
#include "gui2d/GUI2D_Extremes.h"
#include "gui2d/GUI2D_Mapping.h"

#include <QLine>

#include <cstddef>
#include <cstdint>
#include <vector>

/// The lines that draw a curve of any length.
///
/// Drawing each segment of a curve, clipped and between its pixels, covers most pixels many times. The lines
/// given here cover the same pixels inside the view, every one and no other, with one line for each stretch of
/// a pixel column that segments within the column fill. Where the X values never decrease, a column is a
/// stretch of points, whose extremes a tree gives: the work then depends on the number of columns, not of
/// points.
class GUI2D_Trace
{
public:
    GUI2D_Trace() = default;
    /// Borrows the coordinates, in user units: they must stay as they are as long as the trace is asked.
    GUI2D_Trace(const double* x, const double* y, std::size_t size);

    /// A number that no other trace of this process has.
    std::uint64_t getId() const { return mId; }

    /// The lines for a view of `width` by `height` pixels. They stay until another view is asked for.
    const std::vector<QLine>& lines(const GUI2D_Mapping& mapping, int width, int height);

private:
    class Tracer;

    std::uint64_t mId = 0;
    const double* mX = nullptr;
    const double* mY = nullptr;
    std::size_t mSize = 0;
    bool mIsPrepared = false;
    bool mIsAscending = false; ///< All X values are finite and none is below the one before.
    GUI2D_Extremes mYExtremes; ///< Empty unless ascending.
    GUI2D_Mapping mMapping;    ///< Of `mLines`.
    int mWidth = -1;           ///< Of `mLines`; -1 without.
    int mHeight = -1;
    std::vector<QLine> mLines;
};
