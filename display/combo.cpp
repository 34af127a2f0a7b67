// SPDX-License-Identifier: MIT
#include "display/combo.h"

#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QStringList>
#include <QWheelEvent>

namespace {

// On Linux, Qt gives assistive tools a combo box's text as its name, even where it has a name.
class ComboAccessible : public QAccessibleWidget {
public:
    explicit ComboAccessible(QComboBox* combo)
        : QAccessibleWidget(combo, QAccessible::ComboBox), _combo(combo) {}

    QString text(QAccessible::Text kind) const override {
        switch (kind) {
        case QAccessible::Name:
            return _combo->accessibleName();
        case QAccessible::Value:
            return _combo->currentText();
        case QAccessible::Description:  // of the two, the accessibility bus carries only this one
            return _combo->accessibleDescription().isEmpty() ? _combo->currentText()
                                                             : _combo->accessibleDescription();
        default:
            return QAccessibleWidget::text(kind);
        }
    }
    int childCount() const override { return 1; }
    QAccessibleInterface* child(int index) const override {
        return index == 0 ? QAccessible::queryAccessibleInterface(_combo->view()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface* child) const override {
        return child->object() == _combo->view() ? 0 : -1;
    }
    QStringList actionNames() const override {
        return QStringList{showMenuAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString& action) override {
        if (action == showMenuAction())
            _combo->showPopup();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    QComboBox* _combo;
};

QAccessibleInterface* MakeAccessible(const QString&, QObject* object) {
    auto* combo = dynamic_cast<Combo*>(object);
    return combo ? new ComboAccessible(combo) : nullptr;
}

}  // namespace

Combo::Combo(QWidget* parent) : QComboBox(parent) {
    setFocusPolicy(Qt::StrongFocus);
    QAccessible::installFactory(MakeAccessible);  // a second time changes nothing
}

void Combo::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}
