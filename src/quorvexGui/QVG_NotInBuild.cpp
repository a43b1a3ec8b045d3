#include "quorvexGui/QVG_NotInBuild.h"

#include "gui/GUI_Message.h"
#include "gui/GUI_Object.h"

void QVG_NotInBuild::tell()
{
    GUI_Message::printInformation(GUI_Object::translate("Information"),
                                  GUI_Object::translate("This window is not in this build") + ".");
}
