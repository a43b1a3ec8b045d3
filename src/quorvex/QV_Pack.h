#pragma once
#include "quorvex/QV_Inline.h"

/// The compiler's vector types, for `QV_Pack`.
template <int W>
struct QV_PackType;
template <>
struct QV_PackType<2>
{
    using Real = double __attribute__((vector_size(2 * sizeof(double))));
    using Mask = long __attribute__((vector_size(2 * sizeof(long))));
};
template <>
struct QV_PackType<4>
{
    using Real = double __attribute__((vector_size(4 * sizeof(double))));
    using Mask = long __attribute__((vector_size(4 * sizeof(long))));
};
template <>
struct QV_PackType<8>
{
    using Real = double __attribute__((vector_size(8 * sizeof(double))));
    using Mask = long __attribute__((vector_size(8 * sizeof(long))));
};

/// Numbers side by side, one for each of several nodes, on which arithmetic works lane by lane.
///
/// A kernel written on `QV_Pack<W>::Real` is the plain form for W = 1, where a pack is one double, and the
/// batched form for W = 2, 4 and 8. The operations and their order are the same, and so are the results,
/// bit for bit but for the signs of not-a-numbers. Packs are handed over by reference only, so that no
/// calling convention depends on the instructions compiled for.
template <int W>
struct QV_Pack
{
    using Real = typename QV_PackType<W>::Real;
    using Mask = typename QV_PackType<W>::Mask;

    QV_INLINE static double get(const Real& pack, int lane) { return pack[lane]; }
    QV_INLINE static void set(Real& pack, int lane, double value) { pack[lane] = value; }
    QV_INLINE static void setAll(Mask& mask) { mask = Mask{} == Mask{}; }
    QV_INLINE static bool isSet(const Mask& mask, int lane) { return mask[lane] != 0; }
    QV_INLINE static bool isAny(const Mask& mask)
    {
        long bits = 0;
        for (int lane = 0; lane < W; ++lane) {
            bits |= mask[lane];
        }
        return bits != 0;
    }

    /// Exchanges lanes and rows of W packs.
    QV_INLINE static void transpose(Real (&rows)[W])
    {
        if constexpr (W == 2) {
            const Real a = rows[0];
            rows[0] = __builtin_shufflevector(a, rows[1], 0, 2);
            rows[1] = __builtin_shufflevector(a, rows[1], 1, 3);
        } else if constexpr (W == 4) {
            Real pairs[W];
            for (int i = 0; i < W; i += 2) {
                pairs[i] = __builtin_shufflevector(rows[i], rows[i + 1], 0, 4, 2, 6);
                pairs[i + 1] = __builtin_shufflevector(rows[i], rows[i + 1], 1, 5, 3, 7);
            }
            for (int i = 0; i < 2; ++i) {
                rows[i] = __builtin_shufflevector(pairs[i], pairs[i + 2], 0, 1, 4, 5);
                rows[i + 2] = __builtin_shufflevector(pairs[i], pairs[i + 2], 2, 3, 6, 7);
            }
        } else {
            Real pairs[W];
            for (int i = 0; i < W; i += 2) {
                pairs[i] = __builtin_shufflevector(rows[i], rows[i + 1], 0, 8, 2, 10, 4, 12, 6, 14);
                pairs[i + 1] =
                    __builtin_shufflevector(rows[i], rows[i + 1], 1, 9, 3, 11, 5, 13, 7, 15);
            }
            Real fours[W];
            for (int i = 0; i < W; i += 4) {
                for (int j = i; j < i + 2; ++j) {
                    fours[j] =
                        __builtin_shufflevector(pairs[j], pairs[j + 2], 0, 1, 8, 9, 4, 5, 12, 13);
                    fours[j + 2] =
                        __builtin_shufflevector(pairs[j], pairs[j + 2], 2, 3, 10, 11, 6, 7, 14, 15);
                }
            }
            for (int i = 0; i < 4; ++i) {
                rows[i] = __builtin_shufflevector(fours[i], fours[i + 4], 0, 1, 2, 3, 8, 9, 10, 11);
                rows[i + 4] =
                    __builtin_shufflevector(fours[i], fours[i + 4], 4, 5, 6, 7, 12, 13, 14, 15);
            }
        }
    }

    /// Reads `count` numbers of each of W nodes, which lie `stride` numbers apart, into `packs[0..count)`.
    QV_INLINE static void load(const double* from, unsigned long stride, unsigned long count,
                               Real* packs)
    {
        unsigned long i = 0;
        for (; i + W <= count; i += W) {
            Real rows[W];
            for (int lane = 0; lane < W; ++lane) {
                __builtin_memcpy(&rows[lane], from + static_cast<unsigned long>(lane) * stride + i,
                                 sizeof(Real));
            }
            transpose(rows);
            for (int j = 0; j < W; ++j) {
                packs[i + static_cast<unsigned long>(j)] = rows[j];
            }
        }
        for (; i < count; ++i) {
            for (int lane = 0; lane < W; ++lane) {
                set(packs[i], lane, from[static_cast<unsigned long>(lane) * stride + i]);
            }
        }
    }

    /// Writes them back.
    QV_INLINE static void store(const Real* packs, unsigned long stride, unsigned long count,
                                double* to)
    {
        unsigned long i = 0;
        for (; i + W <= count; i += W) {
            Real rows[W];
            for (int j = 0; j < W; ++j) {
                rows[j] = packs[i + static_cast<unsigned long>(j)];
            }
            transpose(rows);
            for (int lane = 0; lane < W; ++lane) {
                __builtin_memcpy(to + static_cast<unsigned long>(lane) * stride + i, &rows[lane],
                                 sizeof(Real));
            }
        }
        for (; i < count; ++i) {
            for (int lane = 0; lane < W; ++lane) {
                to[static_cast<unsigned long>(lane) * stride + i] = get(packs[i], lane);
            }
        }
    }
};

template <>
struct QV_Pack<1>
{
    using Real = double;
    using Mask = bool;

    static double get(const Real& pack, int /*lane*/) { return pack; }
    static void setAll(Mask& mask) { mask = true; }
    static bool isSet(const Mask& mask, int /*lane*/) { return mask; }
    static bool isAny(const Mask& mask) { return mask; }
    static void load(const double* from, unsigned long /*stride*/, unsigned long count, Real* packs)
    {
        __builtin_memcpy(packs, from, count * sizeof(Real));
    }
    static void store(const Real* packs, unsigned long /*stride*/, unsigned long count, double* to)
    {
        __builtin_memcpy(to, packs, count * sizeof(Real));
    }
};
