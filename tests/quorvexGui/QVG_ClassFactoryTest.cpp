#include "quorvexGui/QVG_ClassFactory.h"

#include "support/FactoryNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class QVG_ClassFactoryNameTest : public FactoryNameTest
{};

} // namespace

TEST(QVG_ClassFactory, TheFactoryStandsOnThatOfTheMetaModel)
{
    const COM_Scoped factory(QVG_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(factory->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory",
                                        "QVG_ClassFactory"}));
}

TEST_P(QVG_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<QVG_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, QVG_ClassFactoryNameTest,
    testing::Values(FactoryName{"16QVG_ClassFactory", "16QVG_ClassFactory"},
                    FactoryName{"xxQVG_ClassFactory7", "16QVG_ClassFactory"},
                    FactoryName{"8MM_Class", "8MM_Class"},
                    FactoryName{"MM_ClassFactoryQVG_ClassFactory", "16QVG_ClassFactory"},
                    FactoryName{"15MM_ClassFactory", "15MM_ClassFactory"},
                    FactoryName{"14QVG_MainWindow", nullptr},
                    FactoryName{"13LA_RealMatrix", nullptr},
                    FactoryName{"QVG_ClassFactor", nullptr}, FactoryName{"", nullptr}),
    [](const auto& row) { return caseName(row.param.mName); });
