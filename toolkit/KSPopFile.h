// SPDX-License-Identifier: MIT
// A file's path with a way to choose another.
#pragma once

#include "toolkit/KSEditor.h"

class BPath;

class KSPopFile : public KSEditor<std::string> {
public:
    KSPopFile(const char* name, unsigned flags) : KSEditor(name, flags) {}

    // Sets the path; null and the empty text mean none. `notify` has no effect.
    void SetText(const char* path, bool notify);
    void SetText(const BPath* path, bool notify);
    // The user's path. A text that does not pass ks_fits_settings_line is refused, with false.
    bool EditText(const std::string& path);
    // Returns the path, never null. Valid until it is next changed: hold the lock, or ask Path().
    const char* Text() const;
    std::string Path() const;
};
