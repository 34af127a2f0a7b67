// SPDX-License-Identifier: MIT
#include "display/pop_up_button.h"

#include "display/marks.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QLabel>
#include <QStringList>

#include <utility>

namespace {

class PopUpAccessible : public QAccessibleWidget {
public:
    explicit PopUpAccessible(PopUpButton* button)
        : QAccessibleWidget(button, button->Role()), _button(button) {}

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? _button->ValueText() : QAccessibleWidget::text(kind);
    }
    // Qt finds the label only where it has the same parent.
    QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>
    relations(QAccessible::Relation match) const override {
        auto found = QAccessibleWidget::relations(match);
        if (found.isEmpty() && match.testFlag(QAccessible::Label))
            for (QLabel* label : _button->window()->findChildren<QLabel*>())
                if (label->buddy() == _button)
                    found.append({QAccessible::queryAccessibleInterface(label), QAccessible::Label});
        return found;
    }
    QStringList actionNames() const override {
        return QStringList(pressAction()) + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == pressAction())
            _button->click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    PopUpButton* _button;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* button = dynamic_cast<PopUpButton*>(object);
    return button ? new PopUpAccessible(button) : nullptr;
}

}  // namespace

PopUpButton::PopUpButton(QAccessible::Role role, QWidget* parent) : QAbstractButton(parent), _role(role) {
    setFocusPolicy(Qt::StrongFocus);
    QAccessible::installFactory(MakeAccessible);  // a second time changes nothing
}

void PopUpButton::SetValueText(const QString& text) {
    _value_text = text;
    marks::Describe(*this, text);
}

void PopUpButton::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !event->isAutoRepeat())
        click();
    else
        QAbstractButton::keyPressEvent(event);
}
