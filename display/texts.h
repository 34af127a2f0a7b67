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

// Of the preview.
constexpr const char* kPreview = "Preview";
constexpr const char* kShowPreview = "Show the preview";
constexpr const char* kHidePreview = "Hide the preview";
constexpr const char* kVision = "Color vision";
constexpr const char* kUsualVision = "Usual color vision";
constexpr const char* kProtanopia = "Protanopia";
constexpr const char* kDeuteranopia = "Deuteranopia";
constexpr const char* kTritanopia = "Tritanopia";
constexpr const char* kSampleTitle = "Title";
constexpr const char* kSampleHeading = "Large heading";
constexpr const char* kSampleEdit = "edit";
constexpr const char* kSampleMarked = "marked";
constexpr const char* kSampleCursor = "cursor";
constexpr const char* kSampleRead = "read only 0123";
constexpr const char* kSampleOn = "On";
constexpr const char* kSampleDisabled = "Disabled";
constexpr const char* kSampleFirst = "First row";
constexpr const char* kSampleSelected = "Selected";
constexpr const char* kSampleThird = "Third row";
constexpr const char* kSampleNote = "Small note";
constexpr const char* kSampleButton = "Button";
constexpr const char* kSampleDefault = "Default";
constexpr const char* kSamplePressed = "Pressed";
constexpr const char* kPairs = "Pairs of colors";
constexpr const char* kAllCanBeRead = "All pairs can be read";
constexpr const char* kHardToRead = "Hard to read: %1";
constexpr const char* kTooLow = "too low";
constexpr const char* kInkOnGround = "%1 on %2";
constexpr const char* kInkText = "Text";
constexpr const char* kInkMarkedText = "Marked text";
constexpr const char* kInkCursor = "Cursor";
constexpr const char* kInkMarks = "Marks";
constexpr const char* kInkPaint = "Paint";
constexpr const char* kInkEdges = "Edges";
constexpr const char* kGroundLow = "Low level";
constexpr const char* kGroundMedium = "Medium level";
constexpr const char* kGroundHigh = "High level";
constexpr const char* kGroundEdit = "Edit areas";
constexpr const char* kGroundRead = "Read areas";
constexpr const char* kGroundLists = "Listviews";
constexpr const char* kGroundButtons = "Buttons";
constexpr const char* kGroundSliders = "Sliders";
constexpr const char* kGroundSelected = "Selected items";
constexpr const char* kGroundPaint = "Paint";

}  // namespace texts
