// SPDX-License-Identifier: MIT
// Lets held arrows of scroll bars and spin boxes repeat in the time that the look says, after the usual first
// delay.
#pragma once

#include <QObject>

class HeldArrows : public QObject {
public:
    // Takes care of a scroll bar or a spin box; other widgets are left alone.
    void Watch(QObject* widget);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
};
