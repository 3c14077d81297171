// The tab control's items, selection, input and geometry.
#include "platform/controls/tab_control.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

namespace platform {
namespace {

// All in pixels.
// Pixels at 96 dots an inch.
constexpr int kRowLeft = 2;  // The selected tab grows into this and the next margin.
constexpr int kRowTop = 2;
constexpr int kPaddingX = 6;       // Between a tab's side and its caption.
constexpr int kPaddingY = 5;       // Above and below the caption together.
constexpr int kMinimumWidth = 54;  // Of a tab.
constexpr int kBodyMargin = 4;     // From the control's sides to the display area.
constexpr int kBodyEdge = 2;       // From the tabs to the display area.

}  // namespace

LRESULT TabControl::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
        case WM_CREATE:
            // The pages lie above the control as its siblings, so it never draws over them.
            SetWindowLongA(window_, GWL_STYLE, static_cast<LONG>(styleOf(window_) | WS_CLIPSIBLINGS));
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_NCHITTEST:
            return onWmNcHitTest(point);
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_ERASEBKGND: {
            RECT client;
            GetClientRect(window_, &client);
            FillRect(reinterpret_cast<HDC>(wParam), &client, GetSysColorBrush(COLOR_BTNFACE));
            return TRUE;
        }
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SIZE:
            laidOut_ = false;
            return 0;
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            invalidateRows();
            return 0;
        case WM_LBUTTONDOWN:
            onWmLButtonDown(point);
            return 0;
        case WM_LBUTTONUP:
            notify(NM_CLICK);
            return 0;
        case WM_RBUTTONUP:
            notify(NM_RCLICK);
            return 0;
        case WM_KEYDOWN:
            onWmKeyDown(wParam, lParam);
            return 0;
        default:
            return handleTabMessage(message, wParam, lParam);
    }
}

LRESULT TabControl::handleTabMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const int index = static_cast<int>(wParam);
    switch (message) {
        case TCM_GETITEMCOUNT:
            return count();
        case TCM_GETITEMA:
            return onTcmGetItem(index, *reinterpret_cast<TCITEMA*>(lParam));
        case TCM_INSERTITEMA:
            return onTcmInsertItem(index, *reinterpret_cast<const TCITEMA*>(lParam));
        case TCM_DELETEITEM:
            return onTcmDeleteItem(index);
        case TCM_GETITEMRECT:
            return onTcmGetItemRect(index, *reinterpret_cast<RECT*>(lParam));
        case TCM_GETCURSEL:
            return selected_;
        case TCM_SETCURSEL:
            return onTcmSetCurSel(index);
        case TCM_SETCURFOCUS:
            selectByUser(index);
            return 0;
        case TCM_ADJUSTRECT:
            onTcmAdjustRect(wParam != 0, *reinterpret_cast<RECT*>(lParam));
            return 0;
        case TCM_GETROWCOUNT:
            layout();
            return rows_;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT TabControl::notify(UINT code) const {
    NMHDR header{};
    header.hwndFrom = window_;
    header.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    header.code = code;
    return SendMessageA(GetParent(window_), WM_NOTIFY, header.idFrom, reinterpret_cast<LPARAM>(&header));
}

void TabControl::onWmSetFont(HFONT font, bool redraw) {
    font_ = font;
    laidOut_ = false;
    if (redraw) {
        InvalidateRect(window_, nullptr, TRUE);
    }
}

// Beside the tabs the control lets the mouse through to the page, which is its sibling.
LRESULT TabControl::onWmNcHitTest(POINT screen) {
    POINT point = screen;
    ScreenToClient(window_, &point);
    layout();
    return itemAt(point) >= 0 ? HTCLIENT : HTTRANSPARENT;
}

void TabControl::onWmLButtonDown(POINT point) {
    const HWND window = window_;
    SetFocus(window);
    if (IsWindow(window)) {
        layout();
        selectByUser(itemAt(point));
    }
}

void TabControl::onWmKeyDown(WPARAM key, LPARAM flags) {
    const HWND window = window_;
    NMTCKEYDOWN notification{};
    notification.hdr.hwndFrom = window;
    notification.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window));
    notification.hdr.code = TCN_KEYDOWN;
    notification.wVKey = static_cast<WORD>(key);
    notification.flags = static_cast<UINT>(flags);
    SendMessageA(GetParent(window), WM_NOTIFY, notification.hdr.idFrom, reinterpret_cast<LPARAM>(&notification));
    if (!IsWindow(window)) {
        return;
    }
    if (key == VK_LEFT) {
        selectByUser(selected_ - 1);
    } else if (key == VK_RIGHT) {
        selectByUser(selected_ + 1);
    }
}

