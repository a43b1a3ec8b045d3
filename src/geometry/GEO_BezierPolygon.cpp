#include "geometry/GEO_BezierPolygon.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Edge.h"
#include "geometry/GEO_Point.h"
#include "geometry/GEO_Spline.h"
#include "linearAlgebra/LA_RealMatrix.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <vector>

namespace {

/// Tells the first pair of equal neighbours; false when there is one.
bool areDistinct(const double* u, unsigned long n)
{
    if (u[1] == u[0]) {
        std::cout << "Warning: u[1]=" << u[1] << "=u[O]=" << u[0] << "\n";
        return false;
    }
    for (unsigned long i = 1; i + 1 < n; ++i) {
        if (u[i + 1] == u[i]) {
            std::cout << "Warning: u[" << i << "]=" << u[i] << "=u[" << i + 1 << "]=" << u[i + 1]
                      << "\n";
            return false;
        }
    }
    return true;
}

GEO_Spline* pieceOf(const GEO_Edge& edge)
{
    return dynamic_cast<GEO_Spline*>(edge.getCurve());
}

/// Whether an edge begins where the one before it ends.
bool meet(const GEO_Edge& before, const GEO_Edge& behind)
{
    const GEO_Point* const end = before.getEndingPoint();
    const GEO_Point* const start = behind.getStartingPoint();
    return end == start || (end != nullptr && start != nullptr && end->distanceTo(*start) == 0.0);
}

} // namespace

GEO_BezierPolygon::GEO_BezierPolygon()
    : mU(LA_RealVector::New(1))
{
    COM_TYPE(GEO_BezierPolygon);
}

GEO_BezierPolygon::GEO_BezierPolygon(const COM_Array<GEO_Point>& points)
    : GEO_BezierPolygon()
{
    setPoints(points);
}

GEO_BezierPolygon::~GEO_BezierPolygon()
{
    mU->Delete();
}

GEO_BezierPolygon* GEO_BezierPolygon::NewShellInstance() const
{
    return GEO_BezierPolygon::New();
}

GEO_Curve* GEO_BezierPolygon::NewCurve() const
{
    return GEO_Spline::New();
}

GEO_Curve* GEO_BezierPolygon::NewCurve(GEO_Vertex& a, GEO_Vertex& b) const
{
    return GEO_Spline::New(a, b);
}

void GEO_BezierPolygon::setPoints(const COM_Array<GEO_Point>& points)
{
    mIsAdjusting = true;
    resetEdges();
    for (unsigned long i = 0; i < points.size(); ++i) {
        const COM_Scoped copy(GEO_Point::New(points[i]));
        cat(*copy);
    }
    mIsAdjusting = false;
    GEO_BezierPolygon::stateChanged();
}

void GEO_BezierPolygon::stateChanged()
{
    if (mIsAdjusting) {
        return;
    }
    GEO_Polygon::stateChanged();
    mIsAdjusting = true;
    updateParametrization();
    const unsigned long n = getEdges().size();
    for (unsigned long i = 0; i < n; ++i) {
        GEO_Spline* const piece = pieceOf(*getEdge(i));
        if (piece != nullptr && piece->getControlPoint(1) == nullptr) {
            piece->initControlPoints(); // its second vertex has come after it was made
        }
    }
    // Where an edge was taken out, the curve ends and begins anew.
    for (unsigned long first = 0, end = 1; first < n; first = end++) {
        while (end < n && meet(*getEdge(end - 1), *getEdge(end))) {
            ++end;
        }
        adjust(first, end);
    }
    mIsAdjusting = false;
}

void GEO_BezierPolygon::adjust(unsigned long first, unsigned long end)
{
    const COM_Scoped points(COM_Array<GEO_Point>::New());
    points->add(getEdge(first)->getStartingPoint());
    for (unsigned long i = first; i < end; ++i) {
        points->add(getEdge(i)->getEndingPoint());
    }
    const COM_Scoped derivatives(COM_Array<GEO_Point>::New());
    const bool isWhole = end - first == getEdges().size();
    if (points->size() != end - first + 1
        || !computeDerivatives(mU->getValues() + first, *points, isWhole && isClosed(),
                               *derivatives)) {
        return;
    }
    for (unsigned long i = first; i < end; ++i) {
        GEO_Spline* const piece = pieceOf(*getEdge(i));
        if (piece == nullptr) {
            continue;
        }
        // Along a piece that is run through backwards the parameter falls.
        const unsigned long back = getEdge(i)->isReverse() ? 1 : 0;
        piece->setParameters((*mU)[i + back], (*mU)[i + 1 - back]);
        piece->setBeginDerivative((*derivatives)[i - first + back]);
        piece->setEndDerivative((*derivatives)[i - first + 1 - back]);
    }
}

void GEO_BezierPolygon::updateParametrization()
{
    const unsigned long n = getEdges().size();
    mU->setDimension(n + 1);
    mU->setValue(0, 0.0);
    for (unsigned long i = 0; i < n; ++i) {
        const GEO_Curve* const curve = getEdge(i)->getCurve();
        (*mU)[i + 1] = (*mU)[i] + (curve != nullptr ? curve->getLength() : 0.0);
    }
}

