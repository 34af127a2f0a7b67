// SPDX-License-Identifier: MIT
// Tries the library on a picture of one's own: a PNG or TGA file in, an operation, a PNG file out.
#include "bitmaptools/KSBitmapTools.h"
#include "examples/adapters/png_file.h"
#include "examples/sheet.h"
#include "merge/ks_compose.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_TGA
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>

namespace {

constexpr char kUsage[] =
    "usage: view IN.png|IN.tga OUT.png OPERATION\n"
    "\n"
    "  scale WIDTH HEIGHT           a copy of that size\n"
    "  rotate DEGREES               about the middle, counter-clockwise\n"
    "  transform X1 Y1 ... X4 Y4    onto these corners, clockwise from the top left\n"
    "  fill MODE RRGGBBAA           composes a colour onto every pixel\n"
    "  blend MODE OTHER.png         composes another picture onto it\n"
    "  despeckle RADIUS THRESHOLD   removes noise, in each channel by itself\n"
    "\n"
    "Copies are bilinear; plain as the last word takes the nearest pixels. Modes are named as in\n"
    "\"Multiply\" or \"Replace Hue\".\n";

using Raster = std::unique_ptr<KSRaster>;
using Words = std::vector<std::string>;

// The largest side of a picture that is made.
constexpr long kLargest = 32767;

bool ends_with(const std::string& text, const char* ending) {
    return text.size() >= std::strlen(ending) &&
           text.compare(text.size() - std::strlen(ending), std::string::npos, ending) == 0;
}

long number(const std::string& word, long least, long most) {
    long value = 0;
    const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
    if (error != std::errc() || end != word.data() + word.size() || value < least || value > most)
        throw std::invalid_argument("\"" + word + "\" is no number from " + std::to_string(least) + " to " +
                                    std::to_string(most));
    return value;
}

Raster read_tga(const std::string& path) {
    int width = 0, height = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> bytes(
        stbi_load(path.c_str(), &width, &height, nullptr, 4), stbi_image_free);
    if (!bytes)
        throw std::runtime_error(path + ": " + stbi_failure_reason());
    auto raster = std::make_unique<KSRaster>(KSRect<long>(0, 0, width - 1, height - 1));
    auto* words = static_cast<std::uint32_t*>(raster->Bits());
    for (long i = 0; i < raster->BitsLength() / 4; ++i) {
        const stbi_uc* pixel = bytes.get() + 4 * i;
        words[i] = ks_pixel_word({pixel[0], pixel[1], pixel[2], pixel[3]});
    }
    return raster;
}

Raster read_picture(const std::string& path) {
    return ends_with(path, ".tga") ? read_tga(path) : std::make_unique<KSRaster>(read_png(path));
}

ks_composition_mode mode_named(const std::string& name) {
    for (std::int32_t mode = 0; mode < kMergeCount; ++mode)
        if (name == KSMerge::composition_label[mode])
            return static_cast<ks_composition_mode>(mode);
    throw std::invalid_argument("there is no mode \"" + name + "\"");
}

std::uint32_t colour_named(const std::string& text) {
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, 16);
    if (text.size() != 8 || error != std::errc() || end != text.data() + text.size())
        throw std::invalid_argument("\"" + text + "\" is no colour RRGGBBAA");
    return value << 24 | value >> 8;
}

// Returns the part of a picture that is not transparent, which copies have around them.
Raster trimmed(Raster picture) {
    picture->ResetOptmizedFrame();
    const KSRect<long> visible = picture->OptimizedFrame();
    if (!visible.IsValid())
        return picture;
    auto result = std::make_unique<KSRaster>(visible);
    ks_compose(*result, *picture, kMergeCopy);
    return result;
}

Raster scaled(Raster picture, const Words& words, bool bilinear) {
    const KSRect<long> frame(0, 0, number(words[0], 1, kLargest) - 1, number(words[1], 1, kLargest) - 1);
    return Raster(picture->CreateScaled(frame, bilinear, kRasterInMemory));
}

