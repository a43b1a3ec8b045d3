#include "quorvex/QV_InstructionSet.h"

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <unistd.h>

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

TEST(QV_InstructionSet, TheWidestLevelThatIsAvailableIsChosen)
{
    const QV_InstructionSet::Level widest = QV_InstructionSet::choose(nullptr);
    EXPECT_TRUE(QV_InstructionSet::isAvailable(widest));
    EXPECT_GE(widest, QV_InstructionSet::BASELINE);
    for (const auto level : {QV_InstructionSet::AVX2, QV_InstructionSet::AVX512}) {
        EXPECT_TRUE(level <= widest || !QV_InstructionSet::isAvailable(level))
            << QV_InstructionSet::getName(level);
    }
    EXPECT_EQ(QV_InstructionSet::choose("sse9"), widest);
    EXPECT_EQ(QV_InstructionSet::choose(""), widest);
}

TEST(QV_InstructionSet, ANameChoosesItsLevelAsFarAsItIsAvailable)
{
    const QV_InstructionSet::Level widest = QV_InstructionSet::choose(nullptr);
    for (const auto level : {QV_InstructionSet::PLAIN, QV_InstructionSet::BASELINE,
                             QV_InstructionSet::AVX2, QV_InstructionSet::AVX512}) {
        EXPECT_EQ(QV_InstructionSet::choose(QV_InstructionSet::getName(level)),
                  level <= widest ? level : widest);
    }
}

TEST(QV_InstructionSet, TheVariableOfTheEnvironmentDecidesWhatIsUsed)
{
    // In a fresh copy of the program, which has not asked yet.
    for (const auto level : {QV_InstructionSet::PLAIN, QV_InstructionSet::BASELINE}) {
        EXPECT_EXIT(
            {
                setenv("QUORVEX_INSTRUCTIONS", QV_InstructionSet::getName(level), 1);
                _exit(QV_InstructionSet::best());
            },
            testing::ExitedWithCode(level), "");
    }
    EXPECT_EQ(QV_InstructionSet::best(),
              QV_InstructionSet::choose(std::getenv(QV_InstructionSet::VARIABLE)));
    EXPECT_EQ(runInChild([] {
                  setenv("QUORVEX_INSTRUCTIONS", "plain", 1);
                  return static_cast<int>(QV_InstructionSet::best());
              }),
              static_cast<int>(QV_InstructionSet::best()))
        << "asked for once";
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
