// Page handles. Titles and icons of pages are left out; a page's caption is its template's.
#include "platform/dialog/property_sheet_page.h"

#include "platform/window/out_of_memory.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <memory>

namespace platform {

namespace {

constexpr UINT kPageAddRef = 0;  // PSPCB_ADDREF, sent when the handle is made.

}  // namespace

std::optional<DialogTemplate> pageTemplate(const _PSP& page, bool whole) {
    const bool inMemory = (page.info.dwFlags & PSP_DLGINDIRECT) != 0;
    const auto bytes =
        inMemory ? dialogInMemory(page.info.pResource) : dialogResource(page.info.hInstance, page.info.pszTemplate);
    return whole ? parseDialogTemplate(bytes) : parseDialogHeader(bytes);
}

bool callPage(_PSP& page, UINT message) {
    if ((page.info.dwFlags & PSP_USECALLBACK) == 0 || page.info.pfnCallback == nullptr) {
        return true;
    }
    return page.info.pfnCallback(nullptr, message, &page.info) != 0 || message != PSPCB_CREATE;
}

}  // namespace platform

HPROPSHEETPAGE CreatePropertySheetPageA(LPCPROPSHEETPAGEA page) {
    if (page == nullptr || page->dwSize < offsetof(PROPSHEETPAGEA, pcRefParent)) {
        return nullptr;
    }
    return platform::orOutOfMemory(
        [page] {
            auto made = std::make_unique<_PSP>();
            std::memcpy(&made->info, page, std::min<std::size_t>(page->dwSize, sizeof made->info));
            made->info.dwSize = sizeof made->info;
            if ((page->dwFlags & PSP_DLGINDIRECT) == 0 && !IS_INTRESOURCE(page->pszTemplate)) {
                made->templateName = page->pszTemplate;
                made->info.pszTemplate = made->templateName.c_str();
            }
            platform::callPage(*made, platform::kPageAddRef);
            return made.release();
        },
        nullptr);
}

BOOL DestroyPropertySheetPage(HPROPSHEETPAGE page) {
    const std::unique_ptr<_PSP> owned(page);
    if (!owned) {
        return FALSE;
    }
    platform::callPage(*owned, PSPCB_RELEASE);
    return TRUE;
}
