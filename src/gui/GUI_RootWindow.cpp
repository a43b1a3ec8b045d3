#include "gui/GUI_RootWindow.h"

#include "common/COM_Guard.h"
#include "gui/GUI_Application.h"
#include "gui/GUI_Message.h"

GUI_RootWindow::GUI_RootWindow()
{
    COM_TYPE(GUI_RootWindow);
}

GUI_RootWindow::GUI_RootWindow(const std::string& name, bool isContainer)
    : GUI_ParentWindow(name, isContainer)
{
    COM_TYPE(GUI_RootWindow);
}

bool GUI_RootWindow::close(bool /*flag*/)
{
    if (isClosed()) {
        return true;
    }
    const COM_Guard guard(*this);
    const Closing closing(*this);
    return closing.isFirst() && isReadyToClose() && GUI_ParentWindow::close(false);
}

bool GUI_RootWindow::isReadyToClose()
{
    commitEdits();
    if (getSavingFile().empty()) {
        return true;
    }
    const int answer = GUI_Message::printWarning(
        this, translate("Quit"), translate("Do you want to save before exiting ?"),
        translate("Yes"), translate("No"), translate("Cancel"));
    if (answer == GUI_Message::YES) {
        save();
    }
    return answer != GUI_Message::CANCEL;
}

void GUI_RootWindow::setApplication(GUI_Application& application)
{
    if (mApplication == &application) {
        return;
    }
    const COM_Guard guard(*this);
    resetApplication();
    associate(mApplication, &application);
    application.setMainWindow(*this);
}

void GUI_RootWindow::resetApplication()
{
    if (mApplication == nullptr) {
        return;
    }
    const COM_Guard guard(*this);
    GUI_Application* const application = mApplication;
    const COM_Guard applicationGuard(*application);
    dissociate(mApplication);
    application->resetMainWindow();
}
