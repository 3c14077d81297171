// Keys, mouse and scroll bar of the file list.
#include "platform/controls/control_base.h"
#include "platform/files/file_list.h"
#include "platform/files/file_list_parts.h"
#include "platform/files/file_path.h"

#include <algorithm>

namespace platform {

namespace {

constexpr UINT kRepeatMs = 50;
constexpr int kWheelRows = 3;
constexpr DWORD kTypingPauseMs = 1000;  // A longer one begins a new name.

POINT pointOf(LPARAM lParam) {
    return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
}

}  // namespace

// Focus, keys and mouse. False for any other message.
bool FileList::onInput(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    result = 0;
    switch (message) {
        case WM_SETFOCUS:
        case WM_KILLFOCUS:
            focused_ = message == WM_SETFOCUS;
            InvalidateRect(window_, nullptr, FALSE);
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
        case WM_KEYDOWN:
            result = onWmKeyDown(static_cast<UINT>(wParam));
            return true;
        case WM_SYSKEYDOWN:
            if (wParam != VK_UP) {
                return false;
            }
            notify(kFileListUp);
            return true;
        case WM_CHAR:
            onWmChar(static_cast<char>(wParam));
            return true;
        default:
            return false;
    }
}

void FileList::onWmLButtonDown(POINT at) {
    const HWND window = window_;
    if (!focused_) {
        SetFocus(window);
    }
    if (!IsWindow(window) || !focused_) {
        return;
    }
    const ListScrollBar::Part part = bar_.isShown() ? bar_.partAt(at) : ListScrollBar::Part::None;
    pressedHead_ = headAt(at);
    const int row = rowAt(at);
    if (part == ListScrollBar::Part::None && !pressedHead_ && row == kNone) {
        return;
    }
    SetCapture(window);
    if (pressedHead_) {
        headIsDown_ = true;
        InvalidateRect(window_, nullptr, FALSE);
    } else if (part != ListScrollBar::Part::None) {
        bar_.press(part, at);
        setTop(bar_.topFor(part, at));
        SetTimer(window_, kRepeatTimer, kRepeatMs, nullptr);
        InvalidateRect(window_, &bar_.rect(), FALSE);
    } else {
        tracking_ = true;
        selectRow(row);
    }
}

// The second of two quick clicks opens a row and is a plain click elsewhere.
void FileList::onWmLButtonDblClk(POINT at) {
    if (rowAt(at) != kNone && rowAt(at) == currentRow()) {
        notify(LBN_DBLCLK);
    } else {
        onWmLButtonDown(at);
    }
}

// Also called while the mouse is held still, to repeat.
void FileList::onWmMouseMove(POINT at) {
    const ListScrollBar::Part part = bar_.pressed();
    if (part != ListScrollBar::Part::None) {
        if (part == ListScrollBar::Part::Thumb || bar_.partAt(at) == part) {
            setTop(bar_.topFor(part, at));
        }
    } else if (pressedHead_) {
        const bool down = headAt(at) == pressedHead_;
        if (down != headIsDown_) {
            headIsDown_ = down;
            InvalidateRect(window_, nullptr, FALSE);
        }
    } else if (tracking_) {
        const RECT rows = rowsRect();
        const int beyond = at.y < rows.top ? -1 : at.y >= rows.bottom ? 1 : 0;
        if (beyond != 0) {
            SetTimer(window_, kRepeatTimer, kRepeatMs, nullptr);
            selectRow(std::clamp(currentRow() + beyond, 0, std::max(rowCount() - 1, 0)));
        } else if (rowAt(at) != kNone) {
            KillTimer(window_, kRepeatTimer);
            selectRow(rowAt(at));
        }
    }
}

void FileList::onWmLButtonUp(POINT at) {
    const std::optional<Column> clicked = headAt(at) == pressedHead_ ? pressedHead_ : std::nullopt;
    if (GetCapture() == window_) {
        ReleaseCapture();
    }
    if (clicked) {
        sortBy(*clicked);
    }
}

void FileList::onWmCaptureChanged() {
    KillTimer(window_, kRepeatTimer);
    bar_.release();
    pressedHead_.reset();
    headIsDown_ = false;
    tracking_ = false;
    InvalidateRect(window_, nullptr, FALSE);
}

void FileList::onWmMouseWheel(int delta) {
    wheelRest_ += delta * kWheelRows;
    setTop(top_ - wheelRest_ / WHEEL_DELTA);
    wheelRest_ %= WHEEL_DELTA;
}

LRESULT FileList::onWmKeyDown(UINT key) {
    const int last = rowCount() - 1;
    const int current = currentRow();
    int row = current;
    switch (key) {
        case VK_UP:
            row -= 1;
            break;
        case VK_DOWN:
            row += 1;
            break;
        case VK_PRIOR:
            row -= std::max(page() - 1, 1);
            break;
        case VK_NEXT:
            row += std::max(page() - 1, 1);
            break;
        case VK_HOME:
            row = 0;
            break;
        case VK_END:
            row = last;
            break;
        case VK_BACK:
            notify(kFileListUp);
            return 0;
        case VK_F5:
            notify(kFileListReread);
            return 0;
        default:
            return DefWindowProcA(window_, WM_KEYDOWN, key, 0);
    }
    // With nothing selected, the first key selects the first row that is in sight.
    selectRow(current == kNone && key != VK_END && key != VK_HOME ? top_ : std::clamp(row, 0, std::max(last, 0)));
    return 0;
}

void FileList::onWmChar(char character) {
    constexpr char kFirstPrintable = ' ';
    if (static_cast<unsigned char>(character) >= static_cast<unsigned char>(kFirstPrintable)) {
        findTyped(character);
    }
}

// The letters typed in one go are the beginning of a name; the same letter again and again goes through all names that
// begin with it.
void FileList::findTyped(char character) {
    const DWORD now = GetTickCount();
    if (now - typedAt_ > kTypingPauseMs) {
        typed_.clear();
    }
    typedAt_ = now;
    typed_ += character;
    const bool repeated = typed_.find_first_not_of(typed_.front()) == std::string::npos;
    const std::string prefix = repeated ? typed_.substr(0, 1) : typed_;
    const int count = rowCount();
    const int first = std::max(currentRow(), 0) + (repeated && currentRow() != kNone ? 1 : 0);
    for (int step = 0; step < count; ++step) {
        const int row = (first + step) % count;
        if (beginsWith(listing_.row(static_cast<std::size_t>(row)).shown, prefix)) {
            selectRow(row);
            return;
        }
    }
}

}  // namespace platform
