// CWnd: a window of the system as an object. A window that the object creates or subclasses is routed through the
// object's message map; any other window gets a temporary object for as long as it lives and the queue is busy.
// Deliberately missing: creation of arbitrary windows; the framework only creates dialogs and sheets.
#pragma once

#include "framework/command_target.h"
#include "framework/cstring.h"
#include "framework/geometry.h"

class CDataExchange;

class CWnd : public CCmdTarget {
    DECLARE_DYNAMIC(CWnd)
    DECLARE_MESSAGE_MAP()

public:
    CWnd() = default;
    // Destroys the window when it still lives and belongs to this object.
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    // The object of a window: the one that owns it, else a temporary one of the class that fits its window class.
    // Null for null.
    static CWnd* FromHandle(HWND window);
    // The object that owns the window, or null.
    static CWnd* FromHandlePermanent(HWND window);
    // Forgets temporary objects whose window is gone. Called when the outermost modal loop is idle.
    static void DeleteTempMap();
    // Ties the object to a window without touching the window procedure; FALSE for null.
    BOOL Attach(HWND window);
    HWND Detach();
    // Ties the object to a living window and routes that window's messages through it until it is destroyed.
    BOOL SubclassWindow(HWND window);
    BOOL SubclassDlgItem(UINT id, CWnd* parent);
    // Gives the window its former procedure back and detaches it.
    HWND UnsubclassWindow();
    HWND GetSafeHwnd() const { return m_hWnd; }

    // Runs DoDataExchange in one direction: FALSE shows members in controls, TRUE reads controls into members. While it
    // runs, control notifications to this window are ignored. FALSE when a validation failed; the user has been told.
    BOOL UpdateData(BOOL saveAndValidate = TRUE);
    virtual void DoDataExchange(CDataExchange* exchange);

    // Runs messages until EndModalLoop, or until ContinueModal says no; returns what EndModalLoop was given, -1 after a
    // quit message. With MLF_SHOWONIDLE a hidden window is shown when the queue is first empty.
    int RunModalLoop(DWORD flags = 0);
    virtual BOOL ContinueModal();
    virtual void EndModalLoop(int result);

    virtual BOOL PreTranslateMessage(MSG* message);
    // Called by the window's modal loop after each message; the window may be gone.
    virtual void OnMessageDone();
    virtual BOOL DestroyWindow();
    virtual void WinHelp(DWORD_PTR data, UINT command);
    void CenterWindow();

