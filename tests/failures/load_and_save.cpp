// SPDX-License-Identifier: MIT
// load_and_save: does what the program does with its files, without a window. Changes one setting in between.
// Fails when a descriptor is left open. Does not answer to quit signals.
#include "kits/QuitSignals.h"
#include "kits/storage.h"
#include "settings/settings_file.h"
#include "tests/settings/editors.h"
#include "toolkit/KSLocale.h"
#include "toolkit/installed_languages.h"

#include <cstdio>

namespace {

std::ptrdiff_t OpenDescriptors() {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}

}  // namespace

int main() {
    const std::ptrdiff_t before = OpenDescriptors();
    const QuitSignals signals([] {});
    ks_create_settings_directory();
    ks_link_installed_languages();
    ks_locale->Open("NymbrelConfig.catalog");
    const Editors editors;
    config::ApplyDefaults();
    config::ReadSettings();
    config::_mousetime->SetValue(43000);
    config::WriteSettings();
    return OpenDescriptors() == before ? 0 : 3;
}
