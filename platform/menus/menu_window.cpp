// Layout and painting of popup menus in the classic style.
#include "platform/menus/menu_window.h"

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

#include <algorithm>

namespace platform {
namespace {

constexpr const char* kMenuClass = "#32768";
// Pixels at 96 dots an inch.
constexpr int kRowPadding = 4;   // Above and below a text, in all.
constexpr int kTextIndent = 18;  // Room for the check marks that other menus have.
constexpr int kTextSpare = 18;   // Behind the longest text.
constexpr int kSeparatorHeight = 9;

HFONT menuFont() {
    return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

}  // namespace

void registerMenuClass() {
    WNDCLASSA windowClass{};
    windowClass.style = CS_GLOBALCLASS;
    windowClass.lpfnWndProc = MenuWindow::windowProc;
    windowClass.cbWndExtra = kControlExtraBytes;
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kMenuClass;
    RegisterClassA(&windowClass);
}

LRESULT CALLBACK MenuWindow::windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto* menu = reinterpret_cast<const MenuWindow*>(GetWindowLongPtrA(window, 0));
    switch (message) {
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            if (menu) {
                menu->onWmPaint(reinterpret_cast<HDC>(wParam));
                return 0;
            }
            break;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        default:
            break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

MenuWindow::MenuWindow(const MenuItems& items, HWND owner)
    : items_(items),
      window_(CreateWindowExA(WS_EX_TOPMOST, kMenuClass, "", WS_POPUP | WS_CLIPSIBLINGS, 0, 0, 0, 0, owner, nullptr,
                              nullptr, nullptr)) {
    if (window_) {
        SetWindowLongPtrA(window_, 0, reinterpret_cast<LONG_PTR>(this));
        measure();
    }
}

MenuWindow::~MenuWindow() {
    if (IsWindow(window_)) {
        SetWindowLongPtrA(window_, 0, 0);
        DestroyWindow(window_);
    }
}

void MenuWindow::measure() {
    const HDC dc = GetDC(window_);
    TEXTMETRICA metrics;
    int width = 0;
    {
        const SelectedFont font(dc, menuFont());
        GetTextMetricsA(dc, &metrics);
        for (const MenuItem& item : items_) {
            RECT text{};
            DrawTextA(dc, item.text.c_str(), -1, &text, DT_SINGLELINE | DT_CALCRECT);
            width = std::max(width, static_cast<int>(text.right));
        }
    }
    ReleaseDC(window_, dc);
    const int frame = 3 * lineWidth();  // The raised edge and one line inside it.
    const int right = frame + toScale(kTextIndent) + width + toScale(kTextSpare);
    int top = frame;
    for (const MenuItem& item : items_) {
        const int height = item.isSeparator() ? toScale(kSeparatorHeight) : metrics.tmHeight + toScale(kRowPadding);
        places_.push_back({frame, top, right, top + height});
        top += height;
    }
    size_ = {right + frame, top + frame};
}

void MenuWindow::show(POINT at) const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoA(MonitorFromPoint(at, MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& area = monitor.rcMonitor;
    const LONG left = std::max(area.left, std::min(at.x, area.right - size_.cx));
    const LONG top = std::max(area.top, std::min(at.y, area.bottom - size_.cy));
    SetWindowPos(window_, HWND_TOPMOST, left, top, size_.cx, size_.cy, SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

bool MenuWindow::contains(POINT screen) const {
    RECT window;
    GetWindowRect(window_, &window);
    return PtInRect(&window, screen) != FALSE;
}

int MenuWindow::itemAt(POINT screen) const {
    ScreenToClient(window_, &screen);
    for (std::size_t index = 0; index < places_.size(); ++index) {
        if (PtInRect(&places_[index], screen)) {
            return static_cast<int>(index);
        }
    }
    return kNone;
}

void MenuWindow::select(int index) {
    for (const int changed : {selected_, index}) {
        if (changed != kNone) {
            InvalidateRect(window_, &places_[static_cast<std::size_t>(changed)], FALSE);
        }
    }
    selected_ = index;
}

void MenuWindow::onWmPaint(HDC given) const {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void MenuWindow::paint(HDC dc) const {
    RECT client;
    GetClientRect(window_, &client);
    FillRect(dc, &client, GetSysColorBrush(COLOR_MENU));
    DrawEdge(dc, &client, EDGE_RAISED, BF_RECT);
    const SelectedFont font(dc, menuFont());
    for (std::size_t index = 0; index < places_.size(); ++index) {
        paintItem(dc, items_[index], places_[index], static_cast<int>(index) == selected_);
    }
}

void MenuWindow::paintItem(HDC dc, const MenuItem& item, RECT rect, bool selected) const {
    if (item.isSeparator()) {
        rect = {rect.left + lineWidth(), (rect.top + rect.bottom) / 2 - lineWidth(), rect.right - lineWidth(),
                rect.bottom};
        DrawEdge(dc, &rect, EDGE_ETCHED, BF_TOP);
        return;
    }
    if (selected) {
        FillRect(dc, &rect, GetSysColorBrush(COLOR_HIGHLIGHT));
    }
    rect.left += toScale(kTextIndent);
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER;
    if (item.canBeChosen() || !selected) {
        SetTextColor(dc, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_MENUTEXT));
        drawCaption(dc, item.text, rect, kFormat, item.canBeChosen());
        return;
    }
    // Engraving would not be legible on the colour of the selection.
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    DrawTextA(dc, item.text.c_str(), -1, &rect, kFormat);
}

}  // namespace platform
