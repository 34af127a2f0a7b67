// SPDX-License-Identifier: MIT
// Spin boxes, check boxes, cycles and lists: what the user does arrives, what the program sets is seen.
#include "tests/display/shown_program.h"
#include "toolkit/KSListView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QWheelEvent>

using namespace config;

namespace {

class Controls : public Shown {};

constexpr const char* kWaitTime = "Bubblehelp wait time";

void Wheel(QWidget* widget, int steps) {
    QWheelEvent event(QPointF(3, 3), widget->mapToGlobal(QPointF(3, 3)), {}, QPoint(0, 120 * steps),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

// Gives a widget the keyboard.
void Focus(ShownProgram& program, const std::function<QWidget*()>& widget) {
    program.OnScreen([&] { widget()->setFocus(); });
    ASSERT_TRUE(program.Eventually([&] { return widget()->hasFocus(); }));
}

TEST_F(Controls, SpinBoxStepsByKeysAndWheel) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        const auto spin = [&] { return program.Named<QDoubleSpinBox>(kWaitTime); };
        Focus(program, spin);
        const struct {
            std::function<void()> act;
            float want;
        } steps[] = {
            {[&] { QTest::keyClick(spin(), Qt::Key_Up); }, 2100000},
            {[&] { QTest::keyClick(spin(), Qt::Key_PageUp); }, 3100000},
            {[&] { QTest::keyClick(spin(), Qt::Key_PageDown); }, 2100000},
            {[&] { Wheel(spin(), 1); }, 2200000},
            {[&] { Wheel(spin(), -2); }, 2000000},
            {[&] {
                 QTest::keyClick(spin(), Qt::Key_PageDown);
                 QTest::keyClick(spin(), Qt::Key_PageDown);
             },
             500000},
        };
        for (const auto& step : steps) {
            program.OnScreen(step.act);
            EXPECT_EQ(_bubbletime->Value(), step.want);
        }
        _bubbletime->SetValue(99e6f);
        EXPECT_EQ(_bubbletime->Value(), 10e6f);
        EXPECT_TRUE(program.Eventually([&] { return spin()->value() == 10e6; }));
    });
}

TEST_F(Controls, WheelOverWhatIsNotUsedChangesNothing) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        program.OnScreen([&] {
            Wheel(program.Named<QDoubleSpinBox>(kWaitTime), 1);
            Wheel(program.Named<QComboBox>("Look"), -1);
        });
        EXPECT_EQ(_bubbletime->Value(), 2000000);
        EXPECT_EQ(_look->CurrentSelection(), 0);
    });
}

// What stands in the field when a command is given is what is stored, moved into the bounds.
TEST_F(Controls, TypedNumberIsTakenOverByACommand) {
    const struct {
        const char* typed;
        const char* stored;
    } cases[] = {{"1234567", "1234567"}, {"7", "500000"}, {"99999999", "10000000"}, {"", "10000000"}};
    ShownProgram::Run([&](ShownProgram& program) {
        program.Open(3);
        const auto spin = [&] { return program.Named<QDoubleSpinBox>(kWaitTime); };
        Focus(program, spin);
        long applied = 0;
        for (const auto& test : cases) {
            program.OnScreen([&] {
                spin()->selectAll();
                QTest::keyClick(spin(), Qt::Key_Delete);
                QTest::keyClicks(spin(), QString::fromUtf8(test.typed));
                // A mnemonic presses the button without taking the keyboard.
                program.Button("Apply")->click();
                EXPECT_TRUE(spin()->hasFocus());
                EXPECT_EQ(spin()->text().toStdString(), test.stored) << test.typed;
            });
            ASSERT_TRUE(program.WaitForMessage(NCApplication::kApply, ++applied));
            EXPECT_NE(ScopedHome::Read(home.SettingsFile())
                          .find("BUBBLEHELPTIME = " + std::string(test.stored) + "\n"),
                      std::string::npos)
                << test.typed;
        }
    });
}

