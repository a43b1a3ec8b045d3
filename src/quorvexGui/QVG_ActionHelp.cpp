#include "quorvexGui/QVG_ActionHelp.h"

#include "gui/GUI_Application.h"
#include "gui/GUI_RootWindow.h"
#include "quorvexGui/QVG_NotInBuild.h"

QVG_ActionHelp::QVG_ActionHelp(unsigned char type)
    : GUI_RootAction(nullptr, translate(type == ABOUT_TYPE ? "About" : "Manual"))
    , mType(type)
{
    COM_TYPE(QVG_ActionHelp);
}

void QVG_ActionHelp::toDo()
{
    if (mType == MANUAL_TYPE) {
        QVG_NotInBuild::tell();
    } else if (const GUI_RootWindow* const window = getRootWindow()) {
        if (GUI_Application* const application = window->getApplication()) {
            application->about();
        }
    }
    GUI_RootAction::toDo();
}
