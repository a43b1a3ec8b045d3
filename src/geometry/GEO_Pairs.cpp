#include "geometry/GEO_Pairs.h"

#include "geometry/GEO_Curve.h"

GEO_Pairs::GEO_Pairs()
{
    COM_TYPE(GEO_Pairs);
}

GEO_Curve* GEO_Pairs::getInChain(const Pair& pair) const
{
    GEO_Curve* const curve = GEO_Numbers::get(pair.first);
    return curve != nullptr && curve->getPair() == pair ? curve : nullptr;
}

GEO_Curve* GEO_Pairs::get(const Pair& pair) const
{
    if (GEO_Curve* const curve = getInChain(pair)) {
        return curve;
    }
    const auto branch = mBranches.find(pair);
    return branch != mBranches.end() ? branch->second : nullptr;
}

void GEO_Pairs::put(const Pair& pair, GEO_Curve& curve)
{
    remove(pair);
    if (GEO_Numbers::get(pair.first) == nullptr) {
        GEO_Numbers::put(pair.first, curve);
    } else {
        mBranches.emplace(pair, &curve);
    }
}

void GEO_Pairs::remove(const Pair& pair)
{
    if (getInChain(pair) != nullptr) {
        GEO_Numbers::remove(pair.first);
    } else {
        mBranches.erase(pair);
    }
}
