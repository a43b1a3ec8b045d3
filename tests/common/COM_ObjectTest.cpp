#include "common/COM_Object.h"

#include "common/COM_Array.h"
#include "common/COM_Scoped.h"

#include <gtest/gtest.h>

TEST(COM_Object, ANewObjectHasCountOneAndGoesSilentlyWithDelete)
{
    testing::internal::CaptureStdout();
    auto* const array = COM_Array<COM_Object>::New();
    EXPECT_EQ(array->getReferenceCount(), 1);
    array->Delete();
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}
