#include "common/COM_Object.h"

#include "common/COM_Array.h"
#include "common/COM_Guard.h"
#include "common/COM_Integer.h"
#include "common/COM_Scoped.h"
#include "support/ChildProcess.h"
#include "support/Printed.h"
#include "support/TestObject.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

/// A parent that aggregates children which point back to it, the way every two-way link is written.
class TestParent : public COM_Object
{
    COM_CLASS(TestParent)
public:
    static int getLivingNumber() { return mLivingNumber; }

    void addToChildren(COM_Object& child) { mChildren->add(child); }
    void resetChildren();
    COM_Array<COM_Object>& children() { return *mChildren; }

protected:
    /// A careless parent doesn't detach its children when it goes.
    explicit TestParent(bool isCareless = false)
        : mIsCareless(isCareless)
        , mChildren(COM_Array<COM_Object>::New())
    {
        COM_TYPE(TestParent);
        ++mLivingNumber;
    }
    ~TestParent() override
    {
        mChildren->Delete();
        --mLivingNumber;
    }
    unsigned long getInverseAgregatedObjectsCount() const override { return mChildren->size(); }
    void resetInverseAgregatedObjects() override
    {
        if (!mIsCareless) {
            resetChildren();
        }
    }

private:
    static inline int mLivingNumber = 0;

    bool mIsCareless;
    COM_Array<COM_Object>* mChildren; ///< Counted, never null.
};

class TestChild : public TestObject
{
    COM_CLASS(TestChild)
public:
    void setParent(TestParent& parent)
    {
        if (associate(mParent, &parent)) {
            parent.addToChildren(*this);
        }
    }
    void resetParent() { dissociate(mParent); }
    TestParent* getParent() const { return mParent; }

protected:
    TestChild() { COM_TYPE(TestChild); }
    ~TestChild() override { dissociate(mParent); }

private:
    TestParent* mParent = nullptr; ///< Counted back reference.
};

void TestParent::resetChildren()
{
    for (unsigned long i = mChildren->size(); i-- > 0;) {
        auto* const child = dynamic_cast<TestChild*>(mChildren->get(i));
        const COM_Guard guard(*child);
        mChildren->remove(i);
        child->resetParent();
    }
}

/// Puts off its end, as classes do that live inside the handlers of somebody else.
class TestDeferred : public TestObject
{
    COM_CLASS(TestDeferred)
public:
    int getEndsNumber() const { return mEndsNumber; }

protected:
    TestDeferred() { COM_TYPE(TestDeferred); }
    ~TestDeferred() override = default;
    void destroy() const override { ++mEndsNumber; }

private:
    mutable int mEndsNumber = 0;
};

/// Two branches of the tree that meet again.
class TestLeft : public virtual COM_Object
{
protected:
    TestLeft() { COM_TYPE(TestLeft); }
};
class TestRight : public virtual COM_Object
{
protected:
    TestRight() { COM_TYPE(TestRight); }
};
class TestBoth : public TestLeft, public TestRight
{
    COM_CLASS(TestBoth)
protected:
    TestBoth() { COM_TYPE(TestBoth); }
};

/// Equal to every object of its kind.
class TestEqual : public COM_Object
{
    COM_CLASS(TestEqual)
public:
    bool isEqualTo(const COM_Object& other) const override
    {
        return dynamic_cast<const TestEqual*>(&other) != nullptr;
    }
    using COM_Object::isEqualTo;

protected:
    TestEqual() { COM_TYPE(TestEqual); }
};

/// Gives tests the one-way association, which heirs alone may use.
class TestHolder : public COM_Object
{
    COM_CLASS(TestHolder)
public:
    bool setObject(TestObject* object) { return associate(mObject, object); }
    bool resetObject() { return dissociate(mObject); }
    TestObject* getObject() const { return mObject; }

protected:
    TestHolder() { COM_TYPE(TestHolder); }
    ~TestHolder() override { dissociate(mObject); }

private:
    TestObject* mObject = nullptr; ///< Counted.
};

namespace {

std::string number(const COM_Object& object)
{
    return std::to_string(object.getIdentityNumber());
}

} // namespace

