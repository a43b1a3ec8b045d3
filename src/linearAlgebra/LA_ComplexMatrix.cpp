#include "linearAlgebra/LA_ComplexMatrix.h"

#include "common/COM_Complex.h"

#include <algorithm>

LA_ComplexMatrix::LA_ComplexMatrix(unsigned long n, unsigned long p)
    : LA_Matrix<Complex>(n, p)
{
    COM_TYPE(LA_ComplexMatrix);
}

LA_ComplexMatrix::LA_ComplexMatrix(LA_Block<Complex>& block, unsigned long first, unsigned long n,
                                   unsigned long p)
    : LA_Matrix<Complex>(block, first, n, p)
{
    COM_TYPE(LA_ComplexMatrix);
}

LA_ComplexMatrix::LA_ComplexMatrix(const LA_ComplexMatrix& m)
    : LA_ComplexMatrix(m.getLinesNumber(), m.getColumnsNumber())
{
    setValues(m);
}

void LA_ComplexMatrix::setValueFromString(unsigned long i, unsigned long j, const std::string& text)
{
    setValue(i, j, COM_Complex::parseComplex(text));
}

std::string LA_ComplexMatrix::toString() const
{
    std::string text;
    for (unsigned long i = 0; i < getLinesNumber(); ++i) {
        for (unsigned long j = 0; j < getColumnsNumber(); ++j) {
            text += COM_Complex::toString(getLine(i)[j]) + "\t";
        }
        text += "\n";
    }
    return text;
}

double LA_ComplexMatrix::norm2() const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < getLinesNumber() * getColumnsNumber(); ++i) {
        sum += std::norm(getValues()[i]);
    }
    return sum;
}

void LA_ComplexMatrix::transConjugate()
{
    if (getColumnsNumber() < getLinesNumber()) {
        return;
    }
    for (unsigned long i = 0; i < getLinesNumber(); ++i) {
        getLine(i)[i] = std::conj(getLine(i)[i]);
        for (unsigned long j = 0; j < i; ++j) {
            std::swap(getLine(i)[j], getLine(j)[i]);
            getLine(i)[j] = std::conj(getLine(i)[j]);
            getLine(j)[i] = std::conj(getLine(j)[i]);
        }
    }
}

void LA_ComplexMatrix::conjugate()
{
    for (unsigned long i = 0; i < getLinesNumber() * getColumnsNumber(); ++i) {
        getValues()[i] = std::conj(getValues()[i]);
    }
}

double LA_ComplexMatrix::distance2To(const LA_ComplexMatrix& m) const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < std::max(getLinesNumber(), m.getLinesNumber()); ++i) {
        for (unsigned long j = 0; j < std::max(getColumnsNumber(), m.getColumnsNumber()); ++j) {
            sum += std::norm(getValue(i, j) - m.getValue(i, j));
        }
    }
    return sum;
}
