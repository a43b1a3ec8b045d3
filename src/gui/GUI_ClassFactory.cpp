#include "gui/GUI_ClassFactory.h"

GUI_ClassFactory::GUI_ClassFactory()
{
    COM_TYPE(GUI_ClassFactory);
}

MM_Object* GUI_ClassFactory::NewInstance(const std::string& name,
                                         const COM_Array<MM_Object>& newParameters) const
{
    if (matches(name, "GUI_ClassFactory")) {
        return GUI_ClassFactory::New();
    }
    return MM_ClassFactory::NewInstance(name, newParameters);
}
