// Message boxes: a dialog made up from the text, with the captions of a Swedish desktop.
#include "platform/dialog/dialog_create.h"
#include "platform/dialog/dialog_state.h"
#include "platform/dialog/message_box_icon.h"
#include "platform/graphics/scale.h"
#include "platform/graphics/window_dc.h"
#include "platform/window/out_of_memory.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string>
#include <vector>

namespace platform {

namespace {

constexpr int kTextId = 0xFFFF;
constexpr short kFontSize = 8;  // Points.
// Pixels at 96 dots an inch.
constexpr int kMargin = 12;
constexpr int kButtonGap = 6;
constexpr int kWidestText = 480;
constexpr int kBesideCaption = 110;  // The icon and the close box in a window manager's title bar.
// Dialog units.
constexpr int kButtonWidth = 50;
constexpr int kButtonHeight = 14;

struct BoxButton {
    int id;
    const char* caption;
};

constexpr BoxButton kOk = {IDOK, "OK"};
constexpr BoxButton kCancel = {IDCANCEL, "Avbryt"};
constexpr BoxButton kYes = {IDYES, "&Ja"};
constexpr BoxButton kNo = {IDNO, "&Nej"};

constexpr std::array kOkOnly = {kOk};
constexpr std::array kOkCancel = {kOk, kCancel};
constexpr std::array kYesNo = {kYes, kNo};
constexpr std::array kYesNoCancel = {kYes, kNo, kCancel};

std::span<const BoxButton> buttonsOf(UINT type) {
    switch (type & MB_TYPEMASK) {
        case MB_OK:
            return kOkOnly;
        case MB_OKCANCEL:
            return kOkCancel;
        case MB_YESNO:
            return kYesNo;
        case MB_YESNOCANCEL:
            return kYesNoCancel;
        default:
            return {};
    }
}

// One message box while it is shown; its dialog finds it through DWLP_USER.
struct MessageBoxRun {
    std::string text;
    std::string caption;
    UINT type = 0;
    HWND owner = nullptr;
    std::span<const BoxButton> buttons;

    bool hasIcon() const { return (type & MB_ICONMASK) != 0; }
    bool has(int id) const {
        return std::any_of(buttons.begin(), buttons.end(), [&](const BoxButton& button) { return button.id == id; });
    }
    const BoxButton& defaultButton() const {
        constexpr UINT kDefaultMask = 0xF00;
        const std::size_t index = (type & kDefaultMask) / MB_DEFBUTTON2;
        return index < buttons.size() ? buttons[index] : buttons.front();
    }
};

DialogTemplate boxTemplate(const MessageBoxRun& run) {
    DialogTemplate box;
    box.style = WS_POPUP | WS_VISIBLE | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME | DS_NOIDLEMSG | DS_SETFONT;
    box.caption = run.caption;
    box.pointSize = kFontSize;
    for (const BoxButton& button : run.buttons) {
        DialogItem item;
        const bool isDefault = button.id == run.defaultButton().id;
        item.style = WS_VISIBLE | WS_TABSTOP | (isDefault ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
        item.width = kButtonWidth;
        item.height = kButtonHeight;
        item.id = static_cast<DWORD>(button.id);
        item.className.text = "Button";
        item.text.text = button.caption;
        box.items.push_back(item);
    }
    box.items.front().style |= WS_GROUP;
    DialogItem text;
    text.style = WS_VISIBLE | WS_GROUP | SS_LEFT | SS_NOPREFIX;
    text.id = kTextId;
    text.className.text = "Static";
    text.text.text = run.text;
    box.items.push_back(text);
    return box;
}

SIZE measure(HWND box, const std::string& text, UINT format) {
    HDC dc = GetDC(box);
    HGDIOBJ before = SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessageA(box, WM_GETFONT, 0, 0)));
    RECT rect = {0, 0, toScale(kWidestText), 0};
    const bool measured = orOutOfMemory(
        [&] {
            return DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &rect,
                             DT_CALCRECT | DT_NOPREFIX | format) != 0;
        },
        false);
    SelectObject(dc, before);
    ReleaseDC(box, dc);
    if (!measured && !text.empty()) {
        throw std::bad_alloc();
    }
    return {rect.right, rect.bottom};
}

