// SPDX-License-Identifier: MIT
#include "display/preview_picture.h"

#include "display/contrast.h"
#include "display/draw.h"
#include "display/look.h"
#include "display/texts.h"

#include <QFontMetrics>
#include <QPainter>
#include <QString>

#include <algorithm>

namespace {

constexpr int kInset = 8;    // between a frame and what is in it
constexpr int kLine = 24;    // the height of a line to type in
constexpr int kRow = 22;     // of a list
constexpr int kButton = 28;  // the height of a button
constexpr int kCheckSize = 16;
constexpr double kLargestPoints = 200;

// Draws one part after the other, from the top to the bottom.
class Picture {
public:
    Picture(QPainter& painter, const Worn& worn) : _painter(painter), _worn(worn) {}

    void Paint(const QRect& rect) {
        draw::Level(_painter, _worn, rect, KS_PEN_BG_LOW, rect.topLeft());
        draw::Edges(_painter, _worn, rect, draw::Edge::kRaised, draw::Weight::kHeavy,
                    _worn.Ground(KS_PEN_BG_LOW));
        const QRect plate(rect.left() + 3, rect.top() + 3, rect.width() - 6, kLine);
        draw::Paint(_painter, _worn, plate);
        Write(KS_FONT_TITLE, texts::kProgram, plate.adjusted(kInset, 1, -kInset, -1), KS_PEN_TEXT,
              _worn.Ground(KS_PEN_PAINT));

        QRect room = rect.adjusted(kInset + 3, 0, -kInset - 3, 0);
        room.setTop(plate.bottom() + 3);
        Write(KS_FONT_LARGE, texts::kHeading, Take(room, 32), KS_PEN_TEXT, _worn.Ground(KS_PEN_BG_LOW));
        room.setTop(room.top() + 2);
        Groups(Take(room, 2 * kLine + kCheckSize + 7 * kInset - 6));
        room.setTop(room.top() + kInset);
        const QRect middle = Take(room, 3 * kRow + 4);
        const int half = (middle.width() - kInset) / 2;
        List(QRect(middle.left(), middle.top(), half, middle.height()));
        Bars(QRect(middle.right() + 1 - half, middle.top(), half, middle.height()));
        room.setTop(room.top() + kInset);
        Buttons(Take(room, 2 * kButton + 4));
    }

private:
    // Cuts `height` pixels off the top of what is left.
    static QRect Take(QRect& room, int height) {
        const QRect taken(room.left(), room.top(), room.width(), height);
        room.setTop(room.top() + height);
        return taken;
    }

    // The font in its true size, or in the largest one in which the text fits.
    QFont FontThatFits(ks_font font, const QString& text, QSize room) const {
        QFont result = _worn.Font(font);
        result.setPointSizeF(
            look::BoundedPoints(static_cast<double>(_worn.Look().fonts[font].Size()), 1, kLargestPoints));
        const QFontMetrics metrics(result);
        const double fits = std::min(room.width() / std::max(1.0, 1.0 * metrics.horizontalAdvance(text)),
                                     room.height() / std::max(1.0, 1.0 * metrics.height()));
        if (fits < 1)
            result.setPointSizeF(std::max(1.0, result.pointSizeF() * fits));
        return result;
    }

    void Write(ks_font font, const texts::text& text, const QRect& rect, ks_pen pen, const QColor& ground,
               int alignment = Qt::AlignVCenter | Qt::AlignLeading) {
        const QString words = texts::Text(text);
        _painter.setFont(FontThatFits(font, words, rect.size()));
        _painter.setPen(_worn.On(pen, ground));
        _painter.drawText(rect, alignment, words);
    }

    // The High level on the Medium one.
    void Groups(const QRect& rect) {
        draw::Group(_painter, _worn, rect, KS_PEN_BG_MED, QString(), 0);
        const QRect high = rect.adjusted(kInset, kInset, -kInset, -kInset);
        draw::Group(_painter, _worn, high, KS_PEN_BG_HIGH, QString(), 0);
        QRect room = high.adjusted(kInset, kInset, -kInset, -kInset);
        EditLine(Take(room, kLine));
        room.setTop(room.top() + kInset - 2);
        const QRect read = Take(room, kLine);
        draw::Field(_painter, _worn, read, KS_PEN_BG_READ);
        Write(KS_FONT_FIXED, texts::kReadOnly, read.adjusted(6, 2, -6, -2), KS_PEN_TEXT,
              _worn.Ground(KS_PEN_BG_READ));
        room.setTop(room.top() + kInset);
        const QRect row = Take(room, kCheckSize);
        const int half = row.width() / 2;
        Check(QRect(row.left(), row.top(), half, row.height()), texts::kMarked, true);
        Check(QRect(row.left() + half, row.top(), half, row.height()), texts::kDisabled, false);
    }

