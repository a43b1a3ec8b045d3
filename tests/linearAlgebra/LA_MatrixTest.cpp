#include "linearAlgebra/LA_Matrix.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ClassFactory.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_ComplexVector.h"
#include "linearAlgebra/LA_IntegerMatrix.h"
#include "linearAlgebra/LA_IntegerVector.h"
#include "linearAlgebra/LA_RealMatrix.h"
#include "linearAlgebra/LA_RealVector.h"
#include "support/Description.h"
#include "support/Printed.h"
#include "support/TestDirectory.h"

#include <gtest/gtest.h>

#include <complex>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace {

template <typename Matrix>
using ValueOf = std::remove_cvref_t<decltype(std::declval<Matrix&>().getValue(0, 0))>;

template <typename T>
struct VectorFor;
template <>
struct VectorFor<double>
{
    using Type = LA_RealVector;
};
template <>
struct VectorFor<std::complex<double>>
{
    using Type = LA_ComplexVector;
};
template <>
struct VectorFor<unsigned long>
{
    using Type = LA_IntegerVector;
};

/// What the three types of matrices have in common, with whole numbers that each can hold.
template <typename Matrix>
class LA_MatrixTest : public testing::Test
{
protected:
    using T = ValueOf<Matrix>;
    using Values = std::vector<T>;

    static Values values(const std::vector<int>& numbers)
    {
        Values result;
        for (const int number : numbers) {
            result.push_back(static_cast<T>(number));
        }
        return result;
    }
    /// A matrix of n lines and p columns with these values, line after line.
    static Matrix* newMatrix(unsigned long n, unsigned long p, const std::vector<int>& numbers)
    {
        auto* const matrix = Matrix::New(n, p);
        for (unsigned long i = 0; i < numbers.size(); ++i) {
            matrix->getValues()[i] = static_cast<T>(numbers[i]);
        }
        return matrix;
    }
    /// A matrix that holds 1, 2, 3, ...
    static Matrix* newCounted(unsigned long n, unsigned long p)
    {
        auto* const matrix = Matrix::New(n, p);
        for (unsigned long i = 0; i < n * p; ++i) {
            matrix->getValues()[i] = static_cast<T>(i + 1);
        }
        return matrix;
    }
    /// What is said while a node with that size and two values is loaded.
    static std::string printedByLoading(Matrix& matrix, const std::string& n, const std::string& p)
    {
        const COM_Scoped node(MM_Class::New());
        node->setName("the class");
        node->addAttributeToMetaFields("mLinesNumber", n);
        node->addAttributeToMetaFields("mColumnsNumber", p);
        node->addAttributeToMetaFields("mValues", values({7, 8}));
        return printedBy([&] { matrix.loadFromMetaClass(*node); });
    }
    static void expectMatrix(const Matrix& matrix, unsigned long n, unsigned long p,
                             const std::vector<int>& numbers)
    {
        ASSERT_EQ(matrix.getLinesNumber(), n);
        ASSERT_EQ(matrix.getColumnsNumber(), p);
        ASSERT_EQ(n * p, numbers.size());
        EXPECT_EQ(Values(matrix.getValues(), matrix.getValues() + n * p), values(numbers));
    }
};

using Matrices = testing::Types<LA_RealMatrix, LA_ComplexMatrix, LA_IntegerMatrix>;
TYPED_TEST_SUITE(LA_MatrixTest, Matrices);

} // namespace

TYPED_TEST(LA_MatrixTest, ANewMatrixHoldsZeros)
{
    const COM_Scoped m(TypeParam::New(2UL, 3UL));
    EXPECT_EQ(m->getReferenceCount(), 1);
    this->expectMatrix(*m, 2, 3, {0, 0, 0, 0, 0, 0});
    EXPECT_TRUE(m->instanceOf("LA_Object"));
    EXPECT_TRUE(m->instanceOf("LA_Matrix"));
}

TYPED_TEST(LA_MatrixTest, ACopyHasValuesOfItsOwn)
{
    const COM_Scoped m(this->newCounted(2, 3));
    const COM_Scoped byReference(TypeParam::New(*m));
    const COM_Scoped byPointer(TypeParam::New(m.get()));
    m->setValue(0, 0, 9);
    for (const auto* copy : {byReference.get(), byPointer.get()}) {
        this->expectMatrix(*copy, 2, 3, {1, 2, 3, 4, 5, 6});
        EXPECT_EQ(copy->getReferenceCount(), 1);
        EXPECT_EQ(copy->getTypes(), m->getTypes());
    }
}

