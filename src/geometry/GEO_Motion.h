#pragma once
#include <functional>
#include <set>

class GEO_Point;
class GEO_Vertex;

/// A motion of points, applied to figures whose parts share vertices: each vertex moves once.
class GEO_Motion
{
public:
    /// The vertices that have moved.
    using Moved = std::set<GEO_Vertex*>;

    explicit GEO_Motion(std::function<void(GEO_Point&)> move)
        : mMove(std::move(move))
    {}

    /// Moves the vertex's point, unless the vertex is in `moved` already. A null vertex or one without a
    /// point is passed over.
    void apply(GEO_Vertex* vertex, Moved& moved) const;
    /// Moves a point that belongs to one figure alone.
    void apply(GEO_Point& point) const { mMove(point); }

    /// Tells what depends on the vertices that they have moved.
    static void tell(const Moved& moved);

private:
    std::function<void(GEO_Point&)> mMove;
};
