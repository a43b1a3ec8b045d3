#include "quorvex/QV_Maxwell.h"

#include "geometry/GEO_Vertex.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_ClassFactory.h"
#include "quorvex/QV_Field.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <limits>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Values = std::vector<double>;

Values valuesOf(const QV_Field* field)
{
    return field == nullptr ? Values{}
                            : Values(field->getValues(),
                                     field->getValues() + field->getSize() * field->getDimension());
}

/// A field system alone, with a wave and some vertices to save at.
class QV_MaxwellTest : public testing::Test
{
protected:
    QV_MaxwellTest() { mMaxwell->setIncidentFields(*mWave); }
    void addNode(long number) const { mNodes->add(*COM_Scoped(GEO_Vertex::New(number))); }
    /// An electric field of five nodes with these values.
    void setField(unsigned long dimension, const Values& values) const
    {
        const COM_Scoped field(QV_Field::New(5, dimension));
        std::copy(values.begin(), values.end(), field->getValues());
        mMaxwell->setField(QV_Maxwell::E_FIELD, *field);
    }
    static std::string printed(const char* format, double value)
    {
        char text[400];
        std::snprintf(text, sizeof text, format, value);
        return text;
    }

    const TestDirectory mDirectory;
    const COM_Scoped<QV_1DMaxwell> mMaxwell{QV_1DMaxwell::New()};
    const COM_Scoped<QV_IncidentFields> mWave{QV_IncidentFields::New()};
    const COM_Scoped<COM_Array<GEO_Vertex>> mNodes{COM_Array<GEO_Vertex>::New()};
};

} // namespace

TEST_F(QV_MaxwellTest, ANewSystemHasOneComponentAndAbsorbingEnds)
{
    const COM_Scoped maxwell(QV_1DMaxwell::New());
    EXPECT_EQ(maxwell->getReferenceCount(), 1);
    EXPECT_EQ(maxwell->getTypes(),
              (Names{"COM_Object", "MM_Object", "QV_Object", "QV_Maxwell", "QV_1DMaxwell"}));
    EXPECT_FALSE(maxwell->isLaserType());
    EXPECT_FALSE(maxwell->isReflexifLaserType());
    EXPECT_EQ(maxwell->getLaserReflectorFactor(), 1.0);
    EXPECT_EQ(maxwell->getDimension(), 1UL);
    EXPECT_EQ(maxwell->getProblem(), nullptr);
    EXPECT_EQ(maxwell->getIncidentFields(), nullptr);
    EXPECT_EQ(maxwell->getPolarizationTermFactors(), nullptr);
    EXPECT_EQ(maxwell->getField(QV_Maxwell::E_FIELD), nullptr);
    EXPECT_EQ(maxwell->getField(QV_Maxwell::B_FIELD), nullptr);
    EXPECT_EQ(maxwell->getDz(), -1.0);
    EXPECT_EQ(maxwell->getFirstNode(), -1);
    EXPECT_EQ(maxwell->getLastNode(), -1);
    EXPECT_EQ(QV_Maxwell::E_FIELD, 0);
    EXPECT_EQ(QV_Maxwell::B_FIELD, 1);
}

TEST_F(QV_MaxwellTest, SettersStoreWhatTheyAreGiven)
{
    mMaxwell->setLaserType(true);
    EXPECT_TRUE(mMaxwell->isLaserType());
    EXPECT_FALSE(mMaxwell->isReflexifLaserType());
    mMaxwell->setLaserType(false);
    mMaxwell->setReflexiveLaserType(true);
    EXPECT_FALSE(mMaxwell->isLaserType());
    EXPECT_TRUE(mMaxwell->isReflexifLaserType());
    mMaxwell->setLaserReflectorFactor(0.25);
    EXPECT_EQ(mMaxwell->getLaserReflectorFactor(), 0.25);
    mMaxwell->setDimension(2);
    EXPECT_EQ(mMaxwell->getDimension(), 2UL);
}

