// The owner of a modal window, disabled while the window runs.
#pragma once

#include "framework/window_api.h"

class CWnd;

class AfxModalOwner {
public:
    // Finds the owner that fits a parent, which may be null, and disables it.
    explicit AfxModalOwner(CWnd* parent);
    // Enables the owner when the modal window never came up. The end of the outermost modal window is also the end of
    // what temporary objects were made meanwhile, since a host's loop need not have been idle.
    ~AfxModalOwner();
    AfxModalOwner(const AfxModalOwner&) = delete;
    AfxModalOwner& operator=(const AfxModalOwner&) = delete;

    HWND Handle() const { return m_owner; }
    // Whether the window is to end as cancelled. The outermost one tells the user when memory ran out.
    bool HasFailed() const;
    // Ends the modal window: enables its owner, which becomes active if the window was, and destroys the window.
    // Notifications of its controls are ignored meanwhile: the user has answered, so a field that loses the focus now
    // is not being left.
    void CloseModal(CWnd& modal);

private:
    void EnableOwner();

    // A further window above the owner that was disabled, or null.
    HWND m_topLevel = nullptr;
    HWND m_owner;
    bool m_ownerDisabled = false;
};
