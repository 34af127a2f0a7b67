// SPDX-License-Identifier: MIT
// Where the files that come with the program lie.
#pragma once

#include <filesystem>
#include <string_view>

// Returns the path of a file or directory that is installed with the running program, or that a build has in
// the same place.
std::filesystem::path ks_installed_data(std::string_view name);
