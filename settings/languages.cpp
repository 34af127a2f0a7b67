// SPDX-License-Identifier: MIT
#include "settings/languages.h"

#include "kits/BApplication.h"
#include "kits/storage.h"
#include "settings/model.h"
#include "toolkit/KSListView.h"
#include "toolkit/settings_lines.h"

#include <cstring>

namespace config {

void FillLanguageList() {
    _llist = new KSListView(nullptr, 0);
    _llist->SetListMode(0);
    _llist->HideColumnBar(true, true);
    _llist->HideHideButton(true, true);
    const BMessage selected(kLanguageSelected);
    _llist->SetSelectionMessage(&selected);
    _llist->SetTarget(be_app, nullptr);
    _llist->AddItem(new KSStringItem(kEnglish), -1, true);

    BDirectory catalogs;
    if (catalogs.SetTo(kCatalogsPath) != B_OK)
        return;
    catalogs.Rewind();
    BEntry entry;
    while (catalogs.GetNextEntry(&entry) == B_OK) {
        char name[B_FILE_NAME_LENGTH];
        if (entry.GetName(name) == B_OK && std::strcmp(name, kEnglish) != 0)
            _llist->AddItem(new KSStringItem(name), -1, true);
    }
}

void TakeSelectedLanguage() {
    const KSAutolock one_moment(_llist);
    const long index = _llist->CurrentSelection();
    if (index >= 0) {
        _language = static_cast<const KSStringItem*>(_llist->ItemAt(index))->String();
    } else {
        _llist->CorrectSelection(0);
        _language = kEnglish;
    }
}

}  // namespace config
