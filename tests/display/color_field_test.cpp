// SPDX-License-Identifier: MIT
// Colour fields: their dialog, and colours dropped on them.
#include "tests/display/shown_program.h"

#include <QColorDialog>

using namespace config;

namespace {

class ColorField : public Shown {};

TEST_F(ColorField, TakesTheDialogsColorWithAlphaAndADroppedOne) {
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
