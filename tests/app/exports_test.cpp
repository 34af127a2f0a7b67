// SPDX-License-Identifier: MIT
// An add-on draws with the imaging library of the image that loads it. This test is linked as the program is.
#include <dlfcn.h>
#include <gtest/gtest.h>

TEST(Exports, LetAnAddOnDraw) {
    void* add_on = dlopen(NYMBREL_ADD_ON, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(add_on, nullptr) << dlerror();
    const auto draw = reinterpret_cast<const char* (*)()>(dlsym(add_on, "draw_with_the_image"));
    ASSERT_NE(draw, nullptr) << dlerror();
    EXPECT_STREQ(draw(), nullptr);
    dlclose(add_on);
}
