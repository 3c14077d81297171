#include "framework/sheet_view.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include "framework/module_state.h"
#include "framework/monitor.h"

namespace {

constexpr int kLine = 14;       // Dialog units: what an arrow of a bar scrolls by.
constexpr int kLabelLines = 4;  // The width of a label, in such lines.
constexpr int kWheelLines = 3;
constexpr int kWheelStep = 120;
constexpr int kFirstBarId = 0x3025;
constexpr UINT kSizeOnly = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE;
constexpr UINT kMoveOnly = SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;

CRect PlaceIn(HWND parent, HWND window) {
    CRect place;
    ::GetWindowRect(window, place);
    ::MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
    return place;
}

CSize ClientSize(HWND window) {
    CRect client;
    ::GetClientRect(window, client);
    return client.Size();
}

bool IsListUnder(const MSG& wheel) {
    std::array<char, sizeof WC_LISTVIEWA + 1> name{};
    ::GetClassNameA(wheel.hwnd, name.data(), static_cast<int>(name.size()));
    CRect place;
    ::GetWindowRect(wheel.hwnd, place);
    return std::strcmp(name.data(), WC_LISTVIEWA) == 0 &&
           place.PtInRect({static_cast<short>(LOWORD(wheel.lParam)), static_cast<short>(HIWORD(wheel.lParam))});
}

bool operator==(const SIZE& a, const SIZE& b) {
    return a.cx == b.cx && a.cy == b.cy;
}

}  // namespace

// Null when the host has destroyed it.
HWND AfxSheetView::Tabs() const {
    return reinterpret_cast<HWND>(::SendMessageA(m_sheet, PSM_GETTABCONTROL, 0, 0));
}

