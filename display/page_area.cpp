// SPDX-License-Identifier: MIT
#include "display/page_area.h"

#include "display/look.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

namespace {

constexpr QSize kLeastPage(560, 240);

}  // namespace

PageArea::PageArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
}

// A page that is laid out before it has its texts would keep the sizes of then.
void PageArea::showEvent(QShowEvent* event) {
    if (!widget()) {
        setWidget(_page);
        // What is below shows through.
        _page->setAutoFillBackground(false);
        viewport()->setAutoFillBackground(false);
    }
    QScrollArea::showEvent(event);
}

QSize PageArea::sizeHint() const {
    return _page->sizeHint().expandedTo(_page->minimumSizeHint());
}

QSize PageArea::minimumSizeHint() const {
    const int bar = verticalScrollBar()->sizeHint().width();
    return (_page->minimumSizeHint() + QSize(bar, 0)).boundedTo(kLeastPage);
}

bool PageArea::eventFilter(QObject* object, QEvent* event) {
    if (object == _page && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(object, event);
}

void PageArea::FollowFocus(QWidget* focused) {
    if (focused && _page->isAncestorOf(focused))
        ensureWidgetVisible(focused, look::kGap, look::kGap);
}
