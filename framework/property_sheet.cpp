// The life of a sheet: its pages' handles, the modal run, and which button's result it ends with.

#include "framework/property_sheet.h"

#include <algorithm>
#include <new>

#include "framework/message_routing.h"
#include "framework/modal_owner.h"
#include "framework/module_state.h"

IMPLEMENT_DYNAMIC(CPropertySheet, CWnd)

BEGIN_MESSAGE_MAP(CPropertySheet, CWnd)
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_WM_SYSCOMMAND()
ON_MESSAGE(WM_INITDIALOG, &CPropertySheet::HandleInitDialog)
ON_MESSAGE(PSM_PRESSBUTTON, &CPropertySheet::OnPressButton)
ON_MESSAGE(WM_DISPLAYCHANGE, &CPropertySheet::HandleDisplayChange)
ON_MESSAGE(WM_MOVE, &CPropertySheet::HandleMove)
ON_MESSAGE(WM_ENTERSIZEMOVE, &CPropertySheet::HandleEnterSizeMove)
ON_MESSAGE(WM_EXITSIZEMOVE, &CPropertySheet::HandleExitSizeMove)
ON_MESSAGE(WM_HSCROLL, &CPropertySheet::HandleHScroll)
ON_MESSAGE(WM_VSCROLL, &CPropertySheet::HandleVScroll)
END_MESSAGE_MAP()

namespace {

// The low four bits of a system command are the system's own.
constexpr UINT kSystemCommandMask = 0xFFF0;

HPROPSHEETPAGE MakePage(CPropertyPage& page) {
    page.m_psp.hInstance = AfxGetResourceHandle();
    const HPROPSHEETPAGE handle = CreatePropertySheetPageA(&page.m_psp);
    if (handle == nullptr) {
        throw std::bad_alloc();
    }
    return handle;
}

// The handles of pages until a sheet takes them over.
class PageHandles {
public:
    PageHandles() = default;
    void Make(const std::vector<CPropertyPage*>& pages) {
        m_handles.reserve(pages.size());
        for (CPropertyPage* page : pages) {
            m_handles.push_back(MakePage(*page));
        }
    }
    ~PageHandles() {
        for (const HPROPSHEETPAGE handle : m_handles) {
            ::DestroyPropertySheetPage(handle);
        }
    }
    PageHandles(const PageHandles&) = delete;
    PageHandles& operator=(const PageHandles&) = delete;

    void GiveTo(PROPSHEETHEADERA& header) {
        header.nPages = static_cast<UINT>(m_handles.size());
        header.phpage = m_handles.data();
        PropertySheetA(&header);
        m_handles.clear();
    }

private:
    std::vector<HPROPSHEETPAGE> m_handles;
};

}  // namespace

CPropertySheet::CPropertySheet(CWnd* parent, UINT firstPage) : m_psh(), m_pParentWnd(parent) {
    m_psh.dwSize = sizeof m_psh;
    m_psh.nStartPage = firstPage;
}

CPropertySheet::CPropertySheet(UINT captionId, CWnd* parent, UINT firstPage) : CPropertySheet(parent, firstPage) {
    m_strCaption.LoadString(captionId);
}

CPropertySheet::CPropertySheet(LPCSTR caption, CWnd* parent, UINT firstPage) : CPropertySheet(parent, firstPage) {
    m_strCaption = caption;
}

CPropertySheet::~CPropertySheet() {
    // Here, while the object is still a sheet, so that the last messages find this class's handlers.
    CPropertySheet::DestroyWindow();
}

void CPropertySheet::AddPage(CPropertyPage* page) {
    m_pages.push_back(page);
    if (m_hWnd == nullptr) {
        return;
    }
    const auto tabs = [this] {
        const CTabCtrl* control = GetTabControl();
        return control != nullptr ? control->SendMessage(TCM_GETITEMCOUNT) : 0;
    };
    const LRESULT former = tabs();
    page->m_isInSheet = true;
    page->m_view = m_view ? &*m_view : nullptr;
    SendMessage(PSM_ADDPAGE, 0, reinterpret_cast<LPARAM>(MakePage(*page)));
    // Not every system says what came of it.
    if (m_hWnd != nullptr && tabs() == former) {
        throw std::bad_alloc();
    }
    FitMonitor();  // There may be another row of tabs.
}

void CPropertySheet::RemovePage(CPropertyPage* page) {
    RemovePage(GetPageIndex(page));
}

void CPropertySheet::RemovePage(int index) {
    if (GetPage(index) == nullptr) {
        return;
    }
    m_pages[static_cast<size_t>(index)]->m_isInSheet = false;
    if (m_hWnd != nullptr) {
        SendMessage(PSM_REMOVEPAGE, static_cast<WPARAM>(index), 0);
    }
    m_pages.erase(m_pages.begin() + index);
}

CPropertyPage* CPropertySheet::GetPage(int index) const {
    return index >= 0 && index < GetPageCount() ? m_pages[static_cast<size_t>(index)] : nullptr;
}

