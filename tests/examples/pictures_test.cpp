// SPDX-License-Identifier: MIT
// The examples still draw the pictures that the documents show.
#include "examples/adapters/png_file.h"
#include "tests/support/home.h"

#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>

namespace {

TEST(Pictures, AreDrawnAsTheyStandInTheDocuments) {
    const TemporaryDirectory directory;
    for (const std::string name : {"modes", "shapes", "copies", "despeckle", "scan_repair"}) {
        SCOPED_TRACE(name);
        const std::string drawn = directory / name;
        ASSERT_EQ(0, std::system((PROGRAMS "/" + name + " '" + drawn + "'").c_str()));
        const auto now = read_png(drawn), shown = read_png(PICTURES "/" + name + ".png");
        ASSERT_EQ(shown.Frame(), now.Frame());
        EXPECT_EQ(0, std::memcmp(now.Bits(), shown.Bits(), static_cast<std::size_t>(now.BitsLength())))
            << "look at what the example draws; if it is right, the target `pictures` takes it over";
    }
}

TEST(PictureFile, KeepsStraightColourAndRefusesWhatIsNoFile) {
    KSRaster raster({0, 0, 255, 0});
    for (std::uint32_t i = 0; i < 256; ++i)
        static_cast<std::uint32_t*>(raster.Bits())[i] = i << 24 | 0x123456;
    const TemporaryDirectory directory;
    const std::string path = directory / "straight.png";
    write_png(raster, path);
    EXPECT_EQ(0, std::memcmp(read_png(path).Bits(), raster.Bits(), 256 * 4));
    EXPECT_THROW(read_png(directory / "missing.png"), std::runtime_error);
    EXPECT_THROW(write_png(raster, directory.Path()), std::runtime_error);
}

}  // namespace
