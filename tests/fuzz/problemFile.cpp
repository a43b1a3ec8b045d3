// Reads the input as a parameters file, looks at the problem as the programs do before a run, and runs it for
// a few steps when nothing speaks against it and it is small. Every result file must then have a line for
// each step.
#include "common/COM_Out.h"
#include "common/COM_Scoped.h"
#include "FuzzSupport.h"
#include "linearAlgebra/LA_RealVector.h"
#include "MetaModelSize.h"
#include "ProcessExit.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_Maxwell.h"
#include "quorvex/QV_ProblemCheck.h"
#include "quorvex/QV_Results.h"

#include <filesystem>

namespace {

// What is not refused but only slow: larger numbers teach nothing new.
constexpr long mostNodes = 199;
constexpr unsigned long mostLevels = 6;
constexpr unsigned long mostSystems = 6;
constexpr unsigned long mostCaptors = 6;
constexpr unsigned long mostIterations = 100;
constexpr unsigned long dtPSteps = 20;
constexpr unsigned long usualSteps = 10;

/// The run's own record goes to the working directory.
class InScratch
{
public:
    InScratch()
        : mFormer(std::filesystem::current_path())
    {
        std::filesystem::current_path(scratchDirectory());
    }
    ~InScratch()
    {
        std::error_code ignored;
        std::filesystem::current_path(mFormer, ignored);
    }
    InScratch(const InScratch&) = delete;
    InScratch& operator=(const InScratch&) = delete;

private:
    std::filesystem::path mFormer;
};

bool isSmall(const QV_Problem& problem)
{
    const auto* const milieu = dynamic_cast<QV_1DMilieu*>(problem.getMilieu());
    const LA_RealVector* const captors = milieu->getCaptors();
    return milieu->computeMesh().mNodesNumber <= mostNodes
           && QV_Bloch::getLevelsNumber() <= mostLevels
           && QV_Bloch::getIterationsMaxNumber() <= mostIterations
           && problem.getBlochEquations()->size() <= mostSystems
           && (captors == nullptr || captors->getDimension() <= mostCaptors);
}

void checkResults(unsigned long steps)
{
    QV_Results results;
    require(results.readCaptors(scratchDirectory()), "the captors can be read");
    require(results.readTimes(), "the times can be read");
    require(results.getTimes().mSeconds.size() == steps, "there is a time for each step");
    for (const QV_Results::Captor& captor : results.getCaptors()) {
        require(results.readField(captor, 0).mT.size() == steps, "a field for each step");
        for (unsigned long b = 0; b < captor.mBlochEquationsNumber; ++b) {
            require(results.readIterations(captor, b).mT.size() == steps, "a density for each");
        }
    }
}

void run(QV_Problem& problem)
{
    const InScratch inScratch;
    QV_Results::removeResultFiles(scratchDirectory());
    problem.setSavingPath(scratchDirectory());
    const unsigned long steps = problem.getMaxTimeStepsNumber();
    const COM_Scoped out(COM_Out::New());
    try {
        if (problem.run(*out) == 0) {
            checkResults(steps);
        }
    } catch (const ProcessExit& end) {
        require(end.mStatus == 0, "the solver ends the process with status 0");
    }
}

/// Reads the file into a new problem, or into one that is there.
void load(const std::string& file, QV_Problem* present)
{
    const COM_Scoped loader(QV_LoaderWriter::New());
    loader->load(file, present);
    QV_Problem* const problem = loader->getProblem();
    if (problem == nullptr) {
        return;
    }
    problem->setMaxTimeStepsNumber(problem->getMethod() == QV_Problem::CN_dtP_METHOD ? dtPSteps
                                                                                     : usualSteps);
    const std::vector<QV_ProblemCheck::Finding> findings =
        QV_ProblemCheck::check(*problem, scratchDirectory());
    for (const QV_ProblemCheck::Finding& finding : findings) {
        require(!finding.text().empty(), "a finding has a text");
    }
    if (!QV_ProblemCheck::has(findings, QV_ProblemCheck::STOPS)
        && !QV_ProblemCheck::has(findings, QV_ProblemCheck::HARMS) && isSmall(*problem)) {
        run(*problem);
    }
    require(loader->save(scratchDirectory() + "saved.xml"), "a problem can be saved");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string file = writeScratch("problem.xml", textOf(data, size));
    if (isSlowMetaModel(file)) {
        return 0;
    }
    load(file, nullptr);
    QV_Bloch::resetShared();
    {
        const COM_Scoped present(QV_1DProblem::New());
        load(file, present.get());
    }
    QV_Bloch::resetShared();
    return 0;
}
