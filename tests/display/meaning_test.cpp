// SPDX-License-Identifier: MIT
// What is typed, pasted or dropped, and what the editors make of it.
#include "display/color_panel.h"
#include "display/number_box.h"
#include "tests/display/shown_program.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFontDatabase>
#include <QLineEdit>

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
    const row rows[] = {{"12.75", 12.75, 13},
                        {"12,75", 12.75, 13},
                        {"12٫75", 12.75, 13},
                        {"١٢٫٧٥", 12.75, 13},
                        {"۱۲٬۳۴۵", 12345, 12345},
                        {"۱۲.۷۵", 12.75, 13},
                        {"30,000", 30, 30000},
                        {"1.234.567", 1234567, 1234567},
                        {"1 234,5", 1234.5, 1235},
                        {"1,234.56", 1234.56, 1235},
                        {"−5", -5, -5},
                        {"99999999", 5e6, 5e6}};
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
        });
    });
}

TEST_F(Meaning, OfPaths) {
    const std::string at_home = home / "a.png";
    const std::pair<const char*, std::string> rows[] = {{" /tmp/x.png", "/tmp/x.png"},
                                                        {"/tmp/x.png\n", "/tmp/x.png"},
                                                        {"file:///tmp/a%20b%23.png", "/tmp/a b#.png"},
                                                        {"file://localhost/x", "/x"},
                                                        {"file:/x", "/x"},
                                                        {"~/a.png", at_home},
                                                        {" \n", ""},
                                                        {"/one\n/two", "/kept"},
                                                        {"file://server/x", "file://server/x"}};
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(1);
        auto* line = program.OnScreen([&] { return program.Named<QLineEdit>("Low level: bitmap"); });
        for (const auto& [text, path] : rows) {
            _backgrounds[0]->SetText("/kept", false);
            ASSERT_TRUE(program.Eventually([&] { return line->text() == u"/kept"; }));
            program.OnScreen([&, text = text, path = path] {
                line->selectAll();
                Enter(line, QString::fromUtf8(text), std::strchr(text, '\n') ? Way::kPasted : Way::kTyped);
                QTest::keyClick(line, Qt::Key_Return);
                EXPECT_EQ(_backgrounds[0]->Path(), path) << text;
                EXPECT_EQ(line->text().toStdString(), path) << text;
            });
        }
        program.OnScreen([&] {
            QMimeData text;
            text.setText(QStringLiteral("file:///tmp/dropped.png\n"));
            EXPECT_TRUE(ShownProgram::Drop(line, text));
        });
        EXPECT_EQ(_backgrounds[0]->Path(), "/tmp/dropped.png");
        EXPECT_EQ(program.Count(NCApplication::kOk), 0) << "the first Enter takes over";
        program.OnScreen([&] { QTest::keyClick(line, Qt::Key_Return); });
        EXPECT_TRUE(program.WaitForMessage(NCApplication::kOk));
    });
}

