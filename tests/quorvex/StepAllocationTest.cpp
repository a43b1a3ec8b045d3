#include "linearAlgebra/LA_RealMatrix.h"
#include "support/TestProblem.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

extern "C" int __sanitizer_install_malloc_and_free_hooks(
    void (*onAllocation)(const volatile void* block, std::size_t size),
    void (*onRelease)(const volatile void* block)); // gcc installs no header of it

// A time step takes no memory from the system: what it needs is there from the first one on.

namespace {

unsigned long allocated = 0;

void countAllocation(const volatile void* /*block*/, std::size_t /*size*/)
{
    ++allocated;
}

void ignoreRelease(const volatile void* /*block*/) {}

/// Sweeps schemes, numbers of levels and of systems.
class StepAllocationTest
    : public testing::TestWithParam<std::tuple<unsigned char, unsigned long, unsigned long>>
{
protected:
    static constexpr unsigned long steps = 100;

    static void SetUpTestSuite()
    {
        ASSERT_GT(__sanitizer_install_malloc_and_free_hooks(countAllocation, ignoreRelease), 0);
    }

    /// What each step of a run allocates, with the lines that it writes.
    std::vector<unsigned long> allocations()
    {
        std::vector<unsigned long> found;
        found.reserve(steps);
        unsigned long before = 0;
        mProblem->setWatcher([&found, &before] {
            found.push_back(allocated - before);
            before = allocated;
        });
        mProblem.out().mInts.reserve(steps);
        printedBy([this] { mProblem->run(mProblem.out()); });
        return found;
    }

    TestProblem mProblem;
};

} // namespace

TEST_P(StepAllocationTest, StepsAfterTheFirstAllocateNothing)
{
    const auto [method, levels, systems] = GetParam();
    QV_Bloch::setLevelsNumber(levels);
    const COM_Scoped dipoles(LA_RealMatrix::New(levels, levels));
    for (unsigned long a = 1; a < levels; ++a) {
        (*dipoles)[a][a - 1] = 1e-30;
        (*dipoles)[a - 1][a] = 1e-30;
    }
    QV_Bloch::setPolarization(*dipoles, 0);
    while (mProblem->getBlochEquations()->size() < systems) {
        mProblem.addSystem();
    }
    mProblem->setMethod(method);
    mProblem.wave().setFieldMaxValue(1e6);
    mProblem->setMaxTimeStepsNumber(steps);
    const std::vector<unsigned long> found = allocations();
    ASSERT_EQ(found.size(), steps);
    EXPECT_GT(found[0], 0UL);
    EXPECT_EQ(std::vector<unsigned long>(found.begin() + 1, found.end()),
              std::vector<unsigned long>(steps - 1, 0UL));
}

INSTANTIATE_TEST_SUITE_P(
    Schemes, StepAllocationTest,
    testing::Combine(testing::Range<unsigned char>(0, QV_Problem::mMethodsNameLength),
                     testing::Range(2UL, 6UL), testing::Values(1UL, 2UL)),
    [](const auto& scheme) {
        return std::string(QV_Problem::mMethodsName[std::get<0>(scheme.param)]) + "_"
               + std::to_string(std::get<1>(scheme.param)) + "_levels_"
               + std::to_string(std::get<2>(scheme.param)) + "_systems";
    });