TEST(COM_Object, ANewObjectHasCountOneAndGoesSilentlyWithDelete)
{
    const int before = TestObject::getLivingNumber();
    auto* const object = TestObject::New();
    EXPECT_EQ(object->getReferenceCount(), 1);
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    EXPECT_EQ(printedBy([object] { object->Delete(); }), "");
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Object, EachReferenceRaisesTheCountAndTheLastReleaseDestroys)
{
    const int before = TestObject::getLivingNumber();
    auto* const object = TestObject::New();
    object->addReference(nullptr);
    EXPECT_EQ(object->getReferenceCount(), 2);
    object->addReference(object);
    EXPECT_EQ(object->getReferenceCount(), 3);
    object->subReference(object);
    EXPECT_EQ(object->getReferenceCount(), 2);
    object->Delete();
    EXPECT_EQ(object->getReferenceCount(), 1);
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    object->subReference(nullptr);
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Object, AnObjectSeenThroughAConstReferenceCanBeHeldAndReleased)
{
    const int before = TestObject::getLivingNumber();
    const TestObject& object = *TestObject::New();
    object.addReference(nullptr);
    object.subReference(nullptr);
    EXPECT_EQ(object.getReferenceCount(), 1);
    object.Delete();
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Object, ObjectsCanNeitherBeCopiedNorMadeNorDestroyedByHand)
{
    EXPECT_FALSE(std::is_copy_constructible_v<TestObject>);
    EXPECT_FALSE(std::is_copy_assignable_v<TestObject>);
    EXPECT_FALSE(std::is_default_constructible_v<TestObject>);
    EXPECT_FALSE(std::is_destructible_v<TestObject>);
}

TEST(COM_Object, IdentityNumbersCountUpAndAreNeverUsedAgain)
{
    auto* const first = TestObject::New();
    const unsigned long number1 = first->getIdentityNumber();
    EXPECT_GE(number1, 1UL);
    first->Delete();
    const COM_Scoped second(TestObject::New());
    const COM_Scoped third(TestObject::New());
    EXPECT_EQ(second->getIdentityNumber(), number1 + 1);
    EXPECT_EQ(third->getIdentityNumber(), number1 + 2);
}

TEST(COM_Object, TheIdentityStringIsClassNameAtSignAndNumber)
{
    const COM_Scoped object(TestObject::New());
    EXPECT_EQ(object->getClassName(), "10TestObject");
    EXPECT_EQ(object->getIdentityString(), "10TestObject@" + number(*object));
    EXPECT_EQ(object->toString(), object->getIdentityString());
}

TEST(COM_Object, TheClassNameIsThatOfTheDynamicClass)
{
    const COM_Scoped child(TestChild::New());
    const COM_Object& object = *child;
    EXPECT_EQ(object.getClassName(), "9TestChild");
    EXPECT_NE(object.getClassName().find("TestChild"), std::string::npos);
}

TEST(COM_Object, TheChainOfTypesBeginsWithTheRoot)
{
    const COM_Scoped child(TestChild::New());
    EXPECT_EQ(child->getTypes(),
              (std::vector<std::string>{"COM_Object", "TestObject", "TestChild"}));
}

TEST(COM_Object, AnObjectIsAnInstanceOfEachNameOfItsChainAndOfNoOther)
{
    const COM_Scoped child(TestChild::New());
    EXPECT_TRUE(child->instanceOf("COM_Object"));
    EXPECT_TRUE(child->instanceOf("TestObject"));
    EXPECT_TRUE(child->instanceOf("TestChild"));
    EXPECT_FALSE(child->instanceOf("TestParent"));
    EXPECT_FALSE(child->instanceOf("TestChil"));
    EXPECT_FALSE(child->instanceOf("TestChildren"));
    EXPECT_FALSE(child->instanceOf("testchild"));
    EXPECT_FALSE(child->instanceOf(""));
    EXPECT_FALSE(child->instanceOf(std::string("TestChild\0", 10)));
}

TEST(COM_Object, ATypeAddedToOneObjectIsNotAddedToItsKin)
{
    const COM_Scoped one(TestObject::New());
    const COM_Scoped other(TestObject::New());
    one->addType("Extra");
    one->addType("Extra");
    EXPECT_EQ(one->getTypes(),
              (std::vector<std::string>{"COM_Object", "TestObject", "Extra", "Extra"}));
    EXPECT_EQ(other->getTypes(), (std::vector<std::string>{"COM_Object", "TestObject"}));
    EXPECT_FALSE(other->instanceOf("Extra"));
}

