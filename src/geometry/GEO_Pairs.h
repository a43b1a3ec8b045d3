#pragma once
#include "geometry/GEO_Numbers.h"

#include <map>
#include <utility>

class GEO_Curve;

/// Curves by the numbers of their two vertices, whatever the direction, as a view.
///
/// In a chain one curve leads on from each vertex, and stands at the smaller number of its pair. Only where
/// chains branch a further curve of that number stands by its whole pair. A curve leaves before one of its
/// ends, or the number of one, changes.
class GEO_Pairs : private GEO_Numbers<GEO_Curve>
{
    COM_CLASS(GEO_Pairs)
public:
    using Pair = std::pair<unsigned long, unsigned long>; ///< The smaller number first.

    /// The curve, or null.
    GEO_Curve* get(const Pair& pair) const;
    /// Takes the pair for `curve`, which joins it, also from another curve.
    void put(const Pair& pair, GEO_Curve& curve);
    /// Does nothing for a pair that is free.
    void remove(const Pair& pair);

protected:
    GEO_Pairs();
    ~GEO_Pairs() override = default;

private:
    /// The curve of that pair among those that stand at their smaller number, or null.
    GEO_Curve* getInChain(const Pair& pair) const;

    std::map<Pair, GEO_Curve*> mBranches; ///< Borrowed.
};
