// SPDX-License-Identifier: MIT
#include "display/marks.h"

#include "display/draw.h"
#include "display/look.h"
#include "display/texts.h"

#include <QRect>
#include <QString>
#include <QStringList>
#include <QStyle>
#include <QVariant>
#include <QWidget>

namespace {

// Properties of widgets.
constexpr char kGround[] = "ground", kChanged[] = "changed", kDescription[] = "description";

constexpr int kDot = 5;

QWidget* GroundOf(const QWidget& editor) {
    QWidget* ground = editor.parentWidget();
    while (ground && !ground->property(kGround).toBool())
        ground = ground->parentWidget();
    return ground;
}

// The gap before the editor.
QRect RoomBeside(const QWidget& editor, const QWidget& ground) {
    const QRect place(editor.mapTo(&ground, QPoint()), editor.size());
    const QRect room(place.left() - look::kGap, place.top(), look::kGap, place.height());
    return QStyle::visualRect(editor.layoutDirection(), place, room);
}

void ShowDescription(QWidget& editor) {
    QStringList parts(editor.property(kDescription).toString());
    if (editor.property(kChanged).toBool())
        parts.append(texts::Text(texts::kChanged));
    parts.removeAll(QString());
    editor.setAccessibleDescription(parts.join(QStringLiteral(", ")));
}

}  // namespace

void marks::MakeGround(QWidget& widget) {
    widget.setProperty(kGround, true);
}

void marks::Paint(QPainter& painter, const Worn& worn, const QWidget& ground, ks_pen level) {
    for (const QWidget* widget : ground.findChildren<QWidget*>())
        if (widget->property(kChanged).toBool() && widget->isVisibleTo(&ground) &&
            GroundOf(*widget) == &ground)
            PaintDot(painter, worn, RoomBeside(*widget, ground), level);
}

void marks::PaintDot(QPainter& painter, const Worn& worn, const QRect& room, ks_pen level) {
    const QRect dot(room.left() + (room.width() - kDot + 1) / 2, room.top() + (room.height() - kDot) / 2,
                    kDot, kDot);
    draw::Dot(painter, dot, worn.On(KS_PEN_MARK, worn.Ground(level)));
}

void marks::Mark(QWidget& editor, bool is_changed) {
    if (editor.property(kChanged).toBool() == is_changed)
        return;
    editor.setProperty(kChanged, is_changed);
    ShowDescription(editor);
    if (QWidget* ground = GroundOf(editor))
        ground->update(RoomBeside(editor, *ground));
}

void marks::Describe(QWidget& editor, const QString& text) {
    editor.setProperty(kDescription, text);
    ShowDescription(editor);
}