TEST(COM_Object, TwoBranchesThatMeetShareOneCountAndOneChain)
{
    const COM_Scoped both(TestBoth::New());
    EXPECT_EQ(both->getTypes(),
              (std::vector<std::string>{"COM_Object", "TestLeft", "TestRight", "TestBoth"}));
    const TestLeft& left = *both;
    const TestRight& right = *both;
    left.addReference(nullptr);
    EXPECT_EQ(right.getReferenceCount(), 2);
    EXPECT_EQ(left.getIdentityNumber(), right.getIdentityNumber());
    right.Delete();
}

TEST(COM_Object, EqualityComparesIdentitiesAndNotContents)
{
    const COM_Scoped one(COM_Integer::New(5));
    const COM_Scoped other(COM_Integer::New(5));
    EXPECT_TRUE(one->isEqualTo(*one));
    EXPECT_TRUE(one->isEqualTo(one.get()));
    EXPECT_FALSE(one->isEqualTo(*other));
    EXPECT_FALSE(one->isEqualTo(other.get()));
    EXPECT_FALSE(one->isEqualTo(nullptr));
}

TEST(COM_Object, AClassMaySayOtherwiseWhatIsEqual)
{
    const COM_Scoped one(TestEqual::New());
    const COM_Scoped other(TestEqual::New());
    const COM_Scoped stranger(TestObject::New());
    EXPECT_TRUE(one->isEqualTo(*other));
    EXPECT_TRUE(one->isEqualTo(other.get()));
    EXPECT_FALSE(one->isEqualTo(*stranger));
}

TEST(COM_Object, ASingleAssociationReferencesTheNewObjectAndReleasesTheOld)
{
    const COM_Scoped holder(TestHolder::New());
    const COM_Scoped first(TestObject::New());
    const COM_Scoped second(TestObject::New());
    EXPECT_TRUE(holder->setObject(first.get()));
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_FALSE(holder->setObject(first.get()));
    EXPECT_EQ(first->getReferenceCount(), 2);
    EXPECT_TRUE(holder->setObject(second.get()));
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    EXPECT_TRUE(holder->resetObject());
    EXPECT_EQ(holder->getObject(), nullptr);
    EXPECT_EQ(second->getReferenceCount(), 1);
    EXPECT_FALSE(holder->resetObject());
    EXPECT_FALSE(holder->setObject(nullptr));
    EXPECT_EQ(second->getReferenceCount(), 1);
}

TEST(COM_Object, AFieldIsEmptyWhileItsOldObjectGoes)
{
    const COM_Scoped holder(TestHolder::New());
    const COM_Scoped other(TestObject::New());
    for (TestObject* const next : {static_cast<TestObject*>(nullptr), other.get()}) {
        const TestObject* seen = other.get();
        {
            const COM_Scoped own(TestObject::New());
            own->setFarewell([&seen, &holder] { seen = holder->getObject(); });
            holder->setObject(own.get());
        }
        next != nullptr ? holder->setObject(next) : holder->resetObject();
        EXPECT_EQ(seen, nullptr);
        EXPECT_EQ(holder->getObject(), next);
    }
}

TEST(COM_Object, TheHolderIsTheWitnessOfItsAssociation)
{
    const COM_Scoped holder(TestHolder::New());
    const COM_Scoped object(TestObject::New());
    const std::string printed = tracedBy([&] {
        holder->setObject(object.get());
        holder->resetObject();
    });
    EXPECT_EQ(printed, "10TestObject@" + number(*object) + " is referenced by 10TestHolder@"
                           + number(*holder) + "\n" + "10TestObject@" + number(*object)
                           + " is unreferenced by 10TestHolder@" + number(*holder) + "\n");
}

TEST(COM_Object, AParentGoesWithItsChildrenWhenTheLastOutsideHolderLetsGo)
{
    const int parents = TestParent::getLivingNumber();
    const int children = TestObject::getLivingNumber();
    auto* const parent = TestParent::New();
    for (int i = 0; i < 2; ++i) {
        const COM_Scoped child(TestChild::New());
        child->setParent(*parent);
    }
    EXPECT_EQ(parent->getReferenceCount(), 3);
    EXPECT_EQ(parent->children()[0].getReferenceCount(), 1);
    EXPECT_EQ(TestObject::getLivingNumber(), children + 2);
    EXPECT_EQ(printedBy([parent] { parent->Delete(); }), "");
    EXPECT_EQ(TestParent::getLivingNumber(), parents);
    EXPECT_EQ(TestObject::getLivingNumber(), children);
}

