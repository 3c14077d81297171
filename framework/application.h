// The application object of a module, and the message boxes whose caption is its name.
// Deliberately missing: starting up and running a program, and a main window; the module is a library that a host
// calls.
#pragma once

#include "framework/command_target.h"
#include "framework/module_state.h"

class CWinApp : public CCmdTarget {
    DECLARE_DYNAMIC(CWinApp)

public:
    // Without a name the application is called as the module's file without folder and extension.
    explicit CWinApp(LPCSTR applicationName = nullptr);
    ~CWinApp() override;

    // Owned, allocated with malloc, never null; whoever replaces it frees the old one and allocates alike.
    char* m_pszAppName;
    HINSTANCE m_hInstance;

    // Shows a message box owned by the front window of the active window's group. Without an icon in the type a
    // question gets the question mark and anything else the exclamation mark.
    virtual int DoMessageBox(LPCSTR prompt, UINT type);
};

// The module's application object; null when it has none.
CWinApp* AfxGetApp();
// Its name; that of the module's file when there is no application object.
LPCSTR AfxGetAppName();

int AfxMessageBox(LPCSTR text, UINT type = MB_OK);
// The text is a string resource; an empty box is shown when it is missing.
int AfxMessageBox(UINT textId, UINT type = MB_OK);
