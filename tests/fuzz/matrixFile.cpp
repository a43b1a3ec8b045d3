// Reads the input as a matrix file. Its first four bytes choose the levels, the method, the relaxation type
// and the components of the field.
#include "common/COM_Scoped.h"
#include "FuzzSupport.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_LoaderWriter.h"
#include "quorvex/QV_Maxwell.h"

namespace {

constexpr std::size_t choices = 4;           ///< Bytes in front of the file's own.
constexpr unsigned long usualLevels = 16;    ///< Levels that the problem can treat;
constexpr unsigned long tooMany = 1UL << 40; ///< so many are refused.
constexpr std::uint8_t refused = 255;        ///< The byte that asks for those.

void read(const std::uint8_t* choice, const std::string& file)
{
    const bool isRefused = choice[0] == refused;
    const unsigned long n = isRefused ? tooMany : choice[0] % (usualLevels + 1);
    const COM_Scoped problem(QV_1DProblem::New());
    const COM_Scoped second(QV_Bloch::New());
    problem->addToBlochEquations(*second);
    problem->getMaxwellSystem()->setDimension(choice[3] % 4);
    // The levels of the atoms and of the file are told apart: each matrix is cut or filled up.
    QV_Bloch::setLevelsNumber(choice[3] < 128 ? choice[0] % (usualLevels + 1) : 3);
    const COM_Scoped loader(QV_LoaderWriter::New());
    loader->setProblem(*problem);
    require(loader->readMatrix(n, file, choice[1], choice[2]) != isRefused, "what fits is read");
    const unsigned long levels = QV_Bloch::getLevelsNumber();
    for (const LA_RealMatrix* matrix :
         {QV_Bloch::getLongitudinalRelaxation(), QV_Bloch::getPolarizations()->get(0)}) {
        require(matrix->getLinesNumber() == levels && matrix->getColumnsNumber() == levels,
                "a matrix has a line for each level");
    }
    for (unsigned long b = 0; b < problem->getBlochEquations()->size(); ++b) {
        const QV_Bloch& system = (*problem->getBlochEquations())[b];
        require(system.getLevelsFrequency()->getDimension() == levels, "a frequency for each");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size >= choices) {
        read(data, writeScratch("qv2.dat", textOf(data, size).substr(choices)));
        QV_Bloch::resetShared();
    }
    return 0;
}
