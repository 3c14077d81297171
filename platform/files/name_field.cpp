// The offered names: a drop-down list that belongs to the edit as it would to a combo box.
#include "platform/files/name_field.h"

#include "platform/controls/combo_parts.h"
#include "platform/controls/control_base.h"

#include <algorithm>

namespace platform {

namespace {

constexpr int kMostRows = 8;
constexpr int kNothing = -1;

}  // namespace

NameField::NameField(HWND edit, Source source, std::function<void()> up)
    : edit_(edit),
      former_(reinterpret_cast<WNDPROC>(GetWindowLongPtrA(edit, GWLP_WNDPROC))),
      list_(CreateWindowExA(
          WS_EX_TOOLWINDOW, "ComboLBox", "",
          WS_CHILD | WS_CLIPSIBLINGS | WS_BORDER | WS_VSCROLL | LBS_COMBOBOX | LBS_NOTIFY | LBS_HASSTRINGS, 0, 0, 0, 0,
          GetDesktopWindow(), nullptr, nullptr, edit)),
      source_(std::move(source)),
      up_(std::move(up)) {
    SendMessageA(list_, WM_SETFONT, static_cast<WPARAM>(SendMessageA(edit, WM_GETFONT, 0, 0)), FALSE);
    SetWindowLongPtrA(edit, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&NameField::editProc));
}

NameField::~NameField() {
    DestroyWindow(list_);
    if (IsWindow(edit_)) {
        SetWindowLongPtrA(edit_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(former_));
    }
}

LRESULT CALLBACK NameField::editProc(HWND edit, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* field = reinterpret_cast<NameField*>(GetWindowLongPtrA(edit, GWLP_USERDATA));
    return field->handle(message, wParam, lParam);
}

LRESULT NameField::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
            if (onWmKeyDown(static_cast<UINT>(wParam))) {
                return 0;
            }
            break;
        case WM_SYSKEYDOWN:
            if (wParam == VK_UP) {
                close();
                up_();
                return 0;
            }
            break;
        case WM_GETDLGCODE:
            // Esc closes the list before it closes the dialog.
            if (isOpen() && lParam != 0 && reinterpret_cast<const MSG*>(lParam)->wParam == VK_ESCAPE) {
                return DLGC_WANTMESSAGE;
            }
            break;
        case WM_COMMAND:
            if (HIWORD(wParam) == LBN_SELCHANGE && reinterpret_cast<HWND>(lParam) == list_) {
                pick(static_cast<int>(SendMessageA(list_, LB_GETCURSEL, 0, 0)));
                close();
                return 0;
            }
            break;
        case WM_MOUSEWHEEL:
            return SendMessageA(isOpen() ? list_ : GetParent(edit_), message, wParam, lParam);
        case WM_KILLFOCUS:
        case kComboListDismissed:
            close();
            break;
        default:
            break;
    }
    return CallWindowProcA(former_, edit_, message, wParam, lParam);
}

bool NameField::onWmKeyDown(UINT key) {
    if (key == VK_ESCAPE && isOpen()) {
        close();
        return true;
    }
    if (key != VK_UP && key != VK_DOWN) {
        return false;
    }
    if (!isOpen()) {
        if (key == VK_DOWN) {
            typed_ = windowText(edit_);
            show(source_(typed_));
        }
        return true;
    }
    // Round through all names and, between the last and the first, what was typed.
    const auto count = static_cast<int>(SendMessageA(list_, LB_GETCOUNT, 0, 0));
    const auto current = static_cast<int>(SendMessageA(list_, LB_GETCURSEL, 0, 0));
    const int step = key == VK_DOWN ? 1 : count;
    const int next = (current + 1 + step) % (count + 1) - 1;
    SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(next), 0);
    pick(next);
    return true;
}

void NameField::offer() {
    if (picking_) {
        return;
    }
    typed_ = windowText(edit_);
    show(typed_.empty() ? std::vector<std::string>() : source_(typed_));
}

// A name that stands in the field already need not be offered alone.
void NameField::show(const std::vector<std::string>& names) {
    if (names.empty() || (names.size() == 1 && names.front() == typed_)) {
        close();
        return;
    }
    SendMessageA(list_, LB_RESETCONTENT, 0, 0);
    for (const std::string& name : names) {
        SendMessageA(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    }
    SendMessageA(list_, LB_SETCURSEL, static_cast<WPARAM>(kNothing), 0);
    RECT field;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetWindowRect(edit_, &field);
    GetMonitorInfoA(MonitorFromWindow(edit_, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcWork;
    const int rows = std::min(static_cast<int>(names.size()), kMostRows);
    const int height =
        rows * static_cast<int>(SendMessageA(list_, LB_GETITEMHEIGHT, 0, 0)) + 2 * GetSystemMetrics(SM_CYBORDER);
    const bool above = field.bottom + height > area.bottom && field.top - height >= area.top;
    SetWindowPos(list_, HWND_TOPMOST, field.left, above ? field.top - height : field.bottom, field.right - field.left,
                 height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

void NameField::close() {
    if (isOpen()) {
        ShowWindow(list_, SW_HIDE);
        if (GetCapture() == list_) {
            ReleaseCapture();
        }
    }
}

void NameField::pick(int index) {
    std::string text = typed_;
    if (index != kNothing) {
        text.resize(static_cast<std::size_t>(
            std::max<LRESULT>(SendMessageA(list_, LB_GETTEXTLEN, static_cast<WPARAM>(index), 0), 0)));
        SendMessageA(list_, LB_GETTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    }
    picking_ = true;
    replaceText(text);
    picking_ = false;
}

void NameField::setText(const std::string& text) {
    close();
    setting_ = true;
    replaceText(text);
    setting_ = false;
}

void NameField::replaceText(const std::string& text) {
    SetWindowTextA(edit_, text.c_str());
    const auto end = static_cast<WPARAM>(text.size());
    SendMessageA(edit_, EM_SETSEL, end, static_cast<LPARAM>(end));
}

}  // namespace platform
