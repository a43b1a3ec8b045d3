#pragma once
#include "gui/GUI_ParentWindow.h"

class GUI_Application;

/// The top window of the application. Before it closes it asks whether to save, unless its file has no name.
class GUI_RootWindow : public GUI_ParentWindow
{
    COM_CLASS(GUI_RootWindow)
public:
    bool close(bool flag) override;
    GUI_RootWindow* getRoot() override { return this; }

    // Two-way link with GUI_Application::setMainWindow.
    void setApplication(GUI_Application& application);
    void resetApplication();
    GUI_Application* getApplication() const { return mApplication; }

protected:
    GUI_RootWindow();
    explicit GUI_RootWindow(const std::string& name, bool isContainer = false);
    ~GUI_RootWindow() override = default;

private:
    /// Asks whether to save and does so. False: the window is to stay.
    bool isReadyToClose();

    GUI_Application* mApplication = nullptr; ///< Counted back reference.
};
