#include "gui2d/GUI2D_ClassFactory.h"

#include "support/FactoryNames.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class GUI2D_ClassFactoryNameTest : public FactoryNameTest
{};

} // namespace

TEST(GUI2D_ClassFactory, TheFactoryStandsOnThatOfTheGeometry)
{
    const COM_Scoped factory(GUI2D_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(
        factory->getTypes(),
        (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory",
                                  "LA_ClassFactory", "GEO_ClassFactory", "GUI2D_ClassFactory"}));
}

TEST_P(GUI2D_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<GUI2D_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, GUI2D_ClassFactoryNameTest,
    testing::Values(FactoryName{"18GUI2D_ClassFactory", "18GUI2D_ClassFactory"},
                    FactoryName{"13GUI2D_Plotter", "13GUI2D_Plotter"},
                    FactoryName{"11GUI2D_Curve", "11GUI2D_Curve"},
                    FactoryName{"xxGUI2D_Curve7", "11GUI2D_Curve"},
                    FactoryName{"GUI2D_CurveGUI2D_Plotter", "13GUI2D_Plotter"},
                    FactoryName{"GUI2D_PlotterGUI2D_ClassFactory", "18GUI2D_ClassFactory"},
                    FactoryName{"GEO_ClassFactoryGUI2D_Curve", "11GUI2D_Curve"},
                    FactoryName{"16GEO_ClassFactory", "16GEO_ClassFactory"},
                    FactoryName{"7GEO_Box", "7GEO_Box"}, FactoryName{"9GEO_Point", "9GEO_Point"},
                    FactoryName{"13LA_RealMatrix", "13LA_RealMatrix"},
                    FactoryName{"13LA_RealVector", "13LA_RealVector"},
                    FactoryName{"8MM_Class", "8MM_Class"}, FactoryName{"13GUI2D_Polygon", nullptr},
                    FactoryName{"15GUI2D_DrawPanel", nullptr}, FactoryName{"", nullptr}),
    [](const testing::TestParamInfo<FactoryName>& row) { return caseName(row.param.mName); });
