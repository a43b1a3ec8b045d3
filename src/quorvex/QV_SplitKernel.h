#pragma once
#include "quorvex/QV_Atoms.h"
#include "quorvex/QV_InstructionSet.h"

#include <vector>

/// Operator splitting: a Hamiltonian step in closed form and a relaxation step, composed in one of four
/// orders at each node. Raw arrays in, raw arrays out; every instruction set gives the same bits as
/// `PLAIN`, but for the sign of a not-a-number, which the order of a compiler's operands decides.
///
/// The Hamiltonian step is rho = U^+ rho U with the Cayley transform U = (1 - c A) (1 + c A)^-1 of
/// A = sum over p of E[p] P[p], c = i tau / 2, written by the Cayley-Hamilton theorem in powers of A
/// and their traces, for 2, 3 and 4 levels. For other level counts U is zero, and so the density becomes.
/// docs/physics.md, "Split".
class QV_SplitKernel
{
public:
    enum Order {
        HRN = 0,
        RNH = 1,
        HRNH = 2,
        RNHRN = 3
    }; ///< H Hamiltonian, RN relaxation; others as HRN.

    /// The tables of a run, m being the number of components. Products of dipole matrices, and their
    /// traces, by the components of the factors, the first varying slowest.
    struct Tables
    {
        unsigned long mOrder;     ///< One of `Order`.
        double mTau;              ///< Length of the partial steps.
        const double* mExpA;      ///< Propagator of the populations, n by n.
        const double* mDecay;     ///< exp(-tau Nu), n by n complex, read below the diagonal.
        const double* mRhoE;      ///< Populations that relaxation leads to, n; null for zero.
        const double* mTraces2;   ///< Tr(P P), m^2 values.
        const double* mTraces3;   ///< Tr(P P P), m^3.
        const double* mTraces4;   ///< Tr(P P P P), m^4.
        const double* mProducts2; ///< P P, m^2 matrices.
        const double* mProducts3; ///< The third-order term of 4 levels, m^3 matrices.
    };

    /// Advances `count` nodes: `rho` holds n by n complex values node after node, `E` m components node
    /// after node. `terms`, unless null, gets what QV_FieldKernel::polarization gives. `work` is storage
    /// kept by the caller.
    static void advance(QV_InstructionSet::Level level, const QV_Atoms& atoms, const Tables& tables,
                        unsigned long count, double* rho, const double* E, double* terms,
                        std::vector<double>& work);
};
