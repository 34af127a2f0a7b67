// SPDX-License-Identifier: MIT
// A person edits with mouse and keyboard; what they see is what the settings file holds after Apply.
#include "desktop.h"

#include <filesystem>
#include <gtest/gtest.h>

using enum accessible_role;

namespace {

// The program on a desktop with an assistive tool, through which the test finds where to click.
class Editing : public testing::Test {
protected:
    void Choose(const char* category) { desktop.Click(category, kListItem); }
    void Apply() { desktop.Click("Apply", kPushButton); }

    // Puts `text` in the place of an editor's own.
    void Retype(const std::string& name, accessible_role role, const std::string& text) {
        desktop.Click(name, role);
        desktop.screen().Press("Ctrl+a");
        desktop.screen().Type(text);
    }

    void ExpectApplied(const std::string& key, const std::string& value) {
        Apply();
        EXPECT_TRUE(desktop.WaitForSetting(key, value)) << key << " is '" << desktop.Setting(key) << "'";
    }

    Desktop desktop{desktop_bus::kAssisted};
};

TEST_F(Editing, TheCategoriesSwitchTheEditors) {
    struct category {
        const char* name;
        const char* editor;
        accessible_role role;
    };
    constexpr category kCategories[] = {
        {"Pens", "Disabled Text", kColorChooser},
        {"Backgrounds", "Low level", kText},
        {"Fonts", "Fixedwidth", kPushButton},
        {"Options", "Mouse hold time", kSpinButton},
    };
    desktop.Start();
    desktop.Editor("Disabled Text", kColorChooser);
    for (const category& chosen : kCategories) {
        Choose(chosen.name);
        desktop.Editor(chosen.editor, chosen.role);
        for (const category& other : kCategories)
            EXPECT_TRUE(WaitUntil([&] {
                return desktop.tree().Find(other.editor, other.role).has_value() == (&other == &chosen);
            })) << other.editor
                << " while " << chosen.name << " are chosen";
    }
}

TEST_F(Editing, AColourIsTypedInItsDialog) {
    desktop.Start();
    desktop.Click("Disabled Text", kColorChooser);
    Retype("HTML:", kText, "#0a141e");
    desktop.screen().Press("Return");
    ASSERT_TRUE(WaitUntil([&] { return desktop.screen().FocusedTitle() == Desktop::kTitle; }));
    ExpectApplied("KS_PEN_DISABLEDTEXT", "10,20,30,255");
}

TEST_F(Editing, ABackgroundIsTypedAndCleared) {
    const std::string path = desktop.Home() / "picture.png";
    desktop.Start();
    Choose("Backgrounds");
    Retype("Low level", kText, path);
    ExpectApplied("KS_PEN_BG_LOW_BMP", path);
    Retype("Low level", kText, "");
    desktop.screen().Press("BackSpace");
    ExpectApplied("KS_PEN_BG_LOW_BMP", "");
    EXPECT_EQ(desktop.Settings().find("_BMP"), std::string::npos);
}

TEST_F(Editing, AFontIsChosenInItsPanel) {
    desktop.Start();
    Choose("Fonts");
    desktop.Click("Title", kPushButton);
    Retype("Size", kSpinButton, "12.5");
    desktop.screen().Press("Return");
    ASSERT_TRUE(WaitUntil([&] { return desktop.screen().FocusedTitle() == Desktop::kTitle; }));
    Apply();
    EXPECT_TRUE(WaitUntil([&] { return desktop.Setting("KS_FONT_TITLE").ends_with(",12.5"); }))
        << desktop.Setting("KS_FONT_TITLE");
    EXPECT_TRUE(desktop.Setting("KS_FONT_NORMAL").ends_with(",10"));
}

TEST_F(Editing, ATimeIsTypedSteppedAndHeldWithinItsBounds) {
    desktop.Start();
    Choose("Options");
    Retype("Mouse hold time", kSpinButton, "20000");
    ExpectApplied("MOUSEHOLDTIME", "20000");
    desktop.Click("Mouse hold time", kSpinButton);
    desktop.screen().Press("Up");
    ExpectApplied("MOUSEHOLDTIME", "21000");
    desktop.Click("Mouse hold time", kSpinButton);
    desktop.screen().Press("Page_Up");
    ExpectApplied("MOUSEHOLDTIME", "31000");
    desktop.Click("Mouse hold time", kSpinButton);
    desktop.screen().TurnWheel(
        desktop.tree().FrameOf(desktop.Editor("Mouse hold time", kSpinButton)).Middle(), -2);
    ExpectApplied("MOUSEHOLDTIME", "29000");
    Retype("Mouse hold time", kSpinButton, "5");
    ExpectApplied("MOUSEHOLDTIME", "10000");
    EXPECT_EQ(desktop.tree().ValueOf(desktop.Editor("Mouse hold time", kSpinButton)), 10000);
}

TEST_F(Editing, SwitchesAndLookAreChosen) {
    desktop.Start();
    Choose("Options");
    desktop.Click("Use Bubblehelp", kCheckBox);
    ExpectApplied("BUBBLEHELPUSED", "0");
    desktop.Click("BeOS conform", kCheckBox);
    desktop.screen().Press("space");
    desktop.screen().Press("space");
    ExpectApplied("BEOS", "0");
    desktop.Click("Look", kComboBox);
    desktop.Editor("Nymbrel", kListItem);
    desktop.screen().Press("Down");
    desktop.screen().Press("Return");
    ExpectApplied("LOOK", "Nymbrel");
}

TEST_F(Editing, ALanguageIsChosenAndDeselected) {
    std::filesystem::create_directories(desktop.Home() / ".config/Kestrune/Catalogs/lojban");
    desktop.Start();
    Choose("Options");
    desktop.Click("lojban", kListItem);
    ExpectApplied("LANGUAGE", "lojban");
    desktop.Click("lojban", kListItem, "Ctrl");
    ExpectApplied("LANGUAGE", "english");
    EXPECT_TRUE(desktop.tree().Has(desktop.Editor("english", kListItem), accessible_state::kSelected));
}

TEST_F(Editing, ResetColorsTakesThePaletteOfTheSwitch) {
    desktop.WriteSettings("KS_PEN_MARK = 1,2,3,4\nMOUSEHOLDTIME = 40000\n");
    desktop.Start();
    Choose("Options");
    desktop.Click("Reset colors", kPushButton);
    EXPECT_TRUE(desktop.WaitForSetting("KS_PEN_MARK", "0,0,200,255"));
    EXPECT_EQ(desktop.Setting("KS_PEN_BG_LOW"), "210,210,210,255");
    EXPECT_EQ(desktop.Setting("MOUSEHOLDTIME"), "40000");
    desktop.Click("BeOS conform", kCheckBox);
    desktop.Click("Reset colors", kPushButton);
    EXPECT_TRUE(desktop.WaitForSetting("KS_PEN_MARK", "200,0,0,255"));
    EXPECT_EQ(desktop.Setting("KS_PEN_BG_LOW"), "188,188,188,255");
    EXPECT_EQ(desktop.Setting("BEOS"), "0");
}

TEST_F(Editing, RevertBringsBackWhatWasLastApplied) {
    const auto listener = desktop.StartOther({NYMBREL_LISTENER});
    ASSERT_EQ(listener->Line(), "ready");
    desktop.Start();
    Choose("Options");
    Retype("Mouse hold time", kSpinButton, "20000");
    Apply();
    // What stands in the editors when the notice goes out is what was applied.
    ASSERT_EQ(listener->Line(), "fAPL");
    Retype("Mouse hold time", kSpinButton, "44000");
    desktop.Click("Use Bubblehelp", kCheckBox);
    const accessible_node time = desktop.Editor("Mouse hold time", kSpinButton);
    const accessible_node help = desktop.Editor("Use Bubblehelp", kCheckBox);
    ASSERT_TRUE(WaitUntil([&] { return !desktop.tree().Has(help, accessible_state::kChecked); }));
    desktop.Click("Revert", kPushButton);
    EXPECT_TRUE(WaitUntil([&] { return desktop.tree().Has(help, accessible_state::kChecked); }));
    EXPECT_TRUE(WaitUntil([&] { return desktop.tree().ValueOf(time) == 20000; }))
        << desktop.tree().ValueOf(time);
    EXPECT_EQ(desktop.Setting("MOUSEHOLDTIME"), "20000") << "Revert has written the file";
}

TEST_F(Editing, OkStoresAndClosingDoesNot) {
    desktop.Start();
    Choose("Options");
    Retype("Mouse hold time", kSpinButton, "20000");
    desktop.Click("OK", kPushButton);
    EXPECT_EQ(desktop.Finish(), 0);
    EXPECT_EQ(desktop.Setting("MOUSEHOLDTIME"), "20000");
    const std::string stored = desktop.Settings();

    desktop.Start();
    Choose("Options");
    EXPECT_EQ(desktop.tree().ValueOf(desktop.Editor("Mouse hold time", kSpinButton)), 20000);
    desktop.Click("Use Bubblehelp", kCheckBox);
    desktop.screen().Close(Desktop::kTitle);
    EXPECT_EQ(desktop.Finish(), 0);
    EXPECT_EQ(desktop.Settings(), stored);
}

}  // namespace
