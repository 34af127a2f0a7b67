// SPDX-License-Identifier: MIT
// The texts that the display itself says, looked up in the toolkit's catalog. The other texts of a window are
// the application's.
#pragma once

#include "toolkit/KSLocale.h"

class QCoreApplication;
class QString;

namespace texts {

using text = ks_text;

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
inline constexpr text kProgram{11, "A program"};
inline constexpr text kHeading{12, "Large heading"};
inline constexpr text kEdit{13, "edit"};
inline constexpr text kMarkedWord{14, "marked"};
inline constexpr text kCursorWord{15, "cursor"};
inline constexpr text kReadOnly{16, "read only"};
inline constexpr text kMarked{17, "Marked"};
inline constexpr text kDisabled{18, "Disabled"};
inline constexpr text kList{19, "List"};
inline constexpr text kSelected{20, "Selected"};
inline constexpr text kThird{21, "Third"};
inline constexpr text kSmallNote{22, "Small note"};
inline constexpr text kButton{23, "Button"};
inline constexpr text kDefault{24, "Default"};
inline constexpr text kPressed{25, "Pressed"};
inline constexpr text kShowPreview{26, "Show the preview"};
inline constexpr text kHidePreview{27, "Hide the preview"};
inline constexpr text kHardToRead{28, "Hard to read"};
inline constexpr text kAllCanBeRead{29, "All pairs can be read"};
inline constexpr text kPairOn{30, "%1 on %2"};
inline constexpr text kBestEdgeOn{31, "Best edge on %1"};
inline constexpr text kPaintOn{32, "Paint on %1"};
inline constexpr text kMostPeople{33, "As most people see it"};
inline constexpr text kProtanopia{34, "Protanopia"};
inline constexpr text kDeuteranopia{35, "Deuteranopia"};
inline constexpr text kTritanopia{36, "Tritanopia"};
inline constexpr text kClear{37, "Clear"};  // what the user typed

// The pens, by the names that a pair of them has.
inline constexpr text kPenText{38, "Text"};
inline constexpr text kPenMarkedText{39, "Marked text"};
inline constexpr text kPenCursor{40, "Cursor"};
inline constexpr text kPenMark{41, "Marks"};
inline constexpr text kPenPaint{42, "Paint"};
inline constexpr text kPenLow{43, "Low level"};
inline constexpr text kPenMedium{44, "Medium level"};
inline constexpr text kPenHigh{45, "High level"};
inline constexpr text kPenEdit{46, "Edit areas"};
inline constexpr text kPenRead{47, "Read areas"};
inline constexpr text kPenList{48, "Listviews"};
inline constexpr text kPenButton{49, "Buttons"};
inline constexpr text kPenSlider{50, "Sliders"};
inline constexpr text kPenSelected{51, "Selected menuitems"};

// For assistive tools.
inline constexpr text kVision{52, "Colour vision"};
inline constexpr text kPairs{53, "Pairs of colours"};
inline constexpr text kBitmap{54, "bitmap"};
inline constexpr text kChanged{65, "changed"};

// Menus.
inline constexpr text kUndo{60, "&Undo"};
inline constexpr text kRedo{61, "&Redo"};
inline constexpr text kCopy{62, "&Copy"};
inline constexpr text kPaste{63, "&Paste"};
inline constexpr text kRevertThis{64, "Re&vert this"};

// What the editors say.
inline constexpr text kNoPath{70, "This text cannot be kept as a path"};
inline constexpr text kNoColor{71, "This text is not a color"};
inline constexpr text kSearch{72, "Search"};
inline constexpr text kFixedOnly{73, "Fixed &width only"};
inline constexpr text kSampleText{74, "Sample text"};

// Returns the text in the user's language, or in English where the catalog lacks it.
QString Text(const text& row);

// Has Qt say its own texts in the user's language, where a translation of Qt is installed.
void TranslateQt(QCoreApplication& application);

}  // namespace texts
