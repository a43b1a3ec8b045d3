#include "linearAlgebra/LA_Block.h"

#include "common/COM_Scoped.h"
#include "linearAlgebra/LA_ComplexMatrix.h"
#include "linearAlgebra/LA_IntegerMatrix.h"
#include "linearAlgebra/LA_RealMatrix.h"

#include <gtest/gtest.h>

#include <complex>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using Complex = std::complex<double>;
using Block = LA_Block<double>;

/// A matrix of 2 lines and 2 columns that holds first, first + 1, ...
LA_RealMatrix* newMatrix(double first)
{
    auto* const matrix = LA_RealMatrix::New(2, 2);
    for (unsigned long i = 0; i < 4; ++i) {
        matrix->getValues()[i] = first + static_cast<double>(i);
    }
    return matrix;
}

std::vector<double> valuesOf(const LA_RealMatrix& matrix)
{
    const unsigned long count = matrix.getLinesNumber() * matrix.getColumnsNumber();
    return {matrix.getValues(), matrix.getValues() + count};
}

} // namespace

TEST(LA_Block, ANewBlockIsWholeAlignedAndFullOfZeros)
{
    for (const unsigned long size : {0UL, 1UL, 7UL, 1000UL}) {
        const COM_Scoped block(Block::New(size));
        EXPECT_EQ(block->getReferenceCount(), 1);
        EXPECT_EQ(block->getSize(), size);
        EXPECT_TRUE(block->isWhole());
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(block->getValues()) % Block::ALIGNMENT, 0UL);
        for (unsigned long i = 0; i < size; ++i) {
            EXPECT_EQ(block->getValues()[i], 0.0);
        }
    }
    EXPECT_EQ(COM_Scoped(Block::New(1UL))->getTypes(),
              (std::vector<std::string>{"COM_Object", "LA_Block"}));
}

TEST(LA_Block, BlocksHoldValuesOfEveryType)
{
    const COM_Scoped complex(LA_Block<Complex>::New(2UL));
    const COM_Scoped integers(LA_Block<unsigned long>::New(2UL));
    EXPECT_EQ(complex->getValues()[1], Complex(0.0, 0.0));
    EXPECT_EQ(integers->getValues()[1], 0UL);
}

TEST(LA_Block, AMovedMatrixKeepsItsValuesAndHoldsTheBlock)
{
    const COM_Scoped block(Block::New(8UL));
    const COM_Scoped first(newMatrix(1.0));
    const COM_Scoped second(newMatrix(5.0));
    first->moveTo(*block, 0);
    second->moveTo(*block, 4);
    EXPECT_EQ(block->getReferenceCount(), 3);
    EXPECT_TRUE(block->isWhole());
    EXPECT_EQ(first->getValues(), block->getValues());
    EXPECT_EQ(second->getValues(), block->getValues() + 4);
    EXPECT_EQ(std::vector<double>(block->getValues(), block->getValues() + 8),
              (std::vector<double>{1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 8.0}));
    second->setValue(1, 1, 80.0);
    EXPECT_EQ(block->getValues()[7], 80.0);
    block->getValues()[0] = 10.0;
    EXPECT_EQ(first->getValue(0, 0), 10.0);
}

TEST(LA_Block, AMatrixThatIsThereAlreadyStays)
{
    const COM_Scoped block(Block::New(4UL));
    const COM_Scoped matrix(newMatrix(1.0));
    matrix->moveTo(*block, 0);
    matrix->moveTo(*block, 0);
    EXPECT_EQ(block->getReferenceCount(), 2);
    EXPECT_TRUE(block->isWhole());
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
}

TEST(LA_Block, AMatrixMayMoveInsideItsBlock)
{
    const COM_Scoped block(Block::New(6UL));
    const COM_Scoped matrix(newMatrix(1.0));
    matrix->moveTo(*block, 0);
    matrix->moveTo(*block, 1);
    EXPECT_EQ(matrix->getValues(), block->getValues() + 1);
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
    EXPECT_EQ(block->getReferenceCount(), 2);
}

TEST(LA_Block, TheBlockLivesAsLongAsAMatrixLiesInIt)
{
    auto* const block = Block::New(4UL);
    const COM_Scoped matrix(newMatrix(1.0));
    matrix->moveTo(*block, 0);
    block->Delete();
    EXPECT_EQ(block->getReferenceCount(), 1);
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
}

