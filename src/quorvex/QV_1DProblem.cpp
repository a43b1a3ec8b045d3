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

int QV_1DProblem::initialize()
{
    const QV_IncidentFields& fields = *getMaxwellSystem()->getIncidentFields();
    if (const auto* const milieu = dynamic_cast<QV_1DMilieu*>(getMilieu())) {
        setTimeStep(fields.getWaveLength() * fields.getCFL()
                    / (static_cast<double>(milieu->getDiscretizationNumber()) * C));
    }
    return QV_Problem::initialize();
}
