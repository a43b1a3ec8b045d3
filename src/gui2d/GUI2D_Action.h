#pragma once
#include "gui/GUI_Action.h"

#include <string>

class GUI2D_DrawPanel;

/// An action on the draw panel of the window whose menu holds it. Outside a menu it does nothing.
class GUI2D_Action : public GUI_Action
{
public:
    /// The work of the action, a repaint, and the state of the menus. In a window without draw panel
    /// nothing but a line on standard output.
    void toDo() override;

protected:
    /// `speaker` is the class that the line on standard output names: for some actions another one, whose
    /// text they share. No icon for an empty name.
    GUI2D_Action(GUI_ParentWindow* window, const std::string& label, const std::string& speaker,
                 const std::string& icon = {});
    ~GUI2D_Action() override = default;

    virtual void act(GUI2D_DrawPanel& panel) = 0;

    /// Where a dialog for a file starts: in the window's directory, else in the root window's.
    std::string getStartPath() const;

private:
    std::string mSpeaker;
};
