// SPDX-License-Identifier: MIT
// Undo and redo, against a plain list of what the controls held.
#include "tests/support/home.h"
#include "toolkit/KSApplication.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/KSWindow.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

namespace {

using namespace std::chrono_literals;
using Values = std::array<long, 4>;

class History : public testing::Test {
protected:
    History() {
        const BMessage selected(ks_message_code("LIST"));
        list->SetSelectionMessage(&selected);
        auto* root = new KSControl(nullptr, 0);
        for (KSControl* control : controls) {
            list->AddItem(new KSStringItem("item"), -1, true);
            root->AddChild(control, nullptr);
        }
        auto* container = new KSContainer({0, 0, 9, 9}, nullptr);
        container->SetContent(root);
        window->AddChild(container);
        spin->SetMaxValue(100000);
        history.SetClock([this] { return now; });
        for (std::size_t control = 0; control < controls.size(); ++control)
            Set(control, 0);
    }

    static ks_color Red(long value) { return ks_color(static_cast<std::uint8_t>(value), 0, 0); }
    void Set(std::size_t control, long value) {
        control == 0   ? spin->SetValue(static_cast<float>(value))
        : control == 1 ? color->SetColor(Red(value), false, false)
        : control == 2 ? box->SetValue(value % 2)
                       : list->Select(value, false);
    }
    void Edit(std::size_t control, long value) {
        control == 0   ? spin->EditValue(static_cast<float>(value))
        : control == 1 ? color->EditColor(Red(value))
        : control == 2 ? box->EditValue(value % 2)
                       : list->EditSelection(value);
    }
    Values Present() const {
        return {std::lround(spin->Value()), color->Color().red, box->Value(), list->CurrentSelection()};
    }

    ScopedHome home;
    KSApplication application{"application/x-vnd.Nymbrel-test", "App.catalog"};
    KSWindow* window = new KSWindow({0, 0, 9, 9}, "", 1, 0, 0, 0);
    KSSpinBox* spin = new KSSpinBox(nullptr, 0);
    KSColorField* color = new KSColorField(nullptr, 0);
    KSCheckBox* box = new KSCheckBox(nullptr, 0);
    KSListView* list = new KSListView(nullptr, 0);
    const std::array<KSControl*, 4> controls{spin, color, box, list};
    KSHistory& history = window->History();
    KSHistory::time_point now{};
};

TEST_F(History, EqualsAListOfSnapshots) {
    std::mt19937 random(12);
    const auto below = [&](unsigned end) { return random() % end; };
    std::vector<Values> states{Present()};
    std::size_t at = 0, most = 0;
    Values settled = states[0];
    const auto edited = [&] {
        if (Present() == states[at])
            return;
        states.resize(++at);
        states.push_back(Present());
        if (at > KSHistory::kMostSteps) {
            states.erase(states.begin());
            --at;
        }
    };
    // Another program's value takes the place of one that was not edited, as far back as that was seen.
    const auto follow = [&](long value) {
        spin->SettleUnderEdit([&] { Set(0, value); });
        const long before = states[at][0];
        settled[0] = value;
        for (std::size_t i = at + 1; i < states.size() && states[i][0] == before; ++i)
            states[i][0] = Present()[0];
        for (std::size_t i = at + 1; i-- > 0 && states[i][0] == before;)
            states[i][0] = Present()[0];
    };
    for (int i = 0; i < 20000; ++i) {
        now += 2s;
        const unsigned what = below(i % 5000 < 2500 ? 40 : 100);  // edits prevail for a while
        const std::size_t control = below(4);
        if (what < 24) {
            Edit(control, below(4));
            edited();
        } else if (what < 26) {
            KSHistory::Step step(*spin);
            Edit(control, below(4));
            const KSHistory::Step inner(window);
            Edit((control + 1) % 4, below(4));
        } else if (what == 26) {
            BMessage revert(KSApplication::kRevert);
            application.MessageReceived(&revert);
            EXPECT_EQ(Present(), settled);
        } else if (what == 27) {
            application.BroadcastStarting(BMessage(KSApplication::kSettingsChanged));
            settled = Present();
        } else if (what == 28) {
            follow(10 + i);  // never seen before
        } else if (what < 70) {
            EXPECT_EQ(history.CanUndo(), at > 0);
            history.Undo();
            at -= at > 0;
        } else {
            EXPECT_EQ(history.CanRedo(), at + 1 < states.size());
            history.Redo();
            at += at + 1 < states.size();
        }
        if (what < 28)
            edited();
        ASSERT_EQ(Present(), states[at]) << i;
        for (std::size_t c = 0; c < controls.size(); ++c)
            ASSERT_EQ(controls[c]->IsEdited(), Present()[c] != settled[c]) << i;
        most = std::max(most, states.size());
    }
    EXPECT_EQ(most, KSHistory::kMostSteps + 1);
}

TEST_F(History, TakesOneGestureForOneStep) {
    const struct {
        const char* what;
        std::size_t first, second;  // controls
        KSHistory::time_point::duration pause;
        bool types, goes_on;
        long steps;
    } rows[] = {
        {"a held arrow", 0, 0, 1s, false, false, 1},
        {"an arrow pressed again", 0, 0, 1001ms, false, false, 2},
        {"a number typed slowly", 0, 0, 1min, true, true, 1},
        {"a number typed, then an arrow", 0, 0, 0s, true, false, 2},
        {"arrows in a list", 3, 3, 1s, false, false, 1},
        {"two colours", 1, 1, 0s, false, false, 2},
        {"two controls", 0, 3, 0s, false, false, 2},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        const Values before = Present();
        history.SetTyping(row.types ? controls[row.first] : nullptr);
        Edit(row.first, 3);
        history.SetTyping(row.goes_on ? controls[row.first] : nullptr);
        now += row.pause;
        Edit(row.second, 2);
        long steps = 0;
        for (; history.CanUndo(); ++steps)
            history.Undo();
        EXPECT_EQ(steps, row.steps);
        EXPECT_EQ(Present(), before);
    }
}

TEST_F(History, ForgetsAGestureThatComesBack) {
    spin->EditValue(5);
    spin->EditValue(0);
    EXPECT_FALSE(history.CanUndo());
    // What the program puts in the place of a selection that it does not take is no step either.
    list->EditSelection(2);
    list->EditSelection(-1);
    list->CorrectSelection(0);
    history.Undo();
    EXPECT_EQ(list->CurrentSelection(), 0);
    EXPECT_FALSE(history.CanUndo());
}

}  // namespace
