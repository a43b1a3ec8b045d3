#include "linearAlgebra/LA_Vector.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ClassFactory.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_IntegerVector.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/ChildProcess.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <complex>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

template <typename Vector>
using ValueOf = std::remove_cvref_t<decltype(std::declval<Vector&>()[0])>;

/// What the three types of vectors have in common, with whole numbers that each can hold.
template <typename Vector>
class LA_VectorTest : public testing::Test
{
protected:
    using T = ValueOf<Vector>;
    using Values = std::vector<T>;

    static Vector* newVector(std::initializer_list<int> numbers)
    {
        auto* const vector = Vector::New(numbers.size());
        unsigned long i = 0;
        for (const int number : numbers) {
            vector->setValue(i++, static_cast<T>(number));
        }
        return vector;
    }
    static Values values(std::initializer_list<int> numbers)
    {
        Values result;
        for (const int number : numbers) {
            result.push_back(static_cast<T>(number));
        }
        return result;
    }
    static Values valuesOf(const Vector& vector)
    {
        return {vector.getValues(), vector.getValues() + vector.getDimension()};
    }
};

using Vectors = testing::Types<LA_RealVector, LA_ComplexVector, LA_IntegerVector>;
TYPED_TEST_SUITE(LA_VectorTest, Vectors);

} // namespace

TYPED_TEST(LA_VectorTest, ANewVectorHoldsZeros)
{
    const COM_Scoped v(TypeParam::New(3UL));
    EXPECT_EQ(v->getReferenceCount(), 1);
    EXPECT_EQ(v->getDimension(), 3UL);
    EXPECT_EQ(this->valuesOf(*v), this->values({0, 0, 0}));
    EXPECT_TRUE(v->instanceOf("LA_Object"));
    EXPECT_TRUE(v->instanceOf("LA_Vector"));
}

TYPED_TEST(LA_VectorTest, AVectorMayHaveNoValues)
{
    const COM_Scoped v(TypeParam::New(0UL));
    EXPECT_EQ(v->getDimension(), 0UL);
    v->shift();
    v->multipliedBy(2);
    v->logTransform();
    v->vectorProduct(*v);
    EXPECT_EQ(v->norm2(), 0.0);
    EXPECT_EQ(v->getDimension(), 0UL);
}

TYPED_TEST(LA_VectorTest, ACopyHasValuesOfItsOwn)
{
    const COM_Scoped v(this->newVector({1, 2}));
    const COM_Scoped byReference(TypeParam::New(*v));
    const COM_Scoped byPointer(TypeParam::New(v.get()));
    v->setValue(0, 9);
    for (const auto* copy : {byReference.get(), byPointer.get()}) {
        EXPECT_EQ(this->valuesOf(*copy), this->values({1, 2}));
        EXPECT_EQ(copy->getReferenceCount(), 1);
        EXPECT_EQ(copy->getTypes(), v->getTypes());
    }
}

TYPED_TEST(LA_VectorTest, ANewDimensionKeepsTheValuesThatFitAndAddsZeros)
{
    const COM_Scoped v(this->newVector({1, 2, 3}));
    const auto* const storage = v->getValues();
    v->setDimension(3);
    EXPECT_EQ(v->getValues(), storage);
    v->setDimension(5);
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2, 3, 0, 0}));
    v->setDimension(2);
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2}));
    v->setDimension(0);
    v->setDimension(1);
    EXPECT_EQ(this->valuesOf(*v), this->values({0}));
}

TYPED_TEST(LA_VectorTest, AnIndexPastTheEndReadsZeroAndWritesNothing)
{
    const COM_Scoped v(this->newVector({1, 2}));
    EXPECT_EQ(printedBy([&] {
                  v->setValue(2, 5);
                  v->setValue(~0UL, 5);
                  EXPECT_EQ(v->getValue(2), ValueOf<TypeParam>(0));
                  EXPECT_EQ(v->getValue(~0UL), ValueOf<TypeParam>(0));
              }),
              "");
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2}));
    EXPECT_EQ(v->getValue(1), ValueOf<TypeParam>(2));
}

