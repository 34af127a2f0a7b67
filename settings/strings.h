// SPDX-License-Identifier: MIT
// The application's texts, looked up in the user's language.
#pragma once

#include "toolkit/KSLocale.h"

namespace config {

using text = ks_text;

// 22 and 32 are not used.
inline constexpr text kStringOk{1, "OK"};
inline constexpr text kStringApply{2, "Apply"};
inline constexpr text kStringRevert{3, "Revert"};
inline constexpr text kStringWindowTitle{4, "Nymbrel Config"};
inline constexpr text kStringPensGroup{5, "Pens"};
inline constexpr text kStringTextPens{6, "Text"};
inline constexpr text kStringDefaultText{7, "Default color and Text"};
inline constexpr text kStringDisabledText{8, "Disabled Text"};
inline constexpr text kStringCursorForeground{9, "Cursor foreground"};
inline constexpr text kStringCursorBackground{10, "Cursor background"};
inline constexpr text kStringMarkedForeground{11, "Marked text foreground"};
inline constexpr text kStringMarkedBackground{12, "Marked text background"};
inline constexpr text kStringSystemPens{13, "System"};
inline constexpr text kStringShiningEdges{14, "Shining edges"};
inline constexpr text kStringDarkEdges{15, "Dark edges"};
inline constexpr text kStringHalfshiningEdges{16, "Halfshining edges"};
inline constexpr text kStringHalfdarkEdges{17, "Halfdark edges"};
inline constexpr text kStringMarkedWidgets{18, "Marked widgets"};
inline constexpr text kStringPaintShiningEdges{19, "Paint: Shining edges"};
inline constexpr text kStringPaintContainer{20, "Paint: Container"};
inline constexpr text kStringPaintDarkEdges{21, "Paint: Dark edges"};
inline constexpr text kStringLowLevel{23, "Low level"};
inline constexpr text kStringMediumLevel{24, "Medium level"};
inline constexpr text kStringHighLevel{25, "High level"};
inline constexpr text kStringEditAreas{26, "Edit areas"};
inline constexpr text kStringReadAreas{27, "Read areas"};
inline constexpr text kStringListviews{28, "Listviews"};
inline constexpr text kStringButtons{29, "Buttons"};
inline constexpr text kStringSliders{30, "Sliders"};
inline constexpr text kStringSelectedMenuitems{31, "Selected menuitems"};
inline constexpr text kStringNormalFont{33, "Normal"};
inline constexpr text kStringFixedwidthFont{34, "Fixedwidth"};
inline constexpr text kStringTitleFont{35, "Title"};
inline constexpr text kStringSmallFont{36, "Small"};
inline constexpr text kStringLargeFont{37, "Large"};
inline constexpr text kStringLanguage{38, "Language"};
inline constexpr text kStringRestartNote{39, "Note: You have to restart your program(s) after a change"};
inline constexpr text kStringAdvanced{40, "Advanced"};
inline constexpr text kStringBubblehelpTime{41, "Bubblehelp wait time"};
inline constexpr text kStringUseBubblehelp{42, "Use Bubblehelp"};
inline constexpr text kStringMouseHoldTime{43, "Mouse hold time"};
inline constexpr text kStringOptionsGroup{44, "Options"};
inline constexpr text kStringPensCategory{45, "Pens"};
inline constexpr text kStringBackgroundsCategory{46, "Backgrounds"};
inline constexpr text kStringFontsCategory{47, "Fonts"};
inline constexpr text kStringOptionsCategory{48, "Options"};
inline constexpr text kStringBeOSConform{49, "BeOS conform"};
inline constexpr text kStringLook{50, "Look"};
inline constexpr text kStringResetColors{51, "Reset colors"};
inline constexpr text kStringCategories{52, "Categories"};

// Returns the opened catalog's text, or the English one where that has none.
inline const char* LocalString(const text& row) {
    return ks_locale->String(row);
}

}  // namespace config
