#include "quorvexGui/QVG_NumericalDataBlochPanel.h"

#include "FieldCase.h"
#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Form = QVG_NumericalDataBlochPanel;
using Atoms = QVG_PhysicalDataBlochPanel;
using Texts = std::vector<std::string>;

double rate(const TestForms& /*forms*/)
{
    return QV_Bloch::getConvergenceRate();
}

} // namespace

TEST(QVG_NumericalDataBlochPanel, ShowsTheMethod)
{
    const TestForms forms;
    EXPECT_EQ(forms.form<Form>().title(), "Bloch");
    EXPECT_EQ(labelsOf<Form>(forms),
              (Texts{"Convergence Criterium", "", "Numerical Method", "", "Splitting Type", ""}));
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_CONV), "1.000000e-06");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_METHOD), "0");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_SPLIT), "0");
    EXPECT_EQ(itemsOf(forms.widget<Form>(Form::COMPO_CB_METHOD)),
              (Texts{"CN-Z", "CN-P", "CN-dtP", "RELAX", "SPLIT", "PC"}));
    EXPECT_EQ(itemsOf(forms.widget<Form>(Form::COMPO_CB_SPLIT)),
              (Texts{"hrn", "rnh", "hrnh", "rhhrn", "PC"}));
}

TEST(QVG_NumericalDataBlochPanel, TheConvergenceRateHasBounds)
{
    const TestForms forms;
    forms.showPage(1);
    expectFields<Form>(forms, {
                                  {Form::COMPO_LE_CONV, "1e-12", "1.000000e-12", 1e-12, rate},
                                  {Form::COMPO_LE_CONV, "0", "1.000000e-24", 1e-24, rate},
                                  {Form::COMPO_LE_CONV, "1", "1.000000e-01", 0.1, rate},
                                  {Form::COMPO_LE_CONV, "-1", "1.000000e-24", 1e-24, rate},
                                  {Form::COMPO_LE_CONV, "0.1", "1.000000e-01", 0.1, rate},
                                  {Form::COMPO_LE_CONV, "abc", "1.000000e-24", 1e-24, rate},
                              });
}

TEST(QVG_NumericalDataBlochPanel, TheMethodIsTheItemsNumber)
{
    const TestForms forms;
    forms.showPage(1);
    for (const int method : {5, 4, 3, 2, 1, 0}) {
        forms.choose<Form>(Form::COMPO_CB_METHOD, method);
        EXPECT_EQ(forms.problem().getMethod(), method);
        EXPECT_EQ(forms.isEnabled<Form>(Form::COMPO_CB_SPLIT), method == 4) << method;
    }
}

TEST(QVG_NumericalDataBlochPanel, TheSplittingIsTheItemsNumber)
{
    const TestForms forms;
    forms.showPage(1);
    forms.choose<Form>(Form::COMPO_CB_METHOD, 4);
    for (const int type : {4, 3, 2, 1, 0}) {
        forms.choose<Form>(Form::COMPO_CB_SPLIT, type);
        EXPECT_EQ(QV_Bloch::getSplitType(), type);
        EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_SPLIT), std::to_string(type));
    }
}

TEST(QVG_NumericalDataBlochPanel, ThePredictorCorrectorHasNoDephasing)
{
    const TestForms forms;
    EXPECT_TRUE(forms.isEnabled<Atoms>(Atoms::COMPO_LE_COL));
    forms.showPage(1);
    forms.choose<Form>(Form::COMPO_CB_METHOD, 5);
    EXPECT_FALSE(forms.isEnabled<Atoms>(Atoms::COMPO_LE_COL));
    forms.choose<Form>(Form::COMPO_CB_METHOD, 4);
    EXPECT_TRUE(forms.isEnabled<Atoms>(Atoms::COMPO_LE_COL));
    EXPECT_TRUE(forms.isEnabled<Atoms>(Atoms::COMPO_CB_RELAX));
}

TEST(QVG_NumericalDataBlochPanel, TwoComponentsLockTheSplitting)
{
    const TestForms forms;
    forms.problem().setDimension(2);
    forms.window().updateValues();
    EXPECT_EQ(forms.problem().getMethod(), QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_METHOD), "4");
    EXPECT_FALSE(forms.isEnabled<Form>(Form::COMPO_CB_METHOD));
    EXPECT_TRUE(forms.isEnabled<Form>(Form::COMPO_CB_SPLIT));
}

TEST(QVG_NumericalDataBlochPanel, TheLockStaysUntilTheFormIsMadeAnew)
{
    TestForms forms;
    forms.problem().setDimension(2);
    forms.window().updateValues();
    forms.problem().setDimension(1);
    forms.window().updateValues();
    EXPECT_FALSE(forms.isEnabled<Form>(Form::COMPO_CB_METHOD));
    EXPECT_EQ(forms.problem().getMethod(), QV_Problem::SPLIT_METHOD);
    forms.open();
    EXPECT_TRUE(forms.isEnabled<Form>(Form::COMPO_CB_METHOD));
}
