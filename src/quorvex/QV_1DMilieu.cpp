#include "quorvex/QV_1DMilieu.h"

#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Curve.h"
#include "geometry/GEO_DelaunayPolygon.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Vertex.h"
#include "geometry/GEO_Volume.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"

#include <algorithm>
#include <iostream>

namespace {

/// Number of the node that stands at `percent` of `n` nodes.
long nodeAt(double percent, long n)
{
    const long nodes = COM_Real::toLong(percent * static_cast<double>(n) / 100.0);
    return std::max(nodes, -QV_1DMilieu::Mesh::LARGEST) - 1;
}

/// Appends new or known nodes `first` to `last` to `polygon`. Gives the last one, or null when there is
/// none; the polygon keeps it alive.
GEO_Vertex* appendNodes(GEO_Polygon& polygon, long first, long last, double cell)
{
    GEO_Vertex* end = nullptr;
    for (long i = first; i <= last; ++i) {
        const COM_Scoped point(GEO_Point::New(static_cast<double>(i) * cell));
        const COM_Scoped vertex(GEO_Vertex::New(i));
        vertex->setPoint(*point);
        polygon.cat(*vertex);
        end = vertex.get();
    }
    return end;
}

} // namespace

QV_1DMilieu::QV_1DMilieu()
{
    COM_TYPE(QV_1DMilieu);
    initCaptors();
}

QV_1DMilieu::~QV_1DMilieu()
{
    resetCaptors();
}

void QV_1DMilieu::saveToMetaClass(MM_Class& metaClass) const
{
    QV_Milieu::saveToMetaClass(metaClass);
    metaClass.addAttributeToMetaFields("mLength", mLength);
    metaClass.addAttributeToMetaFields("mStartingPosition", mStartingPosition);
    metaClass.addAttributeToMetaFields("mEndingPosition", mEndingPosition);
    metaClass.addAttributeToMetaFields("mDiscretizationNumber", mDiscretizationNumber);
    metaClass.addAttributeToMetaFields("mCaracteristicLength", mCaracteristicLength);
    metaClass.addAssociationToMetaFields("mCaptors", mCaptors);
}

void QV_1DMilieu::loadFromMetaClass(const MM_Class& metaClass)
{
    QV_Milieu::loadFromMetaClass(metaClass);
    metaClass.getAttributeFromMetaFields("mLength", &mLength);
    metaClass.getAttributeFromMetaFields("mStartingPosition", &mStartingPosition);
    metaClass.getAttributeFromMetaFields("mEndingPosition", &mEndingPosition);
    metaClass.getAttributeFromMetaFields("mDiscretizationNumber", &mDiscretizationNumber);
    metaClass.getAttributeFromMetaFields("mCaracteristicLength", &mCaracteristicLength);
    const COM_Scoped captors(metaClass.getAssociationFromMetaFields("mCaptors"));
    if (auto* const vector = dynamic_cast<LA_RealVector*>(captors.get())) {
        setCaptors(*vector);
    }
}

QV_1DMilieu::Mesh QV_1DMilieu::computeMesh() const
{
    Mesh mesh{};
    mesh.mCell = mCaracteristicLength / static_cast<double>(mDiscretizationNumber);
    mesh.mNodesNumber = COM_Real::toLong(mLength / mesh.mCell);
    mesh.mFirstActive = nodeAt(mStartingPosition, mesh.mNodesNumber);
    mesh.mLastActive = std::max(nodeAt(mEndingPosition, mesh.mNodesNumber), mesh.mFirstActive);
    return mesh;
}

