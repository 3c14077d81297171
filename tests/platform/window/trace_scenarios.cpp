// The scenarios whose traces are compared with the real system's. Window API only.
#include "tests/platform/window/message_trace.h"

namespace trace {
namespace {

constexpr DWORD kPopup = WS_POPUP;
constexpr DWORD kShownPopup = WS_POPUP | WS_VISIBLE;
constexpr DWORD kShownChild = WS_CHILD | WS_VISIBLE;

// Set-up that is not part of the trace.
class Muted {
public:
    explicit Muted(Recorder& recorder) : recorder_(recorder), before_(recorder.mute(true)) {}
    ~Muted() { recorder_.mute(before_); }
    Muted(const Muted&) = delete;
    Muted& operator=(const Muted&) = delete;

private:
    Recorder& recorder_;
    bool before_;
};

HWND shownTop(Recorder& recorder, const char* name, HWND owner = nullptr) {
    const Muted muted(recorder);
    const HWND top = recorder.create(name, kShownPopup, 0, {50, 60, 200, 100}, owner);
    recorder.drain();
    return top;
}

// A shown, active top-level window with two children; its own messages so far are dropped.
struct Form {
    HWND top;
    HWND first;
    HWND second;
};
Form makeForm(Recorder& recorder) {
    const Muted muted(recorder);
    Form form;
    form.top = shownTop(recorder, "top");
    form.first = recorder.create("first", kShownChild, 0, {10, 10, 50, 20}, form.top, 1);
    form.second = recorder.create("second", kShownChild, 0, {10, 40, 50, 20}, form.top, 2);
    UpdateWindow(form.top);
    recorder.drain();
    return form;
}

void focusQuietly(Recorder& recorder, HWND window) {
    const Muted muted(recorder);
    SetFocus(window);
    recorder.drain();
}

void createHiddenPopupAndShowIt(Recorder& recorder) {
    const HWND top = recorder.create("top", kPopup, 0, {50, 60, 200, 100}, nullptr);
    recorder.note("-- show");
    ShowWindow(top, SW_SHOW);
    recorder.note("-- drain");
    recorder.drain();
    recorder.note("-- hide");
    ShowWindow(top, SW_HIDE);
    recorder.note("-- destroy");
    DestroyWindow(top);
}

void createVisiblePopup(Recorder& recorder) {
    const HWND top = recorder.create("top", kShownPopup, 0, {50, 60, 200, 100}, nullptr);
    recorder.note("-- drain");
    recorder.drain();
    recorder.note("-- destroy");
    DestroyWindow(top);
}

void createChildren(Recorder& recorder) {
    const HWND top = shownTop(recorder, "top");
    recorder.create("seen", kShownChild, 0, {10, 10, 50, 20}, top, 1);
    recorder.note("-- hidden child");
    const HWND hidden = recorder.create("hidden", WS_CHILD, 0, {10, 40, 50, 20}, top, 2);
    recorder.note("-- quiet child");
    recorder.create("quiet", kShownChild, WS_EX_NOPARENTNOTIFY, {10, 70, 50, 20}, top, 3);
    recorder.note("-- empty child");
    recorder.create("empty", kShownChild, 0, {0, 0, 0, 0}, top, 4);
    recorder.note("-- show hidden");
    ShowWindow(hidden, SW_SHOW);
    recorder.note("-- drain");
    recorder.drain();
    recorder.note("-- hide");
    ShowWindow(hidden, SW_HIDE);
    recorder.note("-- drain");
    recorder.drain();
    recorder.note("-- destroy");
    DestroyWindow(top);
}

// A dialog comes up like this: everything is there before it is shown.
void showAFilledWindow(Recorder& recorder) {
    const HWND top = recorder.create("top", kPopup, 0, {50, 60, 200, 100}, nullptr);
    recorder.create("first", kShownChild, 0, {10, 10, 50, 20}, top, 1);
    const HWND second = recorder.create("second", WS_CHILD, 0, {10, 40, 50, 20}, top, 2);
    recorder.note("-- show and hide children");
    ShowWindow(second, SW_SHOW);
    ShowWindow(second, SW_HIDE);
    ShowWindow(second, SW_SHOWNA);
    recorder.note("-- move a child");
    MoveWindow(second, 10, 50, 60, 20, TRUE);
    recorder.note("-- show");
    ShowWindow(top, SW_SHOWNORMAL);
    recorder.note("-- update");
    UpdateWindow(top);
    recorder.note("-- show again");
    for (const int command : {SW_SHOW, SW_SHOWNORMAL, SW_SHOWNOACTIVATE, SW_SHOWNA}) {
        recorder.note("-- command " + std::to_string(command));
        ShowWindow(top, command);
        recorder.drain();
    }
    recorder.note("-- destroy hidden");
    ShowWindow(top, SW_HIDE);
    DestroyWindow(second);
}

void refusedCreation(Recorder& recorder) {
    const HWND top = shownTop(recorder, "top");
    recorder.setAnswer([](HWND, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = 0;
        return message == WM_NCCREATE;
    });
    recorder.note(recorder.create("nc", kShownChild, 0, {10, 10, 50, 20}, top) ? "made" : "refused");
    recorder.setAnswer([](HWND, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = -1;
        return message == WM_CREATE;
    });
    recorder.note(recorder.create("create", kShownChild, 0, {10, 10, 50, 20}, top) ? "made" : "refused");
    recorder.setAnswer(nullptr);
}

void moveAndSize(Recorder& recorder) {
    recorder.ignorePainting();
    const Form form = makeForm(recorder);
    recorder.note("-- move");
    SetWindowPos(form.first, nullptr, 20, 15, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    recorder.drain();
    recorder.note("-- size");
    SetWindowPos(form.first, nullptr, 0, 0, 60, 25, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    recorder.drain();
    recorder.note("-- same place");
    MoveWindow(form.first, 20, 15, 60, 25, TRUE);
    recorder.drain();
    recorder.note("-- order");
    SetWindowPos(form.second, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    recorder.drain();
    recorder.note("-- frame");
    SetWindowPos(form.second, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    recorder.drain();
    recorder.note("-- move top");
    MoveWindow(form.top, 70, 80, 200, 100, TRUE);
    recorder.drain();
    recorder.note("-- size top");
    MoveWindow(form.top, 70, 80, 220, 120, TRUE);
    recorder.drain();
    recorder.note("-- show by position");
    SetWindowPos(form.first, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_HIDEWINDOW);
    SetWindowPos(form.first, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    recorder.drain();
}

void focusMoves(Recorder& recorder) {
    const Form form = makeForm(recorder);
    recorder.note("-- first");
    recorder.note("previous " + recorder.name(SetFocus(form.first)));
    recorder.note("-- second");
    recorder.note("previous " + recorder.name(SetFocus(form.second)));
    recorder.note("-- second again");
    recorder.note("previous " + recorder.name(SetFocus(form.second)));
    recorder.note("-- none");
    recorder.note("previous " + recorder.name(SetFocus(nullptr)));
    recorder.note("-- second");
    SetFocus(form.second);
    recorder.note("-- redirected while leaving");
    recorder.setAnswer([&form](HWND window, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (window == form.second && message == WM_KILLFOCUS)
            SetFocus(form.top);
        return false;
    });
    recorder.note("previous " + recorder.name(SetFocus(form.first)));
    recorder.setAnswer(nullptr);
    recorder.note("focus " + recorder.name(GetFocus()));
    recorder.note("-- redirected while entering");
    recorder.setAnswer([&form](HWND window, UINT message, WPARAM, LPARAM, LRESULT&) {
        if (window == form.second && message == WM_SETFOCUS)
            SetFocus(form.first);
        return false;
    });
    recorder.note("previous " + recorder.name(SetFocus(form.second)));
    recorder.setAnswer(nullptr);
    recorder.note("focus " + recorder.name(GetFocus()));
}

void focusOfUnfitWindows(Recorder& recorder) {
    const Form form = makeForm(recorder);
    focusQuietly(recorder, form.first);
    recorder.note("-- disable the focus window");
    EnableWindow(form.first, FALSE);
    recorder.note("focus " + recorder.name(GetFocus()));
    recorder.note("-- focus a disabled window");
    SetFocus(form.first);
    recorder.note("focus " + recorder.name(GetFocus()));
    EnableWindow(form.first, TRUE);
    focusQuietly(recorder, form.first);
    recorder.note("-- hide the focus window");
    ShowWindow(form.first, SW_HIDE);
    recorder.note("focus " + recorder.name(GetFocus()));
    recorder.note("-- focus a hidden window");
    SetFocus(form.first);
    recorder.note("focus " + recorder.name(GetFocus()));
    recorder.note("-- destroy the focus window");
    DestroyWindow(form.first);
    recorder.note("focus " + recorder.name(GetFocus()));
    focusQuietly(recorder, form.second);
    recorder.note("-- child of a disabled window");
    EnableWindow(form.top, FALSE);
    recorder.note("focus " + recorder.name(GetFocus()));
    EnableWindow(form.top, TRUE);
}

void activation(Recorder& recorder) {
    const Form form = makeForm(recorder);
    focusQuietly(recorder, form.first);
    recorder.note("-- second top-level window appears");
    const HWND other = recorder.create("other", kShownPopup, 0, {300, 60, 100, 100}, nullptr);
    recorder.note("-- drain");
    recorder.drain();
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
    recorder.note("-- activate the first");
    recorder.note("previous " + recorder.name(SetActiveWindow(form.top)));
    recorder.note("focus " + recorder.name(GetFocus()));
    recorder.note("-- focus across");
    SetFocus(other);
    recorder.note("-- focus a child across");
    SetFocus(form.second);
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
    recorder.note("-- destroy the inactive one");
    DestroyWindow(other);
    recorder.note("-- destroy the active one");
    DestroyWindow(form.top);
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
}

void modalPopup(Recorder& recorder) {
    const Form form = makeForm(recorder);
    focusQuietly(recorder, form.first);
    recorder.note("-- create owned");
    const HWND owned = recorder.create("owned", kPopup, 0, {80, 80, 100, 50}, form.top);
    recorder.note("-- disable owner");
    EnableWindow(form.top, FALSE);
    recorder.note("-- show owned");
    ShowWindow(owned, SW_SHOWNORMAL);
    recorder.drain();
    recorder.note("last popup " + recorder.name(GetLastActivePopup(form.top)));
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
    recorder.note("-- enable owner");
    EnableWindow(form.top, TRUE);
    recorder.note("-- destroy owned");
    DestroyWindow(owned);
    recorder.drain();
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
    const HWND hidden = shownTop(recorder, "owned", form.top);
    recorder.note("-- hide an active owned window");
    ShowWindow(hidden, SW_HIDE);
    recorder.drain();
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
    recorder.note("-- show without activation");
    ShowWindow(hidden, SW_SHOWNA);
    recorder.note("active " + recorder.name(GetActiveWindow()));
    recorder.drain();
    recorder.note("-- destroy owner");
    DestroyWindow(form.top);
}

void disabledOwnerLosesPopup(Recorder& recorder) {
    const Form form = makeForm(recorder);
    focusQuietly(recorder, form.first);
    const HWND owned = shownTop(recorder, "owned", form.top);
    EnableWindow(form.top, FALSE);
    DestroyWindow(owned);
    recorder.note("active " + recorder.name(GetActiveWindow()) + ", focus " + recorder.name(GetFocus()));
}

void enabling(Recorder& recorder) {
    const Form form = makeForm(recorder);
    recorder.note(EnableWindow(form.first, FALSE) ? "was disabled" : "was enabled");
    recorder.note(EnableWindow(form.first, FALSE) ? "was disabled" : "was enabled");
    recorder.note(EnableWindow(form.first, TRUE) ? "was disabled" : "was enabled");
    recorder.note("-- style bit alone");
    SetWindowLongPtrA(form.first, GWL_STYLE, GetWindowLongPtrA(form.first, GWL_STYLE) | WS_DISABLED);
    recorder.note(IsWindowEnabled(form.first) ? "enabled" : "disabled");
    recorder.note("-- capture and disable");
    SetCapture(form.second);
    EnableWindow(form.second, FALSE);
    recorder.note("capture " + recorder.name(GetCapture()));
    recorder.note("-- extended style");
    SetWindowLongPtrA(form.first, GWL_EXSTYLE, WS_EX_CLIENTEDGE);
}

void capture(Recorder& recorder) {
    const Form form = makeForm(recorder);
    recorder.note("previous " + recorder.name(SetCapture(form.first)));
    recorder.note("previous " + recorder.name(SetCapture(form.second)));
    recorder.note("previous " + recorder.name(SetCapture(form.second)));
    ReleaseCapture();
    recorder.note("capture " + recorder.name(GetCapture()));
    SetCapture(form.first);
    recorder.note("-- hide");
    ShowWindow(form.first, SW_HIDE);
    recorder.note("capture " + recorder.name(GetCapture()));
    SetCapture(form.second);
    recorder.note("-- destroy");
    DestroyWindow(form.second);
    recorder.note("capture " + recorder.name(GetCapture()));
}

void destroyOfATree(Recorder& recorder) {
    const Form form = makeForm(recorder);
    recorder.create("inner", kShownChild, 0, {1, 1, 5, 5}, form.first, 7);
    recorder.create("owned", kPopup, 0, {80, 80, 100, 50}, form.top);
    focusQuietly(recorder, form.second);
    DestroyWindow(form.top);
    recorder.note(IsWindow(form.first) ? "alive" : "gone");
}

void destroyOfAChild(Recorder& recorder) {
    const Form form = makeForm(recorder);
    const HWND inner = recorder.create("inner", kShownChild, 0, {1, 1, 5, 5}, form.first, 7);
    focusQuietly(recorder, inner);
    DestroyWindow(form.first);
    recorder.note("focus " + recorder.name(GetFocus()));
    recorder.drain();
}

void textAndStyle(Recorder& recorder) {
    const Form form = makeForm(recorder);
    SetWindowTextA(form.first, "abc");
    char text[3];
    recorder.note(std::to_string(GetWindowTextA(form.first, text, sizeof text)) + " " + text);
    recorder.note(std::to_string(GetWindowTextLengthA(form.first)));
    recorder.note("-- style");
    SetWindowLongPtrA(form.first, GWL_STYLE, WS_CHILD | WS_VISIBLE | WS_BORDER);
    recorder.note("-- frame");
    SetWindowPos(form.first, nullptr, 0, 0, 0, 0,
                 SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
    RECT client;
    GetClientRect(form.first, &client);
    recorder.note(std::to_string(client.right) + "x" + std::to_string(client.bottom));
    recorder.note("-- sunken edge");
    recorder.create("edged", kShownChild, WS_EX_CLIENTEDGE, {100, 10, 50, 20}, form.top, 3);
}

void painting(Recorder& recorder) {
    const Form form = makeForm(recorder);
    recorder.note("-- child");
    InvalidateRect(form.first, nullptr, TRUE);
    recorder.drain();
    recorder.note("-- child, no erase");
    InvalidateRect(form.first, nullptr, FALSE);
    UpdateWindow(form.first);
    recorder.note("-- nothing to update");
    UpdateWindow(form.first);
    recorder.note("-- top");
    InvalidateRect(form.top, nullptr, TRUE);
    recorder.drain();
    recorder.note("-- top, no erase");
    InvalidateRect(form.top, nullptr, FALSE);
    recorder.drain();
    recorder.note("-- top, update now");
    RedrawWindow(form.top, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
    recorder.note("-- top without children");
    RedrawWindow(form.top, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_NOCHILDREN);
    recorder.drain();
    recorder.note("-- frame");
    RedrawWindow(form.first, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
    recorder.drain();
    recorder.note("-- erase now");
    RedrawWindow(form.first, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ERASENOW);
    recorder.note("-- paint");
    recorder.drain();
    recorder.note("-- validated");
    InvalidateRect(form.first, nullptr, TRUE);
    ValidateRect(form.first, nullptr);
    recorder.drain();
    recorder.note("-- no redraw");
    SendMessageA(form.first, WM_SETREDRAW, FALSE, 0);
    InvalidateRect(form.first, nullptr, TRUE);
    recorder.drain();
    SendMessageA(form.first, WM_SETREDRAW, TRUE, 0);
    recorder.drain();
    recorder.note("-- unpainted answer");
    recorder.setAnswer([](HWND window, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = 0;
        if (message == WM_PAINT)
            ValidateRect(window, nullptr);
        return message == WM_PAINT;
    });
    InvalidateRect(form.first, nullptr, TRUE);
    recorder.drain();
}

void paintingOfAClippedParent(Recorder& recorder) {
    HWND top = nullptr;
    HWND child = nullptr;
    {
        const Muted muted(recorder);
        top = recorder.create("top", kShownPopup | WS_CLIPCHILDREN, 0, {50, 60, 200, 100}, nullptr);
        child = recorder.create("child", kShownChild, 0, {10, 10, 50, 20}, top, 1);
        recorder.drain();
    }
    recorder.note("-- top");
    InvalidateRect(top, nullptr, TRUE);
    recorder.drain();
    recorder.note("-- hide child");
    ShowWindow(child, SW_HIDE);
    recorder.drain();
}

void queueOrder(Recorder& recorder) {
    const Form form = makeForm(recorder);
    InvalidateRect(form.first, nullptr, FALSE);
    PostMessageA(form.first, WM_USER, 1, 0);
    PostMessageA(form.second, WM_APP, 2, 0);
    PostMessageA(form.first, WM_USER, 3, 0);
    MSG message;
    recorder.note(PeekMessageA(&message, nullptr, WM_APP, WM_APP, PM_NOREMOVE) ? "waits" : "none");
    recorder.note(PeekMessageA(&message, form.second, 0, 0, PM_REMOVE) ? "waits" : "none");
    recorder.note(PeekMessageA(&message, form.second, WM_USER, WM_APP, PM_REMOVE) ? "waits" : "none");
    recorder.note(PeekMessageA(&message, form.top, WM_USER, WM_USER, PM_NOREMOVE) ? "waits" : "none");
    recorder.drain();
    recorder.note("-- quit comes after the posted ones");
    PostQuitMessage(5);
    PostMessageA(form.first, WM_USER, 4, 0);
    while (GetMessageA(&message, nullptr, 0, 0) > 0)
        DispatchMessageA(&message);
    recorder.note("exit code " + std::to_string(message.wParam));
    recorder.note("-- dropped with its window");
    PostMessageA(form.first, WM_USER, 6, 0);
    DestroyWindow(form.first);
    recorder.note(PostMessageA(form.first, WM_USER, 7, 0) ? "posted" : "refused");
    recorder.drain();
}

void keysThatWerePosted(Recorder& recorder) {
    const Form form = makeForm(recorder);
    for (const WPARAM key :
         {WPARAM{'A'}, WPARAM{'7'}, WPARAM{VK_SPACE}, WPARAM{VK_RETURN}, WPARAM{VK_TAB}, WPARAM{VK_BACK},
          WPARAM{VK_ESCAPE}, WPARAM{VK_LEFT}, WPARAM{VK_F1}, WPARAM{VK_DELETE}, WPARAM{VK_NUMPAD0}, WPARAM{VK_ADD}}) {
        PostMessageA(form.first, WM_KEYDOWN, key, 1);
        PostMessageA(form.first, WM_KEYUP, key, 0xC0000001);
        recorder.drain();
    }
    recorder.note("-- with Alt");
    PostMessageA(form.first, WM_SYSKEYDOWN, 'X', 0x20000001);
    recorder.drain();
    recorder.note("-- with Shift and Control");
    for (const int modifier : {VK_SHIFT, VK_CONTROL}) {
        BYTE state[256] = {};
        state[modifier] = 0x80;
        SetKeyboardState(state);
        PostMessageA(form.first, WM_KEYDOWN, 'A', 1);
        PostMessageA(form.first, WM_KEYDOWN, VK_TAB, 1);
        PostMessageA(form.first, WM_KEYDOWN, VK_RETURN, 1);
        PostMessageA(form.first, WM_KEYDOWN, VK_BACK, 1);
        recorder.drain();
        recorder.note("--");
    }
    BYTE none[256] = {};
    SetKeyboardState(none);
}

void closing(Recorder& recorder) {
    const Form form = makeForm(recorder);
    recorder.setAnswer([](HWND, UINT message, WPARAM, LPARAM, LRESULT& result) {
        result = 0;
        return message == WM_CLOSE;
    });
    SendMessageA(form.top, WM_SYSCOMMAND, SC_CLOSE, 0);
    recorder.setAnswer(nullptr);
    SendMessageA(form.top, WM_CLOSE, 0, 0);
    recorder.note(IsWindow(form.top) ? "alive" : "gone");
}

void messageOnlyAndReparented(Recorder& recorder) {
    recorder.note("-- message-only window");
    const HWND quiet = recorder.create("quiet", 0, 0, {0, 0, 0, 0}, HWND_MESSAGE);
    recorder.note(GetParent(quiet) ? "parent" : "no parent");
    DestroyWindow(quiet);
    const Form form = makeForm(recorder);
    recorder.note("-- new parent");
    {
        const Muted muted(recorder);
        SetParent(form.first, form.second);
    }
    recorder.note("parent " + recorder.name(GetParent(form.first)));
    recorder.drain();
}

void order(Recorder& recorder) {
    const Form form = makeForm(recorder);
    const Muted muted(recorder);
    const HWND third = recorder.create("third", kShownChild, 0, {10, 70, 50, 20}, form.top, 3);
    const auto children = [&recorder, &form] {
        std::string names;
        for (HWND child = GetWindow(form.top, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            names += recorder.name(child) + " ";
        return names;
    };
    std::vector<std::string> orders{children()};
    SetWindowPos(third, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    orders.push_back(children());
    SetWindowPos(form.first, form.second, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    orders.push_back(children());
    SetWindowPos(third, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE);
    orders.push_back(children());
    BringWindowToTop(form.first);
    orders.push_back(children());
    for (const std::string& line : orders)
        recorder.note(line);
}

Recorder* g_hooked = nullptr;

LRESULT CALLBACK noteHook(int code, WPARAM wParam, LPARAM lParam) {
    const std::string window = g_hooked->name(reinterpret_cast<HWND>(wParam));
    if (code == HCBT_CREATEWND)
        g_hooked->note("hook: create");
    else if (code == HCBT_DESTROYWND)
        g_hooked->note("hook: destroy " + window);
    else if (code == HCBT_ACTIVATE)
        g_hooked->note("hook: activate " + window);
    else if (code == HCBT_SETFOCUS)
        g_hooked->note("hook: focus " + window);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

void hooks(Recorder& recorder) {
    const Form form = makeForm(recorder);
    g_hooked = &recorder;
    const HHOOK hook = SetWindowsHookExA(WH_CBT, noteHook, nullptr, GetCurrentThreadId());
    const HWND owned = recorder.create("owned", kShownPopup, 0, {80, 80, 100, 50}, form.top);
    recorder.create("child", kShownChild, 0, {10, 10, 50, 20}, owned, 1);
    SetFocus(form.first);
    DestroyWindow(owned);
    UnhookWindowsHookEx(hook);
}

}  // namespace

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> all = {
        {"create hidden popup and show it", createHiddenPopupAndShowIt},
        {"create visible popup", createVisiblePopup},
        {"create children", createChildren},
        {"show a filled window", showAFilledWindow},
        {"refused creation", refusedCreation},
        {"move and size", moveAndSize},
        {"focus moves", focusMoves},
        {"focus of unfit windows", focusOfUnfitWindows},
        {"activation", activation},
        {"modal popup", modalPopup},
        {"disabled owner loses popup", disabledOwnerLosesPopup},
        {"enabling", enabling},
        {"capture", capture},
        {"destroy of a tree", destroyOfATree},
        {"destroy of a child", destroyOfAChild},
        {"text and style", textAndStyle},
        {"painting", painting},
        {"painting of a clipped parent", paintingOfAClippedParent},
        {"queue order", queueOrder},
        {"keys that were posted", keysThatWerePosted},
        {"closing", closing},
        {"message-only and reparented", messageOnlyAndReparented},
        {"order", order},
        {"hooks", hooks},
    };
    return all;
}

}  // namespace trace
