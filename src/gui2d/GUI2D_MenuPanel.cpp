#include "gui2d/GUI2D_MenuPanel.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ActionExit.h"
#include "gui/GUI_ActionLoadFile.h"
#include "gui/GUI_ActionSaveAsFile.h"
#include "gui/GUI_ActionSaveFile.h"
#include "gui/GUI_ParentWindow.h"
#include "gui/GUI_RootMenu.h"
#include "gui2d/GUI2D_ActionAxe.h"
#include "gui2d/GUI2D_ActionGrid.h"
#include "gui2d/GUI2D_ActionMoveEast.h"
#include "gui2d/GUI2D_ActionMoveNorth.h"
#include "gui2d/GUI2D_ActionMoveSouth.h"
#include "gui2d/GUI2D_ActionMoveWest.h"
#include "gui2d/GUI2D_ActionOptions.h"
#include "gui2d/GUI2D_ActionPrint.h"
#include "gui2d/GUI2D_ActionRedo.h"
#include "gui2d/GUI2D_ActionSaveAsImage.h"
#include "gui2d/GUI2D_ActionUndo.h"
#include "gui2d/GUI2D_ActionZoomFit.h"
#include "gui2d/GUI2D_ActionZoomL.h"
#include "gui2d/GUI2D_ActionZoomP.h"
#include "gui2d/GUI2D_ActionZoomSelect.h"
#include "gui2d/GUI2D_DrawPanel.h"
#include "gui2d/GUI2D_Window.h"

#include <QKeySequence>

namespace {

struct Keys
{
    const char* mAction; ///< Class name.
    const char* mKeys;   ///< None with Ctrl and a letter: those belong to the labels.
};

constexpr Keys KEYS[] = {
    {"GUI2D_ActionZoomFit", "Home; Ctrl+0"},
    {"GUI2D_ActionUndo", "Backspace; Alt+Left"},
    {"GUI2D_ActionRedo", "Alt+Right"},
    {"GUI2D_ActionZoomP", "+"},
    {"GUI2D_ActionZoomL", "-"},
    {"GUI2D_ActionMoveNorth", "Up"},
    {"GUI2D_ActionMoveSouth", "Down"},
    {"GUI2D_ActionMoveWest", "Left"},
    {"GUI2D_ActionMoveEast", "Right"},
};

} // namespace

GUI2D_MenuPanel::GUI2D_MenuPanel(GUI_ParentWindow& window)
    : GUI_MenuPanel(window)
{
    COM_TYPE(GUI2D_MenuPanel);
    createFileMenu();
    createEditMenu();
    createZoomMenu();
    createMoveMenu();
    setKeys();
    GUI2D_MenuPanel::updateStateMenus();
}

GUI_RootMenu& GUI2D_MenuPanel::addMenu(const char* key)
{
    const COM_Scoped menu(GUI_RootMenu::New(*this, translate(key)));
    return *menu;
}

void GUI2D_MenuPanel::createFileMenu()
{
    GUI_RootMenu& menu = addMenu("&File");
    addTool(menu, GUI_ActionLoadFile::New(getWindow()));
    addTool(menu, GUI_ActionSaveFile::New(getWindow()));
    add(menu, GUI_ActionSaveAsFile::New(getWindow()));
    add(menu, GUI2D_ActionSaveAsImage::New(getWindow()));
    menu.addSeparator();
    add(menu, GUI_ActionExit::New(getWindow()));
}

void GUI2D_MenuPanel::createEditMenu()
{
    GUI_RootMenu& menu = addMenu("&Edit");
    mEditName = menu.getName();
    addTool(menu, GUI2D_ActionRedo::New(getWindow()));
    addTool(menu, GUI2D_ActionUndo::New(getWindow()));
    addTool(menu, GUI2D_ActionGrid::New(getWindow()));
    addTool(menu, GUI2D_ActionAxe::New(getWindow()));
    add(menu, GUI2D_ActionOptions::New(getWindow()));
    addTool(menu, GUI2D_ActionPrint::New(getWindow()));
}

void GUI2D_MenuPanel::createZoomMenu()
{
    GUI_RootMenu& menu = addMenu("&Zoom");
    addTool(menu, GUI2D_ActionZoomP::New(getWindow()));
    addTool(menu, GUI2D_ActionZoomL::New(getWindow()));
    addTool(menu, GUI2D_ActionZoomSelect::New(getWindow()));
    addTool(menu, GUI2D_ActionZoomFit::New(getWindow()));
}

void GUI2D_MenuPanel::createMoveMenu()
{
    GUI_RootMenu& menu = addMenu("&Move");
    addTool(menu, GUI2D_ActionMoveNorth::New(getWindow()));
    addTool(menu, GUI2D_ActionMoveSouth::New(getWindow()));
    addTool(menu, GUI2D_ActionMoveWest::New(getWindow()));
    addTool(menu, GUI2D_ActionMoveEast::New(getWindow()));
}

void GUI2D_MenuPanel::setKeys()
{
    resolveAccelerators();
    for (unsigned long i = 0; i < getMenus().size(); ++i) {
        const COM_Array<GUI_Action>& actions = getMenus()[i].getActions();
        for (unsigned long j = 0; j < actions.size(); ++j) {
            addKeys(actions[j]);
        }
    }
}

void GUI2D_MenuPanel::addKeys(GUI_Action& action)
{
    QList<QKeySequence> all = action.shortcuts();
    for (const Keys& keys : KEYS) {
        if (!action.instanceOf(keys.mAction)) {
            continue;
        }
        for (const QKeySequence& key : QKeySequence::listFromString(keys.mKeys)) {
            if (!all.contains(key)) {
                all.append(key);
            }
        }
    }
    action.setShortcuts(all);
}

void GUI2D_MenuPanel::updateStateMenus()
{
    const auto* const window = dynamic_cast<GUI2D_Window*>(getWindow());
    const GUI2D_DrawPanel* const panel = window == nullptr ? nullptr : window->getDrawPanel();
    const GUI_RootMenu* const edit = getEditMenu();
    if (edit == nullptr) {
        return;
    }
    if (GUI_Action* const redo = edit->getAction(0)) {
        redo->setEnabled(panel != nullptr && panel->isNextValid());
    }
    if (GUI_Action* const undo = edit->getAction(1)) {
        undo->setEnabled(panel != nullptr && panel->isBackValid());
    }
}
