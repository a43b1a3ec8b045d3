#include "gui/GUI_ActionComponent.h"

#include "gui/GUI_Button.h"
#include "gui/GUI_CheckBox.h"
#include "gui/GUI_ColorButton.h"
#include "gui/GUI_ComboBox.h"
#include "gui/GUI_HBoxLayout.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_ListBox.h"
#include "gui/GUI_MenuPanel.h"
#include "gui/GUI_RadioButton.h"
#include "gui/GUI_RootWindow.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_ToolBar.h"
#include "support/TestPanel.h"

#include <QApplication>
#include <QPointer>

namespace {

/// A menu panel that writes down what the components of its tool bars report.
class ListeningMenu : public GUI_MenuPanel
{
    COM_CLASS(ListeningMenu)
public:
    void componentClicked(GUI_ActionComponent& component) override
    {
        mFlags.push_back(component.getFlagId());
        if (mAnswer) {
            mAnswer();
        }
    }

    std::vector<int> mFlags;
    std::function<void()> mAnswer;

protected:
    explicit ListeningMenu(GUI_ParentWindow& window)
        : GUI_MenuPanel(window)
    {
        COM_TYPE(ListeningMenu);
    }
    ~ListeningMenu() override = default;
};

} // namespace

TEST(GUI_ActionComponent, DoesNothingOutsideLayoutsAndToolBars)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped box(GUI_CheckBox::New(*panel));

    box->toDo();
    box->click();

    EXPECT_TRUE(panel->mFlags.empty());
    EXPECT_EQ(box->getReferenceCount(), 1);
}

TEST(GUI_ActionComponent, DoesNothingInALayoutWithoutRootOrPanel)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped row(GUI_HBoxLayout::New());
    const COM_Scoped box(GUI_CheckBox::New(*panel));
    row->addToComponents(*box);
    box->toDo();

    const COM_Scoped root(GUI_RootVBoxLayout::New());
    root->addToChildren(*row);
    box->toDo();

    EXPECT_TRUE(panel->mFlags.empty());
    EXPECT_EQ(root->getPanel(), nullptr);
}

TEST(GUI_ActionComponent, TellsThePanelBeforeTheToolBar)
{
    const COM_Scoped window(GUI_RootWindow::New("window", false));
    const COM_Scoped menu(ListeningMenu::New(*window));
    const COM_Scoped bar(GUI_ToolBar::New(*window, "bar"));
    menu->addToToolBars(*bar);
    const TestForm form;
    auto& button = form.add<GUI_Button>(8);
    button.setTool(*bar);
    std::vector<std::string> order;
    form->mAnswer = [&](GUI_ActionComponent&) { order.emplace_back("panel"); };
    menu->mAnswer = [&] { order.emplace_back("tool bar"); };

    button.click();

    EXPECT_EQ(order, (std::vector<std::string>{"panel", "tool bar"}));
    EXPECT_EQ(form->mFlags, std::vector<int>{8});
    EXPECT_EQ(menu->mFlags, std::vector<int>{8});
}

TEST(GUI_ActionComponent, OutlivesThePanelsAnswerThatReleasesIt)
{
    const TestForm form;
    auto& button = form.add<GUI_Button>();
    const QPointer<QWidget> alive(&button);
    form->mAnswer = [&](GUI_ActionComponent& sender) {
        form.layout().removeFromComponents(sender);
        EXPECT_FALSE(alive.isNull());
    };

    button.click();
    QApplication::processEvents();

    EXPECT_TRUE(alive.isNull());
    EXPECT_EQ(form.layout().count(), 0);
}

TEST(GUI_ActionComponent, OutlivesAnAnswerThatReleasesThePanel)
{
    TestPanel* const panel = TestPanel::New();
    QPointer<GUI_Button> alive;
    {
        const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
        const COM_Scoped button(GUI_Button::New(*panel));
        layout->addToComponents(*button);
        alive = button.get();
    }
    const QPointer<QWidget> panelAlive(panel);
    panel->mAnswer = [&](GUI_ActionComponent& sender) {
        panel->Delete();
        EXPECT_FALSE(panelAlive.isNull());
        EXPECT_EQ(sender.getLayout(), nullptr);
    };
    panel->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(panel));

    QTest::mouseClick(alive.data(), Qt::LeftButton);
    QApplication::processEvents();

    EXPECT_TRUE(panelAlive.isNull());
    EXPECT_TRUE(alive.isNull());
}

template <typename Component>
class GUI_ActionComponentOf : public testing::Test
{};

using ActionComponents =
    testing::Types<GUI_Button, GUI_CheckBox, GUI_ColorButton, GUI_ComboBox, GUI_LineEdit,
                   GUI_ListBox, GUI_RadioButton, GUI_SpinBox, GUI_Table>;
TYPED_TEST_SUITE(GUI_ActionComponentOf, ActionComponents);

TYPED_TEST(GUI_ActionComponentOf, TakesTheSharedFont)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped plain(TypeParam::New(*panel));
    QFont font = plain->font();
    font.setPointSize(font.pointSize() + 5);
    GUI_Object::setFontName(GUI_Object::toTString(font.toString()));
    const COM_Scoped component(TypeParam::New(*panel));
    GUI_Object::setFontName("");

    EXPECT_EQ(component->font().pointSize(), plain->font().pointSize() + 5);
}

TYPED_TEST(GUI_ActionComponentOf, HasTheTypeOfItsConcreteClass)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped component(TypeParam::New(*panel));
    const std::vector<std::string> types = component->getTypes();
    ASSERT_EQ(types.size(), component->instanceOf("GUI_ColorButton") ? 5U : 4U);
    EXPECT_EQ(types[1], "GUI_Object");
    EXPECT_EQ(types[2], "GUI_Component");
    EXPECT_EQ(component->getClassName(), std::to_string(types.back().size()) + types.back());
}

TYPED_TEST(GUI_ActionComponentOf, StandsInsideTheWidgetOfItsPanelAndInNoLayoutYet)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped layout(GUI_RootVBoxLayout::New(*panel));
    const COM_Scoped byReference(TypeParam::New(*panel));
    const COM_Scoped byPointer(TypeParam::New(panel.get(), static_cast<unsigned char>(4)));
    const COM_Scoped alone(TypeParam::New(static_cast<GUI_ParentPanel*>(nullptr)));
    EXPECT_EQ(byReference->parentWidget(), panel.get());
    EXPECT_EQ(byReference->getFlagId(), 0);
    EXPECT_EQ(byReference->getLayout(), nullptr);
    EXPECT_EQ(byPointer->parentWidget(), panel.get());
    EXPECT_EQ(byPointer->getFlagId(), 4);
    EXPECT_EQ(alone->parentWidget(), nullptr);
    EXPECT_EQ(layout->count(), 0);
}

TYPED_TEST(GUI_ActionComponentOf, IsEnabledAndDisabledByItsFlagAndHasAToolTipAsGiven)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped component(TypeParam::New(*panel));
    GUI_ActionComponent& base = *component;
    base.setEnabled(false);
    EXPECT_FALSE(component->isEnabled());
    base.setEnabled(true);
    EXPECT_TRUE(component->isEnabled());
    component->setTooltipText("a & b");
    EXPECT_EQ(component->toolTip(), "a & b");
}

TYPED_TEST(GUI_ActionComponentOf, HasASlotForItsSignals)
{
    EXPECT_GE(TypeParam::staticMetaObject.indexOfSlot("toDo()"), 0);
}
