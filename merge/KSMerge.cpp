// SPDX-License-Identifier: MIT
// The tables of the modes. Their entries call the kernels of the level in use.
#include "merge/KSMerge.h"

#include "merge/levels.h"
#include "merge/mode_table.h"
#include "merge/rows.h"
#include "simd/level.h"

namespace ks_merge {
namespace {

using namespace ks_simd;

const mode_kernels& active_kernels(ks_composition_mode mode) {
#if defined(__x86_64__)
    switch (ActiveLevel()) {
    case Level::kAvx512:
        return level_avx512[mode];
    case Level::kAvx2:
        return level_avx2[mode];
    case Level::kBaseline:
        break;
    }
#endif
    return level_baseline[mode];
}

template <ks_composition_mode mode>
void compose_color(std::uint32_t* dst, std::uint32_t color, std::uint32_t opacity, std::int32_t count) {
    active_kernels(mode).color(dst, color, opacity, count, 1, 0);
}

template <ks_composition_mode mode>
void compose_array(std::uint32_t* dst, const std::uint32_t* src, std::uint32_t opacity, std::int32_t count) {
    active_kernels(mode).array(dst, src, opacity, count);
}

// A row of the list of modes. It converts to the mode's entry in each table.
template <ks_composition_mode mode> struct row {
    const char* label;
    bool destructive;

    constexpr operator ks_composition_mode() const { return mode; }
    constexpr operator const char*() const { return label; }
    constexpr operator bool() const { return destructive; }
    constexpr operator ks_color_func() const { return compose_color<mode>; }
    constexpr operator ks_array_func() const { return compose_array<mode>; }
};

#define KS_ROW(mode, label, destructive, ...) row<mode>{label, destructive},

// The tables are indexed by mode, so the list has to be in their order.
constexpr ks_composition_mode kOrder[kMergeCount] = {KS_MERGE_MODES(KS_ROW)};
static_assert([] {
    for (std::int32_t i = 0; i < kMergeCount; i++)
        if (kOrder[i] != i)
            return false;
    return true;
}());

}  // namespace

color_rows_func color_rows(ks_composition_mode mode) {
    return active_kernels(mode).color;
}

}  // namespace ks_merge

using namespace ks_merge;

constinit const char* const KSMerge::composition_label[] = {KS_MERGE_MODES(KS_ROW)};
constinit const bool KSMerge::merge_destructive[] = {KS_MERGE_MODES(KS_ROW)};
constinit const ks_color_func KSMerge::hash_color_func[] = {KS_MERGE_MODES(KS_ROW)};
constinit const ks_array_func KSMerge::hash_array_func[] = {KS_MERGE_MODES(KS_ROW)};
