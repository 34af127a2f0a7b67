// SPDX-License-Identifier: MIT
// The application's texts: a row for each string id, looked up in the user's language.
#pragma once

#include <cstdint>

namespace config {

// ROW(name, string id, default text) for every text, in the order of the ids; 22 and 32 are not used.
#define NC_STRINGS(ROW)                                                                                      \
    ROW(Ok, 1, "OK")                                                                                         \
    ROW(Apply, 2, "Apply")                                                                                   \
    ROW(Revert, 3, "Revert")                                                                                 \
    ROW(WindowTitle, 4, "Nymbrel Config")                                                                    \
    ROW(PensGroup, 5, "Pens")                                                                                \
    ROW(TextPens, 6, "Text")                                                                                 \
    ROW(DefaultText, 7, "Default color and Text")                                                            \
    ROW(DisabledText, 8, "Disabled Text")                                                                    \
    ROW(CursorForeground, 9, "Cursor foreground")                                                            \
    ROW(CursorBackground, 10, "Cursor background")                                                           \
    ROW(MarkedForeground, 11, "Marked text foreground")                                                      \
    ROW(MarkedBackground, 12, "Marked text background")                                                      \
    ROW(SystemPens, 13, "System")                                                                            \
    ROW(ShiningEdges, 14, "Shining edges")                                                                   \
    ROW(DarkEdges, 15, "Dark edges")                                                                         \
    ROW(HalfshiningEdges, 16, "Halfshining edges")                                                           \
    ROW(HalfdarkEdges, 17, "Halfdark edges")                                                                 \
    ROW(MarkedWidgets, 18, "Marked widgets")                                                                 \
    ROW(PaintShiningEdges, 19, "Paint: Shining edges")                                                       \
    ROW(PaintContainer, 20, "Paint: Container")                                                              \
    ROW(PaintDarkEdges, 21, "Paint: Dark edges")                                                             \
    ROW(LowLevel, 23, "Low level")                                                                           \
    ROW(MediumLevel, 24, "Medium level")                                                                     \
    ROW(HighLevel, 25, "High level")                                                                         \
    ROW(EditAreas, 26, "Edit areas")                                                                         \
    ROW(ReadAreas, 27, "Read areas")                                                                         \
    ROW(Listviews, 28, "Listviews")                                                                          \
    ROW(Buttons, 29, "Buttons")                                                                              \
    ROW(Sliders, 30, "Sliders")                                                                              \
    ROW(SelectedMenuitems, 31, "Selected menuitems")                                                         \
    ROW(NormalFont, 33, "Normal")                                                                            \
    ROW(FixedwidthFont, 34, "Fixedwidth")                                                                    \
    ROW(TitleFont, 35, "Title")                                                                              \
    ROW(SmallFont, 36, "Small")                                                                              \
    ROW(LargeFont, 37, "Large")                                                                              \
    ROW(Language, 38, "Language")                                                                            \
    ROW(RestartNote, 39, "Note: You have to restart your program(s) after a change")                         \
    ROW(Advanced, 40, "Advanced")                                                                            \
    ROW(BubblehelpTime, 41, "Bubblehelp wait time")                                                          \
    ROW(UseBubblehelp, 42, "Use Bubblehelp")                                                                 \
    ROW(MouseHoldTime, 43, "Mouse hold time")                                                                \
    ROW(OptionsGroup, 44, "Options")                                                                         \
    ROW(PensCategory, 45, "Pens")                                                                            \
    ROW(BackgroundsCategory, 46, "Backgrounds")                                                              \
    ROW(FontsCategory, 47, "Fonts")                                                                          \
    ROW(OptionsCategory, 48, "Options")                                                                      \
    ROW(BeOSConform, 49, "BeOS conform")                                                                     \
    ROW(Look, 50, "Look")                                                                                    \
    ROW(ResetColors, 51, "Reset colors")                                                                     \
    ROW(Categories, 52, "Categories")

enum string_id : std::uint32_t {
#define NC_STRING_ID(name, id, text) kString##name = id,
    NC_STRINGS(NC_STRING_ID)
#undef NC_STRING_ID
};

// Returns the text of the opened catalog, or the default text where that has none.
const char* LocalString(string_id id);

}  // namespace config
