// SPDX-License-Identifier: MIT
// A picture, one of its pixels to each logical pixel of the window; smoothed where the screen has more.
#include "display/control_mirror.h"
#include "display/picture_file.h"
#include "toolkit/KSPicture.h"

#include <QCoreApplication>
#include <QDir>
#include <QPainter>
#include <QWidget>

namespace {

// The size of the blank that a missing picture leaves.
constexpr QSize kUsualSize(140, 100);

// Looks for the file with the installed data, beside the program (its place in a build) and in the working
// directory.
QImage Find(const QString& name) {
    if (name.isEmpty())
        return {};
    const QDir program(QCoreApplication::applicationDirPath());
    const QString candidates[] = {program.filePath(QStringLiteral("../" NYMBREL_DATA_DIRECTORY "/") + name),
                                  program.filePath(name), name};
    for (const QString& candidate : candidates)
        if (const QImage image = ReadPicture(candidate); !image.isNull())
            return image;
    return {};
}

class Picture : public QWidget {
public:
    explicit Picture(QWidget* parent) : QWidget(parent) {
        setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    }

    void SetImage(QImage image) {
        _image = std::move(image);
        setMinimumSize(_image.isNull() ? kUsualSize : _image.size());
        update();
    }
    QSize sizeHint() const override { return minimumSize(); }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        painter.drawImage((width() - _image.width()) / 2, (height() - _image.height()) / 2, _image);
    }

private:
    QImage _image;
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
