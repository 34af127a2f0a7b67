// SPDX-License-Identifier: MIT
// Shows a picture of a file.
#include "toolkit/KSPicture.h"

void KSPicture::SetFileName(const char* file_name) {
    const KSAutolock lock(this);
    _file_name = file_name ? file_name : "";
    Changed();
}

std::string KSPicture::FileName() const {
    const KSAutolock lock(this);
    return _file_name;
}
