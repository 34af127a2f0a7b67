// SPDX-License-Identifier: MIT
// What is typed, pasted or dropped, and what the editors make of it.
#include "display/color_panel.h"
#include "display/number_box.h"
#include "tests/display/shown_program.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QLineEdit>
#include <QUrl>

#include <cstring>

using namespace config;

namespace {

class Meaning : public Shown {};

enum class Way { kTyped, kPasted };

// QTest types Latin letters only.
void Enter(QWidget* editor, const QString& text, Way way) {
    if (way == Way::kPasted) {
        QApplication::clipboard()->setText(text);
        QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
    } else {
        for (const QChar letter : text)
            QTest::sendKeyEvent(QTest::Click, editor, Qt::Key_unknown, QString(letter), Qt::NoModifier);
    }
}

TEST_F(Meaning, OfNumbersInEveryLocale) {
    struct row {
        const char* text;
        double value, whole;  // where there are two decimals, and where there are none
    };
    const row rows[] = {
        {"12.75", 12.75, 13},
        {"12,75", 12.75, 13},
        {"12٫75", 12.75, 13},
        {"١٢٫٧٥", 12.75, 13},
        {"۱۲.۷۵", 12.75, 13},
        {"۱۲٬۳۴۵", 12345, 12345},
        {"30,000", 30, 30000},
        {"1.234.567", 1234567, 1234567},
        {"1 234,5", 1234.5, 1235},
        {"1,234.56", 1234.56, 1235},
        {"−5", -5, -5},
        {"99999999", 5e6, 5e6},
    };
    const auto entered = [](QLocale locale, int decimals, const char* text, Way way) {
        NumberBox box(nullptr);
        box.setLocale(locale);
        box.setDecimals(decimals);
        box.setRange(-100, 5e6);
        box.setValue(7);
        box.selectAll();
        Enter(&box, QString::fromUtf8(text), way);
        QTest::keyClick(&box, Qt::Key_Return);
        const double value = box.value();
        box.setValue(box.valueFromText(box.text()));
        EXPECT_EQ(box.value(), value) << "its own text is read back";
        return value;
    };
    ShownProgram::Run([&](ShownProgram& program) {
        program.OnScreen([&] {
            for (const char* locale : {"C", "de_DE", "tr_TR", "ar_EG", "fa_IR"})
                for (const Way way : {Way::kTyped, Way::kPasted}) {
                    SCOPED_TRACE(locale);
                    for (const row& row : rows) {
                        EXPECT_EQ(entered(QLocale(locale), 2, row.text, way), row.value) << row.text;
                        EXPECT_EQ(entered(QLocale(locale), 0, row.text, way), row.whole) << row.text;
                    }
                    EXPECT_EQ(entered(QLocale(locale), 2, "1e5", Way::kPasted), 7);
                    EXPECT_EQ(entered(QLocale(locale), 2, "12.5 pt\n", Way::kPasted), 12.5);
                }
            NumberBox box(nullptr);
            QTest::keyClicks(&box, QStringLiteral("x"));
            for (const bool is_first : {true, false}) {
                QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
                QApplication::sendEvent(&box, &enter);
                EXPECT_EQ(enter.isAccepted(), is_first) << "what is refused was typed, too";
            }
        });
    });
}

TEST_F(Meaning, OfPaths) {
    const std::pair<const char*, std::string> rows[] = {
        {" /tmp/x.png", "/tmp/x.png"},
        {"/tmp/x.png\n", "/tmp/x.png"},
        {"file:///tmp/a%20b%23.png", "/tmp/a b#.png"},
        {"file://localhost/x", "/x"},
        {"file:/x", "/x"},
        {"file://server/x", "file://server/x"},
        {"~/a.png", home / "a.png"},
        {" \n", ""},
        {"/one\n/two", "/kept"},
    };
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(1);
        auto* line = program.OnScreen([&] { return program.Named<QLineEdit>("Low level: bitmap"); });
        const auto expect = [&](const std::string& path) {
            EXPECT_EQ(_backgrounds[0]->Path(), path);
            EXPECT_EQ(line->text().toStdString(), path);
        };
        for (const auto& [text, path] : rows) {
            _backgrounds[0]->SetText("/kept", false);
            ASSERT_TRUE(program.Eventually([&] { return line->text() == u"/kept"; }));
            program.OnScreen([&, typed = text, want = path] {
                line->selectAll();
                Enter(line, QString::fromUtf8(typed), std::strchr(typed, '\n') ? Way::kPasted : Way::kTyped);
                QTest::keyClick(line, Qt::Key_Return);
                expect(want);
            });
        }
        program.OnScreen([&] {
            QMimeData text, file;
            text.setText(QStringLiteral("file:///tmp/dropped.png\n"));
            EXPECT_TRUE(ShownProgram::Drop(line, text));
            expect("/tmp/dropped.png");
            file.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/ x.png "))});
            EXPECT_TRUE(ShownProgram::Drop(line, file));
            expect("/tmp/dropped.png");  // a blank at the end cannot be kept
            line->actions().front()->trigger();
            expect("");
        });
        EXPECT_EQ(program.Count(NCApplication::kOk), 0) << "the first Enter takes over";
        program.OnScreen([&] { QTest::keyClick(line, Qt::Key_Return); });
        EXPECT_TRUE(program.WaitForMessage(NCApplication::kOk));
    });
}

