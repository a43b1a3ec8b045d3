#include "geometry/GEO_Numbers.h"

#include "common/COM_Scoped.h"
#include "geometry/GEO_Point.h"

#include <gtest/gtest.h>

#include <limits>
#include <map>
#include <random>

namespace {

TEST(GEO_Numbers, AFreeNumberHasNoObject)
{
    const COM_Scoped numbers(GEO_Numbers<GEO_Point>::New());
    for (const unsigned long number : {0UL, 1UL, 64UL, std::numeric_limits<unsigned long>::max()}) {
        EXPECT_EQ(numbers->get(number), nullptr);
        numbers->remove(number);
        EXPECT_EQ(numbers->get(number), nullptr);
    }
}

TEST(GEO_Numbers, CountsNothing)
{
    const COM_Scoped numbers(GEO_Numbers<GEO_Point>::New());
    const COM_Scoped point(GEO_Point::New());
    numbers->put(3, *point);
    EXPECT_EQ(point->getReferenceCount(), 1);
    numbers->remove(3);
    EXPECT_EQ(point->getReferenceCount(), 1);
}

TEST(GEO_Numbers, TheLastObjectPutHasTheNumber)
{
    const COM_Scoped numbers(GEO_Numbers<GEO_Point>::New());
    const COM_Scoped first(GEO_Point::New());
    const COM_Scoped second(GEO_Point::New());
    numbers->put(5, *first);
    numbers->put(5, *second);
    EXPECT_EQ(numbers->get(5), second.get());
    numbers->remove(5);
    EXPECT_EQ(numbers->get(5), nullptr);
    numbers->put(5, *first);
    EXPECT_EQ(numbers->get(5), first.get());
}

TEST(GEO_Numbers, AnyOrderOfPutsAndRemovalsGivesWhatAMapGives)
{
    const COM_Scoped numbers(GEO_Numbers<GEO_Point>::New());
    const COM_Scoped a(GEO_Point::New());
    const COM_Scoped b(GEO_Point::New());
    std::map<unsigned long, GEO_Point*> map;
    std::mt19937 random(20);
    // Pages that are next to one another, and pages far away, which fill and get empty again.
    const auto anyNumber = [&random] {
        const unsigned long first = random() % 2 == 0 ? 0 : 1UL << 40;
        return first + random() % 200;
    };
    for (int i = 0; i < 20000; ++i) {
        const unsigned long number = anyNumber();
        if (random() % 2 == 0) {
            GEO_Point* const point = random() % 2 == 0 ? a.get() : b.get();
            numbers->put(number, *point);
            map[number] = point;
        } else {
            numbers->remove(number);
            map.erase(number);
        }
        const unsigned long other = anyNumber();
        const auto entry = map.find(other);
        ASSERT_EQ(numbers->get(other), entry == map.end() ? nullptr : entry->second) << i;
    }
    for (const auto& [number, point] : map) {
        EXPECT_EQ(numbers->get(number), point) << number;
    }
}

} // namespace
