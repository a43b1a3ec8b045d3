#pragma once

/// The vector instructions that the solver's kernels are compiled for. Each gives the same results to the
/// last bit; they differ in the number of nodes treated side by side.
class QV_InstructionSet
{
public:
    enum Level { PLAIN, BASELINE, AVX2, AVX512 };

    /// The widest one that this processor offers, asked for once.
    static Level best();
    /// True when this processor can run code for `level`.
    static bool isAvailable(Level level);
    static const char* getName(Level level);
};
