// SPDX-License-Identifier: MIT
#include "toolkit/installed_languages.h"

#include "kits/storage.h"
#include "toolkit/settings_lines.h"

#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

const fs::path kInstalled = NYMBREL_DATA_DIRECTORY "/Catalogs";

// Returns the directory's entries; none when it cannot be read.
std::vector<fs::path> Entries(const fs::path& directory) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

// Returns whether an entry of the catalogs directory is a link of the kind that is made here, and leads
// nowhere.
bool IsLostLink(const fs::path& entry) {
    std::error_code error;
    const fs::path target = fs::read_symlink(entry, error);
    const fs::path from = target.parent_path();
    return !error && target.is_absolute() && target.filename() == entry.filename() &&
           from.filename() == kInstalled.filename() &&
           from.parent_path().filename() == kInstalled.parent_path().filename() &&
           fs::symlink_status(target, error).type() == fs::file_type::not_found;
}

}  // namespace

void ks_link_installed_languages() {
    std::error_code error;
    const fs::path catalogs = ks_resolve_path(kCatalogsPath);
    for (const fs::path& entry : Entries(catalogs))
        if (IsLostLink(entry))
            fs::remove(entry, error);

    const fs::path program = fs::read_symlink("/proc/self/exe", error);
    const std::vector<fs::path> languages =
        Entries((program.parent_path() / ".." / kInstalled).lexically_normal());
    // Only a settings directory that is there: /boot/home is not for programs to make.
    if (languages.empty() || !fs::is_directory(catalogs.parent_path().parent_path(), error))
        return;
    fs::create_directories(catalogs, error);
    for (const fs::path& language : languages)
        fs::create_directory_symlink(language, catalogs / language.filename(), error);
}
