// SPDX-License-Identifier: MIT
// Reads and writes the settings file.
#include "settings/settings_file.h"

#include "kits/storage.h"
#include "settings/model.h"
#include "toolkit/KSCheckBox.h"
#include "toolkit/KSColorField.h"
#include "toolkit/KSContainer.h"
#include "toolkit/KSCycle.h"
#include "toolkit/KSListView.h"
#include "toolkit/KSPopFile.h"
#include "toolkit/KSPopFont.h"
#include "toolkit/KSSpinBox.h"
#include "toolkit/settings_lines.h"

#include <algorithm>
#include <cfloat>
#include <charconv>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <locale.h>
#include <optional>
#include <string>
#include <string_view>

namespace config {
namespace {

// Reads a decimal number at `text` as scanf's "%ld" does, and moves `text` behind it. A number beyond the
// range of long becomes the nearest one in it.
std::optional<long> TakeLong(const char*& text) {
    char* end;
    const long number = std::strtol(text, &end, 10);
    if (end == text)
        return std::nullopt;
    text = end;
    return number;
}

std::optional<long> ParseLong(const std::string& text) {
    const char* start = text.c_str();
    return TakeLong(start);
}

// Reads up to four numbers with single commas between them; what is missing is 0.
ks_color ParseColor(const std::string& text) {
    long component[4] = {};
    const char* position = text.c_str();
    for (long& value : component) {
        const std::optional<long> number = TakeLong(position);
        if (!number)
            break;
        value = *number;
        if (*position++ != ',')
            break;
    }
    const auto low_bits = [&](int index) { return static_cast<std::uint8_t>(component[index]); };
    return {low_bits(0), low_bits(1), low_bits(2), low_bits(3)};
}

// Reads a size in points as strtod() does in the "C" locale. A finite one beyond float's range becomes the
// nearest float.
float ParseSize(const char* text) {
    static const locale_t plain = newlocale(LC_ALL_MASK, "C", nullptr);
    const double size = strtod_l(text, nullptr, plain);
    return static_cast<float>(std::isfinite(size) ? std::clamp<double>(size, -FLT_MAX, FLT_MAX) : size);
}

long WholeNumber(float value) {
    // The largest long has no float of its own: the next one up is out of range.
    constexpr float kLimit = -static_cast<float>(LONG_MIN);
    if (std::isnan(value))
        return 0;
    if (value >= kLimit)
        return LONG_MAX;
    return value < -kLimit ? LONG_MIN : static_cast<long>(value);
}

void ReadCheckBox(KSCheckBox* box, const std::string& value) {
    if (const std::optional<long> number = ParseLong(value))
        box->SetValue(*number != 0);
}

void ReadTime(KSSpinBox* box, const std::string& value) {
    box->SetValue(static_cast<float>(ParseLong(value).value_or(WholeNumber(box->Value()))));
}

void ReadLook(std::string_view value) {
    constexpr std::string_view kBlanks = " \t\n\v\f\r";
    const std::size_t start = std::min(value.find_first_not_of(kBlanks), value.size());
    value.remove_prefix(start);
    _look->SelectLabel(std::string(value.substr(0, value.find_first_of(kBlanks))).c_str());
}

void ReadLanguage(const std::string& value) {
    for (long index = 0; index < _llist->CountItems(); ++index) {
        const char* name = static_cast<const KSStringItem*>(_llist->ItemAt(index))->String();
        if (value == name) {
            _llist->Select(index, false);
            _language = name;
            return;
        }
    }
}

void ReadBitmap(std::int32_t pen, const std::string& path) {
    BFile file;
    if (pen < kBackgroundCount && file.SetTo(path.c_str(), B_READ_ONLY) == B_OK)
        _backgrounds[pen]->SetText(path.c_str(), false);
}

// `fields` is "family,style,size". Empty fields are skipped, as strtok() skips them.
void ReadFont(KSPopFont* editor, std::string fields) {
    char* rest = nullptr;
    const char* family = strtok_r(fields.data(), ",\n", &rest);
    const char* style = strtok_r(nullptr, ",\n", &rest);
    const char* size_text = strtok_r(nullptr, ",\n", &rest);
    if (!size_text)
        return;
    BFont font;
    font.SetFamilyAndStyle(family + std::strspn(family, " ="), style);
    font.SetSize(ParseSize(size_text));
    editor->SetValue(&font, false);
}

// The next three return whether the line's key is one of theirs.
bool ReadOption(const ks_settings_line& line) {
    if (line.Is("LOOK"))
        ReadLook(line.Value());
    else if (line.Is("BEOS"))
        ReadCheckBox(_beos_size, line.Value());
    else if (line.Is("LANGUAGE"))
        ReadLanguage(line.Value());
    else if (line.Is("BUBBLEHELPUSED"))
        ReadCheckBox(_bubblehelp, line.Value());
    else if (line.Is("BUBBLEHELPTIME"))
        ReadTime(_bubbletime, line.Value());
    else if (line.Is("MOUSEHOLDTIME"))
        ReadTime(_mousetime, line.Value());
    else
        return false;
    return true;
}

bool ReadPen(const ks_settings_line& line) {
    for (const color_row* row = color_settings; row->key; ++row) {
        if (line.Is(row->key)) {
            if (KSColorField* field = _colors[row->id])
                field->SetColor(ParseColor(line.Value()), false, false);
            return true;
        }
        if (line.Is(std::string(row->key) + "_BMP")) {
            ReadBitmap(row->id, line.Value());
            return true;
        }
    }
    return false;
}

bool ReadFontLine(const ks_settings_line& line) {
    for (const setting_row* row = font_settings; row->key; ++row) {
        if (line.Is(row->key)) {
            ReadFont(_fonts[row->id], line.rest);
            return true;
        }
    }
    return false;
}

// The text of the file, put together line by line.
class SettingsText {
public:
    void Line(const std::string& key, const std::string& value) { _text += key + " = " + value + '\n'; }
    void Line(const std::string& key, long value) { Line(key, std::to_string(value)); }
    const std::string& Text() const { return _text; }

private:
    std::string _text;
};

std::string LookLabel() {
    char label[64];
    _look->GetLabel(_look->CurrentSelection(), label);
    return label;
}

std::string ColorText(ks_color color) {
    return std::to_string(color.red) + ',' + std::to_string(color.green) + ',' + std::to_string(color.blue) +
           ',' + std::to_string(color.alpha);
}

// The size as printf's "%g" writes it in the "C" locale.
std::string FontText(const BFont& font) {
    char size[32];
    const auto end = std::to_chars(size, size + sizeof size, static_cast<double>(font.Size()),
                                   std::chars_format::general, 6);
    return font.Family() + ',' + font.Style() + ',' + std::string(size, end.ptr);
}

std::string FormatSettings() {
    const KSAutolock one_moment(_llist);
    SettingsText file;
    file.Line("LOOK", LookLabel());
    file.Line("BEOS", _beos_size->Value());
    file.Line("LANGUAGE", _language);
    file.Line("BUBBLEHELPUSED", _bubblehelp->Value());
    file.Line("BUBBLEHELPTIME", WholeNumber(_bubbletime->Value()));
    file.Line("MOUSEHOLDTIME", WholeNumber(_mousetime->Value()));
    for (const color_row* row = color_settings; row->key; ++row) {
        const KSColorField* field = _colors[row->id];
        if (!field)
            continue;
        if (row->id < kBackgroundCount)
            if (const std::string path = _backgrounds[row->id]->Path(); !path.empty())
                file.Line(std::string(row->key) + "_BMP", path);
        file.Line(row->key, ColorText(field->Color()));
    }
    for (const setting_row* row = font_settings; row->key; ++row)
        if (const KSPopFont* editor = _fonts[row->id])
            file.Line(row->key, FontText(editor->Font()));
    return file.Text();
}

}  // namespace

void ReadSettings() {
    const bool was_read = ks_read_settings_lines(
        [](const ks_settings_line& line) { ReadOption(line) || ReadPen(line) || ReadFontLine(line); });
    KSContainer* shown_in = _llist->Container();
    if (was_read && shown_in)
        shown_in->Content()->RedrawSelf();
}

bool WriteSettings() {
    return ks_write_settings_file(FormatSettings());
}

}  // namespace config
