#include "linearAlgebra/LA_IntegerMatrix.h"

#include "common/COM_Scoped.h"
#include "support/Description.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

TEST(LA_IntegerMatrix, TheChainOfTypesEndsWithItsName)
{
    EXPECT_EQ(COM_Scoped(LA_IntegerMatrix::New(1, 1))->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Matrix",
                                        "LA_IntegerMatrix"}));
}

TEST(LA_IntegerMatrix, TheTextHasATabBehindEachValueAndALineForEachLine)
{
    const COM_Scoped m(LA_IntegerMatrix::New(2, 2));
    m->setValues(std::vector<unsigned long>{1, 20, 0, 4}, 2, 2);
    EXPECT_EQ(m->toString(), "1\t20\t\n0\t4\t\n");
    EXPECT_EQ(COM_Scoped(LA_IntegerMatrix::New(0, 0))->toString(), "");
}

TEST(LA_IntegerMatrix, AnElementIsReadFromAText)
{
    const COM_Scoped m(LA_IntegerMatrix::New(1, 2));
    m->setValueFromString(0, 0, "12x");
    m->setValueFromString(0, 1, "-1");
    m->setValueFromString(0, 2, "7");
    EXPECT_EQ(m->getValue(0, 0), 12UL);
    EXPECT_EQ(m->getValue(0, 1), ~0UL);
    EXPECT_EQ(m->toString(), "12\t-1\t\n");
}

TEST(LA_IntegerMatrix, SquaresAreFormedInDouble)
{
    const COM_Scoped m(LA_IntegerMatrix::New(1, 1));
    m->setValue(0, 0, 1UL << 40);
    EXPECT_EQ(m->norm2(), 1099511627776.0 * 1099511627776.0);
    EXPECT_EQ(m->norm(), 1099511627776.0);
}

TEST(LA_IntegerMatrix, AZeroDivisorChangesNothing)
{
    const COM_Scoped m(LA_IntegerMatrix::New(1, 1));
    m->setValue(0, 0, 7);
    m->dividedBy(0UL);
    EXPECT_EQ(m->getValue(0, 0), 7UL);
    m->dividedBy(2UL);
    EXPECT_EQ(m->getValue(0, 0), 3UL);
}

TEST(LA_IntegerMatrix, StoredValuesAreDecimal)
{
    const COM_Scoped m(LA_IntegerMatrix::New(1, 2));
    m->setValues(std::vector<unsigned long>{12, ~0UL}, 1, 2);
    EXPECT_EQ(Description(*m).text(), "{mColumnsNumber=[2] mLinesNumber=[1] mValues=[12|-1]}");
    const COM_Scoped copy(LA_IntegerMatrix::New(1, 1));
    copy->loadFromMetaClass(Description(*m).node());
    EXPECT_EQ(copy->toString(), m->toString());
}
