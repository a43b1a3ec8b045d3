#pragma once
#include "linearAlgebra/LA_Matrix.h"

extern template class LA_Matrix<unsigned long>;

/// A matrix of unsigned long.
class LA_IntegerMatrix : public LA_Matrix<unsigned long>
{
    COM_CLASS(LA_IntegerMatrix)
public:
    void setValueFromString(unsigned long i, unsigned long j, const std::string& text) override;
    /// Each value and a tab, a line end after each line.
    std::string toString() const override;
    double norm2() const override;

protected:
    LA_IntegerMatrix(unsigned long n, unsigned long p);
    LA_IntegerMatrix(const LA_IntegerMatrix& m);
    explicit LA_IntegerMatrix(const LA_IntegerMatrix* m)
        : LA_IntegerMatrix(*m)
    {}
    ~LA_IntegerMatrix() override = default;
};
