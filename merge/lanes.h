// SPDX-License-Identifier: MIT
// Vectors of pixels and the arithmetic of the composition modes. As simd/vectors.h, only the units of the
// levels include it.
#pragma once

#include "simd/vectors.h"

#include <utility>

namespace ks_merge {
namespace {

using namespace ks_simd;

KS_INLINE Words splat(uint32_t word) {
    return Words{} + word;
}

KS_INLINE Words load(const uint32_t* p) {
    return ks_simd::load<Words>(p);
}

// A run shorter than a vector: 1 to kLanes - 1 pixels. Nothing behind it is read or written. The other lanes
// repeat its first pixel, so that what holds for all its pixels holds for all lanes.
class PartialVector {
public:
#if defined(__AVX512BW__)
    KS_INLINE explicit PartialVector(int32_t count) : _mask(static_cast<__mmask16>((1u << count) - 1)) {}
    KS_INLINE Words load(const uint32_t* p) const {
        return reinterpret_cast<Words>(
            _mm512_mask_loadu_epi32(reinterpret_cast<__m512i>(splat(*p)), _mask, p));
    }
    KS_INLINE void store(uint32_t* p, Words w) const {
        _mm512_mask_storeu_epi32(p, _mask, reinterpret_cast<__m512i>(w));
    }

private:
    __mmask16 _mask;
#else
    KS_INLINE explicit PartialVector(int32_t count) : _count(count) {}
    KS_INLINE Words load(const uint32_t* p) const {
        if constexpr (kLanes > 4) {
            if (_count >= 4)
                return Parts<Four>::load(p, _count, AllLanes());
        }
        return _count >= 2 ? Parts<Two>::load(p, _count, AllLanes()) : splat(*p);
    }
    KS_INLINE void store(uint32_t* p, Words w) const {
        if constexpr (kLanes > 4) {
            if (_count >= 4)
                return Parts<Four>::store(p, _count, w);
        }
        if (_count >= 2)
            Parts<Two>::store(p, _count, w);
        else
            *p = w[0];
    }

private:
    using AllLanes = std::make_integer_sequence<int32_t, kLanes>;

    using Two [[gnu::vector_size(8)]] = uint32_t;
    using Four [[gnu::vector_size(16)]] = uint32_t;

    // The first and the last pixels, which may overlap. Masked stores take several times as long.
    template <class Part> struct Parts {
        static constexpr int32_t kPart = sizeof(Part) / 4;

        template <int32_t... kLane>
        static KS_INLINE Words load(const uint32_t* p, int32_t count,
                                    std::integer_sequence<int32_t, kLane...>) {
            return __builtin_shufflevector(ks_simd::load<Part>(p), ks_simd::load<Part>(p + count - kPart),
                                           (kLane % (2 * kPart))...);
        }
        static KS_INLINE void store(uint32_t* p, int32_t count, const Words& w) {
            Part parts[kLanes / kPart];
            __builtin_memcpy(&parts, &w, sizeof w);
            ks_simd::store(p, parts[0]);
            ks_simd::store(p + count - kPart, parts[1]);
        }
    };