TEST_F(QV_MaxwellTest, TheWaveIsHeldByOneReferenceAndNullMeansNone)
{
    EXPECT_EQ(mMaxwell->getIncidentFields(), mWave.get());
    mMaxwell->setIncidentFields(*mWave);
    EXPECT_EQ(mWave->getReferenceCount(), 2);
    mMaxwell->setIncidentFields(nullptr);
    EXPECT_EQ(mMaxwell->getIncidentFields(), nullptr);
    EXPECT_EQ(mWave->getReferenceCount(), 1);
    mMaxwell->setIncidentFields(mWave.get());
    mMaxwell->resetIncidentFields();
    EXPECT_EQ(mWave->getReferenceCount(), 1);
}

TEST_F(QV_MaxwellTest, TheWeightsAreHeldByOneReferenceAndNullMeansNone)
{
    const COM_Scoped factors(LA_RealVector::New(2));
    mMaxwell->setPolarizationTermFactors(*factors);
    mMaxwell->setPolarizationTermFactors(factors.get());
    EXPECT_EQ(mMaxwell->getPolarizationTermFactors(), factors.get());
    EXPECT_EQ(factors->getReferenceCount(), 2);
    mMaxwell->resetPolarizationTermFactors();
    EXPECT_EQ(mMaxwell->getPolarizationTermFactors(), nullptr);
    EXPECT_EQ(factors->getReferenceCount(), 1);
}

TEST_F(QV_MaxwellTest, FieldsAreHeldByKeyAndReplaced)
{
    const COM_Scoped first(QV_Field::New(2, 1));
    const COM_Scoped second(QV_Field::New(3, 1));
    mMaxwell->setField(QV_Maxwell::B_FIELD, *first);
    EXPECT_EQ(mMaxwell->getField(QV_Maxwell::B_FIELD), first.get());
    EXPECT_EQ(mMaxwell->getField(QV_Maxwell::E_FIELD), nullptr);
    EXPECT_EQ(first->getReferenceCount(), 2);
    mMaxwell->setField(QV_Maxwell::B_FIELD, *second);
    EXPECT_EQ(mMaxwell->getField(QV_Maxwell::B_FIELD), second.get());
    EXPECT_EQ(first->getReferenceCount(), 1);
}

