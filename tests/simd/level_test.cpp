// SPDX-License-Identifier: MIT
// The levels that the tests of the pixel operations run at on this processor.
#include "tests/support/levels.h"

#include <gtest/gtest.h>

#include <string>

namespace {

TEST(Levels, AllRunInTheTests) {
    std::string names;
    for (const Level level : Levels()) {
        const ScopedLevel held(level);
        EXPECT_EQ(ActiveLevel(), level);
        names += std::string(" ") + NameOf(level);
    }
#if defined(__x86_64__)
    if (Levels().back() != Level::kAvx512)
        GTEST_SKIP() << "this processor runs the tests of the pixel operations at these levels only:"
                     << names;
#endif
}

}  // namespace
