#include "metaModel/MM_Value.h"

#include "common/COM_Scoped.h"
#include "metaModel/MM_Class.h"
#include "support/Description.h"
#include "support/Printed.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(MM_Value, ANewValueHasNeitherKeyNorText)
{
    const COM_Scoped value(MM_Value::New());
    EXPECT_EQ(value->getReferenceCount(), 1);
    EXPECT_EQ(value->getKey(), "");
    EXPECT_EQ(value->getValue(), "");
    EXPECT_EQ(value->getTypes(), (std::vector<std::string>{"COM_Object", "MM_Object", "MM_Value"}));
    EXPECT_EQ(value->getClassName(), "8MM_Value");
}

TEST(MM_Value, TheTextShowsKeyAndValue)
{
    const COM_Scoped value(MM_Value::New());
    EXPECT_EQ(value->toString(), "key: value:\n");
    value->setKey("k");
    value->setValue("1.5");
    EXPECT_EQ(value->toString(), "key:k value:1.5\n");
}

TEST(MM_Value, TheKeysAreFrozen)
{
    const COM_Scoped value(MM_Value::New());
    value->setKey("k");
    value->setValue("v");
    EXPECT_EQ(Description(*value).text(), "{mKey=[k] mValue=[v]}");
}

TEST(MM_Value, AValueComesBackFromItsDescription)
{
    const COM_Scoped value(MM_Value::New());
    value->setKey("a key");
    value->setValue("a \"value\"\n");
    const COM_Scoped copy(MM_Value::New());
    EXPECT_EQ(printedBy([&] { copy->loadFromMetaClass(Description(*value).node()); }), "");
    EXPECT_EQ(copy->getKey(), "a key");
    EXPECT_EQ(copy->getValue(), "a \"value\"\n");
}

TEST(MM_Value, MissingKeysAreAnnouncedAndLeaveTheValueAsItWas)
{
    const COM_Scoped value(MM_Value::New());
    value->setKey("k");
    value->setValue("v");
    const COM_Scoped node(MM_Class::New());
    node->setName("8MM_Value");
    EXPECT_EQ(printedBy([&] { value->loadFromMetaClass(*node); }),
              "no attribute mKey stored in class 8MM_Value.\n"
              "no attribute mValue stored in class 8MM_Value.\n");
    EXPECT_EQ(value->toString(), "key:k value:v\n");
}
