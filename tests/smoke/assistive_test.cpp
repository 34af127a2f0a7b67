// SPDX-License-Identifier: MIT
// An assistive tool finds each editor by the text that a person reads beside it, with its role and its value.
#include "desktop.h"

#include <cmath>
#include <gtest/gtest.h>

using enum accessible_role;

namespace {

struct editor_case {
    const char* name;
    accessible_role role;
    const char* value;
};

struct category_case {
    const char* name;
    std::vector<editor_case> editors;
};

const category_case kCategories[] = {
    {"Pens",
     {{"Default color and Text", kColorChooser, "#000000"},
      {"Disabled Text", kColorChooser, "#808080"},
      {"Cursor foreground", kColorChooser, "#a6a6bc"},
      {"Cursor background", kColorChooser, "#000000"},
      {"Marked text foreground", kColorChooser, "#000000"},
      {"Marked text background", kColorChooser, "#bca6a6"},
      {"Shining edges", kColorChooser, "#ffffff"},
      {"Dark edges", kColorChooser, "#404040"},
      {"Halfshining edges", kColorChooser, "#e9e9e9"},
      {"Halfdark edges", kColorChooser, "#909090"},
      {"Marked widgets", kColorChooser, "#04010203"},
      {"Paint: Shining edges", kColorChooser, "#96c8ff"},
      {"Paint: Container", kColorChooser, "#4d97ff"},
      {"Paint: Dark edges", kColorChooser, "#2064c8"}}},
    {"Backgrounds",
     {{"Low level", kColorChooser, "#bcbcbc"},
      {"Low level", kText, "/etc/hostname"},
      {"Medium level", kColorChooser, "#c7c7c7"},
      {"Medium level", kText, ""},
      {"High level", kColorChooser, "#d3d3d3"},
      {"High level", kText, ""},
      {"Edit areas", kColorChooser, "#e9e9e9"},
      {"Edit areas", kText, ""},
      {"Read areas", kColorChooser, "#bcbcbc"},
      {"Read areas", kText, ""},
      {"Listviews", kColorChooser, "#e9e9e9"},
      {"Listviews", kText, ""},
      {"Buttons", kColorChooser, "#dedede"},
      {"Buttons", kText, ""},
      {"Sliders", kColorChooser, "#9090a6"},
      {"Sliders", kText, ""},
      {"Selected menuitems", kColorChooser, "#9090a6"},
      {"Selected menuitems", kText, ""}}},
    {"Fonts",
     {{"Normal", kPushButton, "Dutch Roman, 9.5"},
      {"Fixedwidth", kPushButton, "Latin Plain, 7"},
      {"Title", kPushButton, nullptr},
      {"Small", kPushButton, nullptr},
      {"Large", kPushButton, nullptr}}},
    {"Options",
     {{"Bubblehelp wait time", kSpinButton, "2000000"},
      {"Mouse hold time", kSpinButton, "40000"},
      {"Use Bubblehelp", kCheckBox, "checked"},
      {"BeOS conform", kCheckBox, ""},
      {"Look", kComboBox, "Nymbrel"},
      {"Language", kList, nullptr},
      {"english", kListItem, "selected"},
      {"Reset colors", kPushButton, nullptr}}},
};

// What an assistive tool would read out as the editor's value.
std::string ValueOf(Desktop& desktop, const accessible_node& editor) {
    AccessibleTree& tree = desktop.tree();
    switch (editor.role) {
    case kCheckBox:
        return tree.Has(editor, accessible_state::kChecked) ? "checked" : "";
    case kListItem:
        return tree.Has(editor, accessible_state::kSelected) ? "selected" : "";
    case kText:
        return tree.TextOf(editor);
    case kSpinButton:
        return std::to_string(std::lround(tree.ValueOf(editor)));
    default:
        return tree.DescriptionOf(editor);
    }
}

TEST(Assistive, EachEditorHasItsNameRoleAndValue) {
    Desktop desktop(desktop_bus::kAssisted);
    desktop.WriteSettings("KS_PEN_MARK = 1,2,3,4\n"
                          "KS_PEN_BG_LOW_BMP = /etc/hostname\n"
                          "KS_FONT_NORMAL = Dutch,Roman,9.5\n"
                          "KS_FONT_FIXED = Latin,Plain,7\n"
                          "MOUSEHOLDTIME = 40000\n"
                          "BEOS = 0\n"
                          "LOOK = Nymbrel\n");
    desktop.Start();
    for (const category_case& category : kCategories) {
        desktop.Click(category.name, kListItem);
        for (const editor_case& editor : category.editors) {
            SCOPED_TRACE(editor.name);
            const accessible_node node = desktop.Editor(editor.name, editor.role);
            const std::string value = ValueOf(desktop, node);
            if (editor.value) {
                EXPECT_EQ(value, editor.value);
            }
        }
    }
}

}  // namespace
