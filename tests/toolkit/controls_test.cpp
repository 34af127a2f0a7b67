// SPDX-License-Identifier: MIT
// The controls' own state: values, what is refused, Revert, the tree, messages and the changes to show.
#include "tests/support/recorders.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSWindow.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace {

TEST(SpinBox, StaysWithinItsBounds) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    KSSpinBox spin(nullptr, 0);
    spin.SetMinValue(500000);  // above the upper bound it starts with
    spin.SetMaxValue(10000000);
    const std::pair<float, float> rows[] = {
        {-kInfinity, 5e5f}, {kInfinity, 1e7f}, {std::nanf(""), 1e7f}, {500000.5f, 500000.5f}};
    for (const auto& [set, want] : rows) {
        spin.SetValue(set);
        EXPECT_EQ(spin.Value(), want) << set;
    }
    spin.EditValue(std::nanf(""));
    EXPECT_EQ(spin.Value(), 500000.5f);
    spin.EditValue(1);
    EXPECT_EQ(spin.Value(), 500000);

    spin.SetMinValue(std::nanf(""));
    spin.SetMaxValue(kInfinity);
    for (const float step : {0.5f, 0.0f, -1.0f, kInfinity, std::nanf("")})
        spin.SetStep(step);
    EXPECT_EQ(spin.MinValue(), 500000);
    EXPECT_EQ(spin.MaxValue(), 10000000);
    EXPECT_EQ(spin.Step(), 0.5f);
    spin.SetMinValue(600000);
    EXPECT_EQ(spin.Value(), 600000);
    spin.EditValue(700000);
    EXPECT_TRUE(spin.Revert());
    spin.EditValue(700000);
    spin.SetValue(700000);  // nothing to see, but settled now
    EXPECT_FALSE(spin.Revert());
}

TEST(Cycle, SelectsByLabelAndCutsLongOnes) {
    KSCycle cycle(nullptr, 0);
    char label[64] = "before";
    EXPECT_EQ(cycle.CurrentSelection(), -1);
    EXPECT_FALSE(cycle.GetLabel(0, label));
    EXPECT_STREQ(label, "");
    const std::string name = std::string(62, 'x') + "\xC3\xA9";
    for (const char* text : {"BeOS", "Nymbrel", name.c_str()})
        cycle.AddLabel(text);
    EXPECT_EQ(cycle.CurrentSelection(), 0);
    cycle.SelectLabel("Nymbrel");
    cycle.SelectLabel("nymbrel");
    cycle.SelectLabel(nullptr);
    for (const long index : {-1L, 3L})
        cycle.EditSelection(index);
    EXPECT_EQ(cycle.CurrentSelection(), 1);
    cycle.EditSelection(0);
    EXPECT_TRUE(cycle.Revert() && cycle.CurrentSelection() == 1);
    EXPECT_TRUE(cycle.GetLabel(2, label));
    EXPECT_EQ(label, std::string(62, 'x'));
    EXPECT_FALSE(cycle.GetLabel(-1, label) || cycle.GetLabel(3, label));
}

TEST(PopUps, TakeWhatTheSettingsFileCanHold) {
    KSPopFile file(nullptr, 0);
    EXPECT_TRUE(file.EditText("/a b/c.png"));
    EXPECT_FALSE(file.EditText(" /a"));
    EXPECT_STREQ(file.Text(), "/a b/c.png");
    file.SetText(static_cast<const BPath*>(nullptr), false);
    EXPECT_EQ(file.Path(), "");

    KSPopFont font(nullptr, 0);
    const BFont start = font.Font();
    EXPECT_TRUE(font.EditValue(start)) << "the desktop's font can be written";
    EXPECT_EQ(start.Size(), 10);
    BFont odd = start;
    odd.SetSize(12.5f);
    EXPECT_TRUE(font.EditValue(odd) && font.Font() == odd && font.Revert() && font.Font() == start);
    for (const auto& [family, style] : {std::pair("A,B", "Bold"), {"A", "Bold,Italic"}, {"", "Bold"}}) {
        odd.SetFamilyAndStyle(family, style);
        EXPECT_FALSE(font.EditValue(odd)) << family << '/' << style;
    }
    font.SetValue(nullptr, false);
    EXPECT_EQ(font.Font(), start);
}

