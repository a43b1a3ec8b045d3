#include "gui2d/GUI2D_OptionsPanel.h"

#include "gui/GUI_ColorButton.h"
#include "gui/GUI_LineEdit.h"
#include "gui/GUI_RadioButton.h"
#include "gui/GUI_SpinBox.h"
#include "gui2d/GUI2D_OptionsWindow.h"
#include "gui2d/TestPlot.h"
#include "support/DialogAnswers.h"
#include "support/Printed.h"

#include <QColorDialog>

#include <gtest/gtest.h>

#include <functional>

namespace {

using Panel = GUI2D_OptionsPanel;

class Options
{
public:
    Options()
    {
        mPlot.addAndShow();
        mWindow = &mPlot.open<GUI2D_OptionsWindow>("&Options");
    }
    const TestPlot& plot() const { return mPlot; }
    GUI2D_Plotter& plotter() const { return mPlot.plotter(); }
    Panel& panel() const { return dynamic_cast<Panel&>(*mWindow->getPanel()); }
    template <typename Component>
    Component& get(unsigned char flag) const
    {
        return dynamic_cast<Component&>(*panel().getComponent(flag));
    }
    std::string value(unsigned char flag) const
    {
        return get<GUI_ActionComponent>(flag).getValue();
    }
    void type(unsigned char flag, const char* text) const
    {
        auto& field = get<QLineEdit>(flag);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
        QTest::keyClick(&field, Qt::Key_Return);
    }
    void click(unsigned char flag) const
    {
        auto& button = get<QAbstractButton>(flag);
        QTest::mouseClick(&button, Qt::LeftButton, {}, QPoint(8, button.height() / 2));
    }

private:
    TestPlot mPlot;
    GUI2D_OptionsWindow* mWindow; ///< Held by the plotter window.
};

} // namespace

TEST(GUI2D_OptionsPanel, RowsStandInTheirOrder)
{
    const Options options;
    QStringList labels;
    for (const QLabel* const label : options.panel().findChildren<QLabel*>()) {
        labels.append(label->text());
    }
    EXPECT_EQ(labels, (QStringList{"Pan X",
                                   "Pan Y",
                                   "Number of Scale Digits",
                                   "Zoom Factor",
                                   "Title",
                                   "X Label",
                                   "Y Label",
                                   "Orthonormal Axes",
                                   "Axes Color",
                                   "Grid Color",
                                   "Background Color",
                                   "Border Color",
                                   "Border Line Color",
                                   "Scale Color",
                                   "Title Color",
                                   "X Label Color",
                                   "Y Label Color",
                                   "Print Scale",
                                   "Print Title",
                                   "Print X Label",
                                   "Print Y Label"}));
}

TEST(GUI2D_OptionsPanel, ShowsTheDrawPanel)
{
    const Options options;
    EXPECT_EQ(options.value(Panel::COMPO_SB_PANX), "10");
    EXPECT_EQ(options.value(Panel::COMPO_SB_PANY), "10");
    EXPECT_EQ(options.value(Panel::COMPO_SB_DIGIT), "6");
    EXPECT_EQ(options.value(Panel::COMPO_LE_ZOOM), "1.200000e+00");
    EXPECT_EQ(options.value(Panel::COMPO_LE_TITLE), "Title");
    EXPECT_EQ(options.value(Panel::COMPO_LE_XLABEL), "XLabel");
    EXPECT_EQ(options.value(Panel::COMPO_LE_YLABEL), "YLabel");
    EXPECT_EQ(options.value(Panel::COMPO_RB_ORTHO), "0");
    EXPECT_EQ(options.value(Panel::COMPO_RB_SCALE), "1");
    EXPECT_EQ(options.value(Panel::COMPO_RB_TITLE), "1");
    EXPECT_EQ(options.value(Panel::COMPO_RB_XLABEL), "1");
    EXPECT_EQ(options.value(Panel::COMPO_RB_YLABEL), "1");
    EXPECT_EQ(options.value(Panel::COMPO_BUTTON_SCALE), "#0000ff");
    EXPECT_EQ(options.value(Panel::COMPO_BUTTON_TITLE), "#ff0000");
    EXPECT_EQ(options.value(Panel::COMPO_BUTTON_BACKGROUND), "#ffffff");
    EXPECT_EQ(options.value(Panel::COMPO_BUTTON_AXE), "#000000");
}

