#include "linearAlgebra/LA_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/FactoryNames.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

class LA_ClassFactoryNameTest : public FactoryNameTest
{};

} // namespace

TEST(LA_ClassFactory, TheFactoryStandsOnThatOfTheMetaModel)
{
    const COM_Scoped factory(LA_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(factory->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory",
                                        "LA_ClassFactory"}));
}

TEST_P(LA_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<LA_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, LA_ClassFactoryNameTest,
    testing::Values(
        FactoryName{"15LA_ClassFactory", "15LA_ClassFactory", nullptr},
        FactoryName{"13LA_RealMatrix", "13LA_RealMatrix", "0.000000e+00\t\n"},
        FactoryName{"16LA_ComplexMatrix", "16LA_ComplexMatrix", "(0.000000e+00,0.000000e+00)\t\n"},
        FactoryName{"16LA_IntegerMatrix", "16LA_IntegerMatrix", "0\t\n"},
        FactoryName{"16LA_IntegerVector", "16LA_IntegerVector", "(0)"},
        FactoryName{"16LA_ComplexVector", "16LA_ComplexVector", "((0.000000e+00,0.000000e+00))\n"},
        FactoryName{"13LA_RealVector", "13LA_RealVector", "(0.000000e+00)"},
        FactoryName{"xxLA_RealVector7", "13LA_RealVector", nullptr},
        // The order of the list: of each pair the second name comes first.
        FactoryName{"LA_RealVectorLA_ComplexVector", "16LA_ComplexVector", nullptr},
        FactoryName{"LA_ComplexVectorLA_IntegerVector", "16LA_IntegerVector", nullptr},
        FactoryName{"LA_IntegerVectorLA_IntegerMatrix", "16LA_IntegerMatrix", nullptr},
        FactoryName{"LA_IntegerMatrixLA_ComplexMatrix", "16LA_ComplexMatrix", nullptr},
        FactoryName{"LA_ComplexMatrixLA_RealMatrix", "13LA_RealMatrix", nullptr},
        FactoryName{"LA_RealMatrixLA_ClassFactory", "15LA_ClassFactory", nullptr},
        FactoryName{"MM_ValueLA_RealVector", "13LA_RealVector", nullptr},
        FactoryName{"8MM_Class", "8MM_Class", nullptr},
        FactoryName{"8MM_Value", "8MM_Value", nullptr},
        FactoryName{"15MM_ClassFactory", "15MM_ClassFactory", nullptr},
        FactoryName{"9LA_Object", nullptr}, FactoryName{"9LA_Vector", nullptr},
        FactoryName{"8LA_Block", nullptr}, FactoryName{"", nullptr}));

TEST(LA_ClassFactory, TheFactoryOfTheMetaModelKnowsNoVectors)
{
    const COM_Scoped factory(MM_ClassFactory::New());
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    EXPECT_EQ(factory->NewInstance("13LA_RealVector", *parameters), nullptr);
}

TEST(LA_ClassFactory, AVectorIsWrittenToTheByte)
{
    const TestDirectory directory;
    const COM_Scoped v(LA_RealVector::New(2));
    v->setValue(1, 0.5);
    COM_Scoped(LA_ClassFactory::New())->save(directory.file("file"), *v);
    const std::string id = "13LA_RealVector@" + std::to_string(v->getIdentityNumber());
    EXPECT_EQ(directory.read("file"), "\n<MM_PACKAGE mRootMetaClassId=\"" + id
                                          + "\">"
                                            "\n\t<MM_CLASS mId=\""
                                          + id
                                          + "\" mName=\"13LA_RealVector\">"
                                            "\n\t\t<MM_FIELD mName=\"mDimension\">"
                                            "\n\t\t\t<MM_VALUE>2</MM_VALUE>"
                                            "\n\t\t</MM_FIELD>"
                                            "\n\t\t<MM_FIELD mName=\"mValues\">"
                                            "\n\t\t\t<MM_VALUE>0.000000e+00</MM_VALUE>"
                                            "\n\t\t\t<MM_VALUE>5.000000e-01</MM_VALUE>"
                                            "\n\t\t</MM_FIELD>"
                                            "\n\t</MM_CLASS>"
                                            "\n</MM_PACKAGE>");
}

TEST(LA_ClassFactory, AnyByteSpoiledInAFileDoesNoHarm)
{
    const TestDirectory directory;
    const COM_Scoped v(LA_RealVector::New(3));
    const COM_Scoped factory(LA_ClassFactory::New());
    factory->save(directory.file("whole"), *v);
    const std::string whole = directory.read("whole");
    int loaded = 0;
    printedBy([&] {
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::string spoiled = whole;
            spoiled[i] = '9';
            // A fresh file for each text: one that is cut and filled again has to reach the disk.
            std::filesystem::remove(directory.file("file"));
            const COM_Scoped object(factory->load(directory.write("file", spoiled)));
            loaded += object ? 1 : 0;
        }
    });
    EXPECT_GT(loaded, 0);
    EXPECT_LT(loaded, static_cast<int>(whole.size()));
}
