// SPDX-License-Identifier: MIT
#include "display/draw.h"

#include "display/canvas.h"
#include "display/contrast.h"

#include <QLinearGradient>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

namespace draw {
namespace {

constexpr int kTitleInset = 8;  // of a group's title

// The four edge pens as they are seen on one ground.
struct edge_inks {
    edge_inks(const Worn& worn, const QColor& ground)
        : shine(worn.Edge(KS_PEN_SHINE, ground)),
          half_shine(worn.Edge(KS_PEN_HALFSHINE, ground)),
          half_dark(worn.Edge(KS_PEN_HALFDARK, ground)),
          dark(worn.Edge(KS_PEN_DARK, ground)) {}

    QColor shine, half_shine, half_dark, dark;
};

// A pressed button of the BeOS look.
QColor Pressed(const Worn& worn) {
    const QColor ground = worn.Ground(KS_PEN_BG_BUTTON);
    return Mix(ground, worn.Edge(KS_PEN_DARK, ground), 0.55);
}

// A gradient unless a bitmap covers it; what is pressed wears the level of selected items.
void NymbrelButton(QPainter& painter, const Worn& worn, const QRect& rect, ButtonState state) {
    const edge_inks edge(worn, worn.Ground(KS_PEN_BG_BUTTON));
    QRect inside;
    {
        Canvas canvas(painter);
        const QRect all = canvas.Map(rect);
        canvas.Box(all, state.is_enabled ? edge.dark : edge.half_dark, true);
        inside = canvas.Inside(all);
        if (state.is_default) {
            const QColor shine = worn.Ground(KS_PEN_PAINTSHINE), dark = worn.Ground(KS_PEN_PAINTDARK);
            canvas.Fill(inside, state.is_down ? dark : worn.Ground(KS_PEN_PAINT));
            canvas.Bevel(inside, state.is_down ? dark : shine, state.is_down ? shine : dark);
            return;
        }
    }
    const ks_pen level = state.is_down ? KS_PEN_BG_SELECTED : KS_PEN_BG_BUTTON;
    Level(painter, worn, rect.adjusted(1, 1, -1, -1), level, rect.topLeft() + QPoint(1, 1));
    Canvas canvas(painter);
    if (worn.Bitmap(level).isNull() && !state.is_down) {
        QLinearGradient gradient(inside.topLeft(), inside.bottomLeft());
        const QColor ground = worn.Ground(KS_PEN_BG_BUTTON);
        gradient.setColorAt(0, Mix(ground, edge.half_shine, 0.45));
        gradient.setColorAt(1, Mix(ground, edge.half_dark, 0.18));
        canvas.Fill(inside, gradient);
    }
    canvas.Bevel(inside, state.is_down ? edge.half_dark : edge.shine,
                 state.is_down ? edge.half_shine : edge.half_dark);
}

// Flat, with a rounded outline and two bevels; the default button has a second outline around it.
void BeOSButton(QPainter& painter, const Worn& worn, const QRect& rect, ButtonState state) {
    const edge_inks edge(worn, worn.Ground(KS_PEN_BG_BUTTON));
    const QColor outline = state.is_enabled ? edge.dark : edge.half_dark;
    const int room = state.has_room ? 2 : 0;
    const QRect body = rect.adjusted(room, room, -room, -room);
    if (!state.is_down)
        Level(painter, worn, body.adjusted(1, 1, -1, -1), KS_PEN_BG_BUTTON, body.topLeft() + QPoint(1, 1));
    Canvas canvas(painter);
    if (state.is_default)
        canvas.Box(canvas.Map(rect), outline, true);
    const QRect all = canvas.Map(body), inside = canvas.Inside(all);
    if (state.is_down)
        canvas.Fill(inside, Pressed(worn));
    canvas.Box(all, outline, true);
    canvas.Bevel(inside, state.is_down ? edge.dark : edge.half_shine,
                 state.is_down ? edge.half_shine : edge.half_dark);
    if (!state.is_down)
        canvas.Bevel(canvas.Inside(inside), edge.shine, worn.Ground(KS_PEN_BG_BUTTON));
}

}  // namespace

void Level(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level, QPoint origin) {
    {
        Canvas canvas(painter);
        const QRect area = canvas.Map(rect);
        // The lowest level lies on nothing: it never lets the desktop through.
        if (level == KS_PEN_BG_LOW && worn.Pen(level).alpha() < 255)
            canvas.Fill(area, Worn::kBottom);
        canvas.Fill(area, worn.Pen(level));
    }
    if (worn.Bitmap(level).isNull())
        return;
    painter.drawTiledPixmap(rect, worn.Bitmap(level), rect.topLeft() - origin);
    if (const QColor veil = worn.Veil(level); veil.alpha() > 0)
        painter.fillRect(rect, veil);
}

void Edges(QPainter& painter, const Worn& worn, const QRect& rect, Edge edge, Weight weight,
           const QColor& ground) {
    const edge_inks ink(worn, ground);
    const bool raised = edge == Edge::kRaised;
    Canvas canvas(painter);
    const QRect outer = canvas.Map(rect), inner = canvas.Inside(outer);
    if (weight == Weight::kThin) {
        canvas.Bevel(outer, raised ? ink.shine : ink.half_dark, raised ? ink.half_dark : ink.shine);
    } else if (worn.IsNymbrel()) {
        canvas.Bevel(outer, raised ? ink.shine : ink.half_dark, raised ? ink.dark : ink.shine);
        canvas.Bevel(inner, raised ? ink.half_shine : ink.dark, raised ? ink.half_dark : ink.half_shine);
    } else {
        canvas.Bevel(outer, raised ? ink.half_shine : ink.half_dark, raised ? ink.dark : ink.shine);
        canvas.Bevel(inner, raised ? ink.shine : ink.dark, raised ? ink.half_dark : ink.half_shine);
    }
}

void EtchedBox(QPainter& painter, const Worn& worn, const QRect& rect, const QColor& ground) {
    const edge_inks ink(worn, ground);
    Canvas canvas(painter);
    const QRect outer = canvas.Map(rect), inner = canvas.Inside(outer);
    canvas.Bevel(outer, ink.half_dark, ink.shine);
    canvas.Bevel(inner, ink.shine, ink.half_dark);
}

void EtchedLine(QPainter& painter, const Worn& worn, const QRect& rect, const QColor& ground) {
    const edge_inks ink(worn, ground);
    Canvas canvas(painter);
    QRect line = canvas.Map(rect);
    const int one = canvas.Inside(line).left() - line.left();
    if (line.width() >= line.height()) {
        line.setTop(line.center().y());
        line.setHeight(one);
        canvas.Fill(line, ink.half_dark);
        canvas.Fill(line.translated(0, one), ink.shine);
    } else {
        line.setLeft(line.center().x());
        line.setWidth(one);
        canvas.Fill(line, ink.half_dark);
        canvas.Fill(line.translated(one, 0), ink.shine);
    }
}

namespace {

// In the Nymbrel look a group stands out of what is below it; on the High level its title has a plate.
void NymbrelGroup(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level, const QString& title,
                  int title_height) {
    const QColor ground = worn.Ground(level);
    Level(painter, worn, rect, level, rect.topLeft());
    Edges(painter, worn, rect, Edge::kRaised, Weight::kThin, ground);
    if (title.isEmpty())
        return;
    QRect bar(rect.left() + 2, rect.top() + 2, rect.width() - 4, title_height - 2);
    const bool has_plate = level == KS_PEN_BG_HIGH;
    if (has_plate)
        Paint(painter, worn, bar);
    painter.setPen(worn.On(KS_PEN_TEXT, has_plate ? worn.Ground(KS_PEN_PAINT) : ground));
    painter.drawText(bar.adjusted(kTitleInset, 0, -kTitleInset, 0), Qt::AlignVCenter | Qt::AlignLeading,
                     title);
}

// In the BeOS look a group is an etched box, and its title is cut into the line.
void BeOSGroup(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level, const QString& title,
               int title_height) {
    const QColor ground = worn.Ground(level);
    const QRect box = rect.adjusted(0, title.isEmpty() ? 0 : title_height / 2, 0, 0);
    Level(painter, worn, box, level, box.topLeft());
    if (title.isEmpty()) {
        EtchedBox(painter, worn, box, ground);
        return;
    }
    const int width = painter.fontMetrics().horizontalAdvance(title);
    const QRect bar(rect.left(), rect.top(), rect.width(), title_height);
    const QRect label = bar.adjusted(kTitleInset + 4, 0, -kTitleInset - 4, 0);
    QRect text(label.left(), label.top(), std::min(width, label.width()), label.height());
    if (painter.layoutDirection() == Qt::RightToLeft)
        text.moveRight(label.right());
    painter.save();
    painter.setClipRegion(QRegion(rect) - text.adjusted(-4, 0, 4, 0));
    EtchedBox(painter, worn, box, ground);
    painter.restore();
    painter.setPen(worn.On(KS_PEN_TEXT, ground));
    painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading, title);
}

}  // namespace

