#include "linearAlgebra/LA_RealMatrix.h"

#include "common/COM_Scoped.h"
#include "support/Description.h"
#include "support/Locales.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

using Values = std::vector<double>;

LA_RealMatrix* newMatrix(const Values& values, unsigned long n, unsigned long p)
{
    auto* const matrix = LA_RealMatrix::New(n, p);
    matrix->setValues(values, n, p);
    return matrix;
}

/// The solution of a dense system by Gaussian elimination with pivoting.
Values denseSolution(std::vector<Values> a, Values b)
{
    const std::size_t n = b.size();
    for (std::size_t k = 0; k < n; ++k) {
        std::size_t pivot = k;
        for (std::size_t i = k + 1; i < n; ++i) {
            pivot = std::fabs(a[i][k]) > std::fabs(a[pivot][k]) ? i : pivot;
        }
        std::swap(a[k], a[pivot]);
        std::swap(b[k], b[pivot]);
        for (std::size_t i = k + 1; i < n; ++i) {
            const double f = a[i][k] / a[k][k];
            for (std::size_t j = k; j < n; ++j) {
                a[i][j] -= f * a[k][j];
            }
            b[i] -= f * b[k];
        }
    }
    for (std::size_t k = n; k-- > 0;) {
        for (std::size_t j = k + 1; j < n; ++j) {
            b[k] -= a[k][j] * b[j];
        }
        b[k] /= a[k][k];
    }
    return b;
}

/// Solves by the tridiagonal solver; empty when it gives null.
Values tridiagonal(const Values& lower, const Values& diagonal, const Values& upper,
                   const Values& rhs)
{
    const std::unique_ptr<double[]> x(LA_RealMatrix::solveTridiagonalMatrix(
        lower.data(), diagonal.data(), upper.data(), rhs.data(), rhs.size()));
    return x ? Values(x.get(), x.get() + rhs.size()) : Values();
}

/// Solves by the circular solver; empty when it gives null.
Values circular(const Values& offDiagonal, const Values& diagonal, const Values& rhs)
{
    const std::unique_ptr<double[]> x(LA_RealMatrix::solveSymetricCircularTridiagonalMatrix(
        offDiagonal.data(), diagonal.data(), rhs.data(), rhs.size()));
    return x ? Values(x.get(), x.get() + rhs.size()) : Values();
}

void expectNear(const Values& found, const Values& expected)
{
    ASSERT_EQ(found.size(), expected.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        // Diagonals dominate by a margin of 1, so that errors don't grow: some roundings of numbers near 1.
        EXPECT_NEAR(found[i], expected[i], 1e-13) << i;
    }
}

} // namespace

TEST(LA_RealMatrix, TheChainOfTypesEndsWithItsName)
{
    EXPECT_EQ(COM_Scoped(LA_RealMatrix::New(1, 1))->getTypes(),
              (std::vector<std::string>{"COM_Object", "MM_Object", "LA_Object", "LA_Matrix",
                                        "LA_RealMatrix"}));
}

TEST(LA_RealMatrix, TheTextHasATabBehindEachValueAndALineForEachLine)
{
    EXPECT_EQ(COM_Scoped(newMatrix({1.0, -2.5, 1e100, 0.1234567891}, 2, 2))->toString(),
              "1.000000e+00\t-2.500000e+00\t\n1.000000e+100\t1.234568e-01\t\n");
    EXPECT_EQ(COM_Scoped(newMatrix({INFINITY}, 1, 1))->toString(), "     inf\t\n");
    EXPECT_EQ(COM_Scoped(LA_RealMatrix::New(2, 0))->toString(), "\n\n");
}

TEST(LA_RealMatrix, AnElementIsReadFromAText)
{
    const COM_Scoped m(newMatrix({0.0, 0.0}, 1, 2));
    m->setValueFromString(0, 1, "1.5D3");
    m->setValueFromString(1, 0, "7");
    EXPECT_EQ(m->getValue(0, 1), 1500.0);
    EXPECT_EQ(m->getValue(0, 0), 0.0);
}

