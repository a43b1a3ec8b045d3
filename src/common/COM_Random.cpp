#include "common/COM_Random.h"

#include <cmath>
#include <ctime>
#include <limits>

const long COM_Random::M_A = 31415821;
const long COM_Random::M_B = 1;
const long COM_Random::M_M = 100000000;

COM_Random::COM_Random()
{
    COM_TYPE(COM_Random);
}

bool COM_Random::draw(long& t, double& value)
{
    // The first t is the clock itself; after some days of processor time the product leaves 64 bits.
    __extension__ using Wide = __int128;
    const auto next = static_cast<long>((static_cast<Wide>(M_A) * t + M_B) % M_M);
    const double a = 2.0 * static_cast<double>(next) / static_cast<double>(M_M) - 1.0;
    const double b = 2.0 * static_cast<double>(t) / static_cast<double>(M_M) - 1.0;
    const double r = a * a + b * b;
    t = next;
    if (r > 1.0) {
        return false;
    }
    value = std::sqrt(-2.0 * std::log(r) / r) * a;
    return true;
}

void COM_Random::gauss(double mean, double deltaType, unsigned long n, double* out)
{
    long t = std::clock();
    for (unsigned long i = 0; i < n;) {
        if (draw(t, out[i])) {
            ++i;
        }
    }
    for (unsigned long i = 0; i < n; ++i) {
        out[i] = deltaType * out[i] + mean;
    }
}

double COM_Random::gauss(double mean, double deltaType)
{
    long t = std::clock();
    double value = 0.0;
    return draw(t, value) ? deltaType * value + mean : std::numeric_limits<double>::quiet_NaN();
}
