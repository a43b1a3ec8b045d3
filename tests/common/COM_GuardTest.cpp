#include "common/COM_Guard.h"

#include "support/TestObject.h"
#include "support/Tracing.h"

#include <gtest/gtest.h>

#include <string>

TEST(COM_Guard, TheObjectOutlivesItsLastReleaseToTheEndOfTheScope)
{
    const int before = TestObject::getLivingNumber();
    auto* const object = TestObject::New();
    {
        const COM_Guard guard(*object);
        EXPECT_EQ(object->getReferenceCount(), 2);
        object->Delete();
        EXPECT_EQ(object->getReferenceCount(), 1);
        EXPECT_EQ(TestObject::getLivingNumber(), before + 1);
    }
    EXPECT_EQ(TestObject::getLivingNumber(), before);
}

TEST(COM_Guard, AnObjectHeldElsewhereHasTheSameCountAfterwards)
{
    auto* const object = TestObject::New();
    {
        const COM_Guard guard(*object);
        const COM_Guard second(*object);
        EXPECT_EQ(object->getReferenceCount(), 3);
    }
    EXPECT_EQ(object->getReferenceCount(), 1);
    object->Delete();
}

TEST(COM_Guard, TheObjectIsItsOwnWitness)
{
    auto* const object = TestObject::New();
    const std::string identity = object->getIdentityString();
    const std::string printed = tracedBy([object] { const COM_Guard guard(*object); });
    EXPECT_EQ(printed, identity + " is referenced by " + identity + "\n" + identity
                           + " is unreferenced by " + identity + "\n");
    object->Delete();
}
