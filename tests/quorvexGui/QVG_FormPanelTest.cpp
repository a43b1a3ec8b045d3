#include "quorvexGui/QVG_FormPanel.h"

#include "common/COM_Guard.h"
#include "common/COM_Scoped.h"
#include "gui/GUI_Button.h"
#include "gui/GUI_RootLayout.h"
#include "quorvexGui/QVG_NumericalDataBlochPanel.h"
#include "quorvexGui/QVG_NumericalDataMaxwellPanel.h"
#include "quorvexGui/QVG_NumericalDataMilieuPanel.h"
#include "quorvexGui/QVG_PhysicalDataBlochPanel.h"
#include "quorvexGui/QVG_PhysicalDataMaxwellPanel.h"
#include "quorvexGui/QVG_PhysicalDataMilieuPanel.h"
#include "support/Printed.h"
#include "TestForms.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QLabel>

#include <gtest/gtest.h>

#include <set>
#include <utility>

namespace {

/// Components that the user acts on, in the order in which they stand on the page.
std::vector<GUI_ActionComponent*> fieldsOf(const QWidget& form)
{
    std::vector<GUI_ActionComponent*> fields;
    for (QWidget* const widget : form.findChildren<QWidget*>()) {
        if (auto* const field = dynamic_cast<GUI_ActionComponent*>(widget)) {
            fields.push_back(field);
        }
    }
    return fields;
}

template <typename... Form>
std::vector<QVG_FormPanel*> formsOf(const TestForms& forms)
{
    return {&forms.form<Form>()...};
}

std::vector<QVG_FormPanel*> allForms(const TestForms& forms)
{
    return formsOf<QVG_PhysicalDataMilieuPanel, QVG_PhysicalDataBlochPanel,
                   QVG_PhysicalDataMaxwellPanel, QVG_NumericalDataMilieuPanel,
                   QVG_NumericalDataBlochPanel, QVG_NumericalDataMaxwellPanel>(forms);
}

/// Reals with more digits than a field shows.
void setLongNumbers(const TestForms& forms)
{
    constexpr double third = 1.0 / 3.0;
    forms.milieu().setLength(1e-4 * third);
    forms.milieu().setIndice(1.0 + third);
    forms.milieu().setStartingPosition(10.0 + third);
    forms.milieu().setEndingPosition(90.0 + third);
    QV_Bloch::setAtomsNumber(1e24 * third);
    QV_Bloch::setTemperature(300.0 + third);
    QV_Bloch::setTransversalRelaxation(1e12 * third);
    QV_Bloch::setConvergenceRate(1e-6 * third);
    forms.maxwell().setLaserType(true);
    forms.maxwell().setLaserReflectorFactor(third);
    forms.wave().setFieldMaxValue(1e10 * third);
    forms.problem().setWaveLength(1.5e-6 + 1e-6 * third);
    forms.wave().setWavePackageDuration(1e-13 * third);
    forms.wave().setCFL(third);
    forms.window().updateValues();
}

std::vector<double> numbers(const TestForms& forms)
{
    return {forms.milieu().getLength(),
            forms.milieu().getIndice(),
            forms.milieu().getStartingPosition(),
            forms.milieu().getEndingPosition(),
            forms.milieu().getCaracteristicLength(),
            QV_Bloch::getAtomsNumber(),
            QV_Bloch::getTemperature(),
            QV_Bloch::getBeta(),
            QV_Bloch::getTransversalRelaxation(),
            QV_Bloch::getConvergenceRate(),
            forms.maxwell().getLaserReflectorFactor(),
            forms.wave().getFieldMaxValue(),
            forms.wave().getWaveLength(),
            forms.wave().getFrequency(),
            forms.wave().getWavePackageDuration(),
            forms.wave().getCFL()};
}

std::vector<int> flagsOf(const QWidget& form)
{
    std::vector<int> flags;
    for (const GUI_ActionComponent* const field : fieldsOf(form)) {
        flags.push_back(field->getFlagId());
    }
    return flags;
}

/// The labels of a form's rows, from top to bottom, each with the flag of the field beside it.
std::vector<std::pair<std::string, int>> rowsOf(const QWidget& form)
{
    std::vector<std::pair<std::string, int>> rows;
    for (const QLabel* const label : form.findChildren<QLabel*>()) {
        if (auto* const field = dynamic_cast<GUI_ActionComponent*>(label->buddy())) {
            const QWidget& widget = *field->qtWidget();
            EXPECT_EQ(label->geometry().center().y(), widget.geometry().center().y());
            EXPECT_LT(label->geometry().right(), widget.geometry().left());
            rows.emplace_back(label->text().toStdString(), field->getFlagId());
        }
    }
    return rows;
}

bool isFieldOf(const QWidget& form, const QWidget* widget)
{
    return widget != nullptr && form.isAncestorOf(widget);
}

} // namespace

