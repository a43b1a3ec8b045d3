#include "quorvexGui/QVG_PhysicalDataMilieuPanel.h"

#include "FieldCase.h"
#include "gui/GUI_Label.h"
#include "gui/GUI_SpinBox.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_VectorWindow.h"
#include "linearAlgebra/LA_RealVector.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Form = QVG_PhysicalDataMilieuPanel;
using Texts = std::vector<std::string>;

constexpr double inf = std::numeric_limits<double>::infinity();

double length(const TestForms& forms)
{
    return forms.milieu().getLength();
}

double index(const TestForms& forms)
{
    return forms.milieu().getIndice();
}

double start(const TestForms& forms)
{
    return forms.milieu().getStartingPosition();
}

double end(const TestForms& forms)
{
    return forms.milieu().getEndingPosition();
}

} // namespace

TEST(QVG_PhysicalDataMilieuPanel, ShowsTheDomain)
{
    const TestForms forms;
    EXPECT_EQ(forms.form<Form>().title(), "Milieu");
    EXPECT_EQ(labelsOf<Form>(forms), (Texts{"Domain Length", "m", "Milieu Index Property", "",
                                            "Milieu Begining Position (%)", "",
                                            "Milieu Ending Position (%)", "", "Captors", ""}));
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_LONG), "1.000000e-04");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_IND), "1.000000e+00");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_DEB), "1.000000e+01");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_FIN), "9.000000e+01");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_PB_CAP), "Details");
}

TEST(QVG_PhysicalDataMilieuPanel, FieldsWriteWhatIsTyped)
{
    const TestForms forms;
    expectFields<Form>(forms, {
                                  {Form::COMPO_LE_LONG, "2.5e-5", "2.500000e-05", 2.5e-5, length},
                                  {Form::COMPO_LE_LONG, "-1", "-1.000000e+00", -1.0, length},
                                  {Form::COMPO_LE_LONG, "1.5D-5", "1.500000e-05", 1.5e-5, length},
                                  {Form::COMPO_LE_LONG, " 3 um", "3.000000e+00", 3.0, length},
                                  {Form::COMPO_LE_LONG, "inf", "     inf", inf, length},
                                  {Form::COMPO_LE_LONG, "nonsense", "0.000000e+00", 0.0, length},
                                  {Form::COMPO_LE_LONG, "", "0.000000e+00", 0.0, length},
                                  {Form::COMPO_LE_IND, "1.5", "1.500000e+00", 1.5, index},
                                  {Form::COMPO_LE_IND, "-1.5", "0.000000e+00", 0.0, index},
                                  {Form::COMPO_LE_DEB, "12.5", "1.250000e+01", 12.5, start},
                                  {Form::COMPO_LE_DEB, "120", "1.000000e+02", 100.0, start},
                                  {Form::COMPO_LE_DEB, "-3", "0.000000e+00", 0.0, start},
                                  {Form::COMPO_LE_FIN, "120", "1.000000e+02", 100.0, end},
                                  {Form::COMPO_LE_FIN, "-120", "0.000000e+00", 0.0, end},
                                  {Form::COMPO_LE_FIN, "75", "7.500000e+01", 75.0, end},
                              });
}

TEST(QVG_PhysicalDataMilieuPanel, TheEndMayLieBeforeTheBeginning)
{
    const TestForms forms;
    forms.type<Form>(Form::COMPO_LE_DEB, "80");
    forms.type<Form>(Form::COMPO_LE_FIN, "20");
    EXPECT_EQ(start(forms), 80.0);
    EXPECT_EQ(end(forms), 20.0);
}

TEST(QVG_PhysicalDataMilieuPanel, CaptorsAreEditedInAWindowOfTheirOwn)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_CAP);
    ASSERT_EQ(forms.details(), Texts{"Captors Window"});
    auto& window = dynamic_cast<GUI_VectorWindow<double>&>(forms.detail());
    EXPECT_FALSE(window.isModal());
    EXPECT_TRUE(window.isVisible());
    ASSERT_EQ(window.getVectorPanel()->getVector(), forms.milieu().getCaptors());
    EXPECT_EQ(window.getVectorPanel()->getTable()->getColumnLabel(0), "Relative Position (%)");
    EXPECT_EQ(window.findChild<QLabel*>()->text(), "Captors Number");
    QTest::keyClick(window.findChild<GUI_SpinBox*>(), Qt::Key_Up);
    EXPECT_EQ(forms.milieu().getCaptors()->getDimension(), 4UL);
}

TEST(QVG_PhysicalDataMilieuPanel, ASecondClickRaisesTheOpenWindow)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_CAP);
    forms.detail().showMinimized();
    forms.click<Form>(Form::COMPO_PB_CAP);
    EXPECT_EQ(forms.details().size(), 1UL);
    EXPECT_FALSE(forms.detail().isMinimized());
    EXPECT_TRUE(forms.detail().isVisible());
}

TEST(QVG_PhysicalDataMilieuPanel, AClosedWindowOpensAgain)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_CAP);
    forms.detail().close(false);
    EXPECT_EQ(forms.details().size(), 0UL);
    forms.click<Form>(Form::COMPO_PB_CAP);
    EXPECT_EQ(forms.details().size(), 1UL);
    EXPECT_TRUE(forms.detail().isVisible());
}

TEST(QVG_PhysicalDataMilieuPanel, AMediumWithoutCaptorsGetsTheDefault)
{
    const TestForms forms;
    forms.milieu().resetCaptors();
    forms.click<Form>(Form::COMPO_PB_CAP);
    ASSERT_NE(forms.milieu().getCaptors(), nullptr);
    EXPECT_EQ(forms.milieu().getCaptors()->getDimension(), 3UL);
    EXPECT_EQ(forms.milieu().getCaptors()->getValue(1), 50.0);
    EXPECT_EQ(dynamic_cast<GUI_VectorWindow<double>&>(forms.detail()).getVectorPanel()->getVector(),
              forms.milieu().getCaptors());
}
