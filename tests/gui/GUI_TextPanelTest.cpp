#include "gui/GUI_TextPanel.h"

#include "gui/GUI_RootWindow.h"
#include "gui/GUI_TextEdit.h"
#include "support/TestWindows.h"

#include <gtest/gtest.h>

TEST(GUI_TextPanel, HoldsTheTextAndLeavesItAlone)
{
    const TestFamily family;
    const COM_Scoped panel(GUI_TextPanel::New(family.mRoot));
    EXPECT_EQ(family.mRoot->getPanel(), panel.get());
    EXPECT_TRUE(panel->instanceOf("GUI_TextPanel"));
    GUI_TextEdit& text = *panel->getTextEdit();
    EXPECT_EQ(panel->getComponent(GUI_TextPanel::COMPO_TEXT), &text);
    text.setValue("one");
    QTest::keyClicks(&text, "x");
    panel->updateValues();
    EXPECT_EQ(text.getValue(), "xone");
    panel->componentClicked(text);
    EXPECT_EQ(text.getValue(), "xone");
    EXPECT_TRUE(text.isModified());
}

TEST(GUI_TextPanel, WithoutItsTextItHasNone)
{
    const COM_Scoped panel(GUI_TextPanel::New(static_cast<GUI_ParentWindow*>(nullptr)));
    EXPECT_NE(panel->getTextEdit(), nullptr);
    panel->resetMainLayout();
    EXPECT_EQ(panel->getTextEdit(), nullptr);
}
