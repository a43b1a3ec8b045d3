#include "gui/GUI_HBoxLayout.h"

GUI_HBoxLayout::GUI_HBoxLayout()
{
    COM_TYPE(GUI_HBoxLayout);
}
