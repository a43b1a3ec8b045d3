#include "quorvex/QV_IncidentFields.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_ClassFactory.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Values = std::vector<double>;

Values valuesOf(const LA_RealVector* vector)
{
    return vector == nullptr
               ? Values{}
               : Values(vector->getValues(), vector->getValues() + vector->getDimension());
}

/// A pulse in round numbers: duration 2 and carrier 1.5, in 1 / Rabi frequency and its inverse.
class QV_IncidentFieldsTest : public testing::Test
{
protected:
    static constexpr double duration = 2.0;
    static constexpr double carrier = 1.5;

    QV_IncidentFieldsTest()
    {
        mWave->setWaveLength(QV_IncidentFields::TWO_PI_C / carrier);
        mWave->setWavePackageDuration(duration);
        mWave->adimensionize(1.0);
    }
    /// The values at the boundary and of the moving reference.
    Values boundary(unsigned long dim, double t, double dt) const
    {
        return valuesOf(mWave->getIncidentField(dim, t, dt));
    }
    Values moving(unsigned long dim, double t, double dt) const
    {
        return valuesOf(mWave->getMovingIncidentField(dim, t, dt));
    }

    const COM_Scoped<QV_IncidentFields> mWave{QV_IncidentFields::New()};
};

} // namespace

TEST_F(QV_IncidentFieldsTest, ANewWaveHasTheDefaultsOfAShortPulseInTheInfrared)
{
    const COM_Scoped wave(QV_IncidentFields::New());
    EXPECT_EQ(wave->getReferenceCount(), 1);
    EXPECT_EQ(wave->getTypes(),
              (Names{"COM_Object", "MM_Object", "QV_Object", "QV_IncidentFields"}));
    EXPECT_EQ(wave->getFieldMaxValue(), 8.537e9);
    EXPECT_EQ(wave->getWaveLength(), 1.5e-6);
    EXPECT_EQ(wave->getWavePackageDuration(), 1e-13);
    EXPECT_EQ(wave->getCFL(), 0.8);
    EXPECT_EQ(wave->getFrequency(), 1255380424374481.3);
    EXPECT_EQ(wave->getTestType(), QV_IncidentFields::SIT_TYPE);
    EXPECT_EQ(wave->getWavePackageDurationAdim(), 0.0);
    EXPECT_EQ(wave->getFrequencyAdim(), 0.0);
}

TEST_F(QV_IncidentFieldsTest, TheShapesHaveFixedNumbersAndNames)
{
    EXPECT_EQ(QV_IncidentFields::SINUS_TYPE, 0);
    EXPECT_EQ(QV_IncidentFields::SIT_TYPE, 1);
    EXPECT_EQ(QV_IncidentFields::PACKAGE_TYPE, 2);
    EXPECT_EQ(QV_IncidentFields::OSCILL1_TYPE, 3);
    EXPECT_EQ(QV_IncidentFields::OSCILL2_TYPE, 4);
    EXPECT_EQ(QV_IncidentFields::POMPE_SIT_TYPE, 5);
    EXPECT_EQ(QV_IncidentFields::MARCHE_TYPE, 6);
    EXPECT_EQ(QV_IncidentFields::mTypesNameLength, 7UL);
    EXPECT_EQ(
        Names(std::begin(QV_IncidentFields::mTypesName), std::end(QV_IncidentFields::mTypesName)),
        (Names{"sinus", "SIT", "PACKAGE", "OSCILL1", "OSCILL2", "POMPE_SIT", "MARCHE"}));
}

TEST_F(QV_IncidentFieldsTest, SettersStoreWhatTheyAreGiven)
{
    mWave->setFieldMaxValue(1.0);
    mWave->setWavePackageDuration(2.0);
    mWave->setCFL(0.25);
    mWave->setIncidentFieldsType(QV_IncidentFields::PACKAGE_TYPE);
    EXPECT_EQ(mWave->getFieldMaxValue(), 1.0);
    EXPECT_EQ(mWave->getWavePackageDuration(), 2.0);
    EXPECT_EQ(mWave->getCFL(), 0.25);
    EXPECT_EQ(mWave->getTestType(), QV_IncidentFields::PACKAGE_TYPE);
}