TEST_F(Controls, TypingIsNotDisturbedByWhatTheProgramDoes) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        const auto spin = [&] { return program.Named<QDoubleSpinBox>(kWaitTime); };
        program.OnScreen([&] {
            spin()->selectAll();
            QTest::keyClicks(spin(), QStringLiteral("12"));
        });
        _mousetime->SetValue(20000);
        ch_dimen->ResetLayout(true, true);
        EXPECT_TRUE(program.Eventually(
            [&] { return program.Named<QDoubleSpinBox>("Mouse hold time")->value() == 20000; }));
        program.OnScreen([&] { EXPECT_EQ(spin()->text(), QStringLiteral("12")); });
    });
}

TEST_F(Controls, CheckBoxAndCycleGoBothWays) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        const auto box = [&] { return static_cast<QCheckBox*>(program.Button("Use Bubblehelp")); };
        const auto combo = [&] { return program.Named<QComboBox>("Look"); };
        program.OnScreen([&] {
            QTest::keyClick(box(), Qt::Key_Space);
            QTest::keyClick(combo(), Qt::Key_Down);
        });
        EXPECT_FALSE(_bubblehelp->Value());
        EXPECT_EQ(_look->CurrentSelection(), 1);

        _bubblehelp->SetValue(true);
        _look->SelectLabel("BeOS");
        EXPECT_TRUE(program.Eventually([&] { return box()->isChecked() && combo()->currentIndex() == 0; }));
    });
}

TEST_F(Controls, CategoriesChangeThePageAndStayWhenDeselected) {
    ShownProgram::Run([](ShownProgram& program) {
        for (const int category : {2, 0, 3, 1})
            program.Open(category);
        program.OnScreen([&] {
            QListWidget* list = program.Categories();
            ShownProgram::ClickRow(list, 1, Qt::ControlModifier);
            EXPECT_TRUE(list->selectedItems().isEmpty());
        });
        EXPECT_FALSE(ch_background->IsHidden());
        program.OnScreen([&] { EXPECT_TRUE(program.Named<QWidget>("Low level")->isVisible()); });
        // By the keyboard, too.
        program.OnScreen([&] { QTest::keyClick(program.Categories(), Qt::Key_Home); });
        EXPECT_FALSE(ch_pen->IsHidden());
    });
}

TEST_F(Controls, ListItemsDrawThemselves) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(1);
        program.OnScreen([&] {
            QListWidget* list = program.Categories();
            const QImage image = list->viewport()->grab().toImage();
            const auto corner = [&](int row) {
                return image.pixelColor(list->visualItemRect(list->item(row)).topLeft() + QPoint(3, 3));
            };
            EXPECT_NE(corner(1), corner(0));
            EXPECT_EQ(corner(2), corner(0));
            // The text starts 8 pixels from the left edge: nothing stands before it, something behind.
            const QRect row = list->visualItemRect(list->item(0));
            const auto is_plain = [&](int from, int to) {
                for (int x = from; x < to; ++x)
                    for (int y = row.top() + 1; y < row.bottom(); ++y)
                        if (image.pixelColor(x, y) != corner(0))
                            return false;
                return true;
            };
            EXPECT_TRUE(is_plain(row.left() + 1, row.left() + 8));
            EXPECT_FALSE(is_plain(row.left() + 8, row.left() + 18));
        });
    });
}

TEST_F(Controls, DeselectedLanguageFallsBackToEnglish) {
    std::filesystem::create_directories(home.CatalogsDirectory() / "deutsch");
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        const auto list = [&] { return program.Named<QListWidget>("Language"); };
        program.OnScreen([&] { ShownProgram::ClickRow(list(), 1); });
        EXPECT_EQ(_llist->CurrentSelection(), 1);
        program.OnScreen([&] { ShownProgram::ClickRow(list(), 1, Qt::ControlModifier); });
        EXPECT_TRUE(program.Eventually([&] { return list()->item(0)->isSelected(); }));
        EXPECT_EQ(_llist->CurrentSelection(), 0);
    });
}

}  // namespace
