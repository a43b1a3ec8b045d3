#include "gui/GUI_FramePanel.h"

#include "gui/GUI_Grave.h"

GUI_FramePanel::GUI_FramePanel()
    : GUI_FramePanel(nullptr)
{}

GUI_FramePanel::GUI_FramePanel(GUI_ParentPanel* parent)
    : QGroupBox(qtWidget(parent))
    , GUI_ChildPanel(parent)
{
    COM_TYPE(GUI_FramePanel);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    applyFont(*this);
}

GUI_FramePanel::~GUI_FramePanel()
{
    GUI_Grave::orphanCounted(*this);
}

void GUI_FramePanel::setLabel(const std::string& label)
{
    setTitle(toQString(label));
}
