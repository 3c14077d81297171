// The state of the module that the framework is linked into: where its resources are and which application object it
// has. An exported function switches to it for the length of the call.
#pragma once

#include "framework/window_api.h"

class CWinApp;

struct AFX_MODULE_STATE {
    HINSTANCE m_hCurrentInstanceHandle = nullptr;
    HINSTANCE m_hCurrentResourceHandle = nullptr;
    // Not owned; null until the module's application object is constructed.
    CWinApp* m_pCurrentWinApp = nullptr;
};

// The state of this module; it exists from the first call on.
AFX_MODULE_STATE* AfxGetStaticModuleState();
// The state in effect: the one last switched to, else that of this module.
AFX_MODULE_STATE* AfxGetModuleState();
// Switches and returns the state that was switched to before, null when there was none.
AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* state);

// Switches to a state for a scope.
class AFX_MAINTAIN_STATE2 {
public:
    explicit AFX_MAINTAIN_STATE2(AFX_MODULE_STATE* state) : m_previous(AfxSetModuleState(state)) {}
    ~AFX_MAINTAIN_STATE2() { AfxSetModuleState(m_previous); }
    AFX_MAINTAIN_STATE2(const AFX_MAINTAIN_STATE2&) = delete;
    AFX_MAINTAIN_STATE2& operator=(const AFX_MAINTAIN_STATE2&) = delete;

private:
    AFX_MODULE_STATE* m_previous;
};
#define AFX_MANAGE_STATE(state) AFX_MAINTAIN_STATE2 maintainedModuleState(state)

HINSTANCE AfxGetInstanceHandle();
HINSTANCE AfxGetResourceHandle();