TEST_F(Meaning, OfColors) {
    const ks_color kept(9, 8, 7, 6);
    const std::pair<const char*, ks_color> rows[] = {
        {"#8012ab34", {0x80, 0x12, 0xab, 0x34}},
        {"8012AB34\n", {0x80, 0x12, 0xab, 0x34}},
        {" #1e64c8", {0x1e, 0x64, 0xc8}},
        {"#f0a8", {255, 0, 0xaa, 0x88}},
        {"#fA0", {255, 0xaa, 0}},
        {"#ff000080", {255, 0, 0, 0x80}},  // at #ff0 it is a colour of the palette
        {"Dark Slate Gray", {47, 79, 79}},
        {"transparent", {0, 0, 0, 0}},
        {"#12345", kept},
        {"no colour", kept},
    };
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(0);
        QWidget* field = program.OnScreen([&] { return program.Named<QWidget>("Shining edges"); });
        // Begins with the colour that is kept, acts, and tells which colour comes of it.
        const auto after = [&](const std::function<void()>& act) {
            _colors[KS_PEN_SHINE]->SetColor(kept, false, false);
            EXPECT_TRUE(program.Eventually([&] { return field->accessibleDescription() == u"#09080706"; }));
            program.OnScreen(act);
            return _colors[KS_PEN_SHINE]->Color();
        };
        for (const auto& [text, want] : rows) {
            QMimeData mime;
            mime.setText(QString::fromUtf8(text));
            EXPECT_EQ(after([&] { ShownProgram::Drop(field, mime); }), want) << text;
            EXPECT_EQ(after([&] { Enter(field, mime.text(), Way::kPasted); }), want) << text;
            after([&] { QTest::keyClick(field, Qt::Key_Space); });
            auto* panel = program.OpenedDialog<ColorPanel>();
            program.OnScreen([&] {
                auto* line = panel->findChild<QLineEdit*>(QStringLiteral("color"));
                EXPECT_EQ(line->text(), QStringLiteral("#09080706"));
                line->setFocus();
                line->selectAll();
                Enter(line, mime.text(), Way::kTyped);
                EXPECT_EQ(QApplication::focusWidget(), line) << text;
                QTest::keyClick(line, Qt::Key_Return);
                EXPECT_TRUE(panel->isVisible());
                QTest::keyClick(line, Qt::Key_Return);
            });
            program.WaitUntilDialogIsClosed();
            EXPECT_EQ(_colors[KS_PEN_SHINE]->Color(), want) << text;
        }
        EXPECT_EQ(after([&] {
                      QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
                      const QMimeData* copied = QApplication::clipboard()->mimeData();
                      EXPECT_EQ(copied->text(), QStringLiteral("#09080706"));
                      EXPECT_TRUE(ShownProgram::Drop(program.Named<QWidget>("Dark edges"), *copied));
                  }),
                  kept);
        EXPECT_EQ(_colors[KS_PEN_DARK]->Color(), kept);
    });
}

TEST_F(Meaning, OfAFamilyLeavesWeightAndSlant) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(2);
        for (const QFont::Weight weight : {QFont::Normal, QFont::Bold}) {
            const std::string style = weight == QFont::Bold ? "Bold" : "Book";
            BFont start;
            start.SetFamilyAndStyle("DejaVu Sans", style.c_str());
            start.SetSize(10);
            _fonts[0]->SetValue(&start, false);
            program.OnScreen([] {});
            program.OnScreen(
                [&] { QTest::keyClick(program.Named<QAbstractButton>("Normal"), Qt::Key_Space); });
            auto* panel = program.OpenedDialog<QDialog>();
            program.OnScreen([&] {
                auto* families = program.Named<QListWidget>("Family", panel);
                auto* styles = program.Named<QListWidget>("Style", panel);
                auto* search = program.Named<QLineEdit>("Search", panel);
                const auto is_wanted = [&](const QListWidgetItem* item) {
                    const QFont font = QFontDatabase::font(families->currentItem()->text(), item->text(), 10);
                    return font.weight() == weight && font.style() == QFont::StyleNormal;
                };
                for (int row = 0; row < families->count(); ++row) {
                    families->setCurrentRow(row);
                    const auto offered = styles->findItems(QStringLiteral("*"), Qt::MatchWildcard);
                    EXPECT_EQ(is_wanted(styles->currentItem()), std::ranges::any_of(offered, is_wanted))
                        << families->currentItem()->text().toStdString();
                }
                Enter(search, QStringLiteral("mono dejavu"), Way::kTyped);
                QTest::keyClick(search, Qt::Key_Return);
                EXPECT_EQ(families->currentItem()->text(), QStringLiteral("DejaVu Sans Mono"));
                search->clear();
                panel->findChild<QCheckBox*>()->click();
                for (const auto& [name, is_hidden] :
                     {std::pair("DejaVu Sans", true), std::pair("DejaVu Sans Mono", false)})
                    EXPECT_EQ(
                        families->findItems(QString::fromUtf8(name), Qt::MatchExactly).front()->isHidden(),
                        is_hidden);
                const QPoint there = families->visualItemRect(families->currentItem()).center();
                QTest::mouseClick(families->viewport(), Qt::LeftButton, {}, there);
                QTest::mouseDClick(families->viewport(), Qt::LeftButton, {}, there);
            });
            program.WaitUntilDialogIsClosed();
            EXPECT_EQ(_fonts[0]->Font().Family() + _fonts[0]->Font().Style(), "DejaVu Sans Mono" + style);
        }
    });
}

}  // namespace
