#include "quorvexGui/QVG_PolarizationsWindow.h"

#include "FieldCase.h"
#include "gui/GUI_Table.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"
#include "quorvexGui/QVG_PhysicalDataMaxwellPanel.h"
#include "quorvexGui/QVG_PolarizationPanel.h"
#include "quorvexGui/QVG_PolarizationsRootPanel.h"
#include "support/TestWindows.h"

#include <QSpinBox>
#include <QStatusBar>

#include <gtest/gtest.h>

namespace {

using Form = QVG_PhysicalDataBlochPanel;
using Texts = std::vector<std::string>;

QVG_PolarizationsRootPanel& rootOf(const TestForms& forms)
{
    return dynamic_cast<QVG_PolarizationsRootPanel&>(*forms.detail().getPanel());
}

QVG_PolarizationPanel& tableOf(const TestForms& forms, int index)
{
    return dynamic_cast<QVG_PolarizationPanel&>(*rootOf(forms).getChild(index));
}

Texts titlesOf(const TestForms& forms)
{
    Texts titles;
    for (unsigned long i = 0; i < rootOf(forms).getChildren().size(); ++i) {
        titles.push_back(tableOf(forms, static_cast<int>(i)).title().toStdString());
    }
    return titles;
}

std::string derivedTexts(const TestForms& forms)
{
    std::string texts;
    for (const QLabel* const label : forms.window().statusBar()->findChildren<QLabel*>()) {
        texts += label->text().toStdString() + "\n";
    }
    return texts;
}

} // namespace

TEST(QVG_PolarizationsWindow, OpensOnceOnTheMatrixOfTheDirectionX)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    ASSERT_EQ(forms.details(), Texts{"Initial Polarizations Window"});
    EXPECT_EQ(titlesOf(forms), Texts{"X Direction Polarization"});
    EXPECT_EQ(tableOf(forms, 0).getMatrix(), &(*QV_Bloch::getPolarizations())[0]);
    EXPECT_EQ(forms.detail().findChild<QSpinBox*>(), nullptr);
    EXPECT_FALSE(forms.detail().isModal());
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    EXPECT_EQ(forms.details().size(), 1UL);
}

TEST(QVG_PolarizationsWindow, TypesAreThoseOfItsClasses)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    EXPECT_EQ(forms.detail().getTypes().back(), "QVG_PolarizationsWindow");
    EXPECT_EQ(rootOf(forms).getTypes().back(), "QVG_PolarizationsRootPanel");
}

TEST(QVG_PolarizationsWindow, FlagsCountFromZeroAndLabelsByTheirNumber)
{
    EXPECT_EQ(QVG_PolarizationsRootPanel::COMPO_SB_ELN, 0);
    EXPECT_EQ(QVG_PolarizationsRootPanel::mLabelsLength,
              std::size(QVG_PolarizationsRootPanel::mLabels));
}

TEST(QVG_PolarizationsWindow, ThreeComponentsHaveATableEach)
{
    const TestForms forms;
    QV_Bloch::setPolarizationsSize(3); // more than the form offers
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    EXPECT_EQ(titlesOf(forms), (Texts{"X Direction Polarization", "Y Direction Polarization",
                                      "Z Direction Polarization"}));
    ASSERT_EQ(QV_Bloch::getPolarizations()->size(), 3UL);
    for (const int i : {0, 1, 2}) {
        EXPECT_EQ(tableOf(forms, i).getMatrix(), &(*QV_Bloch::getPolarizations())[i]);
    }
}

TEST(QVG_PolarizationsWindow, TablesStandSideBySide)
{
    const TestForms forms;
    QV_Bloch::setPolarizationsSize(2);
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    settle();
    EXPECT_EQ(tableOf(forms, 0).y(), tableOf(forms, 1).y());
    EXPECT_LE(tableOf(forms, 0).geometry().right(), tableOf(forms, 1).x());
}

TEST(QVG_PolarizationsWindow, TablesFollowTheDimensionOfTheField)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    forms.type<QVG_PhysicalDataMaxwellPanel>(QVG_PhysicalDataMaxwellPanel::COMPO_DIMENSION, "2");
    EXPECT_EQ(titlesOf(forms), (Texts{"X Direction Polarization", "Y Direction Polarization"}));
    settle();
    EXPECT_TRUE(tableOf(forms, 1).isVisible());
    forms.type<QVG_PhysicalDataMaxwellPanel>(QVG_PhysicalDataMaxwellPanel::COMPO_DIMENSION, "1");
    settle();
    EXPECT_EQ(titlesOf(forms), Texts{"X Direction Polarization"});
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
}

TEST(QVG_PolarizationsWindow, AnEditChangesTheMatrixAndTheLargestDipole)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    const std::string former = derivedTexts(forms);
    tableOf(forms, 0).getTable()->item(0, 1)->setText("4e-28");
    EXPECT_EQ((*QV_Bloch::getPolarizations())[0].getValue(0, 1), 4e-28);
    EXPECT_EQ((*QV_Bloch::getPolarizations())[0].getValue(1, 0), 1e-29);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 4e-28);
    EXPECT_NE(derivedTexts(forms), former) << "the Rabi frequency follows";
}

TEST(QVG_PolarizationsWindow, LoweringTheLargestDipoleLowersItsValue)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    GUI_Table& table = *tableOf(forms, 0).getTable();
    table.item(0, 1)->setText("2e-30");
    table.item(1, 0)->setText("3e-30");
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 3e-30);
}

TEST(QVG_PolarizationsWindow, AMatrixThatHasLeftTheAtomsDoesNotComeBack)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    QV_Bloch::resetShared();
    const LA_RealMatrix* const matrix = &(*QV_Bloch::getPolarizations())[0];
    tableOf(forms, 0).getTable()->item(0, 1)->setText("4e-28");
    EXPECT_EQ(&(*QV_Bloch::getPolarizations())[0], matrix);
    EXPECT_EQ(matrix->getValue(0, 1), 1e-29);
    EXPECT_EQ(QV_Bloch::getMaxPolarizationValue(), 1e-29);
}

TEST(QVG_PolarizationsWindow, AClickOnTheFormItselfDoesNothing)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    GUI_ActionComponent& table = *tableOf(forms, 0).getTable();
    EXPECT_EQ(printedBy([&] { rootOf(forms).componentClicked(table); }), "");
}

TEST(QVG_PolarizationsWindow, OpensWithTheWholeOfASmallMatrix)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_POLARIZATION);
    settle();
    const GUI_Table& table = *tableOf(forms, 0).getTable();
    EXPECT_GE(table.viewport()->width(), table.columnWidth(0) + table.columnWidth(1));
    EXPECT_GE(table.viewport()->height(), table.rowHeight(0) + table.rowHeight(1));
}
