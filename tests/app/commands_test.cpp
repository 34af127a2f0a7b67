// SPDX-License-Identifier: MIT
// The program from its start to its end, driven by messages.
#include "tests/app/running_program.h"
#include "tests/settings/editors.h"
#include "toolkit/KSButton.h"
#include "toolkit/KSHistory.h"
#include "toolkit/default_fonts.h"

namespace {

class Commands : public testing::Test {
protected:
    std::string File() const { return ScopedHome::Read(home.SettingsFile()); }
    // Each use of a font has a default of its own.
    static reference::settings Defaults() {
        reference::settings values = default_values();
        const float sizes[] = {10, 10, 10, 8, 14};
        for (int i = 0; i < kFontCount; ++i) {
            const BFont& font = ks_default_font(static_cast<ks_font>(i));
            values.fonts[static_cast<std::size_t>(i)] = {font.Family(), font.Style(), sizes[i]};
        }
        return values;
    }

    ScopedHome home;
};

TEST_F(Commands, StartsWithTheDefaultsAndWritesNothingUnasked) {
    RunningProgram::Run([&](RunningProgram& program) {
        program.WaitUntilIdle();
        EXPECT_EQ(editor_values(), Defaults());
        EXPECT_STREQ(program.Window()->Title(), "Nymbrel Config");
        // Other programs can announce a change, but not press buttons.
        EXPECT_TRUE(program.AcceptsBroadcast(NCApplication::kSettingsChanged));
        EXPECT_FALSE(program.AcceptsBroadcast(NCApplication::kOk));
        EXPECT_EQ(program.Window()->Frame(), KSRect<long>(100, 100, 600, 400));
        program.Do(ks_message_code("what"));
        EXPECT_FALSE(std::filesystem::exists(home.SettingsFile()));
        home.Write(home.SettingsFile(), "KS_PEN_TEXT = 1,2,3,4\n");
        program.Do(NCApplication::kSettingsChanged);  // the program's own notice is never read back
        EXPECT_EQ(editor_values(), Defaults());
        config::_colors[9]->EditColor({1, 2, 3});
        // Closing the window drops the edit and ends the program.
        EXPECT_TRUE(program.Window()->QuitRequested() && program.quits.WaitFor(1));
    });
    EXPECT_EQ(File(), "KS_PEN_TEXT = 1,2,3,4\n");
}

TEST_F(Commands, ApplyWritesAndAnnouncesOnceWhatWasReadAndEdited) {
    const std::string bitmap = home.NewFile("marble.tga");
    home.Write(home.SettingsFile(), "LANGUAGE = deutsch\nKS_PEN_TEXT = 1,2,3,4\nKS_PEN_BG_EDIT_BMP = " +
                                        bitmap + "\nKS_PEN_BG_READ_BMP = /missing\nLOOK = Nymbrel\n");
    RunningProgram::Run([&](RunningProgram& program) {
        reference::settings wanted = Defaults();
        wanted.look = "Nymbrel";
        wanted.pens[9] = {1, 2, 3, 4};
        wanted.bitmaps[3] = bitmap;
        config::_colors[0]->EditColor({9, 8, 7, 6});
        wanted.pens[0] = {9, 8, 7, 6};
        program.Do(NCApplication::kApply);
        EXPECT_EQ(editor_values(), wanted);
        EXPECT_EQ(File(), reference::write(wanted));
        EXPECT_EQ(program.Count(NCApplication::kSettingsChanged), 1);
    });
}

TEST_F(Commands, OkWritesAnnouncesAndEnds) {
    RunningProgram::Run([&](RunningProgram& program) {
        config::_beos_size->EditValue(false);
        program.PostMessage(NCApplication::kOk);
        EXPECT_TRUE(program.quits.WaitFor(1));
        EXPECT_EQ(program.Count(NCApplication::kSettingsChanged), 1);
    });
    EXPECT_TRUE(File().starts_with("LOOK = BeOS\nBEOS = 0\n"));
}

TEST_F(Commands, GoOnWhenTheFileCannotBeWritten) {
    RunningProgram::Run([&](RunningProgram& program) {
        std::filesystem::remove_all(home.SettingsDirectory());
        config::_bubblehelp->EditValue(false);
        program.Do(NCApplication::kApply);
        program.Do(NCApplication::kRevert);  // what was not stored is taken back
        program.Do(NCApplication::kResetColors);
        EXPECT_EQ(program.Count(NCApplication::kSettingsChanged), 2);
        reference::settings wanted = Defaults();
        reference::reset_colors(wanted, true);
        EXPECT_EQ(editor_values(), wanted);
        program.Do(NCApplication::kRevert);
        EXPECT_EQ(editor_values(), Defaults());
        program.PostMessage(NCApplication::kOk);
        EXPECT_TRUE(program.quits.WaitFor(1));
    });
    EXPECT_FALSE(std::filesystem::exists(home.SettingsFile()));
}

TEST_F(Commands, ResetColorsTakesThePaletteOfTheCheckBoxAndStoresEverything) {
    RunningProgram::Run([&](RunningProgram& program) {
        reference::settings wanted = Defaults();
        EXPECT_TRUE(config::_backgrounds[0]->EditText(wanted.bitmaps[0] = "/a.tga"));
        config::_mousetime->EditValue(20000);
        wanted.mouse_time = 20000;
        for (const bool conform : {true, false}) {
            config::_colors[5]->EditColor({1, 1, 1, 1});
            config::_beos_size->EditValue(wanted.beos_conform = conform);
            reference::reset_colors(wanted, conform);
            program.Do(NCApplication::kResetColors);
            EXPECT_EQ(editor_values(), wanted);
            EXPECT_EQ(File(), reference::write(wanted));
        }
        EXPECT_EQ(program.Count(NCApplication::kSettingsChanged), 2);
    });
}

TEST_F(Commands, ResetColorsIsUndoneAsAnEdit) {
    RunningProgram::Run([&](RunningProgram& program) {
        program.WaitUntilIdle();
        KSHistory& history = *KSHistory::Of(program.Window());
        EXPECT_FALSE(history.CanUndo());  // what the start brings is no step
        reference::settings before = Defaults(), reset = Defaults();
        before.pens[9] = {1, 2, 3, 4};
        config::_colors[9]->EditColor({1, 2, 3, 4});
        reference::reset_colors(reset, true);
        program.Do(NCApplication::kResetColors);
        EXPECT_FALSE(program.Root()->HasEdits());
        for (const bool reverts_first : {false, true}) {
            if (reverts_first) {
                program.Do(NCApplication::kRevert);
                EXPECT_EQ(editor_values(), reset);
            }
            history.Undo();
            EXPECT_EQ(editor_values(), before);
            EXPECT_TRUE(program.Categories()->IsItemMarked(0));
            EXPECT_EQ(File(), reference::write(reset));
        }
        program.Quit();
    });
}

TEST_F(Commands, RevertPutsBackWhatWasLastStored) {
    std::filesystem::create_directories(home.CatalogsDirectory() / "deutsch");
    RunningProgram::Run([&](RunningProgram& program) {
        reference::settings wanted = Defaults();
        config::_bubblehelp->EditValue(false);
        wanted.bubble_help = false;
        program.Do(NCApplication::kApply);
        config::_bubblehelp->EditValue(true);
        config::_colors[22]->EditColor({});
        config::_llist->EditSelection(1);
        program.WaitUntilIdle();
        EXPECT_STREQ(config::_language, "deutsch");
        {
            const BAutolock lock(program.Window());
            program.Container()->SetChangeListener([] {});  // a display that is busy
            program.Window()->AddChild(new KSContainer({0, 0, 9, 9}, "without content"));
        }
        program.Do(NCApplication::kRevert);
        EXPECT_EQ(editor_values(), wanted);
        EXPECT_EQ(program.Count(NCApplication::kSettingsChanged), 1);
        config::_llist->EditSelection(-1);  // no language: English
        program.Do(NCApplication::kApply);
        EXPECT_EQ(config::_llist->CurrentSelection(), 0);
        EXPECT_NE(File().find("\nLANGUAGE = english\n"), std::string::npos);
    });
}

TEST_F(Commands, SpeakTheLanguageOfTheSettings) {
    std::filesystem::create_directories(home.CatalogsDirectory());
    std::filesystem::copy(NYMBREL_CATALOGS "/deutsch", home.CatalogsDirectory() / "deutsch");
    home.Write(home.SettingsFile(), "LANGUAGE = deutsch\n");
    RunningProgram::Run([&](RunningProgram& program) {
        std::vector<std::string> texts;
        program.Root()->ForEach([&](KSControl& control) {
            if (!control.Label().empty())
                texts.push_back(control.Label());
        });
        for (const char* german : {"Anwenden", "Schaltflächen", "Farben zurücksetzen", "Feste Breite"})
            EXPECT_EQ(std::ranges::count(texts, german), 1) << german;
        EXPECT_EQ(std::ranges::count(texts, "Apply"), 0);
        EXPECT_STREQ(program.Categories()->ItemAt(1)->AccessibleText(), "Hintergründe");
        EXPECT_EQ(editor_values().look, "BeOS");
        EXPECT_EQ(editor_values().language, "deutsch");
    });
}

}  // namespace
