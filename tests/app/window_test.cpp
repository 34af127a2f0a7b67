// SPDX-License-Identifier: MIT
// The window's tree of controls, and what its list of categories does.
#include "kits/BWindow.h"
#include "tests/app/running_program.h"
#include "tests/support/recording_surface.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSLabel.h"
#include "toolkit/KSPicture.h"
#include "toolkit/KSSeparator.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSTitleGroup.h"

#include <sstream>
#include <typeinfo>

namespace {

// The class's name behind the length that the compiler puts before it, and what the control has that a new
// one has not.
std::string text_of(const KSControl& control) {
    std::ostringstream text;
    const auto put = [&](bool is_there, const auto&... words) {
        if (is_there)
            (text << ... << words);
    };
    const std::string type = typeid(control).name(), kind = type.substr(type.find_first_not_of("0123456789"));
    text << (kind == "KSControl" ? "." : kind.substr(kind.starts_with("KS") ? 2 : 0));
    if (const auto* spin = dynamic_cast<const KSSpinBox*>(&control))
        for (const float number : {spin->MinValue(), spin->MaxValue(), spin->Step()})
            text << ' ' << static_cast<long>(number);
    if (const auto* picture = dynamic_cast<const KSPicture*>(&control))
        text << ' ' << picture->FileName();
    char label[64];
    if (const auto* cycle = dynamic_cast<const KSCycle*>(&control))
        for (long i = 0; cycle->GetLabel(i, label); ++i)
            text << ' ' << label;
    const KSRect<long> border = control.Border();
    const KSPoint<long> weight = control.Weight();
    put(control.Name(), " #", control.Name());
    put(!control.Label().empty(), " '", control.Label(), "'");
    put(control.FrameType(), " frame ", control.FrameType(), ',', control.FrameState());
    put(border != KSRect<long>(0, 0, 0, 0), " border ", border.left, ',', border.top, ',', border.right, ',',
        border.bottom);
    put(control.Orientation(), " down");
    put(control.Columns(), " columns ", control.Columns());
    put(control.Alignment(), " aligned ", control.Alignment());
    put(control.ForceMode(), " forced ", control.ForceMode());
    put(weight != KSPoint<long>(0, 0), " weight ", weight.x, ',', weight.y);
    put(control.IsHidden(), " hidden");
    put(control.IsDefault(), " default");
    return text.str();
}

// One line per group; controls without children follow their group on its line.
std::string tree_of(const KSControl& control, const std::string& indent = "") {
    std::string leaves, groups;
    for (const auto& child : control.Children()) {
        if (child->Children().empty())
            leaves += " | " + text_of(*child);
        else {
            leaves += " | <>";
            groups += tree_of(*child, indent + "  ");
        }
    }
    return indent + text_of(control) + leaves + "\n" + groups;
}

constexpr const char* kTree = R"(. border 4,4,4,4 down | <> | Separator | <>
  . #settings | <> | <>
    . down | Picture NymbrelConfig.tga | NCListView #NCListView 'Categories' weight 30,100
    . #MainTab forced 2 | <> | <> | <> | <>
      . 'Pens' frame 7,1 border 6,6,6,6 | <> | <>
        TitleGroup 'Text' | . | <> | .
          . down columns 2 | . | . | Label 'Default color and Text' aligned 2 | ColorField | Label 'Disabled Text' aligned 2 | ColorField | Label 'Cursor foreground' aligned 2 | ColorField | Label 'Cursor background' aligned 2 | ColorField | Label 'Marked text foreground' aligned 2 | ColorField | Label 'Marked text background' aligned 2 | ColorField | . | .
        TitleGroup 'System' | . | <> | .
          . down columns 2 | . | . | Label 'Shining edges' aligned 2 | ColorField | Label 'Dark edges' aligned 2 | ColorField | Label 'Halfshining edges' aligned 2 | ColorField | Label 'Halfdark edges' aligned 2 | ColorField | Label 'Marked widgets' aligned 2 | ColorField | Label 'Paint: Shining edges' aligned 2 | ColorField | Label 'Paint: Container' aligned 2 | ColorField | Label 'Paint: Dark edges' aligned 2 | ColorField | . | .
      . #Backgrounds frame 7,1 border 6,6,6,6 down columns 2 hidden | . | . | Label 'Low level' aligned 2 | <> | Label 'Medium level' aligned 2 | <> | Label 'High level' aligned 2 | <> | Label 'Edit areas' aligned 2 | <> | Label 'Read areas' aligned 2 | <> | Label 'Listviews' aligned 2 | <> | Label 'Buttons' aligned 2 | <> | Label 'Sliders' aligned 2 | <> | Label 'Selected menuitems' aligned 2 | <> | . | .
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
        . | ColorField | PopFile
      . #Fonts frame 7,1 border 6,6,6,6 down columns 2 hidden | . | . | Label 'Normal' aligned 2 | PopFont | Label 'Fixedwidth' aligned 2 | PopFont | Label 'Title' aligned 2 | PopFont | Label 'Small' aligned 2 | PopFont | Label 'Large' aligned 2 | PopFont | . | .
      . 'Options' frame 7,1 border 6,6,6,6 down hidden | <> | <> | <>
        TitleGroup 'Language' down | ListView | <>
          . | . | Label 'Note: You have to restart your program(s) after a change' | .
        TitleGroup 'Advanced' | . | <> | .
          . down columns 2 | . | . | Label 'Bubblehelp wait time' aligned 2 | SpinBox 500000 10000000 100000 | . | CheckBox 'Use Bubblehelp' | . | . | Label 'Mouse hold time' aligned 2 | SpinBox 10000 50000 1000 | . | .
        TitleGroup 'Look' | . | <> | .
          . down columns 3 | . | . | . | CheckBox 'BeOS conform' | Cycle BeOS Nymbrel | . | Button 'Reset colors' | . | . | .
  . | Button 'Revert' | . | . | Button 'Apply' | Button 'OK' default
)";

