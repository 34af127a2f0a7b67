// SPDX-License-Identifier: MIT
// The examples still draw the pictures that the documents show.
#include "examples/picture_file.h"

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

// Tests run at the same time.
std::string temporary(const std::string& name) {
    return testing::TempDir() + std::to_string(getpid()) + "_" + name;
}

class Pictures : public testing::TestWithParam<const char*> {};

TEST_P(Pictures, AreDrawnAsTheyStandInTheDocuments) {
    const std::string name = std::string(GetParam()) + ".png";
    const std::string drawn = temporary(name);
    const std::string command = std::string(PROGRAMS "/") + GetParam() + " '" + drawn + "'";
    ASSERT_EQ(0, std::system(command.c_str()));
    const auto now = read_png(drawn), shown = read_png(PICTURES "/" + name);
    ASSERT_EQ(shown->Frame(), now->Frame());
    long differing = 0;
    for (long i = 0; i < now->BitsLength() / 4; ++i)
        differing += static_cast<const std::uint32_t*>(now->Bits())[i] !=
                     static_cast<const std::uint32_t*>(shown->Bits())[i];
    EXPECT_EQ(0, differing) << "pixels differ: look at " << drawn
                            << "; if it is right, the target `pictures` takes it over";
    std::filesystem::remove(drawn);
}

INSTANTIATE_TEST_SUITE_P(Examples, Pictures, testing::Values("modes", "shapes", "copies", "despeckle"),
                         [](const auto& param) { return std::string(param.param); });

TEST(PictureFile, KeepsStraightColourThroughAFile) {
    KSRaster raster({0, 0, 255, 0});
    for (std::uint32_t i = 0; i < 256; ++i)
        static_cast<std::uint32_t*>(raster.Bits())[i] = i << 24 | 0x123456;
    const std::string path = temporary("straight.png");
    write_png(raster, path);
    const auto read = read_png(path);
    EXPECT_EQ(0, std::memcmp(read->Bits(), raster.Bits(), 256 * 4));
    std::filesystem::remove(path);
}

TEST(PictureFile, SaysWhichFileIsWrong) {
    const std::string missing = temporary("missing.png");
    EXPECT_THROW(read_png(missing), std::runtime_error);
    EXPECT_THROW(write_png(KSRaster({0, 0, 1, 1}), testing::TempDir()), std::runtime_error);
}

}  // namespace