int CPropertySheet::GetPageIndex(const CPropertyPage* page) const {
    const auto found = std::find(m_pages.begin(), m_pages.end(), page);
    return found != m_pages.end() ? static_cast<int>(found - m_pages.begin()) : -1;
}

CPropertyPage* CPropertySheet::GetActivePage() const {
    if (m_hWnd == nullptr) {
        return GetPage(GetActiveIndex());
    }
    const HWND page = reinterpret_cast<HWND>(SendMessage(PSM_GETCURRENTPAGEHWND));
    return DYNAMIC_DOWNCAST(CPropertyPage, FromHandlePermanent(page));
}

int CPropertySheet::GetActiveIndex() const {
    if (m_hWnd == nullptr) {
        return static_cast<int>(m_psh.nStartPage);
    }
    const CTabCtrl* tabs = GetTabControl();
    return tabs != nullptr ? tabs->GetCurSel() : -1;
}

BOOL CPropertySheet::SetActivePage(int index) {
    if (GetPage(index) == nullptr) {
        return FALSE;
    }
    if (m_hWnd == nullptr) {
        m_psh.nStartPage = static_cast<UINT>(index);
        return TRUE;
    }
    return SendMessage(PSM_SETCURSEL, static_cast<WPARAM>(index), 0) != 0;
}

BOOL CPropertySheet::SetActivePage(CPropertyPage* page) {
    return SetActivePage(GetPageIndex(page));
}

CTabCtrl* CPropertySheet::GetTabControl() const {
    const HWND tab = reinterpret_cast<HWND>(SendMessage(PSM_GETTABCONTROL));
    return static_cast<CTabCtrl*>(FromHandle(tab));
}

BOOL CPropertySheet::PressButton(int button) {
    return PostMessage(PSM_PRESSBUTTON, static_cast<WPARAM>(button));
}

// The pages' handles are owned by the sheet that the system makes of them.
HWND CPropertySheet::CreateSheet(HWND owner) {
    PageHandles handles;
    handles.Make(m_pages);
    PROPSHEETHEADERA header = m_psh;
    // Modeless to the system: this object disables the owner and runs the loop.
    header.dwFlags |= PSH_MODELESS;
    header.hwndParent = owner;
    header.hInstance = AfxGetResourceHandle();
    header.pszCaption = m_strCaption;
    AfxHookWindowCreate(this);
    for (CPropertyPage* page : m_pages) {
        page->m_isInSheet = true;
    }
    ::SetLastError(0);
    handles.GiveTo(header);
    AfxUnhookWindowCreate();
    if (m_hWnd == nullptr) {
        AfxFailModalOutOfMemory();
    }
    // Null when it failed or the window is gone again.
    return m_hWnd;
}

INT_PTR CPropertySheet::DoModal() {
    AfxModalOwner owner(m_pParentWnd);
    // A sheet that ends without a button was not accepted.
    m_nModalResult = IDCANCEL;
    m_continueModal = true;
    INT_PTR result = -1;
    try {
        if (CreateSheet(owner.Handle()) != nullptr) {
            result = ContinueModal() ? RunModalLoop(MLF_SHOWONIDLE) : m_nModalResult;
        }
    } catch (...) {
        // The window goes before the pages, which a derived sheet may have as members.
        AfxReportException();
        result = -1;
    }
    m_continueModal = false;
    if (owner.HasFailed()) {
        result = IDCANCEL;
    }
    owner.CloseModal(*this);
    return result;
}

void CPropertySheet::EndDialog(int result) {
    EndModalLoop(result);
}

// The system has no current page any more once it has accepted or cancelled the sheet.
BOOL CPropertySheet::ContinueModal() {
    return CWnd::ContinueModal() && SendMessage(PSM_GETCURRENTPAGEHWND) != 0;
}

LRESULT CPropertySheet::HandleInitDialog(WPARAM, LPARAM) {
    return OnInitDialog();
}

BOOL CPropertySheet::OnInitDialog() {
    const BOOL result = static_cast<BOOL>(Default());
    CenterWindow();
    m_view.emplace(m_hWnd);
    for (CPropertyPage* page : m_pages) {
        page->m_view = &*m_view;
    }
    FitMonitor();
    if (m_view->IsCut()) {
        CenterWindow();
    }
    return result;
}

void CPropertySheet::FitMonitor() {
    if (m_view && m_hWnd != nullptr) {
        m_monitor = ::MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTONEAREST);
        m_view->Fit();
    }
}

LRESULT CPropertySheet::HandleDisplayChange(WPARAM, LPARAM) {
    const LRESULT result = Default();
    FitMonitor();
    if (m_view && m_hWnd != nullptr) {
        m_view->BringOntoScreen();
    }
    return result;
}

// Systems differ in whether they tell where dragging begins and ends.
LRESULT CPropertySheet::HandleMove(WPARAM, LPARAM) {
    const LRESULT result = Default();
    if (m_view && !m_isDragged && ::MonitorFromWindow(m_hWnd, MONITOR_DEFAULTTONEAREST) != m_monitor) {
        FitMonitor();
    }
    return result;
}