void Group(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level, const QString& title,
           int title_height) {
    if (worn.IsNymbrel())
        NymbrelGroup(painter, worn, rect, level, title, title_height);
    else
        BeOSGroup(painter, worn, rect, level, title, title_height);
}

void Button(QPainter& painter, const Worn& worn, const QRect& rect, ButtonState state) {
    if (worn.IsNymbrel())
        NymbrelButton(painter, worn, rect, state);
    else
        BeOSButton(painter, worn, rect, state);
}

QColor ButtonGround(const Worn& worn, ButtonState state) {
    if (!worn.IsNymbrel())
        return state.is_down ? Pressed(worn) : worn.Ground(KS_PEN_BG_BUTTON);
    if (state.is_default)
        return worn.Ground(state.is_down ? KS_PEN_PAINTDARK : KS_PEN_PAINT);
    return worn.Ground(state.is_down ? KS_PEN_BG_SELECTED : KS_PEN_BG_BUTTON);
}

void Knob(QPainter& painter, const Worn& worn, const QRect& rect, bool is_down) {
    const ks_pen level = is_down ? KS_PEN_BG_SELECTED : KS_PEN_BG_BUTTON;
    Level(painter, worn, rect, level, rect.topLeft());
    Edges(painter, worn, rect, is_down ? Edge::kSunken : Edge::kRaised, Weight::kThin, worn.Ground(level));
}

