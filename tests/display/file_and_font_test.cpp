// SPDX-License-Identifier: MIT
// File pop-ups and font pop-ups, with the dialogs that they open.
#include "display/picture_file.h"
#include "tests/display/shown_program.h"

#include <QAction>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QToolButton>
#include <QUrl>

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
    return program.Named<QLineEdit>("Low level");
}

TEST_F(FilePopUp, TakesWhatIsTypedAtOnceAndCanBeCleared) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(1);
        program.OnScreen([&] { QTest::keyClicks(PathLine(program), QStringLiteral("/tmp/a b.png")); });
        EXPECT_EQ(_backgrounds[0]->Path(), "/tmp/a b.png");
        program.OnScreen([&] {
            ASSERT_EQ(PathLine(program)->actions().size(), 1);
            PathLine(program)->actions().front()->trigger();
            EXPECT_EQ(PathLine(program)->text(), QString());
        });
        EXPECT_EQ(_backgrounds[0]->Path(), "");
        _backgrounds[0]->SetText("/tmp/set.png", false);
        EXPECT_TRUE(
            program.Eventually([&] { return PathLine(program)->text() == QStringLiteral("/tmp/set.png"); }));
    });
}

TEST_F(FilePopUp, ShowsThePathItKeepsWhenOneCannotBeStored) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(1);
        _backgrounds[0]->SetText("/kept", false);
        ASSERT_TRUE(program.Eventually([&] { return PathLine(program)->text() == QStringLiteral("/kept"); }));
        program.OnScreen([&] {
            QLineEdit* line = PathLine(program);
            line->selectAll();
            line->insert(QString(2000, u'x'));
            program.Button("Apply")->click();
            EXPECT_EQ(line->text(), QStringLiteral("/kept"));
        });
        EXPECT_EQ(_backgrounds[0]->Path(), "/kept");
    });
}

TEST_F(FilePopUp, MarksWhatIsNoReadablePicture) {
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

TEST_F(FilePopUp, TakesADroppedFile) {
    const std::string path = home.NewFile("with space.png");
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(1);
        _backgrounds[0]->SetText("/before", false);
        program.OnScreen([&] {
            QMimeData mime;
            mime.setUrls({QUrl::fromLocalFile(QString::fromStdString(path))});
            EXPECT_TRUE(ShownProgram::Drop(PathLine(program), mime));
        });
        EXPECT_EQ(_backgrounds[0]->Path(), path);
        EXPECT_TRUE(program.Eventually([&] { return PathLine(program)->text().toStdString() == path; }));
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
        QFileDialog* dialog = nullptr;
        ASSERT_TRUE(program.Eventually([&] {
            dialog = program.Top()->findChild<QFileDialog*>();
            return dialog && dialog->isVisible();
        }));
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
        EXPECT_EQ(program.OnScreen([&] { return program.Named<QLineEdit>("Low level")->text(); }),
                  QString::fromStdString(picture));
    });
}

TEST(PictureFile, ReadsEveryTgaAndNothingThatIsNoFile) {
    const ScopedHome home;
    const auto read = [&](const char* name, const std::string& bytes) {
        home.Write(name, bytes);
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
    std::string huge = kTga;
    huge.replace(12, 4, "\377\377\377\377");
    EXPECT_TRUE(read("huge.tga", huge).isNull());
    ASSERT_EQ(mkfifo((home.Path() / "pipe").c_str(), 0600), 0);
    EXPECT_FALSE(IsPicture(QString::fromStdString(home.Path() / "pipe")));
    EXPECT_FALSE(IsPicture(QString::fromStdString(home.Path())));
    EXPECT_LE(read("plain.tga", kTga).width(), 2);
    EXPECT_EQ(ReadPicture(QString::fromStdString(home.Path() / "plain.tga"), QSize(1, 1)).size(),
              QSize(1, 1));
}

// Opens the panel of the font "Normal" and returns it.
QDialog* OpenPanel(ShownProgram& program) {
    program.OnScreen([&] { QTest::keyClick(program.Named<QAbstractButton>("Normal"), Qt::Key_Space); });
    QDialog* panel = nullptr;
    EXPECT_TRUE(program.Eventually([&] {
        panel = program.Top()->findChild<QDialog*>();
        return panel && panel->isVisible();
    }));
    return panel;
}

TEST_F(FontPopUp, TakesFamilyStyleAndAFractionalSize) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(2);
        QDialog* panel = OpenPanel(program);
        ASSERT_TRUE(panel);
        std::string family, style;
        program.OnScreen([&] {
            auto* families = program.Named<QListWidget>("Family", panel);
            auto* styles = program.Named<QListWidget>("Style", panel);
            families->setCurrentRow(families->count() - 1);
            styles->setCurrentRow(styles->count() - 1);
            family = families->currentItem()->text().toStdString();
            style = styles->currentItem()->text().toStdString();
            program.Named<QDoubleSpinBox>("Size", panel)->setValue(11.25);
            QTest::keyClick(panel, Qt::Key_Return);
        });
        BFont want;
        want.SetFamilyAndStyle(family.c_str(), style.c_str());
        want.SetSize(11.25f);
        EXPECT_TRUE(program.Eventually([&] { return _fonts[0]->Font() == want; }));
        EXPECT_TRUE(program.Eventually([&] {
            const QFont shown = program.Named<QAbstractButton>("Normal")->font();
            return shown.family().toStdString() == family && shown.pointSizeF() == 11.25;
        }));
        want.SetSize(0.5f);
        _fonts[0]->SetValue(&want, false);
        EXPECT_TRUE(program.Eventually([&] {
            return program.Named<QAbstractButton>("Normal")->font().pointSizeF() == 6;
        })) << "its name cannot be read";
        EXPECT_EQ(_fonts[0]->Font().Size(), 0.5f);
    });
}

TEST_F(FontPopUp, KeepsAFontThatIsNotInstalled) {
    BFont odd;
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(2);
        for (const float size : {12.123f, 0.5f, 1e30f, std::nanf("")}) {
#if defined(__SANITIZE_THREAD__)
            if (size >
                100)  // Qt draws large letters in threads of its own, whose locks this sanitizer does not see
                continue;
#endif
            const std::string style = "Odd " + std::to_string(size);
            odd.SetFamilyAndStyle("No Such Family", style.c_str());
            odd.SetSize(size);
            _fonts[0]->SetValue(&odd, false);
            EXPECT_TRUE(program.Eventually([&] {
                const QString shown = program.Named<QAbstractButton>("Normal")->accessibleDescription();
                return shown.contains(QString::fromStdString("No Such Family " + style));
            }));
            QDialog* panel = OpenPanel(program);
            ASSERT_TRUE(panel);
            program.OnScreen([&] { QTest::keyClick(panel, Qt::Key_Return); });
            ASSERT_TRUE(program.Eventually([&] { return !program.Top()->findChild<QDialog*>(); }));
            EXPECT_EQ(_fonts[0]->Font(), odd) << size;
        }
    });
}

}  // namespace
