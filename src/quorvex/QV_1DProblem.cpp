#include "quorvex/QV_1DProblem.h"

#include "common/COM_Scoped.h"
#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_IncidentFields.h"

QV_1DProblem::QV_1DProblem()
{
    COM_TYPE(QV_1DProblem);
    initComponents();
}

void QV_1DProblem::initComponents()
{
    const COM_Scoped maxwell(QV_1DMaxwell::New());
    setMaxwellSystem(*maxwell);
    const COM_Scoped incidentFields(QV_IncidentFields::New());
    maxwell->setIncidentFields(*incidentFields);
    const COM_Scoped milieu(QV_1DMilieu::New());
    setMilieu(*milieu);
    const COM_Scoped bloch(QV_Bloch::New());
    addToBlochEquations(*bloch);
}

void QV_1DProblem::setWaveLength(double waveLength)
{
    QV_Maxwell* const maxwell = getMaxwellSystem();
    if (maxwell != nullptr && maxwell->getIncidentFields() != nullptr) {
        maxwell->getIncidentFields()->setWaveLength(waveLength);
    }
    if (auto* const milieu = dynamic_cast<QV_1DMilieu*>(getMilieu())) {
        milieu->setCaracteristicLength(waveLength);
    }
}

void QV_1DProblem::setDimension(unsigned long dimension)
{
    if (getMaxwellSystem() != nullptr) {
        getMaxwellSystem()->setDimension(dimension);
    }
    QV_Bloch::setPolarizationsSize(dimension);
}

int QV_1DProblem::initialize()
{
    const QV_IncidentFields& fields = *getMaxwellSystem()->getIncidentFields();
    if (const auto* const milieu = dynamic_cast<QV_1DMilieu*>(getMilieu())) {
        setTimeStep(fields.computeTimeStep(milieu->getDiscretizationNumber()));
    }
    return QV_Problem::initialize();
}
