#pragma once
#include "gui/GUI_Action.h"

#include <string>

class GUI_TextWindow;

/// An action on the text window whose menu holds it. Elsewhere it only brings the menus up to date.
class GUI_TextAction : public GUI_Action
{
public:
    void toDo() override;

protected:
    /// The label as it is shown; no icon for an empty name. The accelerator is that of the label, unless one
    /// is given.
    GUI_TextAction(GUI_ParentWindow* window, const std::string& label, const std::string& icon = {},
                   const std::string& accelerator = {});
    ~GUI_TextAction() override = default;

    /// The work of the heir. The window may be closed meanwhile; it lives until the action is done.
    virtual void act(GUI_TextWindow& window) = 0;
    /// Asks whether to save the text, changed or not, and saves on Yes.
    static void askToSave(GUI_TextWindow& window, const std::string& title,
                          const std::string& question);
};
