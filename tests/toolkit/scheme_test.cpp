// SPDX-License-Identifier: MIT
// What a scheme's file gives, and what of it cannot be used.
#include "tests/support/home.h"
#include "toolkit/scheme.h"

#include <sys/stat.h>

namespace {

TEST(Scheme, GivesBackEveryValueOfALook) {
    const ScopedHome home;
    ks_look look;
    ks_scheme wanted;
    for (std::size_t i = 0; i < look.pens.size(); ++i) {
        const auto component = static_cast<std::uint8_t>(i);
        wanted.pens[i] = look.pens[i] = ks_color(component, 7, 0, static_cast<std::uint8_t>(255 - component));
    }
    look.bitmaps[2] = home.NewFile("a = b.png");
    for (std::size_t i = 0; i < look.bitmaps.size(); ++i)
        wanted.bitmaps[i] = look.bitmaps[i];
    for (std::size_t i = 0; i < look.fonts.size(); ++i) {
        look.fonts[i].SetFamilyAndStyle("Some Sans", "Bold Italic");
        look.fonts[i].SetSize(12.5F + static_cast<float>(i));
        wanted.fonts[i] = look.fonts[i];
    }
    wanted.is_nymbrel = look.is_nymbrel = true;
    ASSERT_TRUE(ks_write_settings_file(home / "x.scheme", ks_format_scheme(look)));
    const std::optional<ks_scheme_file> read = ks_read_scheme(home / "x.scheme");
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->scheme == wanted && read->values == 30 && read->faults == 0);
    EXPECT_FALSE(ks_write_settings_file(home / "", "LOOK = BeOS\n"));
}

TEST(Scheme, TakesWhatCanBeUsedAndCountsTheRest) {
    const ScopedHome home;
    struct row {
        const char* text;
        std::size_t values, faults;
    };
    for (const auto& [text, values, faults] :
         {row{"", 0, 0},
          {"\n \r\n", 0, 0},
          {"LOOK = Nymbrel\r\n", 1, 0},
          {"LOOK = Other\nLOOK\n", 0, 2},
          {"BEOS = 0\nLANGUAGE = deutsch\nMOUSEHOLDTIME = 1\n", 0, 0},
          {"KS_PEN_TEXT=1,2,3,4\nnot me\n", 1, 1},
          {"KS_PEN_BG_LOW_BMP = /missing\nKS_PEN_NONE = 1,2,3,4\nKS_FONT_TITLE = Sans,Bold", 0, 3}}) {
        home.Write("x.scheme", text);
        const std::optional<ks_scheme_file> file = ks_read_scheme(home / "x.scheme");
        ASSERT_TRUE(file);
        EXPECT_TRUE(file->values == values && file->faults == faults) << text;
        EXPECT_EQ(file->scheme == ks_scheme(), values == 0) << text;
    }
    home.Write("huge", std::string((1 << 20) + 1, '\n'));
    ASSERT_EQ(mkfifo((home / "pipe").c_str(), 0600), 0);
    for (const char* name : {"huge", "pipe", "missing", ""})
        EXPECT_FALSE(ks_read_scheme(home / name)) << name;
}

}  // namespace