TEST_F(QV_IncidentFieldsTest, TheWavelengthSetsTheFrequencyOfTheCarrier)
{
    mWave->setWaveLength(3e-6);
    EXPECT_EQ(mWave->getWaveLength(), 3e-6);
    EXPECT_EQ(mWave->getFrequency(), 1883070636.561722 / 3e-6);
    mWave->setWaveLength(1.5e-6);
    EXPECT_EQ(mWave->getFrequency(), 1255380424374481.3);
}

TEST_F(QV_IncidentFieldsTest, ScalingDividesTheCarrierAndMultipliesTheDuration)
{
    mWave->adimensionize(4.0);
    EXPECT_EQ(mWave->getFrequencyAdim(), mWave->getFrequency() / 4.0);
    EXPECT_EQ(mWave->getWavePackageDurationAdim(), 8.0);
    EXPECT_EQ(mWave->getWavePackageDuration(), 2.0);
}

TEST_F(QV_IncidentFieldsTest, EveryShapeIsChosenByItsName)
{
    for (unsigned char type = 0; type < QV_IncidentFields::mTypesNameLength; ++type) {
        mWave->setIncidentFieldsType(std::string(QV_IncidentFields::mTypesName[type]));
        EXPECT_EQ(mWave->getTestType(), type);
    }
}

TEST_F(QV_IncidentFieldsTest, AnUnknownNameOfAShapeEndsTheProcessAfterTheListOfNames)
{
    EXPECT_EXIT(
        {
            dup2(STDERR_FILENO, STDOUT_FILENO);
            mWave->setIncidentFieldsType("sit");
        },
        testing::ExitedWithCode(0),
        testing::Matcher<const std::string&>(
            testing::Eq(std::string("warning incident fields type sit unknown !!\n"
                                    "choose between:\n"
                                    "\tsinus\n\tSIT\n\tPACKAGE\n\tOSCILL1\n\tOSCILL2\n"
                                    "\tPOMPE_SIT\n\tMARCHE\n"))));
}

// ---------------------------------------------------------------- shapes

namespace {

struct Shape
{
    unsigned char mType;
    double mTime;
    double mBoundary;
    double mMoving; ///< With half a time unit's delay of the envelope.

    std::string name() const
    {
        return std::string(QV_IncidentFields::mTypesName[mType]) + "At"
               + std::to_string(std::lround(100.0 * mTime));
    }
    friend std::ostream& operator<<(std::ostream& out, const Shape& tested)
    {
        return out << tested.name();
    }
};

class QV_IncidentFieldsShapeTest : public QV_IncidentFieldsTest,
                                   public testing::WithParamInterface<Shape>
{
protected:
    static void expect(double value, double expected)
    {
        if (expected == 0.0) {
            EXPECT_EQ(value, 0.0);
        } else {
            // The rounding of the phase, 150 at the most: a unit in its last place is 2.8e-14.
            EXPECT_NEAR(value, expected, 5e-14);
        }
    }
};

} // namespace

// With a Courant number of 0.5 the moving reference lags dt behind: tS = t - dt. The values come from a
// calculation with 40 digits.
TEST_P(QV_IncidentFieldsShapeTest, FollowsItsFormula)
{
    mWave->setCFL(0.5);
    mWave->setIncidentFieldsType(GetParam().mType);
    ASSERT_TRUE(mWave->computeFields(1, GetParam().mTime, 0.5));
    expect(boundary(1, GetParam().mTime, 0.5)[0], GetParam().mBoundary);
    expect(moving(1, GetParam().mTime, 0.5)[0], GetParam().mMoving);
}

