// SPDX-License-Identifier: MIT
#include "shell/check.h"

#include "settings/settings_file.h"
#include "shell/text.h"
#include "shell/values.h"

#include <map>

namespace shell {
namespace {

constexpr std::string_view kBlanks = " =\t\r\n";

std::string NoSetting(std::string_view key) {
    return "there is no setting " + Quoted(key);
}

class Checker {
public:
    explicit Checker(const std::function<void(const finding&)>& report) : _report(report) {}

    void Run(std::string_view text) {
        ks_read_settings_pieces(text, [this](const ks_settings_piece& piece) {
            const std::optional<ks_settings_line> line = piece.Line();
            const std::optional<ks_setting> setting = line ? FindSetting(*line) : std::nullopt;
            if (setting && config::ReadSetting(*setting, *line))
                _counting[ks_setting_key(*setting)] = piece.number;
        });
        ks_read_settings_pieces(text, [this](const ks_settings_piece& piece) { Examine(piece); });
    }

private:
    void Examine(const ks_settings_piece& piece) {
        const std::size_t nul = piece.text.find('\0');
        if (nul != piece.text.npos && piece.text.find_first_not_of(kBlanks, nul + 1) != piece.text.npos)
            _report({piece.number, std::nullopt, true, "a NUL byte ends what is read of the line"});
        if (piece.is_tail)
            return ExamineTail(piece);
        if (const std::optional<ks_settings_line> line = piece.Line())
            ExamineLine(piece.number, *line);
        else if (!piece.IsBlank())
            ExamineKey(piece);
    }

    void ExamineTail(const ks_settings_piece& piece) {
        const bool is_first = _long_line != piece.number;
        _long_line = piece.number;
        if (is_first && !piece.IsBlank())
            _report({piece.number, std::nullopt, true,
                     "the line is longer than 1023 characters, and its rest is read as another line"});
    }

    // A key with nothing behind it.
    void ExamineKey(const ks_settings_piece& piece) {
        std::string_view key = piece.text.substr(0, piece.text.find('\0'));
        key.remove_prefix(key.find_first_not_of(kBlanks));
        key = key.substr(0, key.find_last_not_of(kBlanks) + 1);
        const std::optional<ks_setting> setting = FindSetting({std::string(key), ""});
        _report({piece.number, setting, true,
                 setting ? ks_setting_key(*setting) + " has no value" : NoSetting(key)});
    }

    void ExamineLine(std::size_t number, const ks_settings_line& line) {
        const std::optional<ks_setting> setting = FindSetting(line);
        if (!setting)
            return _report({number, setting, true, NoSetting(line.key)});
        const std::string key = ks_setting_key(*setting), value = line.Value();
        const bool is_read = config::ReadSetting(*setting, line);
        std::string fault;
        if (!is_read)
            fault = " is ignored";
        else if (!_values.Holds(*setting, value))
            fault = " is read as " + Printable(config::SettingValue(*setting));
        else if (!_values.IsOffered(*setting))
            fault = " is kept, but the window does not offer it";
        if (!fault.empty())
            _report({number, setting, !is_read,
                     key + " = " + Quoted(value) + fault + ": it takes " + _values.FormOf(*setting)});
        else if (const std::size_t later = _counting[key]; later > number)
            _report({number, setting, false,
                     key + " does not count: line " + std::to_string(later) + " sets it again"});
    }

    const std::function<void(const finding&)>& _report;
    Values _values{{}};
    std::map<std::string, std::size_t> _counting;  // by the key: the line whose value counts
    std::size_t _long_line = 0;                    // the last one that was reported
};

}  // namespace

void Check(std::string_view text, const std::function<void(const finding&)>& report) {
    Checker(report).Run(text);
}

}  // namespace shell
