// CCmdTarget: an object that has a message map and answers commands and control notifications through it.
#pragma once

#include "framework/message_map.h"
#include "framework/runtime_class.h"

// Where a command would be answered, for a caller that asks without running it.
struct AFX_CMDHANDLERINFO {
    CCmdTarget* pTarget;
};

// What a notification message carries through the routing.
struct AFX_NOTIFY {
    LRESULT* pResult;
    NMHDR* pNMHDR;
};

// The notification code under which a menu or accelerator command is routed.
constexpr int CN_COMMAND = 0;

class CCmdTarget : public CObject {
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // Runs the entry for a command or notification. code is the notification code of a control, or for WM_NOTIFY the
    // low word of its code with WM_NOTIFY in the high word; then extra is an AFX_NOTIFY. With handlerInfo the entry is
    // only looked for. Returns whether there was one that took the message.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, AFX_CMDHANDLERINFO* handlerInfo);

protected:
    CCmdTarget() = default;
    virtual const AFX_MSGMAP* GetMessageMap() const;
    static const AFX_MSGMAP* GetThisMessageMap();
};