TYPED_TEST(LA_VectorTest, ValuesAreReachedDirectlyToo)
{
    const COM_Scoped v(this->newVector({1, 2}));
    (*v)[0] = ValueOf<TypeParam>(7);
    v->getValues()[1] = ValueOf<TypeParam>(8);
    const TypeParam& constant = *v;
    EXPECT_EQ(constant[0], ValueOf<TypeParam>(7));
    EXPECT_EQ(constant.getValues()[1], ValueOf<TypeParam>(8));
}

TYPED_TEST(LA_VectorTest, AValueOfAnotherTypeIsTurnedIntoTheVectors)
{
    const COM_Scoped v(TypeParam::New(4UL));
    v->setValue(0, 1);
    v->setValue(1, 2UL);
    v->setValue(2, 3.0);
    v->setValue(3, 4.0F);
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2, 3, 4}));
}

TYPED_TEST(LA_VectorTest, AllValuesAreTakenFromManySources)
{
    using Number = ValueOf<TypeParam>;
    const COM_Scoped v(this->newVector({9}));
    v->setValues(this->values({1, 2, 3}));
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2, 3}));
    const Number array[] = {Number(4), Number(5), Number(6)};
    v->setValues(array, 2);
    EXPECT_EQ(this->valuesOf(*v), this->values({4, 5}));
    v->setValues(Number(7), Number(8), Number(9));
    EXPECT_EQ(this->valuesOf(*v), this->values({7, 8, 9}));
    v->setValues((*v)[2], (*v)[0]);
    EXPECT_EQ(this->valuesOf(*v), this->values({9, 7}));
    const COM_Scoped other(this->newVector({1, 2, 3, 4}));
    v->setValues(*other);
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2, 3, 4}));
    v->setValues(*v);
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2, 3, 4}));
    v->setValues(std::vector<Number>{});
    EXPECT_EQ(v->getDimension(), 0UL);
}

TYPED_TEST(LA_VectorTest, SumsAndDifferencesTakeMissingValuesAsZero)
{
    const COM_Scoped v(this->newVector({10, 20, 30}));
    const COM_Scoped shorter(this->newVector({1, 2}));
    v->add(*shorter);
    EXPECT_EQ(this->valuesOf(*v), this->values({11, 22, 30}));
    v->sub(*shorter);
    EXPECT_EQ(this->valuesOf(*v), this->values({10, 20, 30}));
    v->add(ValueOf<TypeParam>(3), *shorter);
    EXPECT_EQ(this->valuesOf(*v), this->values({13, 26, 30}));
    v->sub(ValueOf<TypeParam>(3), *shorter);
    EXPECT_EQ(this->valuesOf(*v), this->values({10, 20, 30}));
}

TYPED_TEST(LA_VectorTest, ALongerVectorMakesTheSumGrowByItsScaledTail)
{
    const COM_Scoped longer(this->newVector({1, 2, 3}));
    const COM_Scoped v(this->newVector({5}));
    v->add(ValueOf<TypeParam>(2), *longer);
    EXPECT_EQ(this->valuesOf(*v), this->values({7, 4, 6}));
    const COM_Scoped w(this->newVector({5}));
    w->add(*longer);
    EXPECT_EQ(this->valuesOf(*w), this->values({6, 2, 3}));
    const COM_Scoped x(this->newVector({5}));
    x->sub(*longer);
    EXPECT_EQ(x->getDimension(), 3UL);
    x->add(*longer);
    EXPECT_EQ(this->valuesOf(*x), this->values({5, 0, 0}));
    const COM_Scoped y(this->newVector({5}));
    y->sub(ValueOf<TypeParam>(2), *longer);
    y->add(ValueOf<TypeParam>(2), *longer);
    EXPECT_EQ(this->valuesOf(*y), this->values({5, 0, 0}));
}

