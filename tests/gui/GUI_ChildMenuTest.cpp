#include "gui/GUI_ChildMenu.h"

#include "support/TestWindows.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(GUI_ChildMenu, AMenuIsMadeWithOrWithoutName)
{
    const COM_Scoped bare(GUI_ChildMenu::New());
    const COM_Scoped named(GUI_ChildMenu::New("More"));
    EXPECT_EQ(bare->getTypes(), (std::vector<std::string>{"COM_Object", "GUI_Object",
                                                          "GUI_ParentMenu", "GUI_ChildMenu"}));
    EXPECT_EQ(bare->getName(), "");
    EXPECT_EQ(named->getName(), "More");
    EXPECT_EQ(named->getParent(), nullptr);
    EXPECT_EQ(named->getReferenceCount(), 1);
}

TEST(GUI_ChildMenu, ItsRootIsThatOfItsParentOrNone)
{
    const TestFamily family;
    const COM_Scoped outer(GUI_ChildMenu::New("outer"));
    const COM_Scoped inner(GUI_ChildMenu::New("inner"));
    outer->addToChildren(*inner);
    EXPECT_EQ(inner->getRoot(), nullptr);
    family.mMenu->addToChildren(*outer);
    EXPECT_EQ(inner->getRoot(), family.mMenu);
}

TEST(GUI_ChildMenu, TheLinkWithTheParentIsMadeFromEitherEnd)
{
    const TestFamily family;
    const COM_Scoped child(GUI_ChildMenu::New("child"));
    child->setParent(*family.mMore);
    EXPECT_EQ(family.mMore->getChild(0), child.get());
    EXPECT_EQ(child->getReferenceCount(), 2);
    child->setParent(*family.mMenu);
    EXPECT_EQ(family.mMore->getChild(0), nullptr);
    EXPECT_EQ(family.mMenu->getChild(1), child.get());
    EXPECT_EQ(child->getReferenceCount(), 2);
    child->resetParent();
    EXPECT_EQ(family.mMenu->getChild(1), nullptr);
    EXPECT_EQ(child->getParent(), nullptr);
    EXPECT_EQ(child->getReferenceCount(), 1);
    child->resetParent();
    EXPECT_EQ(child->getReferenceCount(), 1);
}
