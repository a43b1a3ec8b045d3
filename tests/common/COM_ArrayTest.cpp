#include "common/COM_Array.h"

#include "common/COM_Scoped.h"
#include "support/TestObject.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Array = COM_Array<TestObject>;

/// Three objects named a, b, c, held by the fixture, and an owning array.
class COM_ArrayTest : public testing::Test
{
protected:
    std::vector<long> counts() const
    {
        return {mA->getReferenceCount(), mB->getReferenceCount(), mC->getReferenceCount()};
    }
    /// The slots as a text, "-" for an empty one.
    static std::string slots(const Array& array)
    {
        std::string text;
        for (unsigned long i = 0; i < array.size(); ++i) {
            text += array.get(i) == nullptr ? "-" : array.get(i)->toString();
        }
        return text;
    }
    void fill(Array& array) const
    {
        array.add(*mA);
        array.add(*mB);
        array.add(*mC);
    }

    const COM_Scoped<TestObject> mA{TestObject::New("a")};
    const COM_Scoped<TestObject> mB{TestObject::New("b")};
    const COM_Scoped<TestObject> mC{TestObject::New("c")};
    const COM_Scoped<Array> mArray{Array::New()};
};

using Counts = std::vector<long>;

} // namespace

TEST_F(COM_ArrayTest, ANewArrayIsEmptyAndOwnsItsElements)
{
    EXPECT_EQ(mArray->getReferenceCount(), 1);
    EXPECT_EQ(mArray->size(), 0UL);
    EXPECT_EQ(mArray->getSize(), 0UL);
    EXPECT_TRUE(mArray->isObjectsReferenced());
    EXPECT_EQ(mArray->toString(), "");
    EXPECT_EQ(mArray->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Array"}));
}

TEST_F(COM_ArrayTest, AnAddedObjectGetsAReferenceAndMayStandTwice)
{
    mArray->add(*mA);
    mArray->add(mB.get());
    mArray->add(mA.get());
    EXPECT_EQ(slots(*mArray), "aba");
    EXPECT_EQ(counts(), (Counts{3, 2, 1}));
    EXPECT_EQ(mArray->get(1), mB.get());
    EXPECT_EQ(&(*mArray)[2], mA.get());
}

TEST_F(COM_ArrayTest, AddingANullPointerLeavesTheSizeAsItWas)
{
    mArray->add(*mA);
    mArray->add(nullptr);
    EXPECT_EQ(mArray->size(), 1UL);
}

TEST_F(COM_ArrayTest, SettingANullBeyondTheEndGrowsTheArrayByEmptySlots)
{
    EXPECT_TRUE(mArray->set(5, nullptr));
    EXPECT_EQ(slots(*mArray), "------");
}

TEST_F(COM_ArrayTest, SettingAnObjectBeyondTheEndGrowsTheArrayUpToIt)
{
    EXPECT_TRUE(mArray->set(2, *mA));
    EXPECT_EQ(slots(*mArray), "--a");
    EXPECT_EQ(counts(), (Counts{2, 1, 1}));
}

TEST_F(COM_ArrayTest, SettingASlotReleasesTheOldElementAndReferencesTheNew)
{
    fill(*mArray);
    EXPECT_TRUE(mArray->set(1, mA.get()));
    EXPECT_EQ(slots(*mArray), "aac");
    EXPECT_EQ(counts(), (Counts{3, 1, 2}));
    EXPECT_TRUE(mArray->set(1, nullptr));
    EXPECT_EQ(slots(*mArray), "a-c");
    EXPECT_EQ(counts(), (Counts{2, 1, 2}));
}

TEST_F(COM_ArrayTest, TheOldElementIsReleasedBeforeTheNewOneIsReferenced)
{
    mArray->add(*mA);
    EXPECT_EQ(tracedBy([this] { mArray->set(0, *mB); }),
              mA->getIdentityString() + " is unreferenced.\n" + mB->getIdentityString()
                  + " is referenced.\n");
}

TEST_F(COM_ArrayTest, AnObjectSetAgainIsReleasedAndReferencedLikeAnother)
{
    mArray->add(*mA);
    EXPECT_EQ(tracedBy([this] { mArray->set(0, *mA); }),
              mA->getIdentityString() + " is unreferenced.\n" + mA->getIdentityString()
                  + " is referenced.\n");
    EXPECT_EQ(slots(*mArray), "a");
    EXPECT_EQ(counts(), (Counts{2, 1, 1}));
}

TEST_F(COM_ArrayTest, AnElementThatTheArrayAloneHoldsGoesWhenItsSlotIsSet)
{
    const int before = TestObject::getLivingNumber();
    {
        const COM_Scoped object(TestObject::New());
        mArray->add(*object);
    }
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    mArray->set(0, *mA);
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST_F(COM_ArrayTest, InsertionShiftsTheTailAndMayStandAtTheEnd)
{
    EXPECT_TRUE(mArray->insert(0, *mA));
    EXPECT_TRUE(mArray->insert(0, mB.get()));
    EXPECT_TRUE(mArray->insert(1, nullptr));
    EXPECT_TRUE(mArray->insert(3, *mC));
    EXPECT_EQ(slots(*mArray), "b-ac");
    EXPECT_EQ(counts(), (Counts{2, 2, 2}));
}

TEST_F(COM_ArrayTest, AnObjectIsFoundByItsPointerAlone)
{
    const COM_Scoped twin(TestObject::New("a"));
    mArray->add(*mA);
    EXPECT_TRUE(mArray->exists(*mA));
    EXPECT_TRUE(mArray->exists(mA.get()));
    EXPECT_FALSE(mArray->exists(*twin));
    EXPECT_FALSE(mArray->exists(nullptr));
    mArray->set(1, nullptr);
    EXPECT_TRUE(mArray->exists(nullptr));
}

TEST_F(COM_ArrayTest, RemoveEmptiesEverySlotOfTheObjectAndReleasesEachReference)
{
    fill(*mArray);
    mArray->insert(0, *mB);
    mArray->add(*mB);
    EXPECT_EQ(counts(), (Counts{2, 4, 2}));
    EXPECT_TRUE(mArray->remove(mB.get()));
    EXPECT_EQ(slots(*mArray), "ac");
    EXPECT_EQ(counts(), (Counts{2, 1, 2}));
}

TEST_F(COM_ArrayTest, TheArrayGuardsAnObjectWhileItLeavesItsSlots)
{
    mArray->add(*mA);
    mArray->add(*mA);
    const COM_Scoped view(Array::New(false));
    view->add(*mA);
    const std::string printed = tracedBy([this, &view] {
        mArray->remove(*mA);
        mArray->remove(*mB);
        view->remove(*mA);
    });
    const std::string a = mA->getIdentityString();
    const std::string b = mB->getIdentityString();
    EXPECT_EQ(printed, a + " is referenced.\n" + a + " is unreferenced.\n" + a
                           + " is unreferenced.\n" + a + " is unreferenced.\n" + b
                           + " is referenced.\n" + b + " is unreferenced.\n");
}

TEST_F(COM_ArrayTest, RemovingAnAbsentObjectOrANullIsRefused)
{
    mArray->add(*mA);
    mArray->set(1, nullptr);
    EXPECT_FALSE(mArray->remove(*mB));
    EXPECT_FALSE(mArray->remove(static_cast<TestObject*>(nullptr)));
    EXPECT_EQ(slots(*mArray), "a-");
    EXPECT_EQ(counts(), (Counts{2, 1, 1}));
}

TEST_F(COM_ArrayTest, AnObjectThatTheArrayAloneHoldsMayGoOnceItHasLeftAllItsSlots)
{
    const int before = TestObject::getLivingNumber();
    auto* const object = TestObject::New();
    mArray->add(*object);
    mArray->add(*object);
    object->Delete();
    EXPECT_TRUE(mArray->remove(*object));
    EXPECT_EQ(mArray->size(), 0UL);
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST_F(COM_ArrayTest, RemovalByIndexShiftsTheTailDown)
{
    fill(*mArray);
    EXPECT_TRUE(mArray->remove(1UL));
    EXPECT_EQ(slots(*mArray), "ac");
    EXPECT_EQ(counts(), (Counts{2, 1, 2}));
    mArray->set(1, nullptr);
    EXPECT_TRUE(mArray->remove(1UL));
    EXPECT_EQ(slots(*mArray), "a");
}

TEST_F(COM_ArrayTest, RemovalByAnIndexPastTheEndIsRefused)
{
    fill(*mArray);
    EXPECT_FALSE(mArray->remove(3UL));
    EXPECT_FALSE(mArray->remove(~0UL));
    EXPECT_EQ(slots(*mArray), "abc");
}

TEST_F(COM_ArrayTest, RemovalWithoutArgumentTakesTheLastSlot)
{
    fill(*mArray);
    EXPECT_TRUE(mArray->remove());
    EXPECT_EQ(slots(*mArray), "ab");
    EXPECT_EQ(counts(), (Counts{2, 2, 1}));
    EXPECT_TRUE(mArray->remove());
    EXPECT_TRUE(mArray->remove());
    EXPECT_FALSE(mArray->remove());
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_ArrayTest, ASmallerSizeReleasesWhatIsCutOffAndALargerOneAddsEmptySlots)
{
    fill(*mArray);
    mArray->setSize(1);
    EXPECT_EQ(slots(*mArray), "a");
    EXPECT_EQ(counts(), (Counts{2, 1, 1}));
    mArray->setSize(3);
    EXPECT_EQ(slots(*mArray), "a--");
    mArray->setSize(0);
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_ArrayTest, WhatIsCutOffIsReleasedFromTheFirstToTheLast)
{
    fill(*mArray);
    EXPECT_EQ(tracedBy([this] { mArray->setSize(1); }),
              mB->getIdentityString() + " is unreferenced.\n" + mC->getIdentityString()
                  + " is unreferenced.\n");
}

TEST_F(COM_ArrayTest, ClearingReleasesAllElements)
{
    fill(*mArray);
    mArray->clear();
    EXPECT_EQ(mArray->size(), 0UL);
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_ArrayTest, ADyingArrayReleasesAllItsElements)
{
    const int before = TestObject::getLivingNumber();
    auto* const array = Array::New();
    fill(*array);
    {
        const COM_Scoped own(TestObject::New());
        array->add(*own);
    }
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    array->Delete();
    EXPECT_EQ(TestObject::getLivingNumber(), before);
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_ArrayTest, AViewLeavesEveryCountUntouched)
{
    auto* const view = Array::New(false);
    EXPECT_FALSE(view->isObjectsReferenced());
    fill(*view);
    view->set(0, *mB);
    view->set(4, *mA);
    view->insert(1, *mC);
    EXPECT_EQ(slots(*view), "bcbc-a");
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
    EXPECT_TRUE(view->remove(*mB));
    EXPECT_TRUE(view->remove(0UL));
    EXPECT_EQ(slots(*view), "c-a");
    view->reverse();
    view->setSize(1);
    EXPECT_EQ(slots(*view), "a");
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
    view->Delete();
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_ArrayTest, AnArrayMayBeMadeWithASize)
{
    const COM_Scoped owning(Array::New(true, 2UL));
    const COM_Scoped view(Array::New(false, 3UL));
    EXPECT_EQ(slots(*owning), "--");
    EXPECT_TRUE(owning->isObjectsReferenced());
    EXPECT_EQ(slots(*view), "---");
    EXPECT_FALSE(view->isObjectsReferenced());
    EXPECT_EQ(owning->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Array"}));
}

TEST_F(COM_ArrayTest, ACopyReferencesItsElementsAnew)
{
    mArray->add(*mA);
    mArray->set(2, *mB);
    {
        const COM_Scoped copy(Array::New(*mArray));
        EXPECT_EQ(slots(*copy), "a-b");
        EXPECT_TRUE(copy->isObjectsReferenced());
        EXPECT_EQ(copy->getReferenceCount(), 1);
        EXPECT_NE(copy->getIdentityNumber(), mArray->getIdentityNumber());
        EXPECT_EQ(copy->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Array"}));
        EXPECT_EQ(counts(), (Counts{3, 3, 1}));
        copy->remove(0UL);
        EXPECT_EQ(slots(*mArray), "a-b");
    }
    EXPECT_EQ(counts(), (Counts{2, 2, 1}));
}

TEST_F(COM_ArrayTest, ACopyOfAViewIsAView)
{
    const COM_Scoped view(Array::New(false));
    fill(*view);
    const COM_Scoped copy(Array::New(*view));
    EXPECT_EQ(slots(*copy), "abc");
    EXPECT_FALSE(copy->isObjectsReferenced());
    EXPECT_EQ(counts(), (Counts{1, 1, 1}));
}

TEST_F(COM_ArrayTest, MergingAddsTheElementsInOrderAndPassesOverEmptySlots)
{
    const COM_Scoped other(Array::New());
    other->set(1, *mB);
    other->set(3, *mC);
    mArray->add(*mA);
    mArray->set(2, nullptr);
    mArray->merge(*other);
    EXPECT_EQ(slots(*mArray), "a--bc");
    EXPECT_EQ(slots(*other), "-b-c");
    EXPECT_EQ(counts(), (Counts{2, 3, 3}));
}

TEST_F(COM_ArrayTest, AnArrayMergedIntoItselfHoldsItsElementsTwice)
{
    mArray->add(*mA);
    mArray->set(2, *mB);
    mArray->merge(*mArray);
    EXPECT_EQ(slots(*mArray), "a-bab");
    EXPECT_EQ(counts(), (Counts{3, 3, 1}));
}

TEST_F(COM_ArrayTest, ReversingKeepsEmptySlotsAndCounts)
{
    fill(*mArray);
    mArray->insert(1, nullptr);
    mArray->reverse();
    EXPECT_EQ(slots(*mArray), "cb-a");
    EXPECT_EQ(counts(), (Counts{2, 2, 2}));
}

TEST_F(COM_ArrayTest, AnElementIsFoundByItsIdentityNumber)
{
    fill(*mArray);
    mArray->insert(0, nullptr);
    EXPECT_EQ(mArray->getId(mB->getIdentityNumber()), mB.get());
    EXPECT_EQ(mArray->getId(mArray->getIdentityNumber()), nullptr);
    EXPECT_EQ(mArray->getId(0), nullptr);
}

TEST_F(COM_ArrayTest, TheTextHasOneLineForEachSlot)
{
    mArray->add(*mA);
    mArray->set(2, *mB);
    EXPECT_EQ(mArray->toString(), "0:a\n1:null\n2:b\n");
}

TEST_F(COM_ArrayTest, TheTextMayShowIdentities)
{
    mArray->add(*mA);
    mArray->set(2, *mB);
    EXPECT_EQ(mArray->toIdentityString(),
              "0:" + mA->getIdentityString() + "\n1:null\n2:" + mB->getIdentityString() + "\n");
}

TEST_F(COM_ArrayTest, ASlotIsEmptyWhileItsOldElementGoes)
{
    std::string seen;
    {
        const COM_Scoped own(TestObject::New("own"));
        own->setFarewell([&] { seen = slots(*mArray); });
        mArray->add(*mA);
        mArray->add(*own);
    }
    mArray->set(1, *mB);
    EXPECT_EQ(seen, "a-");
    EXPECT_EQ(slots(*mArray), "ab");
}

TEST_F(COM_ArrayTest, AnElementRemovedByItsIndexHasLeftTheArrayWhenItGoes)
{
    std::string seen;
    {
        const COM_Scoped own(TestObject::New("own"));
        own->setFarewell([&] { seen = slots(*mArray); });
        mArray->add(*own);
        mArray->add(*mA);
    }
    mArray->remove(0UL);
    EXPECT_EQ(seen, "a");
}

TEST_F(COM_ArrayTest, SlotsThatAreCutOffStillStandWhileTheirElementsGo)
{
    unsigned long seen = 0;
    {
        const COM_Scoped own(TestObject::New("own"));
        own->setFarewell([&] { seen = mArray->size(); });
        mArray->add(*mA);
        mArray->add(*own);
        mArray->add(*mB);
    }
    mArray->setSize(1);
    EXPECT_EQ(seen, 3UL);
    EXPECT_EQ(slots(*mArray), "a");
}
