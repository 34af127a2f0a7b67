// SPDX-License-Identifier: MIT
#include "display/screen_color.h"

#include <utility>

ScreenColor::ScreenColor(std::function<void()> offered, std::function<void(ks_color)> picked, QObject* parent)
    : QObject(parent), _portal(std::move(offered), std::move(picked)) {
    int timeout = -1;
    const pollfd entry = _portal.PollEntry(timeout);
    if (entry.fd < 0)
        return;
    _can_read.emplace(entry.fd, QSocketNotifier::Read);
    _can_write.emplace(entry.fd, QSocketNotifier::Write);
    _due.setSingleShot(true);
    connect(&*_can_read, &QSocketNotifier::activated, this, &ScreenColor::Process);
    connect(&*_can_write, &QSocketNotifier::activated, this, &ScreenColor::Process);
    connect(&_due, &QTimer::timeout, this, &ScreenColor::Process);
    Listen();
}

void ScreenColor::Pick() {
    _portal.Pick();
    Listen();
}

void ScreenColor::Process() {
    _portal.Process();
    Listen();
}

void ScreenColor::Listen() {
    int timeout = -1;
    const pollfd entry = _portal.PollEntry(timeout);
    if (_can_read)
        _can_read->setEnabled(entry.events & POLLIN);
    if (_can_write)
        _can_write->setEnabled(entry.events & POLLOUT);
    if (timeout < 0)
        _due.stop();
    else
        _due.start(timeout);
}