TYPED_TEST(LA_MatrixTest, ElementsStandLineAfterLine)
{
    const COM_Scoped m(this->newCounted(2, 3));
    EXPECT_EQ(m->getValue(1, 0), ValueOf<TypeParam>(4));
    EXPECT_EQ((*m)[1][2], ValueOf<TypeParam>(6));
    EXPECT_EQ(m->getLine(1), m->getValues() + 3);
    m->getLine(0)[1] = ValueOf<TypeParam>(7);
    const TypeParam& constant = *m;
    EXPECT_EQ(constant[0][1], ValueOf<TypeParam>(7));
    EXPECT_EQ(constant.getLine(0)[1], ValueOf<TypeParam>(7));
}

TYPED_TEST(LA_MatrixTest, AnElementOutsideReadsZeroAndWritesNothing)
{
    const COM_Scoped m(this->newCounted(2, 3));
    EXPECT_EQ(printedBy([&] {
                  // Each of these stands inside of the storage, but not of its line.
                  m->setValue(0, 3, 9);
                  m->setValue(2, 0, 9);
                  m->setValue(~0UL, 0, 9);
                  m->setValue(0, ~0UL, 9);
                  EXPECT_EQ(m->getValue(0, 3), ValueOf<TypeParam>(0));
                  EXPECT_EQ(m->getValue(2, 0), ValueOf<TypeParam>(0));
                  EXPECT_EQ(m->getValue(~0UL, 1), ValueOf<TypeParam>(0));
              }),
              "");
    this->expectMatrix(*m, 2, 3, {1, 2, 3, 4, 5, 6});
}

TYPED_TEST(LA_MatrixTest, UnchangedDimensionsKeepTheStorage)
{
    const COM_Scoped m(this->newCounted(2, 3));
    const auto* const storage = m->getValues();
    m->setDimensions(2, 3);
    EXPECT_EQ(m->getValues(), storage);
    this->expectMatrix(*m, 2, 3, {1, 2, 3, 4, 5, 6});
}

TYPED_TEST(LA_MatrixTest, ASquareMatrixThatGrowsKeepsItsElementsInPlace)
{
    const COM_Scoped m(this->newCounted(2, 2));
    m->setDimensions(3, 3);
    this->expectMatrix(*m, 3, 3, {1, 2, 0, 3, 4, 0, 0, 0, 0});
}

TYPED_TEST(LA_MatrixTest, ASquareMatrixThatShrinksKeepsItsUpperLeftBlock)
{
    const COM_Scoped m(this->newCounted(3, 3));
    m->setDimensions(2, 2);
    this->expectMatrix(*m, 2, 2, {1, 2, 4, 5});
}

TYPED_TEST(LA_MatrixTest, OtherMatricesAreDealtOutAlongBothLineCounts)
{
    const COM_Scoped wide(this->newCounted(2, 3));
    wide->setDimensions(3, 2);
    this->expectMatrix(*wide, 3, 2, {1, 2, 3, 3, 4, 5});

    const COM_Scoped tall(this->newCounted(3, 2));
    tall->setDimensions(2, 3);
    this->expectMatrix(*tall, 2, 3, {1, 2, 4, 5, 0, 0});

    const COM_Scoped line(this->newCounted(1, 3));
    line->setDimensions(2, 2);
    this->expectMatrix(*line, 2, 2, {1, 2, 3, 0});

    const COM_Scoped cut(this->newCounted(2, 3));
    cut->setDimensions(2, 2);
    this->expectMatrix(*cut, 2, 2, {1, 2, 3, 4});

    const COM_Scoped column(this->newCounted(3, 1));
    column->setDimensions(3, 2);
    this->expectMatrix(*column, 3, 2, {1, 0, 0, 0, 0, 0});
}

TYPED_TEST(LA_MatrixTest, EveryResizingFollowsTheRuleOfTheIndices)
{
    using Number = ValueOf<TypeParam>;
    constexpr unsigned long most = 5;
    for (unsigned long code = 0; code < most * most * most * most; ++code) {
        const unsigned long m = code % most;
        const unsigned long q = code / most % most;
        const unsigned long n = code / most / most % most;
        const unsigned long p = code / most / most / most;
        std::vector<Number> expected(n * p);
        if (m == n && q == p) {
            for (unsigned long i = 0; i < n * p; ++i) {
                expected[i] = static_cast<Number>(i + 1);
            }
        } else {
            for (unsigned long i = 0; i < m; ++i) {
                for (unsigned long j = 0; j < q; ++j) {
                    if (j + i * n < n * p && j + i * m < m * q) {
                        expected[j + i * n] = static_cast<Number>(j + i * m + 1);
                    }
                }
            }
        }
        const COM_Scoped matrix(this->newCounted(m, q));
        matrix->setDimensions(n, p);
        EXPECT_EQ(std::vector<Number>(matrix->getValues(), matrix->getValues() + n * p), expected)
            << m << " x " << q << " to " << n << " x " << p;
    }
}

