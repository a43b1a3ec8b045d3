#pragma once

/// The vector instructions that the solver's kernels are compiled for. Each gives the same results to the
/// last bit; they differ in the number of nodes treated side by side.
class QV_InstructionSet
{
public:
    enum Level { PLAIN, BASELINE, AVX2, AVX512 };

    /// Environment variable with the name of the level to be used.
    static constexpr const char* VARIABLE = "QUORVEX_INSTRUCTIONS";

    /// What `choose` gives for the variable, asked for once.
    static Level best();
    /// The level of that name, or the widest one that this processor offers: for null, a name that is not known, and a
    /// level that is beyond it.
    static Level choose(const char* name);
    /// True when this processor can run code for `level`.
    static bool isAvailable(Level level);
    static const char* getName(Level level);
};
