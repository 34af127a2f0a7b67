// SPDX-License-Identifier: MIT
// Locking and drawing for controls.
#pragma once

#include "toolkit/KSGroup.h"
#include "toolkit/ks_pen.h"

struct ks_text_style;  // no style is defined: always null
enum ks_truncate : int { KS_TRUNCATE_NONE = 0 };

// What a control measures and draws with; whoever shows the window makes it. Coordinates are the control's,
// in pixels; texts are UTF-8.
class KSSurface {
public:
    virtual ~KSSurface() = default;
    virtual void SetHighPen(ks_pen pen) = 0;
    // Returns width and height of `length` bytes of text, and the distance from its top to its base line.
    virtual KSPoint<long> StringSize(const char* text, long length, long* ascent) = 0;
    // Draws `length` bytes of text with its base line's left end at `where`.
    virtual void DrawString(const char* text, long length, KSPoint<long> where) = 0;
    // Fills a rectangle with the high pen.
    virtual void FillRect(KSRect<long> rect) = 0;
};

class KSToolKit : public KSGroup {
public:
    explicit KSToolKit(const char* name) : KSGroup(name) {}

    // Takes the lock of the window that holds this control. Returns false, with nothing locked, once that
    // window has been closed. A control that no window holds needs no lock: then it returns true.
    bool Lock() const;
    void Unlock() const;

    // The drawing operations act on the surface that is set while a drawing hook runs. Without one they do
    // nothing and measure 0. A negative length means all of the text; `style` is null, `truncate` is
    // KS_TRUNCATE_NONE and `whole` is true.
    void SetHighPen(ks_pen pen);
    KSPoint<long> StringSize(const char* text, long* ascent, ks_text_style* style, long length,
                             ks_truncate truncate, bool whole);
    void DrawString(const char* text, KSPoint<long> where, ks_text_style* style, long length,
                    ks_truncate truncate, bool whole);
    void FillRect(KSRect<long> rect);

    // Whoever shows the window calls this around the drawing hooks, under the window's lock.
    void SetSurface(KSSurface* surface) { _surface = surface; }

private:
    KSSurface* _surface = nullptr;
};

// Holds a control's toolkit lock for a scope; converts to false when it could not be taken.
class KSAutolock {
public:
    explicit KSAutolock(const KSToolKit* control) : _control(control), _locked(control->Lock()) {}
    ~KSAutolock() {
        if (_locked)
            _control->Unlock();
    }
    KSAutolock(const KSAutolock&) = delete;
    KSAutolock& operator=(const KSAutolock&) = delete;

    explicit operator bool() const { return _locked; }

private:
    const KSToolKit* _control;
    bool _locked;
};
