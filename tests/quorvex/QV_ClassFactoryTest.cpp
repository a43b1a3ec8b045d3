#include "quorvex/QV_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using Names = std::vector<std::string>;

class QV_ClassFactoryTest : public testing::Test
{
protected:
    ~QV_ClassFactoryTest() override { QV_Bloch::resetShared(); }

    /// The class name of what the factory makes from `name`, empty for nothing.
    std::string classMadeFrom(const std::string& name) const
    {
        const COM_Scoped parameters(COM_Array<MM_Object>::New());
        const COM_Scoped object(mFactory->NewInstance(name, *parameters));
        return object ? object->getClassName() : std::string();
    }
    /// `text` with its first `from` replaced.
    static std::string replaced(std::string text, const std::string& from, const std::string& to)
    {
        const std::size_t at = text.find(from);
        EXPECT_NE(at, std::string::npos) << from;
        return at == std::string::npos ? text : text.replace(at, from.size(), to);
    }

    const TestDirectory mDirectory;
    const COM_Scoped<QV_ClassFactory> mFactory{QV_ClassFactory::New()};
};

} // namespace

TEST_F(QV_ClassFactoryTest, TheFactoryStandsOnThatOfTheMatrices)
{
    EXPECT_EQ(mFactory->getTypes(),
              (Names{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory", "LA_ClassFactory",
                     "QV_ClassFactory"}));
    EXPECT_EQ(mFactory->getReferenceCount(), 1);
}

TEST_F(QV_ClassFactoryTest, EveryNameOfTheSolverMakesItsClass)
{
    for (const char* name : {"QV_ClassFactory", "QV_1DProblem", "QV_Bloch", "QV_1DMilieu",
                             "QV_1DMaxwell", "QV_IncidentFields", "QV_Field"}) {
        const std::string decorated = std::to_string(std::string(name).size()) + name;
        EXPECT_EQ(classMadeFrom(name), decorated);
        EXPECT_EQ(classMadeFrom(decorated), decorated);
    }
}

TEST_F(QV_ClassFactoryTest, ANameThatMerelyContainsAClassMakesIt)
{
    EXPECT_EQ(classMadeFrom("xxQV_Bloch7"), "8QV_Bloch");
    EXPECT_EQ(classMadeFrom("QV_Blo QV_Field QV_Mil"), "8QV_Field");
    EXPECT_EQ(classMadeFrom("QV_QV_1DMilieus"), "11QV_1DMilieu");
}

TEST_F(QV_ClassFactoryTest, OfSeveralClassesInANameTheFirstOfTheListWins)
{
    EXPECT_EQ(classMadeFrom("QV_Field QV_IncidentFields QV_1DMaxwell QV_1DMilieu QV_Bloch"),
              "8QV_Bloch");
    EXPECT_EQ(classMadeFrom("QV_Bloch QV_1DProblem"), "12QV_1DProblem");
    EXPECT_EQ(classMadeFrom("QV_1DProblem QV_ClassFactory"), "15QV_ClassFactory");
    EXPECT_EQ(classMadeFrom("QV_1DMaxwell QV_1DMilieu"), "11QV_1DMilieu");
    EXPECT_EQ(classMadeFrom("QV_IncidentFields QV_1DMaxwell"), "12QV_1DMaxwell");
    EXPECT_EQ(classMadeFrom("QV_Field QV_IncidentFields"), "17QV_IncidentFields");
    EXPECT_EQ(classMadeFrom("LA_RealMatrix QV_Field"), "8QV_Field");
    EXPECT_EQ(classMadeFrom("LA_ClassFactory QV_Field"), "8QV_Field");
}

TEST_F(QV_ClassFactoryTest, OtherNamesFallThroughToTheFactoriesBelow)
{
    EXPECT_EQ(classMadeFrom("13LA_RealMatrix"), "13LA_RealMatrix");
    EXPECT_EQ(classMadeFrom("16LA_ComplexMatrix"), "16LA_ComplexMatrix");
    EXPECT_EQ(classMadeFrom("13LA_RealVector"), "13LA_RealVector");
    EXPECT_EQ(classMadeFrom("15LA_ClassFactory"), "15LA_ClassFactory");
    EXPECT_EQ(classMadeFrom("15MM_ClassFactory"), "15MM_ClassFactory");
    EXPECT_EQ(classMadeFrom("8MM_Class"), "8MM_Class");
    EXPECT_EQ(classMadeFrom("8MM_Value"), "8MM_Value");
}

TEST_F(QV_ClassFactoryTest, NamesThatNobodyKnowsMakeNothingSilently)
{
    EXPECT_EQ(printedBy([this] {
                  for (const char* name :
                       {"", "QV_", "QV_bloch", "QV_Problem", "QV_Maxwell", "QV_Milieu", "QV_Object",
                        "QV_LoaderWriter", "QV_Results", "MM_Package", "GEO_Point", "LA_Matrix"}) {
                      EXPECT_EQ(classMadeFrom(name), "") << name;
                  }
              }),
              "");
}

