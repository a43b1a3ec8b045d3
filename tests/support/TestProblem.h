#pragma once
#include "common/COM_Scoped.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestOut.h"
#include "support/WorkingDirectory.h"

#include <string>

/// A small problem that lives and runs in a directory of its own, the working directory meanwhile.
///
/// The mesh has 20 nodes, of which 1 to 17 are active; the captors stand at nodes 5, 9 and 13, so that the
/// saving nodes are 1, 5, 9, 13 and 18. A pulse of 4 fs crosses in 20 steps by splitting; all else is as
/// the problem is made. What the atoms share is put back at the end.
class TestProblem
{
public:
    static constexpr double CELL = 7.5e-8; ///< m, with the default 20 cells in 1.5e-6.

    TestProblem()
    {
        setNodes(20);
        mProblem->setMaxTimeStepsNumber(20);
        mProblem->setMethod(QV_Problem::SPLIT_METHOD);
        mProblem->setSavingPath(mDirectory.slashed());
        wave().setWavePackageDuration(4e-15);
    }
    ~TestProblem()
    {
        release();
        QV_Bloch::resetShared();
    }
    TestProblem(const TestProblem&) = delete;
    TestProblem& operator=(const TestProblem&) = delete;

    QV_1DProblem& operator*() const { return *mProblem; }
    QV_1DProblem* operator->() const { return mProblem; }
    QV_1DMaxwell& maxwell() const
    {
        return dynamic_cast<QV_1DMaxwell&>(*mProblem->getMaxwellSystem());
    }
    QV_IncidentFields& wave() const { return *maxwell().getIncidentFields(); }
    QV_1DMilieu& milieu() const { return dynamic_cast<QV_1DMilieu&>(*mProblem->getMilieu()); }
    QV_Bloch& bloch(unsigned long i = 0) const { return (*mProblem->getBlochEquations())[i]; }
    const TestDirectory& directory() const { return mDirectory; }

    /// Adds a system like the first one.
    void addSystem() const
    {
        const COM_Scoped system(QV_Bloch::New());
        mProblem->addToBlochEquations(*system);
    }
    /// A length in the midst of a cell, so that no rounding changes the number of nodes.
    void setNodes(unsigned long number) const
    {
        milieu().setLength((static_cast<double>(number) + 0.5) * CELL);
    }
    /// Runs and keeps the log and the progress. What the run returned.
    int run()
    {
        mOut->mInts.clear();
        int result = 0;
        mLog = printedBy([this, &result] { result = mProblem->run(*mOut); });
        return result;
    }
    /// Standard output of the last run.
    const std::string& log() const { return mLog; }
    TestOut& out() const { return *mOut; }
    /// Gives the problem up before the end of the scope.
    void release()
    {
        if (mProblem != nullptr) {
            mProblem->Delete();
            mProblem = nullptr;
        }
    }

private:
    TestDirectory mDirectory;
    WorkingDirectory mWorkingDirectory{mDirectory.path()};
    COM_Scoped<TestOut> mOut{TestOut::New()};
    QV_1DProblem* mProblem = QV_1DProblem::New(); ///< Counted; null after `release`.
    std::string mLog;
};
