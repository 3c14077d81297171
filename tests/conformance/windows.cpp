// The life of a window: the messages of its creation, showing, moving and end, and how focus, activation,
// capture and the queue go from window to window.
#include "tests/conformance/typing.h"
#include "tests/conformance/window_stage.h"

namespace {

void createAndShow(Stage& stage) {
    constexpr DWORD kStyles[] = {kPopup, kShownPopup, kPopup | WS_CLIPCHILDREN};
    DestroyWindow(stage.top);
    for (const DWORD style : kStyles) {
        stage.note("-- style " + std::to_string(style));
        HWND popup = stage.create("popup", style, kTopPlace);
        stage.step("child", [&] { stage.create("child", kShownChild, {10, 10, 50, 20}, popup, 1); });
        stage.step("show", [&] { ShowWindow(popup, SW_SHOW); });
        stage.step("hide", [&] { ShowWindow(popup, SW_HIDE); });
        stage.step("destroy", [&] { DestroyWindow(popup); });
        drainQueue();
    }
}

void createChildren(Stage& stage) {
    stage.create("seen", kShownChild, {10, 10, 50, 20}, stage.top, 1);
    stage.step("hidden child");
    HWND hidden = stage.create("hidden", WS_CHILD, {10, 40, 50, 20}, stage.top, 2);
    stage.step("quiet child");
    stage.create("quiet", kShownChild, {10, 70, 50, 20}, stage.top, 3, WS_EX_NOPARENTNOTIFY);
    stage.step("empty child", [&] { stage.create("empty", kShownChild, {0, 0, 0, 0}, stage.top, 4); });
    stage.step("show hidden", [&] { ShowWindow(hidden, SW_SHOW); });
    stage.step("hide", [&] { ShowWindow(hidden, SW_HIDE); });
    stage.step("message-only window");
    HWND quiet = stage.create("quiet", 0, {0, 0, 0, 0}, HWND_MESSAGE);
    stage.note(GetParent(quiet) ? "parent" : "no parent");
    DestroyWindow(quiet);
    stage.step("refused before it exists", [&] { stage.answer(WM_NCCREATE, FALSE); });
    stage.note(stage.create("nc", kShownChild, {10, 10, 50, 20}, stage.top) ? "made" : "refused");
    stage.step("refused", [&] { stage.answer(WM_CREATE, -1); });
    stage.note(stage.create("create", kShownChild, {10, 10, 50, 20}, stage.top) ? "made" : "refused");
}

// A dialog comes up like this: everything is there before it is shown.
void showAFilledWindow(Stage& stage) {
    HWND popup = stage.create("popup", kPopup, kTopPlace);
    stage.create("one", kShownChild, {10, 10, 50, 20}, popup, 1);
    HWND two = stage.create("two", WS_CHILD, {10, 40, 50, 20}, popup, 2);
    stage.step("show and hide children");
    for (const int command : {SW_SHOW, SW_HIDE, SW_SHOWNA}) {
        ShowWindow(two, command);
    }
    stage.step("move a child", [&] { MoveWindow(two, 10, 50, 60, 20, TRUE); });
    stage.step("show", [&] { ShowWindow(popup, SW_SHOWNORMAL); });
    stage.note("-- update");
    UpdateWindow(popup);
    stage.step("show again");
    for (const int command : {SW_SHOW, SW_SHOWNORMAL, SW_SHOWNOACTIVATE, SW_SHOWNA}) {
        stage.note("-- command " + std::to_string(command));
        ShowWindow(popup, command);
        drainQueue();
    }
    stage.step("destroy hidden", [&] { ShowWindow(popup, SW_HIDE); });
    DestroyWindow(two);
}

void moveAndSize(Stage& stage) {
    constexpr UINT kAlone = SWP_NOZORDER | SWP_NOACTIVATE;
    stage.spy().ignorePainting();
    stage.step("move", [&] { SetWindowPos(stage.first, nullptr, 20, 15, 0, 0, SWP_NOSIZE | kAlone); });
    stage.step("size", [&] { SetWindowPos(stage.first, nullptr, 0, 0, 60, 25, SWP_NOMOVE | kAlone); });
    stage.step("same place", [&] { MoveWindow(stage.first, 20, 15, 60, 25, TRUE); });
    stage.step("order", [&] { SetWindowPos(stage.second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); });
    stage.step("frame", [&] { SetWindowPos(stage.second, nullptr, 0, 0, 0, 0, kOnlyFrame); });
    stage.step("move top", [&] { MoveWindow(stage.top, 70, 80, 200, 100, TRUE); });
    stage.step("size top", [&] { MoveWindow(stage.top, 70, 80, 220, 120, TRUE); });
    stage.step("hide and show by position");
    SetWindowPos(stage.first, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | kAlone | SWP_HIDEWINDOW);
    SetWindowPos(stage.first, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | kAlone | SWP_SHOWWINDOW);
    drainQueue();
}

void focusMoves(Stage& stage) {
    for (HWND window : {stage.first, stage.second, stage.second, HWND{}, stage.second}) {
        stage.note("-- to " + stage.name(window));
        stage.previous(SetFocus(window));
    }
    stage.step("redirected while leaving", [&] { stage.redirectFocus(stage.second, WM_KILLFOCUS, stage.top); });
    stage.previous(SetFocus(stage.first));
    stage.clearAnswer();
    stage.state();
    stage.step("redirected while entering", [&] { stage.redirectFocus(stage.second, WM_SETFOCUS, stage.first); });
    stage.previous(SetFocus(stage.second));
    stage.clearAnswer();
    stage.state();
}

void focusOfUnfitWindows(Stage& stage) {
    stage.focusQuietly(stage.first);
    stage.step("disable the focus window", [&] { EnableWindow(stage.first, FALSE); });
    stage.state();
    stage.step("focus a disabled window", [&] { SetFocus(stage.first); });
    stage.state();
    EnableWindow(stage.first, TRUE);
    stage.focusQuietly(stage.first);
    stage.step("hide the focus window", [&] { ShowWindow(stage.first, SW_HIDE); });
    stage.state();
    stage.step("focus a hidden window", [&] { SetFocus(stage.first); });
    stage.state();
    stage.step("destroy the focus window", [&] { DestroyWindow(stage.first); });
    stage.state();
    stage.focusQuietly(stage.second);
    stage.step("child of a disabled window", [&] { EnableWindow(stage.top, FALSE); });
    stage.state();
    EnableWindow(stage.top, TRUE);
}

void activation(Stage& stage) {
    stage.focusQuietly(stage.first);
    stage.step("second top-level window appears");
    HWND other = stage.create("other", kShownPopup, {300, 60, 100, 100});
    drainQueue();
    stage.state();
    stage.step("activate the first", [&] { stage.previous(SetActiveWindow(stage.top)); });
    stage.state();
    stage.step("focus across", [&] { SetFocus(other); });
    stage.step("focus a child across", [&] { SetFocus(stage.second); });
    stage.state();
    stage.step("destroy the inactive one", [&] { DestroyWindow(other); });
    stage.step("destroy the active one", [&] { DestroyWindow(stage.top); });
    stage.state();
}

void modalPopup(Stage& stage) {
    stage.focusQuietly(stage.first);
    stage.step("create owned");
    HWND owned = stage.create("owned", kPopup, {80, 80, 100, 50}, stage.top);
    stage.step("disable owner", [&] { EnableWindow(stage.top, FALSE); });
    stage.step("show owned", [&] { ShowWindow(owned, SW_SHOWNORMAL); });
    drainQueue();
    stage.note("last popup " + stage.name(GetLastActivePopup(stage.top)));
    stage.state();
    stage.step("enable owner", [&] { EnableWindow(stage.top, TRUE); });
    stage.step("destroy owned", [&] { DestroyWindow(owned); });
    drainQueue();
    stage.state();
    stage.step("hide an active owned window");
    HWND hidden = stage.createQuietly("owned", kShownPopup, kTopPlace, stage.top);
    ShowWindow(hidden, SW_HIDE);
    drainQueue();
    stage.state();
    stage.step("show without activation", [&] { ShowWindow(hidden, SW_SHOWNA); });
    stage.state();
    stage.step("destroy what a disabled owner owns", [&] { SetActiveWindow(hidden); });
    EnableWindow(stage.top, FALSE);
    DestroyWindow(hidden);
    stage.state();
    stage.step("destroy owner", [&] { stage.create("last", kPopup, {80, 80, 100, 50}, stage.top); });
    DestroyWindow(stage.top);
}

void whoIsActivatedNext(Stage& stage) {
    HWND between = stage.createQuietly("between", kShownPopup, {300, 60, 50, 50});
    HWND owned = stage.createQuietly("owned", kShownPopup, {80, 80, 100, 50}, stage.top);
    stage.spy().mute(true);
    SetActiveWindow(owned);
    SetWindowPos(between, owned, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    const auto hide = [&stage](HWND window) {
        ShowWindow(window, SW_HIDE);
        drainQueue();
        stage.state();
    };
    hide(owned);
    ShowWindow(owned, SW_SHOW);
    EnableWindow(stage.top, FALSE);
    hide(owned);
    stage.note("last popup " + stage.name(GetLastActivePopup(stage.top)));
    EnableWindow(stage.top, TRUE);
    HWND disabled = stage.create("disabled", kPopup | WS_DISABLED, {300, 60, 50, 50});
    ShowWindow(disabled, SW_SHOWNA);
    hide(stage.top);
    hide(between);
}

void enabling(Stage& stage) {
    for (const BOOL enable : {FALSE, FALSE, TRUE}) {
        stage.note(EnableWindow(stage.first, enable) ? "was disabled" : "was enabled");
    }
    stage.step("capture and disable", [&] { SetCapture(stage.second); });
    EnableWindow(stage.second, FALSE);
    stage.state();
}

void styleBits(Stage& stage) {
    stage.spy().ignorePainting();
    SetWindowLongPtrA(stage.first, GWL_STYLE, GetWindowLongPtrA(stage.first, GWL_STYLE) | WS_DISABLED);
    stage.note(IsWindowEnabled(stage.first) ? "enabled" : "disabled");
    stage.step("visible", [&] { SetWindowLongPtrA(stage.first, GWL_STYLE, WS_CHILD); });
    stage.note(IsWindowVisible(stage.first) ? "visible" : "hidden");
    stage.step("border", [&] { SetWindowLongPtrA(stage.first, GWL_STYLE, WS_CHILD | WS_VISIBLE | WS_BORDER); });
    stage.step("frame", [&] { SetWindowPos(stage.first, nullptr, 0, 0, 0, 0, kOnlyFrame); });
    RECT client;
    GetClientRect(stage.first, &client);
    stage.note(std::to_string(client.right) + "x" + std::to_string(client.bottom));
    stage.step("sunken edge");
    stage.create("edged", kShownChild, {100, 10, 50, 20}, stage.top, 3, WS_EX_CLIENTEDGE);
    stage.step("raised edge");
    constexpr DWORD kExStyles[] = {0, WS_EX_WINDOWEDGE, WS_EX_DLGMODALFRAME, WS_EX_STATICEDGE | WS_EX_CLIENTEDGE};
    constexpr DWORD kStyles[] = {WS_CHILD, WS_CHILD | WS_CAPTION, WS_CHILD | WS_THICKFRAME};
    for (const DWORD exStyle : kExStyles) {
        for (const DWORD style : kStyles) {
            const bool muted = stage.spy().mute(true);
            HWND window = stage.create("framed", style, {0, 0, 5, 5}, stage.top, 4, exStyle);
            stage.spy().mute(muted);
            const LONG created = GetWindowLongA(window, GWL_EXSTYLE);
            SetWindowLongA(window, GWL_EXSTYLE, 0);
            stage.note(std::to_string(created) + ", " + std::to_string(GetWindowLongA(window, GWL_EXSTYLE)));
        }
    }
    stage.step("text", [&] { SetWindowTextA(stage.first, "abc"); });
    char text[3];
    stage.note(std::to_string(GetWindowTextA(stage.first, text, sizeof text)) + " " + text);
    stage.note(std::to_string(GetWindowTextLengthA(stage.first)));
}

void capture(Stage& stage) {
    for (HWND window : {stage.first, stage.second, stage.second}) {
        stage.previous(SetCapture(window));
    }
    ReleaseCapture();
    stage.state();
    SetCapture(stage.first);
    stage.step("hide", [&] { ShowWindow(stage.first, SW_HIDE); });
    stage.state();
    SetCapture(stage.second);
    stage.step("destroy", [&] { DestroyWindow(stage.second); });
    stage.state();
}

void destroying(Stage& stage) {
    HWND inner = stage.createQuietly("inner", kShownChild, {1, 1, 5, 5}, stage.first, 7);
    stage.focusQuietly(inner);
    stage.step("a child with the focus inside", [&] { DestroyWindow(stage.first); });
    stage.state();
    stage.createQuietly("inner", kShownChild, {1, 1, 5, 5}, stage.second, 7);
    stage.createQuietly("owned", kPopup, {80, 80, 100, 50}, stage.top);
    stage.focusQuietly(stage.second);
    stage.step("a tree", [&] { DestroyWindow(stage.top); });
    stage.note(IsWindow(stage.second) ? "alive" : "gone");
}

void queueOrder(Stage& stage) {
    InvalidateRect(stage.first, nullptr, FALSE);
    PostMessageA(stage.first, WM_USER, 1, 0);
    PostMessageA(stage.second, WM_APP, 2, 0);
    PostMessageA(stage.first, WM_USER, 3, 0);
    MSG message;
    const auto peek = [&](HWND window, UINT first, UINT last, UINT remove) {
        stage.note(PeekMessageA(&message, window, first, last, remove) ? "waits" : "none");
    };
    peek(nullptr, WM_APP, WM_APP, PM_NOREMOVE);
    peek(stage.second, 0, 0, PM_REMOVE);
    peek(stage.second, WM_USER, WM_APP, PM_REMOVE);
    peek(stage.top, WM_USER, WM_USER, PM_NOREMOVE);
    stage.step("quit comes after the posted ones", [&] { PostQuitMessage(5); });
    PostMessageA(stage.first, WM_USER, 4, 0);
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        DispatchMessageA(&message);
    }
    stage.note("exit code " + std::to_string(message.wParam));
    stage.step("dropped with its window", [&] { PostMessageA(stage.first, WM_USER, 6, 0); });
    DestroyWindow(stage.first);
    stage.note(PostMessageA(stage.first, WM_USER, 7, 0) ? "posted" : "refused");
    peek(nullptr, WM_USER, WM_USER, PM_REMOVE);
}

void keysThatWerePosted(Stage& stage) {
    for (const UINT key : {UINT{'A'}, UINT{'7'}, UINT{VK_SPACE}, UINT{VK_RETURN}, UINT{VK_TAB}, UINT{VK_BACK},
                           UINT{VK_ESCAPE}, UINT{VK_LEFT}, UINT{VK_F1}, UINT{VK_DELETE}, UINT{VK_ADD}}) {
        postKey(stage.first, key);
        drainQueue();
    }
    stage.step("with Alt", [&] { PostMessageA(stage.first, WM_SYSKEYDOWN, 'X', 0x20000001); });
    PostMessageA(stage.first, WM_SYSCHAR, VK_ESCAPE, 0x20000001);
    for (const char* const modifiers : {"S", "C", "L", "SL", "CL", "N"}) {
        stage.step(modifiers);
        const HeldKeys held(modifiers);
        stage.note("locks " + std::to_string(GetKeyState(VK_CAPITAL)) + " " + std::to_string(GetKeyState(VK_NUMLOCK)));
        for (const UINT key : {UINT{'A'}, UINT{'1'}, UINT{VK_NUMPAD0}, UINT{VK_TAB}, UINT{VK_RETURN}, UINT{VK_BACK}}) {
            PostMessageA(stage.first, WM_KEYDOWN, key, 1);
        }
        drainQueue();
    }
}

void closing(Stage& stage) {
    stage.answer(WM_CLOSE, 0);
    SendMessageA(stage.top, WM_SYSCOMMAND, SC_CLOSE, 0);
    stage.clearAnswer();
    SendMessageA(stage.top, WM_CLOSE, 0, 0);
    stage.note(IsWindow(stage.top) ? "alive" : "gone");
}

void order(Stage& stage) {
    HWND third = stage.createQuietly("third", kShownChild, {10, 70, 50, 20}, stage.top, 3);
    stage.spy().mute(true);
    struct Placement {
        HWND window;
        HWND after;
    };
    for (const Placement& placement : {Placement{third, HWND_TOP}, Placement{stage.first, stage.second},
                                       Placement{third, HWND_BOTTOM}, Placement{stage.first, HWND_TOP}}) {
        SetWindowPos(placement.window, placement.after, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
        std::string names;
        for (HWND child = GetWindow(stage.top, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            names += stage.name(child) + " ";
        }
        stage.note(names);
    }
}

Stage* hooked = nullptr;

LRESULT CALLBACK noteHook(int code, WPARAM wParam, LPARAM lParam) {
    const std::string window = hooked->name(reinterpret_cast<HWND>(wParam));
    if (code == HCBT_CREATEWND) {
        hooked->note("hook: create");
    } else if (code == HCBT_DESTROYWND) {
        hooked->note("hook: destroy " + window);
    } else if (code == HCBT_ACTIVATE) {
        hooked->note("hook: activate " + window);
    } else if (code == HCBT_SETFOCUS) {
        hooked->note("hook: focus " + window);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void hooks(Stage& stage) {
    hooked = &stage;
    HHOOK hook = SetWindowsHookExA(WH_CBT, noteHook, nullptr, GetCurrentThreadId());
    HWND owned = stage.create("owned", kShownPopup, {80, 80, 100, 50}, stage.top);
    stage.create("child", kShownChild, {10, 10, 50, 20}, owned, 1);
    SetFocus(stage.first);
    DestroyWindow(owned);
    UnhookWindowsHookEx(hook);
}

// Only what the stage posted: other messages come when the system likes.
LRESULT CALLBACK noteTakenMessage(int code, WPARAM wParam, LPARAM lParam) {
    const UINT message = reinterpret_cast<const MSG*>(lParam)->message;
    if (message >= WM_APP && message < 0xC000) {
        hooked->note("hook: message " + std::to_string(message - WM_APP) + " code " + std::to_string(code) +
                     (wParam == PM_REMOVE ? " removed" : " looked at"));
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void messageHooks(Stage& stage) {
    hooked = &stage;
    HHOOK hook = SetWindowsHookExA(WH_GETMESSAGE, noteTakenMessage, nullptr, GetCurrentThreadId());
    MSG message{};
    PostMessageA(stage.first, WM_APP + 1, 0, 0);
    PostMessageA(stage.first, WM_APP + 2, 0, 0);
    PeekMessageA(&message, nullptr, WM_APP, WM_APP + 9, PM_NOREMOVE);
    stage.note("looked");
    PeekMessageA(&message, nullptr, WM_APP + 2, WM_APP + 2, PM_REMOVE);
    stage.note("took the second");
    GetMessageA(&message, nullptr, WM_APP, WM_APP + 9);
    stage.note("took " + std::to_string(message.message - WM_APP));
    PeekMessageA(&message, nullptr, WM_APP, WM_APP + 9, PM_REMOVE);
    PostMessageA(stage.first, WM_APP + 3, 0, 0);
    UnhookWindowsHookEx(hook);
    PeekMessageA(&message, nullptr, WM_APP, WM_APP + 9, PM_REMOVE);
}

void staleHandles(Stage& stage) {
    HWND stale = stage.first;
    DestroyWindow(stale);
    HWND reused = stage.createQuietly("reused", WS_CHILD, {0, 0, 1, 1}, stage.top);
    stage.note(reused == stale ? "same handle" : "another handle");
    SetLastError(ERROR_SUCCESS);
    for (const bool taken :
         {IsWindow(stale) != 0, SetWindowTextA(stale, "x") != 0, SendMessageA(stale, WM_USER, 0, 0) != 0,
          SetFocus(stale) != nullptr, IsWindow(reinterpret_cast<HWND>(std::uintptr_t{0x12345678})) != 0}) {
        stage.note(std::string(taken ? "taken" : "refused") + ", error " + std::to_string(GetLastError()));
    }
}

void storedData(Stage& stage) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.cbWndExtra = 12;
    windowClass.lpszClassName = "WithExtra";
    stage.note(RegisterClassA(&windowClass) ? "registered" : "refused");
    stage.note(RegisterClassA(&windowClass) ? "registered again" : "refused again");
    HWND window = CreateWindowExA(0, "wITHeXTRA", "", WS_CHILD, 0, 0, 1, 1, stage.top, nullptr, nullptr, nullptr);
    char name[20];
    GetClassNameA(window, name, sizeof name);
    stage.note(name);
    for (const int index : {4, 8, GWLP_USERDATA, GWLP_ID}) {
        const LONG_PTR before = SetWindowLongPtrA(window, index, 0x12345);
        stage.note(std::to_string(before) + ", then " + std::to_string(GetWindowLongPtrA(window, index)));
    }
    stage.note("another one's " + std::to_string(GetWindowLongPtrA(stage.first, GWLP_USERDATA)));
    DestroyWindow(window);
}

constexpr StagedSection kSections[] = {
    {"create and show", createAndShow},
    {"create children", createChildren},
    {"show a filled window", showAFilledWindow},
    {"move and size", moveAndSize},
    {"focus moves", focusMoves},
    {"focus of unfit windows", focusOfUnfitWindows},
    {"activation", activation},
    {"modal popup", modalPopup},
    {"who is activated next", whoIsActivatedNext},
    {"enabling", enabling},
    {"style bits", styleBits},
    {"capture", capture},
    {"destroying", destroying},
    {"stale handles", staleHandles},
    {"stored data", storedData},
    {"queue order", queueOrder},
    {"keys that were posted", keysThatWerePosted},
    {"closing", closing},
    {"order", order},
    {"hooks", hooks},
    {"message hooks", messageHooks},
};

}  // namespace

void traceWindows(Trace& trace) {
    play(trace, kSections);
}
