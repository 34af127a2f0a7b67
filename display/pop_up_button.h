// SPDX-License-Identifier: MIT
// A button that shows a value and opens something to choose another. The mouse, Space and Enter press it.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QString>

class PopUpButton : public QAbstractButton {
public:
    PopUpButton(QAccessible::Role role, QWidget* parent);

    QAccessible::Role Role() const { return _role; }
    // Sets the value that assistive tools read. It is also the description, for tools that read no value from
    // a button.
    void SetValueText(const QString& text);
    const QString& ValueText() const { return _value_text; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QAccessible::Role _role;
    QString _value_text;
};
