#include "geometry/GEO_Vertex.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Curve.h"
#include "geometry/GEO_Point.h"

GEO_Numbers<GEO_Vertex>* GEO_Vertex::mVertices = nullptr;

GEO_Vertex::GEO_Vertex()
    : mStartingCurves(COM_Array<GEO_Curve>::New())
    , mEndingCurves(COM_Array<GEO_Curve>::New())
{
    COM_TYPE(GEO_Vertex);
}

GEO_Vertex::~GEO_Vertex()
{
    leaveRegistry();
    mEndingCurves->Delete(); // both lists are empty: a curve holds its vertices
    mStartingCurves->Delete();
    dissociate(mPoint);
}

GEO_Vertex* GEO_Vertex::New()
{
    return new GEO_Vertex;
}

GEO_Vertex* GEO_Vertex::New(long locationNumber)
{
    GEO_Vertex* const known =
        locationNumber >= 0 ? get(static_cast<unsigned long>(locationNumber)) : nullptr;
    if (known != nullptr) {
        known->addReference(nullptr);
        return known;
    }
    auto* const vertex = new GEO_Vertex;
    vertex->setLocationNumber(locationNumber);
    return vertex;
}

GEO_Vertex* GEO_Vertex::New(GEO_Point& point)
{
    auto* const vertex = new GEO_Vertex;
    vertex->setPoint(point);
    return vertex;
}

GEO_Vertex* GEO_Vertex::New(double x, double y)
{
    auto* const vertex = new GEO_Vertex;
    vertex->setLocation(x, y);
    return vertex;
}

GEO_Vertex* GEO_Vertex::New(double x, double y, double z)
{
    auto* const vertex = new GEO_Vertex;
    vertex->setLocation(x, y, z);
    return vertex;
}

GEO_Vertex* GEO_Vertex::New(const GEO_Vertex& vertex)
{
    auto* const copy = new GEO_Vertex;
    if (vertex.mPoint != nullptr) {
        copy->setLocation(*vertex.mPoint);
    }
    return copy;
}

GEO_Numbers<GEO_Vertex>& GEO_Vertex::registry()
{
    if (mVertices == nullptr) {
        mVertices = GEO_Numbers<GEO_Vertex>::New();
    }
    return *mVertices;
}

GEO_Vertex* GEO_Vertex::get(unsigned long locationNumber)
{
    return registry().get(locationNumber);
}

template <typename Operation>
void GEO_Vertex::eachCurve(Operation operation) const
{
    if (mEndingCurves->size() == 0 && mStartingCurves->size() == 0) {
        return;
    }
    const COM_Scoped curves(
        COM_Array<GEO_Curve>::New(*mEndingCurves)); // the lists may change meanwhile
    curves->merge(*mStartingCurves);
    for (unsigned long i = 0; i < curves->size(); ++i) {
        operation((*curves)[i]);
    }
}

void GEO_Vertex::stateChanged()
{
    eachCurve([](GEO_Curve& curve) { curve.stateChanged(); });
}

std::string GEO_Vertex::toString() const
{
    return GEO_Object::toString() + " Pt:" + (mPoint != nullptr ? mPoint->toString() : "NULL");
}

std::string GEO_Vertex::toString(double precision) const
{
    return GEO_Object::toString()
           + " Pt:" + (mPoint != nullptr ? mPoint->toString(precision) : "NULL");
}

void GEO_Vertex::leaveRegistry()
{
    if (mLocationNumber >= 0) {
        registry().remove(static_cast<unsigned long>(mLocationNumber));
    }
}

bool GEO_Vertex::setLocationNumber(long locationNumber)
{
    if (locationNumber >= 0 && get(static_cast<unsigned long>(locationNumber)) != nullptr) {
        return false;
    }
    // The curves' keys are made of the numbers of their ends.
    eachCurve([](GEO_Curve& curve) { curve.leaveRegistry(); });
    leaveRegistry();
    mLocationNumber = locationNumber;
    if (locationNumber >= 0) {
        registry().put(static_cast<unsigned long>(locationNumber), *this);
    }
    eachCurve([](GEO_Curve& curve) { curve.enterRegistry(); });
    return true;
}

