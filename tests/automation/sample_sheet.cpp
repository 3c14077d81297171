// Two pages from templates that are built in memory.

#include "tests/automation/sample_sheet.h"

#include "tests/support/template_builder.h"

#include <windows.h>

#include <commctrl.h>
#include <commdlg.h>
#include <prsht.h>

#include <array>
#include <cstring>
#include <span>

namespace sample {
namespace {

constexpr TemplateItem kFirstPage[] = {
    {kEdit, kNumber, "", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 10, 10, 60, 12},
    {kEdit, kName, "namn", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 10, 30, 60, 12},
    {kButton, kCheck, "&Kryss", WS_TABSTOP | BS_AUTOCHECKBOX, 80, 10, 80, 10},
    {kButton, kFirstRadio, "Ett", WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON, 80, 25, 80, 10},
    {kButton, kSecondRadio, "Tv\xE5", BS_AUTORADIOBUTTON, 80, 40, 80, 10},
    {kComboBox, kCombo, "", WS_TABSTOP | WS_GROUP | WS_VSCROLL | CBS_DROPDOWN | CBS_AUTOHSCROLL, 10, 50, 60, 60},
    {kComboBox, kList, "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, 10, 70, 60, 40},
    {kButton, kDisabled, "Av", WS_TABSTOP | WS_DISABLED | BS_AUTOCHECKBOX, 80, 55, 80, 10},
    {kButton, kBrowse,
     "&Bl\xE4"
     "ddra",
     WS_TABSTOP | BS_PUSHBUTTON, 80, 70, 50, 14},
};

constexpr TemplateItem kBelowFiles[] = {
    {kButton, kAllFiles, "Alla", WS_TABSTOP | BS_AUTOCHECKBOX, 5, 3, 100, 10},
};

constexpr TemplateItem kSecondPage[] = {
    {kEdit, kRemark, "anm\xE4rkning", WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL, 10, 10, 60, 12},
};

TemplateBuilder MakeTemplate(const char* caption, std::span<const TemplateItem> items) {
    TemplateBuilder page(TemplateBuilder::Form::Classic, WS_CHILD | WS_CAPTION | DS_CONTROL, 180, 100, caption);
    for (const TemplateItem& item : items) {
        page.add(item);
    }
    return page;
}

std::string ReadText(HWND dialog, int id) {
    std::array<char, 64> text{};
    GetDlgItemTextA(dialog, id, text.data(), static_cast<int>(text.size()));
    return text.data();
}

void FillFirstPage(HWND page) {
    for (const char* entry : {"alfa", "beta", "gamma"}) {
        SendDlgItemMessageA(page, kCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
    }
    for (char entry[] = "post 0"; entry[5] <= '9'; ++entry[5]) {
        SendDlgItemMessageA(page, kList, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry));
    }
    CheckRadioButton(page, kFirstRadio, kSecondRadio, kFirstRadio);
}

UINT_PTR CALLBACK FileHook(HWND, UINT, WPARAM, LPARAM) {
    return 0;
}

void BrowseFiles(HWND page) {
    const TemplateBuilder below = MakeTemplate("", kBelowFiles);
    std::array<char, MAX_PATH> path{};
    OPENFILENAMEA ofn{};
    ofn.lStructSize = sizeof(ofn);
    ofn.hwndOwner = page;
    ofn.hInstance = reinterpret_cast<HINSTANCE>(const_cast<DLGTEMPLATE*>(below.get()));
    ofn.lpstrFilter = "Alla filer\0*.*\0";
    ofn.lpstrFile = path.data();
    ofn.nMaxFile = static_cast<DWORD>(path.size());
    ofn.lpstrTitle = "V\xE4lj fil";
    ofn.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | OFN_ENABLEHOOK | OFN_ENABLETEMPLATEHANDLE;
    ofn.lpfnHook = FileHook;
    if (GetOpenFileNameA(&ofn)) {
        SetDlgItemTextA(page, kName, path.data() + ofn.nFileOffset);
    }
}

void OnCommand(HWND page, WORD id, WORD code, Log& log) {
    if (id == kNumber && code == EN_KILLFOCUS && ReadText(page, kNumber).find(',') != std::string::npos) {
        MessageBoxA(page, ", \xE4r ogiltigt!", "Felaktigt f\xE4lt", MB_OK | MB_ICONEXCLAMATION);
        SetFocus(GetDlgItem(page, kNumber));
    }
    if (id == kBrowse) {
        BrowseFiles(page);
    }
    if (id != kCombo && id != kList) {
        return;
    }
    const std::string text = ReadText(page, id);
    switch (code) {
        case CBN_KILLFOCUS:
            log.notifications.push_back("focus-lost");
            break;
        case CBN_SELENDCANCEL:
            log.notifications.push_back("selection-end-cancel");
            break;
        case CBN_SELENDOK:
            log.notifications.push_back("selection-end-OK '" + text + "'");
            break;
        case CBN_CLOSEUP:
            log.notifications.push_back("close-up");
            break;
        case CBN_SELCHANGE:
            log.notifications.push_back("selection-change");
            break;
        default:
            break;
    }
}

void ApplyPage(HWND page, Log& log) {
    for (const int id : {kNumber, kName, kCombo, kList, kRemark}) {
        if (GetDlgItem(page, id) != nullptr) {
            log.applied.emplace_back(std::to_string(id), ReadText(page, id));
        }
    }
}

INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* sheetPage = reinterpret_cast<const PROPSHEETPAGEA*>(lParam);
        SetWindowLongPtrA(page, GWLP_USERDATA, sheetPage->lParam);
        if (GetDlgItem(page, kCombo) != nullptr) {
            FillFirstPage(page);
        }
        return TRUE;
    }
    auto* log = reinterpret_cast<Log*>(GetWindowLongPtrA(page, GWLP_USERDATA));
    if (log == nullptr) {
        return FALSE;
    }
    if (message == WM_COMMAND) {
        OnCommand(page, LOWORD(wParam), HIWORD(wParam), *log);
        return TRUE;
    }
    if (message != WM_NOTIFY) {
        return FALSE;
    }
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    const bool isNameMissing = GetDlgItem(page, kName) != nullptr && ReadText(page, kName).empty();
    if (code == static_cast<UINT>(PSN_KILLACTIVE) && isNameMissing) {
        MessageBoxA(page, "Namn saknas", "Fel", MB_OK);
        SetWindowLongPtrA(page, DWLP_MSGRESULT, TRUE);
        return TRUE;
    }
    if (code == static_cast<UINT>(PSN_APPLY)) {
        ApplyPage(page, *log);
    }
    return FALSE;
}

PROPSHEETPAGEA MakePage(const TemplateBuilder& dialog, Log& log) {
    PROPSHEETPAGEA page{};
    page.dwSize = sizeof(page);
    page.dwFlags = PSP_DLGINDIRECT;
    page.hInstance = GetModuleHandleA(nullptr);
    page.pResource = dialog.get();
    page.pfnDlgProc = PageProc;
    page.lParam = reinterpret_cast<LPARAM>(&log);
    return page;
}

// The loop of a sheet that runs modally without the system's own modal call: it sees the keys that choose tabs.
void RunLoop(HWND sheet) {
    MSG message{};
    while (SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0) != 0 && GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (SendMessageA(sheet, PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(&message)) != 0) {
            continue;
        }
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    DestroyWindow(sheet);
}

}  // namespace

int RunSheet(const std::string& caption, Log& log) {
    const INITCOMMONCONTROLSEX controls{sizeof(controls), ICC_TAB_CLASSES};
    InitCommonControlsEx(&controls);
    const TemplateBuilder first = MakeTemplate("Allm\xE4nt", kFirstPage);
    const TemplateBuilder second = MakeTemplate("Texter/F\xE4rger", kSecondPage);
    const std::array<PROPSHEETPAGEA, 2> pages = {MakePage(first, log), MakePage(second, log)};
    PROPSHEETHEADERA header{};
    header.dwSize = sizeof(header);
    header.dwFlags = PSH_PROPSHEETPAGE | PSH_NOAPPLYNOW | PSH_MODELESS;
    header.hInstance = GetModuleHandleA(nullptr);
    header.pszCaption = caption.c_str();
    header.nPages = static_cast<UINT>(pages.size());
    header.ppsp = pages.data();
    log.applied.clear();
    const INT_PTR sheet = PropertySheetA(&header);
    if (sheet == 0 || sheet == -1) {
        return 0;
    }
    RunLoop(reinterpret_cast<HWND>(sheet));
    return log.applied.empty() ? 0 : 1;
}

}  // namespace sample
