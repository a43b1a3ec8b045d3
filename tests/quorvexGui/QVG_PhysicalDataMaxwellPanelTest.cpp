#include "quorvexGui/QVG_PhysicalDataMaxwellPanel.h"

#include "FieldCase.h"
#include "quorvexGui/QVG_NumericalDataBlochPanel.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using Form = QVG_PhysicalDataMaxwellPanel;
using Method = QVG_NumericalDataBlochPanel;
using Texts = std::vector<std::string>;

constexpr double inf = std::numeric_limits<double>::infinity();

double factor(const TestForms& forms)
{
    return forms.maxwell().getLaserReflectorFactor();
}

double peak(const TestForms& forms)
{
    return forms.wave().getFieldMaxValue();
}

double waveLength(const TestForms& forms)
{
    return forms.wave().getWaveLength();
}

double duration(const TestForms& forms)
{
    return forms.wave().getWavePackageDuration();
}

/// Both flags of the ends, and the boxes that show them.
void expectEnds(const TestForms& forms, bool isLaser, bool isReflexive)
{
    EXPECT_EQ(forms.maxwell().isLaserType(), isLaser);
    EXPECT_EQ(forms.maxwell().isReflexifLaserType(), isReflexive);
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CKB_LASER), isLaser ? "1" : "0");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CKB_RLASER), isReflexive ? "1" : "0");
    EXPECT_EQ(forms.isEnabled<Form>(Form::COMPO_LASER_COEF), isLaser || isReflexive);
}

} // namespace

TEST(QVG_PhysicalDataMaxwellPanel, ShowsTheLight)
{
    const TestForms forms;
    EXPECT_EQ(forms.form<Form>().title(), "Maxwell");
    EXPECT_EQ(
        labelsOf<Form>(forms),
        (Texts{"Type:", "Reflexive Coef:", "Dimension", "", "Incident Electromagnetic Field", "",
               "\tMax. Intensity", "V/m", "\tWave Length", "m", "\tWave Package Duration", "s"}));
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LASER_COEF), "1.000000e+00");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_DIMENSION), "1");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_CB_IF), "1");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_E_MAX), "8.537000e+09");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_LAMBDA), "1.500000e-06");
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_DURATION), "1.000000e-13");
    EXPECT_EQ(itemsOf(forms.widget<Form>(Form::COMPO_CB_IF)),
              (Texts{"Sinus", "SIT", "PACKAGE", "OSCILL 1", "OSCILL 2", "P-SIT", "ON"}));
    EXPECT_EQ(dynamic_cast<QAbstractButton&>(forms.widget<Form>(Form::COMPO_CKB_LASER)).text(),
              "Laser");
    EXPECT_EQ(dynamic_cast<QAbstractButton&>(forms.widget<Form>(Form::COMPO_CKB_RLASER)).text(),
              "Reflexive Laser");
    expectEnds(forms, false, false);
}

TEST(QVG_PhysicalDataMaxwellPanel, FieldsWriteWhatIsTyped)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_CKB_LASER);
    expectFields<Form>(forms,
                       {
                           {Form::COMPO_LASER_COEF, "0.5", "5.000000e-01", 0.5, factor},
                           {Form::COMPO_LASER_COEF, "-7", "-7.000000e+00", -7.0, factor},
                           {Form::COMPO_LASER_COEF, "?", "0.000000e+00", 0.0, factor},
                           {Form::COMPO_LE_E_MAX, "1e9", "1.000000e+09", 1e9, peak},
                           {Form::COMPO_LE_E_MAX, "-1e9", "0.000000e+00", 0.0, peak},
                           {Form::COMPO_LE_DURATION, "5e-14", "5.000000e-14", 5e-14, duration},
                           {Form::COMPO_LE_DURATION, "-5", "0.000000e+00", 0.0, duration},
                           {Form::COMPO_LE_LAMBDA, "3e-6", "3.000000e-06", 3e-6, waveLength},
                       });
    EXPECT_EQ(forms.wave().getFrequency(), 1883070636.561722 / 3e-6);
    EXPECT_EQ(forms.milieu().getCaracteristicLength(), 3e-6);
}

