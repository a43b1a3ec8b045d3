#pragma once
#include <vector>

class GEO_Edge;
struct GUI2D_Mapping;

/// The parts of a smooth edge that a view may show, and how finely each of them is to be drawn.
///
/// An edge that is longer than the view is cut where it enters and leaves. So a deep zoom costs no more than
/// a plain view, and its lines are as short.
class GUI2D_Pieces
{
public:
    struct Piece
    {
        double mFrom; ///< Parameters of the edge, ascending.
        double mTo;
        int mSteps; ///< About one for each pixel on the way; at least 1.
    };

    /// In the order of the parameter, for a view of `width` times `height` pixels. None for an edge whose ends
    /// both lie beyond the same side of the view, even where it bends into it; nor for one without ends.
    static std::vector<Piece> of(const GEO_Edge& edge, const GUI2D_Mapping& mapping, int width,
                                 int height);
};
