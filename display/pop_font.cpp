// SPDX-License-Identifier: MIT
// A font pop-up: shows family, style and size in the font itself and opens the panel to choose another.
#include "display/control_mirror.h"
#include "display/font_panel.h"
#include "display/look.h"
#include "display/pop_up_button.h"
#include "toolkit/KSPopFont.h"

#include <QPointer>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <algorithm>
#include <functional>
#include <utility>

namespace {

class FontButton : public PopUpButton {
public:
    FontButton(std::function<void(const BFont&)> edited, QWidget* parent)
        : PopUpButton(QAccessible::ButtonDropDown, parent), _edited(std::move(edited)) {
        setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        connect(this, &QAbstractButton::clicked, this, [this] { Choose(); });
    }

    void SetFont(const BFont& font) {
        if (font == _font && !ValueText().isEmpty())
            return;
        _font = font;
        SetValueText(QStringLiteral("%1 %2, %3")
                         .arg(QString::fromStdString(font.Family()), QString::fromStdString(font.Style()),
                              locale().toString(font.Size(), 'g', 6)));
        QFont shown = ToQFont(font);
        shown.setPointSizeF(look::BoundedPoints(font.Size(), look::kSmallestPoints, look::kLargestPoints));
        setFont(shown);
        updateGeometry();
        update();
    }

    // Wide enough for an ordinary name; a longer one is elided.
    QSize sizeHint() const override {
        ensurePolished();
        const int text = std::min(fontMetrics().horizontalAdvance(ValueText()), kWidestName);
        return {text + 2 * kInset,
                std::max(fontMetrics().height(), parentWidget()->fontMetrics().height()) + 10};
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QStylePainter painter(this);
        QStyleOptionButton option;
        option.initFrom(this);
        option.state |= isDown() ? QStyle::State_Sunken : QStyle::State_Raised;
        painter.drawControl(QStyle::CE_PushButtonBevel, option);
        if (hasFocus()) {
            QStyleOptionFocusRect focus;
            focus.initFrom(this);
            focus.state |= QStyle::State_KeyboardFocusChange;
            focus.rect = rect().adjusted(3, 3, -3, -3);
            painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
        }
        const QRect text = rect().adjusted(kInset, 0, -kInset, 0);
        painter.setPen(palette().color(QPalette::ButtonText));
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeft,
                         fontMetrics().elidedText(ValueText(), Qt::ElideMiddle, text.width()));
    }

private:
    static constexpr int kInset = 10;
    static constexpr int kWidestName = 400;

    void Choose() {
        if (_panel) {
            _panel->activateWindow();
            return;
        }
        _panel = new FontPanel(_font, window());
        _panel->setWindowTitle(accessibleName());
        connect(_panel, &QDialog::accepted, this, [this] { _edited(_panel->Font()); });
        _panel->open();
    }

    std::function<void(const BFont&)> _edited;
    BFont _font;
    QPointer<FontPanel> _panel;
};

class PopFontMirror : public ControlMirror {
public:
    PopFontMirror(KSPopFont& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window),
          _control(control),
          _button(new FontButton([this](const BFont& font) { _control.EditValue(font); }, parent)) {
        SetWidget(_button);
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _font = _control.Font();
    }

    void Apply() override {
        ControlMirror::Apply();
        _button->SetFont(_font);
    }

    QWidget* Editor() const override { return _button; }

private:
    KSPopFont& _control;
    FontButton* _button;
    BFont _font;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorPopFont(KSPopFont& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<PopFontMirror>(control, window, parent);
}
