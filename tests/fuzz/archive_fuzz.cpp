// SPDX-License-Identifier: MIT
// Reads any bytes as a flattened message, and makes a raster of what is a sound archive.
#include "tests/fuzz/fuzz_target.h"
#include "tests/raster/everything.h"

namespace {

// Frames that are sound but large would make a run slow and say no more than small ones.
bool IsSmall(const KSRect<long>& frame) {
    return !frame.IsValid() || (frame.PixelWidth() > 0 && frame.PixelWidth() < 500 &&
                                frame.PixelHeight() > 0 && frame.PixelHeight() < 500);
}

void UseAsRaster(const KSMessage& archive) {
    KSRect<long> frame;
    archive.FindRect("KSRaster::_frame", &frame);
    if (KSRaster::ArchiveFault(&archive) != nullptr || !IsSmall(frame))
        return;
    KSRaster raster(&archive);
    Require(raster.Frame() == frame, "the raster has another frame than its archive");
    KSMessage again, read;
    raster.Archive(&again);
    Require(read.Unflatten(again.Flatten()) == kUnflattenOk, "an archive does not come back");
    Require(SameBytes(KSRaster(&read), raster), "a raster does not come back");
    CallEverything(raster);
}

std::vector<std::uint8_t> Archived(KSRaster&& raster) {
    KSMessage archive;
    raster.Archive(&archive);
    return archive.Flatten();
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    KSMessage message;
    message.AddString("text", "value");
    message.AddInt32("number", 5);
    return {message.Flatten(), Archived(KSRaster({-1, -2, 4, 3}, "name")),
            Archived(KSRaster({0, 0, 2, 2}, nullptr, KS_RGBA_COLOR_SPACE, kRasterInBBitmap)),
            Archived(KSRaster({0, 0, 2, 2}, "narrow", KS_RGB16_COLOR_SPACE)),
            Archived(KSRaster({5, 5, 4, 4}))};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    KSMessage message;
    if (message.Unflatten({data, size}) != kUnflattenOk) {
        Require(message.CountFields() == 0, "a refused message left fields behind");
        return 0;
    }
    KSMessage again;
    const std::vector<std::uint8_t> flat = message.Flatten();
    Require(again.Unflatten(flat) == kUnflattenOk && again.Flatten() == flat, "a message does not come back");
    UseAsRaster(message);
    return 0;
}
