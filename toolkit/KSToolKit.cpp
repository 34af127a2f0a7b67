// SPDX-License-Identifier: MIT
#include "toolkit/KSToolKit.h"

#include "kits/BWindow.h"
#include "toolkit/KSContainer.h"

#include <cstring>

namespace {

BWindow* WindowOf(const KSGroup& group) {
    const KSContainer* container = group.Container();
    return container ? container->Window() : nullptr;
}

long TextLength(const char* text, long length) {
    return length < 0 ? static_cast<long>(std::strlen(text)) : length;
}

}  // namespace

bool KSToolKit::Lock() const {
    BWindow* window = WindowOf(*this);
    return !window || window->Lock();
}

void KSToolKit::Unlock() const {
    if (BWindow* window = WindowOf(*this))
        window->Unlock();
}

void KSToolKit::SetHighPen(ks_pen pen) {
    if (_surface)
        _surface->SetHighPen(pen);
}

KSPoint<long> KSToolKit::StringSize(const char* text, long* ascent, ks_text_style*, long length, ks_truncate,
                                    bool) {
    long ignored = 0;
    long& measured_ascent = ascent ? *ascent : ignored;
    measured_ascent = 0;
    if (!_surface || !text)
        return {};
    return _surface->StringSize(text, TextLength(text, length), &measured_ascent);
}

void KSToolKit::DrawString(const char* text, KSPoint<long> where, ks_text_style*, long length, ks_truncate,
                           bool) {
    if (_surface && text)
        _surface->DrawString(text, TextLength(text, length), where);
}

void KSToolKit::FillRect(KSRect<long> rect) {
    if (_surface)
        _surface->FillRect(rect);
}
