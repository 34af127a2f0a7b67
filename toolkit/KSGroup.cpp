// SPDX-License-Identifier: MIT
#include "toolkit/KSGroup.h"

#include "hdr/ks_assert.h"
#include "toolkit/KSControl.h"

#include <algorithm>

KSGroup::KSGroup(const char* name) : KSBase(name) {}

KSGroup::~KSGroup() = default;

void KSGroup::AddChild(KSControl* child, KSControl* before) {
    KS_ASSERT(child && !child->_parent);
    const auto place = before ? std::find_if(_children.begin(), _children.end(),
                                             [before](const auto& other) { return other.get() == before; })
                              : _children.end();
    _children.emplace(place, child);
    child->_parent = this;
}

KSContainer* KSGroup::Container() const {
    const KSGroup* root = this;
    while (root->_parent)
        root = root->_parent;
    return root->_container;
}