TEST_F(QV_MaxwellTest, ReleasingTheSystemReleasesWhatItHolds)
{
    const COM_Scoped factors(LA_RealVector::New(2));
    const COM_Scoped field(QV_Field::New(2, 1));
    {
        const COM_Scoped maxwell(QV_1DMaxwell::New());
        maxwell->setIncidentFields(*mWave);
        maxwell->setPolarizationTermFactors(*factors);
        maxwell->setField(QV_Maxwell::E_FIELD, *field);
        EXPECT_EQ(mWave->getReferenceCount(), 3);
    }
    EXPECT_EQ(mWave->getReferenceCount(), 2);
    EXPECT_EQ(factors->getReferenceCount(), 1);
    EXPECT_EQ(field->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- the link with the problem

TEST_F(QV_MaxwellTest, SettingTheProblemMakesTheSystemTheProblemsOwn)
{
    const TestProblem problem;
    QV_1DMaxwell& former = problem.maxwell();
    former.addReference(nullptr);
    EXPECT_EQ(former.getProblem(), &*problem);
    const long count = problem->getReferenceCount();
    mMaxwell->setProblem(*problem);
    mMaxwell->setProblem(&*problem);
    EXPECT_EQ(problem->getMaxwellSystem(), mMaxwell.get());
    EXPECT_EQ(mMaxwell->getProblem(), &*problem);
    EXPECT_EQ(mMaxwell->getReferenceCount(), 2);
    EXPECT_EQ(problem->getReferenceCount(), count);
    EXPECT_EQ(former.getProblem(), nullptr);
    EXPECT_EQ(former.getReferenceCount(), 1);
    former.Delete();
}

TEST_F(QV_MaxwellTest, ResettingTheProblemCutsTheLinkAtBothEnds)
{
    const TestProblem problem;
    mMaxwell->setProblem(*problem);
    const long count = problem->getReferenceCount();
    mMaxwell->resetProblem();
    EXPECT_EQ(mMaxwell->getProblem(), nullptr);
    EXPECT_EQ(problem->getMaxwellSystem(), nullptr);
    EXPECT_EQ(mMaxwell->getReferenceCount(), 1);
    EXPECT_EQ(problem->getReferenceCount(), count - 1);
    mMaxwell->resetProblem();
    EXPECT_EQ(mMaxwell->getReferenceCount(), 1);
    mMaxwell->setProblem(*problem);
    mMaxwell->setProblem(nullptr);
    EXPECT_EQ(problem->getMaxwellSystem(), nullptr);
}

TEST_F(QV_MaxwellTest, ASystemThatMovesToAnotherProblemLeavesTheFirstOne)
{
    const TestProblem first;
    const COM_Scoped second(QV_1DProblem::New());
    mMaxwell->setProblem(*first);
    mMaxwell->setProblem(*second);
    EXPECT_EQ(first->getMaxwellSystem(), nullptr);
    EXPECT_EQ(second->getMaxwellSystem(), mMaxwell.get());
    EXPECT_EQ(mMaxwell->getProblem(), second.get());
    EXPECT_EQ(mMaxwell->getReferenceCount(), 2);
}

TEST_F(QV_MaxwellTest, ASystemHeldByItsProblemAloneGoesWhenTheLinkIsCut)
{
    const TestProblem problem;
    EXPECT_EQ(printedBy([&problem] { problem.maxwell().resetProblem(); }), "");
    EXPECT_EQ(problem->getMaxwellSystem(), nullptr);
}

TEST_F(QV_MaxwellTest, ASystemHeldByItsProblemAloneMovesToAnother)
{
    const COM_Scoped first(QV_1DProblem::New());
    const COM_Scoped second(QV_1DProblem::New());
    QV_Maxwell* const maxwell = first->getMaxwellSystem();
    maxwell->setProblem(*second);
    EXPECT_EQ(first->getMaxwellSystem(), nullptr);
    EXPECT_EQ(second->getMaxwellSystem(), maxwell);
    EXPECT_EQ(maxwell->getProblem(), second.get());
    EXPECT_EQ(maxwell->getReferenceCount(), 1);
    first->setMaxwellSystem(*maxwell);
    EXPECT_EQ(second->getMaxwellSystem(), nullptr);
    EXPECT_EQ(first->getMaxwellSystem(), maxwell);
    EXPECT_EQ(maxwell->getReferenceCount(), 1);
}

// ---------------------------------------------------------------- start of a run

TEST_F(QV_MaxwellTest, AStartMakesZeroFieldsOnNodesAndLinesAndScalesThePulse)
{
    const TestProblem problem;
    problem.maxwell().setDimension(3);
    problem.wave().setWavePackageDuration(2.0);
    printedBy([&problem] { problem.milieu().create(); });
    EXPECT_EQ(printedBy([&problem] { problem.maxwell().initialize(0.75); }), "A_pulse/pi:3\n");
    EXPECT_EQ(problem.wave().getWavePackageDurationAdim(), 1.5);
    EXPECT_EQ(problem.wave().getFrequencyAdim(), problem.wave().getFrequency() / 0.75);
    const QV_Field* const E = problem.maxwell().getField(QV_Maxwell::E_FIELD);
    const QV_Field* const B = problem.maxwell().getField(QV_Maxwell::B_FIELD);
    ASSERT_NE(E, nullptr);
    ASSERT_NE(B, nullptr);
    EXPECT_EQ(E->getReferenceCount(), 1);
    EXPECT_EQ(E->getSize(), 20UL);
    EXPECT_EQ(E->getDimension(), 3UL);
    EXPECT_EQ(valuesOf(E), Values(60, 0.0));
    EXPECT_EQ(B->getSize(), 19UL);
    EXPECT_EQ(B->getDimension(), 3UL);
    EXPECT_EQ(valuesOf(B), Values(57, 0.0));
}

TEST_F(QV_MaxwellTest, ASecondStartGoesFromZeroFieldsAgain)
{
    const TestProblem problem;
    printedBy([&problem] {
        problem.milieu().create();
        problem.maxwell().initialize(1.0);
    });
    problem.maxwell().getField(QV_Maxwell::E_FIELD)->initValues(3.0);
    problem.maxwell().getField(QV_Maxwell::B_FIELD)->initValues(3.0);
    printedBy([&problem] { problem.maxwell().initialize(1.0); });
    EXPECT_EQ(valuesOf(problem.maxwell().getField(QV_Maxwell::E_FIELD)), Values(20, 0.0));
    EXPECT_EQ(valuesOf(problem.maxwell().getField(QV_Maxwell::B_FIELD)), Values(19, 0.0));
}

TEST_F(QV_MaxwellTest, WithoutAProblemAStartScalesThePulseAlone)
{
    mWave->setWavePackageDuration(1.0);
    EXPECT_EQ(printedBy([this] { mMaxwell->initialize(0.123456789); }), "A_pulse/pi:0.246914\n");
    EXPECT_EQ(mMaxwell->getField(QV_Maxwell::E_FIELD), nullptr);
}

TEST_F(QV_MaxwellTest, WithoutAWaveAStartIsSilent)
{
    mMaxwell->resetIncidentFields();
    EXPECT_EQ(printedBy([this] { mMaxwell->initialize(1.0); }), "");
}

// ---------------------------------------------------------------- result files

TEST_F(QV_MaxwellTest, OneFileForEachSavingNodeBearsItsNumber)
{
    addNode(1);
    addNode(20);
    addNode(1331);
    setField(1, {});
    mMaxwell->initSaving(mDirectory.slashed(), mNodes.get());
    EXPECT_EQ(Description::textOf(*Description(*mMaxwell).node().getFromMetaFields("mFilesNumber")),
              "[3]");
    EXPECT_TRUE(mMaxwell->closeSaving());
    EXPECT_EQ(Description::textOf(*Description(*mMaxwell).node().getFromMetaFields("mFilesNumber")),
              "[0]");
    EXPECT_EQ(mDirectory.read("E_at_1.res"), "");
    EXPECT_EQ(mDirectory.read("E_at_20.res"), "");
    EXPECT_EQ(mDirectory.read("E_at_1331.res"), "");
}

TEST_F(QV_MaxwellTest, ALineHoldsTheTimeAndEachComponentInVoltsPerMetre)
{
    mWave->setFieldMaxValue(8.537e9);
    const Values values{1.0,   -0.5,   0.0,
                        -0.0,  1e-320, 1e300,
                        0.1,   -1e-7,  1.0,
                        1.0e5, 0.3,    std::numeric_limits<double>::infinity(),
                        2.0,   3.0,    std::numeric_limits<double>::quiet_NaN()};
    for (unsigned long dimension = 1; dimension <= 3; ++dimension) {
        setField(dimension, {values.begin(), values.begin() + 5 * static_cast<long>(dimension)});
        mNodes->clear();
        addNode(0);
        addNode(4);
        mMaxwell->initSaving(mDirectory.slashed(), mNodes.get());
        std::string expected[2];
        for (const double t : {0.162053, 12345.678, -1e-9}) {
            for (unsigned long k = 0; k < 2; ++k) {
                const unsigned long node = 4 * k;
                mMaxwell->save(t, node, k);
                expected[k] += printed("%7.6e ", t);
                for (unsigned long j = 0; j < dimension; ++j) {
                    expected[k] += printed("%7.6e \t ", values[node * dimension + j] * 8.537e9);
                }
                expected[k] += "\n";
            }
        }
        EXPECT_TRUE(mMaxwell->closeSaving());
        EXPECT_EQ(mDirectory.read("E_at_0.res"), expected[0]);
        EXPECT_EQ(mDirectory.read("E_at_4.res"), expected[1]);
    }
}

TEST_F(QV_MaxwellTest, ANodeWithoutFieldGetsTheTimeAlone)
{
    addNode(9);
    mMaxwell->initSaving(mDirectory.slashed(), mNodes.get());
    mMaxwell->save(1.0, 9, 0);
    setField(1, {});
    mMaxwell->save(2.0, 9, 0);
    EXPECT_TRUE(mMaxwell->closeSaving());
    EXPECT_EQ(mDirectory.read("E_at_9.res"), "1.000000e+00 \n2.000000e+00 \n");
}

TEST_F(QV_MaxwellTest, ClosingTwiceOrWithoutFilesIsNoFailure)
{
    EXPECT_TRUE(mMaxwell->closeSaving());
    addNode(1);
    mMaxwell->initSaving(mDirectory.slashed(), mNodes.get());
    EXPECT_TRUE(mMaxwell->closeSaving());
    EXPECT_TRUE(mMaxwell->closeSaving());
}

TEST_F(QV_MaxwellTest, AFullDiskIsToldWhenTheFilesAreClosed)
{
    std::filesystem::create_symlink("/dev/full", mDirectory.file("E_at_1.res"));
    addNode(1);
    addNode(2);
    setField(1, {});
    mMaxwell->initSaving(mDirectory.slashed(), mNodes.get());
    mMaxwell->save(1.0, 1, 0);
    mMaxwell->save(1.0, 2, 1);
    testing::internal::CaptureStderr();
    EXPECT_FALSE(mMaxwell->closeSaving());
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "The file " + mDirectory.file("E_at_1.res") + " could not be written completely.\n");
    EXPECT_EQ(mDirectory.read("E_at_2.res"), "1.000000e+00 0.000000e+00 \t \n");
}

TEST_F(QV_MaxwellTest, AFileThatCannotBeMadeEndsTheProcess)
{
    EXPECT_EXIT(
        {
            addNode(17);
            dup2(STDERR_FILENO, STDOUT_FILENO);
            mMaxwell->initSaving("/missing/", mNodes.get());
        },
        testing::ExitedWithCode(0),
        testing::Matcher<const std::string&>(testing::Eq(
            std::string("FATAL ERROR: Problem of creation of file /missing/E_at_17.res\n"))));
}

// ---------------------------------------------------------------- persistence

TEST_F(QV_MaxwellTest, ADescriptionOfANewSystemHasItsNumbersAndNoFields)
{
    EXPECT_EQ(Description(*COM_Scoped(QV_1DMaxwell::New())).text(),
              "{mDimension=[1] mDz=[-1.000000e+00] mFields=[] mFilesNumber=[0] mIFirst=[-1] "
              "mILast=[-1] mIsLaserType=[0] mR=[1.000000e+00]}");
}

TEST_F(QV_MaxwellTest, ADescriptionOfASystemThatHasRunHasTheStateOfItsEnds)
{
    TestProblem problem;
    ASSERT_EQ(problem.run(), 0);
    const Description description(problem.maxwell());
    EXPECT_EQ(description.keys(),
              (Names{"mDimension", "mDz", "mE1Old", "mEn1Old", "mFactors", "mFields",
                     "mFilesNumber", "mIFirst", "mILast", "mIncidentFields", "mIsLaserType",
                     "mMovingIncidentFieldValue", "mProblem", "mR"}));
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mFields")),
              "[0:" + problem.maxwell().getField(QV_Maxwell::E_FIELD)->getIdentityString() + "|1:"
                  + problem.maxwell().getField(QV_Maxwell::B_FIELD)->getIdentityString() + "]");
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mProblem")),
              "[" + problem->getIdentityString() + "]");
}