INSTANTIATE_TEST_SUITE_P(
    Times, QV_IncidentFieldsShapeTest,
    testing::Values(
        Shape{QV_IncidentFields::SINUS_TYPE, 0.25, 0.36627252908604756, 0.36627252908604756},
        Shape{QV_IncidentFields::SINUS_TYPE, 3.0, -0.97753011766509706, -0.97753011766509706},
        Shape{QV_IncidentFields::SINUS_TYPE, 100.0, -0.71487642962916463, -0.71487642962916463},
        Shape{QV_IncidentFields::SIT_TYPE, 0.25, 0.00040515909816491304, 0.0},
        Shape{QV_IncidentFields::SIT_TYPE, 0.75, 0.14713388810023664, 0.00099805990266535821},
        Shape{QV_IncidentFields::SIT_TYPE, 1.0, 0.99749498660405443, 0.013441526458826042},
        Shape{QV_IncidentFields::SIT_TYPE, 1.25, 0.15558394377396855, 0.15558394377396855},
        Shape{QV_IncidentFields::SIT_TYPE, 1.75, 0.0005463590273874878, 0.080544191569569756},
        Shape{QV_IncidentFields::SIT_TYPE, 2.0, 0.0, 0.0019016319356794846},
        Shape{QV_IncidentFields::SIT_TYPE, 2.25, 0.0, -0.00025584990683784664},
        Shape{QV_IncidentFields::SIT_TYPE, 2.5, 0.0, 0.0},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 0.25, 0.013418889500970462, 0.0},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 0.75, 0.6969802391245528, 0.033055793661986198},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 1.0, 0.99749498660405443, 0.3156136481051891},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 1.75, 0.018095438186078249, 0.38154167354027961},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 2.0, 0.0, 0.044651252550192363},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 2.25, 0.0, -0.0084737616512642579},
        Shape{QV_IncidentFields::PACKAGE_TYPE, 2.5, 0.0, 0.0},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 0.25, 0.26386683929443359, 0.0},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 0.75, 0.86545246124267578, 0.26386683929443359},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 1.0, 0.0, 0.8862233203125},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 1.25, -0.86545246124267578, 0.86545246124267578},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 1.75, -0.26386683929443359, -0.86545246124267578},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 2.0, 0.0, -0.8862233203125},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 2.5, 0.0, 0.0},
        Shape{QV_IncidentFields::OSCILL1_TYPE, 6.5, 0.0, 0.0},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 0.25, 0.26386683929443359, 0.0},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 1.0, 0.0, 0.8862233203125},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 1.75, -0.26386683929443359, -0.86545246124267578},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 2.0, 0.0, -0.8862233203125},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 2.5, 0.0, 0.0},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 6.0, 0.0, 0.0},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 6.25, 0.26386683929443359, 0.0},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 6.5, 0.8862233203125, 0.0},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 7.0, 0.0, 0.8862233203125},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 7.75, -0.26386683929443359, -0.86545246124267578},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 8.0, 0.0, -0.8862233203125},
        Shape{QV_IncidentFields::OSCILL2_TYPE, 8.5, 0.0, 0.0},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 0.25, 0.00040515909816491304, 0.0},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 1.0, 0.99749498660405443, 0.013441526458826042},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 1.75, 0.0005463590273874878, 0.080544191569569756},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 2.0, 0.0, 0.0019016319356794846},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 2.25, -0.00010233996273513866,
              -0.00025584990683784664},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 2.5, -0.0030807800307336369, 0.0},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 3.0, -0.39101204706603882, -0.0052689976861448937},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 3.75, -0.00027064943078485895,
              -0.039899111222830167},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 4.0, 0.0, -0.0015060810780947765},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 4.25, 0.0, 4.0567951154347725e-5},
        Shape{QV_IncidentFields::POMPE_SIT_TYPE, 4.5, 0.0, 0.0},
        Shape{QV_IncidentFields::MARCHE_TYPE, 0.5, 0.0, 0.0},
        Shape{QV_IncidentFields::MARCHE_TYPE, 2.25, 1.0, 1.0}),
    [](const auto& shape) { return shape.param.name(); });

