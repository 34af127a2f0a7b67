// SPDX-License-Identifier: MIT
#include "shell/commands.h"

#include "kits/BRoster.h"
#include "kits/QuitSignals.h"
#include "kits/storage.h"
#include "settings/model.h"
#include "settings/settings_file.h"
#include "shell/check.h"
#include "shell/text.h"
#include "shell/values.h"
#include "toolkit/KSApplication.h"
#include "toolkit/KSLook.h"
#include "toolkit/installed_data.h"
#include "toolkit/scheme.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <ostream>
#include <set>
#include <stdexcept>
#include <utility>

namespace fs = std::filesystem;

namespace shell {
namespace {

// Its text is the sentence that the user reads.
struct failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

constexpr const char* kHelp =
    R"(nymbrel-settings reads and changes the settings of the Nymbrel toolkit's programs.

  nymbrel-settings get KEY                       print the value of a setting
  nymbrel-settings set [--force] KEY VALUE...    store a value, and tell the running programs
  nymbrel-settings apply [--force] SCHEME        store a scheme: a name or a file
  nymbrel-settings reset-colors [--force] [--beos]
                                                 store a palette: the default one or BeOS conform
  nymbrel-settings diff FILE [FILE]              compare the values of two files
  nymbrel-settings check [FILE]                  name the lines that are ignored or read otherwise
  nymbrel-settings list [--json]                 print all settings, and what they mean
  nymbrel-settings --help | --version

FILE is the user's settings file where it is left out. --force writes although lines of the settings file
would be lost. The status is 0, or 1 where diff or check have found something, or 2 after a failure.
)";

// What follows the command's name.
struct command_line {
    std::vector<std::string> arguments;
    std::set<std::string> options;
    std::ostream& out;
    std::ostream& err;

