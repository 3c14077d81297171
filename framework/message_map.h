// Message maps: per class a table from messages and control notifications to member functions, chained to its base's.
// An entry carries a small function made from the member's type, which cracks the parameters for it.
// Deliberately missing: command-update, reflected and toolbar entries.
#pragma once

#include "framework/message_handlers.h"
#include "framework/window_api.h"

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    // The notification code; 0 for plain window messages.
    UINT nCode;
    // First and last control id; 0 for plain window messages.
    UINT nID;
    UINT nLastID;
    // Null in the entry that ends the table.
    AFX_HANDLER pfnHandler;
};

struct AFX_MSGMAP {
    // Null in the topmost class.
    const AFX_MSGMAP* (*pfnGetBaseMap)();
    const AFX_MSGMAP_ENTRY* lpEntries;
};

#define DECLARE_MESSAGE_MAP()                     \
protected:                                        \
    static const AFX_MSGMAP* GetThisMessageMap(); \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(theClass, baseClass)          \
    const AFX_MSGMAP* theClass::GetMessageMap() const { \
        return GetThisMessageMap();                     \
    }                                                   \
    const AFX_MSGMAP* theClass::GetThisMessageMap() {   \
        [[maybe_unused]] typedef theClass ThisClass;    \
        typedef baseClass TheBaseClass;                 \
        static const AFX_MSGMAP_ENTRY entries[] = {
#define END_MESSAGE_MAP()                                                             \
    { 0, 0, 0, 0, nullptr }                                                           \
    }                                                                                 \
    ;                                                                                 \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, entries}; \
    return &messageMap;                                                               \
    }

#define AFX_WORD(value) static_cast<WORD>(static_cast<UINT>(value) & 0xFFFFu)

// Control notifications and commands. Members are written with their class, as in &dlgcircuit::OnPhaseChange; those of
// single controls take nothing, those of ranges the control's id.
#define ON_CONTROL(code, id, member) {WM_COMMAND, AFX_WORD(code), AFX_WORD(id), AFX_WORD(id), &AfxCall<member>},
#define ON_CONTROL_RANGE(code, id, idLast, member) \
    {WM_COMMAND, AFX_WORD(code), AFX_WORD(id), AFX_WORD(idLast), &AfxCallWithId<member>},
#define ON_COMMAND(id, member) ON_CONTROL(0, id, member)

#define ON_BN_CLICKED(id, member) ON_CONTROL(BN_CLICKED, id, member)
#define ON_BN_DOUBLECLICKED(id, member) ON_CONTROL(BN_DOUBLECLICKED, id, member)
#define ON_EN_SETFOCUS(id, member) ON_CONTROL(EN_SETFOCUS, id, member)
#define ON_EN_KILLFOCUS(id, member) ON_CONTROL(EN_KILLFOCUS, id, member)
#define ON_EN_CHANGE(id, member) ON_CONTROL(EN_CHANGE, id, member)
#define ON_EN_UPDATE(id, member) ON_CONTROL(EN_UPDATE, id, member)
#define ON_CBN_SELCHANGE(id, member) ON_CONTROL(CBN_SELCHANGE, id, member)
#define ON_CBN_SETFOCUS(id, member) ON_CONTROL(CBN_SETFOCUS, id, member)
#define ON_CBN_KILLFOCUS(id, member) ON_CONTROL(CBN_KILLFOCUS, id, member)
#define ON_CBN_EDITCHANGE(id, member) ON_CONTROL(CBN_EDITCHANGE, id, member)
#define ON_CBN_EDITUPDATE(id, member) ON_CONTROL(CBN_EDITUPDATE, id, member)
#define ON_CBN_DROPDOWN(id, member) ON_CONTROL(CBN_DROPDOWN, id, member)
#define ON_CBN_CLOSEUP(id, member) ON_CONTROL(CBN_CLOSEUP, id, member)
#define ON_CBN_SELENDOK(id, member) ON_CONTROL(CBN_SELENDOK, id, member)
#define ON_CBN_SELENDCANCEL(id, member) ON_CONTROL(CBN_SELENDCANCEL, id, member)
#define ON_LBN_SELCHANGE(id, member) ON_CONTROL(LBN_SELCHANGE, id, member)

// WM_NOTIFY: void member(NMHDR*, LRESULT*); for a range void member(UINT id, NMHDR*, LRESULT*).
#define ON_NOTIFY(code, id, member) {WM_NOTIFY, AFX_WORD(code), AFX_WORD(id), AFX_WORD(id), &AfxCallNotify<member>},
#define ON_NOTIFY_RANGE(code, id, idLast, member) \
    {WM_NOTIFY, AFX_WORD(code), AFX_WORD(id), AFX_WORD(idLast), &AfxCallNotifyWithId<member>},

// Any window message: LRESULT member(WPARAM, LPARAM).
#define ON_MESSAGE(message, member) {message, 0, 0, 0, &AfxCallMessage<member>},

// Window messages with cracked parameters; the members carry the names that the macros give.
#define ON_WM_CREATE() {WM_CREATE, 0, 0, 0, &AfxCallCreate<&ThisClass::OnCreate>},
#define ON_WM_DESTROY() {WM_DESTROY, 0, 0, 0, &AfxCall<&ThisClass::OnDestroy>},
#define ON_WM_CLOSE() {WM_CLOSE, 0, 0, 0, &AfxCall<&ThisClass::OnClose>},
#define ON_WM_PAINT() {WM_PAINT, 0, 0, 0, &AfxCall<&ThisClass::OnPaint>},
#define ON_WM_DRAWITEM() {WM_DRAWITEM, 0, 0, 0, &AfxCallItem<&ThisClass::OnDrawItem>},
#define ON_WM_MEASUREITEM() {WM_MEASUREITEM, 0, 0, 0, &AfxCallItem<&ThisClass::OnMeasureItem>},
#define ON_WM_TIMER() {WM_TIMER, 0, 0, 0, &AfxCallTimer<&ThisClass::OnTimer>},
#define ON_WM_HSCROLL() {WM_HSCROLL, 0, 0, 0, &AfxCallScroll<&ThisClass::OnHScroll>},
#define ON_WM_VSCROLL() {WM_VSCROLL, 0, 0, 0, &AfxCallScroll<&ThisClass::OnVScroll>},
#define ON_WM_SETFOCUS() {WM_SETFOCUS, 0, 0, 0, &AfxCallFocus<&ThisClass::OnSetFocus>},
#define ON_WM_KILLFOCUS() {WM_KILLFOCUS, 0, 0, 0, &AfxCallFocus<&ThisClass::OnKillFocus>},
#define ON_WM_SHOWWINDOW() {WM_SHOWWINDOW, 0, 0, 0, &AfxCallShowWindow<&ThisClass::OnShowWindow>},
#define ON_WM_SYSCOMMAND() {WM_SYSCOMMAND, 0, 0, 0, &AfxCallSysCommand<&ThisClass::OnSysCommand>},
