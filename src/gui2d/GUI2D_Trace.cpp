#include "gui2d/GUI2D_Trace.h"

#include "gui2d/GUI2D_Clip.h"
#include "gui2d/GUI2D_Coverage.h"

#include <algorithm>
#include <cmath>

namespace {

using Point = GUI2D_Mapping::Point;

bool isAscending(const double* x, std::size_t size)
{
    bool isSo = size > 0 && std::isfinite(x[0]);
    for (std::size_t i = 1; isSo && i < size; ++i) {
        isSo = x[i] >= x[i - 1] && std::isfinite(x[i]);
    }
    return isSo;
}

std::uint64_t nextId()
{
    static std::uint64_t last = 0;
    return ++last;
}

} // namespace

/// Gathers the lines of one view.
class GUI2D_Trace::Tracer
{
public:
    Tracer(const GUI2D_Trace& trace, const GUI2D_Mapping& mapping, int width, int height,
           std::vector<QLine>& lines)
        : mTrace(trace)
        , mMapping(mapping)
        , mLines(lines)
        // Rounding may put the limits of the view one pixel outside it.
        , mCoverage(mapping.mGraphicsOrigin.x() - 2, mapping.mGraphicsOrigin.y() - 2, width + 4,
                    height + 4)
    {}

    /// Every segment by itself.
    void traceAll()
    {
        Point from = point(0);
        for (std::size_t i = 1; i < mTrace.mSize; ++i) {
            const Point to = point(i);
            segment(from, to);
            from = to;
        }
        mCoverage.takeLines(mLines);
    }

    /// Column after column. Requires: X ascends.
    void traceColumns()
    {
        const std::size_t size = mTrace.mSize;
        // The points of the view, with a neighbour on each side.
        const std::size_t inside = firstIndex(
            0, size, size / 2, [this](std::size_t i) { return modelX(i) >= mMapping.xMin(); });
        const std::size_t beyond = firstIndex(
            inside, size, size, [this](std::size_t i) { return modelX(i) > mMapping.xMax(); });
        const std::size_t end = std::min(beyond + 1, size);
        std::size_t first = inside > 0 ? inside - 1 : 0;
        std::size_t length = 1; // Of the stretch before: mostly, all are of about one length.
        while (first < end) {
            const int column = columnOf(first);
            const std::size_t next =
                firstIndex(first + 1, end, first + length, [this, column](std::size_t i) {
                    const double pixel = mMapping.pixelX(modelX(i));
                    return !(pixel >= column && pixel < column + 1.0);
                });
            // The neighbours outside the view belong to no column of it, even on a pixel of one.
            stretch(first, next - 1);
            if (next < end) {
                segment(point(next - 1), point(next));
            }
            length = next - first;
            first = next;
        }
        mCoverage.takeLines(mLines);
    }

private:
    double modelX(std::size_t i) const { return mMapping.modelX(mTrace.mX[i]); }
    int columnOf(std::size_t i) const { return GUI2D_Mapping::toPixel(mMapping.pixelX(modelX(i))); }
    Point point(std::size_t i) const
    {
        return mMapping.point(modelX(i), mMapping.modelY(mTrace.mY[i]));
    }

    /// The first index of a range for which `is` holds, its end if there is none. Requires: `is` holds from one
    /// index on, and `guess` is not below `begin`. It is found fast near `guess`, by steps that double.
    template <typename Predicate>
    static std::size_t firstIndex(std::size_t begin, std::size_t end, std::size_t guess,
                                  const Predicate& is)
    {
        std::size_t low = begin; // All below are not so.
        std::size_t high = end;  // All from here on are so.
        const std::size_t start = std::min(guess, end - 1);
        if (begin < end && is(start)) {
            high = start;
            for (std::size_t step = 1; low < high; step *= 2) {
                const std::size_t probe = high - std::min(step, high - low);
                if (!is(probe)) {
                    low = probe + 1;
                    break;
                }
                high = probe;
            }
        } else if (begin < end) {
            low = start + 1;
            for (std::size_t step = 1; low < high; step *= 2) {
                const std::size_t probe = low + std::min(step, high - low) - 1;
                if (is(probe)) {
                    high = probe;
                    break;
                }
                low = probe + 1;
            }
        }
        while (low < high) {
            const std::size_t middle = low + (high - low) / 2;
            if (is(middle)) {
                high = middle;
            } else {
                low = middle + 1;
            }
        }
        return high;
    }

