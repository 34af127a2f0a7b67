// SPDX-License-Identifier: MIT
// A list view: Qt scrolls it, selects in it and tells assistive tools; the items draw themselves.
#include "display/control_mirror.h"
#include "display/look.h"
#include "display/marks.h"
#include "display/pen_style.h"
#include "display/shown_text.h"
#include "display/surface.h"
#include "display/texts.h"
#include "display/window_mirror.h"
#include "kits/BWindow.h"
#include "toolkit/KSListView.h"

#include <QEvent>
#include <QListWidget>
#include <QMimeData>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFocusRect>
#include <QStyledItemDelegate>

#include <algorithm>
#include <vector>

namespace {

constexpr int kLongestItem = 40;  // average characters that a list makes room for
constexpr int kMarkRoom = 16;

// Lets an item of the control paint itself, under the window's lock.
class ItemPainter : public QStyledItemDelegate {
public:
    ItemPainter(KSListView& control, BWindow& window, QListWidget* list)
        : QStyledItemDelegate(list), _control(control), _window(window), _list(*list) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        painter->save();
        painter->setClipRect(option.rect);
        {
            const BAutolock lock(&_window);
            KSListItem* item = lock ? _control.ItemAt(index.row()) : nullptr;
            if (item) {
                Surface surface(_list, painter);
                const SurfaceScope scope(_control, surface);
                const KSRect<long> frame(option.rect.left(), option.rect.top(), option.rect.right(),
                                         option.rect.bottom());
                item->DrawItem(&_control, frame, {frame.left, frame.top}, nullptr, index.row());
            }
        }
        if (!index.data(Qt::AccessibleDescriptionRole).toString().isEmpty())
            PaintMark(*painter, option);
        if (option.state & QStyle::State_HasFocus)
            PaintFocus(*painter, option);
        painter->restore();
    }

private:
    // In the room that a row has on each side.
    static void PaintMark(QPainter& painter, const QStyleOptionViewItem& option) {
        const bool is_selected = option.state.testFlag(QStyle::State_Selected);
        const QRect room(option.rect.right() - kMarkRoom, option.rect.top(), kMarkRoom, option.rect.height());
        marks::PaintDot(painter, PenStyle::Instance().Wearing(), room,
                        is_selected ? KS_PEN_BG_SELECTED : KS_PEN_BG_LIST);
    }

    void PaintFocus(QPainter& painter, const QStyleOptionViewItem& option) const {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.state |= QStyle::State_KeyboardFocusChange | QStyle::State_Item;
        focus.backgroundColor = option.palette.color(QPalette::Base);
        _list.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, &_list);
    }

    KSListView& _control;
    BWindow& _window;
    const QListWidget& _list;
};

class List : public QListWidget {
public:
    List(KSListView& control, QWidget* parent) : QListWidget(parent), _control(control) {
        setSelectionMode(QAbstractItemView::SingleSelection);
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    }

    // Sets the least size of the content that can be seen.
    void SetLeastSize(QSize least) {
        if (least == _least)
            return;
        _least = least;
        updateGeometry();
    }

    QSize minimumSizeHint() const override {
        const int frame = 2 * frameWidth();
        return _least + QSize(frame, frame);
    }
    QSize sizeHint() const override { return minimumSizeHint(); }

protected:
    void changeEvent(QEvent* event) override {
        QListWidget::changeEvent(event);
        // The items measure themselves again when the tree is laid out.
        if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
            _control.ResetLayout(false, true);
    }

private:
    KSListView& _control;
    QSize _least;
};

class ListViewMirror : public ControlMirror {
public:
    ListViewMirror(KSListView& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _list(new List(control, parent)) {
        SetWidget(_list);
        _list->setItemDelegate(new ItemPainter(control, window.Window(), _list));
        QObject::connect(_list, &QListWidget::itemSelectionChanged, _list, [this] {
            const QModelIndexList selected = _list->selectionModel()->selectedRows();
            _control.EditSelection(selected.isEmpty() ? -1 : selected.front().row());
        });
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _control.CallSelectionHook();
        Surface surface(*_list);
        const SurfaceScope scope(_control, surface);
        _rows.clear();
        for (long i = 0; KSListItem* item = _control.ItemAt(i); ++i) {
            item->RenderSetup(&_control);
            _rows.push_back({QString::fromUtf8(item->AccessibleText()), static_cast<int>(item->Height()),
                             _control.IsItemMarked(i)});
        }
        const KSPoint<long> least = _control.MinSize();
        _least = QSize(static_cast<int>(least.x), static_cast<int>(least.y));
        _selection = static_cast<int>(_control.CurrentSelection());
    }

    QString CopiedText() const override {
        const QListWidgetItem* item = _list->item(_selection);
        return item ? item->text() : QString();
    }
    std::function<void()> Paster(const QMimeData& data) override {
        const QList<QListWidgetItem*> found = _list->findItems(data.text().trimmed(), Qt::MatchExactly);
        return found.isEmpty() ? nullptr : std::function<void()>([row = _list->row(found.front()), this] {
            _list->setCurrentRow(row);
        });
    }

    void Apply() override {
        ControlMirror::Apply();
        ApplyRows();
        ApplyLeastSize();
        const QList<QListWidgetItem*> selected = _list->selectedItems();
        const int shown = selected.isEmpty() ? -1 : _list->row(selected.front());
        if (_selection < 0)
            _list->clearSelection();
        else if (_selection != shown)
            _list->setCurrentRow(_selection);
        _list->viewport()->update();
    }

    QWidget* Editor() const override { return _list; }

private:
    struct Row {
        QString text;
        int height;
        bool is_marked;
    };

    void ApplyRows() {
        const int count = static_cast<int>(_rows.size());
        while (_list->count() > count)
            delete _list->takeItem(count);
        for (int i = 0; i < count; ++i) {
            const Row& row = _rows[static_cast<std::size_t>(i)];
            if (i == _list->count())
                _list->addItem(QString());
            QListWidgetItem* item = _list->item(i);
            if (item->text() != row.text) {
                item->setText(row.text);
                item->setToolTip(TipFor(row.text, CutText(row.text, kLongestItem)));
            }
            if (item->sizeHint().height() != row.height)
                item->setSizeHint(QSize(0, row.height));
            const QString mark = row.is_marked ? texts::Text(texts::kChanged) : QString();
            if (item->data(Qt::AccessibleDescriptionRole).toString() != mark)
                item->setData(Qt::AccessibleDescriptionRole, mark);
        }
    }

    // As wide as the widest text and the scroll bar, and as high as a few rows.
    void ApplyLeastSize() {
        int width = 0, height = 0;
        for (const Row& row : _rows) {
            width = std::max(width, _list->fontMetrics().horizontalAdvance(row.text));
            height = std::max(height, row.height);
        }
        // An unreasonably long text is cut off: the window must fit the screen.
        width = std::min(width, kLongestItem * _list->fontMetrics().averageCharWidth());
        width += 2 * look::kGap + _list->verticalScrollBar()->sizeHint().width();
        _list->SetLeastSize(QSize(width, height * look::kLeastRows).expandedTo(_least));
    }

    KSListView& _control;
    List* _list;
    std::vector<Row> _rows;
    QSize _least;
    int _selection = -1;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorListView(KSListView& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<ListViewMirror>(control, window, parent);
}