TEST_F(QV_MaxwellTest, TheReflexiveLaserIsNotSaved)
{
    mMaxwell->setLaserType(true);
    mMaxwell->setReflexiveLaserType(true);
    mMaxwell->setLaserReflectorFactor(0.5);
    mMaxwell->setDimension(2);
    setField(2, Values(10, 4.0));
    const COM_Scoped factors(LA_RealVector::New(0));
    factors->setValues(0.25, 0.75);
    mMaxwell->setPolarizationTermFactors(*factors);
    COM_Scoped(QV_ClassFactory::New())->save(mDirectory.file("maxwell.xml"), *mMaxwell);

    const COM_Scoped factory(QV_ClassFactory::New());
    MM_Object* object = nullptr;
    EXPECT_EQ(printedBy([&] { object = factory->load(mDirectory.file("maxwell.xml")); }), "");
    const COM_Scoped maxwell(dynamic_cast<QV_1DMaxwell*>(object));
    ASSERT_TRUE(maxwell);
    EXPECT_TRUE(maxwell->isLaserType());
    EXPECT_FALSE(maxwell->isReflexifLaserType());
    EXPECT_EQ(maxwell->getLaserReflectorFactor(), 0.5);
    EXPECT_EQ(maxwell->getDimension(), 2UL);
    EXPECT_EQ(valuesOf(maxwell->getField(QV_Maxwell::E_FIELD)), Values(10, 4.0));
    EXPECT_EQ(maxwell->getField(QV_Maxwell::B_FIELD), nullptr);
    ASSERT_NE(maxwell->getPolarizationTermFactors(), nullptr);
    EXPECT_EQ(maxwell->getPolarizationTermFactors()->toString(), "(2.500000e-01,7.500000e-01)");
    ASSERT_NE(maxwell->getIncidentFields(), nullptr);
    EXPECT_EQ(maxwell->getIncidentFields()->getFieldMaxValue(), 8.537e9);
    EXPECT_EQ(maxwell->getProblem(), nullptr);
}

