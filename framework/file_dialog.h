// CFileDialog: the system's open-file dialog with the classic framework's names.
// Deliberately missing: saving, several files at a time, and the dialog's window as an object.
#pragma once

#include <array>
#include <string>

#include "framework/dialog.h"

// The system's header needs the first one's types.
#include <commdlg.h>

class CFileDialog : public CDialog {
    DECLARE_DYNAMIC(CFileDialog)

public:
    // `open` must be TRUE. The filter is pairs of description and pattern with a '|' after each and one more at its
    // end. The texts but the extension are copied. The parent may be null, as for any modal dialog.
    explicit CFileDialog(BOOL open, LPCSTR defaultExtension = nullptr, LPCSTR fileName = nullptr,
                         DWORD flags = OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, LPCSTR filter = nullptr,
                         CWnd* parent = nullptr);

    // What is handed to the system; it may be changed until DoModal and holds the answer afterwards. Its texts stay
    // the caller's.
    OPENFILENAMEA m_ofn;

    // IDOK or IDCANCEL. The owner is disabled meanwhile.
    INT_PTR DoModal() override;

    // The chosen file, after DoModal gave IDOK: with its folder, and without.
    CString GetPathName() const;
    CString GetFileName() const;

private:
    std::array<char, MAX_PATH> m_path;
    std::string m_filter;
};
