#include "ReferenceFiles.h"

bool ReferenceFiles::open(const ReferenceProblem& problem, const ReferenceMesh& mesh,
                          const std::string& path)
{
    const auto create = [&path](const std::string& name) {
        return File(std::fopen((path + name).c_str(), "w"));
    };
    const std::size_t systems = problem.mOmegas.size();

    const File captors = create("captors.res");
    const File frequencies = create("level_Frequencies.res");
    mTime = create("tps.res");
    if (!captors || !frequencies || !mTime) {
        return false;
    }

    for (const long node : mesh.mSavingNodes) {
        std::fprintf(captors.get(),
                     "captors Location: %i RelPosition: %lf Position: (%8.6e) RhoSize: %i "
                     "BlochEquationsNumber: %i EDim: %i\n",
                     static_cast<int>(node),
                     static_cast<double>(node) / static_cast<double>(mesh.mNodes),
                     mesh.mPositions[static_cast<std::size_t>(node)],
                     static_cast<int>(problem.mLevelsNumber), static_cast<int>(systems),
                     static_cast<int>(problem.mDimension));
    }

    for (std::size_t b = 0; b < systems; ++b) {
        std::fprintf(frequencies.get(), "Rho_Bloch%i:\n", static_cast<int>(b));
        for (std::size_t i = 0; i < problem.mLevelsNumber; ++i) {
            std::fprintf(frequencies.get(), "\t omega[%i]=%lf\n", static_cast<int>(i),
                         problem.mOmegas[b][i]);
        }
    }

    for (const long node : mesh.mSavingNodes) {
        mFields.push_back(create("E_at_" + std::to_string(node) + ".res"));
        if (!mFields.back()) {
            return false;
        }
    }
    for (std::size_t b = 0; b < systems; ++b) {
        mDensities.emplace_back();
        for (const long node : mesh.mSavingNodes) {
            mDensities[b].push_back(
                create("Rho_Bloch" + std::to_string(b) + "_at_" + std::to_string(node) + ".res"));
            if (!mDensities[b].back()) {
                return false;
            }
        }
    }
    return true;
}

void ReferenceFiles::save(const ReferenceProblem& problem, const ReferenceMesh& mesh,
                          const ReferenceField& field, const std::vector<ReferenceAtoms>& systems,
                          double rabiFrequency, double t)
{
    std::size_t k = 0;
    for (const long node : mesh.mSavingNodes) {
        std::FILE* const fieldFile = mFields[k].get();
        std::fprintf(fieldFile, "%7.6e ", t);
        for (const double component : field.mE[static_cast<std::size_t>(node)]) {
            std::fprintf(fieldFile, "%7.6e \t ", component * problem.mFieldMaxValue);
        }
        std::fprintf(fieldFile, "\n");

        for (std::size_t b = 0; b < systems.size(); ++b) {
            std::FILE* const file = mDensities[b][k].get();
            std::fprintf(file, "%7.6e %i ", t, static_cast<int>(systems[b].getIterationsNumber()));
            for (std::size_t row = 0; row < problem.mLevelsNumber; ++row) {
                for (std::size_t column = 0; column < problem.mLevelsNumber; ++column) {
                    std::fprintf(file, "%7.6e \t ", systems[b].savedValue(node, row, column, t));
                }
            }
            std::fprintf(file, "\n");
        }
        ++k;
    }
    std::fprintf(mTime.get(), "%7.6e %7.6e %7.6e \n", t, rabiFrequency, t / rabiFrequency);
}
