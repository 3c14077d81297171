// What windows answer and tell when memory has run out.
#include "platform/window/unanswered.h"

#include "platform/window/update_region.h"
#include "platform/window/window.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>

namespace platform {
namespace {

struct Notice {
    LPCSTR className;
    UINT code;
    bool isCommand;  // Else it goes by WM_NOTIFY.
};

// Static controls have no such notice, and buttons none of their own: a click that came to nothing is told of like
// this.
constexpr Notice kNotices[] = {
    {"Edit", EN_ERRSPACE, true},
    {"Button", EN_ERRSPACE, true},
    {"ComboBox", LOWORD(CBN_ERRSPACE), true},
    {"ListBox", LOWORD(LBN_ERRSPACE), true},
    {"ComboLBox", LOWORD(LBN_ERRSPACE), true},
    {WC_LISTVIEWA, NM_OUTOFMEMORY, false},
    {WC_HEADERA, NM_OUTOFMEMORY, false},
    {WC_TABCONTROLA, NM_OUTOFMEMORY, false},
    {TRACKBAR_CLASSA, NM_OUTOFMEMORY, false},
};

const Notice* noticeOf(const Window& window) {
    const auto found = std::find_if(std::begin(kNotices), std::end(kNotices), [&window](const Notice& notice) {
        return window.windowClass && lstrcmpiA(window.windowClass->name.c_str(), notice.className) == 0;
    });
    return found == std::end(kNotices) ? nullptr : &*found;
}

// What of a control is a part of another one, which is the one that the program knows.
const Window* wholeControl(const Window& part) {
    const Window* whole = &part;
    for (const Window* up = whole; up; up = up->isChildStyle() ? up->parent : findWindow(up->owner)) {
        if (noticeOf(*up)) {
            whole = up;
        }
    }
    return whole;
}

void tellParent(HWND window) {
    const Window* found = findWindow(window);
    const Window* control = found ? wholeControl(*found) : nullptr;
    const Notice* notice = control ? noticeOf(*control) : nullptr;
    if (!notice) {
        return;
    }
    const HWND parent = GetParent(control->handle);
    if (notice->isCommand) {
        SendMessageA(parent, WM_COMMAND, MAKEWPARAM(control->id, notice->code),
                     reinterpret_cast<LPARAM>(control->handle));
        return;
    }
    NMHDR header{control->handle, control->id, notice->code};
    SendMessageA(parent, WM_NOTIFY, control->id, reinterpret_cast<LPARAM>(&header));
}

bool isPainting(UINT message, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
        case WM_NCPAINT:
        case WM_ERASEBKGND:
        case WM_PRINTCLIENT:
        case WM_DRAWITEM:
            return true;
        case WM_NOTIFY:
            return reinterpret_cast<const NMHDR*>(lParam)->code == NM_CUSTOMDRAW;
        default:
            return message >= WM_CTLCOLORMSGBOX && message <= WM_CTLCOLORSTATIC;
    }
}

}  // namespace

LRESULT answerOutOfMemory(HWND window, UINT message, LPARAM lParam) {
    if (isPainting(message, lParam)) {
        // Else the same failing picture would be asked for again and again.
        Window* found = message == WM_PAINT ? findWindow(window) : nullptr;
        if (found) {
            clearPaint(*found);
        }
        return 0;
    }
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    tellParent(window);
    SetLastError(ERROR_NOT_ENOUGH_MEMORY);
    switch (message) {
        case WM_CREATE:
        case TCM_INSERTITEMA:
        case HDM_INSERTITEMA:
        case LVM_INSERTITEMA:
        case LVM_INSERTCOLUMNA:
            return -1;
        case CB_ADDSTRING:
        case CB_INSERTSTRING:
            return CB_ERRSPACE;
        case LB_ADDSTRING:
        case LB_INSERTSTRING:
            return LB_ERRSPACE;
        default:
            return 0;
    }
}

}  // namespace platform