TEST_F(QV_MaxwellTest, MissingKeysAreAnnouncedAndKeepTheirValues)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("id");
    node->setName("someSystem");
    factory->addToMetaClasses(*node);
    mMaxwell->setReflexiveLaserType(true);
    const std::string before = Description(*mMaxwell).text();
    EXPECT_EQ(printedBy([&] { mMaxwell->loadFromMetaClass(*node); }),
              "no attribute mFilesNumber stored in class someSystem.\n"
              "no attribute mIsLaserType stored in class someSystem.\n"
              "no attribute mR stored in class someSystem.\n"
              "no attribute mDimension stored in class someSystem.\n"
              "no association mFields stored in class someSystem.\n"
              "no attribute mDz stored in class someSystem.\n"
              "no attribute mIFirst stored in class someSystem.\n"
              "no attribute mILast stored in class someSystem.\n");
    EXPECT_EQ(Description(*mMaxwell).text(), before);
    EXPECT_TRUE(mMaxwell->isReflexifLaserType());
}

TEST_F(QV_MaxwellTest, BrokenReferencesAreAnnouncedInTheOrderOfReading)
{
    const COM_Scoped factory(QV_ClassFactory::New());
    const COM_Scoped node(MM_Class::New());
    node->setId("id");
    factory->addToMetaClasses(*node);
    mMaxwell->saveToMetaClass(*node);
    node->removeFromMetaFields(*node->getFromMetaFields("mIncidentFields"));
    node->removeFromMetaFields(*node->getFromMetaFields("mFields"));
    for (const std::string key : {"mProblem", "mIncidentFields", "mFields", "mFactors",
                                  "mMovingIncidentFieldValue", "mE1Old", "mEn1Old"}) {
        node->addAttributeToMetaFields(key, "of " + key);
    }
    EXPECT_EQ(printedBy([&] { mMaxwell->loadFromMetaClass(*node); }),
              "no object of mFactors stored.\n"
              "no object of mProblem stored.\n"
              "no object of mIncidentFields stored.\n"
              "no object of mFields stored.\n"
              "no object of mMovingIncidentFieldValue stored.\n"
              "no object of mE1Old stored.\n"
              "no object of mEn1Old stored.\n");
    EXPECT_EQ(mMaxwell->getIncidentFields(), mWave.get());
}
