// SPDX-License-Identifier: MIT
// The texts that the display itself says, looked up in the toolkit's catalog. The other texts of a window are
// the application's.
#pragma once

#include <cstdint>

class QCoreApplication;
class QString;

namespace texts {

struct text {
    std::uint32_t id;  // in the catalogs
    const char* english;
};

// Dialogs and tips. "&" stands before a mnemonic.
inline constexpr text kNoPicture{1, "This file is not a readable picture"};
inline constexpr text kBrowse{2, "Choose a file"};
inline constexpr text kPictures{3, "Pictures"};
inline constexpr text kAllFiles{4, "All files"};
inline constexpr text kNoPreview{5, "No preview"};
inline constexpr text kFamily{6, "&Family"};
inline constexpr text kStyle{7, "&Style"};
inline constexpr text kSize{8, "Si&ze"};
inline constexpr text kSample{9, "The quick brown fox jumps over the lazy dog"};

// The preview. %1 and %2 stand for names of pens.
inline constexpr text kPreview{10, "Preview"};
inline constexpr text kSampleTitle{11, "A program"};
inline constexpr text kSampleHeading{12, "Large heading"};
inline constexpr text kSampleEdit{13, "edit"};
inline constexpr text kSampleMarked{14, "marked"};
inline constexpr text kSampleCursor{15, "cursor"};
inline constexpr text kSampleRead{16, "read only"};
inline constexpr text kSampleOn{17, "Marked"};
inline constexpr text kSampleDisabled{18, "Disabled"};
inline constexpr text kSampleFirst{19, "List"};
inline constexpr text kSampleSelected{20, "Selected"};
inline constexpr text kSampleThird{21, "Third"};
inline constexpr text kSampleNote{22, "Small note"};
inline constexpr text kSampleButton{23, "Button"};
inline constexpr text kSampleDefault{24, "Default"};
inline constexpr text kSamplePressed{25, "Pressed"};
inline constexpr text kShowPreview{26, "Show the preview"};
inline constexpr text kHidePreview{27, "Hide the preview"};
inline constexpr text kHardToRead{28, "Hard to read"};
inline constexpr text kAllCanBeRead{29, "All pairs can be read"};
inline constexpr text kInkOnGround{30, "%1 on %2"};
inline constexpr text kInkEdges{31, "Edges"};
inline constexpr text kPairs{32, "Pairs of colours"};
inline constexpr text kUsualVision{33, "As most people see it"};
inline constexpr text kProtanopia{34, "Protanopia"};
inline constexpr text kDeuteranopia{35, "Deuteranopia"};
inline constexpr text kTritanopia{36, "Tritanopia"};
inline constexpr text kVision{37, "Colour vision"};

// The pens, by the names that a pair of them has.
inline constexpr text kInkText{38, "Text"};
inline constexpr text kInkMarkedText{39, "Marked text"};
inline constexpr text kInkCursor{40, "Cursor"};
inline constexpr text kInkMarks{41, "Marks"};
inline constexpr text kInkPaint{42, "Paint"};
inline constexpr text kGroundLow{43, "Low level"};
inline constexpr text kGroundMedium{44, "Medium level"};
inline constexpr text kGroundHigh{45, "High level"};
inline constexpr text kGroundEdit{46, "Edit areas"};
inline constexpr text kGroundRead{47, "Read areas"};
inline constexpr text kGroundLists{48, "Listviews"};
inline constexpr text kGroundButtons{49, "Buttons"};
inline constexpr text kGroundSliders{50, "Sliders"};
inline constexpr text kGroundSelected{51, "Selected menuitems"};

// For assistive tools.
inline constexpr text kTooLow{52, "too low"};
inline constexpr text kBitmap{53, "bitmap"};
inline constexpr text kClear{54, "Clear"};

// Returns the text in the user's language, or in English where the catalog lacks it.
QString Text(const text& row);

// Has Qt say its own texts in the user's language, where a translation of Qt is installed.
void TranslateQt(QCoreApplication& application);

}  // namespace texts
