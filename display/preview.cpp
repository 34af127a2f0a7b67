// SPDX-License-Identifier: MIT
// The preview: a drawer at the window's right edge with a handle that opens it.
//
// Its contents are built when it is first opened, and never before the window's first paint.
#include "display/color_mirror.h"
#include "display/color_vision.h"
#include "display/combo.h"
#include "display/draw.h"
#include "display/pair_list.h"
#include "display/pen_style.h"
#include "display/pop_up_button.h"
#include "display/preview_picture.h"
#include "display/texts.h"
#include "display/wardrobe.h"
#include "display/window_mirror.h"
#include "kits/BWindow.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSLook.h"
#include "toolkit/KSLookPreview.h"

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QLabel>
#include <QLayout>
#include <QPainter>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace {

constexpr int kWidth = 270;
constexpr QSize kHandle(10, 64);
constexpr int kBorder = 4;

// The picture, as people with some colour vision see it.
class PictureView : public QWidget {
public:
    PictureView(const Wardrobe& wardrobe, QWidget* parent) : QWidget(parent), _wardrobe(wardrobe) {
        setFixedHeight(kPreviewHeight);
        setAccessibleName(texts::Text(texts::kPreview));
    }

    void SetVision(ColorVision vision) {
        _vision = vision;
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        if (_vision == ColorVision::kUsual) {
            PaintPreview(painter, _wardrobe.Truth(), rect());
            return;
        }
        QImage image((QSizeF(size()) * devicePixelRatioF()).toSize(), QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(devicePixelRatioF());
        image.fill(Qt::transparent);
        {
            QPainter inside(&image);
            PaintPreview(inside, _wardrobe.Truth(), rect());
        }
        SimulateVision(image, _vision);
        painter.drawImage(QPoint(), image);
    }

private:
    const Wardrobe& _wardrobe;
    ColorVision _vision = ColorVision::kUsual;
};

// All that the drawer holds.
class Panel : public QWidget {
public:
    Panel(WindowMirror& window, QWidget* parent) : QWidget(parent), _window(window) {
        auto* column = new QVBoxLayout(this);
        column->setContentsMargins(kBorder, kBorder, kBorder + kHandle.width(), kBorder);
        column->setSpacing(kBorder);
        auto* vision = new Combo(this);
        for (const texts::text& text :
             {texts::kMostPeople, texts::kProtanopia, texts::kDeuteranopia, texts::kTritanopia})
            vision->addItem(texts::Text(text));
        vision->setAccessibleName(texts::Text(texts::kVision));
        auto* picture = new PictureView(window.Worn(), this);
        connect(vision, &QComboBox::currentIndexChanged, picture,
                [picture](int index) { picture->SetVision(static_cast<ColorVision>(index)); });
        _heading = new QLabel(this);
        _pairs = new PairList([this](const pen_pair& pair) { Mend(pair); }, this);
        for (QWidget* widget : {static_cast<QWidget*>(vision), static_cast<QWidget*>(picture),
                                static_cast<QWidget*>(_heading), static_cast<QWidget*>(_pairs)})
            column->addWidget(widget);
        Show();
        window.Worn().SetFollower([this] { Show(); });
    }

    ~Panel() override { _window.Worn().SetFollower(nullptr); }

private:
    void Show() {
        const Worn& worn = PenStyle::Instance().Wearing();
        QFont font = worn.Font(KS_FONT_SMALL);
        _pairs->setFont(font);
        font.setBold(true);
        _heading->setFont(font);
        _pairs->Show(_window.Worn().Truth());
        const int hard = _pairs->HardPairs();
        _heading->setText(hard ? texts::Text(texts::kHardToRead) + QStringLiteral(": %1").arg(hard)
                               : texts::Text(texts::kAllCanBeRead));
    }

    // Opens the dialog of the ink with a colour that can be told from the ground.
    void Mend(const pen_pair& pair) {
        KSColorField* editor = nullptr;
        {
            const BAutolock lock(&_window.Window());
            editor = lock ? ks_current_look->Editor(pair.ink) : nullptr;
        }
        auto* mirror = editor ? dynamic_cast<ColorMirror*>(_window.Find(editor)) : nullptr;
        if (!mirror)
            return;
        const Worn& truth = _window.Worn().Truth();
        const QColor ink = truth.Pen(pair.ink);
        mirror->ChooseFrom(pair.IsHard() ? NearestReadable(ink, truth.Ground(pair.ground), pair.least) : ink);
    }

    WindowMirror& _window;
    QLabel* _heading;
    PairList* _pairs;
};

// Lies over the window's border, so that the window needs no room for it.
class Handle : public PopUpButton {
public:
    explicit Handle(QWidget* window) : PopUpButton(QAccessible::PushButton, window) { SetOpen(false); }