TYPED_TEST(LA_VectorTest, AVectorCanBeAddedToItself)
{
    const COM_Scoped v(this->newVector({1, 2}));
    v->add(*v);
    EXPECT_EQ(this->valuesOf(*v), this->values({2, 4}));
    v->sub(*v);
    EXPECT_EQ(this->valuesOf(*v), this->values({0, 0}));
}

TYPED_TEST(LA_VectorTest, AFactorScalesEveryValue)
{
    const COM_Scoped v(this->newVector({1, 2, 3}));
    v->multipliedBy(ValueOf<TypeParam>(6));
    EXPECT_EQ(this->valuesOf(*v), this->values({6, 12, 18}));
    v->dividedBy(ValueOf<TypeParam>(3));
    EXPECT_EQ(this->valuesOf(*v), this->values({2, 4, 6}));
}

TYPED_TEST(LA_VectorTest, AnElementOfTheVectorItselfIsAFactorLikeAnyOther)
{
    const COM_Scoped v(this->newVector({2, 4, 6}));
    v->multipliedBy((*v)[0]);
    EXPECT_EQ(this->valuesOf(*v), this->values({4, 8, 12}));
    v->dividedBy((*v)[0]);
    EXPECT_EQ(this->valuesOf(*v), this->values({1, 2, 3}));
    v->add((*v)[1], *v);
    EXPECT_EQ(this->valuesOf(*v), this->values({3, 6, 9}));
}

TYPED_TEST(LA_VectorTest, AnElementIsAFactorAlsoWhenItsVectorGrows)
{
    // In a process of its own: a factor that is looked up after the growth is read from freed memory.
    EXPECT_EQ(runInChild([] {
                  const COM_Scoped v(LA_VectorTest<TypeParam>::newVector({2}));
                  const COM_Scoped longer(LA_VectorTest<TypeParam>::newVector({1, 2}));
                  v->add((*v)[0], *longer);
                  return LA_VectorTest<TypeParam>::valuesOf(*v)
                                 == LA_VectorTest<TypeParam>::values({4, 4})
                             ? 0
                             : 1;
              }),
              0);
}

TYPED_TEST(LA_VectorTest, TheScalarProductRunsOverTheSmallerDimension)
{
    const COM_Scoped v(this->newVector({1, 2, 3}));
    const COM_Scoped w(this->newVector({4, 5}));
    EXPECT_EQ(v->scalarProduct(*w), ValueOf<TypeParam>(14));
    EXPECT_EQ(w->scalarProduct(*v), ValueOf<TypeParam>(14));
    EXPECT_EQ(v->scalarProduct(*v), ValueOf<TypeParam>(14));
    EXPECT_EQ(v->scalarProduct(*COM_Scoped(TypeParam::New(0UL))), ValueOf<TypeParam>(0));
}

TYPED_TEST(LA_VectorTest, TheVectorProductOfTwoDimensionsHasThree)
{
    const COM_Scoped v(this->newVector({3, 4}));
    v->vectorProduct(*COM_Scoped(this->newVector({1, 2})));
    EXPECT_EQ(this->valuesOf(*v), this->values({0, 0, 2}));
}

TYPED_TEST(LA_VectorTest, TheVectorProductOfThreeDimensionsIsTheCrossProduct)
{
    const COM_Scoped v(this->newVector({2, 3, 4}));
    v->vectorProduct(*COM_Scoped(this->newVector({5, 6, 7})));
    // (-3, 6, -3); below zero the integers count modulo 2^64 like all unsigned numbers.
    EXPECT_EQ((*v)[0] + ValueOf<TypeParam>(3), ValueOf<TypeParam>(0));
    EXPECT_EQ((*v)[1], ValueOf<TypeParam>(6));
    EXPECT_EQ((*v)[2] + ValueOf<TypeParam>(3), ValueOf<TypeParam>(0));
}

