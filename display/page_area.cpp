// SPDX-License-Identifier: MIT
#include "display/page_area.h"

#include "display/look.h"

#include <QApplication>
#include <QEvent>
#include <QScrollBar>

#include <utility>

namespace {

constexpr QSize kLeastPage(640, 240);

}  // namespace

PageArea::PageArea(QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { FollowFocus(now); });
}

void PageArea::SetPage(QWidget* page) {
    setWidget(page);
    // What is below shows through.
    page->setAutoFillBackground(false);
    viewport()->setAutoFillBackground(false);
}

QSize PageArea::sizeHint() const {
    return widget()->sizeHint().expandedTo(widget()->minimumSizeHint());
}

QSize PageArea::minimumSizeHint() const {
    const int bar = _scrolls ? verticalScrollBar()->sizeHint().width() : 0;
    return (widget()->minimumSizeHint() + QSize(bar, 0)).boundedTo(kLeastPage);
}

// The bar takes no room from a page that does not scroll.
void PageArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const bool scrolls = height() < widget()->minimumSizeHint().height();
    if (std::exchange(_scrolls, scrolls) != scrolls)
        updateGeometry();
}

bool PageArea::eventFilter(QObject* object, QEvent* event) {
    if (object == widget() && event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QScrollArea::eventFilter(object, event);
}

void PageArea::FollowFocus(QWidget* focused) {
    if (focused && widget()->isAncestorOf(focused))
        ensureWidgetVisible(focused, look::kGap, look::kGap);
}
