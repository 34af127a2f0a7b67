// SPDX-License-Identifier: MIT
// The look that the running application wears.
//
// It is what the settings file says, except where an editor is tied to a value: there it is what the editor
// holds, applied or not. So there is one store for each value.
#pragma once

#include "toolkit/ks_look.h"
#include "toolkit/ks_pen.h"
#include "toolkit/scheme.h"

#include <array>
#include <mutex>
#include <optional>

class KSCheckBox;
class KSColorField;
class KSCycle;
class KSPopFile;
class KSPopFont;
class KSSpinBox;
struct ks_settings_line;

class KSLook {
public:
    // Takes what the settings file says; values that it lacks are the toolkit's. From any thread.
    void Read();

    // Lets the editor stand in the file's place from now on, and gives it the toolkit's value. The editor
    // has to live as long as it is asked for. Called while no window shows the editor.
    void Tie(ks_pen pen, KSColorField* editor);
    void TieBitmap(ks_pen level, KSPopFile* editor);
    void Tie(ks_font font, KSPopFont* editor);
    // The second label stands for the Nymbrel look.
    void TieLook(KSCycle* editor);
    void TieBubbleHelp(KSCheckBox* is_used, KSSpinBox* wait);
    void TieMouseHold(KSSpinBox* editor);
    // Returns the editor that stands in the file's place, or null.
    KSColorField* Editor(ks_pen pen) const { return _pens[static_cast<std::size_t>(pen)]; }
    // Forgets all editors.
    void Untie();
    // Whether there is any editor.
    bool HasEditors() const { return _look != nullptr; }
    // Gives the editors the scheme's values, as the user's edits. Those that an editor refuses are left out.
    // The caller holds the editors' lock.
    void Edit(const ks_scheme& scheme);

    // The slot that an editor is tied to, if any.
    std::optional<ks_pen> PenOf(const KSColorField* editor) const;
    std::optional<ks_pen> LevelOf(const KSPopFile* editor) const;
    std::optional<ks_font> FontOf(const KSPopFont* editor) const;

    // Whether the editor is tied to one of the two times, which are in microseconds.
    bool IsTime(const KSSpinBox* editor) const { return editor == _bubble_wait || editor == _mouse_hold; }

    // Returns what is worn at this moment. To have the values of one moment, hold the editors' lock.
    ks_look Copy() const;

private:
    // What a settings file says, and the toolkit's timing where it says nothing of that.
    struct file_values {
        void Take(const ks_settings_line& line);

        ks_scheme scheme;
        ks_look timing;
    };

    mutable std::mutex _mutex;
    file_values _file;
    std::array<KSColorField*, ks_look::kPens> _pens{};
    std::array<KSPopFile*, ks_look::kLevels> _bitmaps{};
    std::array<KSPopFont*, ks_look::kFonts> _fonts{};
    KSCycle* _look = nullptr;
    KSCheckBox* _bubble_help = nullptr;
    KSSpinBox* _bubble_wait = nullptr;
    KSSpinBox* _mouse_hold = nullptr;
};

// The process's look.
extern KSLook* const ks_current_look;