TEST(QVG_FormPanel, EachLabelStandsBesideItsField)
{
    using Rows = std::vector<std::pair<std::string, int>>;
    const TestForms forms;
    EXPECT_EQ(rowsOf(forms.form<QVG_PhysicalDataMilieuPanel>()),
              (Rows{{"Domain Length", 0},
                    {"Milieu Index Property", 3},
                    {"Milieu Begining Position (%)", 1},
                    {"Milieu Ending Position (%)", 2},
                    {"Captors", 4}}));
    EXPECT_EQ(rowsOf(forms.form<QVG_PhysicalDataBlochPanel>()),
              (Rows{{"Atoms Number", 0},
                    {"Temperature", 1},
                    {"Energy Levels Frequencies", 2},
                    {"Density Matrix", 3},
                    {"Polarization Matrix", 4},
                    {"Relaxation Type", 5},
                    {"Transversal Relaxation", 6},
                    {"Longitudinal Relaxation Matrix", 8},
                    {"Equilibrium Density", 9}}));
    EXPECT_EQ(rowsOf(forms.form<QVG_PhysicalDataMaxwellPanel>()),
              (Rows{{"Dimension", 5},
                    {"Incident Electromagnetic Field", 1},
                    {"\tMax. Intensity", 2},
                    {"\tWave Length", 3},
                    {"\tWave Package Duration", 4}}));
    // The row above them is for the ends: two boxes and the reflection factor.
    EXPECT_EQ(flagsOf(forms.form<QVG_PhysicalDataMaxwellPanel>()),
              (std::vector<int>{6, 7, 8, 5, 1, 2, 3, 4}));
    forms.showPage(1);
    QCoreApplication::processEvents();
    EXPECT_EQ(rowsOf(forms.form<QVG_NumericalDataMilieuPanel>()),
              (Rows{{"Number of Points by Wave Length", 0}}));
    EXPECT_EQ(rowsOf(forms.form<QVG_NumericalDataBlochPanel>()),
              (Rows{{"Convergence Criterium", 1}, {"Numerical Method", 3}, {"Splitting Type", 4}}));
    EXPECT_EQ(rowsOf(forms.form<QVG_NumericalDataMaxwellPanel>()),
              (Rows{{"Time Steps Number", 0}, {"C.F.L.", 1}}));
}

TEST(QVG_FormPanel, TabbingThroughTheFormsChangesNoDigit)
{
    const TestForms forms;
    setLongNumbers(forms);
    const std::vector<double> before = numbers(forms);
    for (const int page : {0, 1}) {
        forms.showPage(page);
        std::set<const QWidget*> visited;
        for (int i = 0; i < 60; ++i) {
            QWidget* const present = forms.window().focusWidget();
            QTest::keyClick(present != nullptr ? present : &forms.window(), Qt::Key_Tab);
            visited.insert(forms.window().focusWidget());
        }
        EXPECT_GE(visited.size(), page == 0 ? 18UL : 5UL);
        EXPECT_EQ(numbers(forms), before);
    }
}

