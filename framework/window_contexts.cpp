// Taking the contexts of windows and giving them back.

#include "framework/window_contexts.h"

#include "framework/window.h"

IMPLEMENT_DYNAMIC(CClientDC, CDC)
IMPLEMENT_DYNAMIC(CPaintDC, CDC)

CClientDC::CClientDC(CWnd* window) : m_window(AfxSafeHandle(window)) {
    m_hDC = ::GetDC(m_window);
}

CClientDC::~CClientDC() {
    ::ReleaseDC(m_window, Detach());
}

CPaintDC::CPaintDC(CWnd* window) : m_ps(), m_window(window->m_hWnd) {
    m_hDC = ::BeginPaint(m_window, &m_ps);
}

CPaintDC::~CPaintDC() {
    Detach();
    ::EndPaint(m_window, &m_ps);
}