TEST(GUI2D_OptionsPanel, NumbersAreKeptInTheirRanges)
{
    const Options options;
    options.get<QSpinBox>(Panel::COMPO_SB_PANX).setValue(25);
    EXPECT_EQ(options.plotter().getPanX(), 25U);
    options.get<QSpinBox>(Panel::COMPO_SB_PANY).setValue(2000);
    EXPECT_EQ(options.plotter().getPanY(), 1000U);
    QTest::keyClick(&options.get<QSpinBox>(Panel::COMPO_SB_DIGIT), Qt::Key_Up);
    EXPECT_EQ(options.plotter().getNbCharsAfterComa(), 7U);
    options.get<QSpinBox>(Panel::COMPO_SB_DIGIT).setValue(25);
    EXPECT_EQ(options.plotter().getNbCharsAfterComa(), 24U);
    options.get<QSpinBox>(Panel::COMPO_SB_PANX).setValue(-1);
    EXPECT_EQ(options.plotter().getPanX(), 0U);
}

TEST(GUI2D_OptionsPanel, AZoomFactorBelowOneIsRefused)
{
    const Options options;
    for (const char* const refused : {"0.5", "-2", "abc", "nan", "inf", ""}) {
        options.type(Panel::COMPO_LE_ZOOM, refused);
        EXPECT_EQ(options.plotter().getZoomFactor(), 1.2) << refused;
        EXPECT_EQ(options.value(Panel::COMPO_LE_ZOOM), "1.200000e+00") << refused;
    }
    options.type(Panel::COMPO_LE_ZOOM, "1");
    EXPECT_EQ(options.plotter().getZoomFactor(), 1.0);
    options.type(Panel::COMPO_LE_ZOOM, "2.5");
    EXPECT_EQ(options.plotter().getZoomFactor(), 2.5);
    EXPECT_EQ(options.value(Panel::COMPO_LE_ZOOM), "2.500000e+00");
}

TEST(GUI2D_OptionsPanel, LeavingTheZoomFactorKeepsAllItsDigits)
{
    const Options options;
    const double factor = 4.0 / 3.0;
    options.plotter().setZoomFactor(factor);
    options.panel().updateValues();
    options.get<QLineEdit>(Panel::COMPO_LE_ZOOM).setFocus();
    options.get<QLineEdit>(Panel::COMPO_LE_TITLE).setFocus();
    EXPECT_EQ(options.plotter().getZoomFactor(), factor);
}

TEST(GUI2D_OptionsPanel, TextsAreWritten)
{
    const Options options;
    options.type(Panel::COMPO_LE_TITLE, "A title");
    options.type(Panel::COMPO_LE_XLABEL, "x (m)");
    options.type(Panel::COMPO_LE_YLABEL, "y (V/m)");
    EXPECT_EQ(options.plotter().getTitle(), "A title");
    EXPECT_EQ(options.plotter().getXLabel(), "x (m)");
    EXPECT_EQ(options.plotter().getYLabel(), "y (V/m)");
}