    int32_t _count;
#endif
};

// Whether every pixel has alpha 255.
KS_INLINE bool all_opaque(Words w) {
#if defined(__AVX512BW__)
    return _mm512_cmplt_epu32_mask(reinterpret_cast<__m512i>(w), _mm512_set1_epi32(-0x1000000)) == 0;
#elif defined(__AVX2__)
    return _mm256_testc_si256(reinterpret_cast<__m256i>(w), _mm256_set1_epi32(-0x1000000));
#elif defined(__SSE2__)
    const __m128i opaque = _mm_set1_epi32(-0x1000000);
    return _mm_movemask_epi8(
               _mm_cmpeq_epi8(_mm_or_si128(reinterpret_cast<__m128i>(w), ~opaque), ~__m128i{})) == 0xFFFF;
#else
    uint32_t common = ~0u;
    for (int32_t i = 0; i < kLanes; i++)
        common &= w[i];
    return common >> 24 == 255;
#endif
}

// Whether every pixel has alpha 0.
KS_INLINE bool all_clear(Words w) {
    return !any(w & 0xFF000000u);
}

// Whether no pixel has alpha 0.
KS_INLINE bool none_clear(Words w) {
#if defined(__AVX512BW__)
    return _mm512_testn_epi32_mask(reinterpret_cast<__m512i>(w), _mm512_set1_epi32(-0x1000000)) == 0;
#else
    return all_opaque(reinterpret_cast<Words>((w & 0xFF000000u) != 0));
#endif
}

KS_INLINE Bytes bytes(Words w) {
    return reinterpret_cast<Bytes>(w);
}

KS_INLINE Halves halves(Words w) {
    return reinterpret_cast<Halves>(w);
}

template <class Vector> KS_INLINE Words words(Vector v) {
    return reinterpret_cast<Words>(v);
}

// Red and blue of each pixel, blue in the lower half.
KS_INLINE Halves red_blue(Words w) {
    return halves(w & 0x00FF00FFu);
}

// Alpha and green of each pixel, green in the lower half.
KS_INLINE Halves alpha_green(Words w) {
    return halves(w) >> 8;
}

// Pixels of the low bytes of two vectors of channels, 0 to 255 each.
KS_INLINE Words join(Halves rb, Halves ag) {
    return words(rb | ag << 8);
}

// 255 minus each colour channel; the alpha stays. (For a constant of all ones GCC 12 makes an instruction
// that waits for its target's former value, which chains the iterations of a loop.)
KS_INLINE Words inverse(Words w) {
    return w ^ 0x00FFFFFFu;
}

// A value of 0 to 255 per pixel, for both its halves.
KS_INLINE Halves both(Words value) {
    return halves(value | value << 16);
}

// The alpha of each pixel, for both its halves.
KS_INLINE Halves alpha_halves(Words w) {
#if defined(__AVX512BW__)
    return reinterpret_cast<Halves>(_mm512_shuffle_epi8(
        reinterpret_cast<__m512i>(w),
        _mm512_set4_epi32(static_cast<int32_t>(0x800F800Fu), static_cast<int32_t>(0x800B800Bu),
                          static_cast<int32_t>(0x80078007u), static_cast<int32_t>(0x80038003u))));
#elif defined(__AVX2__)
    return reinterpret_cast<Halves>(
        _mm256_shuffle_epi8(reinterpret_cast<__m256i>(w),
                            _mm256_broadcastsi128_si256(_mm_setr_epi32(
                                static_cast<int32_t>(0x80038003u), static_cast<int32_t>(0x80078007u),
                                static_cast<int32_t>(0x800B800Bu), static_cast<int32_t>(0x800F800Fu)))));
#else
    return both(w >> 24);
#endif
}

// The product of two values per pixel, where it is below 65536.
KS_INLINE Words product(Words a, Words b) {
    return words(halves(a) * halves(b));
}

// x / 255 rounded down, for 0 to 65534.
KS_INLINE Halves div255(Halves x) {
#if defined(__AVX512BW__)
    return reinterpret_cast<Halves>(
        _mm512_mulhi_epu16(reinterpret_cast<__m512i>(x + 1), _mm512_set1_epi16(257)));
#elif defined(__AVX2__)
    return reinterpret_cast<Halves>(
        _mm256_mulhi_epu16(reinterpret_cast<__m256i>(x + 1), _mm256_set1_epi16(257)));
#elif defined(__SSE2__)
    return reinterpret_cast<Halves>(_mm_mulhi_epu16(reinterpret_cast<__m128i>(x + 1), _mm_set1_epi16(257)));
#else
    return (x + (x >> 8) + 1) >> 8;
#endif
}

KS_INLINE Words div255(Words x) {
    return (x + (x >> 8) + 1) >> 8;
}

KS_INLINE Floats floats(Words values) {
    return __builtin_convertvector(reinterpret_cast<SignedWords>(values), Floats);
}

// Byte kByte of each pixel, byte 0 being the lowest.
template <int32_t kByte> KS_INLINE Words byte_of(Words w) {
#if defined(__AVX512BW__)
    constexpr int32_t first = static_cast<int32_t>(0x80808000u) + kByte;
    if constexpr (kByte == 1 || kByte == 2)
        return reinterpret_cast<Words>(_mm512_shuffle_epi8(
            reinterpret_cast<__m512i>(w), _mm512_set4_epi32(first + 12, first + 8, first + 4, first)));
#elif defined(__AVX2__)
    constexpr int32_t first = static_cast<int32_t>(0x80808000u) + kByte;
    if constexpr (kByte == 1 || kByte == 2)
        return reinterpret_cast<Words>(_mm256_shuffle_epi8(
            reinterpret_cast<__m256i>(w),
            _mm256_broadcastsi128_si256(_mm_setr_epi32(first, first + 4, first + 8, first + 12))));
#endif
    return w >> (8 * kByte) & 255;
}

// a / b rounded towards zero. Exact where a is below 2^24, b is below 2^16, both are integers, and the
// quotient is below 2^8: the next integer is at least 1 / b away, more than rounding can add.
KS_INLINE SignedWords quotient(Floats a, Floats b) {
    return __builtin_convertvector(a / b, SignedWords);
}

// (d * d_weight + x * x_weight) / divisor rounded down, for bytes of many pixels d and x. The divisor is at
// least the sum of the weights and at most 65280; where it is 0, the result is any byte.
class WeightedMean {
public:
#if defined(__FMA__)
    // One division serves all bytes. With n the sum and b the divisor, z = n - 128.5 b + 0.5 is a multiple of
    // 1/2 below 2^23 and thus exact, and z / b + 128 lies within (1 - 1 / b) / 2 of the result. The
    // reciprocal is off by at most 2^-40 where b is above 2^15, which puts its product with z off by at most
    // 128.5 b * 2^-40. That is less than 0.5 / b for b below 65408, and smaller divisors leave more room. The
    // last addition has the only other rounding: it rounds to the nearest integer, which is the result.
    KS_INLINE WeightedMean(Words d_weight, Words x_weight, Words divisor)
        : _d_weight(floats(d_weight)),
          _x_weight(floats(x_weight)),
          _reciprocal(1.0f / floats(divisor)),
          _middle(fused(floats(divisor), Floats{} - 128.5f, Floats{} + 0.5f)) {}

