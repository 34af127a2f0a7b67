// SPDX-License-Identifier: MIT
// A choice between a few labels.
#pragma once

#include "toolkit/KSControl.h"

#include <vector>

class KSCycle : public KSControl {
public:
    KSCycle(const char* name, unsigned flags) : KSControl(name, flags) {}

    // Appends a label; the first one is the selection. Labels are at most 63 bytes (longer ones are cut).
    void AddLabel(const char* label);
    long CountLabels() const;
    // Copies a label and its end mark into `buffer` of 64 bytes; false, and an empty text, for an index
    // without a label.
    bool GetLabel(long index, char* buffer) const;

    // Selects the label that equals `label`; another text changes nothing.
    void SelectLabel(const char* label);
    void EditSelection(long index);
    // Returns the selected label's index, or -1 while there are no labels.
    long CurrentSelection() const;

    bool Revert() override;
    void Settle() override;

private:
    std::vector<std::string> _labels;
    ks_edited_value<long> _selection;
};
