// SPDX-License-Identifier: MIT
// The tables of the composition modes, and the choice of the kernels that their entries call.
#include "merge/KSMerge.h"

#include "hdr/instruction_set.h"
#include "merge/levels.h"
#include "merge/mode_table.h"

#include <iterator>

namespace ks_merge {

using namespace ks_simd;

const level_kernels& used_kernels() {
#if defined(__x86_64__)
    switch (ActiveInstructionSet()) {
    case InstructionSet::kAvx512:
        return kernels_avx512;
    case InstructionSet::kAvx2:
        return kernels_avx2;
    case InstructionSet::kBaseline:
        break;
    }
#endif
    return kernels_baseline;
}

namespace {

// The entries of the tables.
#define KS_KERNELS(mode, suffix, ...)                                                                        \
    void ks_color_##suffix(std::uint32_t* dst, std::uint32_t color, std::uint32_t opacity,                   \
                           std::int32_t count) {                                                             \
        used_kernels().color[mode](dst, color, opacity, count, 1, 0);                                        \
    }                                                                                                        \
    void ks_array_##suffix(std::uint32_t* dst, const std::uint32_t* src, std::uint32_t opacity,              \
                           std::int32_t count) {                                                             \
        used_kernels().array[mode](dst, src, opacity, count);                                                \
    }

#define KS_MODE(mode, ...) mode,
constexpr ks_composition_mode kRows[] = {KS_MERGE_MODES(KS_MODE)};
static_assert(std::size(kRows) == kMergeCount && [] {
    for (std::int32_t i = 0; i < kMergeCount; i++)
        if (kRows[i] != i)
            return false;
    return true;
}());

KS_MERGE_MODES(KS_KERNELS)

}  // namespace
}  // namespace ks_merge

using namespace ks_merge;

#define KS_LABEL(mode, suffix, label, ...) label,
#define KS_DESTRUCTIVE(mode, suffix, label, destructive, ...) destructive,
#define KS_COLOR(mode, suffix, ...) ks_color_##suffix,
#define KS_ARRAY(mode, suffix, ...) ks_array_##suffix,

constinit const char* const KSMerge::composition_label[] = {KS_MERGE_MODES(KS_LABEL)};
constinit const bool KSMerge::merge_destructive[] = {KS_MERGE_MODES(KS_DESTRUCTIVE)};
constinit const ks_color_func KSMerge::hash_color_func[] = {KS_MERGE_MODES(KS_COLOR)};
constinit const ks_array_func KSMerge::hash_array_func[] = {KS_MERGE_MODES(KS_ARRAY)};
