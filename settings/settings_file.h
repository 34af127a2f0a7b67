// SPDX-License-Identifier: MIT
// Carries the values of the settings file to the editors and back.
//
// A file that cannot be opened is skipped without a message. All operations belong to the application's
// thread, which must not hold the window's lock.
#pragma once

#include "toolkit/settings_values.h"

#include <string>

namespace config {

// Gives a line's value to the setting's editor. Returns whether the line has one that the editor takes.
bool ReadSetting(const ks_setting& setting, const ks_settings_line& line);

// Returns the value of the setting's editor as the file stores it; it is empty for a bitmap that is not set.
// The setting is one of ks_all_settings().
std::string SettingValue(const ks_setting& setting);

// Reads the file into the editors: a line that has no known key or no readable value changes nothing, of
// several lines with one key the last counts. When the file was read, the window's root group is redrawn.
void ReadSettings();

// Reads the file again after another program has written it: its values are settled now, and those that the
// user has not edited become the file's; edits stay. A key that the file lacks leaves its value, but a
// background's line without a bitmap's line takes the bitmap away.
void FollowSettings();

// Writes every value, all as the editors have them at one moment, over the file; returns whether that
// succeeded. The window is not locked while the file is written.
bool WriteSettings();

}  // namespace config
