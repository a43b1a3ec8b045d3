#include "gui/GUI_ActionEditPreferences.h"

#include "gui/GUI_PreferencesWindow.h"
#include "support/ProjectRoot.h"

#include <gtest/gtest.h>

TEST(GUI_ActionEditPreferences, OpensTheFormAndBringsTheMenusUpToDate)
{
    const ProjectRoot root;
    root.add<GUI_ActionEditPreferences>().trigger();
    const auto forms = root.children<GUI_PreferencesWindow>();
    ASSERT_EQ(forms.size(), 1U);
    EXPECT_TRUE(forms[0]->isVisible());
    EXPECT_GE(forms[0]->width(), 640);
    EXPECT_FALSE(forms[0]->isContainer());
    EXPECT_EQ(forms[0]->getReferenceCount(), 2); // the map of its parent, and its panel
    EXPECT_EQ(root.menuPanel().mUpdates, 1);
}

TEST(GUI_ActionEditPreferences, TheOpenFormComesToTheFront)
{
    const ProjectRoot root;
    auto& action = root.add<GUI_ActionEditPreferences>();
    action.trigger();
    GUI_PreferencesWindow* const form = root.children<GUI_PreferencesWindow>().at(0);
    form->showMinimized();
    action.trigger();
    EXPECT_EQ(root.children<GUI_PreferencesWindow>(), std::vector<GUI_PreferencesWindow*>{form});
    EXPECT_FALSE(form->isMinimized());
    form->close(false);
    action.trigger();
    EXPECT_EQ(root.children<GUI_PreferencesWindow>().size(), 1U);
}
