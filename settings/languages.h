// SPDX-License-Identifier: MIT
// The languages that the user can choose from: "english" and what the catalogs directory holds.
#pragma once

#include "kits/BMessage.h"

namespace config {

// What the language list sends to the application when its selection changes.
constexpr std::uint32_t kLanguageSelected = ks_message_code("LIST");

// Makes the language list (`_llist`), which the caller adds to the window: "english", then every entry of the
// catalogs directory with another name, in the directory's order. The list's target is the application. When
// the directory cannot be read, "english" is the only item.
void FillLanguageList();

// Makes `_language` the list's selection; when nothing is selected, selects "english" again.
void TakeSelectedLanguage();

}  // namespace config