void GEO_Vertex::setPoint(GEO_Point* point)
{
    if (point == nullptr) {
        resetPoint();
    } else if (associate(mPoint, point)) {
        stateChanged();
    }
}

void GEO_Vertex::resetPoint()
{
    dissociate(mPoint);
}

void GEO_Vertex::setLocation(double x, double y)
{
    const COM_Scoped point(GEO_Point::New(x, y));
    setLocation(*point);
}

void GEO_Vertex::setLocation(double x, double y, double z)
{
    const COM_Scoped point(GEO_Point::New(x, y, z));
    setLocation(*point);
}

void GEO_Vertex::setLocation(const GEO_Point& point)
{
    if (mPoint == nullptr) {
        const COM_Scoped copy(GEO_Point::New(point));
        associate(mPoint, copy.get());
    } else {
        mPoint->setLocation(point);
    }
    stateChanged();
}

double& GEO_Vertex::operator[](unsigned long i)
{
    return (*mPoint)[i];
}

void GEO_Vertex::addToStartingCurves(GEO_Curve* curve)
{
    if (curve != nullptr && !mStartingCurves->exists(curve)) {
        mStartingCurves->add(curve);
        curve->setStartingVertex(this);
    }
}

void GEO_Vertex::addToEndingCurves(GEO_Curve* curve)
{
    if (curve != nullptr && !mEndingCurves->exists(curve)) {
        mEndingCurves->add(curve);
        curve->setEndingVertex(this);
    }
}

void GEO_Vertex::removeFromStartingCurves(GEO_Curve& curve)
{
    if (!mStartingCurves->exists(curve)) {
        return;
    }
    const COM_Guard guard(curve);
    mStartingCurves->remove(curve);
    if (curve.getStartingVertex() == this) {
        curve.resetStartingVertex();
    }
}

void GEO_Vertex::removeFromEndingCurves(GEO_Curve& curve)
{
    if (!mEndingCurves->exists(curve)) {
        return;
    }
    const COM_Guard guard(curve);
    mEndingCurves->remove(curve);
    if (curve.getEndingVertex() == this) {
        curve.resetEndingVertex();
    }
}

// A curve may hold the last reference to its vertex, so each reset keeps this vertex to its end.
void GEO_Vertex::resetCurves()
{
    const COM_Guard guard(*this);
    resetStartingCurves();
    resetEndingCurves();
}

void GEO_Vertex::resetStartingCurves()
{
    const COM_Guard guard(*this);
    while (mStartingCurves->size() > 0) {
        removeFromStartingCurves((*mStartingCurves)[mStartingCurves->size() - 1]);
    }
}

void GEO_Vertex::resetEndingCurves()
{
    const COM_Guard guard(*this);
    while (mEndingCurves->size() > 0) {
        removeFromEndingCurves((*mEndingCurves)[mEndingCurves->size() - 1]);
    }
}

GEO_Curve* GEO_Vertex::getStartingCurve() const
{
    return mStartingCurves->size() > 0 ? mStartingCurves->get(0) : nullptr;
}

GEO_Curve* GEO_Vertex::getEndingCurve() const
{
    return mEndingCurves->size() > 0 ? mEndingCurves->get(0) : nullptr;
}

void GEO_Vertex::collectCurves(COM_Map<unsigned long, GEO_Curve>& curves) const
{
    for (const COM_Array<GEO_Curve>* list : {mStartingCurves, mEndingCurves}) {
        for (unsigned long i = 0; i < list->size(); ++i) {
            curves.put((*list)[i].getIdentityNumber(), (*list)[i]);
        }
    }
}

void GEO_Vertex::getCurvesToArray(COM_Array<GEO_Curve>& out) const
{
    const COM_Scoped curves(COM_Map<unsigned long, GEO_Curve>::New(false));
    collectCurves(*curves);
    curves->values(out);
}

unsigned long GEO_Vertex::getNumberOfCurves() const
{
    const COM_Scoped curves(COM_Map<unsigned long, GEO_Curve>::New(false));
    collectCurves(*curves);
    return curves->size();
}
