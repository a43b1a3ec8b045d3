#pragma once
#include "common/COM_Object.h"

#include <complex>

/// Storage that many small matrices share: they lie side by side in one aligned run of values, where a
/// loop over all of them reads memory in order.
///
/// Each matrix that lies in a block counts a reference on it. A matrix that leaves for storage of its own
/// says so, and the block then no longer vouches for its contents.
template <typename T>
class LA_Block : public COM_Object
{
    COM_CLASS(LA_Block)
public:
    static constexpr unsigned long ALIGNMENT = 64; ///< Bytes: one line of the cache.

    T* getValues() { return mValues; }
    unsigned long getSize() const { return mSize; }

    void leave() { mIsWhole = false; }
    /// True while no matrix has left the block.
    bool isWhole() const { return mIsWhole; }

protected:
    /// A block of `size` zeros.
    explicit LA_Block(unsigned long size);
    ~LA_Block() override;

private:
    unsigned long mSize;
    bool mIsWhole = true;
    T* mValues; ///< Owned.
};

extern template class LA_Block<double>;
extern template class LA_Block<std::complex<double>>;
extern template class LA_Block<unsigned long>;
