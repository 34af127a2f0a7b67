// SPDX-License-Identifier: MIT
#include "display/worn.h"

#include "display/contrast.h"

#include <QImage>

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

// The least contrasts at which texts, texts that need not be read, and edges are left as they were chosen.
constexpr double kTextContrast = 2.5, kMarkContrast = 1.4, kEdgeContrast = 1.25;
// Points.
constexpr double kSmallest = 7, kLargest = 20, kUsual = 10;

QColor ToColor(const ks_color& color) {
    return QColor(color.red, color.green, color.blue, color.alpha);
}

// Returns how opaque a veil of the bitmap's `ground` has to be, so that a text in `ink` can be read on all
// but a few of the pixels. `below` is under the bitmap.
double VeilFor(const Tile& tile, const QColor& below, const QColor& ground, const QColor& ink) {
    constexpr double kStep = 0.125, kMost = 0.875;
    const auto hidden = [&](double veil) {
        return std::ranges::count_if(tile.samples, [&](const QColor& sample) {
            return Contrast(Mix(Over(sample, below), ground, veil), ink) < kTextContrast;
        });
    };
    double veil = 0;
    while (veil < kMost && hidden(veil) * 20 > std::ssize(tile.samples))
        veil += kStep;
    return veil;
}

}  // namespace

Tile::Tile(QPixmap bitmap) : pixmap(std::move(bitmap)) {
    if (pixmap.isNull())
        return;
    const QImage image = pixmap.toImage();
    mean = image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
               .convertToFormat(QImage::Format_ARGB32)
               .pixelColor(0, 0);
    constexpr int kSamples = 16;  // in each direction
    for (int y = 0; y < kSamples; ++y)
        for (int x = 0; x < kSamples; ++x)
            samples.push_back(image.pixelColor(x * image.width() / kSamples, y * image.height() / kSamples));
}

Worn::Worn(const ks_look& look, const std::array<Tile, ks_look::kLevels>& tiles, Ink ink)
    : _look(look), _ink(ink) {
    QColor below = kBottom;
    for (std::size_t i = 0; i < ks_look::kLevels; ++i) {
        const Tile& tile = tiles[i];
        _bitmaps[i] = tile.pixmap;
        _grounds[i] = Over(ToColor(look.pens[i]), below);
        if (!tile.pixmap.isNull()) {
            const QColor under = std::exchange(_grounds[i], Over(tile.mean, _grounds[i]));
            _veils[i] = VeilFor(tile, under, _grounds[i], Readable(KS_PEN_TEXT, _grounds[i]));
        }
        // Medium lies on Low, and High on Medium; all others are taken to lie on High.
        if (i <= KS_PEN_BG_HIGH)
            below = _grounds[i];
    }
}

Worn Worn::With(Ink ink) const {
    Worn result = *this;
    result._ink = ink;
    return result;
}

QColor Worn::Pen(ks_pen pen) const {
    return pen == KS_PEN_NONE ? QColor(Qt::transparent) : ToColor(_look.pens[static_cast<std::size_t>(pen)]);
}

QColor Worn::Ground(ks_pen level) const {
    const auto index = static_cast<std::size_t>(level);
    return index < _grounds.size() ? _grounds[index] : Over(Pen(level), _grounds[KS_PEN_BG_HIGH]);
}

QColor Worn::Veil(ks_pen level) const {
    QColor veil = Ground(level);
    veil.setAlphaF(_ink == Ink::kTrue ? 0 : static_cast<float>(_veils[static_cast<std::size_t>(level)]));
    return veil;
}

QColor Worn::Readable(ks_pen pen, const QColor& ground) const {
    const QColor seen = Over(Pen(pen), ground);
    const double least = pen == KS_PEN_DISABLEDTEXT || pen == KS_PEN_MARK ? kMarkContrast : kTextContrast;
    return Contrast(seen, ground) >= least ? seen : InkFor(ground);
}

QColor Worn::On(ks_pen pen, const QColor& ground) const {
    return _ink == Ink::kTrue ? Over(Pen(pen), ground) : Readable(pen, ground);
}

QColor Worn::Edge(ks_pen pen, const QColor& ground) const {
    const auto can_be_seen = [&](ks_pen edge) {
        return Contrast(Over(Pen(edge), ground), ground) >= kEdgeContrast;
    };
    constexpr ks_pen kEdges[] = {KS_PEN_SHINE, KS_PEN_DARK, KS_PEN_HALFSHINE, KS_PEN_HALFDARK};
    if (_ink == Ink::kTrue || std::ranges::any_of(kEdges, can_be_seen))
        return Over(Pen(pen), ground);
    const QColor ink = InkFor(ground);
    switch (pen) {
    case KS_PEN_DARK:
        return Mix(ground, ink, 0.6);
    case KS_PEN_HALFDARK:
        return Mix(ground, ink, 0.4);
    case KS_PEN_HALFSHINE:
        return Mix(ground, ink, 0.12);
    default:
        return ground;
    }
}

bool Worn::SelectionIsHidden() const {
    return Contrast(Ground(KS_PEN_BG_SELECTED), Ground(KS_PEN_BG_LIST)) < kEdgeContrast;
}

QFont Worn::Font(ks_font font) const {
    const BFont& chosen = _look.fonts[font];
    QFont result(QString::fromStdString(chosen.Family()));
    result.setStyleName(QString::fromStdString(chosen.Style()));
    const double size = static_cast<double>(chosen.Size());
    result.setPointSizeF(std::isnan(size) || size <= 0 ? kUsual : std::clamp(size, kSmallest, kLargest));
    return result;
}
