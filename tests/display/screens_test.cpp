// SPDX-License-Identifier: MIT
// That the window fits its screen, whatever its texts are.
#include "display/screen_fit.h"
#include "display/shown_text.h"
#include "tests/display/shown_program.h"

#include <QScreen>

namespace {

TEST(Screens, PlaceAWindowAndItsFrameInside) {
    constexpr QRect kSmall(0, 0, 800, 480), kSecond(1024, 24, 1024, 576);
    const struct {
        QRect screen;
        QPoint start;
        QSize wanted;
        QRect place;
    } rows[] = {
        {{0, 0, 1280, 900}, {100, 100}, {650, 510}, {100, 100, 650, 510}},
        {kSmall, {100, 100}, {650, 510}, {100, 0, 650, 444}},
        {kSmall, {-50, 9000}, {100, 100}, {0, 344, 100, 100}},
        {kSecond, {100, 100}, {650, 510}, {1024, 54, 650, 510}},
        {kSecond, {2000, 0}, {9999, 9999}, {1024, 24, 1016, 540}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(PlaceIn(row.screen, row.start, row.wanted), row.place) << row.place.top();
}

TEST(Screens, CutLongTextsAndTellThemInATip) {
    const QString word(70, u'w'), words = QStringLiteral("%1 %2").arg(word.left(40), word.left(45));
    EXPECT_EQ(ShownText(word), word.left(59) + u'…');
    EXPECT_EQ(ShownText(word, true).size(), 60);
    EXPECT_EQ(ShownText(words, true), words);
    EXPECT_EQ(ShownText(QStringLiteral("a\nb")), QStringLiteral("a b"));
    EXPECT_EQ(CutText(QStringLiteral("ab😀cd"), 4), QStringLiteral("ab…"));
    EXPECT_EQ(TipFor(words, words), QString());
    EXPECT_TRUE(TipFor(words + word, ShownText(words + word)).contains(word.left(45)));
}

class Screen : public Shown {};

TEST_F(Screen, HoldsAWindowWithTextsOfAnyLength) {
    std::string catalog;
    for (int id = 1; id <= 52; ++id)
        catalog += std::to_string(id) + " " + (id == 1 ? "OK" : std::string(id % 2 ? 300 : 5000, 'W')) + "\n";
    home.Write(home.CatalogsDirectory() / "long/NymbrelConfig.catalog", catalog);
    home.Write(home.SettingsFile(), "LANGUAGE = long\n");
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        program.OnScreen([&] {
            QWidget* top = program.Top();
            const QRect screen = top->screen()->availableGeometry();
            EXPECT_TRUE(screen.contains(top->geometry()));
            const QWidget* ok = program.Button("OK");
            EXPECT_TRUE(screen.contains(QRect(ok->mapToGlobal(QPoint()), ok->size())));
            EXPECT_LE(top->minimumWidth(), screen.width());
        });
    });
}

TEST_F(Screen, ScrollsAPageOrGivesItsListsTheSpareHeight) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        program.OnScreen([&] { program.Top()->resize(1, 1); });
        program.OnScreen([&] {
            EXPECT_LT(program.Top()->height(), 400);
            QWidget* last = program.Button("Reset colors");
            EXPECT_NE(last->visibleRegion().boundingRect(), last->rect());
            last->setFocus();
            EXPECT_EQ(last->visibleRegion().boundingRect(), last->rect());
        });
        program.OnScreen([&] { program.Top()->resize(700, 1500); });
        program.OnScreen([&] {
            EXPECT_GT(program.Named<QListWidget>("Language")->height(), 800);
            EXPECT_GT(program.Categories()->height(), 1200);
            EXPECT_GT(program.Button("OK")->mapTo(program.Top(), QPoint()).y(), 1400);
        });
    });
}

}  // namespace
