// SPDX-License-Identifier: MIT
// Chooses the letters that lead to a control when they are pressed with Alt.
#pragma once

#include <QString>

#include <set>
#include <vector>

// Returns the position of each text's mnemonic, or -1 where no letter is left. No letter is chosen twice, and
// none that is in `used`; the chosen ones are added to `used`. Only a to z and 0 to 9 are chosen, those that
// start a word first.
std::vector<int> ChooseMnemonics(const std::vector<QString>& texts, std::set<char>& used);
