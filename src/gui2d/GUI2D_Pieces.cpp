#include "gui2d/GUI2D_Pieces.h"

#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Point.h"
#include "gui2d/GUI2D_Mapping.h"

#include <algorithm>
#include <cmath>

namespace {

/// An edge along one axis of the view, in units of the user.
struct Axis
{
    unsigned long mIndex;
    double mStart; ///< The edge's ends.
    double mEnd;
    double mLow; ///< Limits of the view.
    double mHigh;
    double mPixels; ///< Way of the edge along the axis.

    Axis(const GEO_Edge& edge, unsigned long index, double low, double high, double factor,
         double scale)
        : mIndex(index)
        , mStart(edge.getStartingPoint()->getValue(index))
        , mEnd(edge.getEndingPoint()->getValue(index))
    {
        const double unit = factor > 0.0 ? factor : 1.0;
        mLow = low * unit;
        mHigh = high * unit;
        mPixels = edge.getExtent(index) / unit * scale;
    }

    bool holds(double value) const { return value >= mLow && value <= mHigh; }
    bool isBeyond() const
    {
        return (mStart < mLow && mEnd < mLow) || (mStart > mHigh && mEnd > mHigh);
    }
};

} // namespace

std::vector<GUI2D_Pieces::Piece>
GUI2D_Pieces::of(const GEO_Edge& edge, const GUI2D_Mapping& mapping, int width, int height)
{
    const double most = std::max(width, height);
    if (edge.getStartingPoint() == nullptr || edge.getEndingPoint() == nullptr || most <= 0.0) {
        return {};
    }
    const Axis x(edge, 0, mapping.xMin(), mapping.xMax(), mapping.mXadim, mapping.mScaleX);
    const Axis y(edge, 1, mapping.yMin(), mapping.yMax(), mapping.mYadim, mapping.mScaleY);
    if (x.isBeyond() || y.isBeyond()) {
        return {};
    }
    // An incomplete edge, which has no points, leaves this one as it is.
    const COM_Scoped middle(GEO_Point::New(std::nan(""), std::nan("")));
    edge.computePoint(0.5, *middle);
    if (std::isnan(middle->getValue(0)) || std::isnan(middle->getValue(1))) {
        return {};
    }
    const Axis& longer = x.mPixels >= y.mPixels ? x : y;
    const bool isEndInside =
        (x.holds(x.mStart) && y.holds(y.mStart)) || (x.holds(x.mEnd) && y.holds(y.mEnd));
    std::vector<double> parameters{0.0, 1.0};
    if (!isEndInside || longer.mPixels > most) {
        for (const double limit : {longer.mLow, longer.mHigh}) {
            const std::vector<double> found = edge.getParametersAt(longer.mIndex, limit);
            parameters.insert(parameters.end(), found.begin(), found.end());
        }
    }
    COM_Real::shellSort(parameters.data(), static_cast<int>(parameters.size()));

    std::vector<Piece> pieces;
    for (unsigned long i = 0; i + 1 < parameters.size(); ++i) {
        const double from = parameters[i];
        const double to = parameters[i + 1];
        if (from == to) {
            continue;
        }
        // Between two limits a piece is inside or outside as a whole. A short one need not be asked: nothing
        // is seen of it where it is outside.
        const double steps = (to - from) * longer.mPixels;
        edge.computePoint((from + to) / 2.0, *middle);
        if (steps <= most || longer.holds(middle->getValue(longer.mIndex))) {
            pieces.push_back({from, to, static_cast<int>(std::clamp(std::ceil(steps), 1.0, most))});
        }
    }
    return pieces;
}