TYPED_TEST(LA_MatrixTest, AMatrixMayLoseAllItsElements)
{
    const COM_Scoped m(this->newCounted(2, 2));
    m->setDimensions(0, 3);
    this->expectMatrix(*m, 0, 3, {});
    EXPECT_EQ(m->toString(), "");
    EXPECT_EQ(m->trace(), ValueOf<TypeParam>(0));
    EXPECT_EQ(m->getMaxValue(), ValueOf<TypeParam>(0));
    EXPECT_EQ(m->norm(), 0.0);
    m->transpose();
    this->expectMatrix(*m, 3, 0, {});
    m->setDimensions(1, 1);
    this->expectMatrix(*m, 1, 1, {0});
}

TYPED_TEST(LA_MatrixTest, ValuesOfTheSameCountOnlyRelabelTheDimensions)
{
    const COM_Scoped m(this->newMatrix(3, 2, {9, 9, 9, 9, 9, 9}));
    const auto* const storage = m->getValues();
    m->setValues(*COM_Scoped(this->newCounted(2, 3)));
    this->expectMatrix(*m, 2, 3, {1, 2, 3, 4, 5, 6});
    EXPECT_EQ(m->getValues(), storage);
}

TYPED_TEST(LA_MatrixTest, ValuesOfAnotherCountResizeTheMatrix)
{
    const COM_Scoped m(this->newCounted(2, 2));
    m->setValues(*COM_Scoped(this->newCounted(1, 3)));
    this->expectMatrix(*m, 1, 3, {1, 2, 3});
    m->setValues(*m);
    this->expectMatrix(*m, 1, 3, {1, 2, 3});
}

TYPED_TEST(LA_MatrixTest, ValuesComeFromArraysAndVectorsToo)
{
    using Number = ValueOf<TypeParam>;
    const COM_Scoped m(TypeParam::New(1UL, 1UL));
    const Number array[] = {Number(1), Number(2), Number(3), Number(4), Number(5), Number(6)};
    m->setValues(array, 2, 3);
    this->expectMatrix(*m, 2, 3, {1, 2, 3, 4, 5, 6});
    m->setValues(this->values({7, 8}), 2, 1);
    this->expectMatrix(*m, 2, 1, {7, 8});
    m->setValues(this->values({1, 2, 3, 4}), 1, 2);
    this->expectMatrix(*m, 1, 2, {1, 2});
}

TYPED_TEST(LA_MatrixTest, AShortVectorIsReadToItsEnd)
{
    const COM_Scoped m(TypeParam::New(1UL, 1UL));
    m->setValues(this->values({7, 8, 9}), 2, 2);
    this->expectMatrix(*m, 2, 2, {7, 8, 9, 0});
}

TYPED_TEST(LA_MatrixTest, TheProductIsThatOfLinesAndColumns)
{
    const COM_Scoped a(this->newCounted(2, 2));
    const COM_Scoped b(this->newMatrix(2, 2, {5, 6, 7, 8}));
    const COM_Scoped r(this->newCounted(1, 7));
    a->matMult(*b, *r);
    this->expectMatrix(*r, 2, 2, {19, 22, 43, 50});
    this->expectMatrix(*a, 2, 2, {1, 2, 3, 4});

    const COM_Scoped wide(this->newCounted(2, 3));
    const COM_Scoped column(this->newMatrix(3, 1, {1, 10, 100}));
    wide->matMult(*column, *r);
    this->expectMatrix(*r, 2, 1, {321, 654});
    column->matMult(*COM_Scoped(this->newCounted(1, 2)), *r);
    this->expectMatrix(*r, 3, 2, {1, 2, 10, 20, 100, 200});
}

TYPED_TEST(LA_MatrixTest, LinesThatTheSecondFactorLacksCountAsZero)
{
    const COM_Scoped wide(this->newCounted(1, 3));
    const COM_Scoped small(this->newMatrix(1, 1, {7}));
    const COM_Scoped r(TypeParam::New(1UL, 1UL));
    wide->matMult(*small, *r);
    this->expectMatrix(*r, 1, 1, {7});
    small->matMult(*COM_Scoped(this->newCounted(2, 2)), *r);
    this->expectMatrix(*r, 1, 2, {7, 14});
}

