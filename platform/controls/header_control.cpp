// Messages, columns and geometry of headers.
#include "platform/controls/header_control.h"

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

#include <algorithm>
#include <utility>

namespace platform {
namespace {

// Pixels at 96 dots an inch.
constexpr int kDividerReach = 10;  // To both sides of a column's right end where it is taken to be made wider.
constexpr int kHeadPadding = 3;    // By which a header is higher than its text.

}  // namespace

LRESULT HeaderControl::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    if (onInput(message, wParam, lParam)) {
        return 0;
    }
    switch (message) {
        case WM_GETDLGCODE:
            return DLGC_WANTTAB | DLGC_WANTARROWS;
        case WM_SETFONT:
            onWmSetFont(reinterpret_cast<HFONT>(wParam), LOWORD(lParam) != 0);
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_ERASEBKGND:
            return TRUE;  // Painting covers everything.
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        default:
            return onHeaderMessage(message, wParam, lParam);
    }
}

LRESULT HeaderControl::onHeaderMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    const int number = static_cast<int>(wParam);
    switch (message) {
        case HDM_GETITEMCOUNT:
            return count();
        case HDM_INSERTITEMA:
            return onHdmInsertItem(number, *reinterpret_cast<const HDITEMA*>(lParam));
        case HDM_SETITEMA:
            return onHdmSetItem(number, *reinterpret_cast<const HDITEMA*>(lParam));
        case HDM_LAYOUT:
            return onHdmLayout(*reinterpret_cast<const HDLAYOUT*>(lParam));
        case HDM_GETITEMRECT:
            return onHdmGetItemRect(number, *reinterpret_cast<RECT*>(lParam));
        case HDM_GETORDERARRAY:
            return onHdmGetOrderArray(number, reinterpret_cast<int*>(lParam));
        case HDM_SETORDERARRAY:
            return onHdmSetOrderArray(number, reinterpret_cast<const int*>(lParam));
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

LRESULT HeaderControl::notify(UINT code, int column, HDITEMA* item) const {
    NMHEADERA header{};
    header.hdr.hwndFrom = window_;
    header.hdr.idFrom = static_cast<UINT_PTR>(GetDlgCtrlID(window_));
    header.hdr.code = code;
    header.iItem = column;
    header.pitem = item;
    return SendMessageA(GetParent(window_), WM_NOTIFY, header.hdr.idFrom, reinterpret_cast<LPARAM>(&header));
}

void HeaderControl::notifyChanged(int column, UINT mask) const {
    InvalidateRect(window_, nullptr, FALSE);
    HDITEMA item{};
    item.mask = mask;
    item.cxy = at(column).width;
    item.iOrder = placeOf(column);
    notify(HDN_ITEMCHANGEDA, column, &item);
}

void HeaderControl::onWmSetFont(HFONT font, bool redraw) {
    font_ = font;
    if (redraw) {
        InvalidateRect(window_, nullptr, FALSE);
    }
}

int HeaderControl::onHdmInsertItem(int index, const HDITEMA& item) {
    if (index < 0) {
        return kNone;
    }
    index = std::min(index, count());
    Column inserted{};
    if ((item.mask & HDI_TEXT) != 0 && item.pszText) {
        inserted.text = item.pszText;
    }
    // Nothing after the column itself takes memory: there is one order for all columns.
    order_.reserve(order_.size() + 1);
    columns_.insert(columns_.begin() + index, std::move(inserted));
    for (int& column : order_) {
        column += column >= index ? 1 : 0;
    }
    order_.insert(order_.begin() + index, index);
    at(index).width = (item.mask & HDI_WIDTH) != 0 ? std::max(item.cxy, 0) : 0;
    InvalidateRect(window_, nullptr, FALSE);
    return index;
}

bool HeaderControl::onHdmSetItem(int index, const HDITEMA& item) {
    if (!has(index)) {
        return false;
    }
    if ((item.mask & HDI_WIDTH) != 0) {
        setWidth(index, item.cxy);
    }
    return true;
}

void HeaderControl::setWidth(int column, int width) {
    width = std::max(width, 0);
    if (at(column).width != width) {
        at(column).width = width;
        notifyChanged(column, HDI_WIDTH);
    }
}

bool HeaderControl::onHdmLayout(const HDLAYOUT& layout) {
    const WindowDc dc(window_);
    TEXTMETRICA metrics;
    {
        const SelectedFont selected(dc, font_);
        GetTextMetricsA(dc, &metrics);
    }
    RECT& around = *layout.prc;
    const LONG bottom = std::min(around.bottom, around.top + metrics.tmHeight + toScale(kHeadPadding));
    *layout.pwpos = {window_,
                     nullptr,
                     around.left,
                     around.top,
                     around.right - around.left,
                     bottom - around.top,
                     SWP_NOZORDER | SWP_NOACTIVATE};
    around.top = bottom;
    return true;
}

int HeaderControl::placeOf(int column) const {
    return static_cast<int>(std::find(order_.begin(), order_.end(), column) - order_.begin());
}

RECT HeaderControl::rectOf(int column) const {
    RECT rect;
    GetClientRect(window_, &rect);
    rect.right = 0;
    for (const int each : order_) {
        rect.left = rect.right;
        rect.right += at(each).width;
        if (each == column) {
            break;
        }
    }
    return rect;
}

bool HeaderControl::onHdmGetItemRect(int index, RECT& rect) const {
    if (!has(index)) {
        return false;
    }
    rect = rectOf(index);
    return true;
}

// A divider belongs to the column at its left. Columns that are hardly wider than its reach are clicked all over; one
// of no width is opened by the divider that it has left.
int HeaderControl::hitTest(POINT at, UINT& flags) const {
    int before = kNone;
    RECT rect{};
    for (const int column : order_) {
        if (this->at(column).width == 0) {
            before = column;
            continue;
        }
        rect = rectOf(column);
        if (at.x < rect.right) {
            const bool isWide = rect.right - rect.left > 2 * toScale(kDividerReach);
            const bool beforeIsHit = isWide && before != kNone && at.x < rect.left + toScale(kDividerReach);
            const bool ownIsHit = isWide && at.x >= rect.right - toScale(kDividerReach);
            flags = beforeIsHit ? (this->at(before).width == 0 ? HHT_ONDIVOPEN : HHT_ONDIVIDER)
                    : ownIsHit  ? HHT_ONDIVIDER
                                : HHT_ONHEADER;
            return beforeIsHit ? before : column;
        }
        before = column;
    }
    if (before != kNone && at.x < rect.right + toScale(kDividerReach)) {
        flags = this->at(before).width == 0 ? HHT_ONDIVOPEN : HHT_ONDIVIDER;
        return before;
    }
    flags = HHT_NOWHERE;
    return kNone;
}

bool HeaderControl::onHdmGetOrderArray(int count, int* order) const {
    if (count < this->count()) {
        return false;
    }
    std::copy(order_.begin(), order_.end(), order);
    return true;
}

// Columns that do not exist, and all but the last of one that is named twice, leave gaps, which the columns that are
// not named fill.
bool HeaderControl::onHdmSetOrderArray(int count, const int* order) {
    if (count != this->count()) {
        return false;
    }
    std::vector<int> wanted(columns_.size(), kNone);
    for (int place = 0; place < count; ++place) {
        if (has(order[place])) {
            std::replace(wanted.begin(), wanted.end(), order[place], int{kNone});
            wanted[static_cast<std::size_t>(place)] = order[place];
        }
    }
    for (const int column : order_) {
        if (std::find(wanted.begin(), wanted.end(), column) == wanted.end()) {
            *std::find(wanted.begin(), wanted.end(), int{kNone}) = column;
        }
    }
    if (wanted != order_) {
        order_ = wanted;
        notifyChanged(order_.front(), HDI_ORDER);
    }
    return true;
}

void HeaderControl::moveColumn(int column, int place) {
    std::erase(order_, column);
    order_.insert(order_.begin() + std::clamp(place, 0, count() - 1), column);
    notifyChanged(column, HDI_ORDER);
}

void registerHeaderClass() {
    registerControlClass<HeaderControl>(WC_HEADERA, 0);
}

}  // namespace platform
