// SPDX-License-Identifier: MIT
#include "display/wardrobe.h"

#include "display/pen_style.h"
#include "display/picture_file.h"
#include "kits/storage.h"
#include "toolkit/default_fonts.h"
#include "toolkit/ks_palettes.h"

#include <QFileInfo>

#include <algorithm>
#include <utility>

namespace {

constexpr int kFrame = 16;  // milliseconds
constexpr QSize kLargestBitmap(512, 512);

ks_look PlainLook(const ks_look& timing) {
    ks_look plain;
    plain.pens = ks_palettes[kBeOSConformPalette];
    for (std::size_t i = 0; i < plain.fonts.size(); ++i)
        plain.fonts[i] = ks_default_font(static_cast<ks_font>(i));
    plain.bubble_help = timing.bubble_help;
    plain.bubble_wait = timing.bubble_wait;
    plain.mouse_hold = timing.mouse_hold;
    return plain;
}

}  // namespace

Wardrobe::Wardrobe() {
    _next_trial.setSingleShot(true);
    connect(&_next_trial, &QTimer::timeout, this, &Wardrobe::Refresh);
}

void Wardrobe::Wear(const ks_look& look) {
    _look = look;
    Refresh();
}

void Wardrobe::TryOn(std::function<void(ks_look&)> change) {
    _trial = std::move(change);
    if (_next_trial.isActive())
        return;
    const qint64 left = _since_trial.isValid() ? kFrame - _since_trial.elapsed() : 0;
    _next_trial.start(static_cast<int>(std::max<qint64>(left, 0)));
}

void Wardrobe::TakeOff() {
    TakeOffFor(_look);
}

void Wardrobe::TakeOffFor(const ks_look& look) {
    _trial = nullptr;
    _next_trial.stop();
    Wear(look);
}

void Wardrobe::ReadBitmaps() {
    if (std::exchange(_reads_bitmaps, true) || std::ranges::all_of(_look.bitmaps, &std::string::empty))
        return;
    _is_shown = false;
    Refresh();
}

void Wardrobe::WearPlain(bool plain) {
    _plain = plain;
    _is_shown = false;
    Refresh();
}

void Wardrobe::SetFollower(std::function<void()> follower) {
    _follower = std::move(follower);
}

void Wardrobe::Refresh() {
    _since_trial.start();
    ks_look look = _look;
    if (_trial)
        _trial(look);
    if (_is_shown && look == _truth.Look())
        return;
    _is_shown = true;
    _truth = Worn(look, BitmapsOf(look), Worn::Ink::kTrue);
    PenStyle::Instance().Wear(_plain ? Worn(PlainLook(look), {}, Worn::Ink::kReadable)
                                     : _truth.With(Worn::Ink::kReadable));
    if (_follower)
        _follower();
}

std::array<Tile, ks_look::kLevels> Wardrobe::BitmapsOf(const ks_look& look) {
    std::array<Tile, ks_look::kLevels> bitmaps;
    if (_reads_bitmaps)
        for (std::size_t i = 0; i < bitmaps.size(); ++i)
            if (!look.bitmaps[i].empty())
                bitmaps[i] = Bitmap(look.bitmaps[i]);
    std::erase_if(_bitmaps, [&](const auto& known) {
        return std::ranges::find(look.bitmaps, known.first) == look.bitmaps.end();
    });
    return bitmaps;
}

// A picture is read again when its file has changed.
const Tile& Wardrobe::Bitmap(const std::string& path) {
    const QString name = QString::fromStdString(path);
    const QDateTime changed = QFileInfo(QString::fromStdString(ks_resolve_path(path))).lastModified();
    const auto [known, is_new] = _bitmaps.try_emplace(path);
    if (is_new || known->second.changed != changed)
        known->second = {changed, Tile(QPixmap::fromImage(ReadPicture(name, kLargestBitmap)))};
    return known->second.tile;
}
