// SPDX-License-Identifier: MIT
// The view program: what it makes of a picture, and of words that it does not know.
#include "examples/adapters/png_file.h"
#include "tests/support/home.h"

#include <array>
#include <cstdlib>
#include <gtest/gtest.h>

namespace {

TEST(View, ScalesComposesAndTurnsAndRefusesWhatItDoesNotKnow) {
    const TemporaryDirectory directory;
    const std::string in = directory / "in.png", tga = directory / "in.tga", out = directory / "out.png";
    KSRaster raster({0, 0, 7, 3});
    raster.SetHighColor(10, 20, 30, 255);
    raster.FillRect(raster.Frame());
    raster.SetHighColor(200, 100, 50, 255);
    raster.PutPixel(0, 0);
    write_png(raster, in);
    const unsigned char one_pixel[] = {0, 0, 2, 0, 0, 0,  0,    0,    0,    0,    0,
                                       0, 1, 0, 1, 0, 32, 0x28, 0x11, 0x22, 0x33, 0x44};
    directory.Write(tga, {reinterpret_cast<const char*>(one_pixel), sizeof one_pixel});

    const struct {
        std::string picture, operation;
        std::array<std::uint32_t, 3> pixels;  // the first, the 18th and the last of the result
    } rows[] = {
        {in, "scale 16 8 plain", {0xFFC86432, 0xFFC86432, 0xFF0A141E}},
        {in, "fill Difference FFFFFFFF", {0xFF379BCD, 0xFFF5EBE1, 0xFFF5EBE1}},
        {in, "despeckle 2 1", {0xFF0A141E, 0xFF0A141E, 0xFF0A141E}},
        {in, "blend Copy '" + in + "'", {0xFFC86432, 0xFF0A141E, 0xFF0A141E}},
        {tga, "scale 6 3 plain", {0x44332211, 0x44332211, 0x44332211}},
    };
    const auto run = [&](const std::string& picture, const std::string& operation) {
        const std::string command = PROGRAMS "/view '" + picture + "' '" + out + "' " + operation;
        return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
    };
    for (const auto& row : rows) {
        ASSERT_TRUE(run(row.picture, row.operation)) << row.operation;
        const auto result = read_png(out);
        const auto* pixels = static_cast<const std::uint32_t*>(result.Bits());
        const std::array found = {pixels[0], pixels[17], pixels[result.BitsLength() / 4 - 1]};
        EXPECT_EQ(found, row.pixels) << row.operation;
    }
    ASSERT_TRUE(run(in, "rotate 90 plain"));
    const auto turned = read_png(out);
    EXPECT_GT(turned.Height(), turned.Width());
    for (const char* operation :
         {"", "scale 16", "scale 0 8", "scale 99999999999999999999 8", "scale 1e3 8", "turn 90",
          "fill Nothing FFFFFFFF", "fill Normal FFFFFF", "blend Normal missing.png"})
        EXPECT_FALSE(run(in, operation)) << operation;
}

}  // namespace
