// SPDX-License-Identifier: MIT
// Arrays whose ends border on inaccessible memory, random images, and the comparison of an operation with
// its reference on every instruction set.
#pragma once

#include "bitmaptools/KSBitmapTools.h"
#include "tests/instruction_sets.h"
#include "tests/reference/sampling.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <span>
#include <string>
#include <type_traits>
#include <vector>

// Which end of an array touches the inaccessible page.
enum class Against { kFront, kBack };

// `count` items between inaccessible pages, up against one of them.
template <class T> class GuardedArray {
public:
    GuardedArray(std::size_t count, Against end) : _count(count) {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        const std::size_t inner = (count * sizeof(T) + page - 1) / page * page;
        _mapped = inner + 2 * page;
        void* memory = mmap(nullptr, _mapped, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            std::abort();
        _base = static_cast<std::byte*>(memory);
        if (inner > 0 && mprotect(_base + page, inner, PROT_READ | PROT_WRITE) != 0)
            std::abort();
        _data = reinterpret_cast<T*>(_base + page + (end == Against::kBack ? inner - count * sizeof(T) : 0));
    }
    GuardedArray(const GuardedArray&) = delete;
    GuardedArray& operator=(const GuardedArray&) = delete;
    ~GuardedArray() { munmap(_base, _mapped); }

    T* data() { return _data; }
    std::span<T> items() { return {_data, _count}; }

    // Makes the whole array inaccessible to writes from here on, or accessible again.
    void SetWritable(bool writable) {
        const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
        if (mprotect(_base + page, _mapped - 2 * page, writable ? PROT_READ | PROT_WRITE : PROT_READ) != 0)
            std::abort();
    }

private:
    std::size_t _count, _mapped;
    std::byte* _base;
    T* _data;
};

// A seeded source of test values; its seed is part of every failure message.
class Random {
public:
    explicit Random(std::uint32_t seed) : _engine(seed), _seed(seed) {}

    std::uint32_t seed() const { return _seed; }
    // Returns a value of [least, most].
    long In(long least, long most) { return std::uniform_int_distribution<long>(least, most)(_engine); }
    double Real(double least, double most) {
        return std::uniform_real_distribution<double>(least, most)(_engine);
    }
    bool OneIn(int n) { return In(1, n) == 1; }
    std::uint32_t Word() { return static_cast<std::uint32_t>(_engine()); }

    // Returns a size with many small ones, and some around the widths of vectors and blocks.
    long Size() {
        switch (In(0, 5)) {
        case 0:
            return In(1, 3);
        case 1:
            return In(60, 70);
        case 2:
            return In(120, 150);
        default:
            return In(1, 40);
        }
    }

    // Fills `pixels` with stretches of different alpha: opaque, clear, both, anything; channels at the ends
    // of their range are frequent.
    void Paint(std::span<std::uint32_t> pixels) {
        long left = 0, kind = 0;
        const bool opaque = OneIn(3);
        for (auto& pixel : pixels) {
            if (left-- == 0) {
                left = In(0, 90);
                kind = opaque ? 0 : In(0, 3);
            }
            const std::uint32_t alpha[] = {255, 0, OneIn(2) ? 255u : 0u,
                                           static_cast<std::uint32_t>(In(0, 255))};
            std::uint32_t color = Word() & 0xFFFFFF;
            if (OneIn(4))
                color |= 0xFF << (8 * In(0, 2));
            if (OneIn(4))
                color &= ~(0xFF << (8 * In(0, 2)));
            pixel = alpha[kind] << 24 | color;
        }
    }

private:
    std::mt19937 _engine;
    std::uint32_t _seed;
};

// An image in a guarded array that ends with the last pixel of its last row.
struct TestImage {
    long width, height, row_length;
    GuardedArray<std::uint32_t> array;

    TestImage(long width_, long height_, long row_length_, Against end)
        : width(width_),
          height(height_),
          row_length(row_length_),
          array(static_cast<std::size_t>((height - 1) * row_length + width), end) {}
    TestImage(Random& random, long width_, long height_)
        : TestImage(width_, height_, width_ + (random.OneIn(2) ? 0 : random.In(1, 9)),
                    random.OneIn(2) ? Against::kFront : Against::kBack) {}

    std::string Place(std::size_t index) const {
        const long at = static_cast<long>(index);
        return "(" + std::to_string(at % row_length) + ", " + std::to_string(at / row_length) + ") of " +
               std::to_string(width) + " x " + std::to_string(height);
    }
};

// Runs `operation(tools, source, destination)` with the reference and, on every instruction set, with
// KSBitmapTools, all on destinations with the same random words, and expects the same words throughout.
template <class Operation>
void ExpectLikeReference(Random& random, TestImage& source, TestImage& destination, Operation operation) {
    auto items = destination.array.items();
    for (auto& word : items)
        word = random.Word();
    const std::vector<std::uint32_t> before(items.begin(), items.end());
    std::vector<std::uint32_t> want = before;
    operation(std::type_identity<reference::BitmapTools>(), source.array.data(), want.data());
    source.array.SetWritable(false);
    for (const InstructionSet set : RunnableInstructionSets()) {
        const ScopedInstructionSet forced(set);
        std::copy(before.begin(), before.end(), items.begin());
        operation(std::type_identity<KSBitmapTools>(), source.array.data(), destination.array.data());
        for (std::size_t i = 0; i < items.size(); ++i)
            ASSERT_EQ(items[i], want[i])
                << std::hex << "want " << want[i] << ", got " << items[i] << ", was " << before[i] << std::dec
                << ", seed " << random.seed() << ", " << NameOf(set) << ", pixel " << destination.Place(i)
                << ", source " << source.width << " x " << source.height;
    }
    source.array.SetWritable(true);
}