TEST(COM_Object, AChildHeldOutsideOutlivesItsParentAndNoLongerPointsToIt)
{
    const int parents = TestParent::getLivingNumber();
    auto* const parent = TestParent::New();
    const COM_Scoped child(TestChild::New());
    child->setParent(*parent);
    EXPECT_EQ(child->getReferenceCount(), 2);
    parent->Delete();
    EXPECT_EQ(TestParent::getLivingNumber(), parents);
    EXPECT_EQ(child->getReferenceCount(), 1);
    EXPECT_EQ(child->getParent(), nullptr);
}

TEST(COM_Object, AParentWithASecondOutsideHolderStays)
{
    const int parents = TestParent::getLivingNumber();
    auto* const parent = TestParent::New();
    {
        const COM_Scoped child(TestChild::New());
        child->setParent(*parent);
    }
    parent->addReference(nullptr);
    parent->Delete();
    EXPECT_EQ(TestParent::getLivingNumber(), parents + 1);
    EXPECT_EQ(parent->getReferenceCount(), 2);
    EXPECT_EQ(parent->children().size(), 1UL);
    parent->Delete();
    EXPECT_EQ(TestParent::getLivingNumber(), parents);
}

TEST(COM_Object, AnObjectDestroyedByAnotherRoadSaysItsCount)
{
    auto* const object = TestObject::New();
    object->addReference(nullptr);
    const std::string id = number(*object);
    EXPECT_EQ(printedBy([object] { object->destroyAnyhow(); }),
              "Trying to delete object 10COM_Object@" + id
                  + " with non-zero reference count (2)\n");
}

TEST(COM_Object, AnAggregateThatDiesWithChildrenStillPointingBackSaysSo)
{
    auto* const parent = TestParent::New(true);
    const std::string id = number(*parent);
    // The child stands for one whose own end comes later: it never gives its reference back.
    const COM_Scoped child(TestObject::New());
    parent->addToChildren(*child);
    parent->addReference(child.get());
    EXPECT_EQ(printedBy([parent] { parent->Delete(); }),
              "Trying to delete object 10COM_Object@" + id
                  + " with non-zero reference count (1)\n");
}

TEST(COM_Object, AnOverReleaseLeavesTheObjectInMemory)
{
    const int before = TestObject::getLivingNumber();
    auto* const object = TestDeferred::New();
    object->Delete();
    EXPECT_EQ(object->getEndsNumber(), 1);
    EXPECT_EQ(object->getReferenceCount(), 0);
    object->Delete();
    EXPECT_EQ(object->getReferenceCount(), -1);
    object->Delete();
    EXPECT_EQ(object->getReferenceCount(), -2);
    EXPECT_EQ(object->getEndsNumber(), 1);
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    EXPECT_EQ(printedBy([object] { object->destroyAnyhow(); }), "");
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Object, AReferenceOnANegativeCountIsReleasedAgain)
{
    auto* const object = TestDeferred::New();
    object->Delete();
    const std::string identity = "12TestDeferred@" + number(*object);
    const std::string expected = identity + " is referenced.\n" + identity + " is unreferenced.\n";
    for (const long count : {-1L, -2L}) {
        object->Delete();
        EXPECT_EQ(object->getReferenceCount(), count);
        const std::string printed = tracedBy([object] { object->addReference(nullptr); });
        EXPECT_EQ(object->getReferenceCount(), count);
        EXPECT_EQ(printed, expected);
    }
    object->destroyAnyhow();
}

TEST(COM_Object, ACondemnedObjectOnlyCountsAndNeverComesBack)
{
    auto* const object = TestDeferred::New();
    object->Delete();
    object->addReference(nullptr);
    object->addReference(nullptr);
    EXPECT_EQ(object->getReferenceCount(), 2);
    object->Delete();
    object->Delete();
    EXPECT_EQ(object->getReferenceCount(), 0);
    EXPECT_EQ(object->getEndsNumber(), 1);
    object->destroyAnyhow();
}

TEST(COM_Object, WithoutTheFlagNothingIsTracedOrListed)
{
    EXPECT_EQ(printedBy([] {
                  const COM_Scoped object(TestObject::New());
                  object->addReference(object.get());
                  object->subReference(object.get());
                  COM_Object::printAllObjects();
              }),
              "");
}

