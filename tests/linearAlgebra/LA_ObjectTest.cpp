#include "linearAlgebra/LA_Object.h"

#include "common/COM_Scoped.h"
#include "support/Description.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

/// The base class and nothing more.
class TestBare : public LA_Object
{
    COM_CLASS(TestBare)
protected:
    TestBare() { COM_TYPE(TestBare); }
    ~TestBare() override = default;
};

TEST(LA_Object, TheBaseAddsItsNameAlone)
{
    const COM_Scoped object(TestBare::New());
    EXPECT_EQ(object->getReferenceCount(), 1);
    EXPECT_EQ(object->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "TestBare"}));
    const Description description(*object);
    EXPECT_EQ(description.text(), "{}");
    EXPECT_EQ(printedBy([&] { object->loadFromMetaClass(description.node()); }), "");
}