TEST_F(QV_IncidentFieldsTest, TheStepIsZeroAsLongAsTheTimeIsAtMostTheDuration)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::MARCHE_TYPE);
    EXPECT_EQ(boundary(1, 1.0, 0.1), Values{0.0});
    EXPECT_EQ(boundary(1, duration, 0.1), Values{0.0});
    EXPECT_EQ(boundary(1, std::nextafter(duration, 3.0), 0.1), Values{1.0});
    EXPECT_EQ(boundary(1, 50.0, 0.1), Values{1.0});
}

TEST_F(QV_IncidentFieldsTest, ThePulseOfTheDefaultsStandsBetweenZeroAndItsDurationAndPeaksHalfWay)
{
    const COM_Scoped wave(QV_IncidentFields::New());
    wave->adimensionize(8.095e14);
    const double A = wave->getWavePackageDurationAdim();
    const double w = wave->getFrequencyAdim();
    const auto at = [&wave](double t) { return (*wave->getIncidentField(1, t, 0.1))[0]; };
    EXPECT_EQ(at(0.0), 0.0);
    EXPECT_EQ(at(A), 0.0);
    EXPECT_EQ(at(1.5 * A), 0.0);
    EXPECT_EQ(at(A / 2.0), std::sin(A / 2.0 * w));
    double largest = 0.0;
    for (int i = 1; i < 1000; ++i) {
        const double t = A * i / 1000.0;
        EXPECT_LE(std::fabs(at(t)), std::fabs(std::sin(t * w)));
        largest = std::max(largest, std::fabs(at(t) / std::sin(t * w)));
    }
    EXPECT_EQ(largest, 1.0); // the envelope, reached at the peak alone
}

TEST_F(QV_IncidentFieldsTest, ThePulseIsCutOffWhereItsEnvelopeIsSmallButNotZero)
{
    const double before = std::nextafter(duration, 0.0);
    EXPECT_NEAR(std::fabs(boundary(1, before, 0.1)[0] / std::sin(before * carrier)), 9.08e-5, 1e-8);
    EXPECT_EQ(boundary(1, duration, 0.1), Values{0.0});
}

TEST_F(QV_IncidentFieldsTest, ASingleCycleReachesOneNearTheSeventhPartsRoot)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::OSCILL1_TYPE);
    const double x = 1.0 / std::sqrt(7.0);
    // The scale has seven digits.
    EXPECT_NEAR(boundary(1, 1.0 - x, 0.1)[0], 1.0, 5e-7);
    EXPECT_NEAR(boundary(1, 1.0 + x, 0.1)[0], -1.0, 5e-7);
}

TEST_F(QV_IncidentFieldsTest, WithACourantNumberOfOneTheMovingReferenceIsTheBoundaryValue)
{
    mWave->setCFL(1.0);
    for (unsigned char type = 0; type < QV_IncidentFields::mTypesNameLength; ++type) {
        mWave->setIncidentFieldsType(type);
        const double t = 0.625 + 0.01 * type;
        EXPECT_EQ(boundary(1, t, 0.3), moving(1, t, 0.3)) << unsigned{type};
    }
}

TEST_F(QV_IncidentFieldsTest, ACourantNumberOfZeroLeavesTheBoundaryValueAndSilencesTheReference)
{
    mWave->setCFL(0.0);
    EXPECT_NEAR(boundary(1, 1.0, 0.1)[0], 0.99749498660405443, 1e-15);
    EXPECT_EQ(moving(1, 1.0, 0.1), Values{0.0});
    // Without a step either the delay is not a number.
    EXPECT_NEAR(boundary(1, 0.75, 0.0)[0], 0.14713388810023664, 1e-15);
    EXPECT_EQ(moving(1, 0.75, 0.0), Values{0.0});
}

TEST_F(QV_IncidentFieldsTest, APulseWithoutDurationIsZeroAfterItsStart)
{
    mWave->setWavePackageDuration(0.0);
    mWave->adimensionize(1.0);
    EXPECT_EQ(boundary(1, 1.0, 0.1), Values{0.0});
    EXPECT_EQ(boundary(1, 0.0, 0.1), Values{0.0});
}

