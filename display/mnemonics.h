// SPDX-License-Identifier: MIT
// Chooses the letters that, with Alt, lead to a control.
#pragma once

#include <QString>

#include <set>
#include <vector>

// Returns for each text the position of its mnemonic, -1 where none is left. No letter is chosen twice, nor
// one of `used`, to which the chosen ones are added. Only letters and digits that every keyboard has are
// taken: those that start a word rather than others.
std::vector<int> ChooseMnemonics(const std::vector<QString>& texts, std::set<char>& used);
