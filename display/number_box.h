// SPDX-License-Identifier: MIT
// A spin box for a number with up to two decimals.
//
// Every decimal separator and every kind of digits can be typed, whatever the locale; the number is shown as
// the locale writes it. Text behind a pasted number, a unit for example, is left out. A number typed outside
// the bounds becomes the nearer bound.
#pragma once

#include <QDoubleSpinBox>

class NumberBox : public QDoubleSpinBox {
public:
    explicit NumberBox(QWidget* parent);

    QValidator::State validate(QString& text, int& position) const override;
    void fixup(QString& text) const override;
    double valueFromText(const QString& text) const override;
    QString textFromValue(double value) const override;

protected:
    // The wheel turns it only while it has the focus: scrolling the window changes nothing.
    void wheelEvent(QWheelEvent* event) override;
};