// ---------------------------------------------------------------- components

TEST_F(QV_IncidentFieldsTest, OneComponentIsNotCleared)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(boundary(1, 1.0, 0.1), Values{std::sin(carrier)});
    EXPECT_EQ(moving(1, 1.0, 0.1), Values{std::sin(carrier)});
}

TEST_F(QV_IncidentFieldsTest, TwoComponentsArePolarizedAlongTheFirst)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(boundary(2, 1.0, 0.1), (Values{std::sin(carrier), 0.0}));
    EXPECT_EQ(moving(2, 1.0, 0.1), (Values{std::sin(carrier), 0.0}));
}

TEST_F(QV_IncidentFieldsTest, ThreeComponentsCarryTheSameValue)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(boundary(3, 1.0, 0.1), Values(3, std::sin(carrier)));
    EXPECT_EQ(moving(3, 1.0, 0.1), Values(3, std::sin(carrier)));
}

TEST_F(QV_IncidentFieldsTest, TheVectorsKeepTheSizeTheyWereMadeWith)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    ASSERT_EQ(boundary(1, 1.0, 0.1).size(), 1UL);
    EXPECT_EQ(boundary(3, 2.0, 0.1), Values{std::sin(2.0 * carrier)});
    EXPECT_EQ(boundary(2, 3.0, 0.1), Values{std::sin(3.0 * carrier)});
}

TEST_F(QV_IncidentFieldsTest, AskingForTwoComponentsClearsTheSecondOfThree)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    ASSERT_EQ(boundary(3, 1.0, 0.1).size(), 3UL);
    const double value = std::sin(2.0 * carrier);
    EXPECT_EQ(boundary(2, 2.0, 0.1), (Values{value, 0.0, value}));
    EXPECT_EQ(moving(2, 2.0, 0.1), (Values{value, 0.0, value}));
}

// ---------------------------------------------------------------- cache

TEST_F(QV_IncidentFieldsTest, ATimeAskedForTwiceIsNotComputedAgainWhateverTheStep)
{
    mWave->setCFL(0.5);
    const Values reference = moving(1, 0.75, 0.5);
    EXPECT_EQ(moving(1, 0.75, 0.25), reference);
    mWave->setIncidentFieldsType(QV_IncidentFields::OSCILL1_TYPE);
    EXPECT_TRUE(mWave->computeFields(1, 0.75, 0.25));
    EXPECT_EQ(moving(1, 0.75, 0.25), reference);
    // Another time between ends that.
    boundary(1, 1.0, 0.25);
    EXPECT_NE(moving(1, 0.75, 0.25), reference);
}

TEST_F(QV_IncidentFieldsTest, TheTimeMinusOneCountsAsComputedBeforeTheFirstCall)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(boundary(2, -1.0, 0.1), (Values{0.0, 0.0}));
    EXPECT_EQ(boundary(2, -2.0, 0.1), (Values{std::sin(-2.0 * carrier), 0.0}));
}

TEST_F(QV_IncidentFieldsTest, AShapeThatDoesNotExistGivesFalseAndLeavesTheVectors)
{
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    const Values before = boundary(1, 1.0, 0.1);
    mWave->setIncidentFieldsType(static_cast<unsigned char>(7));
    EXPECT_FALSE(mWave->computeFields(1, 2.0, 0.1));
    EXPECT_EQ(valuesOf(mWave->getIncidentField(1, 2.0, 0.1)), before);
    EXPECT_EQ(valuesOf(mWave->getMovingIncidentField(1, 2.0, 0.1)), before);
    // The time counts as computed all the same.
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(boundary(1, 2.0, 0.1), before);
}

TEST_F(QV_IncidentFieldsTest, AShapeThatDoesNotExistMakesVectorsOfZerosAtFirst)
{
    mWave->setIncidentFieldsType(static_cast<unsigned char>(255));
    EXPECT_FALSE(mWave->computeFields(3, 1.0, 0.1));
    EXPECT_EQ(boundary(3, 1.0, 0.1), Values(3, 0.0));
    EXPECT_EQ(moving(3, 1.0, 0.1), Values(3, 0.0));
}

