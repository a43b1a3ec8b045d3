#include "quorvexGui/QVG_ClassFactory.h"

QVG_ClassFactory::QVG_ClassFactory()
{
    COM_TYPE(QVG_ClassFactory);
}

MM_Object* QVG_ClassFactory::NewInstance(const std::string& name,
                                         const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "QVG_ClassFactory")) {
        return QVG_ClassFactory::New();
    }
    return MM_ClassFactory::NewInstance(name, newParameters);
}
