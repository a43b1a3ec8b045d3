#pragma once
#include "quorvex/QV_Inline.h"

#include <type_traits>
#include <utility>

/// Loops whose index is a constant in each turn. Small matrices of packs that are indexed by it alone are
/// kept in registers, which those of a loop that the compiler unrolls late are not.
class QV_Unroll
{
public:
    /// `body(0)` to `body(N - 1)`.
    template <int N, typename Body>
    QV_INLINE static void each(const Body& body)
    {
        each(body, std::make_integer_sequence<int, N>{});
    }

private:
    template <typename Body, int... I>
    QV_INLINE static void each(const Body& body, std::integer_sequence<int, I...> /*indices*/)
    {
        (body(std::integral_constant<int, I>{}), ...);
    }
};
