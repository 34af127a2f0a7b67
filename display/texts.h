// SPDX-License-Identifier: MIT
// The few texts of the display itself. The texts of the window are the application's.
#pragma once

namespace texts {

constexpr const char* kNoPicture = "This file is not a readable picture";
constexpr const char* kBrowse = "Choose a file";
constexpr const char* kPictures = "Pictures";
constexpr const char* kAllFiles = "All files";
constexpr const char* kNoPreview = "No preview";
constexpr const char* kFamily = "&Family";
constexpr const char* kStyle = "&Style";
constexpr const char* kSize = "Si&ze";
constexpr const char* kSample = "The quick brown fox jumps over the lazy dog";

// The preview. %1 and %2 stand for names of pens.
constexpr const char* kPreview = "Preview";
constexpr const char* kProgram = "A program";
constexpr const char* kHeading = "Large heading";
constexpr const char* kEdit = "edit";
constexpr const char* kMarkedWord = "marked";
constexpr const char* kCursorWord = "cursor";
constexpr const char* kReadOnly = "read only";
constexpr const char* kMarked = "Marked";
constexpr const char* kDisabled = "Disabled";
constexpr const char* kList = "List";
constexpr const char* kSelected = "Selected";
constexpr const char* kThird = "Third";
constexpr const char* kSmallNote = "Small note";
constexpr const char* kButton = "Button";
constexpr const char* kDefault = "Default";
constexpr const char* kPressed = "Pressed";
constexpr const char* kShowPreview = "Show the preview";
constexpr const char* kHidePreview = "Hide the preview";
constexpr const char* kHardToRead = "Hard to read";
constexpr const char* kAllCanBeRead = "All pairs can be read";
constexpr const char* kPairOn = "%1 on %2";
constexpr const char* kBestEdgeOn = "Edges on %1";
constexpr const char* kPaintOn = "Paint on %1";
constexpr const char* kMostPeople = "As most people see it";
constexpr const char* kProtanopia = "Protanopia";
constexpr const char* kDeuteranopia = "Deuteranopia";
constexpr const char* kTritanopia = "Tritanopia";
constexpr const char* kVision = "Color vision";
constexpr const char* kPairs = "Pairs of colors";

// The pens, by the names that a pair of them has.
constexpr const char* kPenText = "Text";
constexpr const char* kPenMarkedText = "Marked text";
constexpr const char* kPenCursor = "Cursor";
constexpr const char* kPenMark = "Marks";
constexpr const char* kPenPaint = "Paint";
constexpr const char* kPenLow = "Low level";
constexpr const char* kPenMedium = "Medium level";
constexpr const char* kPenHigh = "High level";
constexpr const char* kPenEdit = "Edit areas";
constexpr const char* kPenRead = "Read areas";
constexpr const char* kPenList = "Listviews";
constexpr const char* kPenButton = "Buttons";
constexpr const char* kPenSlider = "Sliders";
constexpr const char* kPenSelected = "Selected items";

}  // namespace texts
