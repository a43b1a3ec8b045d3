#pragma once
#include "common/COM_Array.h"
#include "common/COM_Map.h"
#include "geometry/GEO_Numbers.h"
#include "geometry/GEO_Object.h"

#include <string>

class GEO_Curve;
class GEO_Point;

/// A place with an identity: a point, a number in the mesh, and the curves that start and end there.
///
/// Numbers are unique in the process: a registry leads from them to the vertices, without keeping any
/// alive, and a vertex that is gone is not in it. Curves hold their vertices. A vertex counts its curves as
/// well, but those references keep no curve alive: see GEO_Curve.
class GEO_Vertex : public GEO_Object
{
public:
    /// An unnumbered vertex without point.
    static GEO_Vertex* New();
    /// The vertex of that number with a further reference, or a new one of that number.
    static GEO_Vertex* New(long locationNumber);
    /// An unnumbered vertex on that point.
    static GEO_Vertex* New(GEO_Point& point);
    static GEO_Vertex* New(double x, double y);
    static GEO_Vertex* New(double x, double y, double z);
    /// An unnumbered vertex without curves at the same place.
    static GEO_Vertex* New(const GEO_Vertex& vertex);
    /// The vertex of that number, or null.
    static GEO_Vertex* get(unsigned long locationNumber);

    /// What depends on this vertex has to change: tells all curves.
    void stateChanged() override;
    /// The identity string, " Pt:" and the point, or "NULL" without point.
    std::string toString() const override;
    /// The same with coordinates rounded down to multiples of `precision`.
    virtual std::string toString(double precision) const;

    /// False, with nothing changed, when another vertex has that number. A negative number takes the
    /// present one away.
    bool setLocationNumber(long locationNumber);
    /// -1 without number.
    long getLocationNumber() const { return mLocationNumber; }

    void setPoint(GEO_Point* point);
    void setPoint(GEO_Point& point) { setPoint(&point); }
    void resetPoint();
    GEO_Point* getPoint() const { return mPoint; }
    /// Moves the present point, or makes one there.
    void setLocation(double x, double y);
    void setLocation(double x, double y, double z);
    void setLocation(const GEO_Point& point);
    void setLocation(const GEO_Point* point) { setLocation(*point); }
    /// Coordinate i of the point. Requires: it is there.
    double& operator[](unsigned long i);

    // Two-way links with GEO_Curve::setStartingVertex and setEndingVertex.
    void addToStartingCurves(GEO_Curve* curve);
    void addToStartingCurves(GEO_Curve& curve) { addToStartingCurves(&curve); }
    void addToEndingCurves(GEO_Curve* curve);
    void addToEndingCurves(GEO_Curve& curve) { addToEndingCurves(&curve); }
    void removeFromStartingCurves(GEO_Curve& curve);
    void removeFromEndingCurves(GEO_Curve& curve);
    void resetCurves();
    void resetStartingCurves();
    void resetEndingCurves();
    const COM_Array<GEO_Curve>& getStartingCurves() const { return *mStartingCurves; }
    const COM_Array<GEO_Curve>& getEndingCurves() const { return *mEndingCurves; }
    /// The first curve that starts or ends here, or null.
    GEO_Curve* getStartingCurve() const;
    GEO_Curve* getEndingCurve() const;
    /// Every curve once, by its identity.
    void getCurvesToArray(COM_Array<GEO_Curve>& out) const;
    unsigned long getNumberOfCurves() const;

protected:
    GEO_Vertex();
    ~GEO_Vertex() override;

private:
    static GEO_Numbers<GEO_Vertex>& registry();
    void leaveRegistry();
    void collectCurves(COM_Map<unsigned long, GEO_Curve>& curves) const;
    template <typename Operation>
    void eachCurve(Operation operation) const;

    long mLocationNumber = -1;                 ///< -1 without number.
    GEO_Point* mPoint = nullptr;               ///< Counted.
    COM_Array<GEO_Curve>* mStartingCurves;     ///< Counted, never null.
    COM_Array<GEO_Curve>* mEndingCurves;       ///< Counted, never null.
    static GEO_Numbers<GEO_Vertex>* mVertices; ///< The registry, a view; null until used.
};