TEST_F(Meaning, OfColors) {
    const ks_color kept(9, 8, 7, 6);
    const std::pair<const char*, ks_color> rows[] = {{"#8012ab34", {0x80, 0x12, 0xab, 0x34}},
                                                     {"8012AB34\n", {0x80, 0x12, 0xab, 0x34}},
                                                     {" #1e64c8", {0x1e, 0x64, 0xc8}},
                                                     {"#f0a8", {255, 0, 0xaa, 0x88}},
                                                     {"#fA0", {255, 0xaa, 0}},
                                                     {"CornflowerBlue", {100, 149, 237}},
                                                     {"Dark Slate Gray", {47, 79, 79}},
                                                     {"transparent", {0, 0, 0, 0}},
                                                     {"#12345", kept},
                                                     {"no colour", kept}};
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(0);
        QWidget* field = program.OnScreen([&] { return program.Named<QWidget>("Shining edges"); });
        const auto reset = [&] { _colors[KS_PEN_SHINE]->SetColor(kept, false, false); };
        const auto color = [&] { return _colors[KS_PEN_SHINE]->Color(); };
        for (const auto& [text, want] : rows) {
            QMimeData mime;
            mime.setText(QString::fromUtf8(text));
            reset();
            program.OnScreen([&] { EXPECT_EQ(ShownProgram::Drop(field, mime), !(want == kept)); });
            EXPECT_EQ(color(), want) << text;
            reset();
            program.OnScreen([&] { Enter(field, mime.text(), Way::kPasted); });
            EXPECT_EQ(color(), want) << text;
            reset();
            program.OnScreen([] {});  // the field shows it
            program.OnScreen([&] { QTest::keyClick(field, Qt::Key_Space); });
            auto* panel = program.OpenedDialog<ColorPanel>();
            program.OnScreen([&] {
                auto* line = dynamic_cast<QLineEdit*>(panel->findChild<QLineEdit*>(QStringLiteral("color")));
                EXPECT_EQ(line->text(), QStringLiteral("#09080706"));
                line->selectAll();
                Enter(line, mime.text(), Way::kTyped);
                QTest::keyClick(line, Qt::Key_Return);
                EXPECT_TRUE(panel->isVisible());
                QTest::keyClick(line, Qt::Key_Return);
            });
            program.WaitUntilDialogIsClosed();
            EXPECT_EQ(color(), want) << text;
        }
        // Both forms of what is copied mean the same.
        reset();
        program.OnScreen([] {});
        program.OnScreen([&] {
            EXPECT_EQ(field->accessibleDescription().left(9), QStringLiteral("#09080706"));
            QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
            const QMimeData* copied = QApplication::clipboard()->mimeData();
            EXPECT_EQ(copied->text(), QStringLiteral("#09080706"));
            EXPECT_EQ(copied->colorData().value<QColor>(), QColor(9, 8, 7, 6));
        });
    });
}

TEST_F(Meaning, OfAFamilyLeavesWeightAndSlant) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(2);
        for (const char* style : {"Book", "Bold"}) {
            BFont start;
            start.SetFamilyAndStyle("DejaVu Sans", style);
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
                for (int row = 0; row < families->count(); ++row) {
                    families->setCurrentRow(row);
                    const auto look = [&](const QString& name) {
                        const QFont font = QFontDatabase::font(families->currentItem()->text(), name, 10);
                        return std::pair(font.style(), font.weight());
                    };
                    const auto wanted = std::pair(QFont::StyleNormal,
                                                  style == std::string("Bold") ? QFont::Bold : QFont::Normal);
                    bool is_offered = false;
                    for (int i = 0; i < styles->count(); ++i)
                        is_offered |= look(styles->item(i)->text()) == wanted;
                    EXPECT_EQ(look(styles->currentItem()->text()) == wanted, is_offered) << row;
                }
                Enter(search, QStringLiteral("mono dejav"), Way::kTyped);
                QTest::keyClick(search, Qt::Key_Return);
                EXPECT_EQ(families->currentItem()->text(), QStringLiteral("DejaVu Sans Mono"));
                search->clear();
                panel->findChild<QCheckBox*>()->click();
                const auto row = [&](const char* name) {
                    return families->row(
                        families->findItems(QString::fromUtf8(name), Qt::MatchExactly).front());
                };
                EXPECT_TRUE(families->isRowHidden(row("DejaVu Sans")));
                EXPECT_FALSE(families->isRowHidden(row("DejaVu Sans Mono")));
                const QPoint there = families->visualItemRect(families->currentItem()).center();
                QTest::mouseClick(families->viewport(), Qt::LeftButton, {}, there);
                QTest::mouseDClick(families->viewport(), Qt::LeftButton, {}, there);
            });
            program.WaitUntilDialogIsClosed();
            EXPECT_EQ(_fonts[0]->Font().Family(), "DejaVu Sans Mono");
            EXPECT_EQ(_fonts[0]->Font().Style(), style);
        }
    });
}

}  // namespace