TEST(Group, KeepsItsChildrenInOrder) {
    KSControl group("group", 0), stranger("stranger", 0);
    const auto child = [](const char* name) { return new KSControl(name, 0); };
    KSControl *second = child("second"), *last = child("last");
    group.AddChild(second, nullptr);
    group.AddChild(last, &stranger);  // no child of this group: last
    group.AddChild(child("first"), second);
    group.AddChild(child("third"), last);
    std::string order;
    group.ForEach([&](const KSControl& control) { order += control.Name() + std::string(" "); });
    EXPECT_EQ(order, "group first second third last ");
}

TEST(Button, SendsACopyOfItsMessage) {
    RecordingLooper looper, other;
    BHandler no_looper;
    KSButton button(nullptr, 0);
    button.Invoke();
    BMessage message(1);
    button.SetMessage(&message);
    message.what = 2;
    for (BHandler* target : {static_cast<BHandler*>(&looper), static_cast<BHandler*>(nullptr), &no_looper}) {
        button.SetTarget(target, &other);
        button.Invoke();
    }
    EXPECT_EQ(looper.codes, std::vector<std::uint32_t>{1});
    EXPECT_EQ(other.codes, std::vector<std::uint32_t>{1});
}

// A window with a check box and a spin box in it, whose changes are counted.
class ShownControls : public testing::Test {
protected:
    ShownControls() {
        auto* root = new KSControl(nullptr, 0);
        root->AddChild(box, nullptr);
        root->AddChild(spin, nullptr);
        container->SetContent(root);
        window.AddChild(container);
        container->SetChangeListener([this] {
            EXPECT_TRUE(window.IsLocked());
            ++told;
        });
    }
    KSContainer::Changes Take() {
        const BAutolock lock(&window);
        return container->TakeChanges();
    }

    struct Closable : KSWindow {
        using KSWindow::Close;
        using KSWindow::KSWindow;
    } window{{100, 100, 600, 400}, "Title", 1, 0, 0, 0};
    KSContainer* container = new KSContainer({0, 0, 495, 300}, "view");
    KSCheckBox* box = new KSCheckBox(nullptr, 0);
    KSSpinBox* spin = new KSSpinBox(nullptr, 0);
    int told = 0;  // guarded by the window's lock
};

TEST_F(ShownControls, AreToldOfOnceUntilTaken) {
    box->SetValue(true);
    spin->SetValue(5);
    box->SetLabel("Label", true);
    box->SetValue(true);
    EXPECT_EQ(told, 1);
    KSContainer::Changes changes = Take();
    EXPECT_EQ(changes.controls, (std::vector<KSControl*>{box, spin}));
    EXPECT_FALSE(changes.layout || changes.redraw);
    EXPECT_TRUE(Take().IsEmpty());

    box->SetValue(true);  // no change
    box->Hide(false);
    EXPECT_EQ(told, 1);
    box->Hide(true);
    container->Content()->ResetLayout(true, true);
    EXPECT_EQ(told, 2);
    changes = Take();
    EXPECT_EQ(changes.controls, std::vector<KSControl*>{box});
    EXPECT_TRUE(changes.layout && changes.redraw);
    container->Content()->RedrawSelf();
    EXPECT_EQ(told, 3);
    container->SetChangeListener([this] { ++told; });
    EXPECT_EQ(told, 4) << "a change was waiting";
}

TEST_F(ShownControls, MayBeUsedByAThreadWhileAnotherEditsAndShowsThem) {
    constexpr int kTurns = 3000;
    std::jthread program([&] {
        for (int i = 0; i < kTurns; ++i) {
            spin->SetValue(static_cast<float>(i % 100));
            box->SetLabel(i % 2 ? "a" : "b", true);
            container->Content()->ResetLayout(true, true);
        }
    });
    int taken = 0;
    for (int i = 0; i < kTurns; ++i) {
        box->EditValue(i % 2 == 0);
        {
            const KSAutolock lock(spin);  // two calls of one moment
            const float before = spin->Value();
            spin->EditValue(before + 1);
            EXPECT_EQ(spin->Value(), std::min(before + 1, 100.0f));
        }
        taken += !Take().IsEmpty();
    }
    program.join();
    taken += !Take().IsEmpty();
    EXPECT_EQ(told, taken);
}

TEST_F(ShownControls, CannotBeLockedOnceTheirWindowIsClosed) {
    EXPECT_TRUE(KSAutolock(box));
    container->SetChangeListener(nullptr);
    window.Close();
    EXPECT_FALSE(KSAutolock(box));
    box->SetValue(true);
    EXPECT_TRUE(box->Value());
    KSCheckBox loose(nullptr, 0);
    EXPECT_TRUE(KSAutolock(&loose)) << "without a window";
}

}  // namespace
