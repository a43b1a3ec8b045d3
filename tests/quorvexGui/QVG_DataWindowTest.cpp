#include "quorvexGui/QVG_DataWindow.h"

#include "quorvex/QV_ProblemCheck.h"
#include "quorvexGui/QVG_DataPanel.h"
#include "quorvexGui/QVG_DerivedDataBar.h"
#include "quorvexGui/QVG_NumericalDataBlochPanel.h"
#include "quorvexGui/QVG_NumericalDataMaxwellPanel.h"
#include "quorvexGui/QVG_NumericalDataMilieuPanel.h"
#include "quorvexGui/QVG_NumericalDataPanel.h"
#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"
#include "quorvexGui/QVG_PhysicalDataMaxwellPanel.h"
#include "quorvexGui/QVG_PhysicalDataMilieuPanel.h"
#include "quorvexGui/QVG_PhysicalDataPanel.h"
#include "quorvexGui/QVG_RootDataPanel.h"
#include "TestForms.h"

#include <QGridLayout>

#include <gtest/gtest.h>

namespace {

using Domain = QVG_PhysicalDataMilieuPanel;
using Light = QVG_PhysicalDataMaxwellPanel;
using Steps = QVG_NumericalDataMaxwellPanel;

/// The derived quantities, a line each.
std::string derived(const TestForms& forms)
{
    return forms.window().findChild<QVG_DerivedDataBar*>()->toolTip().toStdString();
}

bool shows(const TestForms& forms, const std::string& text)
{
    return derived(forms).find(text) != std::string::npos;
}

/// The forms of a page, from top to bottom.
template <typename Page, typename First, typename Second, typename Third>
void expectPage(const TestForms& forms, int number)
{
    forms.showPage(number);
    QCoreApplication::processEvents();
    auto& page = forms.form<Page>();
    ASSERT_EQ(page.getChildren().size(), 3UL);
    EXPECT_NE(dynamic_cast<First*>(page.getChild(0)), nullptr);
    EXPECT_NE(dynamic_cast<Second*>(page.getChild(1)), nullptr);
    EXPECT_NE(dynamic_cast<Third*>(page.getChild(2)), nullptr);
    int last = -1;
    for (int i = 0; i < 3; ++i) {
        const QWidget& form = *page.getChild(i)->qtWidget();
        EXPECT_TRUE(form.isVisible());
        EXPECT_GT(form.y(), last);
        last = form.y() + form.height();
    }
    EXPECT_LE(last, page.height());
    const auto* const grid = dynamic_cast<QGridLayout*>(static_cast<QWidget&>(page).layout());
    ASSERT_NE(grid, nullptr);
    EXPECT_EQ(grid->rowCount(), 3);
    EXPECT_EQ(grid->columnCount(), 1);
    EXPECT_EQ(grid->contentsMargins(), QMargins(11, 11, 11, 11));
    EXPECT_EQ(grid->spacing(), 6);
}

} // namespace

TEST(QVG_DataWindow, IsAChildOfTheMainWindowWithTwoPages)
{
    const TestForms forms;
    EXPECT_EQ(forms.window().getName(), "Options Window");
    EXPECT_FALSE(forms.window().isModal());
    EXPECT_EQ(forms.window().getParent(), &*const_cast<TestForms&>(forms).main());
    auto* const root = dynamic_cast<QVG_RootDataPanel*>(forms.window().getPanel());
    ASSERT_NE(root, nullptr);
    auto* const pages = dynamic_cast<QVG_DataPanel*>(root->getChild(QVG_RootDataPanel::DATA_PANEL));
    ASSERT_NE(pages, nullptr);
    ASSERT_EQ(pages->count(), 2);
    EXPECT_EQ(pages->tabText(0), "Physical Data");
    EXPECT_EQ(pages->tabText(1), "Numerical Data");
    EXPECT_EQ(pages->currentIndex(), 0);
}

TEST(QVG_DataWindow, FormsStandOneBelowTheOther)
{
    const TestForms forms;
    expectPage<QVG_PhysicalDataPanel, QVG_PhysicalDataMilieuPanel, QVG_PhysicalDataBlochPanel,
               QVG_PhysicalDataMaxwellPanel>(forms, 0);
    expectPage<QVG_NumericalDataPanel, QVG_NumericalDataMilieuPanel, QVG_NumericalDataBlochPanel,
               QVG_NumericalDataMaxwellPanel>(forms, 1);
}

