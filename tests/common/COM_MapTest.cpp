#include "common/COM_Map.h"

#include "common/COM_Scoped.h"
#include "support/TestObject.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Map = COM_Map<std::string, TestObject>;
using Keys = std::vector<std::string>;
using Counts = std::vector<long>;

/// Three objects named a, b, c, held by the fixture, and an owning map.
class COM_MapTest : public testing::Test
{
protected:
    Counts counts() const
    {
        return {mA->getReferenceCount(), mB->getReferenceCount(), mC->getReferenceCount()};
    }

    const COM_Scoped<TestObject> mA{TestObject::New("a")};
    const COM_Scoped<TestObject> mB{TestObject::New("b")};
    const COM_Scoped<TestObject> mC{TestObject::New("c")};
    const COM_Scoped<Map> mMap{Map::New()};
};

} // namespace

TEST_F(COM_MapTest, ANewMapIsEmptyAndOwnsItsValues)
{
    EXPECT_EQ(mMap->getReferenceCount(), 1);
    EXPECT_EQ(mMap->size(), 0UL);
    EXPECT_TRUE(mMap->isObjectsReferenced());
    EXPECT_EQ(mMap->keys(), Keys{});
    EXPECT_EQ(mMap->toString(), "");
    EXPECT_EQ(mMap->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Map"}));
}

TEST_F(COM_MapTest, AStoredValueGetsAReferenceAndIsFoundByItsKey)
{
    mMap->put("x", *mA);
    mMap->put("y", mA.get());
    EXPECT_EQ(mMap->size(), 2UL);
    EXPECT_EQ(mMap->get("x"), mA.get());
    EXPECT_EQ(&(*mMap)["y"], mA.get());
    EXPECT_EQ(mMap->get("z"), nullptr);
    EXPECT_EQ(counts(), (Counts{3, 1, 1}));
}

TEST_F(COM_MapTest, ANullPointerUnderAKnownKeyKeepsTheOldValue)
{
    mMap->put("x", *mA);
    mMap->put("x", nullptr);
    mMap->put("y", nullptr);
    EXPECT_EQ(mMap->get("x"), mA.get());
    EXPECT_EQ(mMap->size(), 1UL);
    EXPECT_EQ(counts(), (Counts{2, 1, 1}));
}

TEST_F(COM_MapTest, ANewValueUnderAKnownKeyTakesThePlaceOfTheOldOne)
{
    mMap->put("x", *mA);
    EXPECT_EQ(tracedBy([this] { mMap->put("x", *mB); }),
              mA->getIdentityString() + " is unreferenced.\n" + mB->getIdentityString()
                  + " is referenced.\n");
    EXPECT_EQ(mMap->get("x"), mB.get());
    EXPECT_EQ(mMap->size(), 1UL);
    EXPECT_EQ(counts(), (Counts{1, 2, 1}));
}

TEST_F(COM_MapTest, AValueStoredAgainIsReleasedAndReferencedLikeAnother)
{
    mMap->put("x", *mA);
    EXPECT_EQ(tracedBy([this] { mMap->put("x", *mA); }),
              mA->getIdentityString() + " is unreferenced.\n" + mA->getIdentityString()
                  + " is referenced.\n");
    EXPECT_EQ(mMap->get("x"), mA.get());
    EXPECT_EQ(counts(), (Counts{2, 1, 1}));
}

TEST_F(COM_MapTest, RemovalReleasesTheValueAndRefusesAnAbsentKey)
{
    mMap->put("x", *mA);
    EXPECT_TRUE(mMap->remove("x"));
    EXPECT_FALSE(mMap->remove("x"));
    EXPECT_EQ(mMap->size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_MapTest, AValueThatTheMapAloneHoldsGoesWithItsEntry)
{
    const int before = TestObject::getLivingNumber();
    {
        const COM_Scoped own(TestObject::New());
        mMap->put("x", *own);
    }
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    mMap->remove("x");
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST_F(COM_MapTest, ClearingReleasesEveryValue)
{
    mMap->put("x", *mA);
    mMap->put("y", *mA);
    mMap->put("z", *mB);
    mMap->clear();
    EXPECT_EQ(mMap->size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_MapTest, ClearingReleasesTheValuesInTheOrderOfTheirKeys)
{
    std::string seen;
    for (const char* key : {"b", "c", "a"}) {
        const COM_Scoped own(TestObject::New());
        own->setFarewell([&seen, key, this] { seen += key + std::to_string(mMap->size()); });
        mMap->put(key, *own);
    }
    mMap->clear();
    EXPECT_EQ(seen, "a2b1c0");
}

TEST_F(COM_MapTest, ADyingMapReleasesEveryValue)
{
    auto* const map = Map::New();
    map->put("x", *mA);
    map->put("y", *mB);
    map->Delete();
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_MapTest, KeysStandInByteOrder)
{
    mMap->put("b", *mA);
    mMap->put("a10", *mA);
    mMap->put("a9", *mA);
    mMap->put("B", *mA);
    mMap->put("", *mA);
    mMap->put("\351", *mA);
    EXPECT_EQ(mMap->keys(), (Keys{"", "B", "a10", "a9", "b", "\351"}));
}

TEST_F(COM_MapTest, ValuesReplaceWhatTheArrayHeldInTheOrderOfTheKeys)
{
    const COM_Scoped values(COM_Array<TestObject>::New());
    values->add(*mC);
    values->add(*mC);
    values->add(*mC);
    mMap->put("2", *mA);
    mMap->put("1", *mB);
    mMap->values(*values);
    EXPECT_EQ(values->toString(), "0:b\n1:a\n");
    EXPECT_EQ(counts(), (Counts{3, 3, 1}));
}

TEST_F(COM_MapTest, ValuesOfAMapWithoutEntriesLeaveTheArrayEmpty)
{
    const COM_Scoped values(COM_Array<TestObject>::New());
    values->add(*mA);
    mMap->values(*values);
    EXPECT_EQ(values->size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_MapTest, TheTextShowsRunningNumbersAndNotKeys)
{
    mMap->put("17", *mA);
    mMap->put("05", *mB);
    EXPECT_EQ(mMap->toString(), "0:b\n1:a\n");
}

TEST_F(COM_MapTest, TheTextMayShowIdentities)
{
    mMap->put("17", *mA);
    mMap->put("05", *mB);
    EXPECT_EQ(mMap->toIdentityString(),
              "0:" + mB->getIdentityString() + "\n1:" + mA->getIdentityString() + "\n");
}

TEST_F(COM_MapTest, AViewLeavesEveryCountUntouched)
{
    auto* const view = Map::New(false);
    EXPECT_FALSE(view->isObjectsReferenced());
    view->put("x", *mA);
    view->put("x", *mB);
    view->put("y", *mC);
    EXPECT_TRUE(view->remove("y"));
    EXPECT_EQ(view->get("x"), mB.get());
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
    view->clear();
    view->put("z", *mC);
    view->Delete();
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_MapTest, ACopyReferencesItsValuesAnew)
{
    mMap->put("x", *mA);
    mMap->put("y", *mB);
    {
        const COM_Scoped copy(Map::New(*mMap));
        EXPECT_EQ(copy->toString(), "0:a\n1:b\n");
        EXPECT_TRUE(copy->isObjectsReferenced());
        EXPECT_EQ(copy->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Map"}));
        EXPECT_EQ(counts(), (Counts{3, 3, 1}));
        copy->remove("x");
        EXPECT_EQ(mMap->size(), 2UL);
    }
    EXPECT_EQ(counts(), (Counts{2, 2, 1}));
}

TEST_F(COM_MapTest, ACopyOfAViewIsAView)
{
    const COM_Scoped view(Map::New(false));
    view->put("x", *mA);
    const COM_Scoped copy(Map::New(*view));
    EXPECT_FALSE(copy->isObjectsReferenced());
    EXPECT_EQ(copy->get("x"), mA.get());
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_MapTest, MergingPutsEachEntryOfTheOtherMap)
{
    const COM_Scoped other(Map::New());
    other->put("x", *mB);
    other->put("z", *mC);
    mMap->put("x", *mA);
    mMap->put("y", *mA);
    mMap->merge(*other);
    EXPECT_EQ(mMap->keys(), (Keys{"x", "y", "z"}));
    EXPECT_EQ(mMap->toString(), "0:b\n1:a\n2:c\n");
    EXPECT_EQ(counts(), (Counts{2, 3, 3}));
}

TEST_F(COM_MapTest, AMapMergedIntoItselfStaysAsItIs)
{
    {
        const COM_Scoped own(TestObject::New("own"));
        mMap->put("x", *own);
    }
    mMap->merge(*mMap);
    EXPECT_EQ(mMap->toString(), "0:own\n");
    EXPECT_EQ((*mMap)["x"].getReferenceCount(), 1);
}

TEST_F(COM_MapTest, AnEntryHasLeftTheMapWhenItsValueGoes)
{
    TestObject* seen = mA.get();
    {
        const COM_Scoped own(TestObject::New());
        own->setFarewell([&] { seen = mMap->get("x"); });
        mMap->put("x", *own);
    }
    mMap->put("x", *mB);
    EXPECT_EQ(seen, nullptr);
    EXPECT_EQ(mMap->get("x"), mB.get());
}

TEST_F(COM_MapTest, TheArrayIsEmptiedBeforeItTakesTheValues)
{
    const COM_Scoped values(COM_Array<TestObject>::New());
    unsigned long seen = 99;
    {
        const COM_Scoped own(TestObject::New());
        own->setFarewell([&] { seen = mA->getReferenceCount(); });
        values->add(*mB);
        values->add(*own);
    }
    mMap->put("1", *mA);
    mMap->put("2", *mB);
    mMap->values(*values);
    // Nobody but the fixture and the map held it then.
    EXPECT_EQ(seen, 2UL);
    EXPECT_EQ(values->toString(), "0:a\n1:b\n");
}

/// The other types of keys, in ascending order of their values.
template <typename K>
class COM_MapKeysTest : public testing::Test
{};
using NumberKeys = testing::Types<unsigned long, long, int, unsigned char>;
TYPED_TEST_SUITE(COM_MapKeysTest, NumberKeys);

TYPED_TEST(COM_MapKeysTest, KeysStandInTheOrderOfTheirValues)
{
    using Numbered = COM_Map<TypeParam, TestObject>;
    const COM_Scoped map(Numbered::New());
    const COM_Scoped object(TestObject::New());
    for (const int key : {200, 9, 10}) {
        map->put(static_cast<TypeParam>(key), *object);
    }
    EXPECT_EQ(map->keys(), (std::vector<TypeParam>{9, 10, 200}));
    EXPECT_EQ(map->get(TypeParam{10}), object.get());
    EXPECT_TRUE(map->remove(TypeParam{10}));
    EXPECT_EQ(map->get(TypeParam{10}), nullptr);
    EXPECT_EQ(object->getReferenceCount(), 3);
}
