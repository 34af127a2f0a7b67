// SPDX-License-Identifier: MIT
// File pop-ups and font pop-ups, with the dialogs that they open.
#include "display/picture_file.h"
#include "tests/display/shown_program.h"

#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include <cmath>
#include <sys/stat.h>

using namespace config;

namespace {

// An uncompressed TGA of 2 x 1 pixels, red and half-transparent green.
const std::string kTga =
    std::string("\0\0\2\0\0\0\0\0\0\0\0\0\2\0\1\0\40\50", 18) + std::string("\0\0\377\377\0\377\0\200", 8);

class FilePopUp : public Shown {};
class FontPopUp : public Shown {};

QLineEdit* PathLine(ShownProgram& program) {
    return program.Named<QLineEdit>("Low level: bitmap");
}

TEST_F(FilePopUp, MarksWhatIsNoReadablePicture) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "Qt tiles large areas in threads of its own, whose locks this sanitizer does not see";
#endif
    const std::string text = home.NewFile("notes.txt"), picture = home.Path() / "picture.tga";
    home.Write(picture, kTga);
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(1);
        const auto is_marked = [&] { return !PathLine(program)->accessibleDescription().isEmpty(); };
        for (const std::string& bad : {text, std::string("/no/such/file"), home.Path().string()}) {
            _backgrounds[0]->SetText(bad.c_str(), false);
            EXPECT_TRUE(program.Eventually(is_marked)) << bad;
            EXPECT_EQ(_backgrounds[0]->Path(), bad);
            _backgrounds[0]->SetText(picture.c_str(), false);
            EXPECT_TRUE(program.Eventually([&] { return !is_marked(); })) << bad;
        }
    });
}

TEST_F(FilePopUp, BrowsesWithAPreview) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "Qt's file dialog has threads of its own, whose locks this sanitizer does not see";
#endif
    const std::string picture = home.Path() / "picture.tga";
    home.Write(picture, kTga);
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(1);
        program.OnScreen(
            [&] { QTest::keyClick(program.Named<QToolButton>("Low level: Choose a file"), Qt::Key_Return); });
        auto* dialog = program.OpenedDialog<QFileDialog>();
        program.OnScreen([&] {
            Q_EMIT dialog->currentChanged(QString::fromStdString(picture));
            const auto labels = dialog->findChildren<QLabel*>();
            EXPECT_TRUE(std::ranges::any_of(
                labels, [](QLabel* label) { return label->pixmap(Qt::ReturnByValue).width() == 2; }));
            auto* name = dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
            name->setText(QString::fromStdString(picture));
            QTest::keyClick(name, Qt::Key_Return);
        });
        EXPECT_TRUE(program.Eventually([&] { return _backgrounds[0]->Path() == picture; }));
    });
}

TEST(PictureFile, ReadsEveryTgaAndNothingThatIsNoFile) {
    const ScopedHome home;
    const auto read = [&](const char* name, const std::string& bytes) {
        home.Write(home.Path() / name, bytes);
        const QString path = QString::fromStdString(home.Path() / name);
        EXPECT_EQ(IsPicture(path), !ReadPicture(path).isNull()) << name;
        return ReadPicture(path);
    };
    const QImage plain = read("plain.tga", kTga);
    ASSERT_EQ(plain.size(), QSize(2, 1));
    EXPECT_EQ(plain.pixelColor(0, 0), QColor(255, 0, 0));
    EXPECT_EQ(plain.pixelColor(1, 0), QColor(0, 255, 0, 128));
    // Run-length encoded, and without the ending that names the format.
    std::string packed = kTga.substr(0, 18) + std::string("\201\0\0\377\377", 5);
    packed[2] = 10;
    EXPECT_EQ(read("picture", packed).pixelColor(1, 0), QColor(255, 0, 0));

    EXPECT_TRUE(read("empty.tga", "").isNull());
    // More than is read at all, and more than so small a file can hold.
    for (const char* size : {"\377\377\377\377", "\377\077\377\017"}) {
        std::string huge = packed;
        huge.replace(12, 4, size);
        EXPECT_TRUE(read("huge.tga", huge).isNull());
    }
    ASSERT_EQ(mkfifo((home.Path() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(IsPicture(QString::fromStdString(home.Path() / "pipe")));
    EXPECT_FALSE(IsPicture(QString::fromStdString(home.Path())));
    EXPECT_EQ(ReadPicture(QString::fromStdString(home.Path() / "plain.tga"), QSize(1, 1)).size(),
              QSize(1, 1));
}

// Opens the panel of the font "Normal" and returns it.
QDialog* OpenPanel(ShownProgram& program) {
    program.OnScreen([&] { QTest::keyClick(program.Named<QAbstractButton>("Normal"), Qt::Key_Space); });
    return program.OpenedDialog<QDialog>();
}

TEST_F(FontPopUp, TakesFamilyStyleAndAFractionalSize) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(2);
        QDialog* panel = OpenPanel(program);
        BFont want;
        program.OnScreen([&] {
            const auto last_of = [&](const char* name) {
                auto* list = program.Named<QListWidget>(name, panel);
                list->setCurrentRow(list->count() - 1);
                return list->currentItem()->text().toStdString();
            };
            const std::string family = last_of("Family");
            want.SetFamilyAndStyle(family.c_str(), last_of("Style").c_str());
            want.SetSize(11.25f);
            program.Named<QDoubleSpinBox>("Size", panel)->setValue(11.25);
            QTest::keyClick(panel, Qt::Key_Return);
        });
        EXPECT_TRUE(program.Eventually([&] { return _fonts[0]->Font() == want; }));
        const auto shown_font = [&] { return program.Named<QAbstractButton>("Normal")->font(); };
        EXPECT_TRUE(program.Eventually([&] {
            return shown_font().family().toStdString() == want.Family() && shown_font().pointSizeF() == 11.25;
        }));
        want.SetSize(0.5f);
        _fonts[0]->SetValue(&want, false);
        EXPECT_TRUE(program.Eventually([&] { return shown_font().pointSizeF() == 6; })) << "cannot be read";
    });
}

TEST_F(FontPopUp, KeepsAFontThatIsNotInstalled) {
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(2);
        for (const float size : {12.123f, 0.5f, 1e30f, std::nanf("")}) {
#if defined(__SANITIZE_THREAD__)
            // Qt draws large letters in threads of its own, whose locks this sanitizer does not see.
            if (size > 100)
                continue;
#endif
            const std::string style = "Odd " + std::to_string(size);
            BFont odd;
            odd.SetFamilyAndStyle("No Such Family", style.c_str());
            odd.SetSize(size);
            _fonts[0]->SetValue(&odd, false);
            EXPECT_TRUE(program.Eventually([&] {
                const QString shown = program.Named<QAbstractButton>("Normal")->accessibleDescription();
                return shown.contains(QString::fromStdString("No Such Family " + style));
            }));
            QDialog* panel = OpenPanel(program);
            program.OnScreen([&] { QTest::keyClick(panel, Qt::Key_Return); });
            program.WaitUntilDialogIsClosed();
            EXPECT_EQ(_fonts[0]->Font(), odd) << size;
        }
    });
}

}  // namespace
