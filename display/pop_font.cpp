// SPDX-License-Identifier: MIT
// A font pop-up: shows family, style and size in the font itself and opens the panel to choose another.
#include "display/control_mirror.h"
#include "display/draw.h"
#include "display/font_panel.h"
#include "display/look.h"
#include "display/pen_style.h"
#include "display/pop_up_button.h"
#include "display/wardrobe.h"
#include "display/window_mirror.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/settings_values.h"

#include <QMimeData>
#include <QPainter>
#include <QPointer>

#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

namespace {

class FontButton : public PopUpButton {
public:
    // `edited` is called with each font that is chosen, `opened` with each panel.
    FontButton(std::function<void(const BFont&)> edited, std::function<void(FontPanel&)> opened,
               QWidget* parent)
        : PopUpButton(QAccessible::ButtonDropDown, parent),
          _edited(std::move(edited)),
          _opened(std::move(opened)) {
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
        const Worn& worn = PenStyle::Instance().Wearing();
        const draw::ButtonState state{
            .is_down = isDown(), .is_default = false, .is_enabled = isEnabled(), .has_room = false};
        const QColor ground = draw::ButtonGround(worn, state);
        QPainter painter(this);
        draw::Button(painter, worn, rect(), state);
        if (hasFocus())
            draw::Focus(painter, worn, rect().adjusted(3, 3, -3, -3), ground);
        const QRect text = rect().adjusted(kInset, 0, -kInset, 0).translated(isDown(), isDown());
        painter.setPen(worn.On(isEnabled() ? KS_PEN_TEXT : KS_PEN_DISABLEDTEXT, ground));
        painter.drawText(text, Qt::AlignVCenter | Qt::AlignLeading,
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
        _opened(*_panel);
        _panel->open();
    }

    std::function<void(const BFont&)> _edited;
    std::function<void(FontPanel&)> _opened;
    BFont _font;
    QPointer<FontPanel> _panel;
};

class PopFontMirror : public ControlMirror {
public:
    PopFontMirror(KSPopFont& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window),
          _control(control),
          _button(new FontButton([this](const BFont& font) { _control.EditValue(font); },
                                 [this](FontPanel& panel) { WearWhatItShows(panel); }, parent)) {
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

    // As the settings file has it.
    QString CopiedText() const override { return QString::fromStdString(ks_format_font(_font)); }
    std::function<void()> Paster(const QMimeData& data) override {
        const std::optional<BFont> font = ks_parse_font(data.text().trimmed().toStdString());
        if (!font || !(font->Size() > 0))
            return nullptr;
        return [font = *font, this] { _control.EditValue(font); };
    }

private:
    void WearWhatItShows(FontPanel& panel) {
        const std::optional<ks_font> slot = ks_current_look->FontOf(&_control);
        if (!slot)
            return;
        panel.SetChangeListener([slot = *slot, this](const BFont& font) {
            Window().Worn().TryOn([slot, font](ks_look& look) { look.fonts[slot] = font; });
        });
        Window().TakeOffAfter(panel);
    }

    KSPopFont& _control;
    FontButton* _button;
    BFont _font;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorPopFont(KSPopFont& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<PopFontMirror>(control, window, parent);
}
