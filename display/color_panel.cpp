// SPDX-License-Identifier: MIT
#include "display/color_panel.h"

#include "display/color_text.h"
#include "display/screen_color.h"
#include "display/screen_fit.h"
#include "display/texts.h"
#include "display/typed_text.h"

#include <QAbstractSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QToolTip>

#include <algorithm>
#include <utility>

// Shows a colour as text and takes what is typed for it while that is one.
class ColorLine : public QLineEdit {
public:
    ColorLine(std::function<void(const QColor&)> typed, QWidget* parent)
        : QLineEdit(parent), _typed(std::move(typed)) {
        setObjectName(QStringLiteral("color"));
        connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
            const QScopedValueRollback typing(_is_typing, true);
            _typed(ReadColor(text).value_or(_before));
            setFocus(Qt::OtherFocusReason);  // the dialog gives it to the palette that has the colour
        });
        connect(this, &QLineEdit::editingFinished, this, [this] { Finish(); });
        LetEnterTakeTypedText(this, this);
    }

    // Leaves the text that is being typed alone.
    void SetColor(const QColor& color) {
        _color = color;
        if (!_is_typing)
            Show();
    }

private:
    // A text that is no colour gives way to the colour, and the user is told.
    void Finish() {
        if (_is_typing)
            return;
        if (!ReadColor(text()))
            QToolTip::showText(mapToGlobal(rect().bottomLeft()), texts::Text(texts::kNoColor), this);
        Show();
    }

    void Show() {
        _before = _color;
        setText(ColorText(_color));
    }

    std::function<void(const QColor&)> _typed;
    QColor _color;
    QColor _before;  // the typing
    bool _is_typing = false;
};

ColorPanel::ColorPanel(const QColor& start, QWidget* parent)
    : QColorDialog(parent),
      _alpha(start.alpha()),
      _line(new ColorLine([this](const QColor& color) { setCurrentColor(color); }, this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::DontUseNativeDialog);
    ReplaceColorName();
    connect(this, &QColorDialog::currentColorChanged, _line, &ColorLine::SetColor);
    setCurrentColor(start);  // only now does the dialog know of alpha
    _line->SetColor(start);
    connect(this, &QColorDialog::currentColorChanged, this,
            [this](const QColor& color) { KeepAlpha(color); });
    for (auto* spin : findChildren<QAbstractSpinBox*>())
        LetEnterTakeTypedText(spin->findChild<QLineEdit*>(), spin);
    OfferScreen();
    PlaceDialog(*this, sizeHint(), *parent);
}

// Qt's own line takes the digits of a colour with alpha for another colour.
void ColorPanel::ReplaceColorName() {
    for (auto* label : findChildren<QLabel*>()) {
        auto* old = qobject_cast<QLineEdit*>(label->buddy());
        if (!old)
            continue;
        delete old->parentWidget()->layout()->replaceWidget(old, _line);
        old->hide();  // the dialog still writes into it
        label->setBuddy(_line);
        return;
    }
}

void ColorPanel::KeepAlpha(const QColor& color) {
    const bool is_picking = mouseGrabber() == this;
    if (is_picking && color.alpha() != _alpha)
        Take(color);
    else
        _alpha = color.alpha();
}

void ColorPanel::Take(QColor color) {
    color.setAlpha(_alpha);
    setCurrentColor(color);
}

void ColorPanel::OfferScreen() {
    const QString text = QColorDialog::tr("&Pick Screen Color");
    for (const auto* button : findChildren<QPushButton*>())
        if (button->text() == text && !button->isHidden())
            return;
    auto* grid = qobject_cast<QGridLayout*>(_line->parentWidget()->layout());
    if (!grid)
        return;
    auto* button = new QPushButton(text, _line->parentWidget());
    button->setAutoDefault(false);
    button->hide();
    grid->addWidget(button, grid->rowCount(), 1, 1, -1);
    const auto take = [this](ks_color picked) { Take(QColor(picked.red, picked.green, picked.blue)); };
    auto* screen = new ScreenColor([button] { button->show(); }, take, this);
    connect(button, &QPushButton::clicked, screen, &ScreenColor::Pick);
}
