// SPDX-License-Identifier: MIT
// The tables of the composition modes, and the choice of the kernels that their entries call.
#include "merge/KSMerge.h"

#include "merge/levels.h"
#include "merge/mode_table.h"

#include <atomic>
#include <iterator>

namespace ks_merge {
namespace {

// Null until the first kernel is called or a level is chosen. Threads that meet here first all store the
// same value.
constinit std::atomic<const level_kernels*> the_kernels = nullptr;

const level_kernels* KernelsOf(level wanted) {
#if KS_MERGE_X86_LEVELS
    switch (wanted) {
    case level::avx512:
        return &kernels_avx512;
    case level::avx2:
        return &kernels_avx2;
    case level::baseline:
        break;
    }
#endif
    static_cast<void>(wanted);
    return &kernels_baseline;
}

}  // namespace

const level_kernels& used_kernels() {
    const level_kernels* kernels = the_kernels.load(std::memory_order_relaxed);
    if (!kernels) [[unlikely]] {
        kernels = KernelsOf(best_level());
        the_kernels.store(kernels, std::memory_order_relaxed);
    }
    return *kernels;
}

const char* level_name(level which) {
    return which == level::avx512 ? "avx512" : which == level::avx2 ? "avx2" : "baseline";
}

level best_level() {
#if KS_MERGE_X86_LEVELS
    __builtin_cpu_init();  // constructors of other units may call kernels before libgcc's own has run
    if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
        __builtin_cpu_supports("avx512vl") && __builtin_cpu_supports("avx512dq"))
        return level::avx512;
    if (__builtin_cpu_supports("avx2"))
        return level::avx2;
#endif
    return level::baseline;
}

level use_level(level wanted) {
    const level used = wanted < best_level() ? wanted : best_level();
    the_kernels.store(KernelsOf(used), std::memory_order_relaxed);
    return used;
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
