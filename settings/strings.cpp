// SPDX-License-Identifier: MIT
// Looks the application's texts up.
#include "settings/strings.h"

#include "toolkit/KSLocale.h"

namespace config {

const char* LocalString(string_id id) {
    switch (id) {
#define NC_STRING_CASE(name, number, text)                                                                   \
    case kString##name:                                                                                      \
        return ks_locale->String(number, text);
        NC_STRINGS(NC_STRING_CASE)
#undef NC_STRING_CASE
    }
    return "";
}

}  // namespace config