TEST_F(QV_IncidentFieldsTest, VectorsGivenFromOutsideAreHeldAndFilled)
{
    const COM_Scoped iField(LA_RealVector::New(2));
    const COM_Scoped sField(LA_RealVector::New(3));
    mWave->setIncidentField(*iField);
    mWave->setMovingIncidentField(*sField);
    EXPECT_EQ(iField->getReferenceCount(), 2);
    EXPECT_EQ(sField->getReferenceCount(), 2);
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(mWave->getIncidentField(1, 1.0, 0.1), iField.get());
    EXPECT_EQ(mWave->getMovingIncidentField(1, 1.0, 0.1), sField.get());
    EXPECT_EQ(valuesOf(iField.get()), Values(2, std::sin(carrier)));
    EXPECT_EQ(valuesOf(sField.get()), Values(3, std::sin(carrier)));
    mWave->resetIncidentField();
    mWave->setMovingIncidentField(nullptr);
    EXPECT_EQ(iField->getReferenceCount(), 1);
    EXPECT_EQ(sField->getReferenceCount(), 1);
    // The next call makes new ones, but the time is known: they stay zero.
    EXPECT_EQ(boundary(1, 1.0, 0.1), Values{0.0});
    mWave->resetMovingIncidentField();
    EXPECT_EQ(moving(2, 1.0, 0.1), (Values{0.0, 0.0}));
}