HWND AfxSheetView::ActivePage() const {
    return reinterpret_cast<HWND>(::SendMessageA(m_sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
}

void AfxSheetView::Measure() {
    m_client = ClientSize(m_sheet);
    m_tabs = PlaceIn(m_sheet, Tabs()).Size();
    m_page = PageArea().Size();
    std::transform(kButtons.begin(), kButtons.end(), m_buttons.begin(), [&](int id) {
        const HWND button = ::GetDlgItem(m_sheet, id);
        return button != nullptr ? PlaceIn(m_sheet, button).TopLeft() : CPoint();
    });
    m_laid = m_client;
}

// Where pages may stand with their bars, in coordinates of the sheet.
CRect AfxSheetView::PageArea() const {
    const HWND tabs = Tabs();
    CRect area;
    ::GetClientRect(tabs, area);
    ::SendMessageA(tabs, TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&area));
    ::MapWindowPoints(tabs, m_sheet, reinterpret_cast<POINT*>(&area), 2);
    return area;
}

// The tabs get what the client area is larger, or smaller, than the system made it; the buttons keep to its corner.
void AfxSheetView::Lay(CSize client) {
    const CSize former = ClientSize(m_sheet);
    CRect window;
    ::GetWindowRect(m_sheet, window);
    ::SetWindowPos(m_sheet, nullptr, 0, 0, window.Width() + client.cx - former.cx,
                   window.Height() + client.cy - former.cy, kSizeOnly);
    const CSize change(client.cx - m_client.cx, client.cy - m_client.cy);
    ::SetWindowPos(Tabs(), nullptr, 0, 0, m_tabs.cx + change.cx, m_tabs.cy + change.cy, kSizeOnly);
    for (std::size_t i = 0; i < kButtons.size(); ++i) {
        if (const HWND button = ::GetDlgItem(m_sheet, kButtons[i])) {
            ::SetWindowPos(button, nullptr, m_buttons[i].x + change.cx, m_buttons[i].y + change.cy, 0, 0, kMoveOnly);
        }
    }
    m_laid = ClientSize(m_sheet);
}

// Either bar takes room that the other direction may then lack, and a narrower window may have more rows of tabs.
void AfxSheetView::LayWithin(CSize room) {
    const CSize bar(::GetSystemMetrics(SM_CXVSCROLL), ::GetSystemMetrics(SM_CYHSCROLL));
    CSize client(std::min(room.cx, m_client.cx), std::min(room.cy, m_client.cy));
    bool hasAcross = false;
    bool hasDown = false;
    for (bool isSettled = false; !isSettled;) {
        Lay(client);
        const CSize area = PageArea().Size();
        const CSize lack(m_page.cx + (hasDown ? bar.cx : 0) - area.cx, m_page.cy + (hasAcross ? bar.cy : 0) - area.cy);
        const CSize growth(std::clamp<LONG>(lack.cx, 0, room.cx - client.cx),
                           std::clamp<LONG>(lack.cy, 0, room.cy - client.cy));
        const bool needsAcross = hasAcross || lack.cx > growth.cx;
        const bool needsDown = hasDown || lack.cy > growth.cy;
        isSettled = growth == CSize() && needsAcross == hasAcross && needsDown == hasDown;
        client = CSize(client.cx + growth.cx, client.cy + growth.cy);
        hasAcross = needsAcross;
        hasDown = needsDown;
    }
    const CSize area = PageArea().Size();
    m_hidden = CSize(hasAcross ? std::max<LONG>(m_page.cx + (hasDown ? bar.cx : 0) - area.cx, 1) : 0,
                     hasDown ? std::max<LONG>(m_page.cy + (hasAcross ? bar.cy : 0) - area.cy, 1) : 0);
}

void AfxSheetView::Fit() {
    const CSize client = ClientSize(m_sheet);
    // Another size than this view left it is the system's, for its tabs have changed.
    if (!(client == m_laid)) {
        Measure();
    }
    CRect window;
    ::GetWindowRect(m_sheet, window);
    const CSize work = AfxWorkAreaOf(m_sheet).Size();
    const CSize room(work.cx - window.Width() + client.cx, work.cy - window.Height() + client.cy);
    const bool wasCut = m_isCut;
    m_isCut = m_client.cx > room.cx || m_client.cy > room.cy;
    if (!wasCut && !m_isCut) {
        return;
    }
    m_isUsed = true;
    m_hidden = CSize();
    if (m_isCut) {
        LayWithin(room);
    } else {
        Lay(m_client);
    }
    ShowBar(false);
    ShowBar(true);
    if (const HWND page = ActivePage()) {
        Place(page, false);
    }
}

void AfxSheetView::BringOntoScreen() {
    CRect window;
    ::GetWindowRect(m_sheet, window);
    const CRect area = AfxWorkAreaOf(m_sheet);
    const LONG x = std::max(area.left, std::min(window.left, area.right - window.Width()));
    const LONG y = std::max(area.top, std::min(window.top, area.bottom - window.Height()));
    if (x != window.left || y != window.top) {
        ::SetWindowPos(m_sheet, nullptr, x, y, 0, 0, kMoveOnly);
    }
}

// Creates the bar when it is first needed. Without memory for it the focus and the wheel still scroll.
void AfxSheetView::ShowBar(bool isVertical) {
    HWND& bar = isVertical ? m_down : m_across;
    const bool isNeeded = (isVertical ? m_hidden.cy : m_hidden.cx) > 0;
    if (bar == nullptr && isNeeded) {
        bar = ::CreateWindowExA(0, "ScrollBar", "", WS_CHILD | WS_GROUP | (isVertical ? SBS_VERT : SBS_HORZ), 0, 0, 0,
                                0, m_sheet,
                                reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstBarId + (isVertical ? 1 : 0))),
                                AfxGetInstanceHandle(), nullptr);
    }
    if (bar == nullptr) {
        return;
    }
    CRect place = PageArea();
    const int width = m_hidden.cy > 0 ? ::GetSystemMetrics(SM_CXVSCROLL) : 0;
    const int height = m_hidden.cx > 0 ? ::GetSystemMetrics(SM_CYHSCROLL) : 0;
    if (isVertical) {
        place = CRect(place.right - width, place.top, place.right, place.bottom - height);
    } else {
        place = CRect(place.left, place.bottom - height, place.right - width, place.bottom);
    }
    ::SetWindowPos(bar, HWND_TOP, place.left, place.top, place.Width(), place.Height(), SWP_NOACTIVATE);
    ::ShowWindow(bar, isNeeded ? SW_SHOWNA : SW_HIDE);
}

void AfxSheetView::Place(HWND page, bool isNew) {
    if (isNew) {
        m_scrolled.erase(page);
    }
    if (!m_isUsed) {
        return;
    }
    const CRect area = PageArea();
    const CRect down = m_hidden.cy > 0 ? PlaceIn(m_sheet, m_down) : CRect();
    const CRect across = m_hidden.cx > 0 ? PlaceIn(m_sheet, m_across) : CRect();
    ::SetWindowPos(page, nullptr, area.left, area.top, area.Width() - down.Width(), area.Height() - across.Height(),
                   SWP_NOZORDER | SWP_NOACTIVATE);
    ScrollTo(page, m_scrolled[page]);
}

void AfxSheetView::ShowScrolled(HWND page) {
    const CSize view = ClientSize(page);
    const auto show = [](HWND bar, LONG shown, LONG hidden, LONG scrolled) {
        SCROLLINFO info = {};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = static_cast<int>(shown + hidden - 1);
        info.nPage = static_cast<UINT>(shown);
        info.nPos = static_cast<int>(scrolled);
        if (bar != nullptr && hidden > 0) {
            ::SendMessageA(bar, SBM_SETSCROLLINFO, TRUE, reinterpret_cast<LPARAM>(&info));
        }
    };
    show(m_across, view.cx, m_hidden.cx, m_scrolled[page].x);
    show(m_down, view.cy, m_hidden.cy, m_scrolled[page].y);
}

