#pragma once
#include "gui2d/GUI2D_Mapping.h"

#include <QLine>

#include <array>

/// The pixel lines that remain of a segment inside the view.
///
/// Clipping is done in model units, so that data far outside the view never reach the painter.
class GUI2D_Clip
{
public:
    /// A segment crosses the limits at most four times.
    static constexpr int MAX_LINES = 4;

    /// At most `MAX_LINES` lines; not every one of those places is in use.
    class Lines
    {
    public:
        const QLine* begin() const { return mLines.data(); }
        const QLine* end() const { return mLines.data() + mSize; }
        int size() const { return mSize; }
        void add(const QPoint& from, const QPoint& to) { mLines[mSize++] = QLine(from, to); }

    private:
        std::array<QLine, MAX_LINES> mLines;
        int mSize = 0;
    };

    /// What is drawn of the line between two points, each from left to right. A point that is not finite
    /// leaves nothing.
    static Lines clip(const GUI2D_Mapping& mapping, GUI2D_Mapping::Point from,
                      GUI2D_Mapping::Point to);
};
