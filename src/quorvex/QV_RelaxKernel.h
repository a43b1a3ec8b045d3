#pragma once
#include "quorvex/QV_Atoms.h"

#include <vector>

/// The coherences of one node in the relaxation method: raw arrays in, raw arrays out.
class QV_RelaxKernel
{
public:
    /// Advances the off-diagonal elements of `rho` (n by n complex) by `dt` in the field `E`, by
    /// fixed-point iteration, and adds to the diagonal what the populations change with them. Returns the
    /// number of iterations; 0, with nothing changed, when the loop is not entered. `work` is storage
    /// kept by the caller. docs/physics.md, "Relax".
    static unsigned long advanceCoherences(const QV_Atoms& atoms, double dt, double E, double* rho,
                                           std::vector<double>& work);
};
