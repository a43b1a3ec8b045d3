#include "gui/GUI_ClassFactory.h"

#include "support/FactoryNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class GUI_ClassFactoryNameTest : public FactoryNameTest
{};

} // namespace

TEST(GUI_ClassFactory, TheFactoryStandsOnThatOfTheMetaModel)
{
    const COM_Scoped factory(GUI_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(factory->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory",
                                        "GUI_ClassFactory"}));
}

TEST_P(GUI_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<GUI_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, GUI_ClassFactoryNameTest,
    testing::Values(FactoryName{"16GUI_ClassFactory", "16GUI_ClassFactory"},
                    FactoryName{"xxGUI_ClassFactory7", "16GUI_ClassFactory"},
                    FactoryName{"MM_ClassFactoryGUI_ClassFactory", "16GUI_ClassFactory"},
                    FactoryName{"15MM_ClassFactory", "15MM_ClassFactory"},
                    FactoryName{"8MM_Class", "8MM_Class"}, FactoryName{"8MM_Field", "8MM_Field"},
                    FactoryName{"8MM_Value", "8MM_Value"}, FactoryName{"13LA_RealMatrix", nullptr},
                    FactoryName{"15GUI_Application", nullptr}, FactoryName{"", nullptr}),
    [](const testing::TestParamInfo<FactoryName>& row) { return caseName(row.param.mName); });
