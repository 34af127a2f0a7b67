// SPDX-License-Identifier: MIT
// Shows a picture of a file.
#pragma once

#include "toolkit/KSControl.h"

class KSPicture : public KSControl {
public:
    KSPicture(const char* name, unsigned flags) : KSControl(name, flags) {}

    // Names the image file. A bare name is looked for beside the program's data, then in the working
    // directory; a missing file leaves a blank picture of the usual size.
    void SetFileName(const char* file_name) {
        const KSAutolock lock(this);
        _file_name = file_name ? file_name : "";
        Changed();
    }
    std::string FileName() const {
        const KSAutolock lock(this);
        return _file_name;
    }

private:
    std::string _file_name;
};