TEST(QVG_FormPanel, ReturnInAFieldThatWasNotTypedInChangesNoDigit)
{
    const TestForms forms;
    setLongNumbers(forms);
    const std::vector<double> before = numbers(forms);
    for (const QVG_FormPanel* const form : allForms(forms)) {
        for (QLineEdit* const field : form->findChildren<QLineEdit*>()) {
            QTest::keyClick(field, Qt::Key_Return);
        }
    }
    EXPECT_EQ(numbers(forms), before);
}

TEST(QVG_FormPanel, LeavingAFieldWritesIt)
{
    const TestForms forms;
    QWidget& field =
        forms.widget<QVG_PhysicalDataMilieuPanel>(QVG_PhysicalDataMilieuPanel::COMPO_LE_IND);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, "1.25");
    EXPECT_EQ(forms.milieu().getIndice(), 1.0);
    QTest::keyClick(&field, Qt::Key_Tab);
    EXPECT_EQ(forms.milieu().getIndice(), 1.25);
}

TEST(QVG_FormPanel, ClosingTheWindowWritesTheFieldThatIsBeingTypedIn)
{
    const TestForms forms;
    QWidget& field =
        forms.widget<QVG_PhysicalDataMilieuPanel>(QVG_PhysicalDataMilieuPanel::COMPO_LE_IND);
    field.setFocus();
    QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClicks(&field, "1.25");
    QV_1DMilieu& milieu = forms.milieu();
    forms.window().close(false);
    EXPECT_EQ(milieu.getIndice(), 1.25);
}

TEST(QVG_FormPanel, TabGoesDownTheForm)
{
    const TestForms forms;
    setLongNumbers(forms);
    forms.problem().setMethod(QV_Problem::SPLIT_METHOD);
    QV_Bloch::setRelaxationType(QV_Bloch::CASCADE_RELAXATION_TYPE);
    forms.window().updateValues(); // nothing is disabled
    for (const int page : {0, 1}) {
        forms.showPage(page);
        const std::vector<QVG_FormPanel*> all = allForms(forms);
        for (int i = 0; i < 3; ++i) {
            const QWidget& form = *all[static_cast<std::size_t>(3 * page + i)];
            const std::vector<GUI_ActionComponent*> fields = fieldsOf(form);
            fields[0]->qtWidget()->setFocus();
            QPoint last(-1, -1);
            std::size_t visited = 0;
            while (isFieldOf(form, forms.window().focusWidget()) && visited <= fields.size()) {
                const QPoint place = forms.window().focusWidget()->mapTo(&form, QPoint(0, 0));
                EXPECT_TRUE(place.y() > last.y() + 4 || place.x() > last.x())
                    << form.objectName().toStdString() << " " << visited;
                last = place;
                ++visited;
                QTest::keyClick(forms.window().focusWidget(), Qt::Key_Tab);
            }
            EXPECT_EQ(visited, fields.size());
        }
    }
}

TEST(QVG_FormPanel, FieldsOfAPageStandInOneColumn)
{
    const TestForms forms;
    for (const int page : {0, 1}) {
        forms.showPage(page);
        QCoreApplication::processEvents();
        std::set<int> left;
        std::set<int> widths;
        for (int i = 0; i < 3; ++i) {
            const QVG_FormPanel* const form =
                allForms(forms)[static_cast<std::size_t>(3 * page + i)];
            for (GUI_ActionComponent* const field : fieldsOf(*form)) {
                QWidget& widget = *field->qtWidget();
                if (widget.mapTo(form, QPoint(0, 0)).y() > 40 || i < 2 || page == 1) {
                    left.insert(widget.mapTo(&forms.window(), QPoint(0, 0)).x());
                    widths.insert(widget.width());
                }
            }
        }
        EXPECT_EQ(left.size(), 1UL) << page;
        EXPECT_EQ(widths.size(), 1UL) << page;
    }
}

