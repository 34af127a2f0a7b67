// SPDX-License-Identifier: MIT
#include "settings/editors.h"

#include "settings/model.h"
#include "toolkit/KSControl.h"

namespace config {

Editors::Editors() {
    MakeEditors();
    auto* root = new KSControl(nullptr, 0);
    for (const ks_setting& setting : ks_all_settings())
        root->AddChild(EditorOf(setting), nullptr);
    _container.SetContent(root);
}

}  // namespace config
