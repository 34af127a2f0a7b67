// SPDX-License-Identifier: MIT
#include "display/picture_dialog.h"

#include "display/draw.h"
#include "display/path_text.h"
#include "display/picture_file.h"
#include "display/screen_fit.h"
#include "display/texts.h"

#include <QFileInfo>
#include <QGridLayout>
#include <QHeaderView>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSplitter>
#include <QTreeView>

namespace {

constexpr int kPreview = 180, kFrame = 6;
constexpr QSize kSize(900, 460);
constexpr int kPlaces = 110;  // the width of the list of places

QString PicturesFilter() {
    QStringList patterns(QStringLiteral("*.tga"));
    for (const QByteArray& format : QImageReader::supportedImageFormats())
        patterns.append(QStringLiteral("*.") + QString::fromLatin1(format));
    patterns.removeDuplicates();
    return texts::Text(texts::kPictures) + QStringLiteral(" (%1)").arg(patterns.join(u' '));
}

QPixmap OnChecker(const QImage& image) {
    QPixmap pixmap = QPixmap::fromImage(image);
    if (!image.hasAlphaChannel())
        return pixmap;
    const QRect all(QPoint(), image.deviceIndependentSize().toSize());
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    draw::Checker(painter, all);
    painter.drawImage(QPoint(), image);
    return pixmap;
}

}  // namespace

PictureDialog::PictureDialog(const QString& start, QWidget* parent)
    : QFileDialog(parent), _preview(new QLabel(this)) {
    PlaceDialog(*this, kSize, *parent);
    setAttribute(Qt::WA_DeleteOnClose);
    setOption(QFileDialog::DontUseNativeDialog);
    setFileMode(QFileDialog::ExistingFile);
    setViewMode(QFileDialog::Detail);
    setNameFilters({PicturesFilter(), texts::Text(texts::kAllFiles) + QStringLiteral(" (*)")});
    _preview->setFixedWidth(kPreview + 2 * kFrame);
    _preview->setFrameStyle(static_cast<int>(QFrame::StyledPanel) | static_cast<int>(QFrame::Sunken));
    _preview->setAlignment(Qt::AlignCenter);
    _preview->setText(texts::Text(texts::kNoPreview));
    _preview->setAccessibleName(texts::Text(texts::kPreview));
    if (auto* grid = qobject_cast<QGridLayout*>(layout()))
        grid->addWidget(_preview, 0, grid->columnCount(), grid->rowCount(), 1);
    ArrangeColumns();
    _name = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    connect(this, &QFileDialog::currentChanged, this, [this](const QString& path) { Preview(path); });
    if (_name)
        connect(_name, &QLineEdit::textChanged, this, [this](const QString& text) {
            Preview(text.isEmpty() ? QString() : directory().absoluteFilePath(PathFrom(text)));
        });
    if (const QFileInfo present(start); present.isFile()) {
        setDirectory(present.absolutePath());
        selectFile(present.fileName());
        Preview(present.absoluteFilePath());
    }
}

void PictureDialog::accept() {
    if (_name && PathFrom(_name->text()) != _name->text())
        _name->setText(PathFrom(_name->text()));
    QFileDialog::accept();
}

void PictureDialog::showEvent(QShowEvent* event) {
    QFileDialog::showEvent(event);
    if (auto* splitter = findChild<QSplitter*>())
        splitter->setSizes({kPlaces, width() - kPlaces});
}

// The name takes the room that the size and the date leave. Its ending tells the type.
void PictureDialog::ArrangeColumns() {
    enum { kName, kFileSize, kType, kDate };
    auto* view = findChild<QTreeView*>(QStringLiteral("treeView"));
    if (!view)
        return;
    QHeaderView* header = view->header();
    header->setStretchLastSection(false);
    header->setMinimumSectionSize(fontMetrics().averageCharWidth() * 8);
    header->setSectionResizeMode(kName, QHeaderView::Stretch);
    header->setSectionResizeMode(kFileSize, QHeaderView::ResizeToContents);
    header->setSectionResizeMode(kDate, QHeaderView::ResizeToContents);
    view->hideColumn(kType);
}

void PictureDialog::Preview(const QString& path) {
    if (path == _previewed)
        return;
    _previewed = path;
    const qreal ratio = devicePixelRatio();
    QImage image = ReadPicture(path, QSize(kPreview, kPreview) * ratio);
    if (image.isNull()) {
        _preview->setText(texts::Text(texts::kNoPreview));
    } else {
        image.setDevicePixelRatio(ratio);
        _preview->setPixmap(OnChecker(image));
    }
    if (_shown)
        _shown(image.isNull() ? QString() : path);
}
