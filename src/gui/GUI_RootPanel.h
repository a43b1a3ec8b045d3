#pragma once
#include "gui/GUI_ParentPanel.h"

#include <QGroupBox>

#include <string>

class GUI_ParentWindow;

/// The panel in the centre of a window, top of the tree of panels.
class GUI_RootPanel : public QGroupBox, public GUI_ParentPanel
{
    Q_OBJECT
    COM_CLASS(GUI_RootPanel)
public:
    /// Two-way link with `GUI_ParentWindow::setPanel` and `resetPanel`.
    void setWindow(GUI_ParentWindow& window);
    /// Null takes the panel off its window.
    void setWindow(GUI_ParentWindow* window);
    void resetWindow();
    GUI_ParentWindow* getWindow() const { return mWindow; }

    /// The title of the frame, as given.
    void setLabel(const std::string& label);

    GUI_RootPanel* getRoot() override { return this; }
    using GUI_ParentPanel::setEnabled;

protected:
    GUI_RootPanel();
    explicit GUI_RootPanel(GUI_ParentWindow* window);
    explicit GUI_RootPanel(GUI_ParentWindow& window);
    ~GUI_RootPanel() override;

private:
    GUI_ParentWindow* mWindow = nullptr; ///< Counted back reference.
};