void TabControl::selectByUser(int index) {
    const HWND window = window_;
    if (!isItem(index) || index == selected_ || notify(TCN_SELCHANGING)) {
        return;
    }
    // The parent may have closed the window or removed items while it was asked.
    if (!IsWindow(window) || !isItem(index)) {
        return;
    }
    onTcmSetCurSel(index);
    notify(TCN_SELCHANGE);
}

void TabControl::itemsChanged() {
    laidOut_ = false;
    InvalidateRect(window_, nullptr, TRUE);
}

int TabControl::onTcmInsertItem(int index, const TCITEMA& item) {
    if (index < 0) {
        return -1;
    }
    index = std::min(index, count());
    Item inserted;
    if ((item.mask & TCIF_TEXT) && item.pszText) {
        inserted.text = item.pszText;
    }
    items_.insert(items_.begin() + index, std::move(inserted));
    if (count() == 1) {
        selected_ = 0;
    } else if (index <= selected_) {
        ++selected_;
    }
    itemsChanged();
    return index;
}

bool TabControl::onTcmGetItem(int index, TCITEMA& item) const {
    if (!isItem(index)) {
        return false;
    }
    const Item& found = items_[static_cast<std::size_t>(index)];
    if ((item.mask & TCIF_TEXT) && item.pszText && item.cchTextMax > 0) {
        const std::size_t length = std::min(found.text.size(), static_cast<std::size_t>(item.cchTextMax - 1));
        std::memcpy(item.pszText, found.text.data(), length);
        item.pszText[length] = '\0';
    }
    return true;
}

bool TabControl::onTcmDeleteItem(int index) {
    if (!isItem(index)) {
        return false;
    }
    items_.erase(items_.begin() + index);
    if (index == selected_) {
        selected_ = -1;
    } else if (index < selected_) {
        --selected_;
    }
    itemsChanged();
    return true;
}

bool TabControl::onTcmGetItemRect(int index, RECT& rect) {
    if (!isItem(index)) {
        return false;
    }
    layout();
    rect = itemRect(index);
    return true;
}

int TabControl::onTcmSetCurSel(int index) {
    if (index < -1 || index >= count()) {
        return -1;
    }
    // The rows stand in the order that the selections so far have given them.
    layout();
    const int before = selected_;
    selected_ = index;
    bringRowForward(index);
    invalidateRows();
    return before;
}

void TabControl::onTcmAdjustRect(bool larger, RECT& rect) {
    layout();
    const int sign = larger ? -1 : 1;
    rect.left += sign * toScale(kBodyMargin);
    rect.right -= sign * toScale(kBodyMargin);
    rect.top += sign * (rowsBottom() + toScale(kBodyEdge));
    rect.bottom -= sign * toScale(kBodyMargin);
}

// Everything is measured once after a change, not at every insertion.
void TabControl::layout() {
    if (laidOut_) {
        return;
    }
    laidOut_ = true;
    measure();
    breakIntoRows();
    if (rows_ > 1) {
        evenRows();
    }
    bringRowForward(selected_);
}

