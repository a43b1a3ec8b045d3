#pragma once
#include "gui/GUI_RootPanel.h"

#include <QPointer>

class GUI_LineEdit;
class GUI_NewProjectWindow;

/// The fields and buttons of GUI_NewProjectWindow. "OK" makes the directory of the project, and in it the
/// root window makes the project; Return in a field does the same. Escape cancels.
class GUI_NewProjectPanel : public GUI_RootPanel
{
    COM_CLASS(GUI_NewProjectPanel)
public:
    static constexpr unsigned char COMPO_NAME = 0;
    static constexpr unsigned char COMPO_DIRECTORY = 1;
    static constexpr unsigned char COMPO_BROWSE = 2;
    static constexpr unsigned char COMPO_OK = 3;
    static constexpr unsigned char COMPO_CANCEL = 4;

    /// Shows the directory of the parent's file, in place of what the user may have put there.
    void updateValues() override;
    void componentClicked(GUI_ActionComponent& component) override;

protected:
    explicit GUI_NewProjectPanel(GUI_NewProjectWindow& window);
    ~GUI_NewProjectPanel() override = default;

private:
    void initComponents();
    void browse();
    /// Makes the project and closes the window. If there is no making its directory the window stays.
    void accept();
    void cancel();

    GUI_NewProjectWindow* form() const;

    QPointer<GUI_LineEdit> mName;      ///< Borrowed from the layout. Null when it has gone.
    QPointer<GUI_LineEdit> mDirectory; ///< The same.
};
