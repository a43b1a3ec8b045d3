#include "gui/GUI_ActionTextPrint.h"

#include "gui/GUI_TextWindow.h"

GUI_ActionTextPrint::GUI_ActionTextPrint(GUI_ParentWindow* window)
    : GUI_TextAction(window, translate("&Print"), "print.png")
{
    COM_TYPE(GUI_ActionTextPrint);
}

void GUI_ActionTextPrint::act(GUI_TextWindow& window)
{
    window.print();
}
