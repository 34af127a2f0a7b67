// SPDX-License-Identifier: MIT
// The commands of nymbrel-settings.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace shell {

// What the program ends with: for a comparison, whether something was found.
constexpr int kFine = 0, kFound = 1, kFailed = 2;

// Carries out a command line without the program's name. Writes results to `out` and messages to `err`, and
// returns the status. A command that fails changes nothing, but for a file whose writing fails half way.
int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err);

}  // namespace shell
