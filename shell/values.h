// SPDX-License-Identifier: MIT
// The values that a text of the settings file's grammar gives.
#pragma once

#include "settings/editors.h"
#include "toolkit/settings_values.h"

#include <optional>
#include <string>
#include <string_view>

namespace shell {

// They are the values of the settings model's editors, as in the window. So there is one object at a time.
class Values {
public:
    // Reads the text over the defaults. The languages are those that the window has once it has linked the
    // installed ones.
    explicit Values(std::string_view text);
    ~Values();
    Values(const Values&) = delete;
    Values& operator=(const Values&) = delete;

    // Gives a setting a value as the user does. Returns whether the window takes it as it is; where it does
    // not, the editor may hold anything. A colour may also be digits (toolkit/color_digits.h) behind a "#"; a
    // relative path is made absolute.
    bool Set(const ks_setting& setting, const std::string& value);

    // Returns whether the setting's editor holds what `written` says, be it spelled otherwise.
    bool Holds(const ks_setting& setting, std::string_view written) const;
    // Returns whether the window lets the user choose the value that the editor holds.
    bool IsOffered(const ks_setting& setting) const;
    // Returns what values the setting takes, as the end of a sentence.
    std::string FormOf(const ks_setting& setting) const;

private:
    config::Editors _editors;
};

// Returns the setting with this key, whatever its case; nothing where no setting with a value has it.
std::optional<ks_setting> FindSetting(const ks_settings_line& line);
// Returns the labels that the setting has in the window.
std::string MeaningOf(const ks_setting& setting);

}  // namespace shell
