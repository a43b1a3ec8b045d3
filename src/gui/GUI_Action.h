#pragma once
#include "gui/GUI_Object.h"

#include <QAction>

#include <string>

class GUI_MenuPanel;
class GUI_ParentMenu;
class GUI_ParentWindow;

/// A command of the user, with its label, accelerator and icon. Heirs do their work in `toDo` and end with the
/// base's, which brings the menus up to date.
///
/// A checkable action comes to `toDo` twice for one click and once when code changes its state, so its work
/// gives the same result each time.
class GUI_Action : public QAction, public GUI_Object
{
    Q_OBJECT
    COM_CLASS(GUI_Action)
public:
    static std::string ICONS_PATH; ///< In front of the name of every icon.

public slots:
    virtual void toDo();

public:
    /// Shows `label`; its first "&" marks a letter, and Ctrl with that letter is the accelerator. A label
    /// without such a letter leaves the accelerator as it is.
    void setLabel(const std::string& label);
    /// Shows a name as it stands, such as a path: "&" in it marks nothing.
    void setPlainLabel(const std::string& label);
    /// The label as it was given.
    const std::string& getLabel() const { return mName; }
    /// A file that cannot be read gives no icon.
    void setIcon(const std::string& fileName);
    void setTooltipText(const std::string& text);
    /// An empty text removes the accelerator.
    void setAccelText(const std::string& text);

    // Two-way link with GUI_ParentMenu::addToActions.
    void setMenu(GUI_ParentMenu& menu);
    void resetMenu();
    GUI_ParentMenu* getMenu() const { return mMenu; }

protected:
    GUI_Action();
    /// The window does not become the Qt parent: the count decides how long an action lives.
    explicit GUI_Action(GUI_ParentWindow* window);
    ~GUI_Action() override = default;

    /// The bar of menus that holds the action, or null.
    GUI_MenuPanel* getMenuPanel() const;
    /// The window of the bar, or null.
    GUI_ParentWindow* getWindow() const;

private:
    void initComponents();

    std::string mName;               ///< The label with its "&".
    GUI_ParentMenu* mMenu = nullptr; ///< Counted back reference.
};
