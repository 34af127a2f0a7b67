// SPDX-License-Identifier: MIT
// What of a text the readers of the settings file ignore or change.
#pragma once

#include "toolkit/settings_values.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace shell {

struct finding {
    std::size_t line;                   // from 1
    std::optional<ks_setting> setting;  // the one that the line names, if any
    bool is_ignored;                    // whether nothing of the line is left once the settings are written
    std::string message;                // names the key, and why
};

// Calls `report` for each of the text's lines that there is something to say of, in their order. Uses the
// editors of the settings model: no Values may live.
void Check(std::string_view text, const std::function<void(const finding&)>& report);

}  // namespace shell
