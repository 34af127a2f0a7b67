// SPDX-License-Identifier: MIT
// The languages that were installed with the program.
#pragma once

// Puts a link to each installed language into the user's catalogs directory, unless that has an entry of this
// name, and removes the links to languages that are no longer installed. Other entries stay as they are.
// Failures are silent. Installed languages lie in ../share/nymbrel-config/Catalogs, seen from the program.
void ks_link_installed_languages();
