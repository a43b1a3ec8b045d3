#include "gui/GUI_NewProjectWindow.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_NewProjectPanel.h"

#include <algorithm>

GUI_NewProjectWindow::GUI_NewProjectWindow(GUI_ParentWindow& parent, bool isSavingAs)
    : GUI_ChildWindow(parent)
    , mIsSavingAs(isSavingAs)
{
    COM_TYPE(GUI_NewProjectWindow);
    initComponents();
}

void GUI_NewProjectWindow::initComponents()
{
    setName(mIsSavingAs ? translate("Save As Project") : translate("Create a New Project"));
    const COM_Scoped panel(GUI_NewProjectPanel::New(*this));
}

void GUI_NewProjectWindow::open(GUI_ParentWindow& parent, bool isSavingAs)
{
    constexpr int width = 520; // shows whole paths

    const auto isMeant = [isSavingAs](const GUI_NewProjectWindow& form) {
        return form.isSavingAs() == isSavingAs;
    };
    if (auto* const form = parent.findForm<GUI_NewProjectWindow>(isMeant)) {
        form->bringToFront();
        return;
    }
    const COM_Scoped window(New(parent, isSavingAs));
    const QSize size = window->sizeHint();
    window->setSize(std::max(width, size.width()), size.height());
    window->show();
}
