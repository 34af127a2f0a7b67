// SPDX-License-Identifier: MIT
#include "display/typed_text.h"

#include <QKeyEvent>
#include <QLineEdit>

#include <utility>

namespace {

class TypedText : public QObject {
public:
    TypedText(QLineEdit* line, QWidget* keys) : QObject(keys) {
        connect(line, &QLineEdit::textEdited, this, [this] { _is_pending = true; });
        connect(line, &QLineEdit::inputRejected, this, [this] { _is_pending = true; });
        keys->installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::FocusOut)
            _is_pending = false;
        if (event->type() != QEvent::KeyPress)
            return false;
        const auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() != Qt::Key_Return && key->key() != Qt::Key_Enter)
            return false;
        // A held Enter does not go on by itself.
        if (key->isAutoRepeat())
            return true;
        if (!std::exchange(_is_pending, false))
            return false;
        object->event(event);
        event->accept();
        return true;
    }

private:
    bool _is_pending = false;
};

}  // namespace

void LetEnterTakeTypedText(QLineEdit* line, QWidget* keys) {
    new TypedText(line, keys);
}
