// SPDX-License-Identifier: MIT
// The program's image offers the imaging library to add-ons, and nothing else.
#include "tests/app/add_on.h"
#include "tests/support/home.h"

#include <algorithm>
#include <cstdio>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>

namespace {

// Returns the words of `text` that start with "_Z".
std::set<std::string> mangled_names(const std::string& text) {
    std::set<std::string> names;
    for (std::size_t start = text.find("_Z"); start != std::string::npos;
         start = text.find("_Z", start + 1)) {
        const std::size_t end = std::min(text.find_first_of(" @;\n", start), text.size());
        names.insert(text.substr(start, end - start));
        start = end;
    }
    return names;
}

TEST(Exports, AreTheImagingLibraryAndNothingElse) {
    const std::string command = "nm -D --defined-only '" NYMBREL_PROGRAM "'";
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> listing(popen(command.c_str(), "r"), pclose);
    ASSERT_TRUE(listing);
    std::string text;
    for (char line[512]; std::fgets(line, sizeof line, listing.get());)
        text += line;
    EXPECT_EQ(mangled_names(text), mangled_names(ScopedHome::Read(NYMBREL_SYMBOLS)));
    // Besides those there is the name of their version only.
    EXPECT_EQ(std::ranges::count(text, '\n'), static_cast<long>(mangled_names(text).size()) + 1) << text;
}

// This test is linked as the program is.
TEST(Exports, LetAnAddOnDraw) {
    void* add_on = dlopen(NYMBREL_ADD_ON, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(add_on, nullptr) << dlerror();
    const auto draw = reinterpret_cast<add_on_entry>(dlsym(add_on, kAddOnEntry));
    ASSERT_NE(draw, nullptr) << dlerror();
    EXPECT_STREQ(draw(), nullptr);
    dlclose(add_on);
}

}  // namespace
