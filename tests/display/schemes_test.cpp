// SPDX-License-Identifier: MIT
// Schemes as they are opened in the window, those that come with the program, and the window's keys.
#include "display/pairs.h"
#include "tests/display/shown_program.h"
#include "toolkit/scheme.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QUrl>

using namespace config;

namespace {

class Schemes : public Shown {
protected:
    static void Press(ShownProgram& program, Qt::Key key,
                      Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
        program.OnScreen([&] { program.Top()->activateWindow(); });
        EXPECT_TRUE(program.Eventually([&] { return program.Top()->isActiveWindow(); }));
        program.OnScreen([&] { QTest::keyClick(program.Top(), key, modifiers); });
    }
};

TEST_F(Schemes, OfTheProgramCanBeRead) {
    const ScopedVariable platform("QT_QPA_PLATFORM", "offscreen");
    DisplayServer server;
    server.Prepare(false);
    for (const char* name : {"night", "high_contrast", "paper", "ocean"}) {
        const auto file = ks_read_scheme(std::string(NYMBREL_SCHEMES "/") + name + ".scheme");
        ASSERT_TRUE(file && file->values == 24 && file->faults == 0) << name;
        ks_look look;
        for (std::size_t pen = 0; pen < look.pens.size(); ++pen)
            look.pens[pen] = file->scheme.pens[pen].value();
        for (const pen_pair& pair : MeasurePairs(Worn(look, {}, Worn::Ink::kTrue)))
            EXPECT_FALSE(pair.IsHard()) << name << ": " << pair.ink << " on " << pair.ground;
    }
}

TEST_F(Schemes, AreOneEditThatIsNotStored) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "Qt's file dialog has threads of its own, whose locks this sanitizer does not see";
#endif
    home.Write("damaged", "KS_PEN_BG_LOW = 1,2,3,255\nLOOK = Nymbrel\nBEOS = 0\nnonsense\n");
    home.Write("foreign", "nothing = here\n");
    ShownProgram::Run([&](ShownProgram& program) {
        const std::string bitmap = home.NewFile("picture");
        EXPECT_TRUE(_backgrounds[0]->EditText(bitmap));
        const auto is_worn = [&](bool worn) {
            return (_colors[0]->Color() == ks_color(1, 2, 3)) == worn && _look->CurrentSelection() == worn &&
                   _backgrounds[0]->Path() == (worn ? "" : bitmap) && _beos_size->Value();
        };
        const auto expect_sentence = [&](const char* sentence) {
            auto* box = program.OpenedDialog<QMessageBox>();
            program.OnScreen([&] {
                EXPECT_EQ(box->text(), QString::fromUtf8(sentence));
                box->close();
            });
            program.WaitUntilDialogIsClosed();
        };
        const auto drop = [&](const char* name) {
            program.OnScreen([&] {
                QMimeData mime;
                mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(home / name))});
                EXPECT_TRUE(ShownProgram::Drop(program.Top(), mime));
            });
        };
        drop("foreign");
        expect_sentence("foreign is no scheme: no line of it can be used. Nothing has changed.");
        EXPECT_TRUE(is_worn(false));
        drop("damaged");
        expect_sentence("Some lines of damaged cannot be used. The others are in use.");
        EXPECT_TRUE(is_worn(true) && _colors[0]->IsEdited());
        Press(program, Qt::Key_Z);
        EXPECT_TRUE(is_worn(false));

        const auto save_as = [&](Qt::Key answer) {
            Press(program, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
            auto* dialog = program.OpenedDialog<QFileDialog>();
            program.OnScreen([&] {
                auto* line = dialog->findChild<QLineEdit*>();
                line->setText(QString::fromStdString(home / "saved.scheme"));
                QTest::keyClick(line, Qt::Key_Return);
                if (auto* question = dialog->findChild<QMessageBox*>())
                    QTest::keyClick(question, answer);
                dialog->close();
            });
            program.WaitUntilDialogIsClosed();
        };
        save_as(Qt::Key_Escape);
        const std::string saved = home.Read(home / "saved.scheme");
        EXPECT_TRUE(saved.starts_with("LOOK = BeOS\nKS_PEN_BG_LOW_BMP = " + bitmap + "\n"));
        _colors[1]->EditColor(ks_color(9, 9, 9));
        save_as(Qt::Key_Escape);  // an existing file is asked about
        EXPECT_EQ(home.Read(home / "saved.scheme"), saved);
        EXPECT_FALSE(std::filesystem::exists(home.SettingsFile()));
    });
}

TEST_F(Schemes, AndTheOtherCommandsOfTheWindowHaveKeys) {
    ShownProgram::Run([](ShownProgram& program) {
        const std::pair<Qt::Key, KSControl*> steps[] = {
            {Qt::Key_PageDown, ch_background}, {Qt::Key_PageUp, ch_pen}, {Qt::Key_PageUp, ch_dimen}};
        for (const auto& [key, page] : steps) {
            Press(program, key);
            EXPECT_FALSE(page->IsHidden());
        }
        program.OnScreen([&] {
            for (const char* time : {"Bubblehelp wait time", "Mouse hold time"})
                EXPECT_EQ(program.Named<QWidget>(time)->accessibleDescription(), u"microseconds");
        });
        Press(program, Qt::Key_F1, Qt::NoModifier);
        auto* about = program.OpenedDialog<QMessageBox>();
        program.OnScreen([&] {
            EXPECT_TRUE(about->informativeText().contains(u"/.config/Nymbrel_settings"));
            about->close();
        });
        program.WaitUntilDialogIsClosed();
        program.OnScreen([&] {
            auto* picture = program.Top()->childAt(60, 60);
            QContextMenuEvent event(QContextMenuEvent::Mouse, {5, 5}, picture->mapToGlobal(QPoint(5, 5)));
            QApplication::sendEvent(picture, &event);
        });
        program.OnScreen([&] {
            auto* menu = program.Top()->findChild<QMenu*>();
            for (QAction* action : menu->findChildren<QAction*>())
                if (action->text() == u"BeOS conform")
                    action->trigger();
            menu->close();
        });
        EXPECT_TRUE(program.Eventually([] { return _colors[0]->Color() == ks_color(210, 210, 210); }));
        Press(program, Qt::Key_Q);
        EXPECT_TRUE(program.quits.WaitUntil([](const auto& quits) { return !quits.empty(); }));
    });
}

}  // namespace
