// The system's window functions as member functions.

#include <algorithm>

#include "framework/application.h"
#include "framework/exception.h"
#include "framework/monitor.h"
#include "framework/window.h"

CWnd* CWnd::GetDlgItem(int id) const {
    return FromHandle(::GetDlgItem(m_hWnd, id));
}
CWnd& CWnd::RequireDlgItem(UINT id) const {
    CWnd* control = GetDlgItem(static_cast<int>(id));
    if (control == nullptr) {
        AfxThrowWindowGoneException();
    }
    return *control;
}
CWnd* CWnd::GetFocus() {
    return FromHandle(::GetFocus());
}
CWnd* CWnd::GetActiveWindow() {
    return FromHandle(::GetActiveWindow());
}
CWnd* CWnd::GetCapture() {
    return FromHandle(::GetCapture());
}
CWnd* CWnd::GetDesktopWindow() {
    return FromHandle(::GetDesktopWindow());
}
CWnd* CWnd::SetFocus() {
    return FromHandle(::SetFocus(m_hWnd));
}
CWnd* CWnd::SetActiveWindow() {
    return FromHandle(::SetActiveWindow(m_hWnd));
}
CWnd* CWnd::GetParent() const {
    return FromHandle(::GetParent(m_hWnd));
}
CWnd* CWnd::GetOwner() const {
    return FromHandle(::GetWindow(m_hWnd, GW_OWNER));
}
CWnd* CWnd::GetWindow(UINT command) const {
    return FromHandle(::GetWindow(m_hWnd, command));
}
CWnd* CWnd::GetTopWindow() const {
    return FromHandle(::GetTopWindow(m_hWnd));
}
CWnd* CWnd::GetNextWindow(UINT command) const {
    return GetWindow(command);
}
CWnd* CWnd::GetLastActivePopup() const {
    return FromHandle(::GetLastActivePopup(m_hWnd));
}
CWnd* CWnd::GetTopLevelParent() const {
    return FromHandle(::GetAncestor(m_hWnd, GA_ROOT));
}
BOOL CWnd::IsChild(const CWnd* window) const {
    return ::IsChild(m_hWnd, AfxSafeHandle(window));
}
int CWnd::GetDlgCtrlID() const {
    return ::GetDlgCtrlID(m_hWnd);
}

void CWnd::GetWindowText(CString& text) const {
    const int length = GetWindowTextLength();
    LPSTR buffer = text.GetBuffer(length + 1);
    const int copied = ::GetWindowTextA(m_hWnd, buffer, length + 1);
    text.ReleaseBuffer(copied);
}

int CWnd::GetWindowText(LPSTR buffer, int size) const {
    return ::GetWindowTextA(m_hWnd, buffer, size);
}
int CWnd::GetWindowTextLength() const {
    return ::GetWindowTextLengthA(m_hWnd);
}
void CWnd::SetWindowText(LPCSTR text) {
    ::SetLastError(0);
    if (!::SetWindowTextA(m_hWnd, text)) {
        AfxFailModalOutOfMemory();
    }
}

int CWnd::GetDlgItemText(int id, CString& text) const {
    text.Empty();
    if (const CWnd* control = GetDlgItem(id)) {
        control->GetWindowText(text);
    }
    return text.GetLength();
}

void CWnd::SetDlgItemText(int id, LPCSTR text) {
    ::SetDlgItemTextA(m_hWnd, id, text);
}
UINT CWnd::IsDlgButtonChecked(int id) const {
    return ::IsDlgButtonChecked(m_hWnd, id);
}
void CWnd::CheckDlgButton(int id, UINT check) {
    ::CheckDlgButton(m_hWnd, id, check);
}
void CWnd::CheckRadioButton(int first, int last, int checked) {
    ::CheckRadioButton(m_hWnd, first, last, checked);
}

LRESULT CWnd::SendDlgItemMessage(int id, UINT message, WPARAM wParam, LPARAM lParam) {
    return ::SendDlgItemMessageA(m_hWnd, id, message, wParam, lParam);
}

DWORD CWnd::GetStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrA(m_hWnd, GWL_STYLE));
}
DWORD CWnd::GetExStyle() const {
    return static_cast<DWORD>(::GetWindowLongPtrA(m_hWnd, GWL_EXSTYLE));
}

BOOL CWnd::ModifyStyle(DWORD remove, DWORD add, UINT flags) {
    const DWORD style = GetStyle();
    const DWORD changed = (style & ~remove) | add;
    if (changed == style) {
        return FALSE;
    }
    ::SetWindowLongPtrA(m_hWnd, GWL_STYLE, static_cast<LONG_PTR>(changed));
    if (flags != 0) {
        ::SetWindowPos(m_hWnd, nullptr, 0, 0, 0, 0, SWP_NOSIZE | SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | flags);
    }
    return TRUE;
}

