#pragma once
#include <functional>
#include <set>

class GEO_Object;
class GEO_Point;
class GEO_Vertex;

/// A motion of points, applied to figures whose parts share vertices and points: each point moves once.
class GEO_Motion
{
public:
    /// What has moved: vertices, their points, and curves with points of their own.
    using Moved = std::set<GEO_Object*>;

    explicit GEO_Motion(std::function<void(GEO_Point&)> move)
        : mMove(std::move(move))
    {}

    /// Moves the vertex's point, unless it is in `moved` already. A null vertex or one without a point is
    /// passed over.
    void apply(GEO_Vertex* vertex, Moved& moved) const;
    /// Moves a point that belongs to one curve alone.
    void apply(GEO_Point& point) const { mMove(point); }

    /// Tells all that have moved, and through them what depends on them.
    static void tell(const Moved& moved);

private:
    std::function<void(GEO_Point&)> mMove;
};
