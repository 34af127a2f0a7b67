// SPDX-License-Identifier: MIT
#include "toolkit/installed_languages.h"

#include "kits/storage.h"
#include "toolkit/installed_data.h"
#include "toolkit/settings_lines.h"

#include <filesystem>
#include <vector>

namespace {

namespace fs = std::filesystem;

// Returns the directory's entries; none when it cannot be read.
std::vector<fs::path> Entries(const fs::path& directory) {
    std::vector<fs::path> entries;
    std::error_code error;
    for (fs::directory_iterator entry(directory, error), end; !error && entry != end; entry.increment(error))
        entries.push_back(entry->path());
    return entries;
}

// Returns whether an entry of the catalogs directory is a link of the kind that is made here, and leads
// nowhere. `installed` is the directory that the links of this program lead into.
bool IsLostLink(const fs::path& entry, const fs::path& installed) {
    std::error_code error;
    const fs::path target = fs::read_symlink(entry, error);
    const fs::path from = target.parent_path();
    return !error && target.is_absolute() && target.filename() == entry.filename() &&
           from.filename() == installed.filename() &&
           from.parent_path().filename() == installed.parent_path().filename() &&
           fs::symlink_status(target, error).type() == fs::file_type::not_found;
}

}  // namespace

std::vector<std::string> ks_installed_languages() {
    std::vector<std::string> names;
    for (const fs::path& language : Entries(ks_installed_data("Catalogs")))
        names.push_back(language.filename());
    return names;
}

void ks_link_installed_languages() {
    std::error_code error;
    const fs::path catalogs = ks_resolve_path(kCatalogsPath), installed = ks_installed_data("Catalogs");
    for (const fs::path& entry : Entries(catalogs))
        if (IsLostLink(entry, installed))
            fs::remove(entry, error);

    const std::vector<fs::path> languages = Entries(installed);
    // Only a settings directory that is there: /boot/home is not for programs to make.
    if (languages.empty() || !fs::is_directory(catalogs.parent_path().parent_path(), error))
        return;
    fs::create_directories(catalogs, error);
    for (const fs::path& language : languages)
        fs::create_directory_symlink(language, catalogs / language.filename(), error);
}
