// SPDX-License-Identifier: MIT
// The few texts of the display itself. The texts of the window are the application's.
#pragma once

namespace texts {

constexpr const char* kNoPicture = "This file is not a readable picture";
constexpr const char* kBitmap = "bitmap";
constexpr const char* kClear = "Clear";
constexpr const char* kBrowse = "Choose a file";
constexpr const char* kPictures = "Pictures";
constexpr const char* kAllFiles = "All files";
constexpr const char* kNoPreview = "No preview";
constexpr const char* kFamily = "&Family";
constexpr const char* kStyle = "&Style";
constexpr const char* kSize = "Si&ze";
constexpr const char* kSample = "The quick brown fox jumps over the lazy dog";

}  // namespace texts
