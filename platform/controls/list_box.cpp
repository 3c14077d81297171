// Messages, entries and selection of list boxes.
#include "platform/controls/list_box.h"

#include "platform/controls/control_base.h"
#include "platform/window/builtin_classes.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace platform {
namespace {

constexpr int kHighestItem = 255;

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

}  // namespace

void registerListBoxClasses() {
    registerControlClass<ListBox>("ListBox", 0);
    registerControlClass<ListBox>("ComboLBox", CS_SAVEBITS);
}

bool ListBox::has(DWORD style) const {
    return (styleOf(window_) & style) != 0;
}

void ListBox::notify(UINT code) {
    if (has(LBS_NOTIFY)) {
        SendMessageA(owner(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window_), code), reinterpret_cast<LPARAM>(window_));
    }
}

LRESULT ListBox::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND window = window_;
    const HWND combo = combo_;
    try {
        return answer(message, wParam, lParam);
    } catch (const std::bad_alloc&) {
        // A list that drops down is no child of its combo box, which is to pass this on.
        if (combo && message != WM_PAINT && message != WM_PRINTCLIENT) {
            SetLastError(ERROR_NOT_ENOUGH_MEMORY);
            SendMessageA(combo, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(window), LOWORD(LBN_ERRSPACE)),
                         reinterpret_cast<LPARAM>(window));
        }
        throw;
    }
}

LRESULT ListBox::answer(UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (onListMessage(message, wParam, lParam, result) ||
        onItemMessage(message, static_cast<int>(wParam), lParam, result) || onInput(message, wParam, lParam, result)) {
        return result;
    }
    switch (message) {
        case WM_CREATE:
            onWmCreate(*reinterpret_cast<const CREATESTRUCTA*>(lParam));
            return 0;
        case WM_DESTROY:
            onWmDestroy();
            return 0;
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SIZE:
            onWmSize();
            return 0;
        case WM_WINDOWPOSCHANGED:
            onWmWindowPosChanged(*reinterpret_cast<const WINDOWPOS*>(lParam));
            return DefWindowProcA(window_, message, wParam, lParam);
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | DLGC_WANTCHARS;
        case WM_ENABLE:
            InvalidateRect(window_, nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

// Focus, keys and mouse. False for any other message.
bool ListBox::onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            onWmFocus(message == WM_SETFOCUS);
            return true;
        case WM_MOUSEACTIVATE:
            result = combo_ ? MA_NOACTIVATE : DefWindowProcA(window_, message, wParam, lParam);
            return true;
        case WM_LBUTTONDOWN:
            onWmLButtonDown(pointOf(lParam));
            return true;
        case WM_LBUTTONDBLCLK:
            onWmLButtonDblClk(pointOf(lParam));
            return true;
        case WM_MOUSEMOVE:
            onWmMouseMove(pointOf(lParam));
            return true;
        case WM_LBUTTONUP:
            onWmLButtonUp(pointOf(lParam));
            return true;
        case WM_CAPTURECHANGED:
            onWmCaptureChanged();
            return true;
        case WM_MOUSEWHEEL:
            onWmMouseWheel(GET_WHEEL_DELTA_WPARAM(wParam));
            return true;
        case WM_TIMER:
            onWmTimer();
            return true;
        case WM_KEYDOWN:
            result = onWmKeyDown(static_cast<UINT>(wParam));
            return true;
        case WM_CHAR:
            onWmChar(static_cast<char>(wParam));
            return true;
        default:
            return false;
    }
}

// Messages about the list as a whole. False for any other.
bool ListBox::onListMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case LB_ADDSTRING:
            result = onLbAddString(lParam);
            return true;
        case LB_RESETCONTENT:
            onLbResetContent();
            return true;
        case LB_GETCOUNT:
            result = items_.count();
            return true;
        case LB_GETCURSEL:
            result = current_;
            return true;
        case LB_FINDSTRING:
            result = find(static_cast<int>(wParam), lParam, false);
            return true;
        case LB_FINDSTRINGEXACT:
            result = find(static_cast<int>(wParam), lParam, true);
            return true;
        case LB_SELECTSTRING:
            result = onLbSelectString(static_cast<int>(wParam), lParam);
            return true;
        case LB_GETTOPINDEX:
            result = top_;
            return true;
        case LB_GETITEMHEIGHT:
            result = itemHeight_;
            return true;
        case LB_SETITEMHEIGHT:
            result = onLbSetItemHeight(static_cast<int>(lParam));
            return true;
        default:
            return false;
    }
}

