// SPDX-License-Identifier: MIT
// The window's tree of controls, and what its list of categories does.
#include "kits/BWindow.h"
#include "tests/app/running_program.h"
#include "tests/settings/editors.h"
#include "tests/support/recording_surface.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSLabel.h"
#include "toolkit/KSPicture.h"
#include "toolkit/KSSeparator.h"
#include "toolkit/KSTitleGroup.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace {

template <class Control> long place_of(const KSControl& control, Control* const* begin, Control* const* end) {
    return std::find(begin, end, &control) - begin;
}

std::string kind_of(const KSControl& control) {
    using namespace config;
    std::ostringstream text;
    if (dynamic_cast<const KSColorField*>(&control))
        text << "color " << place_of(control, std::begin(_colors), std::end(_colors));
    else if (dynamic_cast<const KSPopFile*>(&control))
        text << "file " << place_of(control, std::begin(_backgrounds), std::end(_backgrounds));
    else if (dynamic_cast<const KSPopFont*>(&control))
        text << "font " << place_of(control, std::begin(_fonts), std::end(_fonts));
    else if (const auto* spin = dynamic_cast<const KSSpinBox*>(&control))
        text << "spin "
             << (spin == _bubbletime  ? "bubble "
                 : spin == _mousetime ? "mouse "
                                      : "")
             << std::fixed << std::setprecision(0) << spin->MinValue() << ".." << spin->MaxValue() << " by "
             << spin->Step();
    else if (const auto* picture = dynamic_cast<const KSPicture*>(&control))
        text << "picture " << picture->FileName();
    else if (dynamic_cast<const KSCheckBox*>(&control))
        text << "check" << (&control == _bubblehelp ? " bubble" : &control == _beos_size ? " beos" : "");
    else if (const auto* cycle = dynamic_cast<const KSCycle*>(&control)) {
        text << (cycle == _look ? "look" : "cycle");
        char label[64];
        for (long i = 0; cycle->GetLabel(i, label); ++i)
            text << ' ' << label;
    } else if (&control == _llist)
        text << "languages";
    else if (dynamic_cast<const NCListView*>(&control))
        text << "categories";
    else if (dynamic_cast<const KSTitleGroup*>(&control))
        text << "titled";
    else if (dynamic_cast<const KSLabel*>(&control))
        text << "label";
    else if (dynamic_cast<const KSButton*>(&control))
        text << (control.IsDefault() ? "default button" : "button");
    else if (dynamic_cast<const KSSeparator*>(&control))
        text << "separator";
    else
        text << (control.Children().empty() ? "." : "group");
    return text.str();
}

std::string traits_of(const KSControl& control) {
    std::ostringstream text;
    if (control.Name())
        text << " #" << control.Name();
    if (!control.Label().empty())
        text << " '" << control.Label() << "'";
    if (control.FrameType())
        text << " frame " << control.FrameType() << ',' << control.FrameState();
    if (const KSRect<long> border = control.Border(); border != KSRect<long>(0, 0, 0, 0))
        text << " border " << border.left << ',' << border.top << ',' << border.right << ',' << border.bottom;
    if (control.Orientation())
        text << " down";
    if (control.Columns())
        text << " columns " << control.Columns();
    if (control.Alignment())
        text << " aligned " << control.Alignment();
    if (control.ForceMode())
        text << " forced " << control.ForceMode();
    if (const KSPoint<long> weight = control.Weight(); weight != KSPoint<long>(0, 0))
        text << " weight " << weight.x << ',' << weight.y;
    if (control.IsHidden())
        text << " hidden";
    return text.str();
}

// One line per group; controls without children follow their group on its line.
std::string tree_of(const KSControl& control, const std::string& indent = "") {
    std::string leaves, groups;
    for (const auto& child : control.Children()) {
        if (child->Children().empty())
            leaves += " | " + kind_of(*child) + traits_of(*child);
        else {
            leaves += " | <>";
            groups += tree_of(*child, indent + "  ");
        }
    }
    return indent + kind_of(control) + traits_of(control) + leaves + "\n" + groups;
}