// Moves the page's controls.
void AfxSheetView::ScrollTo(HWND page, CPoint at) {
    at = CPoint(std::clamp<LONG>(at.x, 0, m_hidden.cx), std::clamp<LONG>(at.y, 0, m_hidden.cy));
    const CSize way(at.x - m_scrolled[page].x, at.y - m_scrolled[page].y);
    if (!(way == CSize())) {
        m_scrolled[page] = at;
        std::vector<HWND> controls;
        for (HWND child = ::GetWindow(page, GW_CHILD); child != nullptr; child = ::GetWindow(child, GW_HWNDNEXT)) {
            controls.push_back(child);
        }
        for (const HWND control : controls) {
            const CPoint place = PlaceIn(page, control).TopLeft();
            ::SetWindowPos(control, nullptr, place.x - way.cx, place.y - way.cy, 0, 0, kMoveOnly | SWP_NOREDRAW);
        }
        ::RedrawWindow(page, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
    }
    ShowScrolled(page);
}

void AfxSheetView::FollowFocus(bool isKey) {
    // What a pressed button of the mouse holds stays under the mouse until it is let go.
    if (!m_isCut || ::GetCapture() != nullptr) {
        return;
    }
    const HWND focus = ::GetFocus();
    // What has the focus at first leaves its page at the beginning.
    const bool isNew = m_followed != nullptr && focus != m_followed;
    m_followed = focus;
    if (!isNew && !isKey) {
        return;
    }
    if (const HWND page = ActivePage()) {
        BringIntoView(page, focus);
    }
}

void AfxSheetView::BringIntoView(HWND page, HWND control) {
    if (!m_isCut || !::IsChild(page, control)) {
        return;
    }
    while (::GetParent(control) != page) {
        control = ::GetParent(control);
    }
    CRect place = PlaceIn(page, control);
    const CSize view = ClientSize(page);
    const CSize margin = Line();
    // With the label that stands to the left, where there is room for both.
    const LONG label = std::max(place.left - kLabelLines * margin.cx, -m_scrolled[page].x);
    if (place.right - label + margin.cx <= view.cx) {
        place.left = std::min(place.left, label);
    }
    // How far to scroll. The beginning counts where there is no room for all of it.
    const auto way = [](LONG from, LONG to, LONG room, LONG spare) -> LONG {
        return from < 0 ? from - spare : to > room ? std::min(to - room + spare, from) : 0;
    };
    ScrollTo(page, CPoint(m_scrolled[page].x + way(place.left, place.right, view.cx, margin.cx),
                          m_scrolled[page].y + way(place.top, place.bottom, view.cy, margin.cy)));
}

CSize AfxSheetView::Line() const {
    CRect line(0, 0, kLine, kLine);
    ::MapDialogRect(m_sheet, line);
    return line.Size();
}

bool AfxSheetView::OnScroll(bool isVertical, WPARAM wParam, HWND bar) {
    const HWND page = ActivePage();
    if (bar == nullptr || bar != (isVertical ? m_down : m_across) || page == nullptr) {
        return false;
    }
    CPoint at = m_scrolled[page];
    const CSize view = ClientSize(page);
    LONG& along = isVertical ? at.y : at.x;
    const LONG line = isVertical ? Line().cy : Line().cx;
    const LONG whole = isVertical ? view.cy : view.cx;
    switch (LOWORD(wParam)) {
        case SB_LINEUP:
            along -= line;
            break;
        case SB_LINEDOWN:
            along += line;
            break;
        case SB_PAGEUP:
            along -= whole;
            break;
        case SB_PAGEDOWN:
            along += whole;
            break;
        case SB_THUMBTRACK:
            along = HIWORD(wParam);
            break;
        default:
            return true;
    }
    ScrollTo(page, at);
    return true;
}

// Sideways with Shift, and where there is no other way to go. Before the control with the focus, for a value that
// changes while a page is scrolled would change unseen; an open list has taken the mouse, and a list view keeps the
// wheel.
bool AfxSheetView::OnWheel(const MSG& message) {
    const HWND page = ActivePage();
    if (!m_isCut || page == nullptr || ::GetCapture() != nullptr || IsListUnder(message)) {
        return false;
    }
    const LONG turned = GET_WHEEL_DELTA_WPARAM(message.wParam);
    const bool isSideways = (LOWORD(message.wParam) & MK_SHIFT) != 0 || m_hidden.cy == 0;
    CPoint at = m_scrolled[page];
    (isSideways ? at.x : at.y) -= turned * kWheelLines * (isSideways ? Line().cx : Line().cy) / kWheelStep;
    ScrollTo(page, at);
    return true;
}
