// SPDX-License-Identifier: MIT
// The contests of removing noise: what the radius costs, and what a quiet image costs.
#include "bench/imaging/contests.h"
#include "bench/imaging/levels.h"
#include "bitmaptools/KSBitmapTools.h"

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

// Large even areas, with one speck in a thousand pixels or with a single one.
void make_quiet(Image& image, bool has_specks) {
    std::mt19937 random(4);
    for (int y = 0; y < kSize; ++y)
        for (int x = 0; x < kSize; ++x) {
            const auto area = static_cast<std::uint8_t>(x / 64 * 8 + y / 64);
            image.Data()[y * kSize + x] = has_specks && random() % 1000 == 0 ? 200 : area;
        }
    image.Data()[kSize * kSize / 3] = 200;
}

// The operation as it is defined: every test counts what it asks for.
class PlainRemover {
public:
    PlainRemover(std::uint8_t* image, int radius)
        : _image(image), _input(image, image + kSize * kSize), _radius(radius) {}

    void Run() {
        for (int y = 0; y < kSize; ++y)
            for (int x = 0; x < kSize; ++x)
                if (!HasEqualNeighbour(x, y) && CountInSquare(x, y) < kThreshold)
                    _image[y * kSize + x] = Replacement(x, y);
    }

private:
    std::uint8_t At(int x, int y) const { return _input[static_cast<std::size_t>(y * kSize + x)]; }

    bool HasEqualNeighbour(int x, int y) const {
        for (int v = std::max(0, y - 1); v <= std::min(kSize - 1, y + 1); ++v)
            for (int u = std::max(0, x - 1); u <= std::min(kSize - 1, x + 1); ++u)
                if ((u != x || v != y) && At(u, v) == At(x, y))
                    return true;
        return false;
    }

    int CountInSquare(int x, int y) const {
        int count = 0;
        for (int v = std::max(0, y - _radius); v <= std::min(kSize - 1, y + _radius); ++v)
            for (int u = std::max(0, x - _radius); u <= std::min(kSize - 1, x + _radius); ++u)
                count += u != x && v != y && At(u, v) == At(x, y);
        return count;
    }

    std::uint8_t Replacement(int x, int y) const {
        const std::uint8_t left = At(x > 0 ? x - 1 : x + 1, y), right = At(x < kSize - 1 ? x + 1 : x - 1, y);
        int left_count = 0, right_count = 0;
        for (int u = std::max(0, x - _radius); u <= std::min(kSize - 1, x + _radius); ++u) {
            left_count += At(u, y) == left;
            right_count += At(u, y) == right;
        }
        return left_count > right_count ? left : right;
    }

    std::uint8_t* _image;
    std::vector<std::uint8_t> _input;
    int _radius;
};

std::function<void()> own_pass(Scan& scan, int radius) {
    return [&scan, radius] {
        KSBitmapTools::NoiseRemover(scan.bytes.Data(), kSize, kSize, static_cast<std::uint8_t>(radius),
                                    kThreshold);
    };
}

void add_memcpy(Contest& contest, Scan& scan) {
    contest.Add(
        "memcpy", Picture::kUnrelated,
        [&scan, from = std::make_shared<Image>(random_image(kSize / 4, kSize, Alphas::kOpaque, 6))] {
            scan.bytes.CopyFrom(*from);
        },
        scan.Restore());
}

// One radius a contest, so that all of its contenders leave the same image; the radii are compared by rate.
void run_radius(Runner& runner, Scan& scan, const std::string& image, int radius, bool with_plain) {
    const std::string name = "NoiseRemover/" + image + "/radius " + std::to_string(radius);
    if (!runner.Wants(name))
        return;
    Contest contest(name, kSize * kSize, &scan.bytes);
    for (const Level& level : levels())
        contest.Add(level.name, Picture::kSame, at_level(level, own_pass(scan, radius)), scan.Restore());
    for (const int other : {8, 64, 255})
        if (other != radius)
            contest.Add("radius " + std::to_string(other), Picture::kUnrelated, own_pass(scan, other),
                        scan.Restore());
    add_memcpy(contest, scan);
    if (with_plain)
        contest.Add(
            "plain C++", Picture::kSame, [&scan, radius] { PlainRemover(scan.bytes.Data(), radius).Run(); },
            scan.Restore());
    runner.Run(std::move(contest));
}

}  // namespace

void run_noise_contests(Runner& runner) {
    Scan noise;
    make_noise(noise.start);
    for (const int radius : {8, 64, 255})
        run_radius(runner, noise, "noise", radius, radius <= 64);
    Scan quiet, specks;
    make_quiet(quiet.start, false);
    run_radius(runner, quiet, "quiet", 8, true);
    make_quiet(specks.start, true);
    run_radius(runner, specks, "specks", 8, true);
}
