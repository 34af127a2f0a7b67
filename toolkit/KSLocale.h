// SPDX-License-Identifier: MIT
// The texts of the running application in the user's language.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

class KSLocale {
public:
    // Opens `catalog` of the language that the settings file names: the last LANGUAGE line whose value has
    // an entry in the catalogs directory, else "english". Whatever cannot be read leaves no texts; neither
    // does a catalog of more than 1 MiB.
    void Open(const char* catalog);
    // Reads a catalog of the X/Open message source form, UTF-8: "12 Text" with \n and \\ escapes; lines may
    // end in CR LF. Lines that are not of this form are skipped, comments ("$ ...") among them. Of two lines
    // with one id the second counts.
    void Read(std::string_view text);

    // Returns the catalog's text for `id`, or `default_text` when it has none or an empty one. The
    // catalog's texts live until the next Open or Read.
    const char* String(std::uint32_t id, const char* default_text) const;

private:
    void ReadLine(std::string_view line);

    std::unordered_map<std::uint32_t, std::string> _texts;
};

extern KSLocale* const ks_locale;