    void add(const QLine& line)
    {
        if (line.x1() != line.x2() || !mCoverage.add(line.x1(), line.y1(), line.y2())) {
            mLines.push_back(line);
        }
    }

    void segment(const Point& from, const Point& to)
    {
        for (const QLine& line : GUI2D_Clip::clip(mMapping, from, to)) {
            add(line);
        }
    }

    /// The segments between the points `first` to `last`, which lie on one pixel column.
    void stretch(std::size_t first, std::size_t last)
    {
        const bool isBlock = modelX(first) >= mMapping.xMin() && modelX(last) <= mMapping.xMax();
        if (isBlock && drawBlock(mTrace.mYExtremes.getRange(first, last), columnOf(first))) {
            return;
        }
        std::size_t i = first;
        while (i < last) {
            i = isBlock ? skipBlock(i, last) : i;
            if (i < last) {
                segment(point(i), point(i + 1));
                ++i;
            }
        }
    }

    /// Draws the largest block that begins at `i`, ends before `last` and can be drawn at once, and gives its
    /// last point. Without such a block it gives `i`.
    std::size_t skipBlock(std::size_t i, std::size_t last)
    {
        const GUI2D_Extremes& extremes = mTrace.mYExtremes;
        for (std::size_t level = extremes.getLevels(); level-- > 0;) {
            const std::size_t size = GUI2D_Extremes::blockSize(level);
            if (i % size == 0 && i + size - 1 <= last
                && drawBlock(extremes.getBlock(level, i / size), columnOf(i))) {
                return i + size - 1;
            }
        }
        return i;
    }

    /// Draws the segments between points of these extremes. False, and nothing is drawn: some of them cross a
    /// limit of the view, or not all are finite.
    bool drawBlock(const GUI2D_Extremes::Range& range, int column)
    {
        if (!std::isfinite(range.mMin) || !std::isfinite(range.mMax)) {
            return false;
        }
        const double low = mMapping.modelY(range.mMin);
        const double high = mMapping.modelY(range.mMax);
        if (low >= mMapping.yMin() && high <= mMapping.yMax()) {
            add(QLine(column, GUI2D_Mapping::toPixel(mMapping.pixelY(low)), column,
                      GUI2D_Mapping::toPixel(mMapping.pixelY(high))));
            return true;
        }
        return low > mMapping.yMax() || high < mMapping.yMin();
    }

    const GUI2D_Trace& mTrace;
    const GUI2D_Mapping& mMapping;
    std::vector<QLine>& mLines;
    GUI2D_Coverage mCoverage;
};

GUI2D_Trace::GUI2D_Trace(const double* x, const double* y, std::size_t size)
    : mId(nextId())
    , mX(x)
    , mY(y)
    , mSize(size)
{}

const std::vector<QLine>& GUI2D_Trace::lines(const GUI2D_Mapping& mapping, int width, int height)
{
    if (!mIsPrepared) {
        mIsPrepared = true;
        mIsAscending = isAscending(mX, mSize);
        if (mIsAscending) {
            mYExtremes = GUI2D_Extremes(mY, mSize);
        }
    }
    if (mWidth == width && mHeight == height && mMapping == mapping) {
        return mLines;
    }
    mMapping = mapping;
    mWidth = width;
    mHeight = height;
    mLines.clear();
    if (mSize > 1) {
        Tracer tracer(*this, mMapping, width, height, mLines);
        if (mIsAscending) {
            tracer.traceColumns();
        } else {
            tracer.traceAll();
        }
    }
    return mLines;
}
