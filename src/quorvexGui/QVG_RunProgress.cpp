#include "quorvexGui/QVG_RunProgress.h"

#include "gui/GUI_Object.h"

QVG_RunProgress::QVG_RunProgress(GUI_ParentWindow& parent, int steps)
    : GUI_Progress(parent, steps)
{
    COM_TYPE(QVG_RunProgress);
    setName(GUI_Object::translate("Quorvex Solving") + "...");
}
