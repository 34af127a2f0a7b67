// SPDX-License-Identifier: MIT
// Colours come from the desktop's palette, so that the window fits in with light and dark desktops alike.
#include "display/look.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>
#include <QWidget>

#include <algorithm>
#include <cmath>

namespace {

// WCAG 2.1, "relative luminance" and "contrast ratio".
double Luminance(const QColor& color) {
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b) {
    const double x = Luminance(a) + 0.05, y = Luminance(b) + 0.05;
    return std::max(x, y) / std::min(x, y);
}

QColor Mix(const QColor& a, const QColor& b, double share) {
    const auto mix = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * share)); };
    return QColor(mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue()));
}

// The desktop's highlight, as strong as ordinary text on it allows.
QColor SelectedBackground(const QPalette& palette) {
    constexpr double kReadable = 7;
    const QColor base = palette.color(QPalette::Base), text = palette.color(QPalette::Text);
    QColor color = palette.color(QPalette::Highlight);
    for (double share = 0.9; share > 0.2 && Contrast(color, text) < kReadable; share -= 0.1)
        color = Mix(base, palette.color(QPalette::Highlight), share);
    return color;
}

void PaintChecker(QPainter& painter, const QRect& rect) {
    constexpr int kSquare = 5;
    painter.save();
    painter.setClipRect(rect);
    painter.fillRect(rect, Qt::white);
    for (int row = 0; row * kSquare < rect.height(); ++row)
        for (int column = row % 2; column * kSquare < rect.width(); column += 2)
            painter.fillRect(rect.left() + column * kSquare, rect.top() + row * kSquare, kSquare, kSquare,
                             QColor(190, 190, 190));
    painter.restore();
}

}  // namespace

void look::ChooseStyle() {
    // Without a name Qt looks through the installed styles.
    if (!qEnvironmentVariableIsSet("QT_STYLE_OVERRIDE") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORMTHEME"))
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
}

QColor look::Pen(ks_pen pen, const QPalette& palette) {
    switch (pen) {
    case KS_PEN_BG_LIST:
        return palette.color(QPalette::Base);
    case KS_PEN_BG_SELECTED:
        return SelectedBackground(palette);
    default:
        return palette.color(QPalette::Text);
    }
}

double look::BoundedPoints(double points, double least, double most) {
    return std::fmin(std::fmax(points, least), most);
}

QMargins look::FrameMargins() {
    return {kGap, kGap, kGap, kGap};
}

// Qt's own style draws a group from a picture, for which it would load every image plugin at the start.
void look::PaintGroup(QPainter& painter, const QRect& frame, const QRect& label, const QString& title,
                      const QWidget& widget) {
    constexpr double kRadius = 3;
    const QPalette& palette = widget.palette();
    painter.setPen(Mix(palette.color(QPalette::Window), palette.color(QPalette::Dark), 0.45));
    painter.setBrush(Mix(palette.color(QPalette::Window), palette.color(QPalette::Dark), 0.05));
    painter.drawRoundedRect(QRectF(frame).adjusted(0.5, 0.5, -0.5, -0.5), kRadius, kRadius);
    painter.setPen(palette.color(QPalette::WindowText));
    painter.drawText(label, Qt::AlignLeft | Qt::AlignVCenter, title);
}

void look::PaintSample(QPainter& painter, const QRect& rect, const QColor& color, const QWidget& widget) {
    const QPalette& palette = widget.palette();
    const bool focus = widget.hasFocus();
    const QRect inner = rect.adjusted(2, 2, -2, -2);
    if (color.alpha() < 255)
        PaintChecker(painter, inner);
    painter.fillRect(inner, color);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(focus ? palette.color(QPalette::Highlight) : palette.color(QPalette::Dark));
    painter.drawRect(rect.adjusted(0, 0, -1, -1));
    if (focus)
        painter.drawRect(rect.adjusted(1, 1, -2, -2));
}

QSize look::SampleSize(const QWidget& widget) {
    const int height = widget.fontMetrics().height() + 10;
    return {height * 5 / 2, height};
}
