// The way of a message through a window object: window procedure, message map, command and notification routing.

#include <cstdio>
#include <new>

#include "framework/application.h"
#include "framework/controls.h"
#include "framework/exception.h"
#include "framework/message_routing.h"
#include "framework/prompts.h"
#include "framework/window.h"

namespace {

// The message that a window object is handling, for the scope of its handling.
class LastMessage {
public:
    LastMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) : m_former(AfxGetRoutingState().lastMessage) {
        MSG& last = AfxGetRoutingState().lastMessage;
        last.hwnd = window;
        last.message = message;
        last.wParam = wParam;
        last.lParam = lParam;
    }
    ~LastMessage() { AfxGetRoutingState().lastMessage = m_former; }
    LastMessage(const LastMessage&) = delete;
    LastMessage& operator=(const LastMessage&) = delete;

private:
    MSG m_former;
};

bool IgnoresNotifications(HWND window) {
    const AfxRoutingState& state = AfxGetRoutingState();
    const bool isClosing =
        state.closingWindow != nullptr && (window == state.closingWindow || ::GetParent(window) == state.closingWindow);
    return isClosing || window == state.lockoutWindow;
}

// What a window looks like is no part of what the user enters: a picture for which there is no memory is left out.
bool IsPainting(UINT message, LPARAM lParam) {
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

// A control that has no memory for what it is told, by the user or the program, says so to its parent. Some systems'
// combo boxes say the same of a text that has reached its limit.
bool TellsOfNoMemory(UINT code) {
    return code == EN_ERRSPACE || code == static_cast<UINT>(LOWORD(LBN_ERRSPACE)) ||
           (code == static_cast<UINT>(LOWORD(CBN_ERRSPACE)) && ::GetLastError() == ERROR_NOT_ENOUGH_MEMORY);
}

}  // namespace

void AfxReportException() {
    try {
        throw;
    } catch (const CUserException&) {
        return;
    } catch (const CWindowGoneException&) {
        AfxFailModal(AfxFailure::WindowGone);
    } catch (const std::bad_alloc&) {
        AfxFailModal(AfxFailure::OutOfMemory);
    } catch (const std::exception& error) {
        char prompt[256];
        std::snprintf(prompt, sizeof prompt, "%s (%s)", kPromptInternalError, error.what());
        AfxMessageBox(prompt, MB_ICONSTOP);
    } catch (...) {
        AfxMessageBox(kPromptInternalError, MB_ICONSTOP);
    }
}

void AfxFailModal(AfxFailure failure) noexcept {
    AfxRoutingState& state = AfxGetRoutingState();
    // Windows go when memory runs out; the user is told of the cause.
    if (state.failure != AfxFailure::OutOfMemory) {
        state.failure = failure;
    }
    // Whatever was about to be created will not be; the next window is somebody else's.
    AfxUnhookWindowCreate();
    // The loops may be waiting for a message.
    ::PostMessageA(nullptr, WM_NULL, 0, 0);
}

void AfxFailModalOutOfMemory() noexcept {
    if (::GetLastError() == ERROR_NOT_ENOUGH_MEMORY) {
        AfxFailModal(AfxFailure::OutOfMemory);
    }
}

LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    CWnd* object = CWnd::FromHandlePermanent(window);
    if (object == nullptr) {
        return ::DefWindowProcA(window, message, wParam, lParam);
    }
    const LastMessage lastMessage(window, message, wParam, lParam);
    try {
        return object->WindowProc(message, wParam, lParam);
    } catch (const std::bad_alloc&) {
        if (!IsPainting(message, lParam)) {
            AfxReportException();
        }
    } catch (...) {
        AfxReportException();
    }
    if (message == WM_PAINT) {
        // Else the system would ask for the same failing paint again and again.
        ::ValidateRect(window, nullptr);
    }
    return message == WM_CREATE ? -1 : 0;
}

LRESULT CWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return OnWndMsg(message, wParam, lParam, &result) ? result : DefWindowProc(message, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    return m_super != nullptr ? CallWindowProcA(m_super, m_hWnd, message, wParam, lParam)
                              : ::DefWindowProcA(m_hWnd, message, wParam, lParam);
}

LRESULT CWnd::Default() {
    const MSG last = AfxGetRoutingState().lastMessage;
    return DefWindowProc(last.message, last.wParam, last.lParam);
}

BOOL CWnd::OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result) {
    if (message == WM_COMMAND) {
        *result = 1;
        return OnCommand(wParam, lParam);
    }
    if (message == WM_NOTIFY) {
        return lParam != 0 && OnNotify(wParam, lParam, result);
    }
    if (message == WM_NCDESTROY) {
        HandleNcDestroy(result);
        return TRUE;
    }
    const AFX_MSGMAP_ENTRY* entry = AfxFindEntry(GetMessageMap(), message, 0, 0);
    if (entry == nullptr) {
        return FALSE;
    }
    AFX_CALL call = {0, wParam, lParam, 0};
    entry->pfnHandler(this, call);
    *result = call.lResult;
    return TRUE;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    if (lParam == 0) {
        return id != 0 && OnCmdMsg(id, CN_COMMAND, nullptr, nullptr);
    }
    if (TellsOfNoMemory(HIWORD(wParam))) {
        AfxFailModal(AfxFailure::OutOfMemory);
        return TRUE;
    }
    if (IgnoresNotifications(m_hWnd)) {
        return TRUE;
    }
    return OnCmdMsg(id, HIWORD(wParam), nullptr, nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* result) {
    NMHDR* header = reinterpret_cast<NMHDR*>(lParam);
    if (header->code == NM_OUTOFMEMORY) {
        AfxFailModal(AfxFailure::OutOfMemory);
        return TRUE;
    }
    if (IgnoresNotifications(m_hWnd)) {
        return TRUE;
    }
    const UINT id = static_cast<UINT>(::GetDlgCtrlID(header->hwndFrom)) & 0xFFFFu;
    AFX_NOTIFY notify = {result, header};
    return OnCmdMsg(id, MAKELONG(header->code, WM_NOTIFY), &notify, nullptr);
}

CWnd* AfxWindowFromParameter(WPARAM parameter) {
    return CWnd::FromHandle(reinterpret_cast<HWND>(parameter));
}

CScrollBar* AfxScrollBarFromParameter(LPARAM parameter) {
    // A track bar scrolls too; classic handlers receive it under this type and cast it back.
    return reinterpret_cast<CScrollBar*>(CWnd::FromHandle(reinterpret_cast<HWND>(parameter)));
}

int CWnd::OnCreate(LPCREATESTRUCT) {
    return static_cast<int>(Default());
}
void CWnd::OnDestroy() {
    Default();
}
void CWnd::OnClose() {
    Default();
}
void CWnd::OnPaint() {
    Default();
}
void CWnd::OnDrawItem(int, LPDRAWITEMSTRUCT) {
    Default();
}
void CWnd::OnMeasureItem(int, LPMEASUREITEMSTRUCT) {
    Default();
}
void CWnd::OnTimer(UINT_PTR) {
    Default();
}
void CWnd::OnHScroll(UINT, UINT, CScrollBar*) {
    Default();
}
void CWnd::OnVScroll(UINT, UINT, CScrollBar*) {
    Default();
}
void CWnd::OnSetFocus(CWnd*) {
    Default();
}
void CWnd::OnKillFocus(CWnd*) {
    Default();
}
void CWnd::OnShowWindow(BOOL, UINT) {
    Default();
}
void CWnd::OnSysCommand(UINT, LPARAM) {
    Default();
}
