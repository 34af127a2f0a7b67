// SPDX-License-Identifier: MIT
// What every window of the process wears: the look, its bitmaps, and what a dialog tries on.
//
// Main thread only.
#pragma once

#include "display/worn.h"

#include <QDateTime>
#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <map>
#include <string>

class Wardrobe : public QObject {
public:
    Wardrobe();

    // Wears `look`; one that is worn already costs nothing.
    void Wear(const ks_look& look);
    // Wears the look with a change that is not made yet, until TakeOff. Many calls in one frame of the screen
    // draw once.
    void TryOn(std::function<void(ks_look&)> change);
    // Comes back to the look as it was, to the bit.
    void TakeOff();
    // Wears `look` in place of what is tried on.
    void TakeOffFor(const ks_look& look);
    // Reads the bitmaps of the look from now on. They are left out of a window's first picture, which would
    // wait for them.
    void ReadBitmaps();
    // Wears plain colours and fonts, whatever the look says, or the look again.
    void WearPlain(bool plain);
    bool IsPlain() const { return _plain; }

    // The look as it is chosen or tried on, drawn without any correction, also while plain colours are worn.
    const Worn& Truth() const { return _truth; }
    // Has `follower` called after each change of what is worn; null ends that.
    void SetFollower(std::function<void()> follower);

private:
    struct bitmap {
        QDateTime changed;
        Tile tile;
    };

    void Refresh();
    std::array<Tile, ks_look::kLevels> BitmapsOf(const ks_look& look);
    const Tile& Bitmap(const std::string& path);

    ks_look _look;
    std::function<void(ks_look&)> _trial;
    bool _plain = false;
    bool _reads_bitmaps = false;
    Worn _truth;
    bool _is_shown = false;
    std::function<void()> _follower;
    QElapsedTimer _since_trial;
    QTimer _next_trial;
    std::map<std::string, bitmap> _bitmaps;
};
