#include "gui/GUI_FramePanel.h"

#include "support/TestPanel.h"

TEST(GUI_FramePanel, IsAWidgetInsideItsParents)
{
    const COM_Scoped parent(TestPanel::New());
    const COM_Scoped panel(GUI_FramePanel::New(*parent));

    EXPECT_EQ(panel->parentWidget(), parent.get());
    EXPECT_EQ(panel->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_FramePanel"}));
    EXPECT_EQ(panel->title().toStdString(), "");
    EXPECT_EQ(panel->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    EXPECT_EQ(panel->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
}

TEST(GUI_FramePanel, NeedsNoParent)
{
    const COM_Scoped panel(GUI_FramePanel::New());
    const COM_Scoped other(GUI_FramePanel::New(static_cast<GUI_ParentPanel*>(nullptr)));
    EXPECT_EQ(panel->getParent(), nullptr);
    EXPECT_EQ(other->getParent(), nullptr);
    EXPECT_EQ(panel->parentWidget(), nullptr);
}

TEST(GUI_FramePanel, ShowsItsLabelAsGiven)
{
    const COM_Scoped panel(GUI_FramePanel::New());
    panel->setLabel("Bloch");
    EXPECT_EQ(panel->title().toStdString(), "Bloch");
}

TEST(GUI_FramePanel, TakesTheSharedFont)
{
    const COM_Scoped plain(GUI_FramePanel::New());
    QFont font = plain->font();
    font.setPointSize(font.pointSize() + 7);
    GUI_Object::setFontName(GUI_Object::toTString(font.toString()));
    const COM_Scoped panel(GUI_FramePanel::New());
    GUI_Object::setFontName("");

    EXPECT_EQ(panel->font().pointSize(), plain->font().pointSize() + 7);
}

TEST(GUI_FramePanel, MayStandInAnother)
{
    const COM_Scoped outer(GUI_FramePanel::New());
    const COM_Scoped inner(GUI_FramePanel::New(*outer));
    EXPECT_EQ(inner->getParent(), outer.get());
    EXPECT_EQ(inner->parentWidget(), outer.get());
    EXPECT_EQ(outer->getChild(0), inner.get());
}
