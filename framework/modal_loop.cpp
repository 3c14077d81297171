// Modal loops: pumping messages until a window ends its loop.

#include "framework/message_routing.h"
#include "framework/window.h"

namespace {

class ModalDepth {
public:
    ModalDepth() { ++AfxGetRoutingState().modalDepth; }
    ~ModalDepth() { --AfxGetRoutingState().modalDepth; }
    ModalDepth(const ModalDepth&) = delete;
    ModalDepth& operator=(const ModalDepth&) = delete;
};

bool IsChildWindow(HWND window) {
    return (::GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD) != 0;
}

// Offers a message to the window objects from its window up to the top-level window.
bool PreTranslate(MSG* message) {
    for (HWND window = message->hwnd; window != nullptr; window = ::GetParent(window)) {
        CWnd* object = CWnd::FromHandlePermanent(window);
        if (object != nullptr && object->PreTranslateMessage(message)) {
            return true;
        }
        if (!IsChildWindow(window)) {
            return false;
        }
    }
    return false;
}

// Runs one message; false when it was the one to quit.
bool PumpMessage(MSG* message) {
    if (::GetMessageA(message, nullptr, 0, 0) <= 0) {
        return false;
    }
    if (!PreTranslate(message)) {
        ::TranslateMessage(message);
        ::DispatchMessageA(message);
    }
    return true;
}

// Painting and pointing leave nothing behind that would be worth an idle round.
bool CausesIdle(const MSG& message) {
    return message.message != WM_PAINT && message.message != WM_MOUSEMOVE;
}

}  // namespace

int CWnd::RunModalLoop(DWORD flags) {
    const ModalDepth depth;
    bool showWhenIdle = (flags & MLF_SHOWONIDLE) != 0 && !IsWindowVisible();
    bool idle = true;
    m_continueModal = true;
    while (AfxGetRoutingState().failure == AfxFailure::None && ContinueModal()) {
        MSG message;
        if (idle && !::PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
            idle = false;
            if (showWhenIdle) {
                showWhenIdle = false;
                ShowWindow(SW_SHOWNORMAL);
                UpdateWindow();
            }
            const HWND owner = ::GetParent(m_hWnd);
            if (owner != nullptr && (flags & MLF_NOIDLEMSG) == 0) {
                ::SendMessageA(owner, WM_ENTERIDLE, MSGF_DIALOGBOX, reinterpret_cast<LPARAM>(m_hWnd));
            }
            // Handlers further out may hold temporary objects while an inner loop runs.
            if (AfxGetRoutingState().modalDepth == 1) {
                DeleteTempMap();
            }
            continue;
        }
        if (!PumpMessage(&message)) {
            // Whoever runs the outer loop must see the message too.
            ::PostQuitMessage(static_cast<int>(message.wParam));
            m_nModalResult = -1;
            break;
        }
        OnMessageDone();
        idle = idle || CausesIdle(message);
    }
    m_continueModal = false;
    return m_nModalResult;
}

BOOL CWnd::ContinueModal() {
    return m_continueModal;
}

void CWnd::EndModalLoop(int result) {
    m_nModalResult = result;
    if (m_continueModal) {
        m_continueModal = false;
        // The loop may be waiting for a message.
        PostMessage(WM_NULL);
    }
}

void CWnd::OnMessageDone() {}

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}
