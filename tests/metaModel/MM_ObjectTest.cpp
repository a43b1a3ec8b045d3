#include "metaModel/MM_Object.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "support/Description.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

/// A persistent object without members.
class TestPlain : public virtual MM_Object
{
    COM_CLASS(TestPlain)
protected:
    TestPlain() { COM_TYPE(TestPlain); }
    ~TestPlain() override = default;
};

TEST(MM_Object, AnObjectWithoutMembersDescribesNothingAndRestoresNothing)
{
    const COM_Scoped object(TestPlain::New());
    EXPECT_EQ(object->getReferenceCount(), 1);
    const Description description(*object);
    EXPECT_EQ(description.keys(), std::vector<std::string>{});
    EXPECT_EQ(printedBy([&] { object->loadFromMetaClass(description.node()); }), "");
    EXPECT_EQ(object->getReferenceCount(), 1);
}

TEST(MM_Object, TheRootIsAVirtualBase)
{
    const COM_Scoped object(TestPlain::New());
    EXPECT_EQ(object->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "TestPlain"}));
    // A virtual base can't be cast down from statically.
    EXPECT_EQ(dynamic_cast<MM_Object*>(static_cast<COM_Object*>(object.get())),
              static_cast<MM_Object*>(object.get()));
}