TEST_F(QV_IncidentFieldsTest, ReleasingTheWaveReleasesItsVectors)
{
    const COM_Scoped vector(LA_RealVector::New(1));
    {
        const COM_Scoped wave(QV_IncidentFields::New());
        wave->setIncidentField(*vector);
        wave->setIncidentField(*vector);
        wave->setMovingIncidentField(*vector);
        EXPECT_EQ(vector->getReferenceCount(), 3);
    }
    EXPECT_EQ(vector->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- persistence

TEST_F(QV_IncidentFieldsTest, ADescriptionBeforeTheFirstStepHasNoVectors)
{
    const COM_Scoped wave(QV_IncidentFields::New());
    EXPECT_EQ(Description(*wave).text(),
              "{mCFL=[8.000000e-01] mFieldMaxValue=[8.537000e+09] "
              "mLastTimeFieldsComputation=[-1.000000e+00] mOmega0=[1.255380e+15] "
              "mOmega0Adim=[0.000000e+00] mType=[1] mWaveLength=[1.500000e-06] "
              "mWavePackageDuration=[1.000000e-13] mWavePackageDurationAdim=[0.000000e+00]}");
}

TEST_F(QV_IncidentFieldsTest, ADescriptionAfterAStepHasTheVectorsAndTheTime)
{
    boundary(1, 0.25, 0.1);
    const Description description(*mWave);
    EXPECT_EQ(description.keys(),
              (Names{"mCFL", "mFieldMaxValue", "mIField", "mLastTimeFieldsComputation", "mOmega0",
                     "mOmega0Adim", "mSField", "mType", "mWaveLength", "mWavePackageDuration",
                     "mWavePackageDurationAdim"}));
    EXPECT_EQ(
        Description::textOf(*description.node().getFromMetaFields("mLastTimeFieldsComputation")),
        "[2.500000e-01]");
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mIField")),
              "[" + mWave->getIncidentField(1, 0.25, 0.1)->getIdentityString() + "]");
}

TEST_F(QV_IncidentFieldsTest, ASavedWaveComesBackWithItsTimeAndWithoutItsVectors)
{
    const TestDirectory directory;
    mWave->setFieldMaxValue(3.0);
    mWave->setCFL(0.25);
    mWave->setIncidentFieldsType(QV_IncidentFields::SINUS_TYPE);
    ASSERT_NE(boundary(1, 0.25, 0.1), Values{0.0});
    COM_Scoped(QV_ClassFactory::New())->save(directory.file("wave.xml"), *mWave);
    const COM_Scoped factory(QV_ClassFactory::New());
    MM_Object* object = nullptr;
    EXPECT_EQ(printedBy([&] { object = factory->load(directory.file("wave.xml")); }), "");
    const COM_Scoped wave(dynamic_cast<QV_IncidentFields*>(object));
    ASSERT_TRUE(wave);
    EXPECT_EQ(wave->getFieldMaxValue(), 3.0);
    EXPECT_EQ(wave->getCFL(), 0.25);
    EXPECT_EQ(wave->getTestType(), QV_IncidentFields::SINUS_TYPE);
    EXPECT_EQ(wave->getWavePackageDuration(), 2.0);
    EXPECT_EQ(wave->getWavePackageDurationAdim(), 2.0);
    EXPECT_EQ(wave->getFrequencyAdim(), 1.5);
    EXPECT_EQ(wave->getFrequency(), 1.5);
    EXPECT_NEAR(wave->getWaveLength(), mWave->getWaveLength(), 1e-6 * mWave->getWaveLength());
    // New vectors, and of another size if asked for; at the time of the file they are taken as computed.
    EXPECT_EQ(valuesOf(wave->getIncidentField(2, 0.25, 0.1)), (Values{0.0, 0.0}));
    EXPECT_EQ(valuesOf(wave->getIncidentField(2, 0.5, 0.1)), (Values{std::sin(0.75), 0.0}));
}

TEST_F(QV_IncidentFieldsTest, LoadingGivesUpTheVectorsThatAreThere)
{
    const COM_Scoped saved(QV_IncidentFields::New());
    saved->getIncidentField(1, 0.25, 0.1);
    const COM_Scoped vector(LA_RealVector::New(1));
    mWave->setIncidentField(*vector);
    mWave->setMovingIncidentField(*vector);
    EXPECT_EQ(printedBy([&] { mWave->loadFromMetaClass(Description(*saved).node()); }), "");
    EXPECT_EQ(vector->getReferenceCount(), 1);
    EXPECT_EQ(boundary(2, 0.5, 0.1).size(), 2UL);
    EXPECT_EQ(moving(2, 0.5, 0.1).size(), 2UL);
}

TEST_F(QV_IncidentFieldsTest, VectorsAreReadUnderKeysThatAreNeverWritten)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped vector(LA_RealVector::New(0));
    vector->setValues(4.0, 5.0);
    const COM_Scoped node(MM_Class::New());
    node->setId("wave");
    factory->addToMetaClasses(*node);
    mWave->saveToMetaClass(*node);
    node->addAssociationToMetaFields("mIFields", *vector);
    node->addAssociationToMetaFields("mSFields", *vector);
    const COM_Scoped wave(QV_IncidentFields::New());
    wave->loadFromMetaClass(*node);
    EXPECT_EQ(valuesOf(wave->getIncidentField(1, -1.0, 0.1)), (Values{4.0, 5.0}));
    EXPECT_EQ(valuesOf(wave->getMovingIncidentField(1, -1.0, 0.1)), (Values{4.0, 5.0}));
}

TEST_F(QV_IncidentFieldsTest, MissingAttributesAreAnnouncedAndKeepTheirValues)
{
    const COM_Scoped node(MM_Class::New());
    node->setName("someWave");
    const COM_Scoped wave(QV_IncidentFields::New());
    std::string expected;
    for (const char* key :
         {"mFieldMaxValue", "mWaveLength", "mWavePackageDuration", "mWavePackageDurationAdim",
          "mCFL", "mOmega0", "mOmega0Adim", "mLastTimeFieldsComputation", "mType"}) {
        expected += std::string("no attribute ") + key + " stored in class someWave.\n";
    }
    EXPECT_EQ(printedBy([&] { wave->loadFromMetaClass(*node); }), expected);
    EXPECT_EQ(Description(*wave).text(), Description(*COM_Scoped(QV_IncidentFields::New())).text());
}
