#pragma once
#include "gui/GUI_RootAction.h"

#include <string>

/// Asks whether to save the file of the root window, then for the one to load.
///
/// A file that describes anything but a window of the class of the root window is refused: loaded under its
/// name, the window would write over it with its next save.
class GUI_ActionLoadFile : public GUI_RootAction
{
    COM_CLASS(GUI_ActionLoadFile)
public:
    void toDo() override;

protected:
    explicit GUI_ActionLoadFile(GUI_ParentWindow* window = nullptr);
    ~GUI_ActionLoadFile() override = default;

private:
    /// Loads the file unless it is a readable one of another class.
    static void loadOwn(GUI_RootWindow& window, const std::string& fileName);
};