TEST(QVG_DataWindow, TypesAreThoseOfItsClasses)
{
    const TestForms forms;
    EXPECT_TRUE(forms.window().instanceOf("QVG_DataWindow"));
    EXPECT_TRUE(forms.form<QVG_RootDataPanel>().instanceOf("QVG_RootDataPanel"));
    EXPECT_TRUE(forms.form<QVG_DataPanel>().instanceOf("QVG_DataPanel"));
    EXPECT_TRUE(forms.form<QVG_PhysicalDataPanel>().instanceOf("QVG_PhysicalDataPanel"));
    EXPECT_TRUE(forms.form<QVG_NumericalDataPanel>().instanceOf("QVG_NumericalDataPanel"));
    EXPECT_TRUE(forms.form<Domain>().instanceOf("QVG_PhysicalDataMilieuPanel"));
    EXPECT_TRUE(forms.form<QVG_PhysicalDataBlochPanel>().instanceOf("QVG_PhysicalDataBlochPanel"));
    EXPECT_TRUE(forms.form<Light>().instanceOf("QVG_PhysicalDataMaxwellPanel"));
    EXPECT_TRUE(
        forms.form<QVG_NumericalDataMilieuPanel>().instanceOf("QVG_NumericalDataMilieuPanel"));
    EXPECT_TRUE(
        forms.form<QVG_NumericalDataBlochPanel>().instanceOf("QVG_NumericalDataBlochPanel"));
    EXPECT_TRUE(forms.form<Steps>().instanceOf("QVG_NumericalDataMaxwellPanel"));
}

TEST(QVG_DataWindow, SpeaksTheLanguageOfTheDictionary)
{
    TestForms forms;
    GUI_Object::setLang(DICO_Dictionary::LANG_FR);
    forms.open();
    EXPECT_EQ(forms.window().getName(), "Param\xc3\xa8tres");
    EXPECT_EQ(forms.form<QVG_DataPanel>().tabText(0).toStdString(), "Donn\xc3\xa9"
                                                                    "es physiques");
    EXPECT_EQ(forms.shown<Domain>(Domain::COMPO_PB_CAP), "D\xc3\xa9tails");
    EXPECT_TRUE(shows(forms, "Fr\xc3\xa9quence de Rabi = "));
}

TEST(QVG_DataWindow, OpensWithinASmallScreen)
{
    const TestForms forms;
    EXPECT_LE(forms.window().minimumSizeHint().height(), 720);
    EXPECT_LE(forms.window().height(), 720);
    EXPECT_LE(forms.window().width(), 1024);
}

TEST(QVG_DataWindow, TakesItsDetailWindowsWithIt)
{
    const TestForms forms;
    forms.click<Domain>(Domain::COMPO_PB_CAP);
    const QPointer<QWidget> detail = &forms.detail();
    forms.window().close(false);
    QCoreApplication::processEvents();
    EXPECT_TRUE(detail.isNull());
}

TEST(QVG_DataWindow, ClosingTakesNothingBack)
{
    TestForms forms;
    forms.type<Domain>(Domain::COMPO_LE_IND, "1.5");
    forms.open();
    EXPECT_EQ(forms.shown<Domain>(Domain::COMPO_LE_IND), "1.500000e+00");
}

TEST(QVG_DataWindow, DerivedQuantitiesFollowTheData)
{
    const TestForms forms;
    EXPECT_TRUE(shows(forms, "Pulse area = 4.048 \xcf\x80\n")) << derived(forms);
    forms.type<Light>(Light::COMPO_LE_E_MAX, "4.2184e9");
    EXPECT_TRUE(shows(forms, "Pulse area = 2 \xcf\x80\n")) << derived(forms);
    forms.choose<Light>(Light::COMPO_CB_IF, 0);
    EXPECT_TRUE(shows(forms, "Pulse area = not finite\n")) << derived(forms);
    EXPECT_TRUE(shows(forms, "Nodes = 1333 (1067 active)\n")) << derived(forms);
    forms.type<Domain>(Domain::COMPO_LE_LONG, "5.001e-5");
    EXPECT_TRUE(shows(forms, "Nodes = 666 (534 active)\n")) << derived(forms);
    EXPECT_TRUE(shows(forms, "Run = 4e-13 s\n")) << derived(forms);
    forms.showPage(1);
    forms.type<Steps>(Steps::COMPO_LE_TIME, "1000");
    EXPECT_TRUE(shows(forms, "Run = 2e-13 s\n")) << derived(forms);
    forms.problem().setMaxTimeStepsNumber(4000);
    forms.window().updateValues();
    EXPECT_TRUE(shows(forms, "Run = 8.01e-13 s\n")) << derived(forms);
}
