#include "gui/GUI_RootPanel.h"

#include "common/COM_Guard.h"
#include "gui/GUI_Grave.h"
#include "gui/GUI_ParentWindow.h"

GUI_RootPanel::GUI_RootPanel()
{
    COM_TYPE(GUI_RootPanel);
}

GUI_RootPanel::GUI_RootPanel(GUI_ParentWindow* window)
    : GUI_RootPanel()
{
    setWindow(window);
}

GUI_RootPanel::GUI_RootPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(&window)
{}

GUI_RootPanel::~GUI_RootPanel()
{
    GUI_Grave::orphanCounted(*this);
}

void GUI_RootPanel::setWindow(GUI_ParentWindow& window)
{
    if (mWindow == &window) {
        return;
    }
    const COM_Guard guard(*this);
    resetWindow();
    associate(mWindow, &window);
    window.setPanel(*this);
}

void GUI_RootPanel::setWindow(GUI_ParentWindow* window)
{
    if (window != nullptr) {
        setWindow(*window);
    } else {
        resetWindow();
    }
}

void GUI_RootPanel::resetWindow()
{
    if (mWindow == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_ParentWindow* const window = mWindow;
    mWindow = nullptr;
    window->resetPanel();
    window->subReference(this);
}

void GUI_RootPanel::setLabel(const std::string& label)
{
    setTitle(toQString(label));
}
