#include "quorvexGui/QVG_MainMenu.h"

#include "common/COM_Scoped.h"
#include "gui/GUI_ActionEditPreferences.h"
#include "gui/GUI_ActionExit.h"
#include "gui/GUI_ActionLoadProject.h"
#include "gui/GUI_ActionNewProject.h"
#include "gui/GUI_ActionSaveAsProject.h"
#include "gui/GUI_ActionSaveProject.h"
#include "gui/GUI_File.h"
#include "gui/GUI_ParentWindow.h"
#include "gui/GUI_RootMenu.h"
#include "quorvexGui/QVG_ActionEditParameters.h"
#include "quorvexGui/QVG_ActionEditProject.h"
#include "quorvexGui/QVG_ActionHelp.h"
#include "quorvexGui/QVG_ActionRun.h"
#include "quorvexGui/QVG_ActionVisualize.h"

#include <vector>

QVG_MainMenu::QVG_MainMenu(GUI_ParentWindow& window)
    : GUI_MenuPanel(window)
{
    COM_TYPE(QVG_MainMenu);
    createProjectMenu();
    createEditMenu();
    createRunMenu();
    createVisualizeMenu();
    createHelpMenu();
    resolveAccelerators();
    QVG_MainMenu::updateStateMenus();
}

GUI_RootMenu& QVG_MainMenu::addMenu(Menu menu, const char* key)
{
    mNames[menu] = translate(key);
    const COM_Scoped root(GUI_RootMenu::New(*this, mNames[menu]));
    return *root;
}

void QVG_MainMenu::createProjectMenu()
{
    GUI_RootMenu& menu = addMenu(PROJECT, "&Project");
    addTool(menu, GUI_ActionNewProject::New());
    addTool(menu, GUI_ActionLoadProject::New());
    addTool(menu, GUI_ActionSaveProject::New());
    add(menu, GUI_ActionSaveAsProject::New());
    add(menu, GUI_ActionExit::New());
}

void QVG_MainMenu::createEditMenu()
{
    GUI_RootMenu& menu = addMenu(EDIT, "&Edit");
    const COM_Scoped parameters(QVG_ActionEditParameters::New());
    mParametersLabel = parameters->getLabel();
    menu.addToActions(*parameters);
    add(menu, QVG_ActionEditProject::New());
    add(menu, GUI_ActionEditPreferences::New());
}

void QVG_MainMenu::createRunMenu()
{
    addTool(addMenu(RUN, "&Run"), QVG_ActionRun::New());
}

void QVG_MainMenu::createVisualizeMenu()
{
    addTool(addMenu(VISUALIZE, "&Visualize"), QVG_ActionVisualize::New());
}

void QVG_MainMenu::createHelpMenu()
{
    GUI_RootMenu& menu = addMenu(HELP, "&Help");
    add(menu, QVG_ActionHelp::New(QVG_ActionHelp::MANUAL_TYPE));
    add(menu, QVG_ActionHelp::New(QVG_ActionHelp::ABOUT_TYPE));
}

GUI_Action* QVG_MainMenu::getParametersAction() const
{
    const GUI_RootMenu* const edit = getMenu(mNames[EDIT]);
    return edit == nullptr ? nullptr : edit->getAction(mParametersLabel);
}

void QVG_MainMenu::updateStateMenus()
{
    const COM_Scoped menus(COM_Array<GUI_ParentMenu>::New());
    getAllMenus(*menus);
    for (unsigned long i = 0; i < menus->size(); ++i) {
        const COM_Array<GUI_Action>& actions = (*menus)[i].getActions();
        for (unsigned long j = 0; j < actions.size(); ++j) {
            actions[j].setEnabled(false);
        }
    }
    enable(PROJECT, {0, 1, 4});
    enable(EDIT, {2});
    enable(HELP, {0, 1});
    if (!isProjectOpen()) {
        return;
    }
    enable(PROJECT, {2, 3});
    enable(EDIT, {0, 1, 2});
    enable(RUN, {0});
    if (hasResults()) {
        enable(VISUALIZE, {0});
    }
}

void QVG_MainMenu::enable(Menu menu, std::initializer_list<int> actions) const
{
    const GUI_RootMenu* const root = getMenu(mNames[menu]);
    if (root == nullptr) {
        return;
    }
    for (const int index : actions) {
        if (GUI_Action* const action = root->getAction(index)) {
            action->setEnabled(true);
        }
    }
}

bool QVG_MainMenu::isProjectOpen() const
{
    const GUI_ParentWindow* const window = getWindow();
    return window != nullptr && !window->getSavingPath().empty()
           && !window->getSavingFile().empty();
}

bool QVG_MainMenu::hasResults() const
{
    std::vector<std::string> files;
    GUI_File::getFiles(getWindow()->getSavingPath(), "*.res", files);
    return !files.empty();
}