// Messages about one entry, whose index is in wParam.
bool ListBox::onItemMessage(UINT message, int index, LPARAM lParam, LRESULT& result) {
    const bool exists = items_.has(index);
    result = LB_ERR;
    switch (message) {
        case LB_INSERTSTRING:
            result = onLbInsertString(index, lParam);
            return true;
        case LB_DELETESTRING:
            result = onLbDeleteString(index);
            return true;
        case LB_SETCURSEL:
            result = onLbSetCurSel(index);
            return true;
        case LB_GETTEXT:
            result = onLbGetText(index, lParam);
            return true;
        case LB_GETTEXTLEN:
            if (exists) {
                result = hasStrings() ? static_cast<LRESULT>(items_.at(index).text.size())
                                      : static_cast<LRESULT>(sizeof(ULONG_PTR));
            }
            return true;
        case LB_GETITEMDATA:
            if (exists) {
                result = static_cast<LRESULT>(items_.at(index).data);
            }
            return true;
        case LB_SETITEMDATA:
            if (exists) {
                items_.at(index).data = static_cast<ULONG_PTR>(lParam);
                result = TRUE;
            }
            return true;
        case LB_SETTOPINDEX:
            setTop(index);
            result = LB_OKAY;
            return true;
        case LB_SETCARETINDEX:
            result = onLbSetCaretIndex(index);
            return true;
        case LB_GETITEMRECT:
            if (exists && lParam) {
                *reinterpret_cast<RECT*>(lParam) = rowRect(index);
                result = TRUE;
            }
            return true;
        default:
            return false;
    }
}

// A drop-down list is given its combo box as the creation parameter.
void ListBox::onWmCreate(const CREATESTRUCTA& create) {
    if (has(LBS_COMBOBOX)) {
        combo_ = static_cast<HWND>(create.lpCreateParams);
    }
    onWmSetFont(nullptr, false);
    if (isOwnerDrawn()) {
        MEASUREITEMSTRUCT measure{};
        measure.CtlType = ODT_LISTBOX;
        measure.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
        measure.itemHeight = static_cast<UINT>(itemHeight_);
        SendMessageA(owner(), WM_MEASUREITEM, measure.CtlID, reinterpret_cast<LPARAM>(&measure));
        itemHeight_ = std::max(static_cast<int>(measure.itemHeight), 1);
    }
}

void ListBox::onWmDestroy() {
    notifyDeletions();
}

