// The application object, the name that it gives the module, and its message boxes.

#include "framework/application.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

#include "framework/cstring.h"
#include "framework/message_routing.h"
#include "framework/safe_owner.h"

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

namespace {

constexpr DWORD kMaxPath = 1024;

// The module's file name without folder and extension.
std::string ModuleTitle(HINSTANCE module) {
    char path[kMaxPath] = "";
    const DWORD length = GetModuleFileNameA(module, path, kMaxPath);
    std::string title(path, length < kMaxPath ? length : kMaxPath - 1);
    title.erase(0, title.find_last_of("/\\") + 1);
    const size_t extension = title.rfind('.');
    return extension == std::string::npos ? title : title.substr(0, extension);
}

char* Duplicate(LPCSTR text) {
    const size_t size = std::strlen(text) + 1;
    char* copy = static_cast<char*>(std::malloc(size));
    if (copy == nullptr) {
        throw std::bad_alloc();
    }
    return static_cast<char*>(std::memcpy(copy, text, size));
}

}  // namespace

CWinApp::CWinApp(LPCSTR applicationName) : m_pszAppName(nullptr), m_hInstance(AfxGetInstanceHandle()) {
    m_pszAppName = Duplicate(applicationName != nullptr ? applicationName : ModuleTitle(m_hInstance).c_str());
    AfxGetModuleState()->m_pCurrentWinApp = this;
}

CWinApp::~CWinApp() {
    if (AfxGetModuleState()->m_pCurrentWinApp == this) {
        AfxGetModuleState()->m_pCurrentWinApp = nullptr;
    }
    std::free(m_pszAppName);
}

namespace {

int ShowMessageBox(LPCSTR prompt, LPCSTR caption, UINT type) {
    constexpr UINT kIconMask = 0xF0;
    constexpr UINT kButtonsMask = 0x0F;
    UINT fullType = type;
    if ((type & kIconMask) == 0) {
        const UINT buttons = type & kButtonsMask;
        fullType |= buttons == MB_YESNO || buttons == MB_YESNOCANCEL ? MB_ICONQUESTION : MB_ICONEXCLAMATION;
    }
    // A box of a data exchange belongs to the window with the controls, which another program may have deactivated.
    HWND topLevel = nullptr;
    const HWND owner = AfxGetSafeOwner(AfxGetRoutingState().lockoutWindow, &topLevel);
    SetLastError(0);
    const int result = MessageBoxA(owner, prompt, caption, fullType);
    if (result == 0) {
        AfxFailModalOutOfMemory();
    }
    if (topLevel != nullptr) {
        EnableWindow(topLevel, TRUE);
    }
    return result;
}

}  // namespace

int CWinApp::DoMessageBox(LPCSTR prompt, UINT type) {
    return ShowMessageBox(prompt, m_pszAppName, type);
}

CWinApp* AfxGetApp() {
    return AfxGetModuleState()->m_pCurrentWinApp;
}

LPCSTR AfxGetAppName() {
    if (AfxGetApp() != nullptr) {
        return AfxGetApp()->m_pszAppName;
    }
    static const std::string title = ModuleTitle(AfxGetInstanceHandle());
    return title.c_str();
}

int AfxMessageBox(LPCSTR text, UINT type) {
    CWinApp* application = AfxGetApp();
    return application != nullptr ? application->DoMessageBox(text, type) : ShowMessageBox(text, AfxGetAppName(), type);
}

int AfxMessageBox(UINT textId, UINT type) {
    CString text;
    text.LoadString(textId);
    return AfxMessageBox(text, type);
}
