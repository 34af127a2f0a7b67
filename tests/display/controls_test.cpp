// SPDX-License-Identifier: MIT
// Spin boxes, check boxes, cycles and lists: what the user does arrives, what the program sets is seen.
#include "tests/display/shown_program.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QWheelEvent>

using namespace config;

namespace {

class Controls : public Shown {};

void Wheel(QWidget* widget, int steps) {
    QWheelEvent event(QPointF(3, 3), widget->mapToGlobal(QPointF(3, 3)), {}, QPoint(0, 120 * steps),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(widget, &event);
}

// Shows the page of options and gives the bubble help's time the keyboard.
QDoubleSpinBox* OpenWaitTime(ShownProgram& program) {
    program.Open(3);
    auto* spin = program.OnScreen([&] { return program.Named<QDoubleSpinBox>("Bubblehelp wait time"); });
    program.OnScreen([&] { spin->setFocus(); });
    EXPECT_TRUE(program.Eventually([&] { return spin->hasFocus(); }));
    return spin;
}

TEST_F(Controls, SpinBoxStepsByKeysAndWheel) {
    ShownProgram::Run([](ShownProgram& program) {
        QDoubleSpinBox* spin = OpenWaitTime(program);
        const auto key = [&](Qt::Key code) { return [=] { QTest::keyClick(spin, code); }; };
        const std::pair<std::function<void()>, float> steps[] = {
            {key(Qt::Key_Up), 2100000},          {key(Qt::Key_PageUp), 3100000},
            {key(Qt::Key_PageDown), 2100000},    {[&] { Wheel(spin, 1); }, 2200000},
            {[&] { Wheel(spin, -2); }, 2000000}, {key(Qt::Key_PageDown), 1000000},
            {key(Qt::Key_PageDown), 500000},
        };
        for (const auto& [act, want] : steps) {
            program.OnScreen(act);
            EXPECT_EQ(_bubbletime->Value(), want);
        }
        _bubbletime->SetValue(99e6f);
        EXPECT_TRUE(program.Eventually([&] { return spin->value() == 10e6; }));
    });
}

// What stands in the field when a command is given is what is stored, moved into the bounds.
TEST_F(Controls, TypedNumberIsLeftAloneAndTakenOverByACommand) {
    ShownProgram::Run([&](ShownProgram& program) {
        QDoubleSpinBox* spin = OpenWaitTime(program);
        program.OnScreen([&] {
            spin->selectAll();
            QTest::keyClicks(spin, QStringLiteral("12"));
        });
        _mousetime->SetValue(20000);
        ch_dimen->ResetLayout(true, true);
        EXPECT_TRUE(program.Eventually(
            [&] { return program.Named<QDoubleSpinBox>("Mouse hold time")->value() == 20000; }));
        EXPECT_EQ(program.OnScreen([&] { return spin->text(); }), QStringLiteral("12")) << "it is typed on";
        long applied = 0;
        for (const auto& [typed, stored] : {std::pair("1234567", "1234567"), std::pair("7", "500000"),
                                            std::pair("99999999", "10000000"), std::pair("", "10000000")}) {
            program.OnScreen([&] {
                spin->selectAll();
                QTest::keyClick(spin, Qt::Key_Delete);
                QTest::keyClicks(spin, QString::fromUtf8(typed));
                // A mnemonic presses the button without taking the keyboard.
                program.Button("Apply")->click();
                EXPECT_TRUE(spin->hasFocus());
                EXPECT_EQ(spin->text().toStdString(), stored) << typed;
            });
            ASSERT_TRUE(program.WaitForMessage(NCApplication::kApply, ++applied));
            EXPECT_NE(home.Read(home.SettingsFile()).find("BUBBLEHELPTIME = " + std::string(stored) + "\n"),
                      std::string::npos)
                << typed;
        }
    });
}

TEST_F(Controls, CheckBoxCycleAndListGoBothWays) {
    std::filesystem::create_directories(home.CatalogsDirectory() / "deutsch");
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        auto* box = program.OnScreen([&] { return program.Named<QCheckBox>("Use Bubblehelp"); });
        const auto combo = [&] { return program.Named<QComboBox>("Look"); };
        const auto list = [&] { return program.Named<QListWidget>("Language"); };
        program.OnScreen([&] {
            Wheel(program.Named<QDoubleSpinBox>("Bubblehelp wait time"), 1);  // neither has the keyboard
            Wheel(combo(), -1);
            EXPECT_EQ(combo()->currentIndex(), 0);
            QTest::keyClick(box, Qt::Key_Space);
            QTest::keyClick(combo(), Qt::Key_Down);
            ShownProgram::ClickRow(list(), 1);
        });
        EXPECT_EQ(_bubbletime->Value(), 2000000);
        EXPECT_FALSE(_bubblehelp->Value());
        EXPECT_EQ(_look->CurrentSelection(), 1);
        EXPECT_EQ(_llist->CurrentSelection(), 1);

        _bubblehelp->SetLabel("Balloons", true);
        _bubblehelp->SetValue(true);
        _look->SelectLabel("BeOS");
        _llist->Select(0, false);
        EXPECT_TRUE(program.Eventually([&] {
            return box->isChecked() && box->accessibleName() == u"Balloons" && combo()->currentIndex() == 0 &&
                   list()->item(0)->isSelected();
        }));
    });
}

TEST_F(Controls, CategoriesChangeThePageAndStayWhenDeselected) {
    ShownProgram::Run([](ShownProgram& program) {
        for (const int category : {2, 0, 3, 1})
            program.Open(category);
        program.OnScreen([&] {
            ShownProgram::ClickRow(program.Categories(), 1, Qt::ControlModifier);
            EXPECT_TRUE(program.Categories()->selectedItems().isEmpty());
        });
        EXPECT_FALSE(ch_background->IsHidden());
        program.OnScreen([&] { EXPECT_TRUE(program.Named<QWidget>("Low level")->isVisible()); });
        program.OnScreen([&] { QTest::keyClick(program.Categories(), Qt::Key_Home); });
        EXPECT_FALSE(ch_pen->IsHidden()) << "by the keyboard, too";
    });
}

}  // namespace
