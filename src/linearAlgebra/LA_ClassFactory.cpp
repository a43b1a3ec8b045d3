#include "linearAlgebra/LA_ClassFactory.h"

#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_IntegerMatrix.h"
#include "linearAlgebra/LA_IntegerVector.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"

LA_ClassFactory::LA_ClassFactory()
{
    COM_TYPE(LA_ClassFactory);
}

MM_Object* LA_ClassFactory::NewInstance(const std::string& name,
                                        const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "LA_ClassFactory")) {
        return LA_ClassFactory::New();
    }
    if (matches(name, "LA_RealMatrix")) {
        return LA_RealMatrix::New(1, 1);
    }
    if (matches(name, "LA_ComplexMatrix")) {
        return LA_ComplexMatrix::New(1, 1);
    }
    if (matches(name, "LA_IntegerMatrix")) {
        return LA_IntegerMatrix::New(1, 1);
    }
    if (matches(name, "LA_IntegerVector")) {
        return LA_IntegerVector::New(1);
    }
    if (matches(name, "LA_ComplexVector")) {
        return LA_ComplexVector::New(1);
    }
    if (matches(name, "LA_RealVector")) {
        return LA_RealVector::New(1);
    }
    return MM_ClassFactory::NewInstance(name, newParameters);
}