LRESULT CPropertySheet::HandleEnterSizeMove(WPARAM, LPARAM) {
    m_isDragged = true;
    return Default();
}

LRESULT CPropertySheet::HandleExitSizeMove(WPARAM, LPARAM) {
    m_isDragged = false;
    const LRESULT result = Default();
    FitMonitor();
    return result;
}

LRESULT CPropertySheet::HandleHScroll(WPARAM wParam, LPARAM bar) {
    return m_view && m_view->OnScroll(false, wParam, reinterpret_cast<HWND>(bar)) ? 0 : Default();
}

LRESULT CPropertySheet::HandleVScroll(WPARAM wParam, LPARAM bar) {
    return m_view && m_view->OnScroll(true, wParam, reinterpret_cast<HWND>(bar)) ? 0 : Default();
}

void CPropertySheet::OnMessageDone() {
    if (m_view) {
        m_view->FollowFocus(false);
    }
}

BOOL CPropertySheet::PreTranslateMessage(MSG* message) {
    const bool isKey = message->message >= WM_KEYFIRST && message->message <= WM_KEYLAST;
    if (message->message == WM_KEYDOWN && m_view) {
        m_view->FollowFocus(true);
    }
    if (message->message == WM_MOUSEWHEEL && m_view && m_view->OnWheel(*message)) {
        return TRUE;
    }
    const bool isMouse = message->message >= WM_MOUSEFIRST && message->message <= WM_MOUSELAST;
    if ((!isKey && !isMouse) || !TakeDialogMessage(message)) {
        return FALSE;
    }
    if (m_hWnd != nullptr) {
        TakeFocusFromHiddenPage();
    }
    return TRUE;
}

// The sheet itself takes keys that change the page. A character it may take for one of Unicode, while the loop has it
// in the code page: a euro sign would become another character.
BOOL CPropertySheet::TakeDialogMessage(MSG* message) {
    if (message->message == WM_CHAR || message->message == WM_SYSCHAR) {
        return ::IsDialogMessageA(m_hWnd, message);
    }
    return SendMessage(PSM_ISDIALOGMESSAGE, 0, reinterpret_cast<LPARAM>(message)) != 0;
}

// Not every system moves the focus along when a key changes the page: what is typed next would go to a hidden field.
void CPropertySheet::TakeFocusFromHiddenPage() {
    const HWND focus = ::GetFocus();
    if (!IsWindowVisible() || focus == nullptr || !::IsChild(m_hWnd, focus) || ::IsWindowVisible(focus)) {
        return;
    }
    const HWND page = reinterpret_cast<HWND>(SendMessage(PSM_GETCURRENTPAGEHWND));
    const HWND first = page != nullptr ? ::GetNextDlgTabItem(page, nullptr, FALSE) : nullptr;
    if (first != nullptr) {
        ::SendMessageA(page, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(first), TRUE);
    }
}

BOOL CPropertySheet::OnCommand(WPARAM wParam, LPARAM lParam) {
    if (CWnd::OnCommand(wParam, lParam)) {
        return TRUE;
    }
    constexpr LRESULT kButtonCodes = DLGC_BUTTON | DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
    const HWND control = reinterpret_cast<HWND>(lParam);
    if (control == nullptr || HIWORD(wParam) != BN_CLICKED ||
        (::SendMessageA(control, WM_GETDLGCODE, 0, 0) & kButtonCodes) == 0) {
        return FALSE;
    }
    // Asks or applies the pages, and ends the sheet unless one of them refuses.
    Default();
    // A page's message box runs a loop in which the host may have destroyed the sheet.
    if (m_hWnd != nullptr && SendMessage(PSM_GETCURRENTPAGEHWND) == 0) {
        m_nModalResult = LOWORD(wParam);
    }
    return TRUE;
}

// Systems differ in whether a press by message passes through WM_COMMAND, where the result is noted; here it does.
LRESULT CPropertySheet::OnPressButton(WPARAM button, LPARAM) {
    const int id = button == PSBTN_OK ? IDOK : button == PSBTN_CANCEL ? IDCANCEL : 0;
    if (id == 0) {
        return Default();
    }
    const HWND control = ::GetDlgItem(m_hWnd, id);
    return SendMessage(WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
}

void CPropertySheet::OnClose() {
    m_nModalResult = IDCANCEL;
    Default();
}

// The pages go with the sheet.
void CPropertySheet::OnDestroy() {
    m_view.reset();
    for (CPropertyPage* page : m_pages) {
        page->m_isInSheet = false;
        page->m_view = nullptr;
    }
    Default();
}

void CPropertySheet::OnSysCommand(UINT id, LPARAM) {
    if ((id & kSystemCommandMask) == SC_CLOSE) {
        m_nModalResult = IDCANCEL;
    }
    Default();
}
