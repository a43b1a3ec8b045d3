#include "linearAlgebra/LA_Block.h"

#include <memory>
#include <new>

template <typename T>
LA_Block<T>::LA_Block(unsigned long size)
    : mSize(size)
    , mValues(static_cast<T*>(::operator new(size * sizeof(T), std::align_val_t(ALIGNMENT))))
{
    COM_TYPE(LA_Block);
    std::uninitialized_fill_n(mValues, size, T());
}

template <typename T>
LA_Block<T>::~LA_Block()
{
    ::operator delete(mValues, std::align_val_t(ALIGNMENT));
}

template class LA_Block<double>;
template class LA_Block<std::complex<double>>;
template class LA_Block<unsigned long>;
