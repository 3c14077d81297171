// How window objects and windows find each other: the handle maps, subclassing and the hook at creation.

#include "framework/window.h"

#include <new>
#include <utility>

#include "framework/message_routing.h"

IMPLEMENT_DYNAMIC(CWnd, CCmdTarget)

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
END_MESSAGE_MAP()

const CWnd CWnd::wndTop(HWND_TOP);
const CWnd CWnd::wndBottom(HWND_BOTTOM);
const CWnd CWnd::wndTopMost(HWND_TOPMOST);
const CWnd CWnd::wndNoTopMost(HWND_NOTOPMOST);

namespace {

std::unordered_map<HWND, CWnd*>& PermanentMap() {
    static std::unordered_map<HWND, CWnd*> map;
    return map;
}

AfxTemporaryMap<CWnd>& TemporaryMap() {
    static AfxTemporaryMap<CWnd> map;
    return map;
}

bool IsDialogClass(HWND window) {
    constexpr char kDialogClass[] = "#32770";
    char name[sizeof kDialogClass + 1] = "";
    GetClassNameA(window, name, sizeof name);
    return CString(name) == kDialogClass;
}

void RemoveCreationHook() {
    AfxRoutingState& state = AfxGetRoutingState();
    if (state.creationHook != nullptr) {
        UnhookWindowsHookEx(std::exchange(state.creationHook, nullptr));
    }
}

// The first dialog to be created while an object waits becomes that object's window, before its first message.
LRESULT CALLBACK CreationHook(int code, WPARAM wParam, LPARAM lParam) {
    AfxRoutingState& state = AfxGetRoutingState();
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code != HCBT_CREATEWND || state.creating == nullptr || !IsDialogClass(window)) {
        return CallNextHookEx(state.creationHook, code, wParam, lParam);
    }
    bool isTied = false;
    try {
        isTied = std::exchange(state.creating, nullptr)->SubclassWindow(window) != FALSE;
    } catch (...) {
        AfxReportException();
    }
    // A window without its object would be nobody's.
    const LRESULT result = isTied ? CallNextHookEx(state.creationHook, code, wParam, lParam) : 1;
    RemoveCreationHook();
    return result;
}

}  // namespace

void AfxHookWindowCreate(CWnd* object) {
    AfxRoutingState& state = AfxGetRoutingState();
    state.creating = object;
    if (state.creationHook == nullptr) {
        state.creationHook = SetWindowsHookExA(WH_CBT, CreationHook, nullptr, GetCurrentThreadId());
    }
    if (state.creationHook == nullptr) {
        state.creating = nullptr;
        throw std::bad_alloc();
    }
}

BOOL AfxUnhookWindowCreate() {
    RemoveCreationHook();
    return std::exchange(AfxGetRoutingState().creating, nullptr) == nullptr;
}

HWND AfxSafeHandle(const CWnd* object) {
    return object != nullptr ? object->m_hWnd : nullptr;
}

CWnd::~CWnd() {
    if (m_hWnd != nullptr && !m_isPosition && FromHandlePermanent(m_hWnd) == this) {
        CWnd::DestroyWindow();
    }
    if (AfxGetRoutingState().creating == this) {
        AfxUnhookWindowCreate();
    }
}

CWnd* CWnd::FromHandlePermanent(HWND window) {
    const auto found = PermanentMap().find(window);
    return found != PermanentMap().end() ? found->second : nullptr;
}

CWnd* CWnd::FromHandle(HWND window) {
    if (window == nullptr) {
        return nullptr;
    }
    if (CWnd* permanent = FromHandlePermanent(window)) {
        return permanent;
    }
    return TemporaryMap().FindOrMake(window, [window] {
        std::unique_ptr<CWnd> object = AfxMakeTemporary(window);
        object->m_hWnd = window;
        return object;
    });
}

void CWnd::DeleteTempMap() {
    TemporaryMap().Purge([](const CWnd& object) { return !::IsWindow(object.m_hWnd); });
    AfxDeleteTemporaryGdiObjects();
}

BOOL CWnd::Attach(HWND window) {
    if (window == nullptr || m_hWnd != nullptr || FromHandlePermanent(window) != nullptr) {
        return FALSE;
    }
    PermanentMap()[window] = this;
    m_hWnd = window;
    return TRUE;
}

HWND CWnd::Detach() {
    PermanentMap().erase(m_hWnd);
    m_super = nullptr;
    return std::exchange(m_hWnd, nullptr);
}

BOOL CWnd::SubclassWindow(HWND window) {
    if (!::IsWindow(window) || !Attach(window)) {
        return FALSE;
    }
    PreSubclassWindow();
    m_super =
        reinterpret_cast<WNDPROC>(SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AfxWndProc)));
    return TRUE;
}

BOOL CWnd::SubclassDlgItem(UINT id, CWnd* parent) {
    return SubclassWindow(::GetDlgItem(parent->m_hWnd, static_cast<int>(id)));
}

HWND CWnd::UnsubclassWindow() {
    if (m_super != nullptr) {
        SetWindowLongPtrA(m_hWnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(m_super));
    }
    return Detach();
}

BOOL CWnd::DestroyWindow() {
    return m_hWnd != nullptr && ::DestroyWindow(m_hWnd);
}

void CWnd::DoDataExchange(CDataExchange*) {}

void CWnd::PreSubclassWindow() {}

void CWnd::PostNcDestroy() {}

// The window is in its last message. The object is not touched any more after PostNcDestroy, which may delete it.
void CWnd::HandleNcDestroy(LRESULT* result) {
    *result = Default();
    if (m_hWnd != nullptr) {
        UnsubclassWindow();
    }
    if (m_continueModal) {
        EndModalLoop(-1);
    }
    PostNcDestroy();
}
