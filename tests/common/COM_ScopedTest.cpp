#include "common/COM_Scoped.h"

#include "support/TestObject.h"

#include <gtest/gtest.h>

TEST(COM_Scoped, TheCreatingReferenceEndsWithTheScope)
{
    const int before = TestObject::getLivingNumber();
    {
        const COM_Scoped object(TestObject::New("text"));
        EXPECT_EQ(object->getReferenceCount(), 1);
        EXPECT_EQ(object->toString(), "text");
        EXPECT_EQ((*object).toString(), "text");
        EXPECT_EQ(object.get(), &*object);
        EXPECT_TRUE(static_cast<bool>(object));
        EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    }
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Scoped, AnObjectHandedOnStaysWithItsNewHolder)
{
    const int before = TestObject::getLivingNumber();
    TestObject* kept = nullptr;
    {
        const COM_Scoped object(TestObject::New());
        kept = object.get();
        kept->addReference(nullptr);
    }
    EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    EXPECT_EQ(kept->getReferenceCount(), 1);
    kept->Delete();
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Scoped, ANullPointerIsHeldAndReleasedWithoutHarm)
{
    const COM_Scoped<TestObject> nothing(nullptr);
    EXPECT_FALSE(static_cast<bool>(nothing));
    EXPECT_EQ(nothing.get(), nullptr);
}
