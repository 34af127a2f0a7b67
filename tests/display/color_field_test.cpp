// SPDX-License-Identifier: MIT
// Colour fields: what they show, their dialog, and colours dropped on them.
#include "tests/display/shown_program.h"

#include <QColorDialog>
#include <QImage>

using namespace config;

namespace {

class ColorField : public Shown {};

TEST_F(ColorField, ShowsWhatTheProgramSets) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(0);
        const auto color_at = [&](int x) {
            QWidget* field = program.Named<QWidget>("Disabled Text");
            return field->grab().toImage().pixelColor(x, field->height() / 2);
        };
        _colors[KS_PEN_DISABLEDTEXT]->SetColor(ks_color(12, 200, 99), false, false);
        EXPECT_TRUE(program.Eventually([&] { return color_at(9) == QColor(12, 200, 99); }));
        // A transparent colour lets a checker through: its two shades, not one colour.
        _colors[KS_PEN_DISABLEDTEXT]->SetColor(ks_color(255, 0, 0, 128), false, false);
        EXPECT_TRUE(program.Eventually([&] {
            return color_at(4).red() > 200 && color_at(4).green() > 50 && color_at(4) != color_at(9);
        }));
    });
}

TEST_F(ColorField, TakesTheDialogsColorWithAlpha) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(0);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            _colors[KS_PEN_TEXT]->SetColor(ks_color(9, 9, 9), false, false);
            program.OnScreen([&] { QTest::keyClick(program.Named<QWidget>("Default color and Text"), key); });
            auto* dialog = program.OpenedDialog<QColorDialog>();
            program.OnScreen([&] {
                EXPECT_TRUE(dialog->testOption(QColorDialog::ShowAlphaChannel));
                dialog->setCurrentColor(QColor(10, 20, 30, 40));
                QTest::keyClick(dialog, Qt::Key_Return);
            });
            EXPECT_EQ(_colors[KS_PEN_TEXT]->Color(), ks_color(10, 20, 30, 40));
            program.WaitUntilDialogIsClosed();
        }
    });
}

TEST_F(ColorField, TakesADroppedColor) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(0);
        program.OnScreen([&] {
            QMimeData color, other;
            color.setColorData(QColor(1, 2, 3, 4));
            other.setText(QStringLiteral("no colour"));
            QWidget* field = program.Named<QWidget>("Shining edges");
            EXPECT_FALSE(ShownProgram::Drop(field, other));
            EXPECT_TRUE(ShownProgram::Drop(field, color));
        });
        EXPECT_EQ(_colors[KS_PEN_SHINE]->Color(), ks_color(1, 2, 3, 4));
    });
}

}  // namespace
