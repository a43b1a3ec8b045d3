#include "linearAlgebra/LA_IntegerVector.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/Description.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using Values = std::vector<unsigned long>;

LA_IntegerVector* newVector(const Values& values)
{
    auto* const vector = LA_IntegerVector::New(0UL);
    vector->setValues(values);
    return vector;
}

Values valuesOf(const LA_IntegerVector& vector)
{
    return {vector.getValues(), vector.getValues() + vector.getDimension()};
}

} // namespace

TEST(LA_IntegerVector, TheChainOfTypesEndsWithItsName)
{
    EXPECT_EQ(COM_Scoped(LA_IntegerVector::New(1UL))->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Vector",
                                        "LA_IntegerVector"}));
}

TEST(LA_IntegerVector, TheTextIsDecimal)
{
    EXPECT_EQ(COM_Scoped(newVector({1, 0, 1234567}))->toString(), "(1,0,1234567)");
    EXPECT_EQ(COM_Scoped(newVector({}))->toString(), "()");
}

TEST(LA_IntegerVector, AValueIsReadFromAText)
{
    const COM_Scoped v(newVector({9, 9, 9}));
    v->setValueFromString(0, "12x");
    v->setValueFromString(1, "x");
    v->setValueFromString(2, "-1");
    v->setValueFromString(3, "7");
    EXPECT_EQ(valuesOf(*v), (Values{12, 0, ~0UL}));
}

TEST(LA_IntegerVector, SquaresAreFormedInDouble)
{
    const unsigned long large = 1UL << 40;
    const COM_Scoped v(newVector({large, large}));
    EXPECT_EQ(v->norm2(), 2.0 * 1099511627776.0 * 1099511627776.0);
    EXPECT_EQ(v->distance2To(*COM_Scoped(newVector({0, large}))),
              1099511627776.0 * 1099511627776.0);
    // The difference is that of the numbers, not modulo 2^64.
    EXPECT_EQ(COM_Scoped(newVector({1}))->distance2To(*COM_Scoped(newVector({4}))), 9.0);
}

TEST(LA_IntegerVector, AZeroDivisorChangesNothing)
{
    const COM_Scoped v(newVector({7, 8}));
    v->dividedBy(0UL);
    EXPECT_EQ(valuesOf(*v), (Values{7, 8}));
    v->dividedBy(2UL);
    EXPECT_EQ(valuesOf(*v), (Values{3, 4}));
    const COM_Scoped zero(newVector({0}));
    zero->normalize();
    EXPECT_EQ(valuesOf(*zero), Values{0});
}

TEST(LA_IntegerVector, TheLogarithmIsCutToAnIntegerAndThatOfZeroIsMinusFifty)
{
    const COM_Scoped v(newVector({0, 1, 2, 3, 7, 8, 20, 21, ~0UL}));
    v->logTransform();
    EXPECT_EQ(valuesOf(*v), (Values{static_cast<unsigned long>(-50L), 0, 0, 1, 1, 2, 2, 3, 44}));
    EXPECT_TRUE(v->toString().starts_with("(-50,0,"));
}

TEST(LA_IntegerVector, TheDecimalLogarithmCountsTheDigits)
{
    Values powers;
    Values expected;
    unsigned long power = 1;
    for (unsigned long digits = 0; digits <= 18; ++digits, power *= 10) {
        powers.push_back(power);
        expected.push_back(digits);
    }
    const COM_Scoped v(newVector(powers));
    v->log10Transform();
    EXPECT_EQ(valuesOf(*v), expected);
    const COM_Scoped w(newVector({0, 9, 99, 999}));
    w->log10Transform();
    EXPECT_EQ(valuesOf(*w), (Values{static_cast<unsigned long>(-50L), 0, 1, 2}));
}

TEST(LA_IntegerVector, StoredValuesAreDecimalAndTheLargestComeBackToo)
{
    const COM_Scoped v(newVector({12, ~0UL}));
    EXPECT_EQ(Description(*v).text(), "{mDimension=[2] mValues=[12|-1]}");
    const COM_Scoped copy(newVector({}));
    copy->loadFromMetaClass(Description(*v).node());
    EXPECT_EQ(valuesOf(*copy), (Values{12, ~0UL}));
}
