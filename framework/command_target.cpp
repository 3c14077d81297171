// How a command finds its handler: the search through the message maps of a class and its bases.

#include "framework/command_target.h"

#include "framework/message_routing.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap() {
    static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, 0, nullptr}};
    static const AFX_MSGMAP messageMap = {nullptr, entries};
    return &messageMap;
}

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo) {
    const UINT message = HIWORD(code) != 0 ? HIWORD(code) : WM_COMMAND;
    const AFX_MSGMAP_ENTRY* entry = AfxFindEntry(GetMessageMap(), message, LOWORD(code), id);
    if (entry == nullptr) {
        return FALSE;
    }
    if (handlerInfo != nullptr) {
        handlerInfo->pTarget = this;
        return TRUE;
    }
    AFX_CALL call = {id, 0, reinterpret_cast<LPARAM>(extra), 0};
    entry->pfnHandler(this, call);
    return TRUE;
}

AfxRoutingState& AfxGetRoutingState() {
    static AfxRoutingState state;
    return state;
}

const AFX_MSGMAP_ENTRY* AfxFindEntry(const AFX_MSGMAP* map, UINT message, UINT code, UINT id) {
    while (map != nullptr) {
        for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->pfnHandler != nullptr; ++entry) {
            if (entry->nMessage == message && entry->nCode == code && id >= entry->nID && id <= entry->nLastID) {
                return entry;
            }
        }
        map = map->pfnGetBaseMap != nullptr ? map->pfnGetBaseMap() : nullptr;
    }
    return nullptr;
}

NMHDR* AfxNotifyHeader(const AFX_CALL& call) {
    return reinterpret_cast<AFX_NOTIFY*>(call.lParam)->pNMHDR;
}

LRESULT* AfxNotifyResult(const AFX_CALL& call) {
    return reinterpret_cast<AFX_NOTIFY*>(call.lParam)->pResult;
}