TYPED_TEST(LA_MatrixTest, TranspositionExchangesLinesAndColumns)
{
    const COM_Scoped m(this->newCounted(2, 3));
    m->transpose();
    this->expectMatrix(*m, 3, 2, {1, 4, 2, 5, 3, 6});
    const COM_Scoped out(this->newCounted(1, 1));
    m->matTranspose(*out);
    this->expectMatrix(*out, 2, 3, {1, 2, 3, 4, 5, 6});
    this->expectMatrix(*m, 3, 2, {1, 4, 2, 5, 3, 6});
    m->matTranspose(*m);
    this->expectMatrix(*m, 2, 3, {1, 2, 3, 4, 5, 6});
}

TYPED_TEST(LA_MatrixTest, AFactorScalesEveryElement)
{
    const COM_Scoped m(this->newCounted(2, 2));
    m->multipliedBy(ValueOf<TypeParam>(6));
    this->expectMatrix(*m, 2, 2, {6, 12, 18, 24});
    m->dividedBy(ValueOf<TypeParam>(3));
    this->expectMatrix(*m, 2, 2, {2, 4, 6, 8});
}

TYPED_TEST(LA_MatrixTest, AnElementOfTheMatrixItselfIsAFactorLikeAnyOther)
{
    const COM_Scoped m(this->newMatrix(1, 3, {2, 4, 6}));
    m->multipliedBy((*m)[0][0]);
    this->expectMatrix(*m, 1, 3, {4, 8, 12});
    m->dividedBy((*m)[0][0]);
    this->expectMatrix(*m, 1, 3, {1, 2, 3});
}

TYPED_TEST(LA_MatrixTest, TheDiagonalEndsWithTheSmallerDimension)
{
    using Vector = typename VectorFor<ValueOf<TypeParam>>::Type;
    const COM_Scoped v(Vector::New(7UL));
    for (const auto& [n, p] : {std::pair{2UL, 3UL}, std::pair{3UL, 2UL}}) {
        const COM_Scoped m(this->newCounted(n, p));
        const ValueOf<TypeParam> second((n == 2) ? 5 : 4);
        EXPECT_EQ(m->trace(), ValueOf<TypeParam>(1) + second);
        m->getDiagonal(*v);
        ASSERT_EQ(v->getDimension(), 2UL);
        EXPECT_EQ((*v)[0], ValueOf<TypeParam>(1));
        EXPECT_EQ((*v)[1], second);
        m->resetDiagonal();
        EXPECT_EQ(m->trace(), ValueOf<TypeParam>(0));
        EXPECT_EQ(m->getValue(0, 1), ValueOf<TypeParam>(2));
        EXPECT_EQ(m->getValues()[5], ValueOf<TypeParam>(6));
    }
}

TYPED_TEST(LA_MatrixTest, TheNormIsTheRootOfTheSumOfSquares)
{
    const COM_Scoped m(this->newMatrix(2, 2, {2, 4, 5, 2}));
    EXPECT_EQ(m->norm2(), 49.0);
    EXPECT_EQ(m->norm(), 7.0);
}

TYPED_TEST(LA_MatrixTest, TheLargestElementIsFoundAnywhere)
{
    EXPECT_EQ(COM_Scoped(this->newMatrix(2, 2, {1, 2, 9, 3}))->getMaxValue(),
              ValueOf<TypeParam>(9));
    EXPECT_EQ(COM_Scoped(this->newMatrix(1, 2, {9, 3}))->getMaxValue(), ValueOf<TypeParam>(9));
    EXPECT_EQ(COM_Scoped(this->newMatrix(1, 2, {3, 9}))->getMaxValue(), ValueOf<TypeParam>(9));
}

TYPED_TEST(LA_MatrixTest, PrintingWritesTheText)
{
    const COM_Scoped m(this->newCounted(2, 2));
    EXPECT_EQ(printedBy([&] { m->print(); }), m->toString());
    EXPECT_NE(m->toString(), "");
}

TYPED_TEST(LA_MatrixTest, TheKeysAreFrozen)
{
    const COM_Scoped m(this->newCounted(2, 3));
    const Description description(*m);
    EXPECT_EQ(description.keys(),
              (std::vector<std::string>{"mColumnsNumber", "mLinesNumber", "mValues"}));
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mLinesNumber")), "[2]");
    EXPECT_EQ(Description::textOf(*description.node().getFromMetaFields("mColumnsNumber")), "[3]");
    EXPECT_EQ(description.node().getFromMetaFields("mValues")->getCardinality(), 6UL);
    EXPECT_EQ(Description(*COM_Scoped(TypeParam::New(0UL, 2UL))).text(),
              "{mColumnsNumber=[2] mLinesNumber=[0] mValues=[]}");
}

