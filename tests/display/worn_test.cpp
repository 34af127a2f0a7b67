// SPDX-License-Identifier: MIT
// The window wears what is edited: each pen at its places, at once, and still readable where it should not
// be.
#include "display/contrast.h"
#include "tests/display/shown_program.h"

#include <QAccessible>
#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>

#include <map>
#include <set>

using namespace config;

namespace {

class WornLook : public Shown {};

enum Place { kPens, kBackgrounds, kFonts, kOptions, kMarkedNumber, kCursor, kFontPanel };

struct SeenPen {
    ks_pen pen;
    Place place;
    bool only_nymbrel = false;
};

constexpr SeenPen kSeen[] = {
    {KS_PEN_BG_LOW, kPens},
    {KS_PEN_BG_MED, kPens},
    {KS_PEN_BG_MED, kBackgrounds},
    {KS_PEN_BG_HIGH, kOptions},
    {KS_PEN_BG_EDIT, kBackgrounds},
    {KS_PEN_BG_EDIT, kOptions},
    {KS_PEN_BG_READ, kFontPanel},
    {KS_PEN_BG_LIST, kFonts},
    {KS_PEN_BG_BUTTON, kOptions},
    {KS_PEN_BG_SLIDER, kFontPanel},
    {KS_PEN_BG_SELECTED, kFonts},
    {KS_PEN_TEXT, kBackgrounds},
    {KS_PEN_DISABLEDTEXT, kOptions},
    {KS_PEN_TEXT_FG_CURSOR, kCursor},
    {KS_PEN_TEXT_BG_CURSOR, kCursor},
    {KS_PEN_TEXT_FG_MARKED, kMarkedNumber},
    {KS_PEN_TEXT_BG_MARKED, kMarkedNumber},
    {KS_PEN_SHINE, kPens},
    {KS_PEN_HALFSHINE, kBackgrounds},
    {KS_PEN_HALFDARK, kFonts},
    {KS_PEN_DARK, kOptions},
    {KS_PEN_MARK, kOptions},
    {KS_PEN_MARK, kPens},
    {KS_PEN_PAINT, kPens, true},
    {KS_PEN_PAINTSHINE, kOptions, true},
    {KS_PEN_PAINTDARK, kFonts, true},
};

// Levels are light and inks are dark, so that nothing has to be corrected.
ks_color ColorOf(int pen) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    const bool is_level = pen <= KS_PEN_BG_SELECTED || pen == KS_PEN_TEXT_BG_MARKED ||
                          pen == KS_PEN_TEXT_FG_CURSOR || pen >= KS_PEN_PAINTSHINE;
    return is_level ? ks_color(byte(200 + pen), 255, byte(190 + 2 * pen)) : ks_color(byte(2 * pen), 9, 40);
}

void SetPens(const std::function<ks_color(int)>& color) {
    for (int pen = 0; pen < KS_PEN_NONE; ++pen)
        _colors[pen]->SetColor(color(pen), false, false);
}

// The colours that are seen of a widget, without the samples that show what is edited.
std::set<QRgb> ColorsOf(QWidget* widget) {
    QImage image = widget->grab().toImage();
    for (auto* button : widget->findChildren<QAbstractButton*>())
        if (button->isVisible() &&
            QAccessible::queryAccessibleInterface(button)->role() == QAccessible::ColorChooser)
            QPainter(&image).fillRect(QRect(button->mapTo(widget, QPoint()), button->size()), Qt::white);
    std::set<QRgb> colors;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            colors.insert(image.pixel(x, y));
    return colors;
}

TEST_F(WornLook, ShowsEachPenAtItsPlaces) {
    ShownProgram::Run([](ShownProgram& program) {
        SetPens(ColorOf);
        _backgrounds[0]->SetText("\u2588\u2588", false);
        _bubbletime->SetValue(10e6f);  // the arrow up has no use now
        for (const int look : {0, 1}) {
            _look->SelectLabel(kLookLabels[look]);
            std::map<Place, std::set<QRgb>> seen;
            const auto see = [&](
                                 Place place, const std::function<void()>& prepare = [] {}) {
                program.OnScreen([&] {
                    prepare();
                    seen[place] = ColorsOf(program.Top());
                });
            };
            for (const Place page : {kPens, kBackgrounds, kFonts, kOptions}) {
                program.Open(page);
                see(page);
            }
            see(kMarkedNumber, [&] {
                auto* spin = program.Named<QDoubleSpinBox>("Mouse hold time");
                spin->setFocus();
                spin->selectAll();
            });
            program.Open(kBackgrounds);
            see(kCursor, [&] {
                auto* line = program.Named<QLineEdit>("Low level: bitmap");
                line->setFocus();
                line->home(false);
            });
            program.Open(kFonts);
            program.OnScreen([&] { program.Named<QAbstractButton>("Normal")->click(); });
            auto* panel = program.OpenedDialog<QDialog>();
            program.OnScreen([&] {
                program.Named<QLineEdit>("Search", panel)->setEnabled(false);
                seen[kFontPanel] = ColorsOf(panel);
                panel->reject();
            });
            program.WaitUntilDialogIsClosed();
            for (const SeenPen& row : kSeen) {
                const ks_color color = ColorOf(row.pen);
                EXPECT_TRUE(seen[row.place].contains(qRgb(color.red, color.green, color.blue)) ||
                            (row.only_nymbrel && look == 0))
                    << "pen " << row.pen << " at " << row.place << " in look " << look;
            }
        }
    });
}