TYPED_TEST(LA_VectorTest, TheVectorProductOfFourDimensionsRunsInACircle)
{
    const COM_Scoped v(this->newVector({9, 5, 1, 0}));
    const COM_Scoped w(this->newVector({1, 2, 3, 4}));
    // r[0] = 5 * 3 - 2 * 1, r[1] = 1 * 4 - 3 * 0, r[2] = 0 * 1 - 4 * 9, r[3] = 9 * 2 - 1 * 5
    v->vectorProduct(*w);
    EXPECT_EQ((*v)[0], ValueOf<TypeParam>(13));
    EXPECT_EQ((*v)[1], ValueOf<TypeParam>(4));
    EXPECT_EQ((*v)[2] + ValueOf<TypeParam>(36), ValueOf<TypeParam>(0));
    EXPECT_EQ((*v)[3], ValueOf<TypeParam>(13));
}

TYPED_TEST(LA_VectorTest, TheVectorProductTakesMissingValuesAsZero)
{
    const COM_Scoped v(this->newVector({5}));
    v->vectorProduct(*COM_Scoped(this->newVector({1, 2, 0})));
    // (5, 0, 0) x (1, 2, 0)
    EXPECT_EQ(this->valuesOf(*v), this->values({0, 0, 10}));
    const COM_Scoped w(this->newVector({0, 0, 5}));
    w->vectorProduct(*COM_Scoped(this->newVector({1})));
    // (0, 0, 5) x (1, 0, 0)
    EXPECT_EQ(this->valuesOf(*w), this->values({0, 5, 0}));
}

TYPED_TEST(LA_VectorTest, BelowTwoDimensionsThereIsNoVectorProduct)
{
    const COM_Scoped v(this->newVector({5}));
    v->vectorProduct(*COM_Scoped(this->newVector({2})));
    EXPECT_EQ(this->valuesOf(*v), this->values({5}));
}

TYPED_TEST(LA_VectorTest, TheVectorProductWithItselfVanishes)
{
    const COM_Scoped v(this->newVector({1, 2, 3}));
    v->vectorProduct(*v);
    EXPECT_EQ(this->valuesOf(*v), this->values({0, 0, 0}));
}

TYPED_TEST(LA_VectorTest, NormsAndDistancesAreRootsOfSquares)
{
    const COM_Scoped v(this->newVector({3, 4}));
    const COM_Scoped w(this->newVector({0, 0, 12}));
    EXPECT_EQ(v->norm2(), 25.0);
    EXPECT_EQ(v->norm(), 5.0);
    EXPECT_EQ(v->distance2To(*w), 169.0);
    EXPECT_EQ(w->distance2To(*v), 169.0);
    EXPECT_EQ(v->distanceTo(*w), 13.0);
    EXPECT_EQ(v->distanceTo(*v), 0.0);
}

TYPED_TEST(LA_VectorTest, TheThirdValueOfTheLongerVectorCountsWholeInTheDistance)
{
    const COM_Scoped v(this->newVector({1, 1}));
    const COM_Scoped w(this->newVector({1, 1, 7}));
    EXPECT_EQ(v->distance2To(*w), 49.0);
}

TYPED_TEST(LA_VectorTest, ModuliGoToARealVectorOfTheSameDimension)
{
    const COM_Scoped v(this->newVector({3, 0, 5}));
    const COM_Scoped out(LA_RealVector::New(1UL));
    v->vabs(*out);
    EXPECT_EQ(std::vector<double>(out->getValues(), out->getValues() + out->getDimension()),
              (std::vector<double>{3.0, 0.0, 5.0}));
}

TYPED_TEST(LA_VectorTest, TheSmallerAndTheLargerValuesAreTakenOverTheSmallerDimension)
{
    const COM_Scoped v(this->newVector({1, 5, 3}));
    const COM_Scoped w(this->newVector({2, 4}));
    const COM_Scoped least(TypeParam::New(*v));
    const COM_Scoped most(TypeParam::New(*v));
    least->min(*w);
    most->max(*w);
    EXPECT_EQ(this->valuesOf(*least), this->values({1, 4, 3}));
    EXPECT_EQ(this->valuesOf(*most), this->values({2, 5, 3}));
    least->setValues(*v);
    most->setValues(*v);
    least->min(w.get());
    most->max(w.get());
    EXPECT_EQ(this->valuesOf(*least), this->values({1, 4, 3}));
    EXPECT_EQ(this->valuesOf(*most), this->values({2, 5, 3}));
    w->max(*v);
    EXPECT_EQ(this->valuesOf(*w), this->values({2, 5}));
}

