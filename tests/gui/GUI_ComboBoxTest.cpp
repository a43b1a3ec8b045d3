#include "gui/GUI_ComboBox.h"

#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_ToolBar.h"
#include "support/TestPanel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLineEdit>

namespace {

/// A menu panel that writes down the texts that the combo boxes of its tool bars report.
class PathMenu : public GUI_MenuPanel
{
    COM_CLASS(PathMenu)
public:
    void componentClicked(GUI_ActionComponent& component) override
    {
        mTexts.push_back(dynamic_cast<GUI_ComboBox&>(component).getSelectedItemValue());
    }

    std::vector<std::string> mTexts;

protected:
    explicit PathMenu(GUI_ParentWindow& window)
        : GUI_MenuPanel(window)
    {
        COM_TYPE(PathMenu);
    }
    ~PathMenu() override = default;
};

GUI_ComboBox& addLaws(const TestForm& form)
{
    auto& combo = form.add<GUI_ComboBox>(5);
    combo.addItems({"PAULI", "CASCADE", "EQUILIBRE"});
    return combo;
}

} // namespace

TEST(GUI_ComboBox, ReportsTheUsersChoiceTwice)
{
    const TestForm form;
    GUI_ComboBox& combo = addLaws(form);
    form.show();

    QTest::keyClick(&combo, Qt::Key_Down);

    EXPECT_EQ(form->mFlags, (std::vector<int>{5, 5}));
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "1"}));
    EXPECT_TRUE(combo.instanceOf("GUI_ComboBox"));
}

TEST(GUI_ComboBox, ReportsAChoiceByTheMouse)
{
    const TestForm form;
    GUI_ComboBox& combo = addLaws(form);
    form.show();
    combo.showPopup();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(combo.view()->window()));
    // A release that follows the opening too soon counts as part of it.
    QTest::qWait(QApplication::doubleClickInterval() + 50);
    const QRect place = combo.view()->visualRect(combo.model()->index(2, 0));

    QTest::mouseClick(combo.view()->viewport(), Qt::LeftButton, {}, place.center());

    EXPECT_EQ(form->mValues, (std::vector<std::string>{"2", "2"}));
    EXPECT_EQ(combo.getSelectedItemValue(), "EQUILIBRE");
}

TEST(GUI_ComboBox, DoesNotReportWhatCodeDoes)
{
    const TestForm form;
    GUI_ComboBox& combo = addLaws(form);
    combo.setValue("2");
    combo.clear();
    EXPECT_TRUE(form->mFlags.empty());
}

struct ComboValue
{
    const char* mText;
    const char* mValue;
};

class GUI_ComboBoxSetTo : public testing::TestWithParam<ComboValue>
{};

TEST_P(GUI_ComboBoxSetTo, ShowsAnItemThatItHas)
{
    const TestForm form;
    GUI_ComboBox& combo = addLaws(form);
    combo.setValue("1");
    combo.setValue(GetParam().mText);
    EXPECT_EQ(combo.getValue(), GetParam().mValue);
}

INSTANTIATE_TEST_SUITE_P(Texts, GUI_ComboBoxSetTo,
                         testing::Values(ComboValue{"0", "0"}, ComboValue{"2", "2"},
                                         ComboValue{"3", "2"}, ComboValue{"4294967296", "2"},
                                         ComboValue{"-1", "1"}, ComboValue{"-4294967296", "1"},
                                         ComboValue{"CASCADE", "0"}, ComboValue{"", "0"}));

TEST(GUI_ComboBox, HasNoCurrentItemWhileItIsEmpty)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped combo(GUI_ComboBox::New(panel.get()));
    EXPECT_EQ(combo->getValue(), "-1");
    EXPECT_EQ(combo->getSelectedItemValue(), "");
    combo->setValue("0");
    EXPECT_EQ(combo->getValue(), "-1");
    combo->addItem("first");
    EXPECT_EQ(combo->getValue(), "0");
}

TEST(GUI_ComboBox, HasALabelThatDoesNotShow)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped combo(GUI_ComboBox::New(*panel));
    combo->setLabel("Relaxation &Type");
    EXPECT_EQ(combo->objectName().toStdString(), "Relaxation &Type");
    EXPECT_EQ(combo->toolTip().toStdString(), "Relaxation Type");
    EXPECT_EQ(combo->currentText().toStdString(), "");
}

TEST(GUI_ComboBox, InAToolBarReportsToTheMenuPanel)
{
    const COM_Scoped window(GUI_RootWindow::New("window", false));
    const COM_Scoped menu(PathMenu::New(*window));
    const COM_Scoped bar(GUI_ToolBar::New(*window, "bar"));
    menu->addToToolBars(*bar);
    const COM_Scoped combo(GUI_ComboBox::New(false, *bar, static_cast<unsigned char>(3)));
    combo->addItems({"first", "second"});
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));

    EXPECT_EQ(bar->getComponent(3), combo.get());
    EXPECT_EQ(combo->getTool(), bar.get());
    EXPECT_TRUE(combo->isVisible());
    EXPECT_FALSE(combo->isEditable());
    QTest::keyClick(combo.get(), Qt::Key_Down);
    EXPECT_EQ(menu->mTexts, (std::vector<std::string>{"second", "second"}));
}

TEST(GUI_ComboBox, ReportsATextThatIsTyped)
{
    const COM_Scoped window(GUI_RootWindow::New("window", false));
    const COM_Scoped menu(PathMenu::New(*window));
    const COM_Scoped bar(GUI_ToolBar::New(*window, "bar"));
    menu->addToToolBars(*bar);
    const COM_Scoped combo(GUI_ComboBox::New(true, *bar, static_cast<unsigned char>(3)));
    combo->addItems({"first", "second"});
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    combo->lineEdit()->setFocus();

    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), "index.html");
    EXPECT_TRUE(menu->mTexts.empty());
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_FALSE(menu->mTexts.empty());
    for (const std::string& text : menu->mTexts) {
        EXPECT_EQ(text, "index.html");
    }
    EXPECT_EQ(combo->count(), 2);

    menu->mTexts.clear();
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo->lineEdit(), "second");
    QTest::keyClick(combo->lineEdit(), Qt::Key_Return);
    EXPECT_EQ(menu->mTexts, (std::vector<std::string>{"second", "second"}));
    EXPECT_EQ(combo->getValue(), "1");
}
