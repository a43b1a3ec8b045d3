#include "gui/GUI_TabPanel.h"

#include "gui/GUI_Grave.h"

GUI_TabPanel::GUI_TabPanel()
    : GUI_TabPanel(nullptr)
{}

GUI_TabPanel::GUI_TabPanel(GUI_ParentPanel* parent)
    : QTabWidget(qtWidget(parent))
    , GUI_ChildPanel(parent)
{
    COM_TYPE(GUI_TabPanel);
    applyFont(*this);
}

GUI_TabPanel::~GUI_TabPanel()
{
    GUI_Grave::orphanCounted(*this);
}

void GUI_TabPanel::insertPanel(GUI_ChildPanel& panel, const std::string& name)
{
    if (QWidget* const page = panel.qtWidget()) {
        insertTab(-1, page, toQString(name));
    }
    addToChildren(panel);
}