    // The mean of byte kByte, in the lowest byte. The bytes above it are 0, 0x40 and 0x4B: those of a float.
    template <int32_t kByte> KS_INLINE Words of(Words d, Words x) const {
        const Floats rest = fused(floats(byte_of<kByte>(x)), _x_weight, _middle);
        const Floats z = fused(floats(byte_of<kByte>(d)), _d_weight, rest);
        return words(fused(z, _reciprocal, Floats{} + (0x1.8p23f + 128)));
    }

private:
    Floats _d_weight, _x_weight, _reciprocal, _middle;
#else
    KS_INLINE WeightedMean(Words d_weight, Words x_weight, Words divisor)
        : _d_weight(d_weight), _x_weight(x_weight), _divisor(floats(greatest(divisor, splat(1)))) {}

    template <int32_t kByte> KS_INLINE Words of(Words d, Words x) const {
        const Words a = byte_of<kByte>(d), b = byte_of<kByte>(x);
#if defined(__SSE2__) && !defined(__SSE4_1__)  // multiplies floats, but not words, with one instruction
        return words(quotient(floats(a) * floats(_d_weight) + floats(b) * floats(_x_weight), _divisor));
#else
        return words(quotient(floats(a * _d_weight + b * _x_weight), _divisor));
#endif
    }

private:
    Words _d_weight, _x_weight;
    Floats _divisor;
#endif
};

// Pixels of the lowest bytes of four vectors, of which the first three are what WeightedMean yields and the
// last holds nothing else.
KS_INLINE Words join_means(Words blue, Words green, Words red, Words alpha) {
#if defined(__AVX512BW__)
    const __m512i lowest = _mm512_set4_epi32(0x0C0C0C0C, 0x08080808, 0x04040404, 0);
    __m512i w = reinterpret_cast<__m512i>(blue);
    w = _mm512_mask_shuffle_epi8(w, 0x2222222222222222, reinterpret_cast<__m512i>(green), lowest);
    w = _mm512_mask_shuffle_epi8(w, 0x4444444444444444, reinterpret_cast<__m512i>(red), lowest);
    w = _mm512_mask_shuffle_epi8(w, 0x8888888888888888, reinterpret_cast<__m512i>(alpha), lowest);
    return reinterpret_cast<Words>(w);
#elif defined(__AVX2__)
    const Words lower = blue | green << 8, upper = red << 16 | alpha << 24;
    return reinterpret_cast<Words>(
        _mm256_blend_epi16(reinterpret_cast<__m256i>(lower), reinterpret_cast<__m256i>(upper), 0xAA));
#else
    return blue | green << 8 | red << 16 | alpha << 24;
#endif
}

}  // namespace
}  // namespace ks_merge
