// SPDX-License-Identifier: MIT
// The controls' own state: values, what is refused, Revert, the tree, messages and the changes to show.
#include "kits/BApplication.h"
#include "kits/storage.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSTitleGroup.h"
#include "toolkit/KSWindow.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <thread>
#include <vector>

namespace {

class RecordingLooper : public BLooper {
public:
    void PostMessage(const BMessage& message) override { codes.push_back(message.what); }
    std::vector<std::uint32_t> codes;
};

// Checks that the program's value settles, that the user's does not, and that Revert comes back to what was
// settled last. `set` and `edit` take a value, `get` gives it.
template <class Value, class Set, class Edit, class Get>
void ExpectSettling(KSControl& control, Value first, Value second, Set set, Edit edit, Get get) {
    set(first);
    EXPECT_EQ(get(), first);
    EXPECT_FALSE(control.Revert());
    edit(second);
    EXPECT_EQ(get(), second);
    EXPECT_TRUE(control.Revert());
    EXPECT_EQ(get(), first);
    edit(second);
    control.Settle();
    EXPECT_FALSE(control.Revert());
    EXPECT_EQ(get(), second);
    edit(first);
    set(first);  // nothing to see, but settled now
    EXPECT_FALSE(control.Revert());
    EXPECT_EQ(get(), first);
}

BFont FontOf(const char* family, const char* style, float size) {
    BFont font;
    font.SetFamilyAndStyle(family, style);
    font.SetSize(size);
    return font;
}

TEST(Editors, SettleWhatTheProgramSetsAndRevertWhatTheUserDoes) {
    KSCheckBox box(nullptr, 0);
    ExpectSettling(
        box, true, false, [&](bool on) { box.SetValue(on); }, [&](bool on) { box.EditValue(on); },
        [&] { return box.Value(); });
    KSColorField field(nullptr, 0);
    ExpectSettling(
        field, ks_color(1, 2, 3, 4), ks_color(1, 2, 3, 5),
        [&](ks_color color) { field.SetColor(color, false, false); },
        [&](ks_color color) { field.EditColor(color); }, [&] { return field.Color(); });
    KSPopFile file(nullptr, 0);
    ExpectSettling(
        file, std::string("/a"), std::string(),
        [&](const std::string& path) { file.SetText(path.c_str(), false); },
        [&](const std::string& path) { EXPECT_TRUE(file.EditText(path)); }, [&] { return file.Path(); });
    KSPopFont font(nullptr, 0);
    ExpectSettling(
        font, FontOf("Family", "Bold", 12), FontOf("Family", "Bold", 12.5f),
        [&](const BFont& value) { font.SetValue(&value, false); },
        [&](const BFont& value) { EXPECT_TRUE(font.EditValue(value)); }, [&] { return font.Font(); });
    KSSpinBox spin(nullptr, 0);
    ExpectSettling(
        spin, 7.0f, 7.5f, [&](float value) { spin.SetValue(value); },
        [&](float value) { spin.EditValue(value); }, [&] { return spin.Value(); });
    KSCycle cycle(nullptr, 0);
    cycle.AddLabel("BeOS");
    cycle.AddLabel("Nymbrel");
    ExpectSettling(
        cycle, 1L, 0L, [&](long index) { cycle.SelectLabel(index == 0 ? "BeOS" : "Nymbrel"); },
        [&](long index) { cycle.EditSelection(index); }, [&] { return cycle.CurrentSelection(); });
    KSTitleGroup group(nullptr, 0);
    EXPECT_FALSE(group.Revert());
}

TEST(SpinBox, StaysWithinItsBounds) {
    constexpr float kInfinity = std::numeric_limits<float>::infinity();
    KSSpinBox spin(nullptr, 0);
    EXPECT_EQ(spin.Value(), 0);
    spin.SetMinValue(500000);  // above the upper bound it starts with
    spin.SetMaxValue(10000000);
    spin.SetStep(100000);
    struct {
        float set, want;
    } const rows[] = {{2000000, 2000000},    {0, 500000},           {-kInfinity, 500000},
                      {1e30f, 10000000},     {kInfinity, 10000000}, {std::nanf(""), 10000000},
                      {500000.5f, 500000.5f}};
    for (const auto& row : rows) {
        spin.SetValue(row.set);
        EXPECT_EQ(spin.Value(), row.want) << row.set;
    }
    spin.EditValue(std::nanf(""));
    EXPECT_EQ(spin.Value(), 500000.5f);
    spin.EditValue(1);
    EXPECT_EQ(spin.Value(), 500000);

    spin.SetMinValue(std::nanf(""));
    spin.SetMaxValue(kInfinity);
    for (const float step : {0.0f, -1.0f, kInfinity, std::nanf("")})
        spin.SetStep(step);
    EXPECT_EQ(spin.MinValue(), 500000);
    EXPECT_EQ(spin.MaxValue(), 10000000);
    EXPECT_EQ(spin.Step(), 100000);
    spin.SetMinValue(600000);
    EXPECT_EQ(spin.Value(), 600000);
}

TEST(Cycle, SelectsByLabelAndCutsLongOnes) {
    KSCycle cycle(nullptr, 0);
    char label[64];
    EXPECT_EQ(cycle.CurrentSelection(), -1);
    EXPECT_FALSE(cycle.GetLabel(0, label));
    EXPECT_STREQ(label, "");
    const std::string name = std::string(62, 'x') + "\xC3\xA9";
    cycle.AddLabel("BeOS");
    cycle.AddLabel("Nymbrel");
    cycle.AddLabel(name.c_str());
    EXPECT_EQ(cycle.CurrentSelection(), 0);
    cycle.SelectLabel("Nymbrel");
    for (const char* other : {"nymbrel", "", "Nymbrel ", static_cast<const char*>(nullptr)})
        cycle.SelectLabel(other);
    for (const long index : {-1L, 3L})
        cycle.EditSelection(index);
    EXPECT_EQ(cycle.CurrentSelection(), 1);
    EXPECT_TRUE(cycle.GetLabel(2, label));
    EXPECT_EQ(label, std::string(62, 'x'));
    EXPECT_FALSE(cycle.GetLabel(-1, label));
    EXPECT_FALSE(cycle.GetLabel(3, label));
}

TEST(PopFile, TakesWhatTheSettingsFileCanHold) {
    KSPopFile file(nullptr, 0);
    EXPECT_STREQ(file.Text(), "");
    EXPECT_TRUE(file.EditText("/a b/c.png"));
    for (const std::string& path : {std::string("/a\nb"), std::string("/a\0b", 4), std::string(" /a"),
                                    std::string("/a "), std::string(2000, 'x')})
        EXPECT_FALSE(file.EditText(path)) << testing::PrintToString(path);
    EXPECT_STREQ(file.Text(), "/a b/c.png");
    const BPath empty("");
    file.SetText(&empty, true);
    EXPECT_EQ(file.Path(), "");
    file.SetText("/b", false);
    file.SetText(static_cast<const char*>(nullptr), false);
    EXPECT_EQ(file.Path(), "");
}

TEST(PopFont, StartsWithAFontAndTakesWhatTheSettingsFileCanHold) {
    KSPopFont font(nullptr, 0);
    const BFont start = font.Font();
    EXPECT_NE(start.Family(), "");
    EXPECT_NE(start.Style(), "");
    EXPECT_EQ((start.Family() + start.Style()).find_first_of(",\n"), std::string::npos);
    EXPECT_EQ(start.Size(), 10);
    EXPECT_EQ(*font.Value(), start);
    for (const auto& [family, style] : {std::pair("A,B", "Bold"), std::pair("A", "Bold,Italic"),
                                        std::pair("", "Bold"), std::pair("A", ""), std::pair("A\nB", "C")})
        EXPECT_FALSE(font.EditValue(FontOf(family, style, 9))) << family << '/' << style;
    font.SetValue(nullptr, false);
    EXPECT_EQ(font.Font(), start);
}

TEST(Group, KeepsItsChildrenInOrder) {
    KSTitleGroup group(nullptr, 0), other(nullptr, 0);
    KSControl* children[4];
    for (KSControl*& child : children)
        child = new KSControl(nullptr, 0);
    auto* stranger = new KSControl(nullptr, 0);
    other.AddChild(stranger, nullptr);
    group.AddChild(children[1], nullptr);
    group.AddChild(children[3], stranger);  // no child of this group: last
    group.AddChild(children[0], children[1]);
    group.AddChild(children[2], children[3]);
    std::vector<const KSControl*> order;
    group.ForEach([&](const KSControl& control) { order.push_back(&control); });
    EXPECT_EQ(order,
              (std::vector<const KSControl*>{&group, children[0], children[1], children[2], children[3]}));
    EXPECT_EQ(children[2]->Parent(), &group);
    EXPECT_EQ(children[2]->Container(), nullptr);
}

TEST(Button, SendsACopyOfItsMessage) {
    RecordingLooper looper, other;
    BHandler no_looper;
    KSButton button(nullptr, 0);
    BMessage message(1);
    button.Invoke();
    button.SetMessage(&message);
    button.Invoke();
    button.SetTarget(&looper, &other);
    message.what = 2;
    button.Invoke();
    button.SetTarget(nullptr, &other);
    button.Invoke();
    button.SetTarget(&no_looper, &other);
    button.Invoke();
    button.SetMessage(nullptr);
    button.Invoke();
    EXPECT_EQ(looper.codes, std::vector<std::uint32_t>{1});
    EXPECT_EQ(other.codes, std::vector<std::uint32_t>{1});
}

// A window with a check box and a spin box in it, whose changes are counted.
class ShownControls : public testing::Test {
protected:
    void SetUp() override {
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

    KSWindow window{{100, 100, 600, 400}, "Title", 1, 0, 0, 0};
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
    EXPECT_FALSE(Take().layout);
}

TEST_F(ShownControls, MayBeUsedByTwoThreadsWhileAThirdShowsThem) {
    constexpr int kTurns = 3000;
    std::atomic<int> running = 2;
    std::thread program([&] {
        for (int i = 0; i < kTurns; ++i) {
            spin->SetValue(static_cast<float>(i % 100));
            box->SetLabel(i % 2 ? "a" : "b", true);
            container->Content()->ResetLayout(true, true);
        }
        --running;
    });
    std::thread user([&] {
        for (int i = 0; i < kTurns; ++i) {
            box->EditValue(i % 2 == 0);
            const KSAutolock lock(spin);  // two calls of one moment
            const float before = spin->Value();
            spin->EditValue(before + 1);
            EXPECT_EQ(spin->Value(), std::min(before + 1, 100.0f));
        }
        --running;
    });
    int taken = 0;
    while (running > 0) {
        if (!Take().IsEmpty())
            ++taken;
        std::this_thread::yield();
    }
    program.join();
    user.join();
    if (!Take().IsEmpty())
        ++taken;
    EXPECT_EQ(told, taken);
    EXPECT_GT(taken, 0);
}

TEST_F(ShownControls, CannotBeLockedOnceTheirWindowIsClosed) {
    struct Closable : KSWindow {
        using KSWindow::Close;
        using KSWindow::KSWindow;
    } closable({0, 0, 9, 9}, "", 1, 0, 0, 0);
    auto* view = new KSContainer({0, 0, 9, 9}, nullptr);
    auto* control = new KSCheckBox(nullptr, 0);
    EXPECT_TRUE(KSAutolock(control));
    view->SetContent(control);
    closable.AddChild(view);
    {
        const KSAutolock lock(control);
        EXPECT_TRUE(closable.IsLocked());
    }
    closable.Close();
    EXPECT_FALSE(KSAutolock(control));
    control->SetValue(true);
    EXPECT_TRUE(control->Value());
}

}  // namespace
