// SPDX-License-Identifier: MIT
// The desktop's way to pick a colour from the screen, in the GUI's event loop.
#pragma once

#include "kits/ColorPortal.h"

#include <QObject>
#include <QSocketNotifier>
#include <QTimer>

#include <optional>

class ScreenColor : public QObject {
public:
    // See ColorPortal.
    ScreenColor(std::function<void()> offered, std::function<void(ks_color)> picked, QObject* parent);

    void Pick();

private:
    void Process();
    void Listen();

    ColorPortal _portal;
    std::optional<QSocketNotifier> _can_read, _can_write;
    QTimer _due;
};