TEST(QVG_PhysicalDataMaxwellPanel, AWavelengthOfZeroOrLessHasAnInfiniteFrequency)
{
    for (const char* const text : {"0", "-2e-6", "nothing"}) {
        const TestForms forms;
        forms.type<Form>(Form::COMPO_LE_LAMBDA, text);
        EXPECT_EQ(forms.shown<Form>(Form::COMPO_LE_LAMBDA), "0.000000e+00");
        EXPECT_EQ(forms.wave().getWaveLength(), 0.0);
        EXPECT_EQ(forms.wave().getFrequency(), inf);
        EXPECT_EQ(forms.milieu().getCaracteristicLength(), 0.0);
    }
}

TEST(QVG_PhysicalDataMaxwellPanel, TheEndsAreOfOneKindAtATime)
{
    const TestForms forms;
    forms.click<Form>(Form::COMPO_CKB_RLASER);
    expectEnds(forms, false, true);
    forms.click<Form>(Form::COMPO_CKB_LASER);
    expectEnds(forms, true, false);
    forms.click<Form>(Form::COMPO_CKB_RLASER);
    expectEnds(forms, false, true);
    forms.click<Form>(Form::COMPO_CKB_RLASER);
    expectEnds(forms, false, false);
    forms.click<Form>(Form::COMPO_CKB_LASER);
    forms.click<Form>(Form::COMPO_CKB_LASER);
    expectEnds(forms, false, false);
}

TEST(QVG_PhysicalDataMaxwellPanel, OfTwoKindsOfEndsTheOtherStaysWhenOneIsTakenOff)
{
    const TestForms forms;
    for (const bool isLaser : {true, false}) {
        forms.maxwell().setLaserType(true); // as a project may hold it
        forms.maxwell().setReflexiveLaserType(true);
        forms.window().updateValues();
        expectEnds(forms, true, true);
        forms.click<Form>(isLaser ? Form::COMPO_CKB_RLASER : Form::COMPO_CKB_LASER);
        expectEnds(forms, isLaser, !isLaser);
    }
}

TEST(QVG_PhysicalDataMaxwellPanel, TheShapeIsTheItemsNumber)
{
    const TestForms forms;
    for (const int type : {6, 5, 4, 3, 2, 1, 0}) {
        forms.choose<Form>(Form::COMPO_CB_IF, type);
        EXPECT_EQ(forms.wave().getTestType(), type);
    }
}

TEST(QVG_PhysicalDataMaxwellPanel, TwoComponentsForceTheSplitting)
{
    const TestForms forms;
    forms.type<Form>(Form::COMPO_DIMENSION, "2");
    EXPECT_EQ(forms.maxwell().getDimension(), 2UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 2UL);
    EXPECT_EQ(forms.problem().getMethod(), QV_Problem::SPLIT_METHOD);
    EXPECT_EQ(forms.shown<Method>(Method::COMPO_CB_METHOD), "4");
    EXPECT_FALSE(forms.isEnabled<Method>(Method::COMPO_CB_METHOD));
    EXPECT_TRUE(forms.isEnabled<Method>(Method::COMPO_CB_SPLIT));
}

TEST(QVG_PhysicalDataMaxwellPanel, GoingBackToOneComponentKeepsTheSplitting)
{
    const TestForms forms;
    forms.type<Form>(Form::COMPO_DIMENSION, "2");
    forms.type<Form>(Form::COMPO_DIMENSION, "1");
    EXPECT_EQ(forms.maxwell().getDimension(), 1UL);
    EXPECT_EQ(QV_Bloch::getPolarizations()->size(), 1UL);
    EXPECT_EQ(forms.problem().getMethod(), QV_Problem::SPLIT_METHOD);
}

TEST(QVG_PhysicalDataMaxwellPanel, ComponentsGoFromOneToTwo)
{
    const TestForms forms;
    QWidget& box = forms.widget<Form>(Form::COMPO_DIMENSION);
    QTest::keyClick(&box, Qt::Key_Down);
    EXPECT_EQ(forms.maxwell().getDimension(), 1UL);
    QTest::keyClick(&box, Qt::Key_Up);
    QTest::keyClick(&box, Qt::Key_Up);
    EXPECT_EQ(forms.maxwell().getDimension(), 2UL);
}

TEST(QVG_PhysicalDataMaxwellPanel, ShowingMoreComponentsThanTheBoxKnowsChangesNone)
{
    const TestForms forms;
    forms.problem().setDimension(3);
    forms.window().updateValues();
    EXPECT_EQ(forms.shown<Form>(Form::COMPO_DIMENSION), "2");
    EXPECT_EQ(forms.maxwell().getDimension(), 3UL);
}
