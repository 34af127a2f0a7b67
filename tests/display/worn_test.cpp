// SPDX-License-Identifier: MIT
// The window wears what is edited: each pen at its places, at once, and still readable where it should not
// be.
#include "display/contrast.h"
#include "tests/display/shown_program.h"

#include <QAccessible>
#include <QColorDialog>
#include <QDoubleSpinBox>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QStyle>
#include <QToolTip>

#include <map>
#include <set>

using namespace config;

namespace {

class WornLook : public Shown {};

enum Place { kPens, kBackgrounds, kFonts, kOptions, kMarkedNumber, kCursor, kFontPanel };

// What is seen where.
const std::vector<std::pair<Place, std::vector<ks_pen>>> kSeen = {
    {kPens, {KS_PEN_BG_LOW, KS_PEN_BG_MED, KS_PEN_SHINE, KS_PEN_MARK}},
    {kBackgrounds, {KS_PEN_BG_MED, KS_PEN_BG_EDIT, KS_PEN_TEXT, KS_PEN_HALFSHINE}},
    {kFonts, {KS_PEN_BG_LIST, KS_PEN_BG_SELECTED, KS_PEN_HALFDARK}},
    {kOptions,
     {KS_PEN_BG_HIGH, KS_PEN_BG_EDIT, KS_PEN_BG_BUTTON, KS_PEN_DISABLEDTEXT, KS_PEN_DARK, KS_PEN_MARK}},
    {kFontPanel, {KS_PEN_BG_READ, KS_PEN_BG_SLIDER}},
    {kCursor, {KS_PEN_TEXT_FG_CURSOR, KS_PEN_TEXT_BG_CURSOR}},
    {kMarkedNumber, {KS_PEN_TEXT_FG_MARKED, KS_PEN_TEXT_BG_MARKED}},
};
const std::map<Place, ks_pen> kSeenInNymbrel = {
    {kPens, KS_PEN_PAINT}, {kOptions, KS_PEN_PAINTSHINE}, {kFonts, KS_PEN_PAINTDARK}};

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
            const auto expect = [&](ks_pen pen, Place place) {
                const ks_color color = ColorOf(pen);
                EXPECT_TRUE(seen[place].contains(qRgb(color.red, color.green, color.blue)))
                    << "pen " << pen << " at " << place << " in look " << look;
            };
            for (const auto& [place, pens] : kSeen)
                for (const ks_pen pen : pens)
                    expect(pen, place);
            for (const auto& [place, pen] : kSeenInNymbrel)
                if (look == 1)
                    expect(pen, place);
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
        struct Pens {
            ks_color levels, inks, low;
        };
        constexpr ks_color kWhite(255, 255, 255), kBlack(0, 0, 0), kClear(90, 90, 90, 0), kRed(255, 0, 0),
            kGrey(119, 119, 119);
        for (const Pens& pens : {Pens{kWhite, kWhite, kWhite},
                                 {kBlack, kBlack, kBlack},
                                 {kClear, kClear, kClear},
                                 {kRed, kRed, kRed},
                                 {kGrey, kGrey, kGrey},
                                 {kWhite, kBlack, kBlack},
                                 {kBlack, kWhite, kWhite}}) {
            SetPens([&](int pen) {
                return pen == KS_PEN_BG_LOW ? pens.low : pen <= KS_PEN_BG_SELECTED ? pens.levels : pens.inks;
            });
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
                            << (label ? label->text() : button->text()).toStdString() << " "
                            << pens.levels.red;
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

TEST_F(WornLook, TakesTheTimesAndShowsHelpWhereItIsWanted) {
    ShownProgram::Run([](ShownProgram& program) {
        program.Open(3);
        _bubbletime->SetValue(1500000);
        _mousetime->SetValue(20000);
        _bubblehelp->SetBubbleHelp("Shows texts like this one");
        for (const bool wanted : {true, false}) {
            _bubblehelp->SetValue(wanted);
            program.OnScreen([&] {
                const QStyle* style = QApplication::style();
                EXPECT_EQ(style->styleHint(QStyle::SH_ToolTip_WakeUpDelay), 1500);
                EXPECT_EQ(style->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatRate), 20);
                auto* box = program.Named<QWidget>("Use Bubblehelp");
                QHelpEvent asks(QEvent::ToolTip, {5, 5}, box->mapToGlobal(QPoint(5, 5)));
                QApplication::sendEvent(box, &asks);
                EXPECT_EQ(QToolTip::isVisible(), wanted);
                QToolTip::hideText();
            });
            EXPECT_TRUE(program.Eventually([] { return !QToolTip::isVisible(); }));
        }
    });
}

}  // namespace
