// SPDX-License-Identifier: MIT
#include "display/held_arrows.h"

#include <QAbstractSpinBox>
#include <QApplication>
#include <QEvent>
#include <QScrollBar>
#include <QStyle>

namespace {

constexpr int kFirstDelay = 500;  // milliseconds

// Opens what a scroll bar keeps to itself.
struct Repeating : QScrollBar {
    using QScrollBar::repeatAction;
    using QScrollBar::setRepeatAction;
};

// Handles the event, and sets the time between repeats where an arrow begins to be held.
void Pace(QScrollBar& bar, QEvent& event) {
    const auto action = [&] { return (bar.*&Repeating::repeatAction)(); };
    const QAbstractSlider::SliderAction before = action();
    bar.event(&event);
    const QAbstractSlider::SliderAction now = action();
    if (now != before &&
        (now == QAbstractSlider::SliderSingleStepAdd || now == QAbstractSlider::SliderSingleStepSub))
        (bar.*&Repeating::setRepeatAction)(
            now, kFirstDelay,
            bar.style()->styleHint(QStyle::SH_SpinBox_ClickAutoRepeatRate, nullptr, &bar, nullptr));
}

}  // namespace

void HeldArrows::Watch(QObject* widget) {
    if (qobject_cast<QScrollBar*>(widget) || qobject_cast<QAbstractSpinBox*>(widget))
        widget->installEventFilter(this);
}

bool HeldArrows::eventFilter(QObject* object, QEvent* event) {
    const bool is_press = event->type() == QEvent::MouseButtonPress;
    if (!is_press && event->type() != QEvent::MouseMove)
        return false;
    if (auto* bar = qobject_cast<QScrollBar*>(object)) {
        Pace(*bar, *event);
        return true;
    }
    if (is_press) {
        // A spin box asks its style for the time only when it has a new one.
        QEvent change(QEvent::StyleChange);
        QApplication::sendEvent(object, &change);
    }
    return false;
}
