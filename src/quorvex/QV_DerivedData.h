#pragma once

class QV_1DMilieu;
class QV_IncidentFields;
class QV_Problem;

/// What follows from the data of a problem before it runs, and what a physicist looks at first: scale, pulse,
/// step, mesh, length of the run, and what it costs.
///
/// Nothing is changed and no mesh is built. Data without meaning give infinities and not-a-numbers; a
/// problem that lacks its medium, its field or its incident wave gives not-a-numbers alone.
class QV_DerivedData
{
public:
    explicit QV_DerivedData(const QV_Problem& problem);

    /// The scale of the run, rad/s: peak field times largest dipole over hbar.
    double getRabiFrequency() const { return mRabiFrequency; }
    /// Area of all light that enters, in units of pi; infinite for shapes that last for ever.
    double getPulseArea() const { return mPulseArea; }
    /// s
    double getTimeStep() const { return mTimeStep; }
    /// The step in periods of the carrier.
    double getTimeStepPeriods() const { return mTimeStepPeriods; }
    /// As computed, also when they are no mesh.
    double getNodes() const { return mNodes; }
    /// Nodes with atoms that lie in the mesh.
    double getActiveNodes() const { return mActiveNodes; }
    /// Simulated time, s.
    double getDuration() const { return mDuration; }
    /// Time in s that light takes through the whole length.
    double getTransitTime() const { return mTransitTime; }
    /// Bytes that a run takes, as QV_ProblemCheck has them.
    double getMemory() const { return mMemory; }
    /// Time in s that a run takes, a rough number: from constants for scheme and level count that were
    /// measured on the machine of docs/performance.md. Nothing is measured at run time, so that the same
    /// problem always shows the same number. Not-a-number where the splitting does not treat the levels.
    double getRunTime() const { return mRunTime; }

private:
    void computeMesh(const QV_Problem& problem, const QV_1DMilieu& milieu);
    void computeLight(const QV_IncidentFields& fields);
    void computeRunTime(const QV_Problem& problem);

    double mRabiFrequency;
    double mPulseArea;
    double mTimeStep;
    double mTimeStepPeriods;
    double mNodes;
    double mActiveNodes;
    double mDuration;
    double mTransitTime;
    double mMemory;
    double mRunTime;
};
