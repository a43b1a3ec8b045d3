#include "quorvex/QV_InstructionSet.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

QV_InstructionSet::Level QV_InstructionSet::best()
{
    static const Level level = choose(std::getenv(VARIABLE));
    return level;
}

QV_InstructionSet::Level QV_InstructionSet::choose(const char* name)
{
    const Level widest = isAvailable(AVX512) ? AVX512 : isAvailable(AVX2) ? AVX2 : BASELINE;
    for (const Level level : {PLAIN, BASELINE, AVX2, AVX512}) {
        if (name != nullptr && std::strcmp(name, getName(level)) == 0) {
            return std::min(level, widest);
        }
    }
    return widest;
}

bool QV_InstructionSet::isAvailable(Level level)
{
#if defined(__x86_64__)
    if (level == AVX512) {
        return __builtin_cpu_supports("avx512f") != 0;
    }
    if (level == AVX2) {
        return __builtin_cpu_supports("avx2") != 0;
    }
    return true;
#else
    return level == PLAIN || level == BASELINE;
#endif
}

const char* QV_InstructionSet::getName(Level level)
{
    switch (level) {
    case PLAIN:
        return "plain";
    case BASELINE:
        return "baseline";
    case AVX2:
        return "avx2";
    default:
        return "avx512";
    }
}
