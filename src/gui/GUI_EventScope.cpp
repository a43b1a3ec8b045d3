#include "gui/GUI_EventScope.h"

#include "gui/GUI_Grave.h"

GUI_EventScope::GUI_EventScope()
{
    ++GUI_Grave::mDepth;
}

GUI_EventScope::~GUI_EventScope()
{
    GUI_Grave::leaveHandler();
}
