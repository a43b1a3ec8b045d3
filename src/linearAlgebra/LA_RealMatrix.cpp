#include "linearAlgebra/LA_RealMatrix.h"

#include "common/COM_Real.h"

#include <vector>

LA_RealMatrix::LA_RealMatrix(unsigned long n, unsigned long p)
    : LA_Matrix<double>(n, p)
{
    COM_TYPE(LA_RealMatrix);
}

LA_RealMatrix::LA_RealMatrix(const LA_RealMatrix& m)
    : LA_RealMatrix(m.getLinesNumber(), m.getColumnsNumber())
{
    setValues(m);
}

void LA_RealMatrix::setValueFromString(unsigned long i, unsigned long j, const std::string& text)
{
    setValue(i, j, COM_Real::parseReal(text));
}

std::string LA_RealMatrix::toString() const
{
    std::string text;
    for (unsigned long i = 0; i < getLinesNumber(); ++i) {
        for (unsigned long j = 0; j < getColumnsNumber(); ++j) {
            text += COM_Real::toString(getLine(i)[j]) + "\t";
        }
        text += "\n";
    }
    return text;
}

double LA_RealMatrix::norm2() const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < getLinesNumber() * getColumnsNumber(); ++i) {
        sum += getValues()[i] * getValues()[i];
    }
    return sum;
}

double* LA_RealMatrix::solveTridiagonalMatrix(const double* lower, const double* diagonal,
                                              const double* upper, const double* rhs,
                                              unsigned long n)
{
    if (n == 0) {
        return nullptr;
    }
    std::vector<double> u(n); // reduced diagonal
    std::vector<double> v(n); // reduced right-hand side
    u[0] = diagonal[0];
    v[0] = rhs[0];
    for (unsigned long k = 1; k < n; ++k) {
        if (u[k - 1] == 0.0) {
            return nullptr;
        }
        v[k] = rhs[k] - lower[k - 1] * v[k - 1] / u[k - 1];
        u[k] = diagonal[k] - upper[k - 1] * lower[k - 1] / u[k - 1];
    }
    if (n == 1 && u[0] == 0.0) {
        return nullptr;
    }
    auto* const x = new double[n];
    x[n - 1] = v[n - 1] / u[n - 1];
    for (unsigned long k = n - 1; k-- > 0;) {
        x[k] = (v[k] - x[k + 1] * upper[k]) / u[k];
    }
    return x;
}

double* LA_RealMatrix::solveSymetricCircularTridiagonalMatrix(const double* offDiagonal,
                                                              const double* diagonal,
                                                              const double* rhs, unsigned long n)
{
    if (n == 0) {
        return nullptr;
    }
    std::vector<double> d(n);        // the diagonal D
    std::vector<double> superior(n); // L[i + 1][i]
    std::vector<double> lastLine(n); // L[n - 1][i]
    std::vector<double> z(n);        // the solution of L z = rhs
    const unsigned long last = n - 1;
    double lastPivot = diagonal[last];
    double lastZ = rhs[last];
    for (unsigned long i = 0; i < last; ++i) {
        const double before = i > 0 ? superior[i - 1] * d[i - 1] : 0.0;
        d[i] = diagonal[i] - (i > 0 ? superior[i - 1] * before : 0.0);
        if (d[i] == 0.0) {
            return nullptr;
        }
        // The matrix element that joins line i with the last one: the corner, filled in on the way down.
        double corner = i > 0 ? -lastLine[i - 1] * before : offDiagonal[last];
        if (i + 1 == last) {
            corner += offDiagonal[i];
        } else {
            superior[i] = offDiagonal[i] / d[i];
        }
        lastLine[i] = corner / d[i];
        z[i] = rhs[i] - (i > 0 ? superior[i - 1] * z[i - 1] : 0.0);
        lastPivot -= lastLine[i] * lastLine[i] * d[i];
        lastZ -= lastLine[i] * z[i];
    }
    if (lastPivot == 0.0) {
        return nullptr;
    }
    auto* const x = new double[n];
    x[last] = lastZ / lastPivot;
    for (unsigned long i = last; i-- > 0;) {
        x[i] = z[i] / d[i] - lastLine[i] * x[last] - (i + 1 < last ? superior[i] * x[i + 1] : 0.0);
    }
    return x;
}
