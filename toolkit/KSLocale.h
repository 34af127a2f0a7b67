// SPDX-License-Identifier: MIT
// Texts in the user's language: those of the running application and those of the toolkit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

// A text of a program: its number in the catalogs and its English form.
struct ks_text {
    std::uint32_t id;
    const char* english;
};

class KSLocale {
public:
    // Opens `catalog` of the language that the settings file names: the last LANGUAGE line whose value has
    // an entry in the catalogs directory, else "english". A catalog that cannot be read, or is larger than
    // 1 MiB, leaves no texts.
    void Open(const char* catalog);
    // Reads a catalog of the X/Open message source form in UTF-8: lines "12 Text" with the escapes \n and
    // \\. Lines may end in CR LF. Any other line is skipped, such as a comment ("$ ..."). Of two lines with
    // one id the second counts.
    void Read(std::string_view text);

    // Returns the catalog's text for `id`, or `default_text` when it has none or an empty one. The
    // catalog's texts live until the next Open or Read.
    const char* String(std::uint32_t id, const char* default_text) const;

    const char* String(const ks_text& text) const { return String(text.id, text.english); }

    // The language that Open has found, whether it has the catalog or not.
    const std::string& Language() const { return _language; }

private:
    void ReadLine(std::string_view line);

    std::unordered_map<std::uint32_t, std::string> _texts;
    std::string _language = "english";
};

extern KSLocale* const ks_locale;
// The texts of the toolkit itself, in the same language.
extern KSLocale* const ks_toolkit_locale;