BOOL CWnd::EnableWindow(BOOL enable) {
    return ::EnableWindow(m_hWnd, enable);
}
BOOL CWnd::IsWindowEnabled() const {
    return ::IsWindowEnabled(m_hWnd);
}
BOOL CWnd::ShowWindow(int command) {
    return ::ShowWindow(m_hWnd, command);
}
BOOL CWnd::IsWindowVisible() const {
    return ::IsWindowVisible(m_hWnd);
}

BOOL CWnd::SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags) {
    return ::SetWindowPos(m_hWnd, AfxSafeHandle(insertAfter), x, y, width, height, flags);
}

void CWnd::MoveWindow(int x, int y, int width, int height, BOOL repaint) {
    ::MoveWindow(m_hWnd, x, y, width, height, repaint);
}

void CWnd::MoveWindow(const RECT* rect, BOOL repaint) {
    const CRect to(*rect);
    MoveWindow(static_cast<int>(to.left), static_cast<int>(to.top), to.Width(), to.Height(), repaint);
}

void CWnd::GetClientRect(RECT* rect) const {
    ::GetClientRect(m_hWnd, rect);
}
void CWnd::GetWindowRect(RECT* rect) const {
    ::GetWindowRect(m_hWnd, rect);
}
void CWnd::ScreenToClient(POINT* point) const {
    ::ScreenToClient(m_hWnd, point);
}
void CWnd::ClientToScreen(POINT* point) const {
    ::ClientToScreen(m_hWnd, point);
}

void CWnd::ScreenToClient(RECT* rect) const {
    POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::MapWindowPoints(nullptr, m_hWnd, corners, 2);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CWnd::ClientToScreen(RECT* rect) const {
    POINT corners[] = {{rect->left, rect->top}, {rect->right, rect->bottom}};
    ::MapWindowPoints(m_hWnd, nullptr, corners, 2);
    *rect = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void CWnd::Invalidate(BOOL erase) {
    ::InvalidateRect(m_hWnd, nullptr, erase);
}
void CWnd::InvalidateRect(const RECT* rect, BOOL erase) {
    ::InvalidateRect(m_hWnd, rect, erase);
}
void CWnd::ValidateRect(const RECT* rect) {
    ::ValidateRect(m_hWnd, rect);
}
void CWnd::UpdateWindow() {
    ::UpdateWindow(m_hWnd);
}
BOOL CWnd::RedrawWindow(const RECT* rect, UINT flags) {
    return ::RedrawWindow(m_hWnd, rect, nullptr, flags);
}
void CWnd::SetRedraw(BOOL redraw) {
    SendMessage(WM_SETREDRAW, static_cast<WPARAM>(redraw));
}

LRESULT CWnd::SendMessage(UINT message, WPARAM wParam, LPARAM lParam) const {
    return ::SendMessageA(m_hWnd, message, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    return ::PostMessageA(m_hWnd, message, wParam, lParam);
}

int CWnd::MessageBox(LPCSTR text, LPCSTR caption, UINT type) {
    ::SetLastError(0);
    const int result = ::MessageBoxA(m_hWnd, text, caption != nullptr ? caption : AfxGetAppName(), type);
    if (result == 0) {
        AfxFailModalOutOfMemory();
    }
    return result;
}

UINT_PTR CWnd::SetTimer(UINT_PTR timer, UINT milliseconds, TIMERPROC procedure) {
    return ::SetTimer(m_hWnd, timer, milliseconds, procedure);
}

BOOL CWnd::KillTimer(UINT_PTR timer) {
    return ::KillTimer(m_hWnd, timer);
}

// No help file belongs to the library, so a request reaches only the classes that override this.
void CWnd::WinHelp(DWORD_PTR, UINT) {}

void CWnd::CenterWindow() {
    const HWND owner = ::GetWindow(m_hWnd, GW_OWNER);
    const bool isOverOwner = owner != nullptr && ::IsWindowVisible(owner);
    const CRect workArea = AfxWorkAreaOf(isOverOwner ? owner : m_hWnd);
    CRect around = workArea;
    if (isOverOwner) {
        ::GetWindowRect(owner, &around);
    }
    CRect window;
    GetWindowRect(&window);
    // Kept on the work area, its top left corner first.
    const LONG x = std::min<LONG>((around.left + around.right - window.Width()) / 2, workArea.right - window.Width());
    const LONG y =
        std::min<LONG>((around.top + around.bottom - window.Height()) / 2, workArea.bottom - window.Height());
    SetWindowPos(nullptr, static_cast<int>(std::max(x, workArea.left)), static_cast<int>(std::max(y, workArea.top)), 0,
                 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void AfxSetWindowText(HWND window, LPCSTR text) {
    const int length = ::GetWindowTextLengthA(window);
    CString shown;
    LPSTR buffer = shown.GetBuffer(length + 1);
    shown.ReleaseBuffer(::GetWindowTextA(window, buffer, length + 1));
    if (shown != text) {
        ::SetWindowTextA(window, text);
    }
}
