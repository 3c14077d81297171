// How a module finds its own handle, and which state is the current one.

#include "framework/module_state.h"

#include <utility>

namespace {

// Static, not per thread: the library is called on the host's one user-interface thread.
AFX_MODULE_STATE* g_currentState = nullptr;

AFX_MODULE_STATE MakeStaticState() {
    AFX_MODULE_STATE state;
    HMODULE module = nullptr;
    // Any address inside this module identifies it, so no module entry point has to remember the handle.
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&g_currentState), &module);
    state.m_hCurrentInstanceHandle = module;
    state.m_hCurrentResourceHandle = module;
    return state;
}

}  // namespace

AFX_MODULE_STATE* AfxGetStaticModuleState() {
    static AFX_MODULE_STATE state = MakeStaticState();
    return &state;
}

AFX_MODULE_STATE* AfxGetModuleState() {
    return g_currentState != nullptr ? g_currentState : AfxGetStaticModuleState();
}

AFX_MODULE_STATE* AfxSetModuleState(AFX_MODULE_STATE* state) {
    return std::exchange(g_currentState, state);
}

HINSTANCE AfxGetInstanceHandle() {
    return AfxGetModuleState()->m_hCurrentInstanceHandle;
}

HINSTANCE AfxGetResourceHandle() {
    return AfxGetModuleState()->m_hCurrentResourceHandle;
}
