// SPDX-License-Identifier: MIT
// stb_image reads TGA files: Qt's reader refuses many. They have no signature, so the name decides what is
// tried first.
#include "display/picture_file.h"

#include "kits/storage.h"

#include <QFile>
#include <QFileInfo>
#include <QImageReader>

#include <algorithm>
#include <memory>

#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#define STBI_ONLY_TGA
#define STBI_NO_STDIO
#define STBI_NO_LINEAR
#define STBI_MAX_DIMENSIONS 16384
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace {

constexpr qint64 kLargestFile = 64 << 20;
constexpr qint64 kMostPixels = 64 << 20;

// Returns where a path of the platform lies here.
QString Resolved(const QString& path) {
    return QString::fromStdString(ks_resolve_path(path.toStdString()));
}

bool IsRegular(const QString& path) {
    const QFileInfo info(path);
    return info.isFile() && info.isReadable() && info.size() <= kLargestFile;
}

const stbi_uc* Bytes(const QByteArray& data) {
    return reinterpret_cast<const stbi_uc*>(data.constData());
}

// Whether a file of so many bytes, of which `data` is the beginning, has the header of a TGA file that can
// hold the pixels it promises. A packet of at least two bytes holds up to 128 pixels.
bool IsTga(const QByteArray& data, qint64 file_size) {
    int width = 0, height = 0, channels = 0;
    return stbi_info_from_memory(Bytes(data), static_cast<int>(data.size()), &width, &height, &channels) &&
           qint64{width} * height <= std::min(kMostPixels, file_size * 64);
}

QImage ReadTga(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    const QByteArray data = file.read(kLargestFile);
    if (!IsTga(data, data.size()))
        return {};
    int width = 0, height = 0, channels = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(Bytes(data), static_cast<int>(data.size()), &width, &height, &channels, 4),
        stbi_image_free);
    return pixels ? QImage(pixels.get(), width, height, width * 4, QImage::Format_RGBA8888).copy() : QImage();
}

bool EndsInTga(const QString& path) {
    return path.endsWith(QLatin1String(".tga"), Qt::CaseInsensitive);
}

// Reads the file in the formats that Qt has, decoding no more than `bounds` needs.
QImage ReadOther(const QString& path, QSize bounds) {
    QImageReader reader(path);
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid() || qint64{size.width()} * size.height() > kMostPixels)
        return {};
    if (!bounds.isEmpty() && (size.width() > bounds.width() || size.height() > bounds.height()))
        reader.setScaledSize(size.scaled(bounds, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
    return reader.read();
}

}  // namespace

bool IsPicture(const QString& path) {
    const QString file_path = Resolved(path);
    if (!IsRegular(file_path))
        return false;
    constexpr qint64 kHeader = 4096;
    QFile file(file_path);
    if (file.open(QIODevice::ReadOnly) && EndsInTga(path) && IsTga(file.peek(kHeader), file.size()))
        return true;
    // A cursor file and a broken TGA begin alike, so only reading it tells.
    if (EndsInTga(path))
        return !ReadOther(file_path, {}).isNull();
    return QImageReader(file_path).canRead() || IsTga(file.peek(kHeader), file.size());
}

QImage ReadPicture(const QString& path, QSize bounds) {
    const QString file_path = Resolved(path);
    if (!IsRegular(file_path))
        return {};
    QImage image = EndsInTga(file_path) ? ReadTga(file_path) : ReadOther(file_path, bounds);
    if (image.isNull())
        image = EndsInTga(file_path) ? ReadOther(file_path, bounds) : ReadTga(file_path);
    if (!bounds.isEmpty() && (image.width() > bounds.width() || image.height() > bounds.height()))
        image = image.scaled(bounds, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return image;
}
