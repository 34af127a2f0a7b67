// SPDX-License-Identifier: MIT
// Vectors as wide as those of the processor that the including unit is compiled for.
//
// Only the units of the levels include this header. Everything here has internal linkage and is inlined, and
// calls nothing of the standard library, so that code for a newer processor cannot be linked into another
// unit.
#pragma once

#include <stdint.h>

#if defined(__SSE2__)
#include <immintrin.h>
#endif

#define KS_INLINE inline __attribute__((always_inline))

namespace ks_simd {
namespace {

#if defined(__AVX512BW__)
constexpr int32_t kVectorBytes = 64;
#elif defined(__AVX2__)
constexpr int32_t kVectorBytes = 32;
#else
constexpr int32_t kVectorBytes = 16;
#endif

// How many pixels a vector holds.
constexpr int32_t kLanes = kVectorBytes / 4;

using Bytes [[gnu::vector_size(kVectorBytes)]] = uint8_t;
using Halves [[gnu::vector_size(kVectorBytes)]] = uint16_t;
using SignedHalves [[gnu::vector_size(kVectorBytes)]] = int16_t;
using Words [[gnu::vector_size(kVectorBytes)]] = uint32_t;
using SignedWords [[gnu::vector_size(kVectorBytes)]] = int32_t;
using Longs [[gnu::vector_size(kVectorBytes)]] = int64_t;
using Floats [[gnu::vector_size(kVectorBytes)]] = float;
using Doubles [[gnu::vector_size(kVectorBytes)]] = double;

// Loads a vector, from any address, of the items that lie there.
template <class Vector, class Item> KS_INLINE Vector load(const Item* items) {
    Vector vector;
    __builtin_memcpy(&vector, items, sizeof vector);
    return vector;
}

// Stores a vector at any address.
template <class Vector, class Item> KS_INLINE void store(Item* items, const Vector& vector) {
    __builtin_memcpy(items, &vector, sizeof vector);
}

// Stores a vector at an aligned address past the caches, which need not hold what was there. Such stores are
// visible to other threads, in their order, after finish_streams.
template <class Vector, class Item> KS_INLINE void stream(Item* items, const Vector& vector) {
#if defined(__AVX512BW__)
    _mm512_stream_si512(reinterpret_cast<__m512i*>(items), reinterpret_cast<__m512i>(vector));
#elif defined(__AVX2__)
    _mm256_stream_si256(reinterpret_cast<__m256i*>(items), reinterpret_cast<__m256i>(vector));
#elif defined(__SSE2__)
    _mm_stream_si128(reinterpret_cast<__m128i*>(items), reinterpret_cast<__m128i>(vector));
#else
    store(items, vector);
#endif
}

KS_INLINE void finish_streams() {
#if defined(__SSE2__)
    _mm_sfence();
#endif
}

// Whether any bit is set in a vector of this width or a narrower one.
template <class Vector> KS_INLINE bool any(const Vector& vector) {
#if defined(__AVX512BW__)
    if constexpr (sizeof vector == 64) {
        const auto v = reinterpret_cast<__m512i>(vector);
        return _mm512_test_epi32_mask(v, v) != 0;
    }
#endif
#if defined(__AVX2__)
    if constexpr (sizeof vector == 32) {
        const auto v = reinterpret_cast<__m256i>(vector);
        return !_mm256_testz_si256(v, v);
    }
#endif
#if defined(__SSE2__)
    if constexpr (sizeof vector == 16)
        return _mm_movemask_epi8(_mm_cmpeq_epi8(reinterpret_cast<__m128i>(vector), __m128i{})) != 0xFFFF;
#endif
    uint64_t parts[sizeof vector / 8], all = 0;
    store(parts, vector);
    for (const uint64_t part : parts)
        all |= part;
    return all != 0;
}

// Returns a bit for each byte that is not 0, the first byte's the lowest.
KS_INLINE uint64_t nonzero_bytes(const Bytes& v) {
#if defined(__AVX512BW__)
    return _mm512_test_epi8_mask(reinterpret_cast<__m512i>(v), reinterpret_cast<__m512i>(v));
#elif defined(__AVX2__)
    return static_cast<uint32_t>(~_mm256_movemask_epi8(reinterpret_cast<__m256i>(v == 0)));
#elif defined(__SSE2__)
    return static_cast<uint16_t>(~_mm_movemask_epi8(reinterpret_cast<__m128i>(v == 0)));
#else
    uint64_t parts[kVectorBytes / 8], bits = 0;
    store(parts, reinterpret_cast<Bytes>(v != 0) & 1);
    for (int32_t i = 0; i < kVectorBytes / 8; i++) {
        if (__BYTE_ORDER__ == __ORDER_BIG_ENDIAN__)
            parts[i] = __builtin_bswap64(parts[i]);
        // The lowest bits of the eight bytes meet in the highest byte, without a carry.
        bits |= parts[i] * 0x0102040810204080 >> 56 << 8 * i;
    }
    return bits;
#endif
}

template <class Vector> KS_INLINE Vector least(Vector a, Vector b) {
    return a < b ? a : b;
}

template <class Vector> KS_INLINE Vector greatest(Vector a, Vector b) {
    return a > b ? a : b;
}

#if defined(__FMA__)
// a * b + c, rounded once. By name, because the compiler must not fuse what is written apart: the levels
// would differ.
KS_INLINE Floats fused(Floats a, Floats b, Floats c) {
#if defined(__AVX512BW__)
    return _mm512_fmadd_ps(a, b, c);
#else
    return _mm256_fmadd_ps(a, b, c);
#endif
}
#endif

}  // namespace
}  // namespace ks_simd
