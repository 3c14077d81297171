// Device contexts of windows, given back at the end of their scope.
#pragma once

#include "framework/gdi.h"

class CWnd;

// The context of a window's client area for a scope.
class CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)

public:
    // A null window stands for the screen.
    explicit CClientDC(CWnd* window);
    ~CClientDC() override;

private:
    HWND m_window;
};

// The context of a window's invalid area while it handles a paint message.
class CPaintDC : public CDC {
    DECLARE_DYNAMIC(CPaintDC)

public:
    explicit CPaintDC(CWnd* window);
    ~CPaintDC() override;

    PAINTSTRUCT m_ps;

private:
    HWND m_window;
};
