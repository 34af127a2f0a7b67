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
        QWidget* const top = program.OnScreen([&] { return program.Top(); });
        const auto is_open_after = [&](auto change) {
            program.OnScreen(change);
            return program.OnScreen([&] {
                const QWidget* last = top->findChildren<QListWidget*>().back();
                return last->accessibleName() == u"Pairs of colours" && last->isVisible();
            });
        };
        const auto is_open_at = [&](int width) { return is_open_after([=] { top->resize(width, 600); }); };
        const auto press = [&] { QTest::keyClick(top, Qt::Key_F9); };
        program.Open(0);
        EXPECT_FALSE(is_open_after([] {}));
        const int least = program.OnScreen([=] { return top->minimumWidth(); });
        for (const auto& [wider, opens] : {std::pair(269, false), {270, true}, {200, false}, {400, true}})
            EXPECT_EQ(is_open_at(least + wider), opens) << wider;
        EXPECT_FALSE(is_open_after(press));
        EXPECT_FALSE(is_open_at(least + 500) || is_open_at(least));
        EXPECT_TRUE(is_open_after([&] { program.Named<QAbstractButton>("Show the preview")->click(); }));
        // As wide as it needs to be, or as the screen is without the window's frame.
        program.OnScreen([=] {
            const QRect screen = top->screen()->availableGeometry();
            EXPECT_GE(top->width(), std::min(least + 270, screen.width() - 8));
            EXPECT_TRUE(screen.contains(top->geometry()));
        });
        EXPECT_FALSE(is_open_after(press) || program.OnScreen([=] { return top->width(); }) != least);
    });
}

TEST_F(Preview, MendsAPairInTheDialogOfItsInk) {
    ShownProgram::Run([](ShownProgram& program) {
        const ks_color hard(230, 230, 220);
        _colors[KS_PEN_MARK]->SetColor(hard, false, false);
        program.OnScreen([&] {
            QTest::keyClick(program.Top(), Qt::Key_F9);
            auto* pairs = program.Named<QListWidget>("Pairs of colours");
            const QString worst = pairs->item(0)->text();
            EXPECT_TRUE(worst.startsWith(u"Marks on ") && worst.endsWith(u", Hard to read"));
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
