#pragma once

/// What the kernels need to know of one class of atoms, all of it dimensionless: plain arrays, borrowed.
/// Matrices are n by n, row after row; complex values are pairs, real part first.
struct QV_Atoms
{
    unsigned long mLevels;     ///< n.
    unsigned long mComponents; ///< Components of the field, and dipole matrices in mPs.
    const double* mPs;         ///< Dipole matrices, one after the other.
    const double* mW;          ///< Longitudinal rates.
    const double* mD;          ///< Population relaxation operator.
    const double* mNu;         ///< Decay and rotation of the coherences, complex.
    const double* mOmega;      ///< Frequencies of the levels.
    double mTransversal;       ///< Dephasing rate.
    double mDzeta;             ///< Coupling of the polarization to the field.
    double mConvergence;       ///< Threshold of the iterations, relative to the first residual.
    unsigned long mIterationsMax;

    /// The same arrays, not equal ones.
    bool operator==(const QV_Atoms& other) const = default;
};
