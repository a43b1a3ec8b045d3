#include "quorvexGui/QVG_NumericalDataMilieuPanel.h"

#include "FieldCase.h"

#include <gtest/gtest.h>

namespace {

using Form = QVG_NumericalDataMilieuPanel;
using Texts = std::vector<std::string>;

double points(const TestForms& forms)
{
    return static_cast<double>(forms.milieu().getDiscretizationNumber());
}

} // namespace

TEST(QVG_NumericalDataMilieuPanel, ShowsTheMesh)
{
    const TestForms forms;
    EXPECT_EQ(forms.form<Form>().title(), "Milieu");
    EXPECT_EQ(labelsOf<Form>(forms), (Texts{"Number of Points by Wave Length", ""}));
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_SB_DISCR), "20");
}

TEST(QVG_NumericalDataMilieuPanel, PointsGoFromOneToAThousand)
{
    const TestForms forms;
    forms.showPage(1);
    expectFields<Form>(forms,
                       {
                           {Form::COMPO_SB_DISCR, "35", "35", 35.0, points},
                           {Form::COMPO_SB_DISCR, "1000", "1000", 1000.0, points},
                           {Form::COMPO_SB_DISCR, "5000", "500", 500.0, points}, // no fourth digit
                           {Form::COMPO_SB_DISCR, "1", "1", 1.0, points},
                           {Form::COMPO_SB_DISCR, "-7", "7", 7.0, points}, // no sign
                       });
    QWidget& box = forms.widget<Form>(Form::COMPO_SB_DISCR);
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(points(forms), 8.0);
    forms.type<Form>(Form::COMPO_SB_DISCR, "1");
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(points(forms), 1.0);
    forms.type<Form>(Form::COMPO_SB_DISCR, "1000");
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(points(forms), 1000.0);
}

TEST(QVG_NumericalDataMilieuPanel, DigitsCountWhenTheNumberIsComplete)
{
    const TestForms forms;
    forms.showPage(1);
    QWidget& box = forms.widget<Form>(Form::COMPO_SB_DISCR);
    box.setFocus();
    QTest::keyClick(&box, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&box, "12");
    EXPECT_EQ(points(forms), 20.0);
    QTest::keyClick(&box, Qt::Key_Tab);
    EXPECT_EQ(points(forms), 12.0);
}