    void SetOpen(bool open) {
        _open = open;
        setAccessibleName(texts::Text(open ? texts::kHidePreview : texts::kShowPreview));
        update();
    }

    void Place() {
        const QRect window = parentWidget()->rect();
        setGeometry(QRect(
            QPoint(window.right() + 1 - kHandle.width(), (window.height() - kHandle.height()) / 2), kHandle));
        raise();
    }

    QSize sizeHint() const override { return kHandle; }

protected:
    void paintEvent(QPaintEvent*) override {
        const Worn& worn = PenStyle::Instance().Wearing();
        QPainter painter(this);
        draw::Knob(painter, worn, rect(), isDown());
        const QColor ground = worn.Ground(isDown() ? KS_PEN_BG_SELECTED : KS_PEN_BG_BUTTON);
        draw::Arrow(painter, rect(), _open ? draw::Direction::kLeft : draw::Direction::kRight,
                    worn.On(KS_PEN_TEXT, ground));
        if (hasFocus())
            draw::Focus(painter, worn, rect(), ground);
    }

private:
    bool _open = false;
};

// Opens by itself where the window has room for it, until the user has opened or closed it.
class Drawer : public QWidget {
public:
    Drawer(WindowMirror& mirror, QWidget* parent)
        : QWidget(parent), _mirror(mirror), _handle(new Handle(parent)) {
        setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Ignored);
        setVisible(false);
        parent->installEventFilter(this);
        connect(_handle, &QAbstractButton::clicked, this, [this] { Toggle(); });
        new QShortcut(Qt::Key_F9, parent, [this] { Toggle(); });
    }

    QSize sizeHint() const override { return {kWidth, 0}; }
    // As long as it opens by itself it gives way to a window that is made narrower.
    QSize minimumSizeHint() const override { return {_opens_by_itself ? 0 : kWidth, 0}; }

protected:
    bool eventFilter(QObject* object, QEvent* event) override {
        switch (event->type()) {
        case QEvent::Resize:
            _handle->Place();
            OpenWhereThereIsRoom();
            break;
        case QEvent::LayoutRequest:
            OpenWhereThereIsRoom();
            break;
        case QEvent::Paint:
            // Not before the picture is on the screen.
            if (!std::exchange(_is_painted, true))
                QTimer::singleShot(0, this, [this] { OpenWhereThereIsRoom(); });
            break;
        default:
            break;
        }
        return QWidget::eventFilter(object, event);
    }

private:
    // What the window needs for the rest.
    int LeastWidth() const {
        const int own = isHidden() ? 0 : minimumSizeHint().width();
        return parentWidget()->layout()->minimumSize().width() - own;
    }

    void OpenWhereThereIsRoom() {
        if (_opens_by_itself && _is_painted)
            SetOpen(window()->width() >= LeastWidth() + kWidth);
    }

    void SetOpen(bool open) {
        if (open != isHidden())
            return;
        if (open && !_panel) {
            _panel = new Panel(_mirror, this);
            auto* layout = new QHBoxLayout(this);
            layout->setContentsMargins({});
            layout->addWidget(_panel);
        }
        setVisible(open);
        _handle->SetOpen(open);
        _handle->raise();
    }

    // The window grows by the drawer's width as far as the screen has room, and shrinks by as much.
    void Toggle() {
        _opens_by_itself = false;
        const int before = window()->width();
        const bool has_room = before >= LeastWidth() + kWidth;
        const bool open = isHidden();
        SetOpen(open);
        updateGeometry();
        QCoreApplication::sendPostedEvents(window(), QEvent::LayoutRequest);
        if (window()->isMaximized() || window()->isFullScreen())
            return;
        if (open) {
            const int room =
                window()->screen()->availableGeometry().right() - window()->frameGeometry().right();
            const int width = has_room ? before : before + std::clamp(room, 0, kWidth);
            window()->resize(std::max(width, window()->width()), window()->height());
            _grown = window()->width() - before;
            // A window that needs more than that room moves to where it has it.
            if (const int beyond = window()->width() - before - std::max(room, 0); beyond > 0)
                window()->move(
                    std::max(window()->screen()->availableGeometry().left(), window()->x() - beyond),
                    window()->y());
        } else {
            window()->resize(before - std::exchange(_grown, 0), window()->height());
        }
    }

    WindowMirror& _mirror;
    Handle* _handle;
    Panel* _panel = nullptr;
    bool _opens_by_itself = true;
    bool _is_painted = false;
    int _grown = 0;  // by how much the window is wider because this was opened
};

class LookPreviewMirror : public ControlMirror {
public:
    LookPreviewMirror(KSLookPreview& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window) {
        SetWidget(new Drawer(window, parent));
    }
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorLookPreview(KSLookPreview& control, WindowMirror& window,
                                                 QWidget* parent) {
    return std::make_unique<LookPreviewMirror>(control, window, parent);
}
