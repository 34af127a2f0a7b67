// SPDX-License-Identifier: MIT
#include "toolkit/installed_data.h"

std::filesystem::path ks_installed_data(std::string_view name) {
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    return (program.parent_path() / "../" NYMBREL_DATA_DIRECTORY / name).lexically_normal();
}