void Field(QPainter& painter, const Worn& worn, const QRect& rect, ks_pen level) {
    Level(painter, worn, rect, level, rect.topLeft());
    Edges(painter, worn, rect, Edge::kSunken, Weight::kHeavy, worn.Ground(level));
}

void Paint(QPainter& painter, const Worn& worn, const QRect& rect) {
    Canvas canvas(painter);
    const QRect all = canvas.Map(rect);
    canvas.Fill(all, worn.Pen(KS_PEN_PAINT));
    canvas.Bevel(all, worn.Pen(KS_PEN_PAINTSHINE), worn.Pen(KS_PEN_PAINTDARK));
}

void Focus(QPainter& painter, const Worn& worn, const QRect& rect, const QColor& ground) {
    const QColor mark = worn.On(KS_PEN_MARK, ground);
    Canvas canvas(painter);
    const QRect ring = canvas.Map(rect);
    canvas.Box(ring, mark, worn.IsNymbrel());
    if (worn.IsNymbrel())
        canvas.Box(canvas.Inside(ring), mark);
}

void Check(QPainter& painter, const Worn& worn, const QRect& rect, bool is_on, bool is_enabled,
           bool is_down) {
    Field(painter, worn, rect, is_enabled ? KS_PEN_BG_EDIT : KS_PEN_BG_READ);
    const QColor ground = worn.Ground(is_enabled ? KS_PEN_BG_EDIT : KS_PEN_BG_READ);
    if (is_down)
        painter.fillRect(rect.adjusted(2, 2, -2, -2), Mix(ground, worn.Edge(KS_PEN_HALFDARK, ground), 0.5));
    if (!is_on)
        return;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QColor ink = worn.On(is_enabled ? KS_PEN_MARK : KS_PEN_DISABLEDTEXT, ground);
    painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const double inset = 0.25 * std::min(rect.width(), rect.height());
    const QRectF mark = QRectF(rect).adjusted(inset, inset, -inset, -inset);
    if (worn.IsNymbrel()) {
        painter.drawPolyline(QPolygonF{{mark.left(), mark.center().y()},
                                       {mark.left() + mark.width() * 0.38, mark.bottom()},
                                       mark.topRight()});
    } else {
        painter.drawLine(mark.topLeft(), mark.bottomRight());
        painter.drawLine(mark.topRight(), mark.bottomLeft());
    }
    painter.restore();
}