TEST(COM_Object, TheTraceOfALifeIsComplete)
{
    const COM_Scoped witness(TestObject::New());
    unsigned long id = 0;
    const std::string printed = tracedBy([&] {
        auto* const object = TestObject::New();
        id = object->getIdentityNumber();
        object->addReference(witness.get());
        object->addReference(nullptr);
        object->subReference(witness.get());
        object->subReference(nullptr);
        object->Delete();
    });
    const std::string root = "10COM_Object@" + std::to_string(id);
    const std::string self = "10TestObject@" + std::to_string(id);
    const std::string by = " by 10TestObject@" + number(*witness) + "\n";
    EXPECT_EQ(printed, root + " is created so referenced one.\n" + self + " is referenced" + by
                           + self + " is referenced.\n" + self + " is unreferenced" + by + self
                           + " is unreferenced.\n" + self + " is unreferenced.\n" + "deleting "
                           + self + "...\n" + "reset inverse agregated objects...\n" + "delete "
                           + self + " from memory.\n");
}

TEST(COM_Object, TheTraceOfAFamilysEndShowsTheChildrenBetweenResetAndDeletion)
{
    auto* const parent = TestParent::New();
    auto* const child = TestChild::New();
    child->setParent(*parent);
    child->Delete();
    const std::string mother = "10TestParent@" + number(*parent);
    const std::string own = "9TestChild@" + number(*child);
    const std::string array = "9COM_ArrayI10COM_ObjectE@" + number(parent->children());
    const std::string printed = tracedBy([parent] { parent->Delete(); });
    EXPECT_EQ(printed,
              mother + " is unreferenced.\n"                     // the outside holder
                  + "deleting " + mother + "...\n"               //
                  + "reset inverse agregated objects...\n"       //
                  + own + " is referenced by " + own + "\n"      // the guard
                  + own + " is unreferenced.\n"                  // by the array
                  + mother + " is unreferenced by " + own + "\n" //
                  + own + " is unreferenced by " + own + "\n"    //
                  + "deleting " + own + "...\n"                  //
                  + "reset inverse agregated objects...\n"       //
                  + "delete " + own + " from memory.\n"          //
                  + "delete " + mother + " from memory.\n"       //
                  + array + " is unreferenced.\n"                //
                  + "deleting " + array + "...\n"                //
                  + "reset inverse agregated objects...\n"       //
                  + "delete " + array + " from memory.\n");
}

TEST(COM_Object, TheListOfObjectsShowsEachInOrderAndTheirNumberByClass)
{
    std::vector<COM_Object*> objects;
    printedBy([&objects] {
        COM_Object::turnOnDebugFlag();
        objects = {TestObject::New(), COM_Integer::New(1), TestObject::New()};
        objects[0]->addReference(nullptr);
    });
    const std::string listed = printedBy([] { COM_Object::printAllObjects(); });
    printedBy([&objects] {
        objects[0]->Delete();
        for (COM_Object* object : objects) {
            object->Delete();
        }
    });
    const std::string listedAfter = printedBy([] { COM_Object::printAllObjects(); });
    COM_Object::turnOffDebugFlag();
    const unsigned long first = std::stoul(listed.substr(listed.find('@') + 1));
    EXPECT_EQ(listed, "referenced objects:\n"
                      "1:\t Objects:10TestObject@"
                          + std::to_string(first)
                          + " \t referenceCount:2\n"
                            "2:\t Objects:11COM_Integer@"
                          + std::to_string(first + 1)
                          + " \t referenceCount:1\n"
                            "3:\t Objects:10TestObject@"
                          + std::to_string(first + 2)
                          + " \t referenceCount:1\n"
                            "Objects in memory:\n"
                            "10TestObject\t 2\n"
                            "11COM_Integer\t 1\n");
    EXPECT_EQ(listedAfter, "referenced objects:\nObjects in memory:\n");
}

TEST(COM_Object, ObjectsMadeBeforeTheFlagWasTurnedOnAreNotListed)
{
    const COM_Scoped object(TestObject::New());
    const Tracing tracing;
    EXPECT_EQ(printedBy([] { COM_Object::printAllObjects(); }),
              "referenced objects:\nObjects in memory:\n");
}

TEST(COM_Object, AnObjectThatGoesWhileTheFlagIsOffIsListedNoMore)
{
    // In a process of its own: a list that keeps what is gone reads freed memory.
    EXPECT_EQ(runInChild([] {
                  TestObject* object = nullptr;
                  tracedBy([&object] { object = TestObject::New(); });
                  object->Delete();
                  const Tracing tracing;
                  const std::string listed = printedBy([] { COM_Object::printAllObjects(); });
                  return listed == "referenced objects:\nObjects in memory:\n" ? 0 : 1;
              }),
              0);
}