bool GEO_BezierPolygon::computeDerivatives(const COM_Array<GEO_Point>& points, bool isPeriodic,
                                           COM_Array<GEO_Point>& derivatives) const
{
    if (mU->getDimension() < points.size()) {
        derivatives.setSize(0);
        return false;
    }
    return computeDerivatives(mU->getValues(), points, isPeriodic, derivatives);
}

bool GEO_BezierPolygon::computeDerivatives(const double* u, const COM_Array<GEO_Point>& points,
                                           bool isPeriodic, COM_Array<GEO_Point>& derivatives)
{
    derivatives.setSize(0);
    const unsigned long n = points.size();
    if (n < 2) {
        return false;
    }
    unsigned long dimension = 0;
    for (unsigned long i = 0; i < n; ++i) {
        dimension = std::max(dimension, points[i].getDimension());
        const COM_Scoped derivative(GEO_Point::New());
        derivatives.add(*derivative);
    }
    std::vector<double> x(n);
    for (unsigned long j = 0; j < dimension; ++j) {
        for (unsigned long i = 0; i < n; ++i) {
            x[i] = points[i].getValue(j);
        }
        const std::unique_ptr<double[]> d(isPeriodic ? computePeriodicDerivatives(u, x.data(), n)
                                                     : computeDerivatives(u, x.data(), n));
        if (d == nullptr) {
            derivatives.setSize(0);
            return false;
        }
        for (unsigned long i = 0; i < n; ++i) {
            derivatives[i].setDimension(dimension);
            derivatives[i][j] = d[i];
        }
    }
    return true;
}

// At an inner vertex, with a and b the inverse lengths of the pieces before and behind it, the second
// derivatives agree when
// a d[i - 1] + (2 a + 2 b) d[i] + b d[i + 1] = 3 ((x[i] - x[i - 1]) a^2 + (x[i + 1] - x[i]) b^2).
// At a free end the second derivative is zero.
double* GEO_BezierPolygon::computeDerivatives(const double* u, const double* x, unsigned long n)
{
    if (n < 2 || !areDistinct(u, n)) {
        return nullptr;
    }
    std::vector<double> lower(n - 1);
    std::vector<double> upper(n - 1);
    std::vector<double> diagonal(n);
    std::vector<double> rhs(n);
    diagonal[0] = 2.0;
    upper[0] = 1.0;
    rhs[0] = 3.0 * (x[1] - x[0]) / (u[1] - u[0]);
    for (unsigned long i = 1; i + 1 < n; ++i) {
        const double a = 1.0 / (u[i] - u[i - 1]);
        const double b = 1.0 / (u[i + 1] - u[i]);
        lower[i - 1] = a;
        diagonal[i] = 2.0 * a + 2.0 * b;
        upper[i] = b;
        rhs[i] = 3.0 * ((x[i] - x[i - 1]) * a * a + (x[i + 1] - x[i]) * b * b);
    }
    diagonal[n - 1] = 2.0;
    lower[n - 2] = 1.0;
    rhs[n - 1] = 3.0 * (x[n - 1] - x[n - 2]) / (u[n - 1] - u[n - 2]);
    return LA_RealMatrix::solveTridiagonalMatrix(lower.data(), diagonal.data(), upper.data(),
                                                 rhs.data(), n);
}

// The same conditions at every vertex, the last one being the first: each piece adds its share at both ends.
double* GEO_BezierPolygon::computePeriodicDerivatives(const double* u, const double* x,
                                                      unsigned long n)
{
    if (n < 2 || !areDistinct(u, n)) {
        return nullptr;
    }
    const unsigned long unknowns = n - 1;
    std::vector<double> offDiagonal(unknowns);
    std::vector<double> diagonal(unknowns);
    std::vector<double> rhs(unknowns);
    for (unsigned long k = 0; k < unknowns; ++k) {
        const unsigned long next = (k + 1) % unknowns;
        const double a = 1.0 / (u[k + 1] - u[k]);
        const double share = 3.0 * (x[k + 1] - x[k]) * a * a;
        offDiagonal[k] = a;
        diagonal[k] += 2.0 * a;
        diagonal[next] += 2.0 * a;
        rhs[k] += share;
        rhs[next] += share;
    }
    std::unique_ptr<double[]> solution;
    if (unknowns == 1) {
        // One piece from a vertex to itself, which meets both its ends there.
        solution = std::make_unique<double[]>(1);
        solution[0] = rhs[0] / (diagonal[0] + 2.0 * offDiagonal[0]);
    } else if (unknowns == 2) {
        const double both = offDiagonal[0] + offDiagonal[1];
        const double determinant = diagonal[0] * diagonal[1] - both * both;
        if (determinant == 0.0) {
            return nullptr;
        }
        solution = std::make_unique<double[]>(2);
        solution[0] = (rhs[0] * diagonal[1] - rhs[1] * both) / determinant;
        solution[1] = (rhs[1] * diagonal[0] - rhs[0] * both) / determinant;
    } else {
        solution.reset(LA_RealMatrix::solveSymetricCircularTridiagonalMatrix(
            offDiagonal.data(), diagonal.data(), rhs.data(), unknowns));
        if (solution == nullptr) {
            return nullptr;
        }
    }
    auto* const derivatives = new double[n];
    std::copy_n(solution.get(), unknowns, derivatives);
    derivatives[n - 1] = derivatives[0];
    return derivatives;
}
