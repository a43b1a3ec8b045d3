#pragma once
#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "geometry/GEO_Object.h"

#include <string>

class GEO_Point;
class LA_RealVector;

/// An extent along the axes, between a smallest and a largest point. Width, height and length are its sides
/// along x, y and z.
class GEO_Box : public GEO_Object
{
    COM_CLASS(GEO_Box)
public:
    std::string toString() const override;
    /// Grows the box on all sides.
    virtual void offset(double dx, double dy, double dz);

    GEO_Point* getMinPoint() const { return mMinPoint; }
    GEO_Point* getMaxPoint() const { return mMaxPoint; }

    /// Gives every coordinate of both points the value `v`.
    void setTo(double v);
    /// The smallest box that holds both points.
    void setTo(const GEO_Point& p, const GEO_Point& q);
    /// The box around those that `parts` compute. A part that leaves the box it is given is passed over;
    /// without any other nothing is done.
    template <typename T>
    void setToBoxesOf(const COM_Array<T>& parts)
    {
        bool isFirst = true;
        for (unsigned long i = 0; i < parts.size(); ++i) {
            const COM_Scoped part(GEO_Box::New());
            part->setToNowhere();
            parts[i].computeBoundingBox(*part);
            if (part->isNowhere()) {
                continue;
            }
            if (isFirst) {
                setTo(*part->mMinPoint, *part->mMaxPoint);
            } else {
                combine(*part);
            }
            isFirst = false;
        }
    }
    /// Moves the largest point so that the side has this size.
    void setWidth(double width) { setSide(0, width); }
    void setHeight(double height) { setSide(1, height); }
    void setLength(double length) { setSide(2, length); }
    double getWidth() const { return getSide(0); }
    double getHeight() const { return getSide(1); }
    double getLength() const { return getSide(2); }
    double getDiagonalSize() const;

    /// Bounds included. Requires: three dimensions; a coordinate that a point lacks counts as 0.
    bool isInside(const GEO_Point& point) const;
    /// Grows just enough to hold the other as well.
    void combine(const GEO_Box& box);
    void combine(const GEO_Point& point);
    void translate(const GEO_Point& by);
    void homothetize(const GEO_Point& centre, double factor);
    /// The box around the rotated corners; see `GEO_Point::rotate`.
    void rotate(const GEO_Point& centre, const LA_RealVector& axis, double angle);
    /// Multiplies each side by `factor` about the centre.
    void zoom(double factor);
    /// Divides x by `a` and y by `b`, each if it is positive.
    void adimensionize(double a, double b);
    /// True when both points lie nearer than `tolerance` to those of `box`.
    bool isEquals(const GEO_Box& box, double tolerance) const;

    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    /// Both points at the origin of space.
    GEO_Box();
    explicit GEO_Box(const GEO_Point& p);
    GEO_Box(const GEO_Point& p, const GEO_Point& q);
    /// From `p` to `p` + (l, w, h).
    GEO_Box(const GEO_Point& p, double l, double w, double h);
    GEO_Box(const GEO_Box& box);
    ~GEO_Box() override;

private:
    void setToNowhere();
    bool isNowhere() const;
    void setSide(unsigned long i, double size);
    double getSide(unsigned long i) const;

    GEO_Point* mMinPoint; ///< Counted, never null.
    GEO_Point* mMaxPoint; ///< Counted, never null.
};
