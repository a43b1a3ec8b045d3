#include "geometry/GEO_Box.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Point.h"
#include "metaModel/MM_Class.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

constexpr unsigned long spaceDimension = 3;

}

GEO_Box::GEO_Box()
    : mMinPoint(GEO_Point::New(0.0, 0.0, 0.0))
    , mMaxPoint(GEO_Point::New(0.0, 0.0, 0.0))
{
    COM_TYPE(GEO_Box);
}

GEO_Box::GEO_Box(const GEO_Point& p)
    : GEO_Box()
{
    setTo(p, p);
}

GEO_Box::GEO_Box(const GEO_Point& p, const GEO_Point& q)
    : GEO_Box()
{
    setTo(p, q);
}

GEO_Box::GEO_Box(const GEO_Point& p, double l, double w, double h)
    : GEO_Box()
{
    mMinPoint->setLocation(p);
    const COM_Scoped size(GEO_Point::New(l, w, h));
    mMaxPoint->setLocation(p);
    mMaxPoint->translate(*size);
}

GEO_Box::GEO_Box(const GEO_Box& box)
    : GEO_Box()
{
    mMinPoint->setLocation(*box.mMinPoint);
    mMaxPoint->setLocation(*box.mMaxPoint);
}

GEO_Box::~GEO_Box()
{
    mMaxPoint->Delete();
    mMinPoint->Delete();
}

std::string GEO_Box::toString() const
{
    return " Min:" + mMinPoint->toString() + "\n Max:" + mMaxPoint->toString() + "\n";
}

void GEO_Box::offset(double dx, double dy, double dz)
{
    const COM_Scoped by(GEO_Point::New(dx, dy, dz));
    mMinPoint->sub(*by);
    mMaxPoint->add(*by);
}

void GEO_Box::setTo(double v)
{
    for (GEO_Point* point : {mMinPoint, mMaxPoint}) {
        std::fill_n(point->getValues(), point->getDimension(), v);
    }
}

void GEO_Box::setTo(const GEO_Point& p, const GEO_Point& q)
{
    const COM_Scoped first(GEO_Point::New(p)); // either may be a point of this box
    const COM_Scoped second(GEO_Point::New(q));
    mMinPoint->setLocation(*first);
    mMinPoint->min(*second);
    mMaxPoint->setLocation(*second);
    mMaxPoint->max(*first);
}

void GEO_Box::setToNowhere()
{
    setTo(std::numeric_limits<double>::quiet_NaN());
}

bool GEO_Box::isNowhere() const
{
    return std::isnan(mMinPoint->getValue(0));
}

void GEO_Box::setSide(unsigned long i, double size)
{
    mMaxPoint->setValue(i, mMinPoint->getValue(i) + size);
}

double GEO_Box::getSide(unsigned long i) const
{
    return std::fabs(mMaxPoint->getValue(i) - mMinPoint->getValue(i));
}

double GEO_Box::getDiagonalSize() const
{
    return mMinPoint->distanceTo(*mMaxPoint);
}

bool GEO_Box::isInside(const GEO_Point& point) const
{
    for (unsigned long i = 0; i < spaceDimension; ++i) {
        const double x = point.getValue(i);
        if (!(mMinPoint->getValue(i) <= x && x <= mMaxPoint->getValue(i))) {
            return false;
        }
    }
    return true;
}

void GEO_Box::combine(const GEO_Box& box)
{
    mMaxPoint->max(*box.mMaxPoint);
    mMinPoint->min(*box.mMinPoint);
}

void GEO_Box::combine(const GEO_Point& point)
{
    mMaxPoint->max(point);
    mMinPoint->min(point);
}

void GEO_Box::translate(const GEO_Point& by)
{
    const COM_Scoped step(GEO_Point::New(by)); // it may be a point of this box
    mMinPoint->translate(*step);
    mMaxPoint->translate(*step);
}

void GEO_Box::homothetize(const GEO_Point& centre, double factor)
{
    mMinPoint->homothetize(centre, factor);
    mMaxPoint->homothetize(centre, factor);
    // A negative factor has exchanged them.
    setTo(*mMinPoint, *mMaxPoint);
}

void GEO_Box::rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle)
{
    const unsigned long dimension = mMinPoint->getDimension();
    const COM_Scoped result(GEO_Box::New());
    for (unsigned long corner = 0; corner < (1UL << dimension); ++corner) {
        const COM_Scoped point(GEO_Point::New(*mMinPoint));
        for (unsigned long i = 0; i < dimension; ++i) {
            if ((corner >> i & 1UL) != 0) {
                point->setValue(i, mMaxPoint->getValue(i));
            }
        }
        point->rotate(centre, axis, angle);
        if (corner == 0) {
            result->setTo(*point, *point);
        } else {
            result->combine(*point);
        }
    }
    mMinPoint->setLocation(*result->mMinPoint);
    mMaxPoint->setLocation(*result->mMaxPoint);
}

void GEO_Box::zoom(double factor)
{
    for (unsigned long i = 0; i < mMinPoint->getDimension(); ++i) {
        const double w = std::fabs(mMinPoint->getValue(i) - mMaxPoint->getValue(i)) * factor;
        mMinPoint->setValue(i, (mMaxPoint->getValue(i) + mMinPoint->getValue(i) - w) * 0.5);
        mMaxPoint->setValue(i, mMinPoint->getValue(i) + w);
    }
}

void GEO_Box::adimensionize(double a, double b)
{
    for (GEO_Point* point : {mMinPoint, mMaxPoint}) {
        if (a > 0.0) {
            point->setValue(0, point->getValue(0) / a);
        }
        if (b > 0.0) {
            point->setValue(1, point->getValue(1) / b);
        }
    }
}

bool GEO_Box::isEquals(const GEO_Box& box, double tolerance) const
{
    return mMinPoint->distanceTo(*box.mMinPoint) < tolerance
           && mMaxPoint->distanceTo(*box.mMaxPoint) < tolerance;
}

void GEO_Box::saveToMetaClass(MM_Class& metaClass) const
{
    GEO_Object::saveToMetaClass(metaClass);
    metaClass.addAssociationToMetaFields("mMinPoint", mMinPoint);
    metaClass.addAssociationToMetaFields("mMaxPoint", mMaxPoint);
}

void GEO_Box::loadFromMetaClass(const MM_Class& metaClass)
{
    GEO_Object::loadFromMetaClass(metaClass);
    const auto load = [&metaClass](const char* key, GEO_Point*& field) {
        const COM_Scoped object(metaClass.getAssociationFromMetaFields(key));
        if (auto* const point = dynamic_cast<GEO_Point*>(object.get())) {
            point->addReference(nullptr);
            field->Delete();
            field = point;
        }
    };
    load("mMinPoint", mMinPoint);
    load("mMaxPoint", mMaxPoint);
}
