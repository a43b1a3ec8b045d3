#pragma once
#include "quorvex/QV_Object.h"

#include <vector>

/// One discrete field: `mSize` cells of `mDimension` components, cell after cell. Component j of cell i
/// lies at `i * mDimension + j`.
class QV_Field : public QV_Object
{
    COM_CLASS(QV_Field)
public:
    unsigned long getDimension() const { return mDimension; }
    unsigned long getSize() const { return mSize; }
    double* getValues() { return mValues.data(); }
    const double* getValues() const { return mValues.data(); }
    /// The components of cell i, unchecked.
    double* getValue(unsigned long i) { return mValues.data() + i * mDimension; }
    const double* getValue(unsigned long i) const { return mValues.data() + i * mDimension; }
    double* operator[](unsigned long i) { return getValue(i); }
    const double* operator[](unsigned long i) const { return getValue(i); }
    double getValue(unsigned long i, unsigned long j) const { return getValue(i)[j]; }

    /// Keeps the cells and components that both sizes have, the others are 0.
    void setDimensions(unsigned long size, unsigned long dimension);
    /// Copies size times dimension numbers. More of them than there is room for replace the array and
    /// both sizes; with fewer the rest becomes 0 and the sizes stay.
    void setValues(const double* values, unsigned long size, unsigned long dimension);
    void setValues(const QV_Field& field);
    /// Gives every component of every cell the same value.
    void initValues(double value);

    void saveToMetaClass(MM_Class& metaClass) const override;
    void loadFromMetaClass(const MM_Class& metaClass) override;

protected:
    /// A field of zeros.
    QV_Field(unsigned long size, unsigned long dimension);
    QV_Field(const QV_Field& field);
    ~QV_Field() override = default;

private:
    unsigned long mDimension; ///< Components of a cell.
    unsigned long mSize;      ///< Cells.
    std::vector<double> mValues;
};
