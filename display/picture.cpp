// SPDX-License-Identifier: MIT
// A picture, one of its pixels to each logical pixel of the window; smoothed where the screen has more. It is
// the window's icon too.
#include "display/control_mirror.h"
#include "display/picture_file.h"
#include "toolkit/KSPicture.h"
#include "toolkit/installed_data.h"

#include <QCoreApplication>
#include <QDir>
#include <QIcon>
#include <QPainter>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace {

// The size of the blank that a missing picture leaves.
constexpr QSize kUsualSize(140, 100);

// Looks for the file with the installed data, beside the program (its place in a build) and in the working
// directory.
QImage Find(const QString& name) {
    if (name.isEmpty())
        return {};
    const QDir program(QCoreApplication::applicationDirPath());
    const QString candidates[] = {QString::fromStdString(ks_installed_data(name.toStdString())),
                                  program.filePath(name), name};
    for (const QString& candidate : candidates)
        if (const QImage image = ReadPicture(candidate); !image.isNull())
            return image;
    return {};
}

// The picture in a square, in the sizes that desktops ask for.
QIcon MakeIcon(const QImage& picture) {
    const int side = std::max(picture.width(), picture.height());
    QImage square(side, side, QImage::Format_ARGB32_Premultiplied);
    square.fill(Qt::transparent);
    QPainter(&square).drawImage((side - picture.width()) / 2, (side - picture.height()) / 2, picture);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128, 256})
        icon.addPixmap(
            QPixmap::fromImage(square.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation)));
    return icon;
}

class Picture : public QWidget {
public:
    explicit Picture(QWidget* parent) : QWidget(parent) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    void SetImage(QImage image) {
        _image = std::move(image);
        _is_icon = _image.isNull();
        setMinimumSize(_image.isNull() ? kUsualSize : _image.size());
        update();
    }
    QSize sizeHint() const override { return minimumSize(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        // The window is seen first.
        if (!std::exchange(_is_icon, true))
            QTimer::singleShot(0, this, [this] { window()->setWindowIcon(MakeIcon(_image)); });
        painter.drawImage((width() - _image.width()) / 2, (height() - _image.height()) / 2, _image);
    }

private:
    QImage _image;
    bool _is_icon = true;  // whether the window's icon is this picture already
};

class PictureMirror : public ControlMirror {
public:
    PictureMirror(KSPicture& control, WindowMirror& window, QWidget* parent)
        : ControlMirror(control, window), _control(control), _picture(new Picture(parent)) {
        SetWidget(_picture);
    }

    void Fetch() override {
        ControlMirror::Fetch();
        _name = QString::fromStdString(_control.FileName());
    }

    void Apply() override {
        ControlMirror::Apply();
        if (_shown == _name && !_shown.isNull())
            return;
        _shown = _name;
        _picture->SetImage(Find(_name));
    }

private:
    KSPicture& _control;
    Picture* _picture;
    QString _name, _shown;
};

}  // namespace

std::unique_ptr<ControlMirror> MirrorPicture(KSPicture& control, WindowMirror& window, QWidget* parent) {
    return std::make_unique<PictureMirror>(control, window, parent);
}
