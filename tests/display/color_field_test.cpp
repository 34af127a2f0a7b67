// SPDX-License-Identifier: MIT
// Colour fields: what they show, their dialog, and colours dropped on them.
#include "tests/display/shown_program.h"

#include <QColorDialog>
#include <QImage>
#include <QMimeData>

using namespace config;

namespace {

class ColorField : public Shown {};

QColor MiddleOf(QWidget* widget) {
    return widget->grab().toImage().pixelColor(widget->rect().center());
}

TEST_F(ColorField, ShowsWhatTheProgramSets) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(0);
        _colors[KS_PEN_DISABLEDTEXT]->SetColor(ks_color(12, 200, 99), false, false);
        EXPECT_TRUE(program.Eventually(
            [&] { return MiddleOf(program.Named<QWidget>("Disabled Text")) == QColor(12, 200, 99); }));
        // A transparent colour lets a checker through: its two shades, not one colour.
        _colors[KS_PEN_DISABLEDTEXT]->SetColor(ks_color(255, 0, 0, 128), false, false);
        EXPECT_TRUE(program.Eventually([&] {
            const QImage image = program.Named<QWidget>("Disabled Text")->grab().toImage();
            QColor first = image.pixelColor(4, 4);
            return first.red() > 200 && first.green() > 50 && first != image.pixelColor(9, 4);
        }));
    });
}

TEST_F(ColorField, TakesTheDialogsColorWithAlpha) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(0);
        for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return}) {
            _colors[KS_PEN_TEXT]->SetColor(ks_color(9, 9, 9), false, false);
            program.OnScreen([&] { QTest::keyClick(program.Named<QWidget>("Default color and Text"), key); });
            QColorDialog* dialog = nullptr;
            ASSERT_TRUE(program.Eventually([&] {
                dialog = program.Top()->findChild<QColorDialog*>();
                return dialog && dialog->isVisible();
            }));
            program.OnScreen([&] {
                EXPECT_TRUE(dialog->testOption(QColorDialog::ShowAlphaChannel));
                dialog->setCurrentColor(QColor(10, 20, 30, 40));
                QTest::keyClick(dialog, Qt::Key_Return);
            });
            EXPECT_EQ(_colors[KS_PEN_TEXT]->Color(), ks_color(10, 20, 30, 40));
            ASSERT_TRUE(program.Eventually([&] { return !program.Top()->findChild<QColorDialog*>(); }));
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
