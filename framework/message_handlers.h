// How the entries of a message map call members of various types: one function template per type of member.
#pragma once

#include <type_traits>

#include "framework/window_api.h"

class CCmdTarget;
class CScrollBar;
class CWnd;
struct AFX_NOTIFY;

// A message on its way to a handler: the notifying control's id or 0, the parameters, and room for the result.
struct AFX_CALL {
    UINT nID;
    WPARAM wParam;
    LPARAM lParam;
    LRESULT lResult;
};

using AFX_HANDLER = void (*)(CCmdTarget*, AFX_CALL&);

template <typename Member>
struct AfxMemberClass;
template <typename Result, typename Class, typename... Arguments>
struct AfxMemberClass<Result (Class::*)(Arguments...)> {
    using type = Class;
};

// The target as the class whose member the entry names; the map of that class has been found through the target.
template <auto Member>
auto* AfxTargetOf(CCmdTarget* target) {
    return static_cast<typename AfxMemberClass<decltype(Member)>::type*>(target);
}

// The windows that messages name, as objects; null for a null handle.
CWnd* AfxWindowFromParameter(WPARAM parameter);
CScrollBar* AfxScrollBarFromParameter(LPARAM parameter);
// The notification that the parameter points to.
NMHDR* AfxNotifyHeader(const AFX_CALL& call);
LRESULT* AfxNotifyResult(const AFX_CALL& call);

template <auto Member>
void AfxCall(CCmdTarget* target, AFX_CALL&) {
    (AfxTargetOf<Member>(target)->*Member)();
}

template <auto Member>
void AfxCallWithId(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(call.nID);
}

template <auto Member>
void AfxCallNotify(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(AfxNotifyHeader(call), AfxNotifyResult(call));
}

template <auto Member>
void AfxCallNotifyWithId(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(call.nID, AfxNotifyHeader(call), AfxNotifyResult(call));
}

template <auto Member>
void AfxCallMessage(CCmdTarget* target, AFX_CALL& call) {
    call.lResult = (AfxTargetOf<Member>(target)->*Member)(call.wParam, call.lParam);
}

template <auto Member>
void AfxCallCreate(CCmdTarget* target, AFX_CALL& call) {
    call.lResult = (AfxTargetOf<Member>(target)->*Member)(reinterpret_cast<LPCREATESTRUCT>(call.lParam));
}

// Draw-item and measure-item alike: the control's id and a structure; the result is TRUE for "handled".
template <typename Target, typename Class, typename Item>
void AfxCallItemMember(Target* target, void (Class::*member)(int, Item*), AFX_CALL& call) {
    (target->*member)(static_cast<int>(call.wParam), reinterpret_cast<Item*>(call.lParam));
    call.lResult = TRUE;
}
template <auto Member>
void AfxCallItem(CCmdTarget* target, AFX_CALL& call) {
    AfxCallItemMember(AfxTargetOf<Member>(target), Member, call);
}

template <auto Member>
void AfxCallTimer(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(static_cast<UINT_PTR>(call.wParam));
}

template <auto Member>
void AfxCallScroll(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(LOWORD(call.wParam), HIWORD(call.wParam),
                                           AfxScrollBarFromParameter(call.lParam));
}

template <auto Member>
void AfxCallFocus(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(AfxWindowFromParameter(call.wParam));
}

template <auto Member>
void AfxCallShowWindow(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(static_cast<BOOL>(call.wParam), static_cast<UINT>(call.lParam));
}

template <auto Member>
void AfxCallSysCommand(CCmdTarget* target, AFX_CALL& call) {
    (AfxTargetOf<Member>(target)->*Member)(static_cast<UINT>(call.wParam), call.lParam);
}
