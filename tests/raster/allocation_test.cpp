// SPDX-License-Identifier: MIT
// Lets every allocation of every operation fail in turn: nothing leaks, and no lock is left behind.
#include "kits/BBitmap.h"
#include "raster/KSRaster.h"
#include "tests/raster/pixels.h"
#include "toolkit/KSMessage.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <new>

namespace {

long allowed = -1;  // how many allocations succeed before one fails; below 0 all do
long living = 0;    // how many allocations are not freed

void* Allocate(std::size_t size) {
    if (allowed == 0)
        throw std::bad_alloc();
    allowed -= allowed > 0;
    void* memory = std::malloc(size ? size : 1);
    if (memory == nullptr)
        throw std::bad_alloc();
    living++;
    return memory;
}

void Free(void* memory) {
    living -= memory != nullptr;
    std::free(memory);
}

}  // namespace

void* operator new(std::size_t size) {
    return Allocate(size);
}
void* operator new[](std::size_t size) {
    return Allocate(size);
}
void operator delete(void* memory) noexcept {
    Free(memory);
}
void operator delete[](void* memory) noexcept {
    Free(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    Free(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    Free(memory);
}

namespace {

using rect = KSRect<long>;
using raster_ptr = std::unique_ptr<KSRaster>;

struct operation {
    const char* name;
    int allocations;                                 // at least so many
    std::function<bool(KSRaster&, KSMessage&)> run;  // returns false where it failed without an exception
};

const rect kFrame(0, 0, 8, 8);

const operation kOperations[] = {
    {"InMemory", 2, [](KSRaster&, KSMessage&) { return KSRaster(kFrame, "name").IsValid(); }},
    {"InBBitmap", 3,
     [](KSRaster&, KSMessage&) {
         return KSRaster(kFrame, "name", KS_RGBA_COLOR_SPACE, kRasterInBBitmap).IsValid();
     }},
    {"FromBitmap", 3,
     [](KSRaster&, KSMessage&) {
         return KSRaster(new BBitmap(BRect(0, 0, 8, 8), B_RGB32), "name").IsValid();
     }},
    {"FromArchive", 2, [](KSRaster&, KSMessage& archive) { return KSRaster(&archive).IsValid(); }},
    {"Archive", 5,
     [](KSRaster& raster, KSMessage&) {
         KSMessage archive;
         raster.Archive(&archive);
         return archive.CountFields() == 5;
     }},
    {"Flatten", 1, [](KSRaster&, KSMessage& archive) { return !archive.Flatten().empty(); }},
    {"Unflatten", 5,
     [](KSRaster&, KSMessage& archive) {
         KSMessage copy;
         return copy.Unflatten(archive.Flatten()) == kUnflattenOk;
     }},
    {"DuplicateRaster", 3,
     [](KSRaster& raster, KSMessage&) { return raster_ptr(raster.DuplicateRaster()) != nullptr; }},
    {"CreateScaled", 3,
     [](KSRaster& raster, KSMessage&) {
         return raster_ptr(raster.CreateScaled(rect(0, 0, 3, 20), true, kRasterInBBitmap)) != nullptr;
     }},
    {"CreateScaledAndRotated", 6,
     [](KSRaster& raster, KSMessage&) {
         return raster_ptr(raster.CreateScaled({0, 0}, {9, 1}, {9, 9}, {0, 9}, true, 0.5, {3, 3})) != nullptr;
     }},
    {"FillPolygon", 2,
     [](KSRaster& raster, KSMessage&) {
         const KSPoint<long> corners[] = {{0, 0}, {8, 0}, {8, 8}};
         raster.FillPolygon(corners, 3);
         return true;
     }},
};

TEST(Allocation, FailingLeavesNothingBehind) {
    for (const operation& op : kOperations) {
        KSRaster raster(new BBitmap(BRect(0, 0, 8, 8), B_RGB32), "source");
        KSMessage archive;
        raster.Archive(&archive);
        const long before = living;
        bool done = false;
        int failures = 0;
        for (; !done; failures++) {
            allowed = failures;
            try {
                done = op.run(raster, archive);
            } catch (const std::bad_alloc&) {
            }
            allowed = -1;
            EXPECT_EQ(living, before) << op.name << ", allocation " << failures;
            EXPECT_FALSE(raster.IsLocked()) << op.name << ", allocation " << failures;
        }
        EXPECT_GT(failures, op.allocations) << op.name;
    }
}

}  // namespace
