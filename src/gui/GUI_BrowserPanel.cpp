#include "gui/GUI_BrowserPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_BrowserEdit.h"
#include "gui/GUI_BrowserMenu.h"
#include "gui/GUI_BrowserWindow.h"
#include "gui/GUI_RootHBoxLayout.h"

GUI_BrowserPanel::GUI_BrowserPanel(GUI_ParentWindow& window)
    : GUI_RootPanel(window)
{
    COM_TYPE(GUI_BrowserPanel);
    const COM_Scoped layout(GUI_RootHBoxLayout::New(*this));
    const COM_Scoped edit(GUI_BrowserEdit::New(*this, COMPO_TEXT));
    layout->addToComponents(*edit);
}

GUI_BrowserEdit* GUI_BrowserPanel::getBrowserEdit() const
{
    return dynamic_cast<GUI_BrowserEdit*>(getComponent(COMPO_TEXT));
}

void GUI_BrowserPanel::componentClicked(GUI_ActionComponent& component)
{
    if (component.getFlagId() == COMPO_TEXT) {
        textChanged();
    }
}

// Called more than once for a change of the page, and first while the source is still that of the page before.
void GUI_BrowserPanel::textChanged()
{
    const GUI_BrowserEdit* const edit = getBrowserEdit();
    auto* const window = dynamic_cast<GUI_BrowserWindow*>(getWindow());
    const std::string context = edit == nullptr ? std::string() : edit->getContext();
    if (window == nullptr || context == mContext) {
        return;
    }
    mContext = context;
    const std::string title = toTString(edit->documentTitle());
    window->setName(title.empty() ? context : title);
    auto* const menu = dynamic_cast<GUI_BrowserMenu*>(window->getMenu());
    if (menu != nullptr && menu->showPath(context) && !window->isInHistory(context)) {
        window->addToPaths(context);
    }
}
