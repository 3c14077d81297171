// The search through parents and owners.

#include "framework/safe_owner.h"

HWND AfxGetSafeOwner(HWND parent, HWND* topLevel) {
    HWND owner = parent != nullptr ? parent : ::GetActiveWindow();
    while (owner != nullptr && (::GetWindowLongPtrA(owner, GWL_STYLE) & WS_CHILD) != 0) {
        owner = ::GetParent(owner);
    }
    HWND top = owner;
    for (HWND above = owner; above != nullptr; above = ::GetParent(above)) {
        top = above;
    }
    if (parent == nullptr && owner != nullptr) {
        owner = ::GetLastActivePopup(owner);
    }
    const bool disable = top != nullptr && top != owner && ::IsWindowEnabled(top);
    *topLevel = disable ? top : nullptr;
    if (disable) {
        ::EnableWindow(top, FALSE);
    }
    return owner;
}
