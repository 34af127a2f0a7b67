// SPDX-License-Identifier: MIT
// The languages that were installed with the program: ../share/nymbrel-config/Catalogs, seen from it.
#pragma once

#include <string>
#include <vector>

// Returns their names, in the directory's order.
std::vector<std::string> ks_installed_languages();

// Puts a link to each installed language into the user's catalogs directory, unless that has an entry of this
// name, and removes the links to languages that are no longer installed. Other entries stay as they are.
// Failures are silent.
void ks_link_installed_languages();
