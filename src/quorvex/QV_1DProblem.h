#pragma once
#include "quorvex/QV_Problem.h"

/// A problem along one axis, made with all its parts: field, incident wave, medium and one density-matrix
/// system.
class QV_1DProblem : public QV_Problem
{
    COM_CLASS(QV_1DProblem)
public:
    /// Derives the time step, wavelength * CFL / (cells in a wavelength * C), and initialises.
    int initialize() override;

    /// The wavelength in m, which is the characteristic length of the mesh too.
    void setWaveLength(double waveLength);
    /// Number of components of the field; each gets its dipole matrix.
    void setDimension(unsigned long dimension);

protected:
    QV_1DProblem();
    ~QV_1DProblem() override = default;

private:
    void initComponents();
};
