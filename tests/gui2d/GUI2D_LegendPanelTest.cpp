#include "gui2d/GUI2D_LegendPanel.h"

#include "gui/GUI_CheckBox.h"
#include "gui/GUI_ColorButton.h"
#include "gui/GUI_LineEdit.h"
#include "gui2d/GUI2D_CurveItemPanel.h"
#include "gui2d/GUI2D_CurvesSelectionPanel.h"
#include "gui2d/GUI2D_LegendWindow.h"
#include "gui2d/TestPlot.h"
#include "support/DialogAnswers.h"
#include "support/EnglishTexts.h"
#include "support/Printed.h"

#include <QColorDialog>
#include <QLabel>
#include <QListWidget>

#include <gtest/gtest.h>

namespace {

using Panel = GUI2D_LegendPanel;
using Item = GUI2D_CurveItemPanel;

class Legends
{
public:
    explicit Legends(int curves)
    {
        for (int i = 0; i < curves; ++i) {
            mPlot.add({0.0, 1.0}, {0.0, 1.0}, "name " + std::to_string(i));
        }
        mPlot->show();
        mWindow = &mPlot.open<GUI2D_LegendWindow>("&Legends");
    }
    const TestPlot& plot() const { return mPlot; }
    Panel& panel() const { return dynamic_cast<Panel&>(*mWindow->getPanel()); }
    GUI2D_CurvesSelectionPanel& selection() const
    {
        return dynamic_cast<GUI2D_CurvesSelectionPanel&>(*panel().getChild(0));
    }
    Item& item() const { return dynamic_cast<Item&>(*selection().getChild(1)); }
    GUI_CheckBox& box(unsigned char flag) const
    {
        return dynamic_cast<GUI_CheckBox&>(*panel().getComponent(flag));
    }
    template <typename Component>
    Component& field(unsigned char flag) const
    {
        return dynamic_cast<Component&>(*item().getComponent(flag));
    }
    QListWidget& list() const { return *mWindow->findChild<QListWidget*>(); }
    /// Of the mark in front of a curve.
    QString listColor(int row, QIcon::Mode mode = QIcon::Normal) const
    {
        return list().item(row)->icon().pixmap(8, 8, mode).toImage().pixelColor(4, 4).name();
    }
    void select(int row) const
    {
        QTest::mouseClick(list().viewport(), Qt::LeftButton, {},
                          list().visualItemRect(list().item(row)).center());
    }
    static void click(QAbstractButton& button)
    {
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }

private:
    TestPlot mPlot;
    GUI2D_LegendWindow* mWindow; ///< Held by the plotter window.
};

} // namespace

TEST(GUI2D_LegendPanel, SubtitlesAndLegendsExcludeEachOther)
{
    const Legends legends(1);
    GUI2D_Plotter& plotter = legends.plot().plotter();
    GUI_CheckBox& subTitles = legends.box(Panel::COMPO_VISIBLE_IN_SUBTITLES);
    GUI_CheckBox& legend = legends.box(Panel::COMPO_VISIBLE_IN_LEGEND);
    EXPECT_EQ(subTitles.text(), "Visible in sub titles");
    EXPECT_EQ(legend.text(), "Visible in legend");
    const auto state = [&] {
        EXPECT_EQ(subTitles.isChecked(), plotter.isSubTitlesPrinted());
        EXPECT_EQ(legend.isChecked(), plotter.isLegendsPrinted());
        return std::string(plotter.isSubTitlesPrinted() ? "subtitles" : "")
               + (plotter.isLegendsPrinted() ? "legends" : "");
    };
    EXPECT_EQ(state(), "legends");
    Legends::click(subTitles);
    EXPECT_EQ(state(), "subtitles");
    Legends::click(legend);
    EXPECT_EQ(state(), "legends");
    Legends::click(legend);
    EXPECT_EQ(state(), "");
    Legends::click(subTitles);
    EXPECT_EQ(state(), "subtitles");
    Legends::click(subTitles);
    EXPECT_EQ(state(), "");
}