TEST(GUI2D_OptionsPanel, SwitchesAreIndependent)
{
    const Options options;
    options.click(Panel::COMPO_RB_ORTHO);
    EXPECT_TRUE(options.plotter().isOrthonormee());
    options.click(Panel::COMPO_RB_XLABEL);
    EXPECT_FALSE(options.plotter().isXLabelPrinted());
    options.click(Panel::COMPO_RB_YLABEL);
    EXPECT_FALSE(options.plotter().isYLabelPrinted());
    EXPECT_TRUE(options.plotter().isTitlePrinted());
    EXPECT_TRUE(options.plotter().isOrthonormee());
    options.click(Panel::COMPO_RB_ORTHO);
    EXPECT_FALSE(options.plotter().isOrthonormee());
    options.click(Panel::COMPO_RB_XLABEL);
    EXPECT_TRUE(options.plotter().isXLabelPrinted());
}

TEST(GUI2D_OptionsPanel, ScaleAloneResetsTheMargins)
{
    const Options options;
    GUI2D_Plotter& plotter = options.plotter();
    settle();
    const unsigned long north = plotter.getNorthWidth();
    EXPECT_GT(north, 0U);
    options.click(Panel::COMPO_RB_TITLE);
    EXPECT_FALSE(plotter.isTitlePrinted());
    EXPECT_EQ(plotter.getNorthWidth(), north);
    const unsigned long south = plotter.getSouthWidth();
    const unsigned long west = plotter.getWestWidth();
    options.click(Panel::COMPO_RB_XLABEL);
    options.click(Panel::COMPO_RB_YLABEL);
    settle();
    EXPECT_GT(south, 0U);
    EXPECT_EQ(plotter.getSouthWidth(), south);
    EXPECT_EQ(plotter.getWestWidth(), west);
    options.click(Panel::COMPO_RB_SCALE); // nothing is painted before the event loop runs
    EXPECT_FALSE(plotter.isScalePrinted());
    EXPECT_EQ(plotter.getNorthWidth(), 0U);
    EXPECT_EQ(plotter.getWestWidth(), 0U);
    EXPECT_EQ(plotter.getSouthWidth(), 0U);
    EXPECT_EQ(plotter.getEastWidth(), 10U);
    int width = 0;
    int height = 0;
    plotter.getGraphicsSize(width, height);
    EXPECT_EQ(width, plotter.width() - 10);
    EXPECT_EQ(height, plotter.height());
}

TEST(GUI2D_OptionsPanel, EachColorIsThatOfItsName)
{
    const Options options;
    GUI2D_Plotter& plotter = options.plotter();
    const std::vector<std::pair<unsigned char, std::function<QColor()>>> colors{
        {Panel::COMPO_BUTTON_SCALE, [&] { return plotter.getScaleColor(); }},
        {Panel::COMPO_BUTTON_XLABEL, [&] { return plotter.getXLabelColor(); }},
        {Panel::COMPO_BUTTON_YLABEL, [&] { return plotter.getYLabelColor(); }},
        {Panel::COMPO_BUTTON_TITLE, [&] { return plotter.getTitleColor(); }},
        {Panel::COMPO_BUTTON_BACKGROUND, [&] { return plotter.getBackgroundColor(); }},
        {Panel::COMPO_BUTTON_AXE, [&] { return plotter.getAxesColor(); }},
        {Panel::COMPO_BUTTON_GRID, [&] { return plotter.getGridColor(); }},
        {Panel::COMPO_BUTTON_BORDER, [&] { return plotter.getBorderColor(); }},
        {Panel::COMPO_BUTTON_BORDER_LINE, [&] { return plotter.getBorderLineColor(); }}};
    int shade = 0;
    for (const auto& [flag, colorOf] : colors) {
        const QColor chosen(20, 10 * ++shade, 30);
        DialogAnswers answers;
        answers.add<QColorDialog>([&chosen](QColorDialog& dialog) {
            dialog.setCurrentColor(chosen);
            dialog.accept();
        });
        options.click(flag);
        EXPECT_EQ(colorOf(), chosen) << int(flag);
        EXPECT_EQ(options.value(flag), chosen.name().toStdString()) << int(flag);
    }
    shade = 0;
    for (const auto& [flag, colorOf] : colors) {
        EXPECT_EQ(colorOf(), QColor(20, 10 * ++shade, 30)) << int(flag);
    }
}

