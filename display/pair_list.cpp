// SPDX-License-Identifier: MIT
#include "display/pair_list.h"

#include "display/color_vision.h"
#include "display/contrast.h"
#include "display/draw.h"
#include "display/pen_style.h"
#include "display/texts.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyledItemDelegate>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

constexpr double kReadable = 4.5;
constexpr QColor kWarning(200, 0, 0);
constexpr QSize kSwatch(32, 18);
constexpr int kInset = 5;

const texts::text& NameOfGround(ks_pen pen) {
    static constexpr texts::text kNames[] = {
        texts::kPenLow,  texts::kPenMedium, texts::kPenHigh,   texts::kPenEdit,     texts::kPenRead,
        texts::kPenList, texts::kPenButton, texts::kPenSlider, texts::kPenSelected,
    };
    const auto index = static_cast<std::size_t>(pen);
    return index < std::size(kNames) ? kNames[index] : texts::kPenPaint;
}

QString WordsFor(const pen_pair& pair) {
    const QString ground = texts::Text(NameOfGround(pair.ground));
    switch (pair.ink) {
    case KS_PEN_TEXT_FG_MARKED:
        return texts::Text(texts::kPenMarkedText);
    case KS_PEN_TEXT_BG_CURSOR:
        return texts::Text(texts::kPenCursor);
    case KS_PEN_TEXT:
        return texts::Text(texts::kPairOn).arg(texts::Text(texts::kPenText), ground);
    case KS_PEN_MARK:
        return texts::Text(texts::kPairOn).arg(texts::Text(texts::kPenMark), ground);
    case KS_PEN_PAINT:
    case KS_PEN_PAINTSHINE:
    case KS_PEN_PAINTDARK:
        return texts::Text(texts::kPaintOn).arg(ground);
    default:
        return texts::Text(texts::kBestEdgeOn).arg(ground);
    }
}

// Rounded down, so that what is shown as 4.5 is enough.
QString RatioOf(const pen_pair& pair) {
    return QString::number(std::floor(pair.contrast * 10) / 10, 'f', 1);
}

// A triangle with an exclamation mark.
void PaintSign(QPainter& painter, const QRectF& rect, const QColor& color, const QColor& ground) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(color);
    painter.drawPolygon(QPolygonF{{rect.center().x(), rect.top()}, rect.bottomRight(), rect.bottomLeft()});
    const double x = rect.center().x(), unit = rect.height() / 10;
    painter.setPen(QPen(ground, 1.5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(x, rect.top() + 3.5 * unit), QPointF(x, rect.top() + 6 * unit));
    painter.drawPoint(QPointF(x, rect.top() + 8.6 * unit));
    painter.restore();
}

// Text, or a frame where the ink never writes.
void PaintSwatch(QPainter& painter, const Worn& truth, const QRect& rect, const pen_pair& pair) {
    const QColor ground = truth.Ground(pair.ground), ink = Over(truth.Pen(pair.ink), ground);
    draw::Sample(painter, rect, ground);
    if (pair.least >= kReadable) {
        painter.setPen(ink);
        painter.drawText(rect, Qt::AlignCenter, QStringLiteral("Aa"));
        return;
    }
    const QRect frame(rect.center().x() - 6, rect.top() + 5, 14, rect.height() - 10);
    painter.fillRect(frame, ink);
    painter.fillRect(frame.adjusted(2, 2, -2, -2), ground);
}

}  // namespace

// Draws the rows with what the window wears, which can always be read; only the swatches show the truth.
class PairList::Delegate : public QStyledItemDelegate {
public:
    explicit Delegate(PairList* list) : QStyledItemDelegate(list), _list(*list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override {
        return {0, std::max(_list.fontMetrics().height(), kSwatch.height()) + 4};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const Worn& worn = PenStyle::Instance().Wearing();
        const pen_pair& pair = _list._pairs[static_cast<std::size_t>(index.row())];
        const QColor ground = worn.Ground(KS_PEN_BG_LIST);
        painter->save();
        painter->setFont(_list.font());
        QRect room = option.rect.adjusted(kInset, 0, -kInset, 0);
        PaintSwatch(*painter, _list._truth,
                    QRect(QPoint(room.left(), room.center().y() + 1 - kSwatch.height() / 2), kSwatch), pair);
        const QColor warning = NearestReadable(kWarning, ground, kReadable);
        painter->setPen(pair.IsHard() ? warning : worn.On(KS_PEN_TEXT, ground));
        const QString ratio = RatioOf(pair);
        painter->drawText(room, Qt::AlignVCenter | Qt::AlignRight, ratio);
        const int size = painter->fontMetrics().ascent();
        room.adjust(kSwatch.width() + 6, 0, -painter->fontMetrics().horizontalAdvance(ratio) - size - 10, 0);
        if (pair.IsHard())
            PaintSign(*painter, QRectF(room.right() + 5, room.center().y() - size / 2.0, size, size - 1.0),
                      warning, ground);
        painter->setPen(worn.On(KS_PEN_TEXT, ground));
        painter->drawText(room, Qt::AlignVCenter | Qt::AlignLeft,
                          painter->fontMetrics().elidedText(WordsFor(pair), Qt::ElideRight, room.width()));
        if (option.state & QStyle::State_HasFocus)
            draw::Focus(*painter, worn, option.rect, ground);
        painter->restore();
    }

private:
    const PairList& _list;
};

PairList::PairList(std::function<void(const pen_pair&)> chosen, QWidget* parent)
    : QListWidget(parent), _chosen(std::move(chosen)) {
    setAccessibleName(texts::Text(texts::kPairs));
    setItemDelegate(new Delegate(this));
    setSelectionMode(QAbstractItemView::NoSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    connect(this, &QListWidget::itemClicked, this,
            [this](const QListWidgetItem* item) { _chosen(_pairs[static_cast<std::size_t>(row(item))]); });
}

void PairList::Show(const Worn& truth) {
    _truth = truth;
    _pairs = MeasurePairs(truth);
    for (std::size_t i = 0; i < _pairs.size(); ++i) {
        QString text = WordsFor(_pairs[i]) + QStringLiteral(", ") + RatioOf(_pairs[i]);
        if (_pairs[i].IsHard())
            text += QStringLiteral(", ") + texts::Text(texts::kHardToRead);
        const int row = static_cast<int>(i);
        if (row == count())
            addItem(QString());
        if (item(row)->text() == text)
            continue;
        item(row)->setText(text);
        item(row)->setToolTip(text);
    }
    viewport()->update();
}

int PairList::HardPairs() const {
    return static_cast<int>(std::ranges::count_if(_pairs, &pen_pair::IsHard));
}

void PairList::keyPressEvent(QKeyEvent* event) {
    const bool chooses =
        event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter || event->key() == Qt::Key_Space;
    if (!chooses || currentRow() < 0)
        QListWidget::keyPressEvent(event);
    else if (!event->isAutoRepeat())
        _chosen(_pairs[static_cast<std::size_t>(currentRow())]);
}
