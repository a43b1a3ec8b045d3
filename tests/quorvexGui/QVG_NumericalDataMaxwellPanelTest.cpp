#include "quorvexGui/QVG_NumericalDataMaxwellPanel.h"

#include "FieldCase.h"

#include <gtest/gtest.h>

namespace {

using Form = QVG_NumericalDataMaxwellPanel;
using Texts = std::vector<std::string>;

double steps(const TestForms& forms)
{
    return static_cast<double>(forms.problem().getMaxTimeStepsNumber());
}

double cfl(const TestForms& forms)
{
    return forms.wave().getCFL();
}

} // namespace

TEST(QVG_NumericalDataMaxwellPanel, ShowsTheSteps)
{
    const TestForms forms;
    EXPECT_EQ(forms.form<Form>().title(), "Maxwell");
    EXPECT_EQ(labelsOf<Form>(forms), (Texts{"Time Steps Number", "", "C.F.L.", ""}));
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_TIME), "2000");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_CFL), "8.000000e-01");
}

TEST(QVG_NumericalDataMaxwellPanel, FieldsWriteWhatIsTyped)
{
    const TestForms forms;
    forms.showPage(1);
    expectFields<Form>(forms,
                       {
                           {Form::COMPO_LE_TIME, "3000", "3000", 3000.0, steps},
                           {Form::COMPO_LE_TIME, "1000000000000", "1000000000000", 1e12, steps},
                           {Form::COMPO_LE_TIME, "0", "0", 0.0, steps},
                           {Form::COMPO_LE_TIME, "12.7", "12", 12.0, steps},
                           {Form::COMPO_LE_TIME, "-5", "0", 0.0, steps}, // and not 1.8e19 steps
                           {Form::COMPO_LE_TIME, "many", "0", 0.0, steps},
                           {Form::COMPO_LE_CFL, "0.5", "5.000000e-01", 0.5, cfl},
                           {Form::COMPO_LE_CFL, "1.5", "1.000000e+00", 1.0, cfl},
                           {Form::COMPO_LE_CFL, "-3", "0.000000e+00", 0.0, cfl},
                           {Form::COMPO_LE_CFL, "1", "1.000000e+00", 1.0, cfl},
                           {Form::COMPO_LE_CFL, "-", "0.000000e+00", 0.0, cfl},
                       });
}

TEST(QVG_NumericalDataMaxwellPanel, MoreStepsThanALongHoldsAreNotLost)
{
    const TestForms forms;
    forms.showPage(1);
    forms.problem().setMaxTimeStepsNumber(~0UL);
    forms.window().updateValues();
    QTest::keyClick(&forms.widget<Form>(Form::COMPO_LE_TIME), Qt::Key_Return);
    EXPECT_EQ(forms.problem().getMaxTimeStepsNumber(), ~0UL);
}