TEST(LA_RealMatrix, TheLargestElementMayBeNegative)
{
    const COM_Scoped m(newMatrix({-3.0, -1.0, -2.0}, 1, 3));
    EXPECT_EQ(m->getMaxValue(), -1.0);
    EXPECT_EQ(m->maxValue(), -1.0);
    EXPECT_EQ(COM_Scoped(LA_RealMatrix::New(0, 0))->maxValue(), 0.0);
}

TEST(LA_RealMatrix, StoredValuesHaveSevenDigits)
{
    const COM_Scoped m(newMatrix({0.1234567891, 2.0}, 1, 2));
    EXPECT_EQ(Description(*m).text(),
              "{mColumnsNumber=[2] mLinesNumber=[1] mValues=[1.234568e-01|2.000000e+00]}");
    const COM_Scoped copy(LA_RealMatrix::New(1, 1));
    copy->loadFromMetaClass(Description(*m).node());
    EXPECT_EQ(copy->getValue(0, 0), 0.1234568);
}

TEST(LA_RealMatrix, NoLocaleChangesAText)
{
    const CommaLocale locale;
    EXPECT_EQ(COM_Scoped(newMatrix({1234.5}, 1, 1))->toString(), "1.234500e+03\t\n");
}

TEST(LA_RealMatrix, ATridiagonalSystemOfNothingHasNoSolution)
{
    EXPECT_EQ(LA_RealMatrix::solveTridiagonalMatrix(nullptr, nullptr, nullptr, nullptr, 0),
              nullptr);
}

TEST(LA_RealMatrix, ATridiagonalSystemOfOneUnknownIsADivision)
{
    EXPECT_EQ(tridiagonal({}, {4.0}, {}, {10.0}), Values{2.5});
    EXPECT_EQ(tridiagonal({}, {0.0}, {}, {10.0}), Values{});
}

TEST(LA_RealMatrix, SmallTridiagonalSystemsAreSolvedExactly)
{
    // 2 x + y = 3, x + 3 y = 4
    EXPECT_EQ(tridiagonal({1.0}, {2.0, 3.0}, {1.0}, {3.0, 4.0}), (Values{1.0, 1.0}));
    // x + 2 y = 5, 3 x + 4 y + 5 z = 26, 6 y + 7 z = 33, with x = 1, y = 2, z = 3
    EXPECT_EQ(tridiagonal({3.0, 6.0}, {1.0, 4.0, 7.0}, {2.0, 5.0}, {5.0, 26.0, 33.0}),
              (Values{1.0, 2.0, 3.0}));
}

TEST(LA_RealMatrix, AZeroPivotBeforeTheLastGivesNull)
{
    EXPECT_EQ(tridiagonal({1.0}, {0.0, 1.0}, {1.0}, {1.0, 1.0}), Values{});
    // The second pivot is 1 - 1 * 1 / 1.
    EXPECT_EQ(tridiagonal({1.0, 1.0}, {1.0, 1.0, 1.0}, {1.0, 1.0}, {1.0, 1.0, 1.0}), Values{});
}

TEST(LA_RealMatrix, AZeroPivotAtTheEndGivesNoNumber)
{
    const Values x = tridiagonal({1.0}, {1.0, 1.0}, {1.0}, {1.0, 2.0});
    ASSERT_EQ(x.size(), 2UL);
    EXPECT_FALSE(std::isfinite(x[1]));
}