TYPED_TEST(LA_MatrixTest, AMatrixComesBackFromItsDescription)
{
    const COM_Scoped m(this->newCounted(2, 3));
    const COM_Scoped copy(this->newCounted(4, 4));
    EXPECT_EQ(printedBy([&] { copy->loadFromMetaClass(Description(*m).node()); }), "");
    this->expectMatrix(*copy, 2, 3, {1, 2, 3, 4, 5, 6});
    copy->loadFromMetaClass(Description(*COM_Scoped(TypeParam::New(0UL, 0UL))).node());
    this->expectMatrix(*copy, 0, 0, {});
}

TYPED_TEST(LA_MatrixTest, AMatrixComesBackFromItsFile)
{
    const TestDirectory directory;
    const COM_Scoped m(this->newCounted(3, 2));
    const COM_Scoped factory(LA_ClassFactory::New());
    factory->save(directory.file("file"), *m);
    const COM_Scoped object(factory->load(directory.file("file")));
    const auto* const copy = dynamic_cast<TypeParam*>(object.get());
    ASSERT_NE(copy, nullptr);
    this->expectMatrix(*copy, 3, 2, {1, 2, 3, 4, 5, 6});
}

TYPED_TEST(LA_MatrixTest, MissingKeysAreAnnouncedInOrderAndLostValuesAreZero)
{
    const COM_Scoped m(this->newCounted(2, 2));
    const COM_Scoped node(MM_Class::New());
    node->setName("the class");
    EXPECT_EQ(printedBy([&] { m->loadFromMetaClass(*node); }),
              "no attribute mLinesNumber stored in class the class.\n"
              "no attribute mColumnsNumber stored in class the class.\n"
              "no field of name mValues stored in class the class. \n");
    this->expectMatrix(*m, 2, 2, {0, 0, 0, 0});
}

TYPED_TEST(LA_MatrixTest, ValuesThatAFileLacksAreZeroAndThoseBeyondAreDropped)
{
    const COM_Scoped m(this->newCounted(1, 1));
    const COM_Scoped node(MM_Class::New());
    node->addAttributeToMetaFields("mLinesNumber", 2UL);
    node->addAttributeToMetaFields("mColumnsNumber", 2UL);
    node->addAttributeToMetaFields("mValues", this->values({7, 8}));
    EXPECT_EQ(printedBy([&] { m->loadFromMetaClass(*node); }), "");
    this->expectMatrix(*m, 2, 2, {7, 8, 0, 0});
    const COM_Scoped small(MM_Class::New());
    small->addAttributeToMetaFields("mLinesNumber", 1UL);
    small->addAttributeToMetaFields("mColumnsNumber", 2UL);
    small->addAttributeToMetaFields("mValues", this->values({1, 2, 3}));
    m->loadFromMetaClass(*small);
    this->expectMatrix(*m, 1, 2, {1, 2});
}

TYPED_TEST(LA_MatrixTest, ASizeBeyondMemoryIsRefusedAndLeavesTheMatrixAsItWas)
{
    const std::vector<std::pair<std::string, std::string>> sizes{{"1000000000", "1000000000"},
                                                                 {"4294967296", "4294967296"},
                                                                 {"18446744073709551615", "1"},
                                                                 {"1", "9223372036854775807"},
                                                                 {"1000001", "1"}};
    for (const auto& [n, p] : sizes) {
        const COM_Scoped m(this->newCounted(1, 2));
        // A number that a long cannot hold is read as the largest that it can.
        const std::string lines = n == "18446744073709551615" ? "9223372036854775807" : n;
        EXPECT_EQ(this->printedByLoading(*m, n, p),
                  "size " + lines + " x " + p
                      + " of the class is too large for its values: ignored.\n");
        this->expectMatrix(*m, 1, 2, {1, 2});
    }
}

TYPED_TEST(LA_MatrixTest, ANegativeSizeIsRefusedLikeAnyLargeOne)
{
    const COM_Scoped m(this->newCounted(1, 2));
    EXPECT_EQ(this->printedByLoading(*m, "-1", "1"),
              "size 18446744073709551615 x 1 of the class is too large for its values: ignored.\n");
    this->expectMatrix(*m, 1, 2, {1, 2});
}

TYPED_TEST(LA_MatrixTest, ManyLinesWithoutColumnsAreRefusedToo)
{
    const COM_Scoped m(this->newCounted(1, 2));
    EXPECT_EQ(this->printedByLoading(*m, "1000000000000", "0"),
              "size 1000000000000 x 0 of the class is too large for its values: ignored.\n");
    this->expectMatrix(*m, 1, 2, {1, 2});
}
