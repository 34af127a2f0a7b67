// SPDX-License-Identifier: MIT
#include "display/screen_fit.h"

#include <QGuiApplication>
#include <QMargins>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <QWindow>

#include <algorithm>

namespace {

// Room for a frame that the window manager has not told yet.
constexpr QMargins kFrame(4, 32, 4, 4);

}  // namespace

QRect PlaceIn(const QRect& screen, QPoint start, QSize wanted) {
    const QRect room = screen.marginsRemoved(kFrame);
    const QSize size = wanted.boundedTo(room.size());
    const QPoint nearest = screen.topLeft(),
                 farthest = nearest + QPoint(room.width() - size.width(), room.height() - size.height());
    return {QPoint(std::clamp(start.x(), nearest.x(), farthest.x()),
                   std::clamp(start.y(), nearest.y(), farthest.y())),
            size};
}

void FitToScreen(QWidget& window, QPoint start, QSize least) {
    QScreen* there = QGuiApplication::screenAt(start);
    const QRect screen = (there ? there : window.screen())->availableGeometry();
    const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    QSize wanted = least.expandedTo(window.sizeHint());
    if (wanted.height() > PlaceIn(screen, start, wanted).height())  // something will scroll
        wanted.rwidth() += bar;
    const QRect place = PlaceIn(screen, start, wanted);
    BoundLeastSize(window);
    if (!window.isVisible()) {
        window.resize(place.size());
        window.move(place.topLeft());
        return;
    }
    // A window that keeps its size stays where the user has put it.
    if (window.size() == place.size())
        return;
    window.resize(place.size());
    // By its frame's corner, since the window manager may not have told the frame yet.
    window.windowHandle()->setFramePosition(place.topLeft());
}

void BoundLeastSize(QWidget& window) {
    const QRect screen = window.screen()->availableGeometry();
    window.setMinimumSize(PlaceIn(screen, screen.topLeft(), window.minimumSizeHint()).size());
}

void PlaceDialog(QWidget& dialog, QSize wanted, const QWidget& window) {
    const QRect screen = window.screen()->availableGeometry(), frame = window.frameGeometry();
    const QRect right = PlaceIn(screen, frame.topRight() + QPoint(1, 0), wanted);
    const int width = right.width() + kFrame.left() + kFrame.right();
    const QRect left = PlaceIn(screen, frame.topLeft() - QPoint(width, 0), wanted);
    dialog.resize(right.size());
    for (const QRect& place : {right, left})
        if (place.left() > frame.right() || place.left() + width <= frame.left()) {
            dialog.move(place.topLeft());
            return;
        }
}
