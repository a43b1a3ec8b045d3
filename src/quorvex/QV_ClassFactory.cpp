#include "quorvex/QV_ClassFactory.h"

#include "quorvex/QV_1DMaxwell.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"

QV_ClassFactory::QV_ClassFactory()
{
    COM_TYPE(QV_ClassFactory);
}

MM_Object* QV_ClassFactory::NewInstance(const std::string& name,
                                        const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "QV_ClassFactory")) {
        return QV_ClassFactory::New();
    }
    if (matches(name, "QV_1DProblem")) {
        return QV_1DProblem::New();
    }
    if (matches(name, "QV_Bloch")) {
        return QV_Bloch::New();
    }
    if (matches(name, "QV_1DMilieu")) {
        return QV_1DMilieu::New();
    }
    if (matches(name, "QV_1DMaxwell")) {
        return QV_1DMaxwell::New();
    }
    if (matches(name, "QV_IncidentFields")) {
        return QV_IncidentFields::New();
    }
    if (matches(name, "QV_Field")) {
        return QV_Field::New(0, 0);
    }
    return LA_ClassFactory::NewInstance(name, newParameters);
}
