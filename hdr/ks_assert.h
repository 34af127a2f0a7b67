// SPDX-License-Identifier: MIT
// Assertions, which are checked in every build type.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <cstring>

// Writes the condition, the source file (without folder and ending) and the function to standard error
// and aborts the process. Called by KS_ASSERT only.
[[noreturn]] inline void ks_assert_failed(const char* condition, const char* file, const char* function) {
    const char* slash = std::strrchr(file, '/');
    const char* base = slash ? slash + 1 : file;
    const int length = static_cast<int>(std::strcspn(base, "."));
    std::fprintf(stderr, "%.*s: %s: assertion \"%s\" failed\n", length, base, function, condition);
    std::abort();
}

// Aborts with a message unless `condition` holds. The condition is evaluated exactly once.
#define KS_ASSERT(condition)                                                                                 \
    ((condition) ? static_cast<void>(0) : ks_assert_failed(#condition, __FILE__, __func__))
