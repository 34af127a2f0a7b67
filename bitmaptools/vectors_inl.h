// SPDX-License-Identifier: MIT
// Vectors of the width that the including unit asks for.
#pragma once

#include "bitmaptools/pixel_functions.h"

#define NYMBREL_INLINE [[gnu::always_inline]] inline

namespace NYMBREL_LEVEL {
namespace {

constexpr int kLanes = NYMBREL_VECTOR_BYTES / 4;
constexpr int kDoubleLanes = NYMBREL_VECTOR_BYTES / 8;
using Words [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = std::uint32_t;
using Ints [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = std::int32_t;
using Floats [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = float;
using Doubles [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = double;
using Longs [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = std::int64_t;
using Bytes [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = std::uint8_t;
using Counts [[gnu::vector_size(NYMBREL_VECTOR_BYTES)]] = std::uint16_t;
using HalfInts [[gnu::vector_size(NYMBREL_VECTOR_BYTES / 2)]] = std::int32_t;

template <class Vector, class Item> NYMBREL_INLINE Vector Load(const Item* items) {
    Vector vector;
    __builtin_memcpy(&vector, items, sizeof vector);
    return vector;
}

template <class Vector, class Item> NYMBREL_INLINE void Store(Item* items, const Vector& vector) {
    __builtin_memcpy(items, &vector, sizeof vector);
}

// Returns the bits that all lanes of `vector` have in common; lanes that do not fill 64 bits do so in pairs.
template <class Vector> NYMBREL_INLINE std::uint64_t CommonBits(const Vector& vector) {
    std::uint64_t parts[sizeof vector / 8];
    Store(parts, vector);
    for (std::size_t k = 1; k < sizeof vector / 8; ++k)
        parts[0] &= parts[k];
    return parts[0];
}

NYMBREL_INLINE std::int64_t Least(std::int64_t a, std::int64_t b) {
    return a < b ? a : b;
}

NYMBREL_INLINE std::int64_t Most(std::int64_t a, std::int64_t b) {
    return a > b ? a : b;
}

}  // namespace
}  // namespace NYMBREL_LEVEL
