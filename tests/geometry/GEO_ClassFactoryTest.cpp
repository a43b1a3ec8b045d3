#include "geometry/GEO_ClassFactory.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Box.h"
#include "geometry/GEO_Point.h"
#include "support/FactoryNames.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class GEO_ClassFactoryNameTest : public FactoryNameTest
{};

} // namespace

TEST(GEO_ClassFactory, TheFactoryStandsOnThatOfVectorsAndMatrices)
{
    const COM_Scoped factory(GEO_ClassFactory::New());
    EXPECT_EQ(factory->getReferenceCount(), 1);
    EXPECT_EQ(factory->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Package", "MM_ClassFactory",
                                        "LA_ClassFactory", "GEO_ClassFactory"}));
}

TEST_P(GEO_ClassFactoryNameTest, ANameMakesTheFirstClassThatItContains)
{
    expectMade<GEO_ClassFactory>();
}

INSTANTIATE_TEST_SUITE_P(
    Table, GEO_ClassFactoryNameTest,
    testing::Values(
        FactoryName{"16GEO_ClassFactory", "16GEO_ClassFactory"},
        FactoryName{"7GEO_Box", "7GEO_Box"}, FactoryName{"9GEO_Point", "9GEO_Point"},
        FactoryName{"xxGEO_Box7", "7GEO_Box"},
        // The order: the factory itself, the box, the point, then the factories beneath.
        FactoryName{"GEO_PointGEO_BoxGEO_ClassFactory", "16GEO_ClassFactory"},
        FactoryName{"GEO_PointGEO_Box", "7GEO_Box"},
        FactoryName{"LA_ClassFactoryGEO_Point", "9GEO_Point"},
        FactoryName{"MM_ClassGEO_Box", "7GEO_Box"},
        FactoryName{"LA_RealVectorMM_Class", "13LA_RealVector"},
        FactoryName{"15LA_ClassFactory", "15LA_ClassFactory"},
        FactoryName{"13LA_RealMatrix", "13LA_RealMatrix"},
        FactoryName{"13LA_RealVector", "13LA_RealVector"}, FactoryName{"8MM_Class", "8MM_Class"},
        FactoryName{"15MM_ClassFactory", "15MM_ClassFactory"}, FactoryName{"10GEO_Vertex", nullptr},
        FactoryName{"8GEO_Line", nullptr}, FactoryName{"10GEO_Object", nullptr},
        FactoryName{"GEO_", nullptr}, FactoryName{"", nullptr}));

TEST(GEO_ClassFactory, APointIsMadeAsTheOriginOfThePlane)
{
    const COM_Scoped factory(GEO_ClassFactory::New());
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    const COM_Scoped object(factory->NewInstance("9GEO_Point", *parameters));
    ASSERT_TRUE(object);
    EXPECT_EQ(object->toString(), "(0.000000e+00,0.000000e+00)");
}

TEST(GEO_ClassFactory, TheFactoryBeneathKnowsNoPoints)
{
    const COM_Scoped factory(LA_ClassFactory::New());
    const COM_Scoped parameters(COM_Array<MM_Object>::New());
    EXPECT_EQ(factory->NewInstance("9GEO_Point", *parameters), nullptr);
    EXPECT_EQ(factory->NewInstance("7GEO_Box", *parameters), nullptr);
}

TEST(GEO_ClassFactory, ASavedPointComesBackAsAPoint)
{
    const TestDirectory directory;
    const COM_Scoped point(GEO_Point::New(1.0, -0.25, 3.0));
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("point"), *point);
    const COM_Scoped factory(GEO_ClassFactory::New());
    const COM_Scoped object(factory->load(directory.file("point")));
    ASSERT_NE(dynamic_cast<GEO_Point*>(object.get()), nullptr);
    EXPECT_EQ(object->toString(), point->toString());
}

TEST(GEO_ClassFactory, ABoxReadByAFactoryThatKnowsNoPointsKeepsThoseItHas)
{
    const TestDirectory directory;
    const COM_Scoped p(GEO_Point::New(1.0, 2.0, 3.0));
    const COM_Scoped saved(GEO_Box::New(*p));
    COM_Scoped(GEO_ClassFactory::New())->save(directory.file("box"), *saved);
    const COM_Scoped box(GEO_Box::New());
    const COM_Scoped factory(LA_ClassFactory::New());
    const std::string printed = printedBy([&] { factory->load(directory.file("box"), *box); });
    const auto message = [](const GEO_Point& point) {
        return "impossible to create an instance of " + point.getIdentityString()
               + " from class 7GEO_Box.\n";
    };
    EXPECT_EQ(printed, message(*saved->getMinPoint()) + message(*saved->getMaxPoint()));
    EXPECT_EQ(box->toString(), " Min:(0.000000e+00,0.000000e+00,0.000000e+00)\n"
                               " Max:(0.000000e+00,0.000000e+00,0.000000e+00)\n");
}