TEST(GUI2D_OptionsPanel, EachChangeRepaintsThePlot)
{
    const Options options;
    Repaints repaints(options.plotter());
    EXPECT_EQ(repaints.take(), 0);
    options.type(Panel::COMPO_LE_TITLE, "A title");
    EXPECT_GT(repaints.take(), 0);
    options.type(Panel::COMPO_LE_XLABEL, "x");
    EXPECT_GT(repaints.take(), 0);
    options.get<QSpinBox>(Panel::COMPO_SB_DIGIT).setValue(2);
    EXPECT_GT(repaints.take(), 0);
    for (const unsigned char flag : {Panel::COMPO_RB_ORTHO, Panel::COMPO_RB_SCALE,
                                     Panel::COMPO_RB_TITLE, Panel::COMPO_RB_YLABEL}) {
        options.click(flag);
        EXPECT_GT(repaints.take(), 0) << int(flag);
    }
}

TEST(GUI2D_OptionsPanel, ComponentsAreNumberedInTheirOrder)
{
    unsigned char number = 0;
    for (const unsigned char flag : {Panel::COMPO_SB_PANX,       Panel::COMPO_SB_PANY,
                                     Panel::COMPO_SB_DIGIT,      Panel::COMPO_LE_ZOOM,
                                     Panel::COMPO_LE_TITLE,      Panel::COMPO_LE_XLABEL,
                                     Panel::COMPO_LE_YLABEL,     Panel::COMPO_BUTTON_SCALE,
                                     Panel::COMPO_BUTTON_XLABEL, Panel::COMPO_BUTTON_YLABEL,
                                     Panel::COMPO_BUTTON_TITLE,  Panel::COMPO_BUTTON_BACKGROUND,
                                     Panel::COMPO_BUTTON_AXE,    Panel::COMPO_BUTTON_GRID,
                                     Panel::COMPO_BUTTON_BORDER, Panel::COMPO_BUTTON_BORDER_LINE,
                                     Panel::COMPO_RB_ORTHO,      Panel::COMPO_RB_SCALE,
                                     Panel::COMPO_RB_TITLE,      Panel::COMPO_RB_XLABEL,
                                     Panel::COMPO_RB_YLABEL}) {
        EXPECT_EQ(flag, number++);
    }
}

TEST(GUI2D_OptionsPanel, TabGoesDownTheForm)
{
    const Options options;
    options.get<QWidget>(Panel::COMPO_LE_TITLE).setFocus();
    QTest::keyClick(&options.get<QWidget>(Panel::COMPO_LE_TITLE), Qt::Key_Tab);
    EXPECT_TRUE(options.get<QWidget>(Panel::COMPO_LE_XLABEL).hasFocus());
    QTest::keyClick(&options.get<QWidget>(Panel::COMPO_LE_XLABEL), Qt::Key_Tab);
    EXPECT_TRUE(options.get<QWidget>(Panel::COMPO_LE_YLABEL).hasFocus());
    QTest::keyClick(&options.get<QWidget>(Panel::COMPO_LE_YLABEL), Qt::Key_Tab);
    EXPECT_TRUE(options.get<QWidget>(Panel::COMPO_RB_ORTHO).hasFocus());
    QTest::keyClick(&options.get<QWidget>(Panel::COMPO_RB_ORTHO), Qt::Key_Tab);
    EXPECT_TRUE(options.get<QWidget>(Panel::COMPO_BUTTON_AXE).hasFocus());
}

TEST(GUI2D_OptionsPanel, AnUnknownComponentIsTold)
{
    const Options options;
    const COM_Scoped button(GUI_RadioButton::New(options.panel(), 21));
    EXPECT_EQ(printedBy([&] { options.panel().componentClicked(*button); }),
              "action unknown !21\n");
}
