// The pages that a property sheet is made from, before and while they have a window.
#pragma once

#include "platform/dialog/dialog_template.h"

#include <prsht.h>

#include <optional>
#include <string>

// What a page handle points to. Owned by the caller of CreatePropertySheetPageA until a sheet takes the page over.
struct _PSP {
    PROPSHEETPAGEA info{};     // The caller's structure; its texts point into the members below.
    std::string templateName;  // Empty when the template is named by a number, or given in memory.
};

namespace platform {

// The page's template; `whole` also reads its controls. Nothing when it is missing or malformed.
std::optional<DialogTemplate> pageTemplate(const _PSP& page, bool whole);

// Asks the page's callback; true when the page has none. PSPCB_CREATE may be refused.
bool callPage(_PSP& page, UINT message);

}  // namespace platform
