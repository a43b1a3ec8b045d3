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

    /// Whether a scheme leaves the polarization terms of its nodes: those that do not advance the field.
    static constexpr bool leavesTerms(Scheme scheme)
    {
        return scheme == CRANK || scheme == RELAX_DIAG;
    }

    /// Neighbouring nodes. Densities are n by n complex values, node after node.
    struct Nodes
    {
        unsigned long mCount = 0;
        double* mRho = nullptr; ///< Densities, advanced in place.
        double* mE = nullptr;   ///< Field at the nodes; advanced by P, ZIOLKO and PRED_CORR.
        /// The second member of Ampere's equation for those three schemes, the field before the step for
        /// RELAX_DIAG; else not read.
        const double* mAux = nullptr;
        unsigned long* mIterations = nullptr; ///< Gets the number of iterations of each node.
        /// Unless null, gets what QV_FieldKernel::polarization gives, from the schemes that leave it.
        double* mTerms = nullptr;
    };

    /// What a scheme needs to know of the atoms for steps of `dt`: made once for all steps of a run. Borrows
    /// the arrays of `atoms`.
    struct Tables
    {
        Tables(Scheme scheme, const QV_Atoms& atoms, double dt);

        Scheme mScheme;
        QV_Atoms mAtoms;
        double mDt;
        std::vector<double> mHalfD;  ///< (dt / 2) D
        std::vector<double> mHalfW;  ///< (dt / 2) W
        std::vector<double> mHalfNu; ///< (dt / 2) times decay and rotation of coherences, complex
        std::vector<double> mPNu;    ///< P[b][k] Nu[k][b], complex
        bool mIsSymmetric;           ///< Hermitian densities stay so, and populations real.
        // Of at most four levels, bit a n + c:
        unsigned long mTransitions;  ///< The dipole couples a and c.
        unsigned long mLongitudinal; ///< W[a][c] is not zero.
        unsigned long mOperator;     ///< D[a][c] is not zero.
    };

    /// Advances all nodes and returns the largest number of iterations. `dz2` is the square of the cell
    /// size. `work` is storage kept by the caller.
    static unsigned long advance(QV_InstructionSet::Level level, const Tables& tables, double dz2,
                                 const Nodes& nodes, std::vector<double>& work);
};
