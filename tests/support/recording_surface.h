// SPDX-License-Identifier: MIT
// A surface that keeps what is drawn on it as text.
#pragma once

#include "toolkit/KSToolKit.h"

#include <sstream>
#include <string>

// Texts are 7 wide for each byte, and all of one height, of which 3 lie below the base line.
class RecordingSurface : public KSSurface {
public:
    explicit RecordingSurface(long text_height) : _text_height(text_height) {}

    void SetHighPen(ks_pen pen) override { drawn << "pen " << pen << "; "; }
    KSPoint<long> StringSize(const char*, long length, long* ascent) override {
        *ascent = _text_height - 3;
        return {7 * length, _text_height};
    }
    void DrawString(const char* text, long length, KSPoint<long> where) override {
        drawn << std::string(text, static_cast<std::size_t>(length)) << " at " << where.x << ',' << where.y
              << "; ";
    }
    void FillRect(KSRect<long> rect) override {
        drawn << "fill " << rect.left << ',' << rect.top << ',' << rect.right << ',' << rect.bottom << "; ";
    }

    std::ostringstream drawn;

private:
    long _text_height;
};
