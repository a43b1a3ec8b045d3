#include "linearAlgebra/LA_IntegerMatrix.h"

#include "common/COM_Integer.h"

LA_IntegerMatrix::LA_IntegerMatrix(unsigned long n, unsigned long p)
    : LA_Matrix<unsigned long>(n, p)
{
    COM_TYPE(LA_IntegerMatrix);
}

LA_IntegerMatrix::LA_IntegerMatrix(const LA_IntegerMatrix& m)
    : LA_IntegerMatrix(m.getLinesNumber(), m.getColumnsNumber())
{
    setValues(m);
}

void LA_IntegerMatrix::setValueFromString(unsigned long i, unsigned long j, const std::string& text)
{
    setValue(i, j, COM_Integer::parseInt(text));
}

std::string LA_IntegerMatrix::toString() const
{
    std::string text;
    for (unsigned long i = 0; i < getLinesNumber(); ++i) {
        for (unsigned long j = 0; j < getColumnsNumber(); ++j) {
            text += COM_Integer::toString(static_cast<long>(getLine(i)[j])) + "\t";
        }
        text += "\n";
    }
    return text;
}

double LA_IntegerMatrix::norm2() const
{
    double sum = 0.0;
    for (unsigned long i = 0; i < getLinesNumber() * getColumnsNumber(); ++i) {
        sum += static_cast<double>(getValues()[i]) * static_cast<double>(getValues()[i]);
    }
    return sum;
}
