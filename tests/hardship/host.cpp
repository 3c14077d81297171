#include "tests/hardship/host.h"

#include <commctrl.h>
#include <prsht.h>

#include <utility>

#include "tests/support/failing_allocator.h"

namespace {

constexpr char kClass[] = "HardshipHost";
constexpr UINT kLookForDialog = WM_APP;
constexpr int kBoxTextId = 0xFFFF;
constexpr UINT kPatienceMs = 10;
constexpr int kPatienceTicks = 100;

Host* g_host = nullptr;

BOOL CALLBACK FindFront(HWND window, LPARAM found) {
    char name[16] = "";
    GetClassNameA(window, name, sizeof name);
    const bool isDialog = std::string_view(name) == "#32770" && SendMessageA(window, PSM_GETTABCONTROL, 0, 0) == 0;
    if (isDialog && IsWindowEnabled(window)) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

BOOL CALLBACK TakeSheet(HWND window, LPARAM found) {
    if (SendMessageA(window, PSM_GETTABCONTROL, 0, 0) != 0) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

HWND FindSheet() {
    HWND sheet = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &TakeSheet, reinterpret_cast<LPARAM>(&sheet));
    return sheet;
}

StoreImage ImageOf(const CMdb& store) {
    StoreImage image;
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        image.records.push_back({record, std::string(record->GetData(), record->GetSize()), record->IsChanged()});
    }
    return image;
}

std::string SettingsOf(const CMdb& store) {
    std::string lines;
    for (const CMdbRecord* record = store.GetFirst(); record != nullptr; record = record->GetNext()) {
        lines += std::string(record->GetField(CMdbRecord::kKeyTag)) + "=" + record->GetField(CMdbRecord::kValueTag) +
                 (record->IsChanged() != 0 ? " *\n" : "\n");
    }
    return lines;
}

Host::Host() {
    g_host = this;
    static const ATOM atom = [] {
        WNDCLASSA hostClass{};
        hostClass.lpfnWndProc = &Host::WindowProc;
        hostClass.lpszClassName = kClass;
        return RegisterClassA(&hostClass);
    }();
    (void)atom;
    m_window =
        CreateWindowExA(0, kClass, "host", WS_POPUP | WS_VISIBLE, 50, 50, 500, 400, nullptr, nullptr, nullptr, nullptr);
    SetActiveWindow(m_window);
    m_timer = SetTimer(nullptr, 0, kPatienceMs, &Host::OnTimer);
    m_hook = SetWindowsHookExA(WH_CBT, &Host::Hook, nullptr, GetCurrentThreadId());
}

Host::~Host() {
    UnhookWindowsHookEx(m_hook);
    KillTimer(nullptr, m_timer);
    if (IsWindow(m_window)) {
        DestroyWindow(m_window);
    }
    g_host = nullptr;
}

int Host::Open(CMdb& store, const std::function<void(HWND sheet)>& user) {
    {
        const SafeAllocations safe;
        m_user = user;
        m_ticks = 0;
    }
    return Tavrikconfig(m_window, "Inst\xE4llningar", &store, 1, 1, 1);
}

LRESULT CALLBACK Host::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (g_host != nullptr) {
        g_host->OnMessage(window, message, lParam);
    }
    try {
        return DefWindowProcA(window, message, wParam, lParam);
    } catch (...) {
        g_host->m_wasUnwound = true;
        return 0;
    }
}

LRESULT CALLBACK Host::Hook(int code, WPARAM wParam, LPARAM lParam) {
    const HWND window = reinterpret_cast<HWND>(wParam);
    if (code == HCBT_CREATEWND) {
        PostMessageA(g_host->m_window, kLookForDialog, 0, 0);
    }
    if (g_host->m_witness && code == HCBT_ACTIVATE) {
        g_host->m_witness(window, WM_ACTIVATE);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Where the host's window is gone, or a button, somebody has to close what is still open.
void CALLBACK Host::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND sheet = FindSheet();
    const bool canGoOn = IsWindow(g_host->m_window) && (sheet == nullptr || GetDlgItem(sheet, IDCANCEL) != nullptr);
    if (canGoOn && ++g_host->m_ticks < kPatienceTicks) {
        return;
    }
    g_host->AnswerDialog();
    if (sheet != nullptr && IsWindow(sheet)) {
        SendMessageA(sheet, WM_CLOSE, 0, 0);
    }
}

void Host::OnMessage(HWND window, UINT message, LPARAM lParam) {
    if (m_witness) {
        m_witness(window, message);
    }
    if (message == kLookForDialog) {
        AnswerDialog();
    } else if (message == WM_ENTERIDLE) {
        const HWND sheet = reinterpret_cast<HWND>(lParam);
        if (m_user) {
            std::exchange(m_user, nullptr)(sheet);
        } else {
            Click(GetDlgItem(sheet, IDCANCEL));
        }
    }
}

void Host::AnswerDialog() {
    HWND front = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &FindFront, reinterpret_cast<LPARAM>(&front));
    if (front == nullptr) {
        return;
    }
    // A box has one button; other dialogs can be cancelled.
    if (GetDlgItem(front, kBoxTextId) != nullptr && GetDlgItem(front, IDCANCEL) == nullptr) {
        ++m_boxes;
        SendMessageA(front, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
        return;
    }
    if (m_dialogUser) {
        m_dialogUser(front);
    } else {
        Click(GetDlgItem(front, IDCANCEL));
    }
}

HWND PageOf(HWND sheet) {
    return reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

// As a click on the tab does it: the tab control gets the focus first.
void ShowPage(HWND sheet, int index) {
    const HWND tabs = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETTABCONTROL, 0, 0));
    SetFocus(tabs);
    SendMessageA(sheet, PSM_SETCURSEL, static_cast<WPARAM>(index), 0);
}

HWND ControlOf(HWND sheet, int id) {
    const HWND page = PageOf(sheet);
    return page != nullptr ? GetDlgItem(page, id) : nullptr;
}

void Type(HWND field, const char* text) {
    if (field == nullptr) {
        return;
    }
    if (HWND inner = GetWindow(field, GW_CHILD)) {
        field = inner;  // The edit of a combo box.
    }
    SetFocus(field);
    SendMessageA(field, EM_SETSEL, 0, -1);
    for (; *text != '\0'; ++text) {
        SendMessageA(field, WM_CHAR, static_cast<unsigned char>(*text), 1);
    }
}

void Click(HWND button) {
    if (button != nullptr) {
        SendMessageA(button, BM_CLICK, 0, 0);
    }
}

// Opens the list, goes one down and takes that entry.
void PickNext(HWND list) {
    if (list == nullptr) {
        return;
    }
    SetFocus(list);
    SendMessageA(list, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageA(list, WM_KEYDOWN, VK_DOWN, 1);
    SendMessageA(list, WM_KEYDOWN, VK_RETURN, 1);
}