TYPED_TEST(LA_VectorTest, AShiftRotatesByHalfTheDimensionToTheLeft)
{
    const std::vector<std::pair<std::vector<int>, std::vector<int>>> table{
        {{0}, {0}},
        {{0, 1}, {1, 0}},
        {{0, 1, 2}, {1, 2, 0}},
        {{0, 1, 2, 3}, {2, 3, 0, 1}},
        {{0, 1, 2, 3, 4}, {2, 3, 4, 0, 1}},
        {{0, 1, 2, 3, 4, 5}, {3, 4, 5, 0, 1, 2}}};
    for (const auto& [before, after] : table) {
        const COM_Scoped v(TypeParam::New(before.size()));
        for (unsigned long i = 0; i < before.size(); ++i) {
            v->setValue(i, before[i]);
        }
        v->shift();
        for (unsigned long i = 0; i < after.size(); ++i) {
            EXPECT_EQ((*v)[i], ValueOf<TypeParam>(after[i])) << before.size() << " " << i;
        }
    }
}

TYPED_TEST(LA_VectorTest, TheKeysAreFrozen)
{
    const COM_Scoped v(this->newVector({1, 2}));
    const Description description(*v);
    EXPECT_EQ(description.keys(), (std::vector<std::string>{"mDimension", "mValues"}));
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mDimension")), "[2]");
    EXPECT_EQ(description.node().getFromMetaFields("mValues")->getCardinality(), 2UL);
    EXPECT_EQ(Description(*COM_Scoped(TypeParam::New(0UL))).text(), "{mDimension=[0] mValues=[]}");
}

TYPED_TEST(LA_VectorTest, AVectorComesBackFromItsDescription)
{
    const COM_Scoped v(this->newVector({1, 2, 3}));
    const COM_Scoped copy(this->newVector({9}));
    EXPECT_EQ(printedBy([&] { copy->loadFromMetaClass(Description(*v).node()); }), "");
    EXPECT_EQ(this->valuesOf(*copy), this->values({1, 2, 3}));
    copy->loadFromMetaClass(Description(*COM_Scoped(TypeParam::New(0UL))).node());
    EXPECT_EQ(copy->getDimension(), 0UL);
}

TYPED_TEST(LA_VectorTest, AVectorComesBackFromItsFile)
{
    const TestDirectory directory;
    const COM_Scoped v(this->newVector({1, 2, 3}));
    const COM_Scoped factory(LA_ClassFactory::New());
    factory->save(directory.file("file"), *v);
    const COM_Scoped object(factory->load(directory.file("file")));
    const auto* const copy = dynamic_cast<TypeParam*>(object.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(this->valuesOf(*copy), this->values({1, 2, 3}));
}

TYPED_TEST(LA_VectorTest, MissingValuesAreAnnouncedAndLeaveAnEmptyVector)
{
    const COM_Scoped v(this->newVector({1, 2}));
    const COM_Scoped node(MM_Class::New());
    node->setName("the class");
    node->addAttributeToMetaFields("mDimension", 2UL);
    EXPECT_EQ(printedBy([&] { v->loadFromMetaClass(*node); }),
              "no field of name mValues stored in class the class. \n");
    EXPECT_EQ(v->getDimension(), 0UL);
}

TYPED_TEST(LA_VectorTest, TheNumberOfValuesIsTheDimensionWhateverAFileSays)
{
    const COM_Scoped v(this->newVector({9}));
    const COM_Scoped node(MM_Class::New());
    node->addAttributeToMetaFields("mDimension", std::string("999999999999999999"));
    node->addAttributeToMetaFields("mValues", std::vector<ValueOf<TypeParam>>(2));
    EXPECT_EQ(printedBy([&] { v->loadFromMetaClass(*node); }), "");
    EXPECT_EQ(this->valuesOf(*v), this->values({0, 0}));
}
