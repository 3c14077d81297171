// The life of a window: the messages of its creation, showing, moving and end, and how focus, activation,
// capture and the queue go from window to window.
#include "tests/conformance/typing.h"
#include "tests/conformance/window_stage.h"

#include <chrono>
#include <thread>

namespace {

void createAndShow(Stage& stage) {
    DestroyWindow(stage.top);
    for (const DWORD style : {kPopup, kShownPopup}) {
        stage.note("-- style " + std::to_string(style));
        HWND popup = stage.create("popup", style, kTopPlace);
        stage.step("child", [&] { stage.create("child", kShownChild, {10, 10, 50, 20}, popup, 1); });
        stage.step("show", [&] { ShowWindow(popup, SW_SHOW); });
        stage.step("hide", [&] { ShowWindow(popup, SW_HIDE); });
        stage.step("destroy", [&] { DestroyWindow(popup); });
        drainQueue();
    }
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
    stage.step("destroy what a disabled owner owns", [&] { SetActiveWindow(hidden); });
    EnableWindow(stage.top, FALSE);
    DestroyWindow(hidden);
    stage.state();
    stage.step("destroy owner", [&] { stage.create("last", kPopup, {80, 80, 100, 50}, stage.top); });
    DestroyWindow(stage.top);
}

void capture(Stage& stage) {
    for (HWND window : {stage.first, stage.second, stage.second}) {
        stage.previous(SetCapture(window));
    }
    ReleaseCapture();
    SetCapture(stage.first);
    stage.step("hide", [&] { ShowWindow(stage.first, SW_HIDE); });
    stage.state();
    SetCapture(stage.second);
    stage.step("disable", [&] { EnableWindow(stage.second, FALSE); });
    stage.state();
    stage.step("destroy", [&] { DestroyWindow(stage.second); });
    stage.state();
}

void destroying(Stage& stage) {
    HWND inner = stage.createQuietly("inner", kShownChild, {1, 1, 5, 5}, stage.first, 7);
    stage.focusQuietly(inner);
    stage.step("a child with the focus inside", [&] { DestroyWindow(stage.first); });
    stage.state();
    stage.createQuietly("owned", kPopup, {80, 80, 100, 50}, stage.top);
    stage.focusQuietly(stage.second);
    stage.step("a tree, by its close box", [&] { SendMessageA(stage.top, WM_SYSCOMMAND, SC_CLOSE, 0); });
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
    for (const char* const modifiers : {"", "S", "C", "SL", "N"}) {
        stage.step(modifiers);
        const HeldKeys held(modifiers);
        for (const UINT key : {UINT{'A'}, UINT{'1'}, UINT{VK_NUMPAD0}, UINT{VK_TAB}, UINT{VK_RETURN}, UINT{VK_LEFT}}) {
            postKey(stage.first, key);
        }
        drainQueue();
    }
}

// The first timers answer by ending themselves, so that each comes once however slow the machine is.
void CALLBACK onTimer(HWND window, UINT message, UINT_PTR id, DWORD) {
    KillTimer(window, id);
    PostMessageA(window, WM_USER, id, message);
}

void timers(Stage& stage) {
    stage.spy().setAnswer([](HWND window, UINT message, WPARAM id, LPARAM, LRESULT&) {
        if (message == WM_TIMER) {
            KillTimer(window, id);
        }
        return false;
    });
    stage.note("set " + std::to_string(SetTimer(stage.top, 3, 10, nullptr)));
    SetTimer(stage.top, 4, 10, onTimer);
    SetTimer(stage.top, 5, 10, nullptr);
    SetTimer(stage.top, 6, 100000, nullptr);
    SetTimer(stage.first, 7, 10, nullptr);
    DestroyWindow(stage.first);
    stage.note(KillTimer(stage.top, 5) ? "ended" : "not ended");
    InvalidateRect(stage.top, nullptr, FALSE);
    PostMessageA(stage.top, WM_APP, 1, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    drainQueue();
    MSG message;
    stage.note(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE) ? "more" : "no more");
}

constexpr StagedSection kSections[] = {
    {"create and show", createAndShow},
    {"show a filled window", showAFilledWindow},
    {"move and size", moveAndSize},
    {"focus moves", focusMoves},
    {"focus of unfit windows", focusOfUnfitWindows},
    {"activation", activation},
    {"modal popup", modalPopup},
    {"capture", capture},
    {"destroying", destroying},
    {"queue order", queueOrder},
    {"keys that were posted", keysThatWerePosted},
    {"timers", timers},
};

}  // namespace

void traceWindows(Trace& trace) {
    play(trace, kSections);
}