    // A line with marked text and the cursor on a letter.
    void EditLine(const QRect& rect) {
        const QString before = texts::Text(texts::kEdit) + u' ', marked = texts::Text(texts::kMarkedWord),
                      after = u' ' + texts::Text(texts::kCursorWord);
        const qsizetype cursor = (after.size() + 1) / 2;
        draw::Field(_painter, _worn, rect, KS_PEN_BG_EDIT);
        const QRect room = rect.adjusted(6, 3, -6, -3);
        const QFont font = FontThatFits(KS_FONT_FIXED, before + marked + after, room.size());
        const QFontMetrics metrics(font);
        const QColor ground = _worn.Ground(KS_PEN_BG_EDIT),
                     marked_ground = Over(_worn.Pen(KS_PEN_TEXT_BG_MARKED), ground),
                     cursor_ground = Over(_worn.Pen(KS_PEN_TEXT_FG_CURSOR), ground);
        _painter.setFont(font);
        QRect word = room;
        const auto write = [&](const QString& text, ks_pen pen, const QColor& below) {
            word.setWidth(metrics.horizontalAdvance(text));
            if (below != ground)
                _painter.fillRect(word, below);
            _painter.setPen(_worn.On(pen, below));
            _painter.drawText(word, Qt::AlignVCenter | Qt::AlignLeft | Qt::TextDontClip, text);
            word.moveLeft(word.left() + word.width());
        };
        write(before, KS_PEN_TEXT, ground);
        write(marked, KS_PEN_TEXT_FG_MARKED, marked_ground);
        write(after.left(cursor), KS_PEN_TEXT, ground);
        write(after.mid(cursor, 1), KS_PEN_TEXT_BG_CURSOR, cursor_ground);
        write(after.mid(cursor + 1), KS_PEN_TEXT, ground);
    }

    void Check(const QRect& rect, const texts::text& text, bool is_enabled) {
        draw::Check(_painter, _worn, QRect(rect.topLeft(), QSize(kCheckSize, kCheckSize)), true, is_enabled,
                    false);
        Write(KS_FONT_NORMAL, text, rect.adjusted(kCheckSize + 6, -3, -2, 3),
              is_enabled ? KS_PEN_TEXT : KS_PEN_DISABLEDTEXT, _worn.Ground(KS_PEN_BG_HIGH));
    }

    void List(const QRect& rect) {
        draw::Field(_painter, _worn, rect, KS_PEN_BG_LIST);
        QRect room = rect.adjusted(2, 2, -2, -2);
        for (const texts::text& text : {texts::kList, texts::kSelected, texts::kThird}) {
            const QRect row = Take(room, kRow);
            const bool is_selected = text.id == texts::kSelected.id;
            if (is_selected)
                draw::Selection(_painter, _worn, row);
            Write(KS_FONT_NORMAL, text, row.adjusted(kInset, 1, -4, -1), KS_PEN_TEXT,
                  _worn.Ground(is_selected ? KS_PEN_BG_SELECTED : KS_PEN_BG_LIST));
        }
    }

    // A slider, a progress bar and a note.
    void Bars(const QRect& rect) {
        QRect room = rect;
        const QRect slider = Take(room, kRow).adjusted(0, 1, 0, -1);
        const QRect knob(slider.center().x() - 5, slider.top(), 12, slider.height());
        Bar(slider.adjusted(0, 5, 0, -5), knob.center().x() - slider.left());
        draw::Level(_painter, _worn, knob, KS_PEN_BG_BUTTON, knob.topLeft());
        draw::Edges(_painter, _worn, knob, draw::Edge::kRaised, draw::Weight::kHeavy,
                    _worn.Ground(KS_PEN_BG_BUTTON));
        const QRect progress = Take(room, kRow + 2).adjusted(0, 5, 0, -3);
        Bar(progress, progress.width() * 6 / 10);
        Write(KS_FONT_SMALL, texts::kSmallNote, Take(room, kRow), KS_PEN_TEXT, _worn.Ground(KS_PEN_BG_LOW));
    }

    // A trough that is filled up to some distance.
    void Bar(const QRect& rect, int filled) {
        draw::Level(_painter, _worn, rect, KS_PEN_BG_SLIDER, rect.topLeft());
        draw::Edges(_painter, _worn, rect, draw::Edge::kSunken, draw::Weight::kThin,
                    _worn.Ground(KS_PEN_BG_SLIDER));
        draw::Paint(_painter, _worn, QRect(rect.left() + 1, rect.top() + 1, filled, rect.height() - 2));
    }

    void Buttons(const QRect& rect) {
        struct button {
            texts::text text;
            draw::ButtonState state;
        };
        constexpr button kButtons[] = {{texts::kButton, {}},
                                       {texts::kDefault, {.is_default = true}},
                                       {texts::kPressed, {.is_down = true}},
                                       {texts::kDisabled, {.is_enabled = false}}};
        const int half = (rect.width() - 6) / 2;
        int i = 0;
        for (const auto& [text, state] : kButtons) {
            const QRect place(i % 2 ? rect.right() + 1 - half : rect.left(),
                              rect.top() + i / 2 * (kButton + 4), half, kButton);
            const QColor ground = draw::ButtonGround(_worn, state);
            draw::Button(_painter, _worn, place, state);
            if (i == 0)
                draw::Focus(_painter, _worn, place.adjusted(5, 5, -5, -5), ground);
            Write(KS_FONT_NORMAL, text, place.adjusted(8, 4, -8, -4).translated(state.is_down, state.is_down),
                  state.is_enabled ? KS_PEN_TEXT : KS_PEN_DISABLEDTEXT, ground, Qt::AlignCenter);
            ++i;
        }
    }

    QPainter& _painter;
    const Worn& _worn;
};

}  // namespace

void PaintPreview(QPainter& painter, const Worn& worn, const QRect& rect) {
    painter.save();
    Picture(painter, worn).Paint(rect);
    painter.restore();
}
