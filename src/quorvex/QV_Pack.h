#pragma once
#include "quorvex/QV_Inline.h"
#include "quorvex/QV_Unroll.h"

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

    /// Sets bits of a lane of `mask` where those of `a` and `b` differ.
    QV_INLINE static void addDifference(const Real& a, const Real& b, Mask& mask)
    {
        mask |= reinterpret_cast<const Mask&>(a) ^ reinterpret_cast<const Mask&>(b);
    }
    /// Sets those bits of a lane of `mask` that are set in `pack`.
    QV_INLINE static void addBits(const Real& pack, Mask& mask)
    {
        mask |= reinterpret_cast<const Mask&>(pack);
    }
    /// Whether a bit of any lane is set.
    QV_INLINE static bool isAnyBit(const Mask& mask)
    {
        if constexpr (W == 2) {
            return (mask[0] | mask[1]) != 0;
        } else {
            typename QV_PackType<W / 2>::Mask halves[2];
            __builtin_memcpy(halves, &mask, sizeof(Mask));
            halves[0] |= halves[1];
            return QV_Pack<W / 2>::isAnyBit(halves[0]);
        }
    }

    /// The mask as one number, of which each lane has 64 / W bits.
    static constexpr unsigned long ALL_BITS = ~0UL;
    QV_INLINE static unsigned long bits(const Mask& mask)
    {
        unsigned long number = 0;
        if constexpr (W == 2) {
            using Small = int __attribute__((vector_size(2 * sizeof(int))));
            const Small small = __builtin_convertvector(mask, Small);
            __builtin_memcpy(&number, &small, sizeof(number));
        } else if constexpr (W == 4) {
            using Halves = int __attribute__((vector_size(8 * sizeof(int))));
            const auto halves = reinterpret_cast<Halves>(mask);
            const auto low = __builtin_shufflevector(halves, halves, 0, 2, 4, 6);
            unsigned long parts[2];
            __builtin_memcpy(parts, &low, sizeof(parts));
            number = (parts[0] & 0x0000ffff0000ffffUL) | (parts[1] & 0xffff0000ffff0000UL);
        } else {
            using Small = signed char __attribute__((vector_size(8)));
            const Small small = __builtin_convertvector(mask, Small);
            __builtin_memcpy(&number, &small, sizeof(number));
        }
        return number;
    }

    /// Numbers of W neighbouring nodes.
    QV_INLINE static void loadRow(const double* from, Real& pack)
    {
        __builtin_memcpy(&pack, from, sizeof(Real));
    }
    QV_INLINE static void storeRow(const Real& pack, double* to)
    {
        __builtin_memcpy(to, &pack, sizeof(Real));
    }
    QV_INLINE static void storeRow(const Mask& pack, unsigned long* to)
    {
        __builtin_memcpy(to, &pack, sizeof(Mask));
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

    /// Reads COUNT complex numbers of each of W nodes, which follow each other.
    template <int COUNT>
    QV_INLINE static void loadComplex(const double* from, Real* re, Real* im)
    {
        constexpr int done = W == 8 ? COUNT / 2 * 2 : 0;
        QV_Unroll::each<done / 2>([&](auto half) __attribute__((always_inline)) {
            constexpr int i = 2 * half;
            Real rows[4]; // of nodes 0 and 4, 1 and 5, ...
            QV_Unroll::each<4>([&](auto row) __attribute__((always_inline)) {
                gather<4, W>(from + row * 2 * COUNT + 2 * i, 4 * 2 * COUNT, rows[row]);
            });
            exchangeOnes(rows[0], rows[1]);
            exchangeOnes(rows[2], rows[3]);
            exchangeTwos(rows[0], rows[2]);
            exchangeTwos(rows[1], rows[3]);
            re[i] = rows[0];
            im[i] = rows[1];
            re[i + 1] = rows[2];
            im[i + 1] = rows[3];
        });
        QV_Unroll::each<COUNT - done>([&](auto rest) __attribute__((always_inline)) {
            constexpr unsigned long i = done + rest;
            gather<2, W>(from + 2 * i, 2 * 2 * COUNT, re[i]);
            gather<2, W>(from + 2UL * COUNT + 2 * i, 2 * 2 * COUNT, im[i]);
            exchangeOnes(re[i], im[i]);
        });
    }

    /// Writes them back.
    template <int COUNT>
    QV_INLINE static void storeComplex(const Real* re, const Real* im, double* to)
    {
        constexpr int done = W == 8 ? COUNT / 2 * 2 : 0;
        QV_Unroll::each<done / 2>([&](auto half) __attribute__((always_inline)) {
            constexpr int i = 2 * half;
            Real rows[4] = {re[i], im[i], re[i + 1], im[i + 1]};
            exchangeOnes(rows[0], rows[1]);
            exchangeOnes(rows[2], rows[3]);
            exchangeTwos(rows[0], rows[2]);
            exchangeTwos(rows[1], rows[3]);
            QV_Unroll::each<4>([&](auto row) __attribute__((always_inline)) {
                scatter<4, W>(rows[row], to + row * 2 * COUNT + 2 * i, 4 * 2 * COUNT);
            });
        });
        QV_Unroll::each<COUNT - done>([&](auto rest) __attribute__((always_inline)) {
            constexpr unsigned long i = done + rest;
            Real even = re[i];
            Real odd = im[i];
            exchangeOnes(even, odd);
            scatter<2, W>(even, to + 2 * i, 2 * 2 * COUNT);
            scatter<2, W>(odd, to + 2UL * COUNT + 2 * i, 2 * 2 * COUNT);
        });
    }

private:
    /// Fills a pack of SIZE numbers with chunks of CHUNK that lie `step` apart.
    template <int CHUNK, int SIZE>
    QV_INLINE static void gather(const double* from, unsigned long step,
                                 typename QV_PackType<SIZE>::Real& pack)
    {
        if constexpr (CHUNK == SIZE) {
            __builtin_memcpy(&pack, from, sizeof(pack));
        } else {
            typename QV_PackType<SIZE / 2>::Real halves[2];
            gather<CHUNK, SIZE / 2>(from, step, halves[0]);
            gather<CHUNK, SIZE / 2>(from + SIZE / 2 / CHUNK * step, step, halves[1]);
            if constexpr (SIZE == 4) {
                pack = __builtin_shufflevector(halves[0], halves[1], 0, 1, 2, 3);
            } else {
                pack = __builtin_shufflevector(halves[0], halves[1], 0, 1, 2, 3, 4, 5, 6, 7);
            }
        }
    }
    /// Writes them back.
    template <int CHUNK, int SIZE>
    QV_INLINE static void scatter(const typename QV_PackType<SIZE>::Real& pack, double* to,
                                  unsigned long step)
    {
        if constexpr (CHUNK == SIZE) {
            __builtin_memcpy(to, &pack, sizeof(pack));
        } else {
            typename QV_PackType<SIZE / 2>::Real halves[2];
            if constexpr (SIZE == 4) {
                halves[0] = __builtin_shufflevector(pack, pack, 0, 1);
                halves[1] = __builtin_shufflevector(pack, pack, 2, 3);
            } else {
                halves[0] = __builtin_shufflevector(pack, pack, 0, 1, 2, 3);
                halves[1] = __builtin_shufflevector(pack, pack, 4, 5, 6, 7);
            }
            scatter<CHUNK, SIZE / 2>(halves[0], to, step);
            scatter<CHUNK, SIZE / 2>(halves[1], to + SIZE / 2 / CHUNK * step, step);
        }
    }
    /// The odd numbers of `a` for the even ones of `b`.
    QV_INLINE static void exchangeOnes(Real& a, Real& b)
    {
        const Real old = a;
        if constexpr (W == 2) {
            a = __builtin_shufflevector(old, b, 0, 2);
            b = __builtin_shufflevector(old, b, 1, 3);
        } else if constexpr (W == 4) {
            a = __builtin_shufflevector(old, b, 0, 4, 2, 6);
            b = __builtin_shufflevector(old, b, 1, 5, 3, 7);
        } else {
            a = __builtin_shufflevector(old, b, 0, 8, 2, 10, 4, 12, 6, 14);
            b = __builtin_shufflevector(old, b, 1, 9, 3, 11, 5, 13, 7, 15);
        }
    }
    /// The odd pairs of `a` for the even ones of `b`, of packs of 8.
    QV_INLINE static void exchangeTwos(Real& a, Real& b)
    {
        const Real old = a;
        a = __builtin_shufflevector(old, b, 0, 1, 8, 9, 4, 5, 12, 13);
        b = __builtin_shufflevector(old, b, 2, 3, 10, 11, 6, 7, 14, 15);
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
