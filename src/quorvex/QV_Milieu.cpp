#include "quorvex/QV_Milieu.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Curve.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Line.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Polygon.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"
#include "metaModel/MM_Class.h"

#include <algorithm>
#include <vector>

namespace {

constexpr unsigned long fewestNodes = 3;

/// Calls `visit` with every edge that has both ends. The single edge of a zone of one node lacks one.
template <typename Visit>
void forEachEdge(const COM_Map<std::string, GEO_Volume>& volumes, Visit visit)
{
    for (const std::string& name : volumes.keys()) {
        const COM_Array<GEO_Shell>& shells = volumes[name].getShells();
        for (unsigned long i = 0; i < shells.size(); ++i) {
            if (!shells[i].instanceOf("GEO_Polygon")) {
                continue;
            }
            const COM_Array<GEO_Edge>& edges = dynamic_cast<GEO_Polygon&>(shells[i]).getEdges();
            for (unsigned long j = 0; j < edges.size(); ++j) {
                if (edges[j].getStartingVertex() != nullptr
                    && edges[j].getEndingVertex() != nullptr) {
                    visit(edges[j]);
                }
            }
        }
    }
}

template <typename T>
bool isBefore(const T* a, const T* b)
{
    return a->getLocationNumber() < b->getLocationNumber();
}

/// The largest location number, or -1 when one of `found` has none.
template <typename T>
long largestLocation(const std::vector<T*>& found)
{
    long largest = -1;
    for (const T* object : found) {
        const long number = object->getLocationNumber();
        if (number < 0) {
            return -1;
        }
        largest = std::max(largest, number);
    }
    return largest;
}

/// Fills `out` with `found` in ascending order of location numbers, the last of equal numbers only.
template <typename T>
void sortByLocation(std::vector<T*>& found, COM_Array<T>& out)
{
    out.setSize(0);
    const long largest = largestLocation(found);
    if (largest >= 0 && static_cast<std::size_t>(largest) < found.size()) {
        // The numbers of a mesh have no gaps: each is the place of its object. `add` passes over an empty place.
        std::vector<T*> places(static_cast<std::size_t>(largest) + 1, nullptr);
        for (T* object : found) {
            places[static_cast<std::size_t>(object->getLocationNumber())] = object;
        }
        for (T* object : places) {
            out.add(object);
        }
        return;
    }
    std::stable_sort(found.begin(), found.end(), isBefore<T>);
    for (std::size_t i = 0; i < found.size(); ++i) {
        if (i + 1 == found.size() || isBefore(found[i], found[i + 1])) {
            out.add(found[i]);
        }
    }
}

} // namespace

QV_Milieu::QV_Milieu()
    : mVolumes(COM_Map<std::string, GEO_Volume>::New())
    , mBoundariesName(COM_Map<std::string, GEO_Object>::New())
    , mSavingVertices(COM_Map<long, GEO_Vertex>::New())
{
    COM_TYPE(QV_Milieu);
}

QV_Milieu::~QV_Milieu()
{
    mSavingVertices->Delete();
    mBoundariesName->Delete();
    mVolumes->Delete();
}

void QV_Milieu::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Object::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mIndice", mIndice);
}

void QV_Milieu::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Object::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mIndice", &mIndice);
}

void QV_Milieu::getVertices(COM_Array<GEO_Vertex>& vertices) const
{
    std::vector<GEO_Vertex*> found;
    forEachEdge(*mVolumes, [&found](const GEO_Edge& edge) {
        // Along a chain each edge starts where the one before it ended.
        if (found.empty() || found.back() != edge.getStartingVertex()) {
            found.push_back(edge.getStartingVertex());
        }
        found.push_back(edge.getEndingVertex());
    });
    sortByLocation(found, vertices);
}

void QV_Milieu::getLines(COM_Array<GEO_Line>& lines) const
{
    std::vector<GEO_Line*> found;
    forEachEdge(*mVolumes, [&found](const GEO_Edge& edge) {
        if (auto* const line = dynamic_cast<GEO_Line*>(edge.getCurve())) {
            found.push_back(line);
        }
    });
    sortByLocation(found, lines);
}

GEO_Vertex* QV_Milieu::getVertex(unsigned char which) const
{
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New(false)); // the mesh holds them
    getVertices(*vertices);
    const unsigned long n = vertices->size();
    unsigned long index = 0;
    if (which == SECOND_VERTEX) {
        index = 1;
    } else if (which == BEFORE_LAST_VERTEX) {
        index = n - 2; // wraps to a huge index when there are not two nodes
    } else if (which == LAST_VERTEX) {
        index = n - 1;
    }
    return index < n ? vertices->get(index) : nullptr;
}

long QV_Milieu::getBoundaryLocation(const std::string& name) const
{
    const auto* const vertex = dynamic_cast<GEO_Vertex*>(getBoundaryWithName(name));
    return vertex == nullptr ? -1 : vertex->getLocationNumber();
}

double QV_Milieu::getCellLength()
{
    const GEO_Vertex* const first = GEO_Vertex::get(0);
    if (first == nullptr) {
        return -1.0;
    }
    // A first zone of node 0 alone has a curve there as well, which leads nowhere.
    const COM_Array<GEO_Curve>& curves = first->getStartingCurves();
    for (unsigned long i = 0; i < curves.size(); ++i) {
        if (curves[i].getEndingVertex() != nullptr) {
            return curves[i].getLength();
        }
    }
    return -1.0;
}

bool QV_Milieu::isMeshed() const
{
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New(false)); // the mesh holds them
    getVertices(*vertices);
    return vertices->size() >= fewestNodes && getBoundaryLocation(FIRST_NODE) >= 0
           && getBoundaryLocation(LAST_NODE) >= 0;
}

void QV_Milieu::addToSavingVertices(GEO_Vertex* vertex)
{
    if (vertex != nullptr) {
        mSavingVertices->put(vertex->getLocationNumber(), vertex);
    }
}

void QV_Milieu::removeFromSavingVertices(GEO_Vertex& vertex)
{
    mSavingVertices->remove(vertex.getLocationNumber());
}

void QV_Milieu::resetSavingVertices()
{
    mSavingVertices->clear();
}

void QV_Milieu::getSavingVertices(COM_Array<GEO_Vertex>& vertices) const
{
    mSavingVertices->values(vertices);
}

void QV_Milieu::setVolume(const std::string& name, GEO_Volume& volume)
{
    mVolumes->put(name, volume);
}

void QV_Milieu::resetVolumes()
{
    mVolumes->clear();
}

void QV_Milieu::resetBoundaryWithName(const std::string& name)
{
    mBoundariesName->remove(name);
}

void QV_Milieu::resetBoundaries()
{
    mBoundariesName->clear();
}

void QV_Milieu::setBoundaryWithName(const std::string& name, GEO_Object& boundary)
{
    mBoundariesName->put(name, boundary);
}

void QV_Milieu::adimensionize(double scale)
{
    if (scale == 0.0) {
        return;
    }
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New(false)); // the mesh holds them
    getVertices(*vertices);
    for (unsigned long i = 0; i < vertices->size(); ++i) {
        if (GEO_Point* const point = (*vertices)[i].getPoint()) {
            point->dividedBy(scale);
        }
    }
}
