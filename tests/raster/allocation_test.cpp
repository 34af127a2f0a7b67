// SPDX-License-Identifier: MIT
// Lets every allocation of every operation fail in turn: nothing leaks, and no lock is left behind.
#include "tests/raster/everything.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

namespace {

long succeeding = -1;  // how many allocations succeed before one fails; below 0 all do
long living = 0;       // how many allocations are not freed

}  // namespace

void* operator new(std::size_t size) {
    void* const memory = succeeding >= 0 && succeeding-- == 0 ? nullptr : std::malloc(size ? size : 1);
    if (memory == nullptr)
        throw std::bad_alloc();
    living++;
    return memory;
}
void* operator new[](std::size_t size) {
    return operator new(size);
}
void operator delete(void* memory) noexcept {
    living -= memory != nullptr;
    std::free(memory);
}
void operator delete[](void* memory) noexcept {
    operator delete(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    operator delete(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    operator delete(memory);
}

namespace {

TEST(Allocation, FailingLeavesNothingBehind) {
    KSRaster raster(new BBitmap(BRect(0, 0, 8, 8), B_RGB32), "source");
    const long before = living;
    int failures = 0;
    for (bool failed = true; failed; failures++) {
        succeeding = failures;
        try {
            CallEverything(raster);
        } catch (const std::bad_alloc&) {
        }
        failed = succeeding < 0;
        succeeding = -1;
        EXPECT_EQ(living, before) << "allocation " << failures;
        EXPECT_FALSE(raster.IsLocked()) << "allocation " << failures;
    }
    EXPECT_GT(failures, 30);
}

}  // namespace
