#pragma once

/// A complex number, or several side by side, as real and imaginary part. Products are written out,
/// (ac - bd, ad + bc), so that no path for not-a-numbers gets into the loops.
template <typename Real>
struct QV_PackComplex
{
    Real mRe;
    Real mIm;
};
