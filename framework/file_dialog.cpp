// Hands the call on to the system, with the owner that any modal window of the parent gets.

#include "framework/file_dialog.h"

#include <algorithm>
#include <cstring>

#include "framework/exception.h"
#include "framework/module_state.h"
#include "framework/safe_owner.h"

IMPLEMENT_DYNAMIC(CFileDialog, CDialog)

CFileDialog::CFileDialog(BOOL, LPCSTR defaultExtension, LPCSTR fileName, DWORD flags, LPCSTR filter, CWnd* parent)
    : m_ofn(), m_path() {
    m_pParentWnd = parent;
    if (fileName != nullptr) {
        std::strncpy(m_path.data(), fileName, m_path.size() - 1);
    }
    if (filter != nullptr) {
        m_filter = filter;
        std::replace(m_filter.begin(), m_filter.end(), '|', '\0');
        m_ofn.lpstrFilter = m_filter.c_str();
    }
    m_ofn.lStructSize = sizeof m_ofn;
    m_ofn.lpstrFile = m_path.data();
    m_ofn.nMaxFile = static_cast<DWORD>(m_path.size());
    m_ofn.lpstrDefExt = defaultExtension;
    m_ofn.hInstance = AfxGetResourceHandle();
    // A child template does not grow with the dialog on every system.
    m_ofn.Flags = flags | ((flags & OFN_ENABLETEMPLATE) != 0 ? 0U : OFN_ENABLESIZING);
}

INT_PTR CFileDialog::DoModal() {
    const HWND focus = ::GetFocus();
    // The system disables the owner itself.
    HWND topLevel = nullptr;
    m_ofn.hwndOwner = AfxGetSafeOwner(AfxSafeHandle(m_pParentWnd), &topLevel);
    ::SetLastError(0);
    const BOOL accepted = ::GetOpenFileNameA(&m_ofn);
    if (!accepted) {
        AfxFailModalOutOfMemory();
    }
    if (topLevel != nullptr) {
        ::EnableWindow(topLevel, TRUE);
    }
    if (::IsWindow(focus)) {
        // By the dialog that it is in, so that Enter presses the button that has the focus and not the default one.
        ::SendMessageA(::GetParent(focus), WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(focus), TRUE);
        ::SetFocus(focus);
    }
    return accepted ? IDOK : IDCANCEL;
}

CString CFileDialog::GetPathName() const {
    return m_ofn.lpstrFile;
}

CString CFileDialog::GetFileName() const {
    return GetPathName().Mid(m_ofn.nFileOffset);
}
