// SPDX-License-Identifier: MIT
// A look as it is worn: its colours, bitmaps and fonts, ready to draw with.
//
// Main thread only.
#pragma once

#include "toolkit/ks_look.h"
#include "toolkit/ks_pen.h"

#include <QColor>
#include <QFont>
#include <QPixmap>

#include <array>
#include <vector>

// A level's bitmap, with what there is to know of its colours.
struct Tile {
    Tile() = default;
    explicit Tile(QPixmap bitmap);

    QPixmap pixmap;
    QColor mean;                  // of all pixels, weighted by their alpha, which is the mean's own
    std::vector<QColor> samples;  // pixels from all over it
};

class Worn {
public:
    // What is drawn when a choice cannot be read: something else, or the truth.
    enum class Ink { kReadable, kTrue };
    // What the lowest level lets through.
    static constexpr QColor kBottom{200, 200, 200};

    Worn() = default;
    // Wears `look`. `tiles` holds a bitmap for each level that has one that could be read.
    Worn(const ks_look& look, const std::array<Tile, ks_look::kLevels>& tiles, Ink ink);

    // The same look drawn otherwise.
    Worn With(Ink ink) const;

    bool IsNymbrel() const { return _look.is_nymbrel; }
    const ks_look& Look() const { return _look; }

    // The pen as it was chosen, with its alpha.
    QColor Pen(ks_pen pen) const;
    // The colour that is seen of a level: the mean of its bitmap over its colour over what is below. For a
    // pen that is no level, the pen over the High level. Always opaque.
    QColor Ground(ks_pen level) const;
    // The level's bitmap; null where it has none.
    const QPixmap& Bitmap(ks_pen level) const { return _bitmaps[static_cast<std::size_t>(level)]; }
    // What is laid over the level's bitmap, so that it does not hide the texts: nothing over one that is calm
    // enough, and nothing where the truth is wanted.
    QColor Veil(ks_pen level) const;

    // The colour in which `pen` writes on `ground`. Unless the truth is wanted, an ink that cannot be read
    // becomes black or white.
    QColor On(ks_pen pen, const QColor& ground) const;
    // One of the four edge pens on `ground`. Unless the truth is wanted, greys of the ground take the place
    // of edges none of which can be seen.
    QColor Edge(ks_pen pen, const QColor& ground) const;
    // Whether a selected row cannot be told from the list.
    bool SelectionIsHidden() const;

    // A font of the look, of a size that a window can be laid out with.
    QFont Font(ks_font font) const;

private:
    QColor Readable(ks_pen pen, const QColor& ground) const;

    ks_look _look;
    std::array<QPixmap, ks_look::kLevels> _bitmaps;
    std::array<QColor, ks_look::kLevels> _grounds;
    std::array<double, ks_look::kLevels> _veils{};  // opacities
    Ink _ink = Ink::kReadable;
};
