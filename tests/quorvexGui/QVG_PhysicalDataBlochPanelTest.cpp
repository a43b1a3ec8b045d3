#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"

#include "FieldCase.h"
#include "gui/GUI_MatrixWindow.h"
#include "gui/GUI_Table.h"
#include "gui/GUI_VectorWindow.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvexGui/QVG_NumericalDataBlochPanel.h"
#include "support/TestWindows.h"

#include <QSpinBox>

#include <gtest/gtest.h>

#include <limits>

namespace {

using Form = QVG_PhysicalDataBlochPanel;
using Texts = std::vector<std::string>;
using Rates = GUI_MatrixWindow<double>;

constexpr double inf = std::numeric_limits<double>::infinity();

double atoms(const TestForms& /*forms*/)
{
    return QV_Bloch::getAtomsNumber();
}

double temperature(const TestForms& /*forms*/)
{
    return QV_Bloch::getTemperature();
}

double dephasing(const TestForms& /*forms*/)
{
    return QV_Bloch::getTransversalRelaxation();
}

/// As the forms do it when the user chooses them.
void setMethod(const TestForms& forms, unsigned char method)
{
    forms.problem().setMethod(method);
    forms.window().updateValues();
}

void setRelaxationType(const TestForms& forms, unsigned char type)
{
    QV_Bloch::setRelaxationType(type);
    forms.window().updateValues();
}

/// Types a number into a cell of the rates.
void typeRate(const TestForms& forms, int row, int column, const char* text)
{
    GUI_Table& table = *dynamic_cast<Rates&>(forms.detail()).getMatrixPanel()->getTable();
    table.setCurrentCell(row, column);
    table.editItem(table.item(row, column));
    auto* const editor = table.findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr);
    editor->selectAll();
    QTest::keyClicks(editor, text);
    QTest::keyClick(editor, Qt::Key_Return);
    settle(); // the editor goes
}

} // namespace

TEST(QVG_PhysicalDataBlochPanel, ShowsTheAtoms)
{
    const TestForms forms;
    EXPECT_EQ(forms.form<Form>().title(), "Bloch");
    EXPECT_EQ(labelsOf<Form>(forms),
              (Texts{"Atoms Number", "1/m\xc2\xb3", "Temperature", "K", "Energy Levels Frequencies",
                     "", "Density Matrix", "", "Polarization Matrix", "", "Relaxation Type", "",
                     "Transversal Relaxation", "1/s", "Longitudinal Relaxation Matrix", "",
                     "Equilibrium Density", ""}));
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_N_ATOMS), "1.000000e+24");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_TEMP), "3.000000e+02");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_RELAX), "0");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_COL), "1.000000e+12");
    EXPECT_EQ(itemsOf(forms.widget<Form>(Form::COMPO_CB_RELAX)),
              (Texts{"PAULI", "CASCADE", "EQUILIBRE"}));
    for (const unsigned char flag :
         {Form::COMPO_PB_FREQ, Form::COMPO_PB_DENSITY, Form::COMPO_PB_POLARIZATION,
          Form::COMPO_PB_DIAG, Form::COMPO_PB_EQU}) {
        EXPECT_EQ(forms.shown<Form>(flag), "Details");
    }
}

TEST(QVG_PhysicalDataBlochPanel, FieldsWriteWhatIsTyped)
{
    const TestForms forms;
    expectFields<Form>(forms, {
                                  {Form::COMPO_LE_N_ATOMS, "3e20", "3.000000e+20", 3e20, atoms},
                                  {Form::COMPO_LE_N_ATOMS, "-1", "0.000000e+00", 0.0, atoms},
                                  {Form::COMPO_LE_N_ATOMS, "x", "0.000000e+00", 0.0, atoms},
                                  {Form::COMPO_LE_TEMP, "77", "7.700000e+01", 77.0, temperature},
                                  {Form::COMPO_LE_COL, "1e9", "1.000000e+09", 1e9, dephasing},
                                  {Form::COMPO_LE_COL, "-1e9", "0.000000e+00", 0.0, dephasing},
                              });
    EXPECT_EQ(QV_Bloch::getBeta(), 7.63649529326575e-12 / 77.0);
}

TEST(QVG_PhysicalDataBlochPanel, ANegativeTemperatureIsZeroWithAnInfiniteBeta)
{
    const TestForms forms;
    forms.type<Form>(Form::COMPO_LE_TEMP, "-20");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_TEMP), "0.000000e+00");
    EXPECT_EQ(QV_Bloch::getTemperature(), 0.0);
    EXPECT_EQ(QV_Bloch::getBeta(), inf);
}

