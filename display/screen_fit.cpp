// SPDX-License-Identifier: MIT
#include "display/screen_fit.h"

#include <QGuiApplication>
#include <QMargins>
#include <QScreen>
#include <QWidget>

#include <algorithm>

namespace {

// Room for a frame that the window manager has not told yet.
constexpr QMargins kFrame(4, 32, 4, 4);

}  // namespace

QSize RoomFor(const QWidget& window) {
    return window.screen()->availableGeometry().marginsRemoved(kFrame).size();
}

void Place(QWidget& window, QPoint start, QSize least) {
    if (QScreen* screen = QGuiApplication::screenAt(start))
        window.setScreen(screen);
    const QRect room = window.screen()->availableGeometry().marginsRemoved(kFrame);
    const QSize size = least.expandedTo(window.sizeHint()).boundedTo(room.size());
    window.setMinimumSize(window.minimumSizeHint().boundedTo(room.size()));
    window.resize(size);
    const QPoint farthest = room.bottomRight() - QPoint(size.width() - 1, size.height() - 1) -
                            QPoint(kFrame.left(), kFrame.top());
    const QPoint nearest = room.topLeft() - QPoint(kFrame.left(), kFrame.top());
    window.move(std::clamp(start.x(), nearest.x(), farthest.x()),
                std::clamp(start.y(), nearest.y(), farthest.y()));
}
