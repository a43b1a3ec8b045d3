#include "Reference.h"

#include "ReferenceFiles.h"

namespace {

/// The objects of a problem; they live through all its runs.
class Solver
{
public:
    Solver(const ReferenceProblem& problem, ReferenceMargins* margins);

    int run(const std::string& path, std::ostream& log);

private:
    int initialize(std::ostream& log);
    int loop(ReferenceFiles& files, std::ostream& log);
    bool step(double t, double dt, ReferenceFiles& files, std::ostream& log);
    void save(double t, ReferenceFiles& files);

    const ReferenceProblem& mProblem;
    ReferenceMesh mMesh;
    ReferenceField mField;
    std::vector<ReferenceAtoms> mSystems;
    double mRabiFrequency = 0.0;
    double mTimeStepAdim = 0.0;
};

Solver::Solver(const ReferenceProblem& problem, ReferenceMargins* margins)
    : mProblem(problem)
{
    for (std::size_t b = 0; b < problem.mOmegas.size(); ++b) {
        mSystems.emplace_back(problem, b, margins);
    }
}

int Solver::initialize(std::ostream& log)
{
    const double muc = mProblem.mPMax;
    const double Emax = mProblem.mFieldMaxValue;

    // time step = lambda CFL / (cells per wavelength * C)
    const double timeStep =
        mProblem.mWaveLength * mProblem.mCFL
        / (static_cast<double>(mProblem.mDiscretizationNumber) * ReferenceProblem::C);
    // Rabi = Emax muc / hbar
    mRabiFrequency = Emax * muc / ReferenceProblem::HBAR;
    if (muc == 0.0) {
        log << "muc:" << muc << "\n"
            << "Emax:" << Emax << "\n"
            << "FATAL ERROR: Rabi frequency is null \n";
        return REFERENCE_NO_RABI_FREQUENCY;
    }
    log << "Rabi Frequency:" << mRabiFrequency << "\n";
    log << "adimensionize maxwell \n";
    mField.initialize(mProblem, mMesh, mRabiFrequency, log);
    log << "adimensionize bloch equations.. \n";
    for (ReferenceAtoms& system : mSystems) {
        system.initialize(mMesh, mRabiFrequency, log);
    }
    log << "adimensionize the milieu \n";
    // z' = z Rabi / (C index)
    mMesh.adimensionize(ReferenceProblem::C * mProblem.mIndice / mRabiFrequency);
    log << "adimensionize the time \n";
    mTimeStepAdim = mRabiFrequency * timeStep; // t' = Rabi t
    log << "pas de temps:" << timeStep << "\n";
    log << "temps final:" << static_cast<double>(mProblem.mMaxTimeStepsNumber) * timeStep << "\n";
    log << "pas de temps numerique:" << mTimeStepAdim << "\n";
    return 0;
}

int Solver::run(const std::string& path, std::ostream& log)
{
    if (!mMesh.create(mProblem, log)) {
        return REFERENCE_NO_MESH;
    }
    const int status = initialize(log);
    if (status < 0) {
        return status;
    }
    mField.readMesh(mMesh);
    for (ReferenceAtoms& system : mSystems) {
        system.readMesh(mMesh);
    }

    log << "solve..\n";
    log << " init Saving \n";
    ReferenceFiles files;
    if (!files.open(mProblem, mMesh, path)) {
        log << "FATAL ERROR: Problem of creation of the files in " << path << "\n";
        return REFERENCE_NO_FILE;
    }
    log << " init Saving done\n";
    return loop(files, log);
}

int Solver::loop(ReferenceFiles& files, std::ostream& log)
{
    const double dt = mTimeStepAdim;
    unsigned long interval = mProblem.mMaxTimeStepsNumber / 10; // steps between two progress marks

    switch (mProblem.mMethod) {
    case ReferenceMethod::CnZ:
        log << " \t Crant Nicholson with dtP (Ziolkowski) discretrization\n";
        break;
    case ReferenceMethod::CnP:
        log << " \t Crant Nicholson with P computing \n";
        break;
    case ReferenceMethod::CnDtP:
        log << " \t Crant Nicholson with dtP discretization \n";
        interval = mProblem.mMaxTimeStepsNumber / 20;
        break;
    case ReferenceMethod::Relax:
        log << " \t Relaxation \n";
        break;
    case ReferenceMethod::Split:
        log << " \t split method \n";
        log << "Init Bloch Splitting \n";
        for (ReferenceAtoms& system : mSystems) {
            system.solveBlochSplitInit(dt, mField, log);
        }
        break;
    case ReferenceMethod::PredCorr:
        log << " \t predictor corrector method \n";
        break;
    }

    for (unsigned long n = 1; n <= mProblem.mMaxTimeStepsNumber; ++n) {
        const double t = static_cast<double>(n) * dt; // t = n dt
        if (interval == 0) {
            return REFERENCE_TOO_FEW_STEPS;
        }
        if (n % interval == 0) {
            log << n; // the progress mark, without an end of line
        }
        if (!step(t, dt, files, log)) {
            return REFERENCE_ENDED;
        }
    }
    return 0;
}

bool Solver::step(double t, double dt, ReferenceFiles& files, std::ostream& log)
{
    // Advances the systems in order, up to the one that ends the program.
    const auto eachSystem = [this](const auto& advance) {
        for (ReferenceAtoms& system : mSystems) {
            if (!advance(system)) {
                return false;
            }
        }
        return true;
    };
    bool goesOn = true;

    switch (mProblem.mMethod) {
    case ReferenceMethod::CnZ:
        mField.solveFaraday(t, dt);
        mField.solveAmpereZiolko(dt);
        goesOn = eachSystem(
            [&](ReferenceAtoms& system) { return system.solveBlochZiolko(t, dt, mField, log); });
        break;

    case ReferenceMethod::CnP:
        mField.solveFaraday(t, dt);
        mField.solveAmpereZiolko(dt);
        goesOn = eachSystem(
            [&](ReferenceAtoms& system) { return system.solveBlochP(t, dt, mField, log); });
        break;

    case ReferenceMethod::CnDtP:
        mField.solveFaraday(t, dt);
        goesOn = eachSystem(
            [&](ReferenceAtoms& system) { return system.solveBlochCrank(t, dt, mField, log); });
        if (goesOn) {
            save(t, files); // before Ampere: the files hold the field that the atoms saw
            mField.solveAmpere(dt, mSystems);
        }
        return goesOn;

    case ReferenceMethod::Relax: {
        mField.solveFaraday(t, dt);
        goesOn = eachSystem([&](ReferenceAtoms& system) {
            return system.solveBlochRelaxExtraDiag(t, dt, mField, log);
        });
        if (!goesOn) {
            return false;
        }
        const std::vector<std::vector<double>> Et = mField.mE; // the field before Ampere's step
        mField.solveAmpere(dt, mSystems);
        goesOn = eachSystem([&](ReferenceAtoms& system) {
            return system.solveBlochRelaxDiag(t, dt, mField, Et, log);
        });
        break;
    }

    case ReferenceMethod::Split:
        mField.solveFaraday(t, dt);
        for (ReferenceAtoms& system : mSystems) {
            system.solveBlochSplit(dt, mField, log);
        }
        save(t, files); // before Ampere, as above
        mField.solveAmpere(dt, mSystems);
        return true;

    case ReferenceMethod::PredCorr:
        mField.solveFaraday(t, dt);
        mField.solveAmpereZiolko(dt);
        goesOn = eachSystem(
            [&](ReferenceAtoms& system) { return system.solveBlochPredCorr(t, dt, mField, log); });
        break;
    }

    if (goesOn) {
        save(t, files);
    }
    return goesOn;
}

void Solver::save(double t, ReferenceFiles& files)
{
    files.save(mProblem, mMesh, mField, mSystems, mRabiFrequency, t);
}

} // namespace

int runReference(const ReferenceProblem& problem, const std::string& outputDirectory,
                 std::ostream& log, ReferenceMargins* margins)
{
    std::string path = outputDirectory;
    if (!path.empty() && path.back() != '/') {
        path += '/';
    }
    Solver solver(problem, margins);
    for (unsigned long run = 0; run < problem.mRunsNumber; ++run) {
        const int status = solver.run(path, log);
        if (status < 0) {
            return status;
        }
    }
    return 0;
}
