#pragma once
#include "common/COM_Array.h"
#include "geometry/GEO_Movable.h"
#include "geometry/GEO_Numbers.h"
#include "geometry/GEO_Pairs.h"

#include <string>
#include <vector>

class GEO_Box;
class GEO_Edge;
class GEO_Point;
class GEO_Vertex;

/// A curve between two vertices, run through by a parameter from 0 to 1.
///
/// A curve holds its vertices, and edges hold the curve. Vertices and edges are linked back with counted
/// references which the inverse count leaves out for the vertices: a curve goes when no edge and nobody
/// else holds it. Curves are unique for each pair of numbered vertices, whatever the direction: a registry
/// leads from the pair's key to the curve, another one from numbers, and neither keeps any alive.
class GEO_Curve : public GEO_Movable
{
public:
    /// Tells the edges.
    void stateChanged() override;
    /// A new curve of the same kind without ends.
    virtual GEO_Curve* NewCurveInstance() const = 0;
    /// The identity string and those of both vertices.
    std::string toString() const override;
    /// The point at parameter `t`. Without both end points nothing is done.
    virtual void computePoint(double t, GEO_Point& point) const = 0;
    /// Replaces `points` by `n` points at equal steps of the parameter, ends included; the second form
    /// between `t0` and `t1`.
    virtual void computePoints(unsigned long n, COM_Array<GEO_Point>& points) const;
    virtual void computePoints(unsigned long n, COM_Array<GEO_Point>* points) const;
    virtual void computePoints(double t0, double t1, unsigned long n,
                               COM_Array<GEO_Point>& points) const;
    virtual void computePoints(double t0, double t1, unsigned long n,
                               COM_Array<GEO_Point>* points) const;
    /// The box around points along the curve; without both end points nothing is done.
    virtual void computeBoundingBox(GEO_Box& box) const;
    void move(const GEO_Motion& motion, Moved& moved) override;
    /// Distance between the end points, 0 without them.
    virtual double getLength() const;
    /// A crossing with the segment from `a` to `b`: true, and where it is.
    virtual bool intersect(const GEO_Point& a, const GEO_Point& b, GEO_Point& point) const;
    /// All crossings; returns their number.
    virtual unsigned long intersect(const GEO_Point& a, const GEO_Point& b,
                                    COM_Array<GEO_Point>& points) const = 0;
    // Coordinates are counted from 0; one that a point lacks is zero. What is said here of a straight curve,
    // other kinds have to say of themselves.
    /// A way along a coordinate axis that the curve does not exceed, there and back added up. 0 without both
    /// end points.
    virtual double getExtent(unsigned long axis) const;
    /// The parameters, ascending, at which a coordinate has this value. None for a curve that has it
    /// throughout but, perhaps, those of its ends.
    virtual std::vector<double> getParametersAt(unsigned long axis, double value) const;

    /// "smaller number-larger number"; empty unless both vertices have numbers.
    static std::string getKey(const GEO_Vertex& a, const GEO_Vertex& b);
    /// The curve of the pair, or null.
    static GEO_Curve* get(const GEO_Vertex& a, const GEO_Vertex& b);
    /// The curve of that number, or null.
    static GEO_Curve* get(unsigned long locationNumber);

    /// The numbers of both vertices. Requires: they have numbers.
    GEO_Pairs::Pair getPair() const;
    /// False, with nothing changed, when another curve has that number. A negative number takes the
    /// present one away.
    bool setLocationNumber(long locationNumber);
    /// -1 without number.
    long getLocationNumber() const { return mLocationNumber; }

    // Two-way links with GEO_Vertex::addToStartingCurves and addToEndingCurves.
    void setStartingVertex(GEO_Vertex* vertex);
    void setStartingVertex(GEO_Vertex& vertex) { setStartingVertex(&vertex); }
    void resetStartingVertex() { setStartingVertex(nullptr); }
    GEO_Vertex* getStartingVertex() const { return mStartingVertex; }
    void setEndingVertex(GEO_Vertex* vertex);
    void setEndingVertex(GEO_Vertex& vertex) { setEndingVertex(&vertex); }
    void resetEndingVertex() { setEndingVertex(nullptr); }
    GEO_Vertex* getEndingVertex() const { return mEndingVertex; }
    /// The point of a vertex, or null.
    GEO_Point* getStartingPoint() const;
    GEO_Point* getEndingPoint() const;

    // Two-way link with GEO_Edge::setCurve.
    void addToEdges(GEO_Edge& edge);
    void removeFromEdges(GEO_Edge& edge);
    const COM_Array<GEO_Edge>& getEdges() const { return *mEdges; }

    /// Out of the registry of pairs and into it again, around a change of a vertex's number.
    void leaveRegistry();
    void enterRegistry();

protected:
    GEO_Curve();
    ~GEO_Curve() override;
    unsigned long getInverseAgregatedObjectsCount() const override;
    void resetInverseAgregatedObjects() override;

    bool hasEndPoints() const
    {
        return getStartingPoint() != nullptr && getEndingPoint() != nullptr;
    }
    /// The curve of the pair with a further reference if it is a T, else null.
    template <typename T>
    static T* known(const GEO_Vertex& a, const GEO_Vertex& b)
    {
        auto* const curve = dynamic_cast<T*>(get(a, b));
        if (curve != nullptr) {
            curve->addReference(nullptr);
        }
        return curve;
    }

private:
    static GEO_Pairs& pairs();
    static GEO_Numbers<GEO_Curve>& numbers();
    void leaveNumbers();
    bool hasPair() const;

    long mLocationNumber = -1;             ///< -1 without number.
    GEO_Vertex* mStartingVertex = nullptr; ///< Counted.
    GEO_Vertex* mEndingVertex = nullptr;   ///< Counted.
    COM_Array<GEO_Edge>* mEdges;           ///< The edges that use the curve. Counted, never null.
    static GEO_Pairs* mCurves;             ///< By the numbers of the ends, a view; null until used.
    static GEO_Numbers<GEO_Curve>* mNumberedCurves; ///< By number, a view; null until used.
};
