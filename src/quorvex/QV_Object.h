#pragma once
#include "metaModel/MM_Object.h"

/// Root of the solver's classes, with the physical constants that all of them use.
class QV_Object : public virtual MM_Object
{
public:
    static constexpr double HBAR = 1.0546e-34; ///< Reduced Planck constant, J s.
    static constexpr double EPS0 = 8.85e-12;   ///< Vacuum permittivity, F/m.
    static constexpr double C =
        2.997e8; ///< Speed of light, m/s, rounded as everywhere in the solver.
    static constexpr double KAPPA = 1.381e-23; ///< Boltzmann constant, J/K.

protected:
    QV_Object();
    ~QV_Object() override = default;
};