TEST(GUI2D_LegendPanel, TheEastMarginStaysWhenTheLegendsGo)
{
    const Legends legends(1);
    settle();
    const unsigned long width = legends.plot().plotter().getEastWidth();
    EXPECT_GT(width, 10U);
    Legends::click(legends.box(Panel::COMPO_VISIBLE_IN_SUBTITLES));
    settle();
    EXPECT_EQ(legends.plot().plotter().getEastWidth(), width);
}

TEST(GUI2D_LegendPanel, EachChangeRepaintsThePlot)
{
    const Legends legends(1);
    legends.select(0);
    Repaints repaints(legends.plot().plotter());
    EXPECT_EQ(repaints.take(), 0);
    Legends::click(legends.box(Panel::COMPO_VISIBLE_IN_LEGEND));
    EXPECT_GT(repaints.take(), 0);
    Legends::click(legends.box(Panel::COMPO_VISIBLE_IN_SUBTITLES));
    EXPECT_GT(repaints.take(), 0);
    Legends::click(legends.field<GUI_CheckBox>(Item::COMPO_VISIBLE));
    EXPECT_GT(repaints.take(), 0);
}

TEST(GUI2D_LegendPanel, ComponentsAreNumberedInTheirOrder)
{
    EXPECT_EQ(Panel::COMPO_VISIBLE_IN_SUBTITLES, 0);
    EXPECT_EQ(Panel::COMPO_VISIBLE_IN_LEGEND, 1);
    EXPECT_EQ(Panel::COMPO_XLOG, 2);
    EXPECT_EQ(Panel::COMPO_YLOG, 3);
}

TEST(GUI2D_LegendPanel, NumbersOfCurvesAreAsWideAsTheirCount)
{
    const Legends few(2);
    EXPECT_EQ(few.list().item(0)->text(), "Curve 1");
    EXPECT_EQ(few.list().item(1)->text(), "Curve 2");
    const Legends many(10);
    ASSERT_EQ(many.list().count(), 10);
    EXPECT_EQ(many.list().item(0)->text(), "Curve 01");
    EXPECT_EQ(many.list().item(9)->text(), "Curve 10");
    EXPECT_EQ(many.selection().title(), "Curves");
    EXPECT_EQ(many.item().title(), "Curve");
}

TEST(GUI2D_CurvesSelectionPanel, TellsTheCurvesApartByColorAndToolTip)
{
    const Legends legends(3);
    const COM_Scoped green(COM_Color::New(0, 128, 0));
    legends.plot().curve(0).setColor(*green);
    legends.plot().curve(1).resetColor();
    legends.plot().curve(1).setName("other");
    EXPECT_EQ(legends.listColor(0), "#ff0000");
    legends.panel().updateValues();
    EXPECT_EQ(legends.listColor(0), "#008000");
    EXPECT_EQ(legends.listColor(1), "#000000");
    EXPECT_EQ(legends.listColor(2), "#ff0000");
    legends.select(0);
    EXPECT_EQ(legends.listColor(0, QIcon::Selected), "#008000");
    EXPECT_EQ(legends.list().item(0)->toolTip(), "name 0");
    EXPECT_EQ(legends.list().item(1)->toolTip(), "other");
    EXPECT_EQ(legends.list().item(2)->toolTip(), "name 2");
}

TEST(GUI2D_CurvesSelectionPanel, ShowsWhatTheEditorChanges)
{
    const Legends legends(2);
    legends.select(1);
    auto& name = legends.field<GUI_LineEdit>(Item::COMPO_NAME);
    name.setValue("other");
    legends.item().componentClicked(name);
    auto& color = legends.field<GUI_ColorButton>(Item::COMPO_COLOR);
    color.setValue("#102030");
    legends.item().componentClicked(color);
    EXPECT_EQ(legends.list().item(1)->toolTip(), "other");
    EXPECT_EQ(legends.listColor(1), "#102030");
    EXPECT_EQ(legends.list().item(0)->toolTip(), "name 0");
}

