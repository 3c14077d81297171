// Reading dialog templates, and filling lists from the initial data that accompanies them.

#include "framework/dialog_template.h"

#include <cstring>
#include <span>
#include <string>

#include "framework/module_state.h"

namespace {

// The resource type of initial data. An item is the control's id, a message number of the 16-bit system, the length of
// the text with its terminating 0, and the text; an id of 0 ends the list.
constexpr WORD kDialogInitType = 240;
constexpr WORD kAddToListBox16 = WM_USER + 1;
constexpr WORD kAddToComboBox16 = WM_USER + 3;

std::span<const char> ResourceData(UINT id, LPCSTR type) {
    const HINSTANCE module = AfxGetResourceHandle();
    const HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(id), type);
    if (resource == nullptr) {
        return {};
    }
    const char* data = static_cast<const char*>(LockResource(LoadResource(module, resource)));
    return data != nullptr ? std::span<const char>(data, SizeofResource(module, resource)) : std::span<const char>();
}

// Takes a number from the front of the data; false when too little is left.
template <typename Number>
bool Take(std::span<const char>& data, Number& number) {
    if (data.size() < sizeof number) {
        return false;
    }
    std::memcpy(&number, data.data(), sizeof number);
    data = data.subspan(sizeof number);
    return true;
}

UINT MessageOf(WORD message16) {
    switch (message16) {
        case kAddToListBox16:
            return LB_ADDSTRING;
        case kAddToComboBox16:
            return CB_ADDSTRING;
        default:
            return 0;
    }
}

// The extended form of the template begins with a version and a signature and has further fields before the style.
struct ExtendedTemplate {
    WORD version;
    WORD signature;
    DWORD helpId;
    DWORD exStyle;
    DWORD style;
    WORD itemCount;
    short x;
    short y;
};

}  // namespace

const DLGTEMPLATE* AfxLoadDialogTemplate(UINT id) {
    const std::span<const char> data = ResourceData(id, RT_DIALOG);
    return reinterpret_cast<const DLGTEMPLATE*>(data.size() >= sizeof(DLGTEMPLATE) ? data.data() : nullptr);
}

bool AfxTemplateLeavesPlace(const DLGTEMPLATE* dialogTemplate) {
    constexpr DWORD kPlaced = WS_CHILD | DS_CENTER | DS_ABSALIGN;
    ExtendedTemplate extended;
    std::memcpy(&extended, dialogTemplate, sizeof(DLGTEMPLATE));
    if (extended.signature != 0xFFFF) {
        return (dialogTemplate->style & kPlaced) == 0 && dialogTemplate->x == 0 && dialogTemplate->y == 0;
    }
    std::memcpy(&extended, dialogTemplate, sizeof extended);
    return (extended.style & kPlaced) == 0 && extended.x == 0 && extended.y == 0;
}

void AfxExecuteDialogInit(HWND dialog, UINT id) {
    std::span<const char> data = ResourceData(id, MAKEINTRESOURCEA(kDialogInitType));
    WORD controlId = 0;
    while (Take(data, controlId) && controlId != 0) {
        WORD message16 = 0;
        DWORD length = 0;
        if (!Take(data, message16) || !Take(data, length) || length > data.size()) {
            return;
        }
        const std::string text(data.data(), length);
        data = data.subspan(length);
        if (const UINT message = MessageOf(message16)) {
            SendDlgItemMessageA(dialog, controlId, message, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
    }
}
