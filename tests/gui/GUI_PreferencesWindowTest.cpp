#include "gui/GUI_PreferencesWindow.h"

#include "gui/GUI_PreferencesRootPanel.h"
#include "support/ProjectRoot.h"

#include <gtest/gtest.h>

TEST(GUI_PreferencesWindow, HasItsCaptionAndItsPanel)
{
    const ProjectRoot root;
    const COM_Scoped window(GUI_PreferencesWindow::New(*root, false));
    EXPECT_EQ(window->getName(), "Preferences Window");
    EXPECT_NE(dynamic_cast<GUI_PreferencesRootPanel*>(window->getPanel()), nullptr);
    EXPECT_EQ(window->getParent(), &*root);
}

TEST(GUI_PreferencesWindow, ItsCaptionIsTheDictionarysAndStays)
{
    const ProjectRoot root;
    GUI_Object::setLang(1);
    const COM_Scoped window(GUI_PreferencesWindow::New(*root, false));
    const std::string caption = GUI_Object::translate("Preferences Window");
    EXPECT_NE(caption, "Preferences Window");
    EXPECT_EQ(window->getName(), caption);
    GUI_Object::setLang(0);
    EXPECT_EQ(window->getName(), caption);
}