TEST(GUI2D_LegendPanel, CurvesCanBeNeitherAddedNorDeleted)
{
    const Legends legends(1);
    for (const QPushButton* const button : legends.selection().findChildren<QPushButton*>()) {
        EXPECT_NE(dynamic_cast<const GUI_ColorButton*>(button), nullptr)
            << button->text().toStdString();
    }
}

TEST(GUI2D_LegendPanel, OtherCurvesAreShownAfterAnUpdate)
{
    const Legends legends(1);
    legends.panel().updateValues();
    legends.plot().add({0.0}, {0.0});
    legends.panel().updateValues();
    settle();
    EXPECT_EQ(legends.list().count(), 2);
    EXPECT_EQ(legends.panel().getChildren().size(), 1U);
}

TEST(GUI2D_LegendPanel, OtherFlags)
{
    const Legends legends(1);
    const COM_Scoped box(GUI_CheckBox::New(legends.panel(), Panel::COMPO_XLOG));
    EXPECT_EQ(printedBy([&] { legends.panel().componentClicked(*box); }), "");
    box->setFlagId(Panel::COMPO_YLOG);
    EXPECT_EQ(printedBy([&] { legends.panel().componentClicked(*box); }), "");
    box->setFlagId(77);
    EXPECT_EQ(printedBy([&] { legends.panel().componentClicked(*box); }), "action unknown !77\n");
    EXPECT_EQ(printedBy([&] { legends.item().componentClicked(*box); }), "action unknown !77\n");
}

TEST(GUI2D_CurveItemPanel, ShowsTheCurveThatIsSelected)
{
    const Legends legends(2);
    legends.plot().curve(0).setShown(false);
    const COM_Scoped color(COM_Color::New(0, 128, 255));
    legends.plot().curve(0).setColor(*color);
    legends.select(0);
    EXPECT_EQ(legends.field<GUI_LineEdit>(Item::COMPO_NAME).text(), "name 0");
    EXPECT_EQ(legends.field<GUI_ColorButton>(Item::COMPO_COLOR).getValue(), "#0080ff");
    EXPECT_FALSE(legends.field<GUI_CheckBox>(Item::COMPO_VISIBLE).isChecked());
    legends.select(1);
    EXPECT_EQ(legends.field<GUI_LineEdit>(Item::COMPO_NAME).text(), "name 1");
    EXPECT_EQ(legends.field<GUI_ColorButton>(Item::COMPO_COLOR).getValue(), "#ff0000");
    EXPECT_TRUE(legends.field<GUI_CheckBox>(Item::COMPO_VISIBLE).isChecked());
}

TEST(GUI2D_CurveItemPanel, WritesNameAndVisibility)
{
    const Legends legends(2);
    legends.select(1);
    auto& name = legends.field<GUI_LineEdit>(Item::COMPO_NAME);
    name.setFocus();
    name.selectAll();
    QTest::keyClicks(&name, "other");
    legends.select(0); // leaves the field
    EXPECT_EQ(legends.plot().curve(1).getName(), "other");
    EXPECT_EQ(legends.list().item(1)->text(), "Curve 2");
    EXPECT_EQ(legends.plot().curve(0).getName(), "name 0");
    Legends::click(legends.field<GUI_CheckBox>(Item::COMPO_VISIBLE));
    EXPECT_FALSE(legends.plot().curve(0).isShown());
    EXPECT_TRUE(legends.plot().curve(1).isShown());
}

TEST(GUI2D_CurveItemPanel, GivesTheCurveAColorOfItsOwn)
{
    const Legends legends(2);
    const COM_Scoped shared(COM_Color::New(1, 2, 3));
    legends.plot().curve(0).setColor(*shared);
    legends.plot().curve(1).setColor(*shared);
    legends.select(0);
    DialogAnswers answers;
    answers.add<QColorDialog>([](QColorDialog& dialog) {
        dialog.setCurrentColor(QColor(10, 20, 30));
        dialog.accept();
    });
    Legends::click(legends.field<GUI_ColorButton>(Item::COMPO_COLOR));
    EXPECT_EQ(legends.plot().curve(0).getColor()->toString(), "Color[10,20,30]");
    EXPECT_EQ(legends.plot().curve(1).getColor(), shared.get());
    EXPECT_EQ(shared->toString(), "Color[1,2,3]");
}

