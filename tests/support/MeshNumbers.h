#pragma once
#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Vertex.h"
#include "quorvex/QV_Milieu.h"

#include <vector>

using Numbers = std::vector<long>;

/// Location numbers of nodes or lines, as they stand in the array.
template <typename T>
Numbers numbersOf(const COM_Array<T>& array)
{
    Numbers numbers;
    for (unsigned long i = 0; i < array.size(); ++i) {
        numbers.push_back(array[i].getLocationNumber());
    }
    return numbers;
}

inline Numbers verticesOf(const QV_Milieu& milieu)
{
    const COM_Scoped array(COM_Array<GEO_Vertex>::New());
    milieu.getVertices(*array);
    return numbersOf(*array);
}

inline Numbers linesOf(const QV_Milieu& milieu)
{
    const COM_Scoped array(COM_Array<GEO_Line>::New());
    milieu.getLines(*array);
    return numbersOf(*array);
}

inline Numbers savingVerticesOf(const QV_Milieu& milieu)
{
    const COM_Scoped array(COM_Array<GEO_Vertex>::New());
    milieu.getSavingVertices(*array);
    return numbersOf(*array);
}
