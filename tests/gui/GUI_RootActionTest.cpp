#include "gui/GUI_RootAction.h"

#include "gui/GUI_ActionEditPreferences.h"
#include "gui/GUI_ActionExit.h"
#include "gui/GUI_ActionLoadFile.h"
#include "gui/GUI_ActionLoadProject.h"
#include "gui/GUI_ActionNewProject.h"
#include "gui/GUI_ActionSaveAsFile.h"
#include "gui/GUI_ActionSaveAsProject.h"
#include "gui/GUI_ActionSaveFile.h"
#include "gui/GUI_ActionSaveProject.h"
#include "support/DialogAnswers.h"
#include "support/ProjectRoot.h"
#include "support/TestDirectory.h"

#include <QImage>

#include <gtest/gtest.h>

#include <functional>

namespace {

struct Case
{
    const char* mClass;
    std::function<GUI_Action*()> mMake;
    std::string mLabel;
    std::string mIcon; ///< Empty for none.
};

template <typename Action>
Case caseOf(const char* name, const char* label, const char* icon)
{
    return {name, [] { return Action::New(); }, label, icon};
}

const Case CASES[] = {
    caseOf<GUI_ActionNewProject>("GUI_ActionNewProject", "&New Project", "filenew.png"),
    caseOf<GUI_ActionLoadProject>("GUI_ActionLoadProject", "&Load Project", "fileopen.png"),
    caseOf<GUI_ActionSaveAsProject>("GUI_ActionSaveAsProject", "Save &As Project", ""),
    caseOf<GUI_ActionSaveProject>("GUI_ActionSaveProject", "&Save Project", "filesave.png"),
    caseOf<GUI_ActionLoadFile>("GUI_ActionLoadFile", "&Load File", "fileopen.png"),
    caseOf<GUI_ActionSaveAsFile>("GUI_ActionSaveAsFile", "Save &As", ""),
    caseOf<GUI_ActionSaveFile>("GUI_ActionSaveFile", "&Save", "filesave.png"),
    caseOf<GUI_ActionExit>("GUI_ActionExit", "&Quit", ""),
    caseOf<GUI_ActionEditPreferences>("GUI_ActionEditPreferences", "Preferences", ""),
};

class RootAction : public testing::TestWithParam<Case>
{
protected:
    COM_Scoped<GUI_Action> make() const { return COM_Scoped<GUI_Action>(GetParam().mMake()); }
};

} // namespace

TEST_P(RootAction, HasItsLabelAndItsName)
{
    const ProjectRoot root;
    const auto action = make();
    EXPECT_EQ(action->getLabel(), GetParam().mLabel);
    EXPECT_TRUE(action->instanceOf(GetParam().mClass));
    EXPECT_TRUE(action->instanceOf("GUI_Action"));
}

TEST_P(RootAction, ItsLabelIsTranslated)
{
    const ProjectRoot root;
    GUI_Object::setLang(1);
    const auto action = make();
    EXPECT_EQ(action->getLabel(), GUI_Object::translate(GetParam().mLabel));
    EXPECT_NE(action->getLabel(), GetParam().mLabel);
}

TEST_P(RootAction, HasItsIcon)
{
    const TestDirectory directory;
    for (const char* const name : {"filenew.png", "fileopen.png", "filesave.png"}) {
        QImage image(4, 4, QImage::Format_RGB32);
        image.fill(name == GetParam().mIcon ? Qt::red : Qt::blue);
        ASSERT_TRUE(image.save(QString::fromStdString(directory.file(name))));
    }
    const std::string former = GUI_Action::ICONS_PATH;
    GUI_Action::ICONS_PATH = directory.slashed();
    const auto action = make();
    GUI_Action::ICONS_PATH = former;
    ASSERT_EQ(action->icon().isNull(), GetParam().mIcon.empty());
    if (!GetParam().mIcon.empty()) {
        EXPECT_EQ(action->icon().pixmap(4, 4).toImage().pixelColor(1, 1), QColor(Qt::red));
    }
}

TEST_P(RootAction, WithoutARootWindowNothingHappens)
{
    DialogAnswers noDialogs;
    {
        const auto action = make();
        action->trigger();
    }
    {
        const COM_Scoped menu(GUI_RootMenu::New("Menu"));
        const auto action = make();
        menu->addToActions(*action);
        action->trigger();
    }
    {
        const ProjectRoot root;
        const auto action = make();
        root.menu().addToActions(*action);
        root->resetMenu();
        action->trigger();
        EXPECT_TRUE(root->mCalls.empty());
        EXPECT_TRUE(root->isVisible());
        EXPECT_EQ(root.menuPanel().mUpdates, 0);
    }
    QCoreApplication::processEvents();
}

INSTANTIATE_TEST_SUITE_P(GUI_RootAction, RootAction, testing::ValuesIn(CASES),
                         [](const auto& tested) { return tested.param.mClass; });
