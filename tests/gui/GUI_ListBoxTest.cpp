#include "gui/GUI_ListBox.h"

#include "support/TestPanel.h"

#include <QApplication>
#include <QMouseEvent>

namespace {

GUI_ListBox& addPlanets(const TestForm& form)
{
    auto& list = form.add<GUI_ListBox>(2);
    list.addToItems("Mars");
    list.addToItems("Venus");
    list.addToItems("Jupiter");
    return list;
}

QPoint placeOf(const GUI_ListBox& list, int row)
{
    return list.visualItemRect(list.item(row)).center();
}

} // namespace

TEST(GUI_ListBox, ReportsAClickOnAnotherItemFourTimes)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.setValue("0");
    form.show();

    // Current, selection, pressed, clicked.
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, 1));

    EXPECT_EQ(form->mFlags, (std::vector<int>{2, 2, 2, 2}));
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "1", "1", "1"}));
    EXPECT_TRUE(list.instanceOf("GUI_ListBox"));
}

TEST(GUI_ListBox, ReportsAClickOnTheCurrentItemTwice)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.setValue("1");
    form.show();

    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, 1));

    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "1"}));
}

TEST(GUI_ListBox, ReportsADoubleClickTwiceMoreThanAClick)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.setValue("1");
    form.show();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, placeOf(list, 1));
    const std::size_t click = form->mFlags.size();
    form->forget();

    QMouseEvent second(QEvent::MouseButtonDblClick, placeOf(list, 1),
                       list.viewport()->mapToGlobal(placeOf(list, 1)), Qt::LeftButton,
                       Qt::LeftButton, {});
    QApplication::sendEvent(list.viewport(), &second);

    // Double click, selected.
    EXPECT_EQ(click, 2U);
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "1"}));
}

TEST(GUI_ListBox, ReportsReturnAndTheArrows)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.setValue("0");
    form.show();

    QTest::keyClick(&list, Qt::Key_Return);
    EXPECT_EQ(form->mValues, std::vector<std::string>{"0"});

    form->forget();
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(form->mValues, (std::vector<std::string>{"1", "1"}));
}

struct ListValue
{
    const char* mText;
    const char* mValue;
};

class GUI_ListBoxSetTo : public testing::TestWithParam<ListValue>
{};

TEST_P(GUI_ListBoxSetTo, MakesAnItemCurrentThatItHas)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.setValue("1");
    list.setValue(GetParam().mText);
    EXPECT_EQ(list.getValue(), GetParam().mValue);
    EXPECT_EQ(std::to_string(list.getCurrentIndex()), GetParam().mValue);
}

INSTANTIATE_TEST_SUITE_P(Texts, GUI_ListBoxSetTo,
                         testing::Values(ListValue{"0", "0"}, ListValue{"2", "2"},
                                         ListValue{"3", "2"}, ListValue{"4294967297", "2"},
                                         ListValue{"-1", "-1"}, ListValue{"-7", "-1"},
                                         ListValue{"-4294967297", "-1"}, ListValue{"x", "0"}));

TEST(GUI_ListBox, HasNoCurrentItemWhileItIsEmpty)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped list(GUI_ListBox::New(panel.get()));
    list->setValue("0");
    EXPECT_EQ(list->getValue(), "-1");
    EXPECT_EQ(list->getItemText(0), "");
}

TEST(GUI_ListBox, InsertsWhereItIsTold)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.addToItems("first", 0);
    list.addToItems("third", 2);
    list.addToItems("far", 99);
    list.addToItems("last", -1);

    std::vector<std::string> texts;
    for (int i = 0; i < list.count(); ++i) {
        texts.push_back(list.getItemText(i));
    }
    EXPECT_EQ(texts, (std::vector<std::string>{"first", "Mars", "third", "Venus", "Jupiter", "far",
                                               "last"}));
    EXPECT_EQ(list.getItemText(-1), "");
    EXPECT_EQ(list.getItemText(7), "");
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_ListBox, RemovesWithoutAReport)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.setValue("2");
    form->forget();

    list.removeFromItems(2);
    list.removeFromItems(2);
    list.removeFromItems(-1);

    EXPECT_EQ(list.count(), 2);
    EXPECT_EQ(list.getValue(), "1");
    EXPECT_TRUE(form->mFlags.empty());
}

TEST(GUI_ListBox, SortsInAscendingOrderWithoutAReport)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    list.sort();
    EXPECT_EQ(list.getItemText(0), "Jupiter");
    EXPECT_EQ(list.getItemText(1), "Mars");
    EXPECT_EQ(list.getItemText(2), "Venus");
    EXPECT_TRUE(form->mFlags.empty());

    // Later items keep the place that they are given.
    list.addToItems("Earth");
    EXPECT_EQ(list.getItemText(3), "Earth");
}

TEST(GUI_ListBox, IsWiderForLongNamesWithinALimit)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    const int narrow = list.sizeHint().width();
    list.addToItems("A planet whose name is long");
    const int wide = list.sizeHint().width();
    EXPECT_GT(wide, narrow);
    EXPECT_GT(wide, list.fontMetrics().horizontalAdvance("A planet whose name is long"));
    list.addToItems("A planet " + std::string(1000, 'x'));
    EXPECT_EQ(list.sizeHint().width(), 40 * list.fontMetrics().averageCharWidth());
}

TEST(GUI_ListBox, TellsItsLayoutOfALongNameThatComesAndGoes)
{
    const TestForm form;
    GUI_ListBox& list = addPlanets(form);
    const int narrow = form.layout().sizeHint().width();
    list.addToItems("A planet whose name is long");
    EXPECT_GT(form.layout().sizeHint().width(), narrow);
    list.removeFromItems(3);
    EXPECT_EQ(form.layout().sizeHint().width(), narrow);
}

TEST(GUI_ListBox, CanBeDisabled)
{
    const COM_Scoped panel(TestPanel::New());
    const COM_Scoped list(GUI_ListBox::New(*panel));
    static_cast<GUI_ActionComponent&>(*list).setEnabled(false);
    EXPECT_FALSE(list->isEnabled());
}
