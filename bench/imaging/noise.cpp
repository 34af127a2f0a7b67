// SPDX-License-Identifier: MIT
// The contests of removing noise: what the radius costs, and what a quiet image costs.
#include "bench/imaging/contests.h"
#include "bitmaptools/KSBitmapTools.h"
#include "tests/reference/sampling.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <random>
#include <vector>

namespace {

constexpr int kSize = 512;  // bytes per row, and rows
constexpr int kThreshold = 255;

// A grey image: its bytes as they are and the place to clean them in.
struct Scan {
    Image start{kSize / 4, kSize};
    Image bytes{kSize / 4, kSize};

    std::function<void()> Restore() {
        return [this] { bytes.CopyFrom(start); };
    }
};

void make_noise(Image& image) {
    std::mt19937 random(3);
    std::generate_n(image.Pixels(), image.Count(), [&] { return static_cast<std::uint32_t>(random()); });
}

// Large even areas, with a speck in every so many pixels or, for 0, with a single one.
void make_quiet(Image& image, unsigned pixels_per_speck) {
    std::mt19937 random(4);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const auto area = static_cast<std::uint8_t>(x / 64 * 8 + y / 64);
            image.Data()[y * kSize + x] = pixels_per_speck && random() % pixels_per_speck == 0 ? 200 : area;
        }
    image.Data()[kSize * kSize / 3] = 200;
}

std::function<void()> pass_of(decltype(KSBitmapTools::NoiseRemover) remove, Scan& scan, int radius) {
    return [remove, &scan, radius] {
        remove(scan.bytes.Data(), kSize, kSize, static_cast<std::uint8_t>(radius), kThreshold);
    };
}

void add_memcpy(Contest& contest, Scan& scan) {
    contest.Add(
        Kind::kMemory, "memcpy", Picture::kUnrelated,
        [&scan, from = std::make_shared<Image>(random_image(kSize / 4, kSize, Alphas::kOpaque, 6))] {
            scan.bytes.CopyFrom(*from);
        },
        scan.Restore());
}

// One radius a contest, so that all of its contenders leave the same image; the radii are compared by rate.
void run_radius(Runner& runner, Scan& scan, const std::string& image, int radius, bool with_definition) {
    const std::string name = "NoiseRemover/" + image + "/radius " + std::to_string(radius);
    if (!runner.Wants(name))
        return;
    Contest contest(name, kSize * kSize, &scan.bytes);
    contest.AddOwn(Picture::kSame, pass_of(KSBitmapTools::NoiseRemover, scan, radius), scan.Restore());
    // In a larger square than these, many specks are no longer few.
    for (const int other : radius < 64 && radius > 8 ? std::vector{8} : std::vector{8, 64, 255})
        if (other != radius)
            contest.Add(Kind::kOther, "radius " + std::to_string(other), Picture::kUnrelated,
                        pass_of(KSBitmapTools::NoiseRemover, scan, other), scan.Restore());
    add_memcpy(contest, scan);
    if (with_definition)
        contest.Add(Kind::kPlain, "definition", Picture::kSame,
                    pass_of(reference::BitmapTools::NoiseRemover, scan, radius), scan.Restore());
    runner.Run(std::move(contest));
}

}  // namespace

void run_noise_contests(Runner& runner) {
    Scan noise;
    make_noise(noise.start);
    for (const int radius : {8, 64, 255})
        run_radius(runner, noise, "noise", radius, radius <= 64);
    Scan quiet, specks, many_specks;
    make_quiet(quiet.start, 0);
    run_radius(runner, quiet, "quiet", 8, true);
    make_quiet(specks.start, 1000);
    run_radius(runner, specks, "specks", 8, true);
    make_quiet(many_specks.start, 50);
    for (const int radius : {11, 15, 23})
        run_radius(runner, many_specks, "many specks", radius, false);
}
