// SPDX-License-Identifier: MIT
// A colour field: shows its colour, opens a colour dialog, takes and gives colours by drag and drop and by
// the clipboard.
#include "display/color_mirror.h"
#include "display/color_panel.h"
#include "display/color_text.h"
#include "display/draw.h"
#include "display/look.h"
#include "display/pen_style.h"
#include "display/pop_up_button.h"
#include "display/wardrobe.h"
#include "display/window_mirror.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSLook.h"

#include <QApplication>
#include <QDrag>
#include <QDropEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>

#include <functional>
#include <optional>
#include <utility>

namespace {

QColor ToColor(const ks_color& color) {
    return QColor(color.red, color.green, color.blue, color.alpha);
}

ks_color FromColor(const QColor& color) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return ks_color(byte(color.red()), byte(color.green()), byte(color.blue()), byte(color.alpha()));
}

class ColorButton : public PopUpButton {
public:
    // `edited` is called with each colour that is chosen, `opened` with each dialog.
    ColorButton(std::function<void(const QColor&)> edited, std::function<void(ColorPanel&)> opened,
                QWidget* parent)
        : PopUpButton(QAccessible::ColorChooser, parent),
          _edited(std::move(edited)),
          _opened(std::move(opened)) {
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
        setAcceptDrops(true);
        connect(this, &QAbstractButton::clicked, this, [this] { Choose(); });
    }

    void SetColor(const QColor& color) {
        _color = color;
        SetValueText(ColorText(color));
        update();
    }

    void ChooseFrom(const QColor& start) {
        Choose();
        _dialog->setCurrentColor(start);
    }

    QSize sizeHint() const override { return look::SampleSize(*this); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        draw::Sample(painter, rect(), _color);
        if (hasFocus() || _is_target)
            draw::Focus(painter, PenStyle::Instance().Wearing(), rect(), _color);
    }

    void mousePressEvent(QMouseEvent* event) override {
        _pressed_at = event->position().toPoint();
        PopUpButton::mousePressEvent(event);
    }

    void mouseMoveEvent(QMouseEvent* event) override {
        const QPoint moved = event->position().toPoint() - _pressed_at;
        if (isDown() && moved.manhattanLength() >= QApplication::startDragDistance())
            Drag();
        else
            PopUpButton::mouseMoveEvent(event);
    }

    void dragEnterEvent(QDragEnterEvent* event) override {
        if (event->source() == this || !ColorIn(*event->mimeData()))
            return;
        event->acceptProposedAction();
        ShowTarget(true);
    }

    void dragLeaveEvent(QDragLeaveEvent*) override { ShowTarget(false); }

    void dropEvent(QDropEvent* event) override {
        ShowTarget(false);
        if (const std::optional<QColor> color = ColorIn(*event->mimeData())) {
            event->acceptProposedAction();
            _edited(*color);
        }
    }

private:
    // Lights up while a colour is held over the field.
    void ShowTarget(bool is_target) {
        _is_target = is_target;
        update();
    }

    void Choose() {
        if (_dialog) {
            _dialog->activateWindow();
            return;
        }
        _dialog = new ColorPanel(_color, window());
        _dialog->setWindowTitle(accessibleName());
        connect(_dialog, &QColorDialog::colorSelected, this, [this](const QColor& color) { _edited(color); });
        _opened(*_dialog);
        _dialog->open();
    }

    // QDrag runs an event loop of its own here; no lock is held.
    void Drag() {
        setDown(false);
        QPixmap sample(look::SampleSize(*this) * devicePixelRatio());
        sample.setDevicePixelRatio(devicePixelRatio());
        sample.fill(Qt::transparent);
        {
            QPainter painter(&sample);
            draw::Sample(painter, QRect(QPoint(), look::SampleSize(*this)), _color);
        }
        auto* drag = new QDrag(this);
        drag->setMimeData(ColorData(_color).release());
        drag->setPixmap(sample);
        drag->exec(Qt::CopyAction);
    }

    std::function<void(const QColor&)> _edited;
    std::function<void(ColorPanel&)> _opened;
    QColor _color;
    QPoint _pressed_at;
    bool _is_target = false;
    QPointer<ColorPanel> _dialog;
};

class ColorFieldMirror : public ColorMirror {
public:
    ColorFieldMirror(KSColorField& control, WindowMirror& window, QWidget* parent)
        : ColorMirror(control, window),
          _control(control),
          _button(new ColorButton([this](const QColor& color) { _control.EditColor(FromColor(color)); },
                                  [this](ColorPanel& dialog) { WearWhatItShows(dialog); }, parent)) {
        SetWidget(_button);
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _color = ToColor(_control.Color());
    }

    void Apply() override {
        ControlMirror::Apply();
        _button->SetColor(_color);
    }

    QWidget* Editor() const override { return _button; }

    std::unique_ptr<QMimeData> Copied() const override { return ColorData(_color); }
    std::function<void()> Paster(const QMimeData& data) override {
        const std::optional<QColor> color = ColorIn(data);
        if (!color)
            return nullptr;
        return [=, this] { _control.EditColor(FromColor(*color)); };
    }

    void ChooseFrom(const QColor& start) override { _button->ChooseFrom(start); }

private:
    void WearWhatItShows(ColorPanel& dialog) {
        const std::optional<ks_pen> pen = ks_current_look->PenOf(&_control);
        if (!pen)
            return;
        QObject::connect(
            &dialog, &QColorDialog::currentColorChanged, _button, [=, this](const QColor& shown) {
                Window().Worn().TryOn([pen = static_cast<std::size_t>(*pen),
                                       color = FromColor(shown)](ks_look& look) { look.pens[pen] = color; });
            });
        Window().TakeOffAfter(dialog);
    }

    KSColorField& _control;
    ColorButton* _button;
    QColor _color;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorColorField(KSColorField& control, WindowMirror& window,
                                                QWidget* parent) {
    return std::make_unique<ColorFieldMirror>(control, window, parent);
}
