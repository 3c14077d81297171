// What keys do with a list view.
#include "platform/controls/control_base.h"
#include "platform/controls/list_view.h"

#include <algorithm>

namespace platform {
namespace {

constexpr DWORD kTypingPauseMs = 1000;  // A longer one begins a new text.
constexpr char kFirstPrintable = ' ';

}  // namespace

// kNone for a key that leads to no other row.
int ListView::rowForKey(UINT key) const {
    const int last = items_.count() - 1;
    const int bottom = top_ + page() - 1;
    const int byPage = page() - 1;
    int row = focusedRow_;
    switch (key) {
        case VK_UP:
            row -= 1;
            break;
        case VK_DOWN:
            row += 1;
            break;
        case VK_HOME:
            row = 0;
            break;
        case VK_END:
            row = last;
            break;
        case VK_PRIOR:
            row = std::max(row == top_ ? row - byPage : top_, 0);
            break;
        case VK_NEXT:
            row = std::min(row == bottom ? row + byPage : bottom, last);
            break;
        default:
            return kNone;
    }
    return items_.has(row) && row != focusedRow_ ? row : int{kNone};
}

LRESULT ListView::onWmKeyDown(UINT key, LPARAM flags) {
    const HWND window = window_;
    NMLVKEYDOWN pressed{};
    pressed.wVKey = static_cast<WORD>(key);
    pressed.flags = static_cast<UINT>(flags);
    send(LVN_KEYDOWN, pressed);
    if (!isAlive(window)) {
        return 0;
    }
    if (key == VK_RETURN && selected_ != kNone) {
        notify(NM_RETURN);
        if (isAlive(window)) {
            NMITEMACTIVATE activation{};
            activation.iItem = focusedRow_;
            send(LVN_ITEMACTIVATE, activation);
        }
    } else if (key == VK_SPACE && focusedRow_ != kNone) {
        if (hasCheckBoxes()) {
            toggleCheck(focusedRow_);
        }
        if (isAlive(window) && focusedRow_ != kNone) {
            goTo(focusedRow_);
        }
    } else if (const int row = rowForKey(key); row != kNone) {
        goTo(row);
    }
    return 0;
}

void ListView::goTo(int row) {
    if (selectAlone(row)) {
        onLvmEnsureVisible(row, false);
    }
}

// The letters typed in one go are the beginning of a label.
void ListView::onWmChar(char character) {
    const DWORD now = GetTickCount();
    if (now - typedAt_ > kTypingPauseMs) {
        typed_.clear();
    }
    const bool isText = static_cast<unsigned char>(character) >= static_cast<unsigned char>(kFirstPrintable);
    const bool isSpaceKey = character == ' ' && typed_.empty();
    if (!isText || isSpaceKey) {
        return;
    }
    typedAt_ = now;
    typed_ += character;
    const int from = typed_.size() == 1 ? focusedRow_ + 1 : std::max(focusedRow_, 0);
    const int row = items_.findPrefix(from, typed_);
    if (row != kNone) {
        goTo(row);
    }
}

}  // namespace platform
