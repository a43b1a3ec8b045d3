#include "quorvex/QV_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "metaModel/MM_Class.h"
#include "quorvex/QV_1DMilieu.h"
#include "quorvex/QV_1DProblem.h"
#include "quorvex/QV_Bloch.h"
#include "quorvex/QV_Field.h"
#include "quorvex/QV_IncidentFields.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace {

using Names = std::vector<std::string>;
using Parts = std::map<std::string, std::vector<const COM_Object*>>;

/// What a system of atoms holds, by the keys under which it is saved.
Parts partsOf(const QV_Bloch& bloch)
{
    Parts parts{{"mExpA", {bloch.getPopulationPropagator()}},
                {"mInitialDensity", {QV_Bloch::getInitialDensity()}},
                {"mOmega", {bloch.getLevelsFrequency()}},
                {"mOmegaAdim", {bloch.getLevelsFrequencyAdim()}},
                {"mProblem", {bloch.getProblem()}},
                {"mRelaxDiag", {bloch.getPopulationRelaxation()}},
                {"mRelaxNut", {bloch.getCoherenceRelaxation()}},
                {"mRhoE", {QV_Bloch::getEquilibriumDensity()}},
                {"mW", {QV_Bloch::getLongitudinalRelaxation()}},
                {"mWAdim", {bloch.getLongitudinalRelaxationAdim()}}};
    const auto add = [&parts](const char* key, const auto& array) {
        parts[key] = {};
        for (unsigned long i = 0; i < array.size(); ++i) {
            if (array.get(i) != nullptr) {
                parts[key].push_back(array.get(i));
            }
        }
    };
    add("mDensities", *bloch.getDensities());
    add("mPPower", *bloch.getPolarizationsPower());
    add("mPs", *QV_Bloch::getPolarizations());
    add("mPsAdim", *bloch.getPolarizationsAdim());
    return parts;
}

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

TEST_F(QV_ClassFactoryTest, WhatASystemHoldsAfterARunIsWrittenUnderItsKeysAndComesBackFromThem)
{
    TestProblem problem;
    ASSERT_EQ(problem.run(), 0);
    const std::string file = mDirectory.file("p.xml");
    mFactory->save(file, *problem);
    const MM_Class* const node = mFactory->getFromMetaClasses(problem.bloch().getIdentityString());
    ASSERT_NE(node, nullptr);
    std::map<std::string, Names> texts;
    for (const auto& [key, objects] : partsOf(problem.bloch())) {
        Names identities;
        for (const COM_Object* object : objects) {
            ASSERT_NE(object, nullptr) << key;
            identities.push_back(object->getIdentityString());
            texts[key].push_back(object->toString());
        }
        ASSERT_NE(node->getFromMetaFields(key), nullptr) << key;
        Names written;
        node->getFromMetaFields(key)->getFromMetaValues(written);
        EXPECT_EQ(written, identities) << key;
        EXPECT_FALSE(written.empty()) << key;
    }
    // Matrices that are alike could be taken for one another.
    EXPECT_NE(texts["mExpA"], texts["mRelaxDiag"]);
    EXPECT_NE(texts["mExpA"], texts["mWAdim"]);
    EXPECT_NE(texts["mW"], texts["mWAdim"]);
    EXPECT_NE(texts["mRelaxDiag"], texts["mWAdim"]);
    EXPECT_NE(texts["mOmega"], texts["mOmegaAdim"]);
    EXPECT_NE(texts["mPs"], texts["mPsAdim"]);
    EXPECT_NE(texts["mPPower"], texts["mPsAdim"]);

    const COM_Scoped restored(QV_1DProblem::New());
    printedBy([&] { COM_Scoped(QV_ClassFactory::New())->load(file, *restored); });
    ASSERT_EQ(restored->getBlochEquations()->size(), 1UL);
    for (const auto& [key, objects] : partsOf((*restored->getBlochEquations())[0])) {
        if (key == "mProblem") {
            EXPECT_EQ(objects[0], static_cast<const COM_Object*>(restored.get()));
            continue;
        }
        Names read;
        for (const COM_Object* object : objects) {
            ASSERT_NE(object, nullptr) << key;
            read.push_back(object->toString());
        }
        EXPECT_EQ(read, texts[key]) << key;
    }
}

TEST_F(QV_ClassFactoryTest, AnyObjectOfAProblemMayBeTheRootOfAFile)
{
    {
        TestProblem problem;
        problem.addSystem();
        problem.setNodes(5);
        printedBy([&] { problem->initialize(); });
        mFactory->save(mDirectory.file("p.xml"), *problem);
    }
    const std::string whole = mDirectory.read("p.xml");
    const COM_Scoped nodes(COM_Array<MM_Class>::New());
    mFactory->getMetaClasses(*nodes);
    const std::string root = mFactory->getRootMetaClass()->getId();
    for (unsigned long i = 0; i < nodes->size(); ++i) {
        const std::string id = (*nodes)[i].getId();
        const std::string file =
            mDirectory.write("other" + std::to_string(i) + ".xml",
                             replaced(whole, "mRootMetaClassId=\"" + root + "\"",
                                      "mRootMetaClassId=\"" + id + "\""));
        const std::string printed = printedBy([&] {
            const COM_Scoped factory(QV_ClassFactory::New());
            const COM_Scoped object(factory->load(file));
            ASSERT_TRUE(object) << id;
            EXPECT_EQ(object->getClassName(), (*nodes)[i].getName());
        });
        EXPECT_EQ(printed.find("Trying to delete"), std::string::npos) << printed;
    }
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
