// SPDX-License-Identifier: MIT
// The view program: what it makes of a picture, and of words that it does not know.
#include "examples/picture_file.h"
#include "tests/support/home.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace {

class View : public testing::Test {
protected:
    void SetUp() override {
        KSRaster raster({0, 0, 7, 3});
        raster.SetHighColor(10, 20, 30, 255);
        raster.FillRect(raster.Frame());
        raster.SetHighColor(200, 100, 50, 255);
        raster.PutPixel(0, 0);
        write_png(raster, _in);
    }
    // Returns whether the program accepted the operation.
    bool Run(const std::string& operation) {
        const std::string command = PROGRAMS "/view '" + _in + "' '" + _out + "' " + operation;
        return std::system((command + " >/dev/null 2>&1").c_str()) == 0;
    }
    std::uint32_t Result(long x, long y) {
        const auto raster = read_png(_out);
        return static_cast<const std::uint32_t*>(raster->Bits())[y * raster->Width() + x];
    }

    const TemporaryDirectory _directory;
    std::string _in = _directory / "in.png";
    const std::string _out = _directory / "out.png";
};

TEST_F(View, ScalesComposesAndTurns) {
    ASSERT_TRUE(Run("scale 16 8 plain"));
    EXPECT_EQ(0xFFC86432, Result(1, 1));
    EXPECT_EQ(0xFF0A141E, Result(2, 2));

    ASSERT_TRUE(Run("fill Difference FFFFFFFF"));
    EXPECT_EQ(0xFF379BCD, Result(0, 0));

    ASSERT_TRUE(Run("despeckle 2 1"));
    EXPECT_EQ(0xFF0A141E, Result(0, 0));

    ASSERT_TRUE(Run("blend Copy '" + _in + "'"));
    EXPECT_EQ(0xFFC86432, Result(0, 0));

    ASSERT_TRUE(Run("rotate 90 plain"));
    const auto turned = read_png(_out);
    EXPECT_GT(turned->Height(), turned->Width());
}

TEST_F(View, ReadsTga) {
    const unsigned char bytes[] = {0, 0, 2, 0, 0, 0,  0,    0,    0,    0,    0,
                                   0, 1, 0, 1, 0, 32, 0x28, 0x11, 0x22, 0x33, 0x44};
    _in = _directory / "in.tga";
    _directory.Write(_in, {reinterpret_cast<const char*>(bytes), sizeof bytes});
    ASSERT_TRUE(Run("scale 2 2 plain"));
    EXPECT_EQ(0x44332211, Result(1, 1));
}

TEST_F(View, RefusesWhatItDoesNotKnow) {
    for (const char* operation :
         {"", "scale 16", "scale 0 8", "scale 99999999999999999999 8", "scale 1e3 8", "turn 90",
          "fill Nothing FFFFFFFF", "fill Normal FFFFFF", "blend Normal missing.png"})
        EXPECT_FALSE(Run(operation)) << operation;
}

}  // namespace
