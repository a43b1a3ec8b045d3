#include "BenchProblem.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"
#include "quorvex/QV_Maxwell.h"

#include <algorithm>

double BenchProblem::dipole(unsigned long a, unsigned long b)
{
    return a + 1 == b || b + 1 == a ? 1e-29 : 0.0;
}

std::vector<double> BenchProblem::captors() const
{
    std::vector<double> positions;
    for (unsigned long i = 0; i < mCaptors; ++i) {
        positions.push_back(100.0 * (static_cast<double>(i) + 0.5) / static_cast<double>(mCaptors));
    }
    return positions;
}

QV_1DProblem* BenchProblem::create() const
{
    QV_Bloch::resetShared();
    QV_Bloch::setLevelsNumber(mLevels);
    auto* const problem = QV_1DProblem::New();
    problem->setMethod(mMethod);
    problem->setMaxTimeStepsNumber(mSteps);
    auto& milieu = dynamic_cast<QV_1DMilieu&>(*problem->getMilieu());
    milieu.setLength(length());
    const std::vector<double> positions = captors();
    const COM_Scoped vector(LA_RealVector::New(mCaptors));
    std::copy(positions.begin(), positions.end(), vector->getValues());
    milieu.setCaptors(*vector);
    QV_IncidentFields& fields = *problem->getMaxwellSystem()->getIncidentFields();
    fields.setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    fields.setFieldMaxValue(PEAK_FIELD);

    const COM_Scoped dipoles(LA_RealMatrix::New(mLevels, mLevels));
    const COM_Scoped omega(LA_RealVector::New(mLevels));
    for (unsigned long a = 0; a < mLevels; ++a) {
        (*omega)[a] = static_cast<double>(a) * CARRIER;
        for (unsigned long b = 0; b < mLevels; ++b) {
            (*dipoles)[a][b] = dipole(a, b);
        }
    }
    QV_Bloch::setPolarization(*dipoles, 0);
    while (problem->getBlochEquations()->size() < mSystems) {
        const COM_Scoped system(QV_Bloch::New());
        problem->addToBlochEquations(*system);
    }
    for (unsigned long i = 0; i < mSystems; ++i) {
        const COM_Scoped own(LA_RealVector::New(*omega));
        (*problem->getBlochEquations())[i].setLevelsFrequency(*own);
    }
    const COM_Scoped density(LA_ComplexMatrix::New(mLevels, mLevels));
    (*density)[0][0] = 1.0;
    if (mIsExcited) {
        // Fewer atoms than usual: so many that radiate at once would drive one another to infinity.
        QV_Bloch::setAtomsNumber(1e21);
        for (unsigned long a = 0; a < mLevels; ++a) {
            (*density)[a][a] = 1.0 / static_cast<double>(mLevels);
            for (unsigned long b = 0; b < mLevels; ++b) {
                if (a + 1 == b || b + 1 == a) {
                    (*density)[a][b] = {1e-3, a < b ? 3e-4 : -3e-4};
                }
            }
        }
    }
    QV_Bloch::setInitialDensity(*density);
    return problem;
}
