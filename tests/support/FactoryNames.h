#pragma once
#include "common/COM_Array.h"
#include "common/COM_Scoped.h"
#include "metaModel/MM_Object.h"
#include "support/CaseName.h"

#include <gtest/gtest.h>

#include <ostream>

/// A name given to a class factory and what comes of it.
struct FactoryName
{
    const char* mName;
    const char* mMade;           ///< Class name of the object made, or null.
    const char* mText = nullptr; ///< Its text; null where that doesn't matter.
};

inline void PrintTo(const FactoryName& row, std::ostream* out)
{
    *out << caseName(row.mName);
}

/// Base of the tables of names, one for each factory.
class FactoryNameTest : public testing::TestWithParam<FactoryName>
{
protected:
    /// Holds what a new `Factory` makes of the row's name against the row.
    template <typename Factory>
    static void expectMade()
    {
        const FactoryName& row = GetParam();
        const COM_Scoped factory(Factory::New());
        const COM_Scoped parameters(COM_Array<MM_Object>::New());
        const COM_Scoped object(factory->NewInstance(row.mName, *parameters));
        ASSERT_EQ(object.get() != nullptr, row.mMade != nullptr);
        if (object) {
            EXPECT_EQ(object->getClassName(), row.mMade);
            EXPECT_EQ(object->getReferenceCount(), 1);
        }
        if (row.mText != nullptr) {
            ASSERT_TRUE(object);
            EXPECT_EQ(object->toString(), row.mText);
        }
    }
};
