#include "gui/GUI_TextAction.h"

#include "gui/GUI_EventScope.h"
#include "gui/GUI_Message.h"
#include "gui/GUI_TextWindow.h"

GUI_TextAction::GUI_TextAction(GUI_ParentWindow* window, const std::string& label,
                               const std::string& icon, const std::string& accelerator)
    : GUI_Action(window)
{
    COM_TYPE(GUI_TextAction);
    setLabel(label);
    if (!icon.empty()) {
        setIcon(icon);
    }
    if (!accelerator.empty()) {
        setAccelText(accelerator);
    }
}

void GUI_TextAction::toDo()
{
    const GUI_EventScope scope;
    if (auto* const window = dynamic_cast<GUI_TextWindow*>(getWindow())) {
        act(*window);
    }
    GUI_Action::toDo();
}

void GUI_TextAction::askToSave(GUI_TextWindow& window, const std::string& title,
                               const std::string& question)
{
    const int answer =
        GUI_Message::printWarning(&window, title, question, translate("Yes"), translate("No"));
    if (answer == GUI_Message::YES) {
        window.save();
    }
}
