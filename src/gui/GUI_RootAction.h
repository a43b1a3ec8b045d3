#pragma once
#include "gui/GUI_Action.h"

#include <string>

class GUI_RootWindow;

/// An action on the root window above the menu that holds it, whatever window that menu is in. Without a
/// root window it does nothing.
class GUI_RootAction : public GUI_Action
{
protected:
    /// The label as it is shown; no icon for an empty name.
    GUI_RootAction(GUI_ParentWindow* window, const std::string& label,
                   const std::string& icon = {});
    ~GUI_RootAction() override = default;

    /// Null while a link on the way up is missing.
    GUI_RootWindow* getRootWindow() const;
    /// If the window has a file, asks whether to save it, and saves on Yes.
    static void askToSave(GUI_RootWindow& window, const std::string& title,
                          const std::string& question);
    /// Announces the loading and loads.
    static void load(GUI_RootWindow& window, const std::string& fileName);
};