TEST(QVG_FormPanel, NoLabelAndNoNumberIsCut)
{
    for (const unsigned char lang : {DICO_Dictionary::LANG_EN, DICO_Dictionary::LANG_FR}) {
        TestForms forms;
        GUI_Object::setLang(lang);
        forms.open();
        for (const int page : {0, 1}) {
            forms.showPage(page);
            QCoreApplication::processEvents();
            for (const QVG_FormPanel* const form : allForms(forms)) {
                for (const QLabel* const label : form->findChildren<QLabel*>()) {
                    EXPECT_TRUE(!label->isVisible() || label->width() >= label->sizeHint().width())
                        << label->text().toStdString();
                }
                for (QLineEdit* const field : form->findChildren<QLineEdit*>()) {
                    if (field->isVisible()
                        && dynamic_cast<GUI_ActionComponent*>(field) != nullptr) {
                        const int text = field->fontMetrics().horizontalAdvance("-1.234567e-100");
                        EXPECT_GE(field->width() - text, 2 * 5); // frame, margin and cursor
                    }
                }
                for (const QComboBox* const list : form->findChildren<QComboBox*>()) {
                    EXPECT_GE(list->width(), list->sizeHint().width());
                }
            }
        }
    }
}

TEST(QVG_FormPanel, AnUnknownComponentIsAnnouncedAndTheFormShowsTheProblem)
{
    const TestForms forms;
    for (QVG_FormPanel* const form : allForms(forms)) {
        const COM_Scoped button(GUI_Button::New(*form, static_cast<unsigned char>(77)));
        form->getMainLayout()->addToComponents(*button);
        forms.milieu().setIndice(forms.milieu().getIndice() + 1.0);
        EXPECT_EQ(printedBy([&] { button->click(); }), "action unknown !77\n");
        form->getMainLayout()->removeFromComponents(*button);
    }
    // The first form has shown the index that was set just before.
    EXPECT_EQ(forms.shown<QVG_PhysicalDataMilieuPanel>(QVG_PhysicalDataMilieuPanel::COMPO_LE_IND),
              "2.000000e+00");
}

TEST(QVG_FormPanel, WithoutAProblemNothingHappens)
{
    const TestForms forms;
    using Form = QVG_PhysicalDataMilieuPanel;
    GUI_Application& application = TestMainWindow::application();
    const COM_Scoped<COM_Object> model([&] {
        application.getModel()->addReference(nullptr);
        return application.getModel();
    }());
    application.resetModel();
    const std::string printed = printedBy([&] {
        forms.window().updateValues();
        forms.type<Form>(Form::COMPO_LE_IND, "3");
        forms.click<Form>(Form::COMPO_PB_CAP);
    });
    EXPECT_EQ(printed, "");
    EXPECT_EQ(forms.details().size(), 0UL);
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_IND), "3"); // nothing shows it anew
    application.setModel(*model);
    EXPECT_EQ(forms.milieu().getIndice(), 1.0);
}

TEST(QVG_FormPanel, AProblemThatLacksAPartIsLeftAlone)
{
    const TestForms forms;
    using Form = QVG_PhysicalDataMilieuPanel;
    forms.maxwell().resetIncidentFields();
    forms.window().updateValues();
    forms.type<Form>(Form::COMPO_LE_IND, "3");
    EXPECT_EQ(forms.milieu().getIndice(), 1.0);
    forms.problem().resetMaxwellSystem();
    forms.window().updateValues();
    forms.problem().resetMilieu();
    forms.window().updateValues();
    forms.type<Form>(Form::COMPO_LE_LONG, "3");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_LONG), "3");
}

TEST(QVG_FormPanel, AFormThatIsNowhereDoesNothing)
{
    const TestForms forms;
    auto& form = forms.form<QVG_PhysicalDataMilieuPanel>();
    const COM_Guard guard(form);
    auto& field =
        forms.component<QVG_PhysicalDataMilieuPanel>(QVG_PhysicalDataMilieuPanel::COMPO_PB_CAP);
    const COM_Guard fieldGuard(field);
    form.getParent()->removeFromChildren(form);
    form.updateValues();
    form.componentClicked(field);
    EXPECT_EQ(forms.details().size(), 0UL);
}