// Icon and text above, the buttons centred below; the box is as wide as the widest of the two rows and the title.
void layOut(HWND box, const MessageBoxRun& run) {
    const SIZE button = {horizontalPixels(kButtonWidth), verticalPixels(kButtonHeight)};
    const int count = static_cast<int>(run.buttons.size());
    const int buttonRow = count * button.cx + (count - 1) * toScale(kButtonGap);
    const SIZE text = measure(box, run.text, DT_WORDBREAK | DT_EXPANDTABS);
    // The title is written in the window manager's font, which may be half as large again.
    const int captionWidth = measure(box, run.caption, DT_SINGLELINE).cx * 3 / 2;
    const int titleBar = std::min(captionWidth, toScale(kWidestText)) + toScale(kBesideCaption);
    const int textLeft = toScale(kMargin) + (run.hasIcon() ? GetSystemMetrics(SM_CXICON) + toScale(kMargin) : 0);
    const int upperHeight = std::max(text.cy, run.hasIcon() ? GetSystemMetrics(SM_CXICON) : 0);
    const int width =
        std::max({textLeft + static_cast<int>(text.cx) + toScale(kMargin), buttonRow + 2 * toScale(kMargin), titleBar});
    const int height = toScale(kMargin) + upperHeight + toScale(kMargin) + button.cy + toScale(kMargin);

    // A short text stands beside the middle of the icon.
    MoveWindow(GetDlgItem(box, kTextId), textLeft, toScale(kMargin) + (upperHeight - text.cy) / 2, text.cx, text.cy,
               FALSE);
    int x = (width - buttonRow) / 2;
    for (const BoxButton& each : run.buttons) {
        MoveWindow(GetDlgItem(box, each.id), x, height - toScale(kMargin) - button.cy, button.cx, button.cy, FALSE);
        x += button.cx + toScale(kButtonGap);
    }
    RECT frame = {0, 0, width, height};
    AdjustWindowRectEx(&frame, static_cast<DWORD>(GetWindowLongA(box, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongA(box, GWL_EXSTYLE)));
    const SIZE size = {frame.right - frame.left, frame.bottom - frame.top};
    const POINT at = centredPosition(size, run.owner);
    SetWindowPos(box, nullptr, at.x, at.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

void paintIcon(HWND box, const MessageBoxRun& run) {
    PAINTSTRUCT paint{};
    HDC dc = BeginPaint(box, &paint);
    drawBoxIcon(dc, {toScale(kMargin), toScale(kMargin)}, run.type & MB_ICONMASK);
    EndPaint(box, &paint);
}

std::string copiedText(const MessageBoxRun& run) {
    const std::string rule = "---------------------------\r\n";
    std::string copied = rule + run.caption + "\r\n" + rule;
    for (const char character : run.text) {
        copied += character == '\n' ? std::string("\r\n") : std::string(1, character);
    }
    copied += "\r\n" + rule;
    for (const BoxButton& button : run.buttons) {
        copied += button.caption[0] == '&' ? button.caption + 1 : button.caption;
        copied += "   ";
    }
    return copied + "\r\n" + rule;
}

void onWmCopy(HWND box, const MessageBoxRun& run) {
    const std::string copied = copiedText(run);
    HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, copied.size() + 1);
    void* target = memory != nullptr ? GlobalLock(memory) : nullptr;
    if (target == nullptr) {
        return;
    }
    std::memcpy(target, copied.c_str(), copied.size() + 1);
    GlobalUnlock(memory);
    const bool given = OpenClipboard(box) && EmptyClipboard() && SetClipboardData(CF_TEXT, memory) != nullptr;
    CloseClipboard();
    if (!given) {
        GlobalFree(memory);
    }
}

// Esc and the close box mean Cancel where there is one, and OK where that is all there is to say.
void onWmCommand(HWND box, const MessageBoxRun& run, int id) {
    if (run.has(id)) {
        EndDialog(box, id);
    } else if (id == IDCANCEL && run.buttons.size() == 1) {
        EndDialog(box, run.buttons.front().id);
    }
}

INT_PTR CALLBACK boxProc(HWND box, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* starting = reinterpret_cast<const MessageBoxRun*>(lParam);
        SetWindowLongPtrA(box, DWLP_USER, lParam);
        layOut(box, *starting);
        SetFocus(GetDlgItem(box, starting->defaultButton().id));
        return FALSE;
    }
    const auto* run = reinterpret_cast<const MessageBoxRun*>(GetWindowLongPtrA(box, DWLP_USER));
    if (run == nullptr) {
        return FALSE;
    }
    switch (message) {
        case WM_COMMAND:
            onWmCommand(box, *run, LOWORD(wParam));
            return TRUE;
        case WM_COPY:
            onWmCopy(box, *run);
            return TRUE;
        case WM_PAINT:
            if (run->hasIcon()) {
                paintIcon(box, *run);
                return TRUE;
            }
            return FALSE;
        default:
            return FALSE;
    }
}

// Disables all other top-level windows of the thread while a box without owner asks for its answer.
class TaskModality {
public:
    explicit TaskModality(bool wanted) {
        if (wanted) {
            EnumThreadWindows(GetCurrentThreadId(), disable, reinterpret_cast<LPARAM>(&disabled_));
        }
    }
    ~TaskModality() {
        for (HWND window : disabled_) {
            EnableWindow(window, TRUE);
        }
    }
    TaskModality(const TaskModality&) = delete;
    TaskModality& operator=(const TaskModality&) = delete;

private:
    static BOOL CALLBACK disable(HWND window, LPARAM param) {
        if (IsWindowVisible(window) && IsWindowEnabled(window)) {
            // One for which there is no memory stays enabled.
            const bool noted = orOutOfMemory(
                [&] { return reinterpret_cast<std::vector<HWND>*>(param)->push_back(window), true; }, false);
            if (!noted) {
                return TRUE;
            }
            EnableWindow(window, FALSE);
        }
        return TRUE;
    }

    std::vector<HWND> disabled_;
};

int runBox(const MessageBoxRun& run) {
    const bool taskModal = run.owner == nullptr && (run.type & MB_TASKMODAL) != 0;
    const TaskModality modality(taskModal);
    return static_cast<int>(
        runDialog(GetModuleHandleA(nullptr), boxTemplate(run), run.owner, boxProc, reinterpret_cast<LPARAM>(&run)));
}

}  // namespace

}  // namespace platform

int MessageBoxA(HWND owner, LPCSTR text, LPCSTR caption, UINT type) {
    const auto buttons = platform::buttonsOf(type);
    if (buttons.empty() || (owner != nullptr && !IsWindow(owner)) || !platform::isFontFound()) {
        return 0;
    }
    MessageBeep(type & MB_ICONMASK);
    HWND active = GetActiveWindow();
    const int result = platform::orOutOfMemory(
        [&] {
            return platform::runBox(
                {text != nullptr ? text : "", caption != nullptr ? caption : "Fel", type, owner, buttons});
        },
        0);
    const platform::KeptError error;
    // Without an owner nothing else tells which window the user came from.
    if (owner == nullptr && active != nullptr && IsWindow(active) && GetActiveWindow() != active) {
        SetActiveWindow(active);
    }
    return std::max(result, 0);
}
