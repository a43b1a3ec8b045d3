#include "common/COM_Random.h"

#include "common/COM_Scoped.h"

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
#include <string>
#include <vector>

namespace {

long setClock = -1; ///< What `clock` gives; the processor's time if negative.

}

/// Stands in for the C library's clock in this program, so that a test can choose the seed.
extern "C" clock_t clock() noexcept
{
    if (setClock >= 0) {
        return setClock;
    }
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * CLOCKS_PER_SEC + now.tv_nsec / (1000000000 / CLOCKS_PER_SEC);
}

namespace {

class COM_RandomTest : public testing::Test
{
protected:
    ~COM_RandomTest() override { setClock = -1; }

    static std::vector<double> sample(long seed, double mean, double deviation, unsigned long n)
    {
        setClock = seed;
        std::vector<double> values(n);
        COM_Random::gauss(mean, deviation, n, values.data());
        return values;
    }
};

/// One draw, written out: whether it is kept, its value, and the next `t`.
bool drawn(long& t, double& value)
{
    const long next = (31415821L * (t % 100000000L) + 1) % 100000000L;
    const double a = 2.0 * static_cast<double>(next) / 1e8 - 1.0;
    const double b = 2.0 * static_cast<double>(t) / 1e8 - 1.0;
    const double r = a * a + b * b;
    t = next;
    value = std::sqrt(-2.0 * std::log(r) / r) * a;
    return r <= 1.0;
}

const std::vector<long> seeds{0, 1, 2500, 12345, 999999, 31415926, 49999999, 50000000, 99999999};

} // namespace

TEST_F(COM_RandomTest, AnObjectCanBeMadeThoughAllIsStatic)
{
    const COM_Scoped random(COM_Random::New());
    EXPECT_EQ(random->getReferenceCount(), 1);
    EXPECT_EQ(random->getTypes(), (std::vector<std::string>{"COM_Object", "COM_Random"}));
}

TEST_F(COM_RandomTest, EverySampleFollowsTheFormula)
{
    for (const long seed : seeds) {
        long t = seed;
        std::vector<double> expected;
        while (expected.size() < 1000) {
            double value = 0.0;
            if (drawn(t, value)) {
                expected.push_back(0.25 * value - 3.0);
            }
        }
        EXPECT_EQ(sample(seed, -3.0, 0.25, 1000), expected) << seed;
    }
}

TEST_F(COM_RandomTest, AClockOfManyDaysIsASeedLikeAnyOther)
{
    // A month of processor time: the product of factor and clock no longer fits in 64 bits.
    const long seed = 30L * 24 * 3600 * 1000000;
    long t = seed;
    double ignored = 0.0;
    EXPECT_FALSE(drawn(t, ignored));
    std::vector<double> expected;
    while (expected.size() < 10) {
        double value = 0.0;
        if (drawn(t, value)) {
            expected.push_back(value);
        }
    }
    EXPECT_EQ(sample(seed, 0.0, 1.0, 10), expected);
}

TEST_F(COM_RandomTest, TheMomentsAreThoseOfTheNormalLaw)
{
    constexpr unsigned long n = 200000;
    for (const long seed : seeds) {
        double moments[5] = {};
        unsigned long inside = 0;
        for (const double value : sample(seed, 5.0, 2.0, n)) {
            const double x = (value - 5.0) / 2.0;
            inside += std::fabs(x) < 1.0 ? 1 : 0;
            for (int k = 1; k <= 4; ++k) {
                moments[k] += std::pow(x, k) / static_cast<double>(n);
            }
        }
        // Five standard errors of independent samples: the k-th moment has the variance of x^k over n.
        const double error = 5.0 / std::sqrt(static_cast<double>(n));
        EXPECT_NEAR(moments[1], 0.0, error * 1.0) << seed;
        EXPECT_NEAR(moments[2], 1.0, error * std::sqrt(2.0)) << seed;
        EXPECT_NEAR(moments[3], 0.0, error * std::sqrt(15.0)) << seed;
        EXPECT_NEAR(moments[4], 3.0, error * std::sqrt(96.0)) << seed;
        EXPECT_NEAR(static_cast<double>(inside) / static_cast<double>(n), 0.682689,
                    error * std::sqrt(0.6827 * 0.3173))
            << seed;
    }
}

TEST_F(COM_RandomTest, ADeviationOfZeroGivesTheMeanAlone)
{
    EXPECT_EQ(sample(12345, 7.5, 0.0, 4), (std::vector<double>{7.5, 7.5, 7.5, 7.5}));
}

TEST_F(COM_RandomTest, NoValuesAskedForAreNoValuesWritten)
{
    double untouched = 42.0;
    COM_Random::gauss(0.0, 1.0, 0, &untouched);
    EXPECT_EQ(untouched, 42.0);
}

TEST_F(COM_RandomTest, ASingleDrawOutsideTheCircleIsNotANumber)
{
    // The seed 0 gives b = -1, so that r is above 1.
    setClock = 0;
    EXPECT_TRUE(std::isnan(COM_Random::gauss(1.0, 2.0)));
    int kept = 0;
    int dropped = 0;
    for (long seed = 0; seed < 100000000; seed += 999983) {
        setClock = seed;
        const double value = COM_Random::gauss(1.0, 2.0);
        long t = seed;
        double expected = 0.0;
        if (drawn(t, expected)) {
            ++kept;
            EXPECT_EQ(value, 2.0 * expected + 1.0) << seed;
        } else {
            ++dropped;
            EXPECT_TRUE(std::isnan(value)) << seed;
        }
    }
    EXPECT_GT(kept, 0);
    EXPECT_GT(dropped, 0);
}

TEST_F(COM_RandomTest, TwoCallsWithinOneTickGiveTheSameNumbers)
{
    setClock = 50000000;
    EXPECT_EQ(COM_Random::gauss(0.0, 1.0), COM_Random::gauss(0.0, 1.0));
    EXPECT_EQ(sample(777777, 0.0, 1.0, 50), sample(777777, 0.0, 1.0, 50));
    EXPECT_NE(sample(777777, 0.0, 1.0, 50), sample(777778, 0.0, 1.0, 50));
}

TEST_F(COM_RandomTest, TheProcessorsTimeIsTheSeed)
{
    const clock_t before = clock();
    std::vector<double> values(3);
    COM_Random::gauss(0.0, 1.0, 3, values.data());
    const clock_t after = clock();
    bool isFound = false;
    for (long seed = before; seed <= after && !isFound; ++seed) {
        isFound = sample(seed, 0.0, 1.0, 3) == values;
    }
    EXPECT_TRUE(isFound) << before << " to " << after;
}