// CreateScaled maps the picture onto four corners and turns the result.
Raster mapped(KSRaster& picture, const KSPoint<double> (&p)[4], bool bilinear, double angle,
              KSPoint<double> centre) {
    return trimmed(Raster(picture.CreateScaled(p[0], p[1], p[2], p[3], bilinear, angle, centre)));
}

Raster rotated(Raster picture, const Words& words, bool bilinear) {
    const double right = static_cast<double>(picture->Width() - 1),
                 bottom = static_cast<double>(picture->Height() - 1);
    const double angle = static_cast<double>(number(words[0], -360000, 360000)) * 3.141592653589793 / 180;
    return mapped(*picture, {{0, 0}, {right, 0}, {right, bottom}, {0, bottom}}, bilinear, angle,
                  {std::floor(right / 2), std::floor(bottom / 2)});
}

Raster transformed(Raster picture, const Words& words, bool bilinear) {
    KSPoint<double> corners[4];
    for (std::size_t i = 0; i < 4; ++i)
        corners[i] = {static_cast<double>(number(words[2 * i], -kLargest, kLargest)),
                      static_cast<double>(number(words[2 * i + 1], -kLargest, kLargest))};
    return mapped(*picture, corners, bilinear, 0, {0, 0});
}

Raster filled(Raster picture, const Words& words, bool) {
    const auto fill = KSMerge::hash_color_func[mode_named(words[0])];
    for (long y = 0; y < picture->Height(); ++y)
        fill(row_of(*picture, y), colour_named(words[1]), 255, static_cast<std::int32_t>(picture->Width()));
    return picture;
}

Raster blended(Raster picture, const Words& words, bool) {
    ks_compose(*picture, *read_picture(words[1]), mode_named(words[0]));
    return picture;
}

Raster despeckled(Raster picture, const Words& words, bool) {
    const auto radius = static_cast<std::uint8_t>(number(words[0], 0, 255));
    const auto threshold = static_cast<std::uint8_t>(number(words[1], 0, 255));
    auto* bytes = static_cast<std::uint8_t*>(picture->Bits());
    std::vector<std::uint8_t> channel(static_cast<std::size_t>(picture->BitsLength()) / 4);
    for (std::size_t shift = 0; shift < 4; ++shift) {
        for (std::size_t i = 0; i < channel.size(); ++i)
            channel[i] = bytes[4 * i + shift];
        KSBitmapTools::NoiseRemover(channel.data(), static_cast<std::uint32_t>(picture->Width()),
                                    static_cast<std::uint32_t>(picture->Height()), radius, threshold);
        for (std::size_t i = 0; i < channel.size(); ++i)
            bytes[4 * i + shift] = channel[i];
    }
    return picture;
}

struct Operation {
    const char* name;
    std::size_t words;  // that follow the name
    Raster (*apply)(Raster picture, const Words& words, bool bilinear);
};

constexpr Operation kOperations[] = {
    {"scale", 2, scaled}, {"rotate", 1, rotated}, {"transform", 8, transformed},
    {"fill", 2, filled},  {"blend", 2, blended},  {"despeckle", 2, despeckled},
};

void run(Words words) {
    const bool plain = words.size() > 3 && words.back() == "plain";
    if (plain)
        words.pop_back();
    const auto* operation =
        std::find_if(std::begin(kOperations), std::end(kOperations), [&](const Operation& known) {
            return words.size() > 2 && words[2] == known.name && words.size() - 3 == known.words;
        });
    if (operation == std::end(kOperations))
        throw std::invalid_argument(kUsage);
    const Raster result =
        operation->apply(read_picture(words[0]), Words(words.begin() + 3, words.end()), !plain);
    write_png(*result, words[1]);
    std::printf("%s: %ld x %ld pixels\n", words[1].c_str(), result->Width(), result->Height());
}

}  // namespace

int main(int count, char** arguments) {
    try {
        run(Words(arguments + 1, arguments + count));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
