// SPDX-License-Identifier: MIT
// A choice between a few labels.
#pragma once

#include "toolkit/KSEditor.h"

#include <vector>

class KSCycle : public KSEditor<long> {
public:
    KSCycle(const char* name, unsigned flags) : KSEditor(name, flags) {}

    // Appends a label; the first one is the selection. Labels are at most 63 bytes (longer ones are cut).
    void AddLabel(const char* label);
    // Copies a label and its end mark into `buffer` of 64 bytes; false, and an empty text, for an index
    // without a label.
    bool GetLabel(long index, char* buffer) const;

    // Selects the label that equals `label`; another text changes nothing.
    void SelectLabel(const char* label);
    void EditSelection(long index);
    // Returns the selected label's index, or -1 while there are no labels.
    long CurrentSelection() const;

private:
    bool HasLabel(long index) const;

    std::vector<std::string> _labels;
};
