// SPDX-License-Identifier: MIT
#include "toolkit/KSLocale.h"

#include "kits/storage.h"
#include "kits/utf8.h"
#include "toolkit/settings_values.h"

#include <charconv>
#include <optional>

namespace {

KSLocale locale, toolkit_locale;

constexpr std::size_t kLargestCatalog = 1 << 20;

// Returns the directory of a language's catalogs; nothing unless `language` names an entry of the catalogs
// directory.
std::optional<std::string> LanguageDirectory(const std::string& language) {
    if (language.empty() || language == "." || language == ".." || language.find('/') != std::string::npos)
        return std::nullopt;
    const std::string path = std::string(kCatalogsPath) + "/" + language;
    return ks_entry_exists(path) ? std::optional(path) : std::nullopt;
}

// Returns the file's bytes; none when it cannot be read or is too large.
std::string ReadCatalog(const std::string& path) {
    std::string text = ks_read_regular_file(path, kLargestCatalog + 1).value_or("");
    return text.size() > kLargestCatalog ? std::string() : text;
}

// Replaces the escapes: \n becomes a line feed, a backslash before another character goes. Returns nothing
// when the text ends in a lone backslash.
std::optional<std::string> Unescaped(std::string_view text) {
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\\') {
            plain += text[i];
            continue;
        }
        if (++i == text.size())
            return std::nullopt;
        plain += text[i] == 'n' ? '\n' : text[i];
    }
    return plain;
}

}  // namespace

KSLocale* const ks_locale = &locale;
KSLocale* const ks_toolkit_locale = &toolkit_locale;

void KSLocale::Open(const char* catalog) {
    // The language list always holds this one, with or without an entry of its own.
    _language = "english";
    ks_read_settings_lines([&](const ks_settings_line& line) {
        if (ks_find_setting(line) != ks_setting{ks_setting_kind::kLanguage})
            return;
        if (const std::string language = line.Value(); language == "english" || LanguageDirectory(language))
            _language = language;
    });
    const std::optional<std::string> directory = LanguageDirectory(_language);
    Read(directory && catalog ? ReadCatalog(*directory + "/" + catalog) : std::string());
}

void KSLocale::Read(std::string_view text) {
    _texts.clear();
    if (text.starts_with("\xEF\xBB\xBF"))
        text.remove_prefix(3);
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        ReadLine(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

void KSLocale::ReadLine(std::string_view line) {
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    std::uint32_t id = 0;
    const auto [after, error] = std::from_chars(line.data(), line.data() + line.size(), id);
    if (error != std::errc() || after == line.data() + line.size() || (*after != ' ' && *after != '\t'))
        return;
    line.remove_prefix(static_cast<std::size_t>(after + 1 - line.data()));
    if (line.find('\0') != std::string_view::npos || !ks_utf8_is_valid(line))
        return;
    if (auto text = Unescaped(line))
        _texts[id] = std::move(*text);
}

const char* KSLocale::String(std::uint32_t id, const char* default_text) const {
    const auto found = _texts.find(id);
    return found == _texts.end() || found->second.empty() ? default_text : found->second.c_str();
}
