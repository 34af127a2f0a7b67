// SPDX-License-Identifier: MIT
// Reads any bytes as a settings file: its lines beside the C library's, then into a tree of editors and back.
// Then reads them as a scheme.
#include "settings/settings_file.h"
#include "tests/fuzz/fuzz_target.h"
#include "tests/settings/editors.h"
#include "toolkit/KSLook.h"
#include "toolkit/settings_lines.h"

#include <cstdio>
#include <cstring>

namespace {

using lines = std::vector<std::pair<std::string, std::string>>;

lines Lines(std::string_view text) {
    lines found;
    ks_read_settings_lines(text,
                           [&](const ks_settings_line& line) { found.emplace_back(line.key, line.rest); });
    return found;
}

// What fgets and strtok make of the text.
lines PlainLines(const std::string& text) {
    lines found;
    if (text.empty())
        return found;
    std::FILE* file = fmemopen(const_cast<char*>(text.data()), text.size(), "r");
    char piece[1024];
    while (std::fgets(piece, sizeof piece, file)) {
        const std::string whole = piece;
        if (const char* key = std::strtok(piece, " =")) {
            const std::size_t end = static_cast<std::size_t>(key - piece) + std::strlen(key);
            if (end + 1 < whole.size())
                found.emplace_back(key, whole.substr(end + 1));
        }
    }
    std::fclose(file);
    return found;
}

std::string Stored(const ScopedHome& home, const std::string& text) {
    home.Write(home.SettingsFile(), text);
    const Editors editors;
    config::ApplyDefaults();
    config::ReadSettings();
    Require(config::WriteSettings(), "the settings cannot be written");
    return ScopedHome::Read(home.SettingsFile());
}

// Opens the text as a scheme in editors with their defaults, and returns what these hold then.
std::string StoredByScheme(const ScopedHome& home, const std::string& text) {
    home.Write("scheme", text);
    const Editors editors;
    config::TieEditors();
    config::ApplyDefaults();
    if (const std::optional<ks_scheme_file> file = ks_read_scheme(home / "scheme"))
        ks_current_look->Edit(file->scheme);
    ks_current_look->Untie();
    Require(config::WriteSettings(), "the settings cannot be written");
    return ScopedHome::Read(home.SettingsFile());
}

// Whether each line is one of the defaults or, for what a scheme holds, one that the settings file has of the
// same text.
bool ChangesNoMore(const std::string& by_scheme, const std::string& by_file, const std::string& defaults) {
    std::istringstream text(by_scheme);
    for (std::string line; std::getline(text, line);) {
        const bool may_change = line.starts_with("LOOK") || line.starts_with("KS_");
        if (('\n' + defaults).find('\n' + line + '\n') == std::string::npos &&
            !(may_change && ('\n' + by_file).find('\n' + line + '\n') != std::string::npos))
            return false;
    }
    return true;
}

std::vector<std::uint8_t> Bytes(const std::string& text) {
    return {text.begin(), text.end()};
}

}  // namespace

std::vector<std::vector<std::uint8_t>> FuzzSeeds() {
    const ScopedHome home;
    return {
        Bytes(Stored(home, "")),
        Bytes("KS_PEN_BG_LOW_BMP = /etc/passwd\nKS_FONT_TITLE = Sans,Bold,12.5\nLOOK = Nymbrel\n"),
        Bytes("BEOS = -9223372036854775808\nBUBBLEHELPTIME = 1e9\nMOUSEHOLDTIME = 99999999999999999999\n"),
        Bytes("KS_FONT_NORMAL = a,b,nan\nKS_FONT_SMALL = a,b,1e300\nks_pen_text = -1,,300,4\n==LANGUAGE"),
        Bytes(std::string(1021, ' ') + "LOOK = Nymbrel\n" + std::string(1023, 'x') + "BEOS = 0\n")};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const ScopedHome home;
    const std::string text(reinterpret_cast<const char*>(data), size);
    Require(Lines(text) == PlainLines(text), "the lines are others than the C library's");
    const std::string stored = Stored(home, text);
    static const std::string defaults = StoredByScheme(home, "");
    Require(ChangesNoMore(StoredByScheme(home, text), stored, defaults),
            "a scheme changes what it should not");
    Require(stored.ends_with('\n') && Stored(home, stored) == stored, "what was stored comes back otherwise");
    return 0;
}
