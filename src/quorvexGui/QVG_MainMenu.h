#pragma once
#include "gui/GUI_MenuPanel.h"

#include <array>
#include <initializer_list>
#include <string>

class GUI_Action;
class GUI_RootMenu;

/// The menus of the main window. What can be used depends on the project: none, one without results, one
/// with results.
class QVG_MainMenu : public GUI_MenuPanel
{
    COM_CLASS(QVG_MainMenu)
public:
    // The menus, left to right.
    enum Menu { PROJECT, EDIT, RUN, VISUALIZE, HELP, MENUS_NUMBER };

    void updateStateMenus() override;

    /// The action that opens the parameters, or null when it was taken off.
    GUI_Action* getParametersAction() const;

protected:
    explicit QVG_MainMenu(GUI_ParentWindow& window);
    ~QVG_MainMenu() override = default;

private:
    void createProjectMenu();
    void createEditMenu();
    void createRunMenu();
    void createVisualizeMenu();
    void createHelpMenu();
    /// Appends a menu with the text of `key`, which the bar holds.
    GUI_RootMenu& addMenu(Menu menu, const char* key);
    /// Enables the actions of these indices; one that does not exist is passed over.
    void enable(Menu menu, std::initializer_list<int> actions) const;
    bool isProjectOpen() const;
    bool hasResults() const;

    /// The names with which the menus were built: after a change of the language the words are others.
    std::array<std::string, MENUS_NUMBER> mNames;
    std::string mParametersLabel; ///< Likewise the label of the action that opens the parameters.
};
