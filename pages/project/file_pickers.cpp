// The file dialogs of the page "Projektbeskrivning".
#include "pages/project/file_pickers.h"

#include "core/field_messages.h"
#include "resources/resource.h"

// The state of the check box "all files of the folder". It outlives the dialog, whose next opening resets it.
static int g_allFilesInLibrary;

namespace {

// As much of a path as the dialog can take.
constexpr int kMaxPathLength = MAX_PATH - 1;

constexpr DWORD kFlags =
    OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT | OFN_NOCHANGEDIR | OFN_EXPLORER | OFN_ENABLEHOOK | OFN_ENABLETEMPLATE;

// The choice confirms nothing here, so the dialog's own button says no more than that.
void NameOkButton(HWND child) {
    ::SendMessageA(::GetParent(child), CDM_SETCONTROLTEXT, IDOK, reinterpret_cast<LPARAM>("OK"));
}

UINT_PTR CALLBACK ReportTemplateDialogHook(HWND child, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == CDN_INITDONE) {
        NameOkButton(child);
    }
    return 0;
}

UINT_PTR CALLBACK DatabaseDialogHook(HWND child, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        g_allFilesInLibrary = 0;
    } else if (message == WM_COMMAND && LOWORD(wParam) == IDC_ALL_FILES) {
        g_allFilesInLibrary = g_allFilesInLibrary == 0 ? 1 : 0;
    }
    return ReportTemplateDialogHook(child, message, wParam, lParam);
}

struct FilePicker {
    // The button gives the title.
    int button;
    int edit;
    UINT filterId;
    const char* pattern;
    // Null for none.
    LPCSTR defaultExtension;
    UINT childTemplate;
    LPOFNHOOKPROC hook;
};

constexpr FilePicker kDatabasePicker = {IDC_BROWSE_DATABASE, IDC_DATABASE,      IDS_DATABASE_FILES, "*.tds", nullptr,
                                        IDD_DATABASE_CHOICE, DatabaseDialogHook};
constexpr FilePicker kReportTemplatePicker = {
    IDC_BROWSE_REPORT_TEMPLATE, IDC_REPORT_TEMPLATES,    IDS_REPORT_TEMPLATES, "*.rds", "rds",
    IDD_REPORT_TEMPLATE_CHOICE, ReportTemplateDialogHook};

BOOL Pick(CWnd& page, const FilePicker& picker, PickedFile& file) {
    CString title;
    CString path;
    page.GetDlgItemText(picker.button, title);
    page.GetDlgItemText(picker.edit, path);
    const CString folder = FolderShownFirst(path.Left(kMaxPathLength));
    const CString filter = LoadText(picker.filterId) + "|" + picker.pattern + "||";
    CFileDialog dialog(TRUE, picker.defaultExtension, nullptr, kFlags, filter, &page);
    dialog.m_ofn.lpstrTitle = title;
    dialog.m_ofn.lpstrInitialDir = folder.IsEmpty() ? nullptr : folder.GetString();
    dialog.m_ofn.hInstance = AfxGetResourceHandle();
    dialog.m_ofn.lpTemplateName = MAKEINTRESOURCEA(picker.childTemplate);
    dialog.m_ofn.lpfnHook = picker.hook;
    if (dialog.DoModal() != IDOK || page.m_hWnd == nullptr) {
        return FALSE;
    }
    file.path = dialog.GetPathName();
    file.nameOffset = dialog.m_ofn.nFileOffset;
    return TRUE;
}

}  // namespace

CString FolderShownFirst(const CString& path) {
    const int star = path.Find('*');
    if (star >= 0) {
        return path.Left(star);
    }
    for (int i = path.GetLength() - 1; i >= 0; --i) {
        if (path[i] == '\\' || path[i] == '/') {
            return path.Left(i);
        }
    }
    return "";
}

BOOL PickDatabase(CWnd& page, PickedFile& file) {
    return Pick(page, kDatabasePicker, file);
}

BOOL PickReportTemplate(CWnd& page, PickedFile& file) {
    return Pick(page, kReportTemplatePicker, file);
}

BOOL AreAllFilesMeant() {
    return g_allFilesInLibrary != 0;
}