void ListBox::onWmSetFont(HFONT font, bool redraw) {
    font_ = font;
    if (!isOwnerDrawn() || itemHeight_ <= 1) {
        const WindowDc dc(window_);
        TEXTMETRICA metrics;
        {
            const SelectedFont selected(dc, font_);
            GetTextMetricsA(dc, &metrics);
        }
        itemHeight_ = std::max(static_cast<int>(metrics.tmHeight), 1);
    }
    onWmSize();
    if (redraw) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

void ListBox::onWmSize() {
    applyIntegralHeight();
    setTop(top_);
    contentChanged();
}

// The list shrinks to whole rows; the WM_SIZE that follows finds nothing to do.
void ListBox::applyIntegralHeight() {
    RECT client;
    RECT window;
    GetClientRect(window_, &client);
    GetWindowRect(window_, &window);
    const int excess = client.bottom % itemHeight_;
    if (!has(LBS_NOINTEGRALHEIGHT) && client.bottom > itemHeight_ && excess > 0) {
        SetWindowPos(window_, nullptr, 0, 0, window.right - window.left, window.bottom - window.top - excess,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void ListBox::onWmWindowPosChanged(const WINDOWPOS& position) {
    if (position.flags & SWP_SHOWWINDOW) {
        restored_ = current_;
    }
}

void ListBox::contentChanged() {
    RECT client;
    GetClientRect(window_, &client);
    const bool wanted = has(WS_VSCROLL);
    bar_.layout(client, wanted ? items_.count() : 0, page(), top_, wanted && has(LBS_DISABLENOSCROLL));
    InvalidateRect(window_, nullptr, FALSE);
}

int ListBox::page() const {
    RECT client;
    GetClientRect(window_, &client);
    return std::max(static_cast<int>(client.bottom) / itemHeight_, 1);
}

RECT ListBox::rowsRect() const {
    RECT rows;
    GetClientRect(window_, &rows);
    if (bar_.isShown()) {
        rows.right = bar_.rect().left;
    }
    return rows;
}

RECT ListBox::rowRect(int index) const {
    RECT row = rowsRect();
    row.top = (index - top_) * itemHeight_;
    row.bottom = row.top + itemHeight_;
    return row;
}

int ListBox::rowAt(POINT at) const {
    const RECT rows = rowsRect();
    const int index = top_ + at.y / itemHeight_;
    return PtInRect(&rows, at) && items_.has(index) ? index : kNone;
}

void ListBox::setTop(int top) {
    const int last = std::max(items_.count() - page(), 0);
    const int wanted = std::clamp(top, 0, last);
    if (wanted != top_) {
        top_ = wanted;
        contentChanged();
    }
}

void ListBox::showRow(int index) {
    if (index < top_) {
        setTop(index);
    } else if (index >= top_ + page()) {
        setTop(index - page() + 1);
    }
}

void ListBox::invalidateRow(int index) {
    if (index >= top_ && items_.has(index)) {
        const RECT row = rowRect(index);
        InvalidateRect(window_, &row, FALSE);
    }
}

bool ListBox::select(int index) {
    const int before = std::exchange(current_, index);
    return before == index || (drawChange(before) && drawChange(index));
}

void ListBox::setCaret(int index) {
    const int before = std::exchange(caret_, index);
    showRow(index);
    if (focused_) {  // Without the focus the caret is not seen.
        invalidateRow(before);
        invalidateRow(index);
    }
}

// As the user moves: what leaves the sight by it is drawn as it changes, before the list scrolls.
bool ListBox::moveTo(int index) {
    if (!select(index)) {
        return false;
    }
    setCaret(index);
    return true;
}

bool ListBox::restoreSelection() {
    if (!items_.has(restored_)) {
        return select(kNone);
    }
    setCaret(restored_);
    return select(restored_);
}

int ListBox::find(int after, LPARAM wanted, bool whole) const {
    const auto text = reinterpret_cast<LPCSTR>(wanted);
    return !hasStrings() ? items_.findData(after, static_cast<ULONG_PTR>(wanted))
           : whole       ? items_.findExact(after, text)
                         : items_.findPrefix(after, text);
}

// As observed: of owner-drawn entries always, of others only where they have data.
bool ListBox::notifyDeletion(int index) {
    if (!isOwnerDrawn() && items_.at(index).data == 0) {
        return true;
    }
    const HWND window = window_;
    DELETEITEMSTRUCT deletion{};
    deletion.CtlType = ODT_LISTBOX;
    deletion.CtlID = static_cast<UINT>(GetDlgCtrlID(window));
    deletion.itemID = static_cast<UINT>(index);
    deletion.hwndItem = window;
    deletion.itemData = items_.at(index).data;
    SendMessageA(owner(), WM_DELETEITEM, deletion.CtlID, reinterpret_cast<LPARAM>(&deletion));
    return IsWindow(window) != FALSE;
}

bool ListBox::notifyDeletions() {
    for (int index = items_.count() - 1; index >= 0; --index) {
        if (items_.has(index) && !notifyDeletion(index)) {
            return false;
        }
    }
    return true;
}

LRESULT ListBox::onLbAddString(LPARAM item) {
    const bool sorted = has(LBS_SORT) && hasStrings() && item;
    return onLbInsertString(sorted ? items_.sortedPlace(reinterpret_cast<LPCSTR>(item)) : -1, item);
}

LRESULT ListBox::onLbInsertString(int index, LPARAM item) {
    if (index == -1) {
        index = items_.count();
    }
    if (index < 0 || index > items_.count()) {
        return LB_ERR;
    }
    const auto text = reinterpret_cast<LPCSTR>(item);
    items_.insert(index, hasStrings() && text ? text : "");
    if (!hasStrings()) {
        items_.at(index).data = static_cast<ULONG_PTR>(item);
    }
    if (current_ != kNone && index <= current_) {
        ++current_;
    }
    contentChanged();
    return index;
}

LRESULT ListBox::onLbDeleteString(int index) {
    if (!items_.has(index) || !notifyDeletion(index) || !items_.has(index)) {
        return LB_ERR;
    }
    items_.remove(index);
    if (index == current_) {
        current_ = kNone;
    } else if (index < current_) {
        --current_;
    }
    caret_ = std::clamp(caret_, 0, std::max(items_.count() - 1, 0));
    setTop(top_);
    contentChanged();
    return items_.count();
}

void ListBox::onLbResetContent() {
    if (!notifyDeletions()) {
        return;
    }
    items_.clear();
    current_ = kNone;
    caret_ = 0;
    top_ = 0;
    contentChanged();
}

LRESULT ListBox::onLbSetCurSel(int index) {
    if (items_.has(index)) {
        setCaret(index);
        select(index);
        return index;
    }
    if (index == -1) {
        select(kNone);
    }
    return LB_ERR;
}

LRESULT ListBox::onLbSelectString(int after, LPARAM wanted) {
    const int index = find(after, wanted, false);
    return index == LB_ERR ? LB_ERR : onLbSetCurSel(index);
}

LRESULT ListBox::onLbGetText(int index, LPARAM buffer) const {
    if (!items_.has(index) || !buffer) {
        return LB_ERR;
    }
    const ListItems::Item& item = items_.at(index);
    if (!hasStrings()) {
        std::memcpy(reinterpret_cast<void*>(buffer), &item.data, sizeof item.data);
        return static_cast<LRESULT>(sizeof item.data);
    }
    std::memcpy(reinterpret_cast<void*>(buffer), item.text.c_str(), item.text.size() + 1);
    return static_cast<LRESULT>(item.text.size());
}

LRESULT ListBox::onLbSetItemHeight(int height) {
    if (height < 0 || height > kHighestItem) {
        return LB_ERR;
    }
    itemHeight_ = std::max(height, 1);
    onWmSize();
    return LB_OKAY;
}

// While an entry is selected the caret stays there.
LRESULT ListBox::onLbSetCaretIndex(int index) {
    if (!items_.has(index) || current_ != kNone) {
        return LB_ERR;
    }
    setCaret(index);
    return LB_OKAY;
}

}  // namespace platform
