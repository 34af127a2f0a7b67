// SPDX-License-Identifier: MIT
// What shows a value and opens something to choose another: pressed by the mouse, Space or Enter.
#pragma once

#include <QAbstractButton>
#include <QAccessible>
#include <QString>

class PopUpButton : public QAbstractButton {
public:
    PopUpButton(QAccessible::Role role, QWidget* parent);

    QAccessible::Role Role() const { return _role; }
    // The value as assistive tools read it: as the value itself and, for those that read no value from such
    // a role, as the description.
    void SetValueText(const QString& text);
    const QString& ValueText() const { return _value_text; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QAccessible::Role _role;
    QString _value_text;
};