void TabControl::measure() {
    const WindowDc dc(window_);
    {
        const SelectedFont selected(dc, font_);
        TEXTMETRICA metrics{};
        GetTextMetricsA(dc, &metrics);
        textHeight_ = metrics.tmHeight;
        for (Item& item : items_) {
            SIZE size{};
            GetTextExtentPoint32A(dc, item.text.data(), static_cast<int>(item.text.size()), &size);
            item.width = std::max(toScale(kMinimumWidth), size.cx + 2 * toScale(kPaddingX));
        }
    }
}

void TabControl::breakIntoRows() {
    const bool breaks = (styleOf(window_) & TCS_MULTILINE) != 0;
    int left = 0;
    rows_ = items_.empty() ? 0 : 1;
    for (Item& item : items_) {
        if (breaks && left > 0 && left + item.width > rowLength()) {
            ++rows_;
            left = 0;
        }
        item.left = left;
        item.row = rows_ - 1;
        left += item.width;
    }
}

// Spreads the tabs over the rows by their number; what does not divide goes to the first rows.
void TabControl::evenRows() {
    const std::size_t rows = static_cast<std::size_t>(rows_);
    std::span<Item> rest(items_);
    for (std::size_t row = 0; row < rows; ++row) {
        const std::size_t tabs = items_.size() / rows + (row < items_.size() % rows ? 1 : 0);
        for (Item& item : rest.first(tabs)) {
            item.row = static_cast<int>(row);
        }
        fillRow(rest.first(tabs));
        rest = rest.subspan(tabs);
    }
}

// All tabs grow alike, and the last one takes the odd pixels; they shrink when an evened row is too long.
void TabControl::fillRow(std::span<Item> row) const {
    int spare = rowLength();
    for (const Item& item : row) {
        spare -= item.width;
    }
    const int share = spare / static_cast<int>(row.size());
    int left = 0;
    for (Item& item : row) {
        item.left = left;
        item.width += share;
        left += item.width;
    }
    row.back().width += rowLength() - left;
}

// The row of the selected tab stands next to the page; those that were in front of it move away by one.
void TabControl::bringRowForward(int index) {
    if (!isItem(index)) {
        return;
    }
    const int chosen = items_[static_cast<std::size_t>(index)].row;
    for (Item& item : items_) {
        if (item.row == chosen) {
            item.row = rows_ - 1;
        } else if (item.row > chosen) {
            --item.row;
        }
    }
}

int TabControl::rowLength() const {
    RECT client;
    GetClientRect(window_, &client);
    return client.right - 2 * toScale(kRowLeft);
}

int TabControl::rowHeight() const {
    return textHeight_ + toScale(kPaddingY);
}

int TabControl::rowsBottom() const {
    return toScale(kRowTop) + rows_ * rowHeight();
}

RECT TabControl::itemRect(int index) const {
    const Item& item = items_[static_cast<std::size_t>(index)];
    const LONG left = toScale(kRowLeft) + item.left;
    const LONG top = toScale(kRowTop) + item.row * rowHeight();
    return {left, top, left + item.width, top + rowHeight()};
}

int TabControl::itemAt(POINT point) const {
    for (int i = 0; i < count(); ++i) {
        const RECT rect = itemRect(i);
        if (PtInRect(&rect, point)) {
            return i;
        }
    }
    return -1;
}

void TabControl::invalidateRows() const {
    RECT rows;
    GetClientRect(window_, &rows);
    rows.bottom = rowsBottom() + toScale(kBodyEdge);
    InvalidateRect(window_, &rows, TRUE);
}

void registerTabClass() {
    registerControlClass<TabControl>(WC_TABCONTROLA, CS_HREDRAW | CS_VREDRAW);
}

}  // namespace platform

// The classes are always registered; a program only states what it is going to use.
BOOL InitCommonControlsEx(const INITCOMMONCONTROLSEX* controls) {
    return controls && controls->dwSize == sizeof(INITCOMMONCONTROLSEX);
}
