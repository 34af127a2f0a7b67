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
#include <QToolTip>

#include <algorithm>
#include <utility>

// Shows a colour as text and takes what is typed for it as soon as that is one.
class ColorLine : public QLineEdit {
public:
    ColorLine(std::function<void(const QColor&)> typed, QWidget* parent)
        : QLineEdit(parent), _typed(std::move(typed)) {
        setObjectName(QStringLiteral("color"));
        connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
            if (const std::optional<QColor> color = ReadColor(text))
                _typed(*color);
        });
        connect(this, &QLineEdit::editingFinished, this, [this] { Finish(); });
        LetEnterTakeTypedText(this, this);
    }

    // Leaves a text alone that already means the colour: it may be being typed.
    void SetColor(const QColor& color) {
        _color = color;
        if (const auto shown = ReadColor(text()); !shown || shown->rgba() != color.rgba())
            setText(ColorText(color));
    }

private:
    // A text that is no colour gives way to the colour, and the user is told.
    void Finish() {
        if (!ReadColor(text()))
            QToolTip::showText(mapToGlobal(rect().bottomLeft()), texts::Text(texts::kNoColor), this);
        setText(ColorText(_color));
    }

    std::function<void(const QColor&)> _typed;
    QColor _color;
};

ColorPanel::ColorPanel(const QColor& start, QWidget* parent)
    : QColorDialog(start, parent),
      _line(new ColorLine([this](const QColor& color) { setCurrentColor(color); }, this)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setOptions(QColorDialog::ShowAlphaChannel | QColorDialog::DontUseNativeDialog);
    ReplaceColorName();
    _line->SetColor(start);
    connect(this, &QColorDialog::currentColorChanged, _line, &ColorLine::SetColor);
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
    auto* screen = new ScreenColor([button] { button->show(); },
                                   [this](ks_color picked) {
                                       QColor color(picked.red, picked.green, picked.blue);
                                       color.setAlpha(currentColor().alpha());
                                       setCurrentColor(color);
                                   },
                                   this);
    connect(button, &QPushButton::clicked, screen, &ScreenColor::Pick);
}
