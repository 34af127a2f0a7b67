// SPDX-License-Identifier: MIT
#include "display/color_text.h"

#include <QMimeData>

#include <algorithm>
#include <cctype>

namespace {

bool IsHex(QChar character) {
    return character.unicode() < 128 && std::isxdigit(character.unicode());
}

// Reads digits in the order red, green, blue, alpha; `width` is how many each has.
QColor FromDigits(const QString& digits, qsizetype width) {
    int component[4] = {0, 0, 0, 255};
    for (qsizetype i = 0; i * width < digits.size(); ++i)
        component[i] = digits.mid(i * width, width).toInt(nullptr, 16) * (width == 1 ? 0x11 : 1);
    return QColor(component[0], component[1], component[2], component[3]);
}

}  // namespace

QString ColorText(const QColor& color) {
    const QString text = color.name(QColor::HexRgb);
    return color.alpha() == 255 ? text : text + QStringLiteral("%1").arg(color.alpha(), 2, 16, QChar(u'0'));
}

std::optional<QColor> ReadColor(const QString& text) {
    QString name = text.trimmed();
    const bool is_marked = name.startsWith(u'#');
    const QString digits = name.mid(is_marked);
    if (std::ranges::all_of(digits, IsHex))
        switch (digits.size()) {
        case 3:
        case 4:
            return FromDigits(digits, 1);
        case 6:
        case 8:
            return FromDigits(digits, 2);
        default:
            break;
        }
    const QColor named = is_marked ? QColor() : QColor::fromString(name);
    return named.isValid() ? std::optional(named) : std::nullopt;
}

std::unique_ptr<QMimeData> ColorData(const QColor& color) {
    auto data = std::make_unique<QMimeData>();
    data->setColorData(color);
    data->setText(ColorText(color));
    return data;
}

std::optional<QColor> ColorIn(const QMimeData& data) {
    const QColor color = data.hasColor() ? data.colorData().value<QColor>() : QColor();
    return color.isValid() ? std::optional(color) : ReadColor(data.text());
}