TEST(QVG_PhysicalDataBlochPanel, TheRelaxationIsTheItemsNumber)
{
    const TestForms forms;
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    for (const int type : {2, 1, 0}) {
        forms.choose<Form>(Form::COMPO_CB_RELAX, type);
        EXPECT_EQ(QV_Bloch::getRelaxationType(), type);
        EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_RELAX), std::to_string(type));
    }
}

TEST(QVG_PhysicalDataBlochPanel, FieldsThatHaveNoEffectAreDisabled)
{
    const TestForms forms;
    for (unsigned char method = 0; method < QV_Problem::mMethodsNameLength; ++method) {
        for (unsigned char type = 0; type < 3; ++type) {
            QV_Bloch::setRelaxationType(type);
            setMethod(forms, method);
            const std::string name = std::to_string(method) + ", " + std::to_string(type);
            const bool isSplitting = method == 4;
            EXPECT_EQ(forms.isEnabled<Form>(Form::COMPO_CB_RELAX), isSplitting) << name;
            EXPECT_EQ(forms.isEnabled<Form>(Form::COMPO_LE_COL), method != 5) << name;
            EXPECT_TRUE(forms.isEnabled<Form>(Form::COMPO_PB_DIAG)) << name;
            EXPECT_EQ(forms.isEnabled<Form>(Form::COMPO_PB_EQU), isSplitting && type != 0) << name;
        }
    }
}

TEST(QVG_PhysicalDataBlochPanel, DisablingTheFieldThatIsBeingTypedInTakesNothingFromIt)
{
    const TestForms forms;
    QWidget& field = forms.widget<Form>(Form::COMPO_LE_COL);
    field.setFocus();
    QTest::keyClicks(&field, "7");
    setMethod(forms, QV_Problem::PRED_CORR_METHOD);
    EXPECT_EQ(QV_Bloch::getTransversalRelaxation(), 1e12);
}

TEST(QVG_PhysicalDataBlochPanel, TheDensityIsEditedInAWindowOfItsOwn)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_DENSITY);
    ASSERT_EQ(forms.details(), Texts{"Initial Density Window"});
    auto& window = dynamic_cast<GUI_MatrixWindow<std::complex<double>>&>(forms.detail());
    EXPECT_EQ(window.getMatrixPanel()->getMatrix(), QV_Bloch::getInitialDensity());
    EXPECT_EQ(window.findChild<QSpinBox*>(), nullptr);
    EXPECT_FALSE(window.isModal());
    forms.click<Form>(Form::COMPO_PB_DENSITY);
    EXPECT_EQ(forms.details().size(), 1UL);
}

TEST(QVG_PhysicalDataBlochPanel, RatesAreEditedWithTheirMirrorCells)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_DIAG);
    ASSERT_EQ(forms.details(), Texts{"Longitudinal Relaxation Matrix Window"});
    auto& window = dynamic_cast<Rates&>(forms.detail());
    EXPECT_EQ(window.getMatrixPanel()->getMatrix(), QV_Bloch::getLongitudinalRelaxation());
    EXPECT_EQ(window.findChild<QSpinBox*>(), nullptr);
    typeRate(forms, 0, 1, "2e7");
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(0, 1), 2e7);
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(1, 0), 2e7);
    forms.click<Form>(Form::COMPO_PB_DIAG);
    EXPECT_EQ(forms.details().size(), 1UL);
}

TEST(QVG_PhysicalDataBlochPanel, RatesAreDiagonalWithTheTypeEquilibreAlone)
{
    const TestForms forms;
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    setRelaxationType(forms, QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
    forms.click<Form>(Form::COMPO_PB_DIAG);
    typeRate(forms, 0, 1, "2e7");
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(0, 1), 0.0);
    typeRate(forms, 1, 1, "-3e7");
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(1, 1), -3e7);
    // The window stays open when the type changes.
    forms.choose<Form>(Form::COMPO_CB_RELAX, QV_Bloch::CASCADE_RELAXATION_TYPE);
    typeRate(forms, 0, 1, "4e7");
    EXPECT_EQ(QV_Bloch::getLongitudinalRelaxation()->getValue(0, 1), 4e7);
}

TEST(QVG_PhysicalDataBlochPanel, TheEquilibriumIsEditedInAWindowOfItsOwn)
{
    const TestForms forms;
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    setRelaxationType(forms, QV_Bloch::CASCADE_RELAXATION_TYPE);
    forms.click<Form>(Form::COMPO_PB_EQU);
    ASSERT_EQ(forms.details(), Texts{"Equilibrium Vector Window"});
    auto& window = dynamic_cast<GUI_VectorWindow<double>&>(forms.detail());
    EXPECT_EQ(window.getVectorPanel()->getVector(), QV_Bloch::getEquilibriumDensity());
    EXPECT_EQ(window.getVectorPanel()->getTable()->getColumnLabel(0), "Equilibrium Density");
    EXPECT_EQ(window.findChild<QSpinBox*>(), nullptr);
    forms.click<Form>(Form::COMPO_PB_EQU);
    EXPECT_EQ(forms.details().size(), 1UL);
}

