#include "gui/GUI_Button.h"

#include "support/TestDirectory.h"
#include "support/TestPanel.h"

#include <QImage>

TEST(GUI_Button, ReportsAClickOnce)
{
    const TestForm form;
    auto& button = form.add<GUI_Button>(4);
    form.show();

    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);

    EXPECT_EQ(form->mFlags, (std::vector<int>{4, 4}));
    EXPECT_TRUE(button.instanceOf("GUI_Button"));
    EXPECT_TRUE(button.instanceOf("GUI_Component"));
}

TEST(GUI_Button, HasALabelWithoutItsMarkAndAShortcutFromIt)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped button(GUI_Button::New(*panel));
    EXPECT_EQ(button->getValue(), "");

    button->setValue("&Visualize");
    EXPECT_EQ(button->getValue(), "Visualize");
    EXPECT_EQ(button->text().toStdString(), "Visualize");
    EXPECT_EQ(button->shortcut(), QKeySequence("Ctrl+V"));

    button->setLabel("...");
    EXPECT_EQ(button->getValue(), "...");
    EXPECT_TRUE(button->shortcut().isEmpty());

    button->setLabel("\xc3\x89tat &\xc3\xa9nergie");
    EXPECT_EQ(button->getValue(), "\xc3\x89tat \xc3\xa9nergie");
    EXPECT_EQ(button->shortcut(), QKeySequence(QString::fromUtf8("Ctrl+\xc3\xa9")));

    button->setAccelText("Ctrl+Shift+V");
    EXPECT_EQ(button->shortcut(), QKeySequence("Ctrl+Shift+V"));
    button->setAccelText("");
    EXPECT_TRUE(button->shortcut().isEmpty());
}

TEST(GUI_Button, AnswersToItsShortcut)
{
    const TestForm form;
    auto& button = form.add<GUI_Button>(4);
    button.setLabel("&Add");
    form.show();

    // The button shows for a moment that it is pressed before it clicks.
    QTest::keyClick(&*form, Qt::Key_A, Qt::ControlModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !form->mFlags.empty(); }));
    EXPECT_EQ(form->mFlags, std::vector<int>{4});

    QTest::keyClick(&*form, Qt::Key_A, Qt::AltModifier);
    EXPECT_FALSE(button.isDown());
}

TEST(GUI_Button, DoesNotReportWhileDisabled)
{
    const TestForm form;
    auto& button = form.add<GUI_Button>();
    form.show();
    GUI_ActionComponent& component = button;

    component.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_TRUE(form->mFlags.empty());

    component.setEnabled(true);
    QTest::mouseClick(&button, Qt::LeftButton);
    EXPECT_EQ(form->mFlags.size(), 1U);
}

TEST(GUI_Button, ShowsAnIconIfThereIsOne)
{
    const TestDirectory directory;
    QImage image(8, 8, QImage::Format_RGB32);
    image.fill(Qt::red);
    ASSERT_TRUE(image.save(QString::fromStdString(directory.slashed() + "red.png")));
    const std::string former = GUI_Component::ICONS_PATH;
    GUI_Component::ICONS_PATH = directory.slashed();
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped button(GUI_Button::New(*panel));

    button->setIcon("none.png");
    EXPECT_TRUE(button->icon().isNull());
    button->setIcon("red.png");
    EXPECT_EQ(button->icon().pixmap(8, 8).toImage().pixelColor(4, 4), QColor(Qt::red));

    GUI_Component::ICONS_PATH = former;
}

TEST(GUI_Button, HasAToolTipAsGiven)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped button(GUI_Button::New(panel.get()));
    button->setTooltipText("a & b");
    EXPECT_EQ(button->toolTip().toStdString(), "a & b");
}

TEST(GUI_Button, HasASlotThatReports)
{
    const TestForm form;
    auto& button = form.add<GUI_Button>(2);
    EXPECT_TRUE(QMetaObject::invokeMethod(&button, "toDo"));
    EXPECT_EQ(form->mFlags, std::vector<int>{2});
}
