#include "quorvex/QV_InstructionSet.h"

#include <gtest/gtest.h>

#include <string>

TEST(QV_InstructionSet, EveryLevelHasAName)
{
    EXPECT_EQ(std::string(QV_InstructionSet::getName(QV_InstructionSet::PLAIN)), "plain");
    EXPECT_EQ(std::string(QV_InstructionSet::getName(QV_InstructionSet::BASELINE)), "baseline");
    EXPECT_EQ(std::string(QV_InstructionSet::getName(QV_InstructionSet::AVX2)), "avx2");
    EXPECT_EQ(std::string(QV_InstructionSet::getName(QV_InstructionSet::AVX512)), "avx512");
}

TEST(QV_InstructionSet, ThePlainAndTheBaselineFormRunOnEveryProcessor)
{
    EXPECT_TRUE(QV_InstructionSet::isAvailable(QV_InstructionSet::PLAIN));
    EXPECT_TRUE(QV_InstructionSet::isAvailable(QV_InstructionSet::BASELINE));
}

TEST(QV_InstructionSet, TheBestLevelIsTheWidestThatIsAvailable)
{
    const QV_InstructionSet::Level best = QV_InstructionSet::best();
    EXPECT_TRUE(QV_InstructionSet::isAvailable(best));
    EXPECT_GE(best, QV_InstructionSet::BASELINE);
    for (const auto level : {QV_InstructionSet::AVX2, QV_InstructionSet::AVX512}) {
        EXPECT_TRUE(level <= best || !QV_InstructionSet::isAvailable(level))
            << QV_InstructionSet::getName(level);
    }
    EXPECT_EQ(QV_InstructionSet::best(), best);
}

#if defined(__x86_64__)
TEST(QV_InstructionSet, VectorFormsAreAvailableWhereTheProcessorOffersTheirInstructions)
{
    EXPECT_EQ(QV_InstructionSet::isAvailable(QV_InstructionSet::AVX2),
              __builtin_cpu_supports("avx2") != 0);
    EXPECT_EQ(QV_InstructionSet::isAvailable(QV_InstructionSet::AVX512),
              __builtin_cpu_supports("avx512f") != 0);
}
#endif
