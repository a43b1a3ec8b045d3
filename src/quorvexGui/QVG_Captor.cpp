#include "quorvexGui/QVG_Captor.h"

#include "common/COM_Integer.h"
#include "common/COM_Real.h"
#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"

#include <algorithm>

namespace {

std::string flag(bool value)
{
    return value ? "1" : "0";
}

std::string number(unsigned long value)
{
    return COM_Integer::toString(static_cast<long>(value));
}

} // namespace

QVG_Captor::QVG_Captor()
    : mShowRho(COM_Array<LA_IntegerMatrix>::New())
    , mPosition(LA_RealVector::New(1UL))
{
    COM_TYPE(QVG_Captor);
}

QVG_Captor::~QVG_Captor()
{
    mPosition->Delete();
    mShowRho->Delete();
}

void QVG_Captor::setPosition(double x)
{
    setPosition(std::vector{x});
}

void QVG_Captor::setPosition(double x, double y)
{
    setPosition(std::vector{x, y});
}

void QVG_Captor::setPosition(double x, double y, double z)
{
    setPosition(std::vector{x, y, z});
}

void QVG_Captor::setPosition(const std::vector<double>& coordinates)
{
    mPosition->setValues(coordinates);
}

void QVG_Captor::setBlochEquationsNumber(unsigned long number)
{
    mRhoSize = getRhoSize();
    mSystems = number;
    mShowRho->clear();
}

void QVG_Captor::setRhoSize(unsigned long size)
{
    if (mSystems == 0) {
        return;
    }
    mRhoSize = size;
    for (unsigned long b = 0; b < mShowRho->size(); ++b) {
        if (LA_IntegerMatrix* const marks = mShowRho->get(b)) {
            marks->setDimensions(size, size);
            std::fill_n(marks->getValues(), size * size, 0UL);
        }
    }
}

bool QVG_Captor::hasMarks(unsigned long b) const
{
    return b < mSystems && b < mShowRho->size() && mShowRho->get(b) != nullptr;
}

LA_IntegerMatrix* QVG_Captor::getShowRho(unsigned long b) const
{
    if (b >= mSystems) {
        return nullptr;
    }
    if (!hasMarks(b)) {
        const COM_Scoped marks(LA_IntegerMatrix::New(mRhoSize, mRhoSize));
        mShowRho->set(b, *marks);
    }
    return mShowRho->get(b);
}

bool QVG_Captor::isRho(unsigned long b, unsigned long i, unsigned long j) const
{
    if (!hasMarks(b) || mRhoSize == 0) {
        return false;
    }
    const unsigned long last = mRhoSize - 1;
    return (*mShowRho)[b].getValue(std::min(i, last), std::min(j, last)) != 0;
}

void QVG_Captor::setRhoVisible(unsigned long b, unsigned long i, unsigned long j, bool value)
{
    if (b < mSystems && mRhoSize > 0) {
        const unsigned long last = mRhoSize - 1;
        getShowRho(b)->setValue(std::min(i, last), std::min(j, last), value ? 1UL : 0UL);
    }
}

std::string QVG_Captor::toString() const
{
    std::string text = getIdentityString() + ":\n";
    text += "\t ShowEx:" + flag(mShowEx) + "\n";
    text += "\t ShowEy:" + flag(mShowEy) + "\n";
    text += "\t ShowEz:" + flag(mShowEz) + "\n";
    text += "\t Location:" + number(mLocation) + "\n";
    text += "\t RelativePosition:" + COM_Real::toString(mRelativePosition) + "\n";
    text += "\t Position:" + mPosition->toString() + "\n";
    text += "\t ShowRho:\n";
    const COM_Scoped none(LA_IntegerMatrix::New(getRhoSize(), getRhoSize()));
    for (unsigned long b = 0; b < mSystems; ++b) {
        text += (hasMarks(b) ? (*mShowRho)[b] : *none).toString();
    }
    return text + "\t EDim:\n" + number(mEDimension) + "\n";
}