TEST(QVG_PhysicalDataBlochPanel, TheEquilibriumClosesWhenTheTypeHasNone)
{
    const TestForms forms;
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    setRelaxationType(forms, QV_Bloch::EQUILIBRE_RELAXATION_TYPE);
    forms.click<Form>(Form::COMPO_PB_EQU);
    forms.click<Form>(Form::COMPO_PB_DENSITY);
    forms.choose<Form>(Form::COMPO_CB_RELAX, QV_Bloch::CASCADE_RELAXATION_TYPE);
    EXPECT_EQ(forms.details().size(), 2UL);
    forms.choose<Form>(Form::COMPO_CB_RELAX, QV_Bloch::PAULI_RELAXATION_TYPE);
    EXPECT_EQ(forms.details(), Texts{"Initial Density Window"});
}

TEST(QVG_PhysicalDataBlochPanel, TheEquilibriumClosesWhenTheMethodHasNone)
{
    const TestForms forms;
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    setRelaxationType(forms, QV_Bloch::CASCADE_RELAXATION_TYPE);
    forms.click<Form>(Form::COMPO_PB_EQU);
    forms.showPage(1);
    forms.choose<QVG_NumericalDataBlochPanel>(QVG_NumericalDataBlochPanel::COMPO_CB_METHOD, 3);
    EXPECT_EQ(forms.problem().getMethod(), QV_Problem::RELAX_METHOD);
    EXPECT_EQ(forms.details().size(), 0UL);
    QCoreApplication::processEvents();
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    forms.showPage(0);
    forms.click<Form>(Form::COMPO_PB_EQU);
    EXPECT_EQ(forms.details().size(), 1UL);
}

TEST(QVG_PhysicalDataBlochPanel, MissingMatricesAreMade)
{
    const TestForms forms;
    setMethod(forms, QV_Problem::SPLIT_METHOD);
    setRelaxationType(forms, QV_Bloch::CASCADE_RELAXATION_TYPE);
    const COM_Array<QV_Bloch>& systems = *forms.problem().getBlochEquations();
    while (systems.size() > 0) { // atoms have their matrices
        forms.problem().removeFromBlochEquations(systems[0]);
    }
    QV_Bloch::resetShared();
    ASSERT_EQ(QV_Bloch::getInitialDensity(), nullptr);
    ASSERT_EQ(QV_Bloch::getPolarizations(), nullptr);
    ASSERT_EQ(QV_Bloch::getLongitudinalRelaxation(), nullptr);
    ASSERT_EQ(QV_Bloch::getEquilibriumDensity(), nullptr);
    QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
    forms.window().updateValues();
    for (const unsigned char flag : {Form::COMPO_PB_DENSITY, Form::COMPO_PB_POLARIZATION,
                                     Form::COMPO_PB_DIAG, Form::COMPO_PB_EQU}) {
        forms.click<Form>(flag);
    }
    EXPECT_EQ(forms.details().size(), 4UL);
    ASSERT_NE(QV_Bloch::getInitialDensity(), nullptr);
    ASSERT_NE(QV_Bloch::getPolarizations(), nullptr);
    ASSERT_NE(QV_Bloch::getLongitudinalRelaxation(), nullptr);
    ASSERT_NE(QV_Bloch::getEquilibriumDensity(), nullptr);
    EXPECT_EQ(QV_Bloch::getInitialDensity()->getLinesNumber(), QV_Bloch::getLevelsNumber());
    for (GUI_ChildWindow* const window : childrenOf<GUI_ChildWindow>(forms.window())) {
        EXPECT_FALSE(window->isModal()) << window->getName();
    }
}

TEST(QVG_PhysicalDataBlochPanel, DensitiesAreEditedCellByCell)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_PB_DENSITY);
    auto& window = dynamic_cast<GUI_MatrixWindow<std::complex<double>>&>(forms.detail());
    const LA_ComplexMatrix& density = *QV_Bloch::getInitialDensity();
    ASSERT_EQ(density.getValue(1, 0), 0.0);
    window.getMatrixPanel()->getTable()->item(0, 1)->setText("(0.25,0.5)");
    EXPECT_EQ(density.getValue(0, 1), std::complex<double>(0.25, 0.5));
    EXPECT_EQ(density.getValue(1, 0), 0.0);
}