void QV_1DMilieu::create()
{
    resetSavingVertices();
    resetVolumes();
    resetBoundaries();

    const Mesh mesh = computeMesh();
    const long last = mesh.mNodesNumber > Mesh::LARGEST ? -1 : mesh.mNodesNumber - 1;
    const COM_Scoped milS(GEO_DelaunayPolygon::New());
    const COM_Scoped bound1S(GEO_DelaunayPolygon::New());
    const COM_Scoped bound2S(GEO_DelaunayPolygon::New());

    if (GEO_Vertex* const node =
            appendNodes(*bound1S, 0, std::min(mesh.mFirstActive, last), mesh.mCell);
        node != nullptr && node->getLocationNumber() == mesh.mFirstActive) {
        milS->cat(*node);
        setBoundaryWithName(FIRST_NODE, *node);
        setBoundaryWithName(LAST_NODE, *node); // stays so when the zone ends where it starts
    }
    if (GEO_Vertex* const node = appendNodes(*milS, std::max(mesh.mFirstActive + 1, 0L),
                                             std::min(mesh.mLastActive, last), mesh.mCell)) {
        setBoundaryWithName(LAST_NODE, *node);
    }
    if (mesh.mLastActive > last) {
        resetBoundaryWithName(LAST_NODE);
    }
    if (auto* const node = dynamic_cast<GEO_Vertex*>(getBoundaryWithName(LAST_NODE))) {
        bound2S->cat(*node);
    }
    appendNodes(*bound2S, std::max(mesh.mLastActive + 1, 0L), last, mesh.mCell);

    for (const GEO_Polygon* polygon : {bound1S.get(), bound2S.get(), milS.get()}) {
        const COM_Array<GEO_Edge>& edges = polygon->getEdges();
        for (unsigned long i = 0; i < edges.size(); ++i) {
            if (edges[i].getEndingVertex() != nullptr) {
                edges[i].getCurve()->setLocationNumber(
                    edges[i].getStartingVertex()->getLocationNumber());
            }
        }
    }
    const auto addZone = [this](const std::string& name, GEO_Polygon& shell) {
        const COM_Scoped volume(GEO_Volume::New());
        volume->addToShells(&shell);
        setVolume(name, *volume);
    };
    addZone("milieu", *milS);
    addZone("bound1", *bound1S);
    addZone("bound2", *bound2S);

    std::cout << mesh.mNodesNumber << " pas d'espace de longueur " << mesh.mCell << "\n";
    createSavingVertices();
}

void QV_1DMilieu::setCaptors(LA_RealVector* captors)
{
    associate(mCaptors, captors);
}

void QV_1DMilieu::initCaptors()
{
    const COM_Scoped captors(LA_RealVector::New(0));
    captors->setValues(30.0, 50.0, 70.0);
    setCaptors(*captors);
}

void QV_1DMilieu::addToCaptors(int index, double position)
{
    if (index < 0) {
        return;
    }
    if (mCaptors == nullptr) {
        const COM_Scoped captors(LA_RealVector::New(0));
        setCaptors(*captors);
    }
    const auto i = static_cast<unsigned long>(index);
    mCaptors->setDimension(std::max(mCaptors->getDimension(), i + 1));
    mCaptors->setValue(i, position);
}

void QV_1DMilieu::createSavingVertices()
{
    const COM_Scoped vertices(COM_Array<GEO_Vertex>::New(false)); // the mesh holds them
    getVertices(*vertices);
    const unsigned long n = vertices->size();
    if (n >= 2) {
        QV_Milieu::addToSavingVertices((*vertices)[1]);
        QV_Milieu::addToSavingVertices((*vertices)[n - 2]);
    }
    for (unsigned long i = 0; mCaptors != nullptr && i < mCaptors->getDimension(); ++i) {
        addSavingVertexAt(mCaptors->getValue(i), *vertices);
    }
}

void QV_1DMilieu::addSavingVertexAt(double position, const COM_Array<GEO_Vertex>& vertices)
{
    const auto n = static_cast<long>(vertices.size());
    const long i = std::min(std::max(nodeAt(position, n), 0L), n - 1);
    std::cout << "nVertex saving:" << i << " at " << position << "\n";
    if (i >= 0) {
        addToSavingVertices(vertices[static_cast<unsigned long>(i)]);
    }
}
