// SPDX-License-Identifier: MIT
#include "display/color_text.h"

#include "toolkit/color_digits.h"

#include <QMimeData>

QString ColorText(const QColor& color) {
    const QString text = color.name(QColor::HexRgb);
    return color.alpha() == 255 ? text : text + QStringLiteral("%1").arg(color.alpha(), 2, 16, QChar(u'0'));
}

std::optional<QColor> ReadColor(const QString& text) {
    const QString name = text.trimmed();
    if (const std::optional<ks_color> color = ks_parse_color_digits(name.toStdString()))
        return QColor(color->red, color->green, color->blue, color->alpha);
    const QColor named = name.startsWith(u'#') ? QColor() : QColor::fromString(name);
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
