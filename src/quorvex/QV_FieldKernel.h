#pragma once
#include "quorvex/QV_Atoms.h"
#include "quorvex/QV_InstructionSet.h"

/// The leapfrog half-steps on raw arrays, and the source that the atoms put into them.
///
/// E stands on nodes 0..n, B on the n lines between them, p components each, cell after cell. Component j
/// of one field drives component (j + 1) mod p of the other, with alternating sign. Every instruction set
/// gives the same bits as `PLAIN`.
class QV_FieldKernel
{
public:
    /// The two fields of a run. They do not overlap.
    struct Fields
    {
        double* mE; ///< (mLines + 1) * mComponents values.
        double* mB; ///< mLines * mComponents values.
        unsigned long mLines;
        unsigned long mComponents;
    };

    /// B[i][j + 1] -= sign r (E[i + 1][j] - E[i][j]) on all lines.
    static void faraday(QV_InstructionSet::Level level, const Fields& fields, double r);
    /// E[i][j] -= sign r (B[i][j + 1] - B[i - 1][j + 1]) on nodes first to last. Requires: nodes 1 to
    /// mLines - 1.
    static void ampere(QV_InstructionSet::Level level, const Fields& fields, long first, long last,
                       double r);
    /// The same with a source: E[i][j] -= sign r (...) + dt terms[(i - first) p + j]. Beyond the first and
    /// the last line B counts as 0.
    static void ampereWithSource(QV_InstructionSet::Level level, const Fields& fields, long first,
                                 long last, double r, double dt, const double* terms);
    /// terms[i] = -r (B[first + i][0] - B[first + i - 1][0]) for `count` nodes: the curl's part of Ampere's equation for
    /// a field of one component. A line beyond the mesh counts as 0.
    static void curl(QV_InstructionSet::Level level, const Fields& fields, unsigned long first,
                     unsigned long count, double r, double* terms);
    /// terms[i m + p] += factor times the polarization term of component p at node i: with X[a][a] = sum over
    /// k of rho[a][k] D[a][k] and X[a][b] = -Nu[a][b] rho[a][b], dzeta times the sum over b and k of
    /// Re(X[k][b] P[p][b][k]). `rho` holds n by n complex values, node after node.
    static void addPolarization(QV_InstructionSet::Level level, const QV_Atoms& atoms,
                                double factor, unsigned long count, const double* rho,
                                double* terms);
    /// The terms themselves: those of `addPolarization` with factor 1, added to 0.
    static void polarization(QV_InstructionSet::Level level, const QV_Atoms& atoms,
                             unsigned long count, const double* rho, double* terms);
    /// terms[i] += factor known[i] for `count` values: what `addPolarization` does, with terms that
    /// `polarization` gave. They do not overlap.
    static void addTerms(QV_InstructionSet::Level level, double factor, unsigned long count,
                         const double* known, double* terms);
};
