// The loop of an open popup menu. The focus stays where it is; the menu takes the mouse and reads all keys. What the
// owner is told, and when, is as observed.
#include "platform/menus/menu_window.h"
#include "platform/resources/code_page.h"

namespace platform {
namespace {

constexpr int kNone = MenuWindow::kNone;
constexpr WPARAM kNothingSelected = MAKEWPARAM(0, 0xFFFF);

class MenuLoop {
public:
    MenuLoop(HMENU menu, const MenuItems& items, UINT flags, HWND owner)
        : menu_(menu), items_(items), flags_(flags), owner_(owner), window_(items_, owner) {}

    // Returns the number of the item that was chosen, 0 for none.
    UINT run(POINT at);
    // Takes the menu off the screen at once; its loop ends as soon as it is back.
    void end();

private:
    bool next(MSG& message);
    void handle(MSG message);
    bool onMouse(UINT message, POINT at);
    bool onButtonDown(POINT at);
    void onButtonUp(POINT at);
    void onMouseMove(POINT at);
    void onKeyDown(const MSG& message);
    void onChar(char character);

    void select(int index);
    void moveFrom(int index, int step);
    // Ends the menu with the selected item, if that one can be chosen.
    void choose();
    void tell(UINT message, WPARAM wParam, LPARAM lParam = 0) const { SendMessageA(owner_, message, wParam, lParam); }
    bool isDead() const { return !IsWindow(owner_) || !IsWindow(window_.handle()); }

    HMENU menu_;
    MenuItems items_;  // A copy: the owner may change or destroy the menu meanwhile.
    UINT flags_;
    HWND owner_;
    MenuWindow window_;
    UINT chosen_ = 0;
    bool ended_ = false;
    bool idle_ = false;  // The owner knows that nothing is waiting.
};

// Only one menu is open at a time.
bool g_tracking = false;
MenuLoop* g_running = nullptr;

UINT MenuLoop::run(POINT at) {
    if (!window_.handle()) {
        return 0;
    }
    window_.show(at);
    SetCapture(window_.handle());
    MSG message;
    while (!ended_ && !isDead() && next(message)) {
        handle(message);
    }
    end();
    return chosen_;
}

void MenuLoop::end() {
    const HWND window = window_.handle();
    ended_ = true;
    ShowWindow(window, SW_HIDE);
    if (GetCapture() == window) {
        ReleaseCapture();
    }
    PostMessageA(window, WM_NULL, 0, 0);  // Wakes a loop that waits.
}

// Looks at the next message and leaves it in the queue. False when the menu is to end.
bool MenuLoop::next(MSG& message) {
    while (!PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        if (!idle_) {
            idle_ = true;
            tell(WM_ENTERIDLE, MSGF_MENU, reinterpret_cast<LPARAM>(window_.handle()));
        } else if (!WaitMessage()) {
            return false;
        }
        if (ended_ || isDead()) {
            return false;
        }
    }
    return message.message != WM_QUIT;
}

void MenuLoop::handle(MSG message) {
    const bool mouse = message.message >= WM_MOUSEFIRST && message.message <= WM_MOUSELAST;
    const bool key = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
    idle_ = idle_ && message.message == WM_TIMER;
    if (mouse) {
        POINT at{GET_X_LPARAM(message.lParam), GET_Y_LPARAM(message.lParam)};
        // What a program posts to another window is in screen coordinates already, as observed.
        if (message.hwnd == window_.handle()) {
            ClientToScreen(message.hwnd, &at);
        }
        // A press beside the menu is left for the window that it is meant for.
        if (!onMouse(message.message, at)) {
            return;
        }
    }
    if (!PeekMessageA(&message, nullptr, message.message, message.message, PM_REMOVE) || mouse) {
        return;
    }
    if (!key) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    } else if (message.message == WM_KEYDOWN || message.message == WM_SYSKEYDOWN) {
        onKeyDown(message);
    } else if (message.message == WM_CHAR || message.message == WM_SYSCHAR) {
        onChar(static_cast<char>(message.wParam));
    }
}

// False when the message ends the menu and is not for it.
bool MenuLoop::onMouse(UINT message, POINT at) {
    const bool rightToo = (flags_ & TPM_RIGHTBUTTON) != 0;
    switch (message) {
        case WM_RBUTTONDOWN:
            return !rightToo || onButtonDown(at);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
            return onButtonDown(at);
        case WM_RBUTTONUP:
            if (rightToo) {
                onButtonUp(at);
            }
            return true;
        case WM_LBUTTONUP:
            onButtonUp(at);
            return true;
        case WM_MOUSEMOVE:
            onMouseMove(at);
            return true;
        default:
            return true;
    }
}

bool MenuLoop::onButtonDown(POINT at) {
    if (!window_.contains(at)) {
        end();
        return false;
    }
    onMouseMove(at);
    return true;
}

void MenuLoop::onButtonUp(POINT at) {
    const int index = window_.itemAt(at);
    if (index != kNone && index == window_.selected() && items_[static_cast<std::size_t>(index)].canBeChosen()) {
        choose();
    }
}

void MenuLoop::onMouseMove(POINT at) {
    if (window_.contains(at)) {
        select(window_.itemAt(at));
    }
}

void MenuLoop::onKeyDown(const MSG& message) {
    switch (message.wParam) {
        case VK_UP:
            moveFrom(window_.selected(), -1);
            break;
        case VK_DOWN:
            moveFrom(window_.selected(), 1);
            break;
        case VK_HOME:
        case VK_END:
            window_.select(kNone);
            moveFrom(kNone, message.wParam == VK_HOME ? 1 : -1);
            break;
        case VK_ESCAPE:
        case VK_MENU:
        case VK_F10:
            end();
            break;
        default:
            TranslateMessage(&message);
            break;
    }
}

void MenuLoop::onChar(char character) {
    if (character == VK_RETURN || character == VK_SPACE) {
        choose();
        return;
    }
    if (static_cast<unsigned char>(character) < VK_SPACE) {
        return;
    }
    for (std::size_t index = 0; index < items_.size(); ++index) {
        if (items_[index].mnemonic() == codePageUpper(character)) {
            select(static_cast<int>(index));
            choose();
            return;
        }
    }
    MessageBeep(0);
}

void MenuLoop::select(int index) {
    if (index == window_.selected()) {
        return;
    }
    window_.select(index);
    if (index != kNone) {
        const MenuItem& item = items_[static_cast<std::size_t>(index)];
        const UINT flags = item.flags | (item.isSeparator() ? 0 : MF_HILITE);
        tell(WM_MENUSELECT, MAKEWPARAM(item.id, flags), reinterpret_cast<LPARAM>(menu_));
    }
}

// Selects the next item in that direction, from one end on to the other.
void MenuLoop::moveFrom(int index, int step) {
    const int count = static_cast<int>(items_.size());
    for (int tried = 0; tried < count; ++tried) {
        index = index == kNone && step < 0 ? count - 1 : (index + step + count) % count;
        if (!items_[static_cast<std::size_t>(index)].isSeparator()) {
            select(index);
            return;
        }
    }
}

void MenuLoop::choose() {
    const int index = window_.selected();
    const MenuItem* item = index != kNone ? &items_[static_cast<std::size_t>(index)] : nullptr;
    if (item && item->canBeChosen()) {
        chosen_ = item->id;
        if (!(flags_ & TPM_RETURNCMD)) {
            PostMessageA(owner_, WM_COMMAND, item->id, 0);
        }
    }
    end();
}

// Opens the menu, which its owner has had the chance to prepare, and returns what was chosen.
UINT runMenu(HMENU menu, UINT flags, POINT at, HWND owner) {
    const MenuItems* items = findMenu(menu);
    if (!items || !IsWindow(owner)) {
        return 0;
    }
    MenuLoop loop(menu, *items, flags, owner);
    g_running = &loop;
    const UINT chosen = loop.run(at);
    g_running = nullptr;
    return chosen;
}

}  // namespace
}  // namespace platform

BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int, HWND owner, const RECT*) {
    if (platform::g_tracking || !platform::findMenu(menu) || !IsWindow(owner)) {
        return FALSE;
    }
    platform::g_tracking = true;
    HideCaret(nullptr);
    const bool notify = (flags & TPM_NONOTIFY) == 0;
    const auto menuParam = reinterpret_cast<WPARAM>(menu);
    if (notify) {
        SendMessageA(owner, WM_ENTERMENULOOP, TRUE, 0);
    }
    SendMessageA(owner, WM_SETCURSOR, reinterpret_cast<WPARAM>(owner), HTCAPTION);
    if (notify) {
        SendMessageA(owner, WM_INITMENU, menuParam, 0);
        SendMessageA(owner, WM_INITMENUPOPUP, menuParam, 0);
    }
    const UINT chosen = platform::runMenu(menu, flags, {x, y}, owner);
    if (notify) {
        SendMessageA(owner, WM_UNINITMENUPOPUP, menuParam, 0);
    }
    SendMessageA(owner, WM_MENUSELECT, platform::kNothingSelected, 0);
    SendMessageA(owner, WM_EXITMENULOOP, TRUE, 0);
    ShowCaret(nullptr);
    platform::g_tracking = false;
    return (flags & TPM_RETURNCMD) != 0 ? static_cast<BOOL>(chosen) : TRUE;
}

BOOL EndMenu(void) {
    if (platform::g_running) {
        platform::g_running->end();
    }
    return TRUE;
}