constexpr const char* kTree = R"(group border 4,4,4,4 down | <> | separator | <>
  group #settings | <> | <>
    group down | picture NymbrelConfig.tga | categories #NCListView 'Categories' weight 30,100
    group #MainTab forced 2 | <> | <> | <> | <>
      group 'Pens' frame 7,1 border 6,6,6,6 | <> | <>
        titled 'Text' | . | <> | .
          group down columns 2 | . | . | label 'Default color and Text' aligned 2 | color 9 | label 'Disabled Text' aligned 2 | color 10 | label 'Cursor foreground' aligned 2 | color 11 | label 'Cursor background' aligned 2 | color 12 | label 'Marked text foreground' aligned 2 | color 13 | label 'Marked text background' aligned 2 | color 14 | . | .
        titled 'System' | . | <> | .
          group down columns 2 | . | . | label 'Shining edges' aligned 2 | color 15 | label 'Dark edges' aligned 2 | color 16 | label 'Halfshining edges' aligned 2 | color 17 | label 'Halfdark edges' aligned 2 | color 18 | label 'Marked widgets' aligned 2 | color 19 | label 'Paint: Shining edges' aligned 2 | color 20 | label 'Paint: Container' aligned 2 | color 21 | label 'Paint: Dark edges' aligned 2 | color 22 | . | .
      group frame 7,1 border 6,6,6,6 down columns 2 hidden | . | . | label 'Low level' aligned 2 | <> | label 'Medium level' aligned 2 | <> | label 'High level' aligned 2 | <> | label 'Edit areas' aligned 2 | <> | label 'Read areas' aligned 2 | <> | label 'Listviews' aligned 2 | <> | label 'Buttons' aligned 2 | <> | label 'Sliders' aligned 2 | <> | label 'Selected menuitems' aligned 2 | <> | . | .
        group | color 0 | file 0
        group | color 1 | file 1
        group | color 2 | file 2
        group | color 3 | file 3
        group | color 4 | file 4
        group | color 5 | file 5
        group | color 6 | file 6
        group | color 7 | file 7
        group | color 8 | file 8
      group frame 7,1 border 6,6,6,6 down columns 2 hidden | . | . | label 'Normal' aligned 2 | font 0 | label 'Fixedwidth' aligned 2 | font 1 | label 'Title' aligned 2 | font 2 | label 'Small' aligned 2 | font 3 | label 'Large' aligned 2 | font 4 | . | .
      group 'Options' frame 7,1 border 6,6,6,6 down hidden | <> | <> | <>
        titled 'Language' down | languages | <>
          group | . | label 'Note: You have to restart your program(s) after a change' | .
        titled 'Advanced' | . | <> | .
          group down columns 2 | . | . | label 'Bubblehelp wait time' aligned 2 | spin bubble 500000..10000000 by 100000 | . | check bubble 'Use Bubblehelp' | . | . | label 'Mouse hold time' aligned 2 | spin mouse 10000..50000 by 1000 | . | .
        titled 'Look' | . | <> | .
          group down columns 3 | . | . | . | check beos 'BeOS conform' | look BeOS Nymbrel | . | button 'Reset colors' | . | . | .
  group | button 'Revert' | . | . | button 'Apply' | default button 'OK'
)";

TEST(Window, HoldsTheControlsInTheirOrder) {
    const ScopedHome home;
    RunningProgram::Run([&](RunningProgram& program) {
        EXPECT_EQ(tree_of(*program.Root()), kTree);
        EXPECT_EQ(config::_colors[KS_PEN_NONE], nullptr);
        program.Quit();
    });
}

TEST(Window, SendsTheCommandsOfItsButtons) {
    const ScopedHome home;
    RunningProgram::Run([&](RunningProgram& program) {
        program.Root()->ForEach([](KSControl& control) {
            if (dynamic_cast<KSButton*>(&control) && !control.IsDefault())
                control.Invoke();
        });
        program.WaitUntilIdle();
        for (const std::uint32_t code :
             {NCApplication::kResetColors, NCApplication::kRevert, NCApplication::kApply})
            EXPECT_EQ(program.Count(code), 1);
        program.Root()->ForEach([](KSControl& control) {
            if (control.IsDefault())
                control.Invoke();  // OK ends the program
        });
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
        program.Quit();
    });
    EXPECT_FALSE(std::filesystem::exists(home.SettingsFile()));
}

class ClosableWindow : public BWindow {
public:
    using BLooper::Close;
    using BWindow::BWindow;
};

TEST(Categories, ChangeNothingWithoutTheLock) {
    using namespace config;
    ClosableWindow window({0, 0, 100, 100}, "closing");
    auto* container = new KSContainer({0, 0, 100, 100}, "view");
    auto* root = new KSControl(nullptr, 0);
    for (KSControl** group : {&ch_pen, &ch_background, &ch_font, &ch_dimen})
        root->AddChild(*group = new KSControl(nullptr, 0), nullptr);
    auto* list = new NCListView(nullptr, 0);
    root->AddChild(list, nullptr);
    list->AddItem(new NCListView::NCListItem("first"), -1, true);
    container->SetContent(root);
    window.AddChild(container);
    window.Close();
    list->Select(0, false);
    list->SelectionChanged();
    EXPECT_EQ(seen_groups(), "1111");
}

TEST(Categories, MeasureAndDrawTheirItems) {
    struct item_row {
        long text_height, height;
        const char* drawn;
    };
    const item_row rows[] = {
        {10, 24, "pen 5; fill 5,40,104,63; pen 9; Pens at 13,54; "},  // 40 + (24 - 10) / 2 + 7
        {11, 24, "pen 5; fill 5,40,104,63; pen 9; Pens at 13,54; "},  // the half pixel is cut
        {20, 28, "pen 5; fill 5,40,104,67; pen 9; Pens at 13,61; "},
        {17, 25, "pen 5; fill 5,40,104,64; pen 9; Pens at 13,58; "},
    };
    for (const item_row& row : rows) {
        SCOPED_TRACE(row.text_height);
        NCListView list(nullptr, 0);
        NCListView::NCListItem item("Pens");
        RecordingSurface surface(row.text_height);
        list.SetSurface(&surface);
        item.RenderSetup(&list);
        EXPECT_EQ(item.Height(), row.height);
        item.DrawItem(&list, {5, 40, 104, 40 + row.height - 1}, {5, 40}, nullptr, 0);
        EXPECT_EQ(surface.drawn.str(), row.drawn);
    }
}

TEST(Categories, AreNeverNarrowAndNeverDragged) {
    NCListView list(nullptr, 0);
    for (int i = 0; i < 4; ++i)
        list.AddItem(new NCListView::NCListItem("x"), -1, true);
    EXPECT_EQ(list.MinSize(), KSPoint<long>(100, list.KSListView::MinSize().y));
    BMessage message;
    list.DraggingRequested({1, 1}, &message);
    EXPECT_EQ(message.what, 0u);
}

}  // namespace
