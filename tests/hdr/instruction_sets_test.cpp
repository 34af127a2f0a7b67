// SPDX-License-Identifier: MIT
// Which instruction sets the tests of the pixel engines run with on this processor.
#include "tests/instruction_sets.h"

#include <gtest/gtest.h>

#include <iterator>
#include <string>

namespace {

TEST(InstructionSets, AllRunInTheTests) {
    constexpr InstructionSet kAll[] = {InstructionSet::kBaseline, InstructionSet::kAvx2,
                                       InstructionSet::kAvx512};
    const auto runnable = RunnableInstructionSets();
    std::string names;
    for (const InstructionSet set : runnable) {
        const ScopedInstructionSet forced(set);
        EXPECT_EQ(ActiveLevel(), set);
        names += (names.empty() ? "" : ", ") + std::string(NameOf(set));
    }
    RecordProperty("instruction_sets", names);
#if defined(__x86_64__)
    if (runnable.size() < std::size(kAll))
        GTEST_SKIP()
            << "on this processor the tests of the pixel engines run with these instruction sets only: "
            << names;
#endif
}

}  // namespace
