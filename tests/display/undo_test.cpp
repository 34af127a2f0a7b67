// SPDX-License-Identifier: MIT
// Undo by keys and menus, and the marks of what is changed.
#include "tests/display/shown_program.h"

#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QMenu>

using namespace config;

namespace {

class Undo : public Shown {};

void Key(QWidget* widget, QKeyCombination key) {
    QTest::keyClick(widget, key.key(), key.keyboardModifiers());
}

// Returns the menu's entry whose text, without a mnemonic, begins with `text`.
QAction* Entry(const QMenu& menu, const char* text) {
    for (QAction* action : menu.actions())
        if (QString(action->text()).remove(u'&').startsWith(QString::fromUtf8(text)))
            return action;
    throw std::runtime_error(text);
}

TEST_F(Undo, KeysUndoTypedTextFirstThenEdits) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        auto* spin = program.OnScreen([&] { return program.Named<QDoubleSpinBox>("Bubblehelp wait time"); });
        auto* box = program.OnScreen([&] { return program.Named<QCheckBox>("Use Bubblehelp"); });
        const auto type = [&](const char* text) {
            spin->setFocus();
            spin->selectAll();
            QTest::keyClicks(spin, QString::fromUtf8(text));
        };
        program.OnScreen([&] {
            type("3000000");
            box->setFocus();
            QTest::keyClick(box, Qt::Key_Space);
            type("12");  // no value yet
            Key(spin, Qt::CTRL | Qt::Key_Z);
            EXPECT_EQ(spin->text(), QStringLiteral("3000000"));
        });
        const struct {
            QKeyCombination key;
            bool on;
            float time;
        } steps[] = {{Qt::CTRL | Qt::Key_Z, true, 3000000},
                     {Qt::CTRL | Qt::Key_Z, true, 2000000},
                     {Qt::CTRL | Qt::Key_Z, true, 2000000},
                     {Qt::CTRL | Qt::SHIFT | Qt::Key_Z, true, 3000000},
                     {Qt::CTRL | Qt::Key_Y, false, 3000000}};
        for (const auto& step : steps) {
            program.OnScreen([&] { Key(spin, step.key); });
            EXPECT_EQ(_bubblehelp->Value(), step.on);
            EXPECT_EQ(_bubbletime->Value(), step.time);
            EXPECT_TRUE(program.Eventually([&] {
                return box->isChecked() == step.on && static_cast<float>(spin->value()) == step.time;
            }));
        }
    });
}

TEST_F(Undo, TypedPathsComeBackByRedo) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(1);
        auto* line = program.OnScreen([&] { return program.Named<QLineEdit>("Low level: bitmap"); });
        const struct {
            const char* typed;
            QKeyCombination key;
            const char* path;
        } steps[] = {{"/a", Qt::Key_Return, "/a"},        {"bc", Qt::Key_Shift, "/abc"},
                     {"", Qt::CTRL | Qt::Key_Z, "/a"},    {"", Qt::CTRL | Qt::Key_Z, ""},
                     {"", Qt::CTRL | Qt::Key_Y, "/a"},    {"", Qt::CTRL | Qt::Key_Y, "/abc"},
                     {"d", Qt::CTRL | Qt::Key_Z, "/abc"}, {"", Qt::CTRL | Qt::Key_Y, "/abcd"}};
        for (const auto& step : steps) {
            program.OnScreen([&] {
                line->setFocus();
                QTest::keyClicks(line, QString::fromUtf8(step.typed));
                Key(line, step.key);
            });
            EXPECT_TRUE(program.Eventually([&] { return line->text() == QLatin1String(step.path); }))
                << step.path;
            EXPECT_EQ(_backgrounds[0]->Path(), step.path);
        }
    });
}

TEST_F(Undo, MarksLastUntilTheValueIsSettled) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(0);
        const auto is_marked = [&](bool marked) {
            return program.Eventually([&] {
                QWidget* field = program.Named<QWidget>("Dark edges");
                const QPoint dot = field->mapTo(program.Top(), QPoint(-4, field->height() / 2));
                const QColor seen = program.Top()->grab().toImage().pixelColor(dot);
                const QString row =
                    program.Categories()->item(0)->data(Qt::AccessibleDescriptionRole).toString();
                return field->accessibleDescription().endsWith(QStringLiteral(", changed")) == marked &&
                       (row == QStringLiteral("changed")) == marked &&
                       (seen.red() > 2 * seen.green()) == marked;
            });
        };
        EXPECT_TRUE(is_marked(false));
        _colors[KS_PEN_DARK]->EditColor({1, 2, 3});
        EXPECT_TRUE(is_marked(true));
        program.PostMessage(NCApplication::kApply);
        EXPECT_TRUE(is_marked(false));
        program.OnScreen([&] { Key(program.Top(), Qt::CTRL | Qt::Key_Z); });
        EXPECT_TRUE(is_marked(true));
    });
}

TEST_F(Undo, EditorsCopyPasteAndRevertByTheirMenus) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        auto* look = program.OnScreen([&] { return program.Named<QComboBox>("Look"); });
        const auto open = [&] {
            program.OnScreen([&] {
                look->setFocus();
                Key(look, Qt::SHIFT | Qt::Key_F10);
            });
            return program.OpenedDialog<QMenu>();
        };
        const auto choose = [&](QMenu* menu, const char* text) {
            program.OnScreen([=] {
                EXPECT_TRUE(Entry(*menu, text)->isEnabled()) << text;
                Entry(*menu, text)->trigger();
                menu->close();
            });
            EXPECT_TRUE(program.Eventually([&] { return !look->findChild<QMenu*>(); }));
        };
        QMenu* menu = open();
        program.OnScreen([&] {
            for (const char* text : {"Undo", "Redo", "Revert this"})
                EXPECT_FALSE(Entry(*menu, text)->isEnabled()) << text;
        });
        choose(menu, "Copy");
        program.OnScreen([] {
            EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("BeOS"));
            QApplication::clipboard()->setText(QStringLiteral(" Nymbrel\n"));
        });
        for (const auto& [text, selection] : {std::pair("Paste", 1), std::pair("Undo", 0),
                                              std::pair("Redo", 1), std::pair("Revert this", 0)}) {
            choose(open(), text);
            EXPECT_EQ(_look->CurrentSelection(), selection) << text;
        }
    });
}

}  // namespace
