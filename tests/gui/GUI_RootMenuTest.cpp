#include "gui/GUI_RootMenu.h"

#include "support/TestWindows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(GUI_RootMenu, AMenuIsMadeWithOrWithoutNameAndPanel)
{
    const TestFamily family;
    const COM_Scoped bare(GUI_RootMenu::New());
    const COM_Scoped named(GUI_RootMenu::New("&Edit"));
    const COM_Scoped placed(GUI_RootMenu::New(*family.mPanel, "&View"));
    EXPECT_EQ(bare->getTypes(), (std::vector<std::string>{"COM_Object", "GUI_Object",
                                                          "GUI_ParentMenu", "GUI_RootMenu"}));
    EXPECT_EQ(bare->getReferenceCount(), 1);
    EXPECT_EQ(bare->getPanel(), nullptr);
    EXPECT_EQ(named->getName(), "&Edit");
    EXPECT_EQ(named->getPanel(), nullptr);
    EXPECT_EQ(placed->getPanel(), family.mPanel);
    EXPECT_EQ(placed->getReferenceCount(), 2);
    EXPECT_EQ(family.mPanel->getMenu(1), placed.get());
}

TEST(GUI_RootMenu, ItIsItsOwnRoot)
{
    const COM_Scoped menu(GUI_RootMenu::New());
    EXPECT_EQ(menu->getRoot(), menu.get());
}

TEST(GUI_RootMenu, TheLinkWithThePanelIsMadeFromEitherEnd)
{
    const TestFamily family;
    const TestFamily other;
    const COM_Scoped menu(GUI_RootMenu::New("&Edit"));
    const long count = family.mPanel->getReferenceCount();
    menu->setPanel(*family.mPanel);
    EXPECT_EQ(family.mPanel->getMenu(1), menu.get());
    EXPECT_EQ(family.mPanel->getReferenceCount(), count + 1);
    menu->setPanel(*family.mPanel);
    EXPECT_EQ(family.mPanel->getReferenceCount(), count + 1);
    menu->setPanel(*other.mPanel);
    EXPECT_EQ(family.mPanel->getMenu(1), nullptr);
    EXPECT_EQ(family.mPanel->getReferenceCount(), count);
    EXPECT_EQ(other.mPanel->getMenu(1), menu.get());
    menu->resetPanel();
    EXPECT_EQ(menu->getPanel(), nullptr);
    EXPECT_EQ(other.mPanel->getMenu(1), nullptr);
    EXPECT_EQ(menu->getReferenceCount(), 1);
    menu->resetPanel();
    EXPECT_EQ(menu->getReferenceCount(), 1);
}
