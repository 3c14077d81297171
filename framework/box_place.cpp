// The box is moved when it is about to be activated: it has its size by then.

#include "framework/box_place.h"

#include <algorithm>
#include <array>
#include <cstring>

#include "framework/monitor.h"
#include "framework/property_page.h"

namespace {

// Room for a title bar that a window manager puts above the box.
constexpr int kGap = 32;

AfxBoxBeside* innermost = nullptr;

bool IsDialog(HWND window) {
    std::array<char, 8> name{};
    return ::GetClassNameA(window, name.data(), static_cast<int>(name.size())) != 0 &&
           std::strcmp(name.data(), "#32770") == 0;
}

bool Contains(const RECT& outer, const RECT& inner) {
    RECT common{};
    return ::IntersectRect(&common, &outer, &inner) && ::EqualRect(&common, &inner);
}

// Below the control, above it, to its right or to its left; false when the box has no room there.
bool PlaceBeside(const RECT& control, const RECT& area, RECT& box) {
    const LONG width = box.right - box.left;
    const LONG height = box.bottom - box.top;
    const LONG left = std::clamp(control.left, area.left, std::max(area.left, area.right - width));
    const LONG top = std::clamp(control.top, area.top, std::max(area.top, area.bottom - height));
    const POINT places[] = {{left, control.bottom + kGap},
                            {left, control.top - kGap - height},
                            {control.right + kGap, top},
                            {control.left - kGap - width, top}};
    for (const POINT at : places) {
        const RECT place = {at.x, at.y, at.x + width, at.y + height};
        if (Contains(area, place)) {
            box = place;
            return true;
        }
    }
    return false;
}

}  // namespace

AfxBoxBeside::AfxBoxBeside(HWND control) : m_control(control), m_outer(innermost) {
    innermost = this;
    for (HWND window = control; window != nullptr; window = ::GetParent(window)) {
        if (auto* page = DYNAMIC_DOWNCAST(CPropertyPage, CWnd::FromHandlePermanent(window))) {
            page->BringIntoView(control);
            break;
        }
    }
    if (control != nullptr) {
        m_hook = ::SetWindowsHookExA(WH_CBT, HookProc, nullptr, ::GetCurrentThreadId());
    }
}

AfxBoxBeside::~AfxBoxBeside() {
    if (m_hook != nullptr) {
        ::UnhookWindowsHookEx(m_hook);
    }
    innermost = m_outer;
}

LRESULT CALLBACK AfxBoxBeside::HookProc(int code, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = ::CallNextHookEx(nullptr, code, wParam, lParam);
    if (code == HCBT_ACTIVATE && innermost != nullptr) {
        innermost->Place(reinterpret_cast<HWND>(wParam));
    }
    return result;
}

void AfxBoxBeside::Place(HWND box) {
    if (m_hook == nullptr || !IsDialog(box) || box == ::GetAncestor(m_control, GA_ROOT)) {
        return;
    }
    ::UnhookWindowsHookEx(m_hook);
    m_hook = nullptr;
    RECT control{};
    RECT place{};
    RECT common{};
    const bool areKnown = ::GetWindowRect(m_control, &control) && ::GetWindowRect(box, &place);
    const RECT area = AfxWorkAreaOf(m_control);
    if (!areKnown || !Contains(area, control) || !::IntersectRect(&common, &control, &place) ||
        !PlaceBeside(control, area, place)) {
        return;
    }
    ::SetWindowPos(box, nullptr, place.left, place.top, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}
