#include "gui/GUI_Label.h"

#include "support/TestPanel.h"

TEST(GUI_Label, ShowsItsTextAndTakesTheSizeOfIt)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped label(GUI_Label::New(*panel));
    label->setLabel("Longueur d'onde &maximale");

    EXPECT_EQ(label->getTypes(),
              (std::vector<std::string>{"COM_Object", "GUI_Object", "GUI_Component", "GUI_Label"}));
    EXPECT_EQ(label->parentWidget(), panel.get());
    EXPECT_EQ(label->text().toStdString(), "Longueur d'onde &maximale");
    EXPECT_EQ(label->toolTip().toStdString(), "Longueur d'onde maximale");
    EXPECT_EQ(label->size(), label->sizeHint());
    EXPECT_GT(label->width(), label->height());

    label->setTooltipText("a & b");
    EXPECT_EQ(label->toolTip().toStdString(), "a & b");
}

TEST(GUI_Label, DescribesItselfByIdentityAndText)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped label(GUI_Label::New(panel.get()));
    EXPECT_EQ(label->toString(), label->getIdentityString() + " ");
    label->setLabel("\xc3\xa9nergie");
    EXPECT_EQ(label->toString(), label->getIdentityString() + " \xc3\xa9nergie");
}

TEST(GUI_Label, TakesTheSharedFont)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped plain(GUI_Label::New(*panel));
    QFont font = plain->font();
    font.setPointSize(font.pointSize() + 5);
    GUI_Object::setFontName(GUI_Object::toTString(font.toString()));
    const COM_Scoped label(GUI_Label::New(*panel));
    GUI_Object::setFontName("");

    EXPECT_EQ(label->font().pointSize(), plain->font().pointSize() + 5);
}