TEST(LA_RealMatrix, TridiagonalSystemsHaveTheSolutionOfDenseElimination)
{
    std::mt19937 random(10);
    std::uniform_real_distribution<double> distribution(-1.0, 1.0);
    for (std::size_t n = 1; n <= 40; ++n) {
        Values lower(n - 1);
        Values diagonal(n);
        Values upper(n - 1);
        Values rhs(n);
        std::vector<Values> dense(n, Values(n));
        for (std::size_t i = 0; i < n; ++i) {
            dense[i][i] = diagonal[i] = 3.0 + distribution(random);
            rhs[i] = distribution(random);
            if (i + 1 < n) {
                dense[i + 1][i] = lower[i] = distribution(random);
                dense[i][i + 1] = upper[i] = distribution(random);
            }
        }
        SCOPED_TRACE(n);
        expectNear(tridiagonal(lower, diagonal, upper, rhs), denseSolution(dense, rhs));
    }
}

TEST(LA_RealMatrix, ACircularSystemOfNothingHasNoSolution)
{
    EXPECT_EQ(LA_RealMatrix::solveSymetricCircularTridiagonalMatrix(nullptr, nullptr, nullptr, 0),
              nullptr);
}

TEST(LA_RealMatrix, ACircularSystemOfOneUnknownIsADivision)
{
    EXPECT_EQ(circular({0.0}, {4.0}, {10.0}), Values{2.5});
    EXPECT_EQ(circular({0.0}, {0.0}, {10.0}), Values{});
}

TEST(LA_RealMatrix, SmallCircularSystemsAreSolvedExactly)
{
    // Both elements beside the diagonal join the two unknowns: 4 x + (1 + 1) y = 8, (1 + 1) x + 4 y = 10
    EXPECT_EQ(circular({1.0, 1.0}, {4.0, 4.0}, {8.0, 10.0}), (Values{1.0, 2.0}));
    // 4 x + y + 2 z = 12, x + 4 y + 3 z = 18, 2 x + 3 y + 8 z = 32, with x = 1, y = 2, z = 3
    const Values x = circular({1.0, 3.0, 2.0}, {4.0, 4.0, 8.0}, {12.0, 18.0, 32.0});
    expectNear(x, {1.0, 2.0, 3.0});
}

TEST(LA_RealMatrix, AZeroPivotOfACircularSystemGivesNull)
{
    EXPECT_EQ(circular({1.0, 1.0, 1.0}, {0.0, 4.0, 4.0}, {1.0, 1.0, 1.0}), Values{});
    EXPECT_EQ(circular({2.0, 1.0, 1.0}, {2.0, 2.0, 4.0}, {1.0, 1.0, 1.0}), Values{});
    // The last pivot: 2 - 2 * 2 / 2.
    EXPECT_EQ(circular({1.0, 1.0}, {2.0, 2.0}, {1.0, 1.0}), Values{});
}

TEST(LA_RealMatrix, CircularSystemsHaveTheSolutionOfDenseElimination)
{
    std::mt19937 random(11);
    std::uniform_real_distribution<double> distribution(-1.0, 1.0);
    for (std::size_t n = 2; n <= 40; ++n) {
        Values offDiagonal(n);
        Values diagonal(n);
        Values rhs(n);
        std::vector<Values> dense(n, Values(n));
        for (std::size_t i = 0; i < n; ++i) {
            const std::size_t next = (i + 1) % n;
            diagonal[i] = 4.0 + distribution(random);
            offDiagonal[i] = distribution(random);
            rhs[i] = distribution(random);
            dense[i][i] += diagonal[i];
            dense[i][next] += offDiagonal[i];
            dense[next][i] += offDiagonal[i];
        }
        SCOPED_TRACE(n);
        expectNear(circular(offDiagonal, diagonal, rhs), denseSolution(dense, rhs));
    }
}

TEST(LA_RealMatrix, ACircularSystemNeedNotBePositive)
{
    // The factorisation takes no roots, so negative pivots do no harm.
    const Values x = circular({1.0, 1.0, 1.0}, {-4.0, 5.0, -6.0}, {-2.0, 7.0, -4.0});
    expectNear(x, {1.0, 1.0, 1.0});
}