// The contrast of what stands out most with what is there most.
double ContrastIn(const QImage& image) {
    std::map<QRgb, int> count;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ++count[image.pixel(x, y)];
    const QColor ground =
        std::ranges::max_element(count, {}, [](const auto& entry) { return entry.second; })->first;
    double best = 1;
    for (const auto& [color, times] : count)
        best = std::max(best, Contrast(color, ground));
    return best;
}

TEST_F(WornLook, CanBeReadWhateverIsChosen) {
    ShownProgram::Run([](ShownProgram& program) {
        for (const ks_color color : {ks_color(255, 255, 255), ks_color(0, 0, 0), ks_color(90, 90, 90, 0),
                                     ks_color(255, 0, 0), ks_color(119, 119, 119)}) {
            SetPens([&](int) { return color; });
            for (const int page : {0, 1, 2, 3}) {
                program.Open(page);
                program.OnScreen([&] {
                    const QImage window = program.Top()->grab().toImage();
                    for (auto* widget : program.Top()->findChildren<QWidget*>()) {
                        const auto* label = dynamic_cast<QLabel*>(widget);
                        const auto* button = dynamic_cast<QAbstractButton*>(widget);
                        if (!widget->isVisible() ||
                            !((label && !label->text().isEmpty()) || (button && !button->text().isEmpty())))
                            continue;
                        // Without a button's frame.
                        const QRect inside = widget->rect().adjusted(4, 4, -4, -4);
                        EXPECT_GE(ContrastIn(
                                      window.copy(inside.translated(widget->mapTo(program.Top(), QPoint())))),
                                  2.5)
                            << (label ? label->text() : button->text()).toStdString() << " " << color.red;
                    }
                });
            }
        }
    });
}

TEST_F(WornLook, LaysAVeilOverANoisyBitmap) {
#ifdef __SANITIZE_THREAD__
    GTEST_SKIP() << "Qt tiles large areas in threads of its own, whose locks this sanitizer does not see";
#endif
    QImage noise(64, 64, QImage::Format_RGB32);
    for (int i = 0; i < 64 * 64; ++i)
        noise.setPixel(i % 64, i / 64, (i * 7919 + i / 64 * 31) % 5 < 2 ? 0xff000000 : 0xffffffff);
    const std::string path = home.Path() / "noise.png";
    ASSERT_TRUE(noise.save(QString::fromStdString(path)));
    ShownProgram::Run([&](ShownProgram& program) {
        const auto readable_share = [&] {
            QWidget* top = program.Top();
            const QRect gap(program.Button("Revert")->mapTo(top, QPoint(100, 4)), QSize(100, 16));
            const QImage ground = top->grab(gap).toImage();
            int readable = 0;
            for (int i = 0; i < 1600; ++i)
                readable += Contrast(ground.pixelColor(i % 100, i / 100),
                                     top->palette().color(QPalette::WindowText)) >= 2.5;
            return readable / 1600.0;
        };
        _backgrounds[0]->SetText(path.c_str(), false);
        const auto is_tiled = [&] { return ColorsOf(program.Top()).size() > 2; };
        EXPECT_TRUE(program.Eventually(is_tiled));
        EXPECT_GT(program.OnScreen(readable_share), 0.9);
    });
}

TEST_F(WornLook, ShowsAnEditInOneTurnAndDropsWhatIsCancelled) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(1);
        const auto corner = [&] { return program.Top()->grab(QRect(0, 0, 1, 1)).toImage().pixelColor(0, 0); };
        _colors[KS_PEN_BG_LOW]->SetColor(ks_color(1, 2, 3), false, false);
        EXPECT_EQ(program.OnScreen(corner), QColor(1, 2, 3));

        const QImage before = program.OnScreen([&] { return program.Top()->grab().toImage(); });
        program.OnScreen([&] { program.Named<QAbstractButton>("Low level")->click(); });
        auto* dialog = program.OpenedDialog<QColorDialog>();
        program.OnScreen([&] { dialog->setCurrentColor(QColor(200, 100, 50)); });
        EXPECT_TRUE(program.Eventually([&] { return corner() == QColor(200, 100, 50); }));
        EXPECT_EQ(_colors[KS_PEN_BG_LOW]->Color(), ks_color(1, 2, 3));
        program.OnScreen([&] { dialog->reject(); });
        EXPECT_TRUE(program.Eventually([&] {
            program.Top()->activateWindow();
            return program.Top()->grab().toImage() == before;
        }));
    });
}

}  // namespace