    bool Has(const char* option) const { return options.contains(option); }
};

std::string OwnPath() {
    return ks_resolve_path(kSettingsPath);
}

std::string TextOf(const std::string& path) {
    std::optional<std::string> text = ks_read_regular_file(path, kLongestSettingsFile + 1);
    if (!text)
        throw failure(Printable(path) + " is not a file that can be read");
    if (text->size() > kLongestSettingsFile)
        throw failure(Printable(path) + " is longer than 64 MiB and thus no settings file");
    return *std::move(text);
}

// Returns an empty text where there is no settings file.
std::string OwnText() {
    std::error_code error;
    return fs::status(OwnPath(), error).type() == fs::file_type::not_found ? std::string()
                                                                           : TextOf(OwnPath());
}

ks_setting SettingOf(const std::string& key) {
    const std::optional<ks_setting> setting = FindSetting({key, ""});
    if (!setting)
        throw failure("there is no setting " + Quoted(key));
    return *setting;
}

// Names the lines that writing the settings would drop, and throws if there are any. A line of `replaced`
// gets a new value.
void RequireNoLoss(const std::string& text, const std::optional<ks_setting>& replaced, std::ostream& err) {
    constexpr std::size_t kMostNamed = 10;
    std::size_t count = 0;
    Check(text, [&](const finding& found) {
        if (!found.is_ignored || (replaced && found.setting == replaced))
            return;
        if (++count <= kMostNamed)
            err << Printable(OwnPath()) << ':' << found.line << ": " << found.message << '\n';
    });
    if (count > 0)
        throw failure("writing " + Printable(OwnPath()) + " would lose " +
                      (count == 1 ? "this line"
                       : count <= kMostNamed
                           ? "these lines"
                           : "these lines and " + std::to_string(count - kMostNamed) + " more") +
                      "; --force writes it all the same");
}

// Stores what the editors hold and tells the running programs.
void Store(std::ostream& err) {
    ks_create_settings_directory();
    {
        const QuitSignals until_it_is_written([] {});
        if (!config::WriteSettings())
            throw failure(Printable(OwnPath()) + " cannot be written");
    }
    if (!be_roster->Announce(BMessage(KSApplication::kSettingsChanged)))
        err << "nymbrel-settings: warning: the session bus cannot be reached, so running programs do not "
               "follow\n";
}

// Changes the user's settings by `edit`, which gets the values that are stored.
int Change(const command_line& line, const std::optional<ks_setting>& replaced,
           const std::function<void(Values&)>& edit) {
    const std::string text = OwnText();
    if (!line.Has("--force"))
        RequireNoLoss(text, replaced, line.err);
    Values values(text);
    edit(values);
    Store(line.err);
    return kFine;
}

int Get(const command_line& line) {
    const ks_setting setting = SettingOf(line.arguments[0]);
    const Values values(OwnText());
    line.out << config::SettingValue(setting) << '\n';
    return kFine;
}

int Set(const command_line& line) {
    const ks_setting setting = SettingOf(line.arguments[0]);
    std::string value;
    for (std::size_t i = 1; i < line.arguments.size(); ++i)
        value += (i > 1 ? "," : "") + line.arguments[i];
    return Change(line, setting, [&](Values& values) {
        if (!values.Set(setting, value))
            throw failure(ks_setting_key(setting) + " cannot be " + Quoted(value) + ": it takes " +
                          values.FormOf(setting));
    });
}

// Returns the names and the files of the schemes that come with the program.
std::vector<std::pair<std::string, std::string>> InstalledSchemes() {
    std::vector<std::pair<std::string, std::string>> schemes;
    std::error_code error;
    for (fs::directory_iterator entry(ks_installed_data("schemes"), error), end; !error && entry != end;
         entry.increment(error))
        if (entry->path().extension() == ".scheme")
            schemes.emplace_back(entry->path().stem(), entry->path());
    std::ranges::sort(schemes);
    return schemes;
}

// Throws, naming the first line that a scheme cannot hold, if there is one.
void RequireNoFault(const std::string& path) {
    Check(TextOf(path), [&](const finding& found) {
        if (found.is_ignored && !(found.setting && !ks_is_of_scheme(*found.setting)))
            throw failure(Printable(path) + ":" + std::to_string(found.line) + ": " + found.message +
                          " (--force leaves such lines out)");
    });
}

ks_scheme SchemeIn(const std::string& path, bool may_be_damaged) {
    const std::optional<ks_scheme_file> file = ks_read_scheme(path);
    if (!file)
        throw failure(Printable(path) + " is not a scheme that can be read");
    if (file->faults > 0 && !may_be_damaged)
        RequireNoFault(path);
    if (file->values == 0)
        throw failure(Printable(path) + " is no scheme: no line of it can be used");
    return file->scheme;
}

// A scheme of the program goes before a file of the same name.
ks_scheme SchemeOf(const std::string& name, bool may_be_damaged) {
    if (name == "default")
        return ks_palette_scheme(kDefaultPalette);
    if (name == "beos")
        return ks_palette_scheme(kBeOSConformPalette);
    std::string names = "default, beos";
    for (const auto& [installed, path] : InstalledSchemes()) {
        if (name == installed)
            return SchemeIn(path, may_be_damaged);
        names += ", " + installed;
    }
    if (!ks_entry_exists(name))
        throw failure("there is no scheme " + Quoted(name) + ": it is a file, or one of " + names);
    return SchemeIn(name, may_be_damaged);
}

int Apply(const command_line& line) {
    const ks_scheme scheme = SchemeOf(line.arguments[0], line.Has("--force"));
    return Change(line, std::nullopt, [&](Values&) { ks_current_look->Edit(scheme); });
}

int ResetColors(const command_line& line) {
    return Change(line, std::nullopt, [&](Values&) {
        config::ApplyPalette(line.Has("--beos") ? kBeOSConformPalette : kDefaultPalette);
    });
}

// Returns the lines of all settings; an empty one for a bitmap that is not set.
std::vector<std::string> LinesOf(const std::string& text) {
    const Values values(text);
    std::vector<std::string> lines;
    for (const ks_setting& setting : ks_all_settings()) {
        const std::string value = config::SettingValue(setting);
        lines.push_back(value.empty() ? value : ks_format_setting(setting, value));
    }
    return lines;
}

int Diff(const command_line& line) {
    const std::vector<std::string>& paths = line.arguments;
    const std::string other_path = paths.size() > 1 ? paths[1] : OwnPath();
    const std::vector<std::string> before = LinesOf(TextOf(paths[0])),
                                   after = LinesOf(paths.size() > 1 ? TextOf(paths[1]) : OwnText());
    if (before == after)
        return kFine;
    line.out << "--- " << Printable(paths[0]) << "\n+++ " << Printable(other_path) << '\n';
    for (std::size_t i = 0; i < before.size(); ++i) {
        if (before[i] == after[i])
            continue;
        line.out << (before[i].empty() ? "" : "-") << before[i] << (after[i].empty() ? "" : "+") << after[i];
    }
    return kFound;
}

int CheckFile(const command_line& line) {
    const bool is_own = line.arguments.empty();
    const std::string path = is_own ? OwnPath() : line.arguments[0];
    int status = kFine;
    Check(is_own ? OwnText() : TextOf(path), [&](const finding& found) {
        line.out << Printable(path) << ':' << found.line << ": " << found.message << '\n';
        status = kFound;
    });
    return status;
}

void PrintTable(const Values& values, std::ostream& out) {
    const auto column = [&](const std::string& text, std::size_t width) {
        out << text << std::string(width - std::min(width, Width(text)) + 1, ' ');
    };
    for (const ks_setting& setting : ks_all_settings()) {
        column(ks_setting_key(setting), 22);
        column(Printable(config::SettingValue(setting)), 23);
        out << MeaningOf(setting) << " (" << values.FormOf(setting) << ")\n";
    }
}

void PrintJson(const Values& values, std::ostream& out) {
    const char* separator = "[\n";
    for (const ks_setting& setting : ks_all_settings()) {
        out << separator << "  {\"key\": " << JsonString(ks_setting_key(setting))
            << ", \"value\": " << JsonString(config::SettingValue(setting))
            << ", \"meaning\": " << JsonString(MeaningOf(setting))
            << ", \"takes\": " << JsonString(values.FormOf(setting)) << '}';
        separator = ",\n";
    }
    out << "\n]\n";
}

int List(const command_line& line) {
    ks_locale->Open("NymbrelConfig.catalog");
    const Values values(OwnText());
    line.Has("--json") ? PrintJson(values, line.out) : PrintTable(values, line.out);
    return kFine;
}

struct command {
    const char* name;
    std::size_t fewest, most;  // arguments
    const char* arguments;
    std::set<std::string> options;
    int (*run)(const command_line&);
};

const command kCommands[] = {
    {"get", 1, 1, "KEY", {}, Get},
    {"set", 2, SIZE_MAX, "KEY VALUE...", {"--force"}, Set},
    {"apply", 1, 1, "SCHEME", {"--force"}, Apply},
    {"reset-colors", 0, 0, "no argument", {"--beos", "--force"}, ResetColors},
    {"diff", 1, 2, "FILE [FILE]", {}, Diff},
    {"check", 0, 1, "[FILE]", {}, CheckFile},
    {"list", 0, 0, "no argument", {"--json"}, List},
};

int RunCommand(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
    const auto found =
        words.empty()
            ? std::end(kCommands)
            : std::ranges::find_if(kCommands, [&](const command& known) { return words[0] == known.name; });
    if (found == std::end(kCommands))
        throw failure((words.empty() ? "a command is missing" : "there is no command " + Quoted(words[0])) +
                      "; --help names them all");
    command_line line{{}, {}, out, err};
    bool may_be_option = true;
    for (std::size_t i = 1; i < words.size(); ++i) {
        if (!may_be_option || !words[i].starts_with("--"))
            line.arguments.push_back(words[i]);
        else if (words[i] == "--")
            may_be_option = false;
        else if (found->options.contains(words[i]))
            line.options.insert(words[i]);
        else
            throw failure(std::string(found->name) + " has no option " + Quoted(words[i]));
    }
    if (line.arguments.size() < found->fewest || line.arguments.size() > found->most)
        throw failure(std::string(found->name) + " takes " + found->arguments);
    return found->run(line);
}

}  // namespace

int Run(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err) {
    try {
        const std::string first = arguments.empty() ? "" : arguments[0];
        if (first == "--help")
            out << kHelp;
        else if (first == "--version")
            out << "nymbrel-settings " NYMBREL_VERSION "\n";
        else
            return RunCommand(arguments, out, err);
        return kFine;
    } catch (const failure& sentence) {
        err << "nymbrel-settings: " << sentence.what() << '\n';
        return kFailed;
    }
}

}  // namespace shell