TEST(LA_Block, AMatrixThatIsResizedLeavesTheBlock)
{
    const COM_Scoped block(Block::New(8UL));
    const COM_Scoped matrix(newMatrix(1.0));
    const COM_Scoped other(newMatrix(5.0));
    matrix->moveTo(*block, 0);
    other->moveTo(*block, 4);
    matrix->setDimensions(3, 3);
    EXPECT_FALSE(block->isWhole());
    EXPECT_EQ(block->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(*matrix),
              (std::vector<double>{1.0, 2.0, 0.0, 3.0, 4.0, 0.0, 0.0, 0.0, 0.0}));
    matrix->setValue(0, 0, 99.0);
    EXPECT_EQ(block->getValues()[0], 1.0);
    EXPECT_EQ(valuesOf(*other), (std::vector<double>{5.0, 6.0, 7.0, 8.0}));
}

TEST(LA_Block, NewValuesOfTheSameSizeLeaveAMatrixInItsBlock)
{
    const COM_Scoped block(Block::New(4UL));
    const COM_Scoped matrix(newMatrix(1.0));
    const COM_Scoped other(newMatrix(5.0));
    matrix->moveTo(*block, 0);
    matrix->setDimensions(2, 2);
    matrix->setValues(*other);
    matrix->transpose();
    matrix->multipliedBy(2.0);
    EXPECT_TRUE(block->isWhole());
    EXPECT_EQ(std::vector<double>(block->getValues(), block->getValues() + 4),
              (std::vector<double>{10.0, 14.0, 12.0, 16.0}));
}

TEST(LA_Block, AMatrixThatMovesOnLeavesTheFormerBlock)
{
    const COM_Scoped first(Block::New(4UL));
    const COM_Scoped second(Block::New(4UL));
    const COM_Scoped matrix(newMatrix(1.0));
    matrix->moveTo(*first, 0);
    matrix->moveTo(*second, 0);
    EXPECT_FALSE(first->isWhole());
    EXPECT_TRUE(second->isWhole());
    EXPECT_EQ(first->getReferenceCount(), 1);
    EXPECT_EQ(second->getReferenceCount(), 2);
    EXPECT_EQ(valuesOf(*matrix), (std::vector<double>{1.0, 2.0, 3.0, 4.0}));
}

TEST(LA_Block, ADyingMatrixLeavesTheBlock)
{
    const COM_Scoped block(Block::New(4UL));
    {
        const COM_Scoped matrix(newMatrix(1.0));
        matrix->moveTo(*block, 0);
    }
    EXPECT_FALSE(block->isWhole());
    EXPECT_EQ(block->getReferenceCount(), 1);
}

TEST(LA_Block, ACopyOfAMatrixInABlockHasStorageOfItsOwn)
{
    const COM_Scoped block(Block::New(4UL));
    const COM_Scoped matrix(newMatrix(1.0));
    matrix->moveTo(*block, 0);
    const COM_Scoped copy(LA_RealMatrix::New(*matrix));
    EXPECT_EQ(block->getReferenceCount(), 2);
    copy->setValue(0, 0, 9.0);
    EXPECT_EQ(matrix->getValue(0, 0), 1.0);
    EXPECT_EQ(valuesOf(*copy), (std::vector<double>{9.0, 2.0, 3.0, 4.0}));
}

TEST(LA_Block, AComplexMatrixCanBeMadeInsideABlock)
{
    const COM_Scoped block(LA_Block<Complex>::New(6UL));
    for (unsigned long i = 0; i < 6; ++i) {
        block->getValues()[i] = Complex(static_cast<double>(i), 1.0);
    }
    {
        const COM_Scoped matrix(LA_ComplexMatrix::New(*block, 2UL, 2UL, 2UL));
        EXPECT_EQ(matrix->getReferenceCount(), 1);
        EXPECT_EQ(block->getReferenceCount(), 2);
        EXPECT_TRUE(block->isWhole());
        EXPECT_EQ(matrix->getValue(0, 0), Complex(2.0, 1.0));
        EXPECT_EQ(matrix->getValue(1, 1), Complex(5.0, 1.0));
        EXPECT_EQ(matrix->getTypes(),
                  (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Matrix",
                                            "LA_ComplexMatrix"}));
        matrix->setValue(1, 0, Complex(0.0, 0.0));
        EXPECT_EQ(block->getValues()[4], Complex(0.0, 0.0));
    }
    EXPECT_EQ(block->getReferenceCount(), 1);
    EXPECT_FALSE(block->isWhole());
}

TEST(LA_Block, AnEmptyMatrixMayLieAtTheEndOfABlock)
{
    const COM_Scoped block(LA_Block<unsigned long>::New(3UL));
    const COM_Scoped matrix(LA_IntegerMatrix::New(0, 0));
    matrix->moveTo(*block, 3);
    EXPECT_EQ(block->getReferenceCount(), 2);
    matrix->setDimensions(1, 1);
    EXPECT_EQ(block->getReferenceCount(), 1);
    EXPECT_EQ(matrix->getValue(0, 0), 0UL);
}