TEST(Window, HoldsTheControlsInTheirOrder) {
    const ScopedHome home;
    RunningProgram::Run([&](RunningProgram& program) {
        EXPECT_EQ(tree_of(*program.Root()), kTree);
        EXPECT_EQ(config::_colors[KS_PEN_NONE], nullptr);
    });
}

TEST(Window, SendsTheCommandsOfItsButtons) {
    const ScopedHome home;
    RunningProgram::Run([&](RunningProgram& program) {
        program.Root()->ForEach([](KSControl& control) {
            if (dynamic_cast<KSButton*>(&control))
                control.Invoke();
        });
        EXPECT_TRUE(program.WaitForMessage(NCApplication::kOk));  // the last one; it ends the program
        for (const std::uint32_t code :
             {NCApplication::kResetColors, NCApplication::kRevert, NCApplication::kApply})
            EXPECT_EQ(program.Count(code), 1);
    });
}

// Which of the four groups are seen, as one digit each.
std::string seen_groups() {
    using namespace config;
    std::string seen;
    for (const KSControl* group : {ch_pen, ch_background, ch_font, ch_dimen})
        seen += group->IsHidden() ? '0' : '1';
    return seen;
}

TEST(Categories, ShowTheGroupOfTheSelectedItemAlone) {
    const ScopedHome home;
    RunningProgram::Run([&](RunningProgram& program) {
        NCListView* list = program.Categories();
        EXPECT_EQ(list->CurrentSelection(), -1);
        EXPECT_EQ(seen_groups(), "1000");
        const std::pair<long, const char*> steps[] = {{2, "0010"}, {3, "0001"},  {-1, "0001"}, {0, "1000"},
                                                      {1, "0100"}, {-1, "0100"}, {1, "0100"}};
        for (const auto& [selection, wanted] : steps) {
            list->EditSelection(selection);
            EXPECT_EQ(seen_groups(), wanted) << selection;
        }
        struct Closable : BWindow {
            using BLooper::Close;
        };
        (program.Window()->*&Closable::Close)();
        list->EditSelection(0);
        list->SelectionChanged();
        EXPECT_EQ(seen_groups(), "0100") << "changed without the lock";
    });
}

TEST(Categories, MeasureAndDrawTheirItems) {
    NCListView list(nullptr, 0);
    auto* item = new NCListView::NCListItem("Pens");
    list.AddItem(item, -1, true);
    std::string drawn;
    for (const long text_height : {11, 20}) {
        RecordingSurface surface(text_height);
        list.SetSurface(&surface);
        item->RenderSetup(&list);
        item->DrawItem(&list, {5, 40, 104, 40 + item->Height() - 1}, {5, 40}, nullptr, 0);
        drawn += surface.drawn.str();
        list.SetSurface(nullptr);
    }
    EXPECT_EQ(drawn, "pen 5; fill 5,40,104,63; pen 9; Pens at 13,54; "  // 40 + (24 - 11) / 2 + 8
                     "pen 5; fill 5,40,104,67; pen 9; Pens at 13,61; ");
    EXPECT_EQ(list.MinSize(), KSPoint<long>(100, list.KSListView::MinSize().y));
    BMessage message;
    list.DraggingRequested({1, 1}, &message);
    EXPECT_EQ(message.what, 0u);
}

}  // namespace
