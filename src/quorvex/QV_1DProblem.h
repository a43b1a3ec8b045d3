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

protected:
    QV_1DProblem();
    ~QV_1DProblem() override = default;

private:
    void initComponents();
};