TEST_F(QV_ClassFactoryTest, NewObjectsBelongToTheCallerAndAreEmpty)
{
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    const COM_Scoped field(mFactory->NewInstance("QV_Field", *parameters));
    EXPECT_EQ(field->getReferenceCount(), 1);
    EXPECT_EQ(dynamic_cast<QV_Field&>(*field).getSize(), 0UL);
    EXPECT_EQ(dynamic_cast<QV_Field&>(*field).getDimension(), 0UL);
    const COM_Scoped matrix(mFactory->NewInstance("LA_RealMatrix", *parameters));
    EXPECT_EQ(dynamic_cast<LA_RealMatrix&>(*matrix).getLinesNumber(), 1UL);
    EXPECT_EQ(dynamic_cast<LA_RealMatrix&>(*matrix).getColumnsNumber(), 1UL);
    const COM_Scoped vector(mFactory->NewInstance("LA_RealVector", *parameters));
    EXPECT_EQ(dynamic_cast<LA_RealVector&>(*vector).getDimension(), 1UL);
}

TEST_F(QV_ClassFactoryTest, ConstructorParametersAreIgnored)
{
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    const COM_Scoped parameter(QV_Field::New(3, 3));
    parameters->add(parameter.get());
    const COM_Scoped field(mFactory->NewInstance("QV_Field", *parameters));
    EXPECT_EQ(dynamic_cast<QV_Field&>(*field).getSize(), 0UL);
    EXPECT_EQ(parameter->getReferenceCount(), 2);
}

TEST_F(QV_ClassFactoryTest, AProblemComesBackWholeFromItsFile)
{
    const COM_Scoped problem(QV_1DProblem::New());
    problem->setSavingPath("there/");
    const std::string file = mDirectory.file("p.xml");
    mFactory->save(file, *problem);
    const COM_Scoped loaded(mFactory->load(file));
    auto* const found = dynamic_cast<QV_1DProblem*>(loaded.get());
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->getSavingPath(), "there/");
    EXPECT_EQ(found->getBlochEquations()->size(), 1UL);
    EXPECT_EQ((*found->getBlochEquations())[0].getProblem(), found);
}

TEST_F(QV_ClassFactoryTest, AFileOfAnotherClassLeavesTheObjectAsItWas)
{
    const std::string file = mDirectory.file("m.xml");
    const COM_Scoped milieu(QV_1DMilieu::New());
    milieu->setLength(7.0);
    mFactory->save(file, *milieu);
    const COM_Scoped fields(QV_IncidentFields::New());
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mFactory->load(file, *fields), fields.get()); }), "");
    EXPECT_EQ(fields->getWaveLength(), 1.5e-6);
    const COM_Scoped other(QV_1DMilieu::New());
    EXPECT_EQ(mFactory->load(file, *other), other.get());
    EXPECT_EQ(other->getLength(), 7.0);
}

TEST_F(QV_ClassFactoryTest, AFileThatDoesNotExistIsAnnouncedAndGivesNull)
{
    const std::string file = mDirectory.file("none.xml");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mFactory->load(file), nullptr); }),
              "ERROR:" + file + " can not be opened !! \n");
}

TEST_F(QV_ClassFactoryTest, SavingIntoAMissingDirectoryIsAnnounced)
{
    const std::string file = mDirectory.file("none/p.xml");
    const COM_Scoped milieu(QV_1DMilieu::New());
    EXPECT_EQ(printedBy([&] { mFactory->save(file, *milieu); }),
              "ERROR:" + file + " can not be created !! \n");
}

TEST_F(QV_ClassFactoryTest, ASecondSavingStartsAfresh)
{
    const COM_Scoped milieu(QV_1DMilieu::New());
    const COM_Scoped fields(QV_IncidentFields::New());
    mFactory->save(mDirectory.file("1.xml"), *milieu);
    mFactory->save(mDirectory.file("2.xml"), *fields);
    const std::string second = mDirectory.read("2.xml");
    EXPECT_EQ(second.find("QV_1DMilieu"), std::string::npos);
    mFactory->save(mDirectory.file("3.xml"), *fields);
    EXPECT_EQ(mDirectory.read("3.xml"), second);
}

TEST_F(QV_ClassFactoryTest, AMemberOfAnUnknownClassIsAnnouncedAndTheRestIsLoaded)
{
    const COM_Scoped milieu(QV_1DMilieu::New());
    milieu->setLength(7.0);
    mFactory->save(mDirectory.file("m.xml"), *milieu);
    const std::string file =
        mDirectory.write("g.xml", replaced(mDirectory.read("m.xml"), "mName=\"13LA_RealVector\"",
                                           "mName=\"9GEO_Point\""));
    const COM_Scoped other(QV_1DMilieu::New());
    const std::string vector = milieu->getCaptors()->getIdentityString();
    EXPECT_EQ(printedBy([&] { mFactory->load(file, *other); }),
              "impossible to create an instance of " + vector + " from class 11QV_1DMilieu.\n");
    EXPECT_EQ(other->getLength(), 7.0);
    EXPECT_EQ(other->getCaptors()->getDimension(), 3UL);
}

TEST_F(QV_ClassFactoryTest, AFileWhoseRootIsAnAbstractClassGivesNull)
{
    const std::string file = mDirectory.write(
        "a.xml", "<MM_PACKAGE mRootMetaClassId=\"x\"><MM_CLASS mId=\"x\" mName=\"10QV_Problem\">"
                 "</MM_CLASS></MM_PACKAGE>");
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(mFactory->load(file), nullptr); }), "");
}
