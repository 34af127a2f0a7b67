// SPDX-License-Identifier: MIT
#include "toolkit/KSPopFile.h"

#include "kits/storage.h"
#include "toolkit/settings_lines.h"

void KSPopFile::SetText(const char* path, bool) {
    ProgramSets(path ? path : "");
}

void KSPopFile::SetText(const BPath* path, bool notify) {
    SetText(path ? path->Path() : nullptr, notify);
}

bool KSPopFile::EditText(const std::string& path) {
    if (!path.empty() && !ks_fits_settings_line(path))
        return false;
    UserSets(path, true);
    return true;
}

const char* KSPopFile::Text() const {
    const KSAutolock lock(this);
    return Present().c_str();
}

std::string KSPopFile::Path() const {
    return Copy();
}
