// SPDX-License-Identifier: MIT
// Reads any bytes as a catalog. Its texts can be shown, and a second copy behind it changes none of them.
#include "kits/utf8.h"
#include "tests/fuzz/fuzz_target.h"
#include "toolkit/KSLocale.h"

#include <string>

namespace {

std::vector<std::string> Texts(std::string_view catalog) {
    KSLocale locale;
    locale.Read(catalog);
    std::vector<std::string> texts;
    for (std::uint32_t id = 0; id < 300; id++) {
        texts.emplace_back(locale.String(id, "default"));
        Require(!texts.back().empty() && ks_utf8_is_valid(texts.back()), "a text cannot be shown");
    }
    return texts;
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    std::vector<std::vector<std::uint8_t>> seeds;
    for (const std::string text :
         {"\xEF\xBB\xBF$ comment\r\n1 OK\r\n2 \xC3\x84ndern\n", "7 a\\nb\\\\n\n7 c\\\n",
          "99\tx\n100  y\n4294967296 z\n-1 w\n3 \n3 \xE2\x9C\x93 %s\n"})
        seeds.emplace_back(text.begin(), text.end());
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text(reinterpret_cast<const char*>(data), size);
    Require(Texts(text) == Texts(text + '\n' + text), "a second copy changes the texts");
    return 0;
}
