// SPDX-License-Identifier: MIT
#include "toolkit/KSCycle.h"

#include "kits/utf8.h"

#include <algorithm>

namespace {

constexpr std::size_t kLabelLength = 63;

std::string CutLabel(const char* label) {
    return std::string(ks_utf8_cut(label ? label : "", kLabelLength));
}

}  // namespace

void KSCycle::AddLabel(const char* label) {
    const KSAutolock lock(this);
    _labels.push_back(CutLabel(label));
    Changed();
}

bool KSCycle::GetLabel(long index, char* buffer) const {
    const KSAutolock lock(this);
    buffer[0] = '\0';
    if (!HasLabel(index))
        return false;
    const std::string& label = _labels[static_cast<std::size_t>(index)];
    buffer[label.copy(buffer, kLabelLength)] = '\0';
    return true;
}

void KSCycle::SelectLabel(const char* label) {
    const KSAutolock lock(this);
    const auto found = std::find(_labels.begin(), _labels.end(), CutLabel(label));
    if (found != _labels.end())
        ProgramSets(found - _labels.begin());
}

void KSCycle::EditSelection(long index) {
    const KSAutolock lock(this);
    if (HasLabel(index))
        UserSets(index, true);
}

long KSCycle::CurrentSelection() const {
    const KSAutolock lock(this);
    return _labels.empty() ? -1 : Present();
}

bool KSCycle::HasLabel(long index) const {
    return index >= 0 && index < static_cast<long>(_labels.size());
}
