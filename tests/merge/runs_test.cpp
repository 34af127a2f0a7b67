// SPDX-License-Identifier: MIT
// What the run and array kernels touch: runs of every length and alignment, pages that must not be touched.
#include "tests/instruction_sets.h"
#include "tests/merge/modes.h"
#include "tests/reference/composition.h"

#include <gtest/gtest.h>

#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <vector>

namespace {

using Word = std::uint32_t;
using Row = std::vector<Word>;

// `pages` pages of words that may be read and written, with a page on either side that may not.
class GuardedPages {
public:
    explicit GuardedPages(std::size_t pages)
        : _page_bytes(static_cast<std::size_t>(sysconf(_SC_PAGESIZE))), _bytes((pages + 2) * _page_bytes) {
        _all = static_cast<char*>(
            mmap(nullptr, _bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0));
        if (_all == MAP_FAILED)
            throw std::bad_alloc();
        Protect(0, PROT_NONE);
        Protect(pages + 1, PROT_NONE);
    }
    ~GuardedPages() { munmap(_all, _bytes); }
    GuardedPages(const GuardedPages&) = delete;
    GuardedPages& operator=(const GuardedPages&) = delete;

    // Page 1 is the first that may be used.
    void Protect(std::size_t page, int protection) {
        if (mprotect(_all + page * _page_bytes, _page_bytes, protection) != 0)
            throw std::bad_alloc();
    }
    Word* Begin() { return reinterpret_cast<Word*>(_all + _page_bytes); }
    Word* End() { return reinterpret_cast<Word*>(_all + _bytes - _page_bytes); }
    std::int32_t WordsPerPage() const { return static_cast<std::int32_t>(_page_bytes / sizeof(Word)); }

private:
    std::size_t _page_bytes;
    std::size_t _bytes;
    char* _all;
};

class RunsOfMode : public testing::TestWithParam<std::tuple<ks_composition_mode, InstructionSet>> {
protected:
    ks_composition_mode Mode() const { return std::get<0>(GetParam()); }

private:
    ScopedInstructionSet _set{std::get<1>(GetParam())};
};

INSTANTIATE_TEST_SUITE_P(Modes, RunsOfMode,
                         testing::Combine(testing::ValuesIn(AllModesBut({kMergeDissolve})),
                                          testing::ValuesIn(RunnableInstructionSets())),
                         [](const auto& test) {
                             return ModeName(std::get<0>(test.param)) + "_" + NameOf(std::get<1>(test.param));
                         });

constexpr std::int32_t kLongest = 130;
constexpr Word kGuard = 0xA5C3F00F;

// Pixels of all kinds, with some stretches that are opaque or clear throughout.
Row Pixels(unsigned seed) {
    std::mt19937 random(seed);
    Row row(kLongest);
    for (std::size_t i = 0; i < row.size(); i++) {
        const Word word = static_cast<Word>(random()),
                   kind = i / 33 % 2 ? seed + Word(i) / 66 : Word(random() % 4);
        row[i] = kind % 3 == 0 ? word | 0xFF000000 : kind % 3 == 1 ? word & 0xFFFFFF : word;
    }
    return row;
}

TEST_P(RunsOfMode, HaveAnyLengthAndAlignment) {
    const Row dst = Pixels(7), src = Pixels(8);
    const Word color = 0xC0408020, opacity = 200;
    Row array = dst, run = dst;
    for (std::size_t i = 0; i < dst.size(); i++) {
        array[i] = reference::ComposeInArray(Mode(), dst[i], src[i], opacity);
        run[i] = reference::ComposeInRun(Mode(), dst[i], color, opacity);
    }
    std::vector<std::int32_t> counts = {-2147483647 - 1, -5, -1};
    for (std::int32_t count = 0; count <= kLongest; count++)
        counts.push_back(count);
    Row storage(kLongest + 64);
    for (const std::int32_t count : counts)
        for (int offset = 0; offset < 16; offset++)
            for (const Row* want : {&array, &run}) {
                const std::size_t length = static_cast<std::size_t>(std::max(count, 0));
                std::fill(storage.begin(), storage.end(), kGuard);
                Word* at = storage.data() + 16 + offset;
                std::copy_n(dst.begin(), length, at);
                if (want == &array)
                    KSMerge::hash_array_func[Mode()](at, src.data(), opacity, count);
                else
                    KSMerge::hash_color_func[Mode()](at, color, opacity, count);
                ASSERT_TRUE(std::equal(at, at + length, want->begin()))
                    << count << " pixels, offset " << offset;
                ASSERT_EQ(std::count(storage.data(), at, kGuard), at - storage.data()) << "before " << count;
                ASSERT_EQ(std::count(at + length, storage.data() + storage.size(), kGuard),
                          storage.data() + storage.size() - (at + length))
                    << "behind " << count;
            }
}

TEST_P(RunsOfMode, StayWithinTheirPages) {
    GuardedPages dst(1), src(1);
    std::fill(dst.Begin(), dst.End(), 0x80402010);
    std::fill(src.Begin(), src.End(), 0xC0408020);
    for (std::int32_t count = 0; count <= kLongest; count++) {
        KSMerge::hash_array_func[Mode()](dst.End() - count, src.End() - count, 255, count);
        KSMerge::hash_array_func[Mode()](dst.Begin(), src.Begin(), 100, count);
        KSMerge::hash_color_func[Mode()](dst.End() - count, 0xFF408020, 255, count);
        KSMerge::hash_color_func[Mode()](dst.Begin(), 0xC0408020, 100, count);
    }
}

// A destination page without access lies under source pixels that leave it as it is.
TEST_P(RunsOfMode, TouchNothingUnderClearSources) {
    GuardedPages dst(3);
    const std::int32_t page = dst.WordsPerPage();
    std::fill(dst.Begin(), dst.End(), 0x80402010);
    dst.Protect(2, PROT_NONE);
    for (std::int32_t count = 0; count <= kLongest && Mode() != kMergeCopy; count++)
        KSMerge::hash_color_func[Mode()](dst.Begin() + page, 0x00FFFFFF, 255, count);
    if (KSMerge::merge_destructive[Mode()])
        return;
    Row src(static_cast<std::size_t>(3 * page), 0xC0408020);
    std::fill_n(src.begin() + page, page, 0x00FFFFFF);
    Word want = 0x80402010;
    for (const Word opacity : {255u, 100u}) {
        KSMerge::hash_array_func[Mode()](dst.Begin(), src.data(), opacity, 3 * page);
        for (std::int32_t count = 0; count <= kLongest; count++)
            KSMerge::hash_array_func[Mode()](dst.Begin() + page, src.data() + page, opacity, count);
        want = reference::ComposeInArray(Mode(), want, 0xC0408020, opacity);
    }
    EXPECT_EQ(dst.Begin()[page - 1], want);
    EXPECT_EQ(dst.Begin()[2 * page], want);
}

// With opacity 0 these modes draw nothing, whatever the source.
TEST(Runs, TouchNothingAtOpacityZero) {
    GuardedPages dst(1);
    dst.Protect(1, PROT_NONE);
    const Row src(kLongest, 0xFF408020);
    for (const InstructionSet set : RunnableInstructionSets())
        for (const ks_composition_mode mode : {kMergeNormal, kMergeFilter, kMergeOverlay}) {
            const ScopedInstructionSet forced(set);
            for (std::int32_t count = 0; count <= kLongest; count++) {
                KSMerge::hash_array_func[mode](dst.Begin(), src.data(), 0, count);
                KSMerge::hash_color_func[mode](dst.Begin(), src[0], 0, count);
            }
        }
}

}  // namespace
