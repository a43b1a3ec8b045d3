#include "gui2d/GUI2D_Clip.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

using Point = GUI2D_Mapping::Point;

/// The parameters, ascending, at which a segment crosses the limits of the view.
class Crossings
{
public:
    /// Enters `t` when the segment meets there a limit between `low` and `high`, where `across` is its
    /// coordinate along the limit.
    void add(double t, double across, double low, double high)
    {
        if (!(t > 0.0 && t <= 1.0 && across >= low && across <= high)) {
            return;
        }
        double* const end = mValues.data() + mSize;
        double* const place = std::upper_bound(mValues.data(), end, t);
        std::move_backward(place, end, end + 1);
        *place = t;
        ++mSize;
    }
    int size() const { return mSize; }
    double operator[](int index) const { return mValues[index]; }

private:
    std::array<double, 4> mValues{};
    int mSize = 0;
};

bool isFinite(const Point& point)
{
    return std::isfinite(point.mX) && std::isfinite(point.mY);
}

QPoint pixelAt(const QPoint& from, const QPoint& to, double t)
{
    const auto along = [t](int a, int b) {
        return a + static_cast<int>((static_cast<double>(b) - a) * t);
    };
    return {along(from.x(), to.x()), along(from.y(), to.y())};
}

} // namespace

GUI2D_Clip::Lines GUI2D_Clip::clip(const GUI2D_Mapping& mapping, Point from, Point to)
{
    Lines lines;
    if (!isFinite(from) || !isFinite(to)) {
        return lines;
    }
    if (to.mX < from.mX) {
        std::swap(from, to);
    }
    const double xMin = mapping.xMin();
    const double xMax = mapping.xMax();
    const double yMin = mapping.yMin();
    const double yMax = mapping.yMax();
    if (to.mX < xMin || from.mX > xMax || (from.mY > yMax && to.mY > yMax)
        || (from.mY < yMin && to.mY < yMin)) {
        return lines;
    }
    const auto isInside = [&](const Point& p) {
        return p.mX >= xMin && p.mX <= xMax && p.mY >= yMin && p.mY <= yMax;
    };
    if (isInside(from) && isInside(to)) {
        lines.add(from.mPixel, to.mPixel);
        return lines;
    }
    Crossings crossings;
    const double dx = to.mX - from.mX;
    const double dy = to.mY - from.mY;
    if (dx != 0.0) {
        for (const double limit : {xMin, xMax}) {
            const double t = (limit - from.mX) / dx;
            crossings.add(t, from.mY + t * dy, yMin, yMax);
        }
    }
    if (dy != 0.0) {
        for (const double limit : {yMin, yMax}) {
            const double t = (limit - from.mY) / dy;
            crossings.add(t, from.mX + t * dx, xMin, xMax);
        }
    }
    if (crossings.size() == 0) {
        return lines;
    }
    const auto crossing = [&](int i) { return pixelAt(from.mPixel, to.mPixel, crossings[i]); };
    int next = 0;
    QPoint pen = from.mPixel;
    if (!isInside(from)) {
        pen = crossing(next++);
    }
    // In and out by turns: a crossing that leaves the view ends a line, the one after it begins the next.
    bool isOpen = true;
    for (; next < crossings.size(); next += 2) {
        lines.add(pen, crossing(next));
        isOpen = next + 1 < crossings.size();
        if (isOpen) {
            pen = crossing(next + 1);
        }
    }
    if (isOpen) {
        lines.add(pen, to.mPixel);
    }
    return lines;
}
