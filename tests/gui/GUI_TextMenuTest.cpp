#include "gui/GUI_TextMenu.h"

#include "gui/GUI_ToolBar.h"
#include "TextForm.h"

#include <QSignalBlocker>

#include <array>
#include <set>

namespace {

using Labels = std::vector<std::string>;

Labels labels(const GUI_TextWindow& window, int menu)
{
    Labels found;
    const COM_Array<GUI_Action>& actions = window.getMenu()->getMenu(menu)->getActions();
    for (unsigned long i = 0; i < actions.size(); ++i) {
        found.push_back(actions[i].getLabel());
    }
    return found;
}

const Labels editLabels = {"Undo", "&Redo", "&Copy", "Cut", "Paste"};
const Labels formatLabels = {"&Underline", "&Italic",     "Bold",
                             "Left Align", "Right Align", "Center Align"};

} // namespace

TEST(GUI_TextMenu, AnEditableWindowWithOtherFilesHasAllEntries)
{
    const TextForm form;
    const GUI_MenuPanel& menu = *form->getMenu();
    ASSERT_EQ(menu.getMenus().size(), 3U);
    EXPECT_EQ(menu.getMenu(0)->getName(), "&File");
    EXPECT_EQ(menu.getMenu(1)->getName(), "&Edit");
    EXPECT_EQ(menu.getMenu(2)->getName(), "&Format");
    EXPECT_EQ(labels(*form, 0),
              (Labels{"&New Text", "&Load Text", "&Save", "Save &As", "&Print", "&Quit"}));
    EXPECT_EQ(labels(*form, 1), editLabels);
    EXPECT_EQ(labels(*form, 2), formatLabels);
}

TEST(GUI_TextMenu, WithoutOtherFilesTheTextIsSavedPrintedAndLeft)
{
    const TextForm form(true, false);
    EXPECT_EQ(labels(*form, 0), (Labels{"&Save", "&Print", "&Quit"}));
    EXPECT_EQ(labels(*form, 1), editLabels);
    EXPECT_EQ(labels(*form, 2), formatLabels);
}

TEST(GUI_TextMenu, AWindowForReadingHasNeitherNewNorLoadNorExit)
{
    const TextForm form(false, true);
    EXPECT_EQ(labels(*form, 0), (Labels{"&Save", "Save &As", "&Print"}));
    EXPECT_EQ(labels(*form, 1), editLabels);
    EXPECT_EQ(labels(*form, 2), formatLabels);
    const TextForm other(false, false);
    EXPECT_EQ(labels(*other, 0), (Labels{"&Save", "&Print"}));
}

TEST(GUI_TextMenu, TheToolBarHasAllButSaveAsAndExit)
{
    const TextForm form;
    const GUI_ToolBar* const bar = form->getMenu()->getToolBar("toolbar");
    ASSERT_NE(bar, nullptr);
    QStringList tools;
    for (const QAction* const action : bar->actions()) {
        tools.append(action->iconText());
    }
    EXPECT_EQ(tools, (QStringList{"New Text", "Load Text", "Save", "Print", "Undo", "Redo", "Copy",
                                  "Cut", "Paste", "Underline", "Italic", "Bold", "Left Align",
                                  "Right Align", "Center Align"}));
}

TEST(GUI_TextMenu, OnlyTheFormatsAreSwitches)
{
    const TextForm form;
    for (const int menu : {0, 1, 2}) {
        const COM_Array<GUI_Action>& actions = form->getMenu()->getMenu(menu)->getActions();
        for (unsigned long i = 0; i < actions.size(); ++i) {
            EXPECT_EQ(actions[i].isCheckable(), menu == 2) << actions[i].getLabel();
        }
    }
}

TEST(GUI_TextMenu, NoTwoActionsHaveOneAccelerator)
{
    const TextForm form;
    std::set<QKeySequence> taken;
    for (const int menu : {0, 1, 2}) {
        const COM_Array<GUI_Action>& actions = form->getMenu()->getMenu(menu)->getActions();
        for (unsigned long i = 0; i < actions.size(); ++i) {
            const QKeySequence keys = actions[i].shortcut();
            EXPECT_TRUE(keys.isEmpty() || taken.insert(keys).second) << actions[i].getLabel();
        }
    }
    EXPECT_EQ(taken.size(), 14U);
    EXPECT_EQ(form.action(1, 0).shortcut(), QKeySequence("Ctrl+Z"));
    EXPECT_EQ(form.action(1, 3).shortcut(), QKeySequence("Ctrl+X"));
    EXPECT_EQ(form.action(1, 4).shortcut(), QKeySequence("Ctrl+V"));
    EXPECT_EQ(form.action(2, 2).shortcut(), QKeySequence("Ctrl+B"));
}

TEST(GUI_TextMenu, TheThirdToFifthEntryOfAnEditableWindowAreEnabled)
{
    for (const bool isEditable : {true, false}) {
        const TextForm form(isEditable);
        const COM_Array<GUI_Action>& actions = form->getMenu()->getMenu(0)->getActions();
        for (unsigned long i = 0; i < actions.size(); ++i) {
            actions[i].setEnabled(false);
        }
        form->getMenu()->updateStateMenus();
        for (unsigned long i = 0; i < actions.size(); ++i) {
            EXPECT_EQ(actions[i].isEnabled(), isEditable && i >= 2 && i <= 4) << i;
        }
    }
}

TEST(GUI_TextMenu, OfSeveralAlignmentsTheFirstStays)
{
    const TextForm form;
    struct Row
    {
        std::array<bool, 3> mSet;
        std::vector<int> mLeft;
    };
    const Row rows[] = {{{true, true, true}, {3}},   {{true, false, true}, {3}},
                        {{false, true, true}, {4}},  {{false, false, true}, {5}},
                        {{false, false, false}, {}}, {{false, true, false}, {4}}};
    for (const Row& row : rows) {
        for (std::size_t i = 0; i < 3; ++i) {
            GUI_Action& action = form.action(2, static_cast<int>(i) + 3);
            const QSignalBlocker blocker(action);
            action.setChecked(row.mSet.at(i));
        }
        form->getMenu()->updateStateMenus();
        EXPECT_EQ(form.marks(), row.mLeft);
    }
}

TEST(GUI_TextMenu, AnotherLanguageMeanwhileDoesNotHideTheMenus)
{
    const TextForm form;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    form.action(0, 2).setEnabled(false);
    form->getMenu()->updateStateMenus();
    EXPECT_TRUE(form.action(0, 2).isEnabled());
    form.type("a");
    form.select(0, 1);
    form.choose(2, 2);
    EXPECT_EQ(form.text().fontWeight(), QFont::Bold);
}

TEST(GUI_TextMenu, InAnotherWindowNothingIsEditable)
{
    const TestFamily family;
    const COM_Scoped menu(GUI_TextMenu::New(family.mRoot, true));
    EXPECT_FALSE(menu->isEditable());
    EXPECT_EQ(menu->getMenu(0)->getActions().size(), 3U);
    menu->resetMenus();
    menu->updateStateMenus();
    EXPECT_FALSE(menu->isOn(GUI_TextMenu::BOLD));
}
