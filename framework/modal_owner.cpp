// The owner of a modal window: disabled while the window runs, enabled and active again after it.

#include "framework/modal_owner.h"

#include <utility>

#include "framework/application.h"
#include "framework/message_routing.h"
#include "framework/prompts.h"
#include "framework/safe_owner.h"
#include "framework/window.h"

AfxModalOwner::AfxModalOwner(CWnd* parent) : m_owner(AfxGetSafeOwner(AfxSafeHandle(parent), &m_topLevel)) {
    AfxRoutingState& state = AfxGetRoutingState();
    if (state.modalWindows++ == 0) {
        state.failure = AfxFailure::None;
    }
    if (m_owner == ::GetDesktopWindow()) {
        m_owner = nullptr;
    }
    m_ownerDisabled = m_owner != nullptr && ::IsWindowEnabled(m_owner);
    if (m_ownerDisabled) {
        ::EnableWindow(m_owner, FALSE);
    }
}

AfxModalOwner::~AfxModalOwner() {
    EnableOwner();
    if (--AfxGetRoutingState().modalWindows == 0) {
        CWnd::DeleteTempMap();
    }
}

bool AfxModalOwner::HasFailed() const {
    const AfxRoutingState& state = AfxGetRoutingState();
    if (state.failure == AfxFailure::OutOfMemory && state.modalWindows == 1) {
        AfxMessageBox(kPromptOutOfMemory, MB_ICONSTOP);
    }
    return state.failure != AfxFailure::None;
}

void AfxModalOwner::EnableOwner() {
    if (std::exchange(m_ownerDisabled, false)) {
        ::EnableWindow(m_owner, TRUE);
    }
    if (m_topLevel != nullptr) {
        ::EnableWindow(std::exchange(m_topLevel, nullptr), TRUE);
    }
}

void AfxModalOwner::CloseModal(CWnd& modal) {
    if (modal.m_hWnd == nullptr) {
        return;
    }
    HWND& closing = AfxGetRoutingState().closingWindow;
    const HWND former = std::exchange(closing, modal.m_hWnd);
    const bool handOver = m_ownerDisabled && ::GetActiveWindow() == modal.m_hWnd;
    // Before the window goes, since the system would otherwise pass the activation to some other window.
    EnableOwner();
    if (handOver) {
        ::SetActiveWindow(m_owner);
    }
    modal.DestroyWindow();
    closing = former;
}
