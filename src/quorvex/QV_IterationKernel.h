#pragma once
#include "quorvex/QV_Atoms.h"
#include "quorvex/QV_InstructionSet.h"

#include <vector>

/// The trapezoidal schemes, solved at each node by fixed-point iteration: raw arrays in, raw arrays out.
///
/// A node's iteration ends when its residual has fallen below the first one by the convergence rate, or
/// when the limit is reached. The first residual is carried over: when it is 1 / rate or more the next
/// node skips its loop. Every instruction set gives the same bits as `PLAIN`, which treats one node at a
/// time. The equations stand in docs/physics.md under the schemes' names.
class QV_IterationKernel
{
public:
    enum Scheme {
        CRANK,     ///< Density alone, the field given.
        P,         ///< Density and field, from the increment of the polarization.
        ZIOLKO,    ///< Density and field, from the time derivative of the polarization.
        PRED_CORR, ///< As P, with its own relaxation terms.
        RELAX_DIAG ///< Populations alone, the coherences given.
    };

    /// Neighbouring nodes. Densities are n by n complex values, node after node.
    struct Nodes
    {
        unsigned long mCount;
        double* mRho;       ///< Densities, advanced in place.
        double* mE;         ///< Field at the nodes; advanced by P, ZIOLKO and PRED_CORR.
        const double* mAux; ///< The second member of Ampere's equation for those three schemes,
                            ///< the field before the step for RELAX_DIAG; else not read.
        unsigned long* mIterations; ///< Gets the number of iterations of each node.
    };

    /// Advances all nodes by `dt` and returns the largest number of iterations. `dz2` is the square of the
    /// cell size. `work` is storage kept by the caller.
    static unsigned long advance(QV_InstructionSet::Level level, Scheme scheme,
                                 const QV_Atoms& atoms, double dt, double dz2, const Nodes& nodes,
                                 std::vector<double>& work);
};
