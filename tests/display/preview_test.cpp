// SPDX-License-Identifier: MIT
// The preview: how it is opened and closed, and how a pair is mended.
#include "tests/display/shown_program.h"

#include <QColorDialog>
#include <QScreen>

using namespace config;

namespace {

class Preview : public Shown {};

TEST_F(Preview, OpensByItselfWhereThereIsRoomUntilTheUserDoes) {
    ShownProgram::Run([](ShownProgram& program) {
        const auto is_open = [&] {
            const auto lists = program.Top()->findChildren<QListWidget*>();
            return std::ranges::any_of(lists, [](const QListWidget* list) {
                return list->accessibleName() == u"Pairs of colours" && list->isVisible();
            });
        };
        const auto press = [&](Qt::Key key) {
            program.OnScreen([&] { QTest::keyClick(program.Top(), key); });
        };
        program.Open(0);
        const int least = program.OnScreen([&] { return program.Top()->minimumWidth(); });
        struct row {
            int wider;
            bool opens;
        };
        for (const auto& [wider, opens] :
             {row{0, false}, {269, false}, {270, true}, {200, false}, {400, true}}) {
            program.OnScreen([&] { program.Top()->resize(least + wider, 600); });
            EXPECT_EQ(program.OnScreen(is_open), opens) << wider;
        }
        press(Qt::Key_F9);
        EXPECT_FALSE(program.OnScreen(is_open));
        program.OnScreen([&] { program.Top()->resize(least + 500, 600); });
        EXPECT_FALSE(program.OnScreen(is_open));
        program.OnScreen([&] { program.Top()->resize(least, 600); });
        program.OnScreen([&] { program.Named<QAbstractButton>("Show the preview")->click(); });
        EXPECT_TRUE(program.OnScreen(is_open));
        // As wide as it needs to be, or as the screen is without the window's frame.
        program.OnScreen([&] {
            const QRect screen = program.Top()->screen()->availableGeometry();
            EXPECT_GE(program.Top()->width(), std::min(least + 270, screen.width() - 8));
            EXPECT_TRUE(screen.contains(program.Top()->geometry()));
        });
        press(Qt::Key_F9);
        EXPECT_EQ(program.OnScreen([&] { return program.Top()->width(); }), least);
    });
}

TEST_F(Preview, MendsAPairInTheDialogOfItsInk) {
    ShownProgram::Run([](ShownProgram& program) {
        const ks_color hard(230, 230, 220);
        _colors[KS_PEN_MARK]->SetColor(hard, false, false);
        program.OnScreen([&] { QTest::keyClick(program.Top(), Qt::Key_F9); });
        program.OnScreen([&] {
            auto* pairs = program.Named<QListWidget>("Pairs of colours");
            EXPECT_TRUE(pairs->item(0)->text().startsWith(QStringLiteral("Marks on ")));
            EXPECT_TRUE(pairs->item(0)->text().endsWith(QStringLiteral(", too low")));
            ShownProgram::ClickRow(pairs, 0);
        });
        auto* dialog = program.OpenedDialog<QColorDialog>();
        program.OnScreen([&] {
            EXPECT_LT(dialog->currentColor().lightness(), 170);
            dialog->reject();
        });
        EXPECT_EQ(_colors[KS_PEN_MARK]->Color(), hard);
    });
}

}  // namespace
