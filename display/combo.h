// SPDX-License-Identifier: MIT
// A combo box that is known to assistive tools by its own name. The wheel turns it only while it has the
// focus, so that scrolling changes nothing.
#pragma once

#include <QComboBox>

class Combo : public QComboBox {
public:
    explicit Combo(QWidget* parent);

protected:
    void wheelEvent(QWheelEvent* event) override;
};
