#include "gui/GUI_Display.h"

#include "gui/GUI_ParentPanel.h"

GUI_Display::GUI_Display(GUI_ParentPanel& panel)
    : mGuard(panel)
    , mPanel(panel)
{
    ++mPanel.mDisplays;
}

GUI_Display::~GUI_Display()
{
    --mPanel.mDisplays;
}
