// SPDX-License-Identifier: MIT
// The languages that the user can choose from: "english" and what the catalogs directory holds.
#pragma once

#include "kits/BMessage.h"

namespace config {

// What the language list sends to the application when its selection changes.
constexpr std::uint32_t kLanguageSelected = ks_message_code("LIST");

// Makes the language list (`_llist`), to be added to the window by the caller: "english", then every entry
// of the catalogs directory, in the directory's order, that has another name. The list's target is the
// application. A directory that cannot be read leaves "english" alone.
void FillLanguageList();

// Takes the list's selection over into `_language`; where there is none, "english" is selected again.
void TakeSelectedLanguage();

}  // namespace config
