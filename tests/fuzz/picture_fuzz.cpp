// SPDX-License-Identifier: MIT
// Reads any bytes as a picture's file; the first byte chooses its name.
#include "display/picture_file.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/support/home.h"

#include <QBuffer>
#include <QCoreApplication>

namespace {

constexpr const char* kNames[] = {"picture.tga", "picture.png", "picture.xpm", "picture"};
constexpr QSize kBounds(60, 40);

std::vector<std::uint8_t> Seed(char name, const QByteArray& file) {
    const QByteArray bytes = QByteArray(1, name) + file;
    return {bytes.begin(), bytes.end()};
}

// A TGA of 5 x 3 pixels with 32 bits each; packed into runs or not.
QByteArray Tga(bool packed) {
    QByteArray file("\0\0\x02\0\0\0\0\0\0\0\0\0\x05\0\x03\0\x20\x28", 18);
    if (packed)
        file[2] = 10;
    for (int i = 0; i < (packed ? 1 : 15); i++)
        file += packed ? "\x8E\1\2\3\4" : "\1\2\3\4";
    return file;
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    std::vector<std::vector<std::uint8_t>> seeds{Seed(0, Tga(false)), Seed(3, Tga(true))};
    QImage image(70, 30, QImage::Format_ARGB32);
    image.fill(0x80123456);
    for (const char* format : {"png", "bmp", "xpm", "jpg", "ppm"}) {
        QBuffer file;
        file.open(QIODevice::WriteOnly);
        image.save(&file, format);
        seeds.push_back(Seed(1, file.data()));
    }
    return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static int count = 0;
    static const QCoreApplication application(count, nullptr);
    static const TemporaryDirectory directory;
    static const auto quiet =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    if (size == 0)
        return 0;
    const std::string name = kNames[data[0] % 4];
    directory.Write(name, {reinterpret_cast<const char*>(data) + 1, size - 1});
    const QString path = QString::fromStdString(directory / name);
    const QImage picture = ReadPicture(path, kBounds);
    Require(picture.width() <= kBounds.width() && picture.height() <= kBounds.height(),
            "too large a picture");
    Require(picture.isNull() || IsPicture(path), "a picture that was read is none");
    static_cast<void>(quiet);
    return 0;
}