    // The system's functions of the same names on this window.
    CWnd* GetDlgItem(int id) const;
    // The same for a control that the work needs: throws when the host has destroyed it, or the window around it.
    CWnd& RequireDlgItem(UINT id) const;
    static CWnd* GetFocus();
    static CWnd* GetActiveWindow();
    static CWnd* GetCapture();
    static CWnd* GetDesktopWindow();
    CWnd* SetFocus();
    CWnd* SetActiveWindow();
    CWnd* GetParent() const;
    CWnd* GetOwner() const;
    CWnd* GetWindow(UINT command) const;
    CWnd* GetTopWindow() const;
    CWnd* GetNextWindow(UINT command = GW_HWNDNEXT) const;
    CWnd* GetLastActivePopup() const;
    CWnd* GetTopLevelParent() const;
    BOOL IsChild(const CWnd* window) const;
    int GetDlgCtrlID() const;
    void GetWindowText(CString& text) const;
    int GetWindowText(LPSTR buffer, int size) const;
    int GetWindowTextLength() const;
    void SetWindowText(LPCSTR text);
    int GetDlgItemText(int id, CString& text) const;
    void SetDlgItemText(int id, LPCSTR text);
    UINT IsDlgButtonChecked(int id) const;
    void CheckDlgButton(int id, UINT check);
    void CheckRadioButton(int first, int last, int checked);
    LRESULT SendDlgItemMessage(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    DWORD GetStyle() const;
    DWORD GetExStyle() const;
    // Sets the style bits directly, with no message but, for non-zero flags, that of SetWindowPos with them.
    BOOL ModifyStyle(DWORD remove, DWORD add, UINT flags = 0);
    BOOL EnableWindow(BOOL enable = TRUE);
    BOOL IsWindowEnabled() const;
    BOOL ShowWindow(int command);
    BOOL IsWindowVisible() const;
    BOOL SetWindowPos(const CWnd* insertAfter, int x, int y, int width, int height, UINT flags);
    void MoveWindow(int x, int y, int width, int height, BOOL repaint = TRUE);
    void MoveWindow(const RECT* rect, BOOL repaint = TRUE);
    void GetClientRect(RECT* rect) const;
    void GetWindowRect(RECT* rect) const;
    void ScreenToClient(POINT* point) const;
    void ScreenToClient(RECT* rect) const;
    void ClientToScreen(POINT* point) const;
    void ClientToScreen(RECT* rect) const;
    void Invalidate(BOOL erase = TRUE);
    void InvalidateRect(const RECT* rect, BOOL erase = TRUE);
    void ValidateRect(const RECT* rect);
    void UpdateWindow();
    BOOL RedrawWindow(const RECT* rect = nullptr, UINT flags = RDW_INVALIDATE | RDW_UPDATENOW | RDW_ERASE);
    void SetRedraw(BOOL redraw = TRUE);
    LRESULT SendMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;
    BOOL PostMessage(UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
    // The caption of a box without one is the application's name.
    int MessageBox(LPCSTR text, LPCSTR caption = nullptr, UINT type = MB_OK);
    UINT_PTR SetTimer(UINT_PTR timer, UINT milliseconds, TIMERPROC procedure);
    BOOL KillTimer(UINT_PTR timer);

    // Inserting positions for SetWindowPos.
    static const CWnd wndTop;
    static const CWnd wndBottom;
    static const CWnd wndTopMost;
    static const CWnd wndNoTopMost;

protected:
    // Message handling. Returns of OnCommand, OnNotify and OnWndMsg: whether the message was taken.
    virtual LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual BOOL OnWndMsg(UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result);
    // The object is about to be tied to a window, before its first message.
    virtual void PreSubclassWindow();
    // The window is gone; the object is detached and may delete itself.
    virtual void PostNcDestroy();
    // The default processing of the message that is being handled.
    LRESULT Default();

    // The handlers that the ON_WM_ entries name; each does the default processing.
    afx_msg int OnCreate(LPCREATESTRUCT createStruct);
    afx_msg void OnDestroy();
    afx_msg void OnClose();
    afx_msg void OnPaint();
    afx_msg void OnDrawItem(int id, LPDRAWITEMSTRUCT item);
    afx_msg void OnMeasureItem(int id, LPMEASUREITEMSTRUCT item);
    afx_msg void OnTimer(UINT_PTR timer);
    afx_msg void OnHScroll(UINT code, UINT position, CScrollBar* scrollBar);
    afx_msg void OnVScroll(UINT code, UINT position, CScrollBar* scrollBar);
    afx_msg void OnSetFocus(CWnd* loser);
    afx_msg void OnKillFocus(CWnd* winner);
    afx_msg void OnShowWindow(BOOL show, UINT status);
    afx_msg void OnSysCommand(UINT id, LPARAM lParam);

    // What the last EndModalLoop was given.
    int m_nModalResult = 0;
    // The window's modal loop has not been told to end.
    bool m_continueModal = false;

private:
    void HandleNcDestroy(LRESULT* result);
    friend LRESULT CALLBACK AfxWndProc(HWND, UINT, WPARAM, LPARAM);
    explicit CWnd(HWND insertAfter) : m_hWnd(insertAfter), m_isPosition(true) {}

    // The former procedure of a subclassed window; null for a merely attached one.
    WNDPROC m_super = nullptr;
    // The object stands for an inserting position, not for a window.
    bool m_isPosition = false;
};

// Flags of RunModalLoop.
constexpr DWORD MLF_NOIDLEMSG = 0x0001;
constexpr DWORD MLF_SHOWONIDLE = 0x0004;

// The window procedure of every window that an object owns.
LRESULT CALLBACK AfxWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Arranges that the next dialog-class window to be created on this thread is subclassed by the object at its creation,
// before its first message; a window that cannot be is refused. Throws when there is no memory for that. The second
// call ends it and returns whether it has happened.
void AfxHookWindowCreate(CWnd* object);
BOOL AfxUnhookWindowCreate();
// The window of an object; null for a null object.
HWND AfxSafeHandle(const CWnd* object);
// Sets a window's text only when it differs from what is shown.
void AfxSetWindowText(HWND window, LPCSTR text);