void Selection(QPainter& painter, const Worn& worn, const QRect& rect) {
    const QColor ground = worn.Ground(KS_PEN_BG_SELECTED);
    Level(painter, worn, rect, KS_PEN_BG_SELECTED, rect.topLeft());
    Canvas canvas(painter);
    const QRect bar = canvas.Map(rect);
    if (worn.IsNymbrel()) {
        canvas.Bevel(bar, worn.Edge(KS_PEN_HALFSHINE, ground), worn.Edge(KS_PEN_DARK, ground));
        QRect mark(bar.left(), bar.top(), canvas.Pixels(3), bar.height());
        if (painter.layoutDirection() == Qt::RightToLeft)
            mark.moveRight(bar.right());
        canvas.Fill(mark, worn.On(KS_PEN_MARK, ground));
    }
    if (worn.SelectionIsHidden())
        canvas.Box(bar, worn.On(KS_PEN_TEXT, ground));
}

void Arrow(QPainter& painter, const QRect& rect, Direction direction, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    const double size = std::clamp(std::min(rect.width(), rect.height()) * 0.28, 2.5, 4.5);
    constexpr int kTurns[] = {0, 180, 270, 90};
    painter.translate(QRectF(rect).center());
    painter.rotate(kTurns[static_cast<int>(direction)]);
    painter.drawPolygon(QPolygonF{{-size, size * 0.55}, {size, size * 0.55}, {0, -size * 0.55}});
    painter.restore();
}

void Dot(QPainter& painter, const QRect& rect, const QColor& color) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawEllipse(rect);
    painter.restore();
}

void Checker(QPainter& painter, const QRect& rect) {
    constexpr int kSquare = 5;
    Canvas canvas(painter);
    const QRect all = canvas.Map(rect);
    canvas.Fill(all, QColor(255, 255, 255));
    const int square = canvas.Pixels(kSquare);
    for (int row = 0; row * square < all.height(); ++row)
        for (int column = row % 2; column * square < all.width(); column += 2)
            canvas.Fill(QRect(all.left() + column * square, all.top() + row * square, square, square)
                            .intersected(all),
                        QColor(190, 190, 190));
}

void Sample(QPainter& painter, const QRect& rect, const QColor& color) {
    if (color.alpha() < 255)
        Checker(painter, rect);
    Canvas canvas(painter);
    const QRect frame = canvas.Map(rect);
    canvas.Fill(canvas.Inside(frame, 2), color);
    canvas.Box(frame, QColor(0, 0, 0));
    canvas.Box(canvas.Inside(frame), QColor(255, 255, 255));
}

}  // namespace draw
