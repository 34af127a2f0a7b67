// SPDX-License-Identifier: MIT
// A photographed page made straight and clean, in bands of rows on several threads:
//
//   scan_repair FILE.png                                     draws the picture of the documents
//   scan_repair IN.png OUT.png X Y X Y X Y X Y [THREADS [RADIUS THRESHOLD]]
//
// The corners are the page's in the photo: top left, top right, bottom right, bottom left. Specks are taken
// out if a radius is given, which is for photos of few levels. Progress and time go to standard error.
#include "bitmaptools/KSBitmapTools.h"
#include "bitmaptools/ks_resample.h"
#include "examples/adapters/png_file.h"
#include "examples/font.h"
#include "examples/sheet.h"
#include "merge/ks_compose.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <future>
#include <mutex>
#include <random>
#include <utility>
#include <vector>

namespace {

using Rect = KSRect<long>;

// Calls work(rows) for each band of a frame's rows, on several threads. Throws what a call throws.
template <class Work> void InBands(const char* step, const Rect& frame, int threads, Work work) {
    std::atomic<long> next = frame.top;
    std::mutex progress;
    long done = 0;
    const auto run = [&] {
        constexpr long kRows = 64;
        for (long top = next.fetch_add(kRows); top <= frame.bottom; top = next.fetch_add(kRows)) {
            const Rect rows(frame.left, top, frame.right, std::min(top + kRows - 1, frame.bottom));
            work(rows);
            const std::lock_guard lock(progress);
            done += rows.PixelHeight();
            std::fprintf(stderr, "\r%s %3ld %%", step, done * 100 / frame.PixelHeight());
        }
    };
    std::vector<std::future<void>> others;
    for (int i = 1; i < threads; ++i)
        others.push_back(std::async(std::launch::async, run));
    run();
    for (auto& other : others)
        other.get();
    std::fprintf(stderr, "\n");
}

struct Specks {
    int radius = 0;  // none are taken out
    int threshold = 0;
};

// Cleans a band with the rows around it that its pixels depend on, so that bands equal the whole.
void Clean(const KSMask& scan, const Rect& band, Specks specks, KSMask& cleaned) {
    const long margin = specks.radius + 1, width = scan.frame.PixelWidth();
    const auto rows = scan.Items().Part({band.left, band.top - margin, band.right, band.bottom + margin});
    std::vector<std::uint8_t> bytes(rows.first, rows.first + rows.frame.PixelHeight() * width);
    KSBitmapTools::NoiseRemover(
        bytes.data(), static_cast<std::uint32_t>(width), static_cast<std::uint32_t>(rows.frame.PixelHeight()),
        static_cast<std::uint8_t>(specks.radius), static_cast<std::uint8_t>(specks.threshold));
    std::copy_n(bytes.data() + (band.top - rows.frame.top) * width, band.PixelHeight() * width,
                cleaned.Items().At(band.left, band.top));
}

// Grey levels as a picture.
void Show(const KSMask& levels, KSPixels<std::uint32_t> rows) {
    ks_compose_mask(rows, levels, {0, 0, 0}, kMergeCopy);
    ks_compose_mask(rows, levels, {255, 255, 255}, kMergeOverlay);
}

// Returns what lies within the corners, as large as the scan.
KSRaster Repaired(const KSMask& scan, const ks_quadrilateral& corners, int threads, Specks specks) {
    const auto start = std::chrono::steady_clock::now();
    KSMask cleaned = specks.radius > 0 ? KSMask(scan.frame) : scan;
    if (specks.radius > 0)
        InBands("specks    ", scan.frame, threads,
                [&](const Rect& rows) { Clean(scan, rows, specks, cleaned); });
    KSRaster photo(scan.frame), page(scan.frame);
    page.InitEmpty();
    InBands("levels    ", scan.frame, threads,
            [&, pixels = photo.Pixels()](const Rect& rows) { Show(cleaned, pixels.Part(rows)); });
    const auto map = ks_projection::FromQuadrilateral(corners, page.Frame());
    InBands("straighten", page.Frame(), threads, [&, pixels = page.Pixels()](const Rect& rows) {
        ks_project_bilinear(photo, map, pixels.Part(rows));
    });
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    std::fprintf(stderr, "%.0f ms on %d threads\n", time.count(), threads);
    return page;
}

// The page of the documents' picture, on a desk. Alpha holds the levels.
constexpr Rect kPage{0, 0, 439, 559};
constexpr ks_quadrilateral kCorners = {{{60, 44}, {372, 22}, {424, 520}, {16, 548}}};
constexpr std::uint8_t kPaperLevel = 236, kInkLevel = 40, kDeskLevel = 100;

constexpr ks_color Level(std::uint8_t level) {
    return {0, 0, 0, level};
}

KSRaster PrintedPage() {
    KSRaster page(kPage);
    page.SetHighColor(Level(kPaperLevel));
    page.FillRect(kPage);
    draw_text(page, 30, 30, "Four corners", Level(kInkLevel), 4);
    const char* const lines[] = {"A camera sees a page from aside:",
                                 "what is far away becomes small, and",
                                 "what was square is square no more.",
                                 "A projective map takes it back. It",
                                 "needs the four corners of the page",
                                 "in the photo, and the rectangle that",
                                 "they become."};
    for (long y = 90; const char* line : lines)
        draw_text(page, 30, std::exchange(y, y + 26), line, Level(kInkLevel), 2);
    for (long x = 30; x <= 410; x += 38)
        page.FillRect(x, 290, x + 1, 519);
    for (long y = 290; y <= 518; y += 38)
        page.FillRect(30, y, 411, y + 1);
    for (const long inset : {0, 1})
        page.StrokeEllipse(106 + inset, 290 + inset, 334 - inset, 518 - inset);
    return page;
}

KSMask PhotoOf(const KSRaster& page) {
    KSRaster photo(kPage);
    photo.SetHighColor(Level(kDeskLevel));
    photo.FillRect(kPage);
    ks_project_plain(page, ks_projection::ToQuadrilateral(kPage, kCorners), photo);
    std::mt19937 random(5);
    for (long y = 0; y < kPage.PixelHeight(); ++y)
        for (long x = 0; x < kPage.PixelWidth(); ++x)
            if (random() % 100 == 0) {
                photo.SetHighColor(Level(random() % 2 ? kPaperLevel : kInkLevel));
                photo.PutPixel(x, y);
            }
    return KSMask::OfAlpha(photo);
}

int DrawSheet(int count, char** arguments) {
    const KSMask scan = PhotoOf(PrintedPage());
    KSRaster photo(scan.frame);
    Show(scan, photo);
    Sheet sheet("Scan repair: specks go, corners become square", 2, 1, kPage.PixelWidth(),
                kPage.PixelHeight());
    sheet.Add(photo, "photographed");
    sheet.Add(Repaired(scan, kCorners, 2, {2, 255}), "repaired");
    return write_sheet(sheet, count, arguments);
}

}  // namespace

int main(int count, char** arguments) {
    try {
        if (count < 11)
            return DrawSheet(count, arguments);
        const auto number = [&](int i, int otherwise) {
            return i < count ? std::stoi(arguments[i]) : otherwise;
        };
        ks_quadrilateral corners;
        for (int i = 0; i < 4; ++i)
            corners[static_cast<std::size_t>(i)] = {std::stod(arguments[3 + 2 * i]),
                                                    std::stod(arguments[4 + 2 * i])};
        const Specks specks = {std::clamp(number(12, 0), 0, 255), std::clamp(number(13, 2), 0, 255)};
        write_png(Repaired(read_grey_png(arguments[1]), corners, std::clamp(number(11, 2), 1, 64), specks),
                  arguments[2]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