TEST(GUI2D_CurveItemPanel, AColorThatStaysIsNotWritten)
{
    const Legends legends(2);
    const COM_Scoped shared(COM_Color::New(1, 2, 3));
    legends.plot().curve(0).setColor(*shared);
    legends.plot().curve(1).resetColor();
    DialogAnswers answers;
    for (const int row : {0, 1}) {
        legends.select(row);
        answers.add<QColorDialog>([](QColorDialog& dialog) { dialog.reject(); });
        Legends::click(legends.field<GUI_ColorButton>(Item::COMPO_COLOR));
    }
    EXPECT_EQ(legends.plot().curve(0).getColor(), shared.get());
    EXPECT_EQ(legends.plot().curve(1).getColor(), nullptr);
}

TEST(GUI2D_CurveItemPanel, NamesItsFields)
{
    const Legends legends(1);
    QStringList labels;
    for (const QLabel* const label : legends.item().findChildren<QLabel*>()) {
        labels.append(label->text());
    }
    EXPECT_EQ(labels, (QStringList{"Name", "Color"}));
    EXPECT_EQ(legends.field<GUI_CheckBox>(Item::COMPO_VISIBLE).text(), "Visible");
    EXPECT_EQ(Item::COMPO_NAME, 0);
    EXPECT_EQ(Item::COMPO_COLOR, 1);
    EXPECT_EQ(Item::COMPO_VISIBLE, 2);
}

TEST(GUI2D_CurvesSelectionPanel, SpeaksTheLanguage)
{
    const EnglishTexts former;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    const COM_Scoped root(GUI_RootPanel::New());
    const COM_Scoped curves(COM_Array<GUI2D_Curve>::New());
    curves->add(*COM_Scoped(GUI2D_Curve::New()));
    const COM_Scoped panel(GUI2D_CurvesSelectionPanel::New(*root, *curves));
    auto& item = dynamic_cast<Item&>(*panel->getChild(1));
    EXPECT_EQ(panel->title(), "Courbes");
    EXPECT_EQ(panel->findChild<QListWidget*>()->item(0)->text(), "Courbe 1");
    EXPECT_EQ(item.title(), "Courbe");
    QStringList labels;
    for (const QLabel* const label : item.findChildren<QLabel*>()) {
        labels.append(label->text());
    }
    EXPECT_EQ(labels, (QStringList{"Nom", "Couleur"}));
    // Without a plotter a change is the curve's alone.
    auto& name = dynamic_cast<GUI_LineEdit&>(*item.getComponent(Item::COMPO_NAME));
    name.setValue("other");
    item.componentClicked(name);
    EXPECT_EQ((*curves)[0].getName(), "other");
}

TEST(GUI2D_CurveItemPanel, RepaintsThePlotterAfterEachChange)
{
    const Legends legends(1);
    GUI2D_Plotter& plotter = legends.plot().plotter();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(plotter.window()));
    Repaints repaints(plotter);
    EXPECT_EQ(repaints.take(), 0);
    auto& name = legends.field<GUI_LineEdit>(Item::COMPO_NAME);
    auto& color = legends.field<GUI_ColorButton>(Item::COMPO_COLOR);
    auto& visible = legends.field<GUI_CheckBox>(Item::COMPO_VISIBLE);
    for (GUI_ActionComponent* const component :
         std::initializer_list<GUI_ActionComponent*>{&name, &color, &visible}) {
        legends.item().componentClicked(*component);
        EXPECT_GT(repaints.take(), 0) << int(component->getFlagId());
    }
}

TEST(GUI2D_CurveItemPanel, ACurveWithoutColorIsShownBlack)
{
    const Legends legends(1);
    legends.plot().curve(0).resetColor();
    legends.item().updateValues();
    EXPECT_EQ(legends.field<GUI_ColorButton>(Item::COMPO_COLOR).getValue(), "#000000");
}
