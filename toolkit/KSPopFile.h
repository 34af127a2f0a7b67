// SPDX-License-Identifier: MIT
// A file's path with a way to choose another.
#pragma once

#include "toolkit/KSControl.h"

class BPath;

class KSPopFile : public KSControl {
public:
    KSPopFile(const char* name, unsigned flags) : KSControl(name, flags) {}

    // Sets the path; null and the empty text mean none. `notify` changes nothing here.
    void SetText(const char* path, bool notify);
    void SetText(const BPath* path, bool notify);
    // The user's path: text that the settings file cannot hold (a line feed in it) is refused, with false.
    bool EditText(const std::string& path);
    // Returns the path, never null. Valid until it is next changed: hold the lock, or ask Path().
    const char* Text() const;
    std::string Path() const;

    bool Revert() override;
    void Settle() override;

private:
    ks_edited_value<std::string> _path;
};
