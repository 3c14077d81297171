// Buttons and statics: what each kind tells its parent, its states, and how owner-drawn ones are asked to draw.
#include "tests/conformance/window_spy.h"

#include <iterator>

namespace {

struct Kind {
    const char* name;
    DWORD style;
};

constexpr Kind kKinds[] = {
    {"push", BS_PUSHBUTTON},         {"default push", BS_DEFPUSHBUTTON}, {"check", BS_CHECKBOX},
    {"auto check", BS_AUTOCHECKBOX}, {"radio", BS_RADIOBUTTON},          {"auto radio", BS_AUTORADIOBUTTON},
    {"3-state", BS_3STATE},          {"auto 3-state", BS_AUTO3STATE},    {"group box", BS_GROUPBOX},
    {"owner-drawn", BS_OWNERDRAW},
};

class ButtonScene {
public:
    ButtonScene(Trace& trace, LoggingParent::Kind kind = LoggingParent::Kind::Window)
        : trace_(trace), parent_(trace, kind) {}

    HWND add(DWORD style, int id, int row = 0) {
        return parent_.add("Button", "Text", style, id, 10, 10 + 30 * row, 90, 24);
    }
    void state(const char* what, HWND button) {
        parent_.drain();
        trace_.line("%s: check %d state %#x style %#x code %#x%s%s", what,
                    static_cast<int>(SendMessageA(button, BM_GETCHECK, 0, 0)),
                    static_cast<unsigned>(SendMessageA(button, BM_GETSTATE, 0, 0)),
                    static_cast<unsigned>(GetWindowLongA(button, GWL_STYLE)),
                    static_cast<unsigned>(SendMessageA(button, WM_GETDLGCODE, 0, 0)),
                    GetFocus() == button ? " focus" : "", GetCapture() == button ? " capture" : "");
    }
    template <class Action>
    void step(const char* what, HWND button, Action action) {
        action();
        state(what, button);
    }
    void pressInEveryWay(HWND button) {
        postClick(button);
        state("clicked", button);
        postKey(button, VK_SPACE);
        state("space", button);
        SendMessageA(button, BM_CLICK, 0, 0);
        state("BM_CLICK", button);
    }
    LoggingParent& parent() { return parent_; }

private:
    Trace& trace_;
    LoggingParent parent_;
};

void traceClicks(Trace& trace) {
    constexpr DWORD kNotify[] = {0, BS_NOTIFY};
    for (const Kind& kind : kKinds) {
        trace.section(kind.name);
        for (const DWORD notify : kNotify) {
            ButtonScene scene(trace);
            trace.line("-- %s", notify ? "with BS_NOTIFY" : "plain");
            HWND button = scene.add(kind.style | notify, 10);
            scene.state("fresh", button);
            scene.pressInEveryWay(button);
            PostMessageA(button, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
            scene.step("double-clicked", button, [&] { PostMessageA(button, WM_LBUTTONUP, 0, MAKELPARAM(5, 5)); });
            scene.step("left", button, [&] { SetFocus(scene.parent().handle()); });
        }
    }
}

void traceInterruptedPresses(Trace& trace) {
    constexpr DWORD kStyles[] = {BS_PUSHBUTTON | BS_NOTIFY, BS_AUTOCHECKBOX | BS_NOTIFY, BS_OWNERDRAW | BS_NOTIFY};
    trace.section("presses that do not end on the button");
    for (const DWORD style : kStyles) {
        trace.line("-- style %#x", static_cast<unsigned>(style));
        ButtonScene scene(trace);
        HWND button = scene.add(style, 10);
        constexpr LPARAM kInside = MAKELPARAM(5, 5);
        constexpr LPARAM kOutside = MAKELPARAM(500, 5);
        const auto post = [&](UINT message, WPARAM wParam, LPARAM lParam, const char* what = nullptr) {
            PostMessageA(button, message, wParam, lParam);
            if (what) {
                scene.state(what, button);
            }
        };
        post(WM_LBUTTONDOWN, MK_LBUTTON, kInside, "down");
        post(WM_MOUSEMOVE, MK_LBUTTON, kOutside, "dragged off");
        post(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(6, 5), "dragged back");
        post(WM_MOUSEMOVE, MK_LBUTTON, kOutside);
        post(WM_LBUTTONUP, 0, kOutside, "released outside");
        post(WM_LBUTTONDOWN, MK_LBUTTON, kInside);
        post(WM_LBUTTONUP, 0, kOutside, "released outside without a move");
        post(WM_LBUTTONDOWN, MK_LBUTTON, kInside, "down again");
        scene.step("capture lost", button, [&] { ReleaseCapture(); });
        post(WM_KEYDOWN, VK_SPACE, 1, "space down");
        scene.step("focus lost", button, [&] { SetFocus(scene.parent().handle()); });
        SetFocus(button);
        post(WM_KEYUP, VK_SPACE, 1, "space up alone");
        post(WM_KEYDOWN, VK_SPACE, 1);
        scene.parent().drain();
        scene.step("another key while space is down", button, [&] { postKey(button, VK_RETURN); });
        post(WM_KEYUP, VK_SPACE, 1, "space up");
        SetWindowLongA(button, GWL_STYLE, GetWindowLongA(button, GWL_STYLE) | WS_DISABLED);
        scene.step("BM_CLICK while disabled", button, [&] { SendMessageA(button, BM_CLICK, 0, 0); });
        scene.step("enabled", button, [&] { EnableWindow(button, TRUE); });
    }
}

void traceChecks(Trace& trace) {
    trace.section("check marks and radio groups");
    ButtonScene scene(trace);
    for (const Kind& kind : kKinds) {
        HWND button = scene.add(kind.style, 10);
        for (const WPARAM check : {1, 2, 3, 0}) {
            const LRESULT result = SendMessageA(button, BM_SETCHECK, check, 0);
            trace.line("%s: BM_SETCHECK %d gives %d, check %d, tab stop %d", kind.name, static_cast<int>(check),
                       static_cast<int>(result), static_cast<int>(SendMessageA(button, BM_GETCHECK, 0, 0)),
                       (GetWindowLongA(button, GWL_STYLE) & WS_TABSTOP) != 0);
        }
        scene.step("BM_SETSTATE on", button, [&] { SendMessageA(button, BM_SETSTATE, TRUE, 0); });
        scene.step("BM_SETSTATE off", button, [&] { SendMessageA(button, BM_SETSTATE, FALSE, 0); });
        scene.step("BM_SETSTYLE", button, [&] { SendMessageA(button, BM_SETSTYLE, BS_AUTORADIOBUTTON, TRUE); });
        DestroyWindow(button);
    }

    HWND radios[5];
    for (int i = 0; i < 5; ++i) {
        const DWORD group = i == 0 || i == 3 ? WS_GROUP : 0;
        radios[i] = scene.add(BS_AUTORADIOBUTTON | group, 20 + i, i);
    }
    for (const int press : {1, 3, 2, 2, 4}) {
        postClick(radios[press]);
        scene.parent().drain();
        trace.line("press %d", press);
        for (HWND radio : radios) {
            scene.state("radio", radio);
        }
    }
    SetFocus(radios[1]);
    scene.state("focus alone", radios[1]);
    EnableWindow(radios[0], FALSE);
    SendMessageA(radios[0], BM_SETCHECK, BST_CHECKED, 0);
    trace.line("both set: %d %d", static_cast<int>(SendMessageA(radios[0], BM_GETCHECK, 0, 0)),
               static_cast<int>(SendMessageA(radios[2], BM_GETCHECK, 0, 0)));
    postClick(radios[1]);
    scene.parent().drain();
    trace.line("after a press: %d %d %d", static_cast<int>(SendMessageA(radios[0], BM_GETCHECK, 0, 0)),
               static_cast<int>(SendMessageA(radios[1], BM_GETCHECK, 0, 0)),
               static_cast<int>(SendMessageA(radios[2], BM_GETCHECK, 0, 0)));
}

void traceOwnerDraw(Trace& trace) {
    trace.section("drawing by the owner");
    ButtonScene scene(trace);
    scene.parent().setHook([&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        if (message != WM_DRAWITEM) {
            return false;
        }
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        trace.line("WM_DRAWITEM %d: type %u id %u item %u action %#x state %#x rect %d %d %d %d data %d",
                   static_cast<int>(wParam), draw->CtlType, draw->CtlID, draw->itemID, draw->itemAction,
                   draw->itemState, static_cast<int>(draw->rcItem.left), static_cast<int>(draw->rcItem.top),
                   static_cast<int>(draw->rcItem.right), static_cast<int>(draw->rcItem.bottom),
                   static_cast<int>(draw->itemData));
        result = TRUE;
        return true;
    });
    HWND button = scene.add(BS_OWNERDRAW, 10);
    const auto redraw = [&](const char* what) {
        trace.line("-- %s", what);
        InvalidateRect(button, nullptr, TRUE);
        UpdateWindow(button);
    };
    const auto step = [&](const char* what, const auto& action) {
        trace.line("-- %s", what);
        action();
        scene.parent().drain();
    };
    const LONG style = GetWindowLongA(button, GWL_STYLE);
    redraw("fresh");
    step("focus", [=] { SetFocus(button); });
    redraw("redrawn with focus");
    step("space down", [=] { PostMessageA(button, WM_KEYDOWN, VK_SPACE, 1); });
    step("space up", [=] { PostMessageA(button, WM_KEYUP, VK_SPACE, 1); });
    step("disabled", [=] { EnableWindow(button, FALSE); });
    redraw("redrawn disabled");
    step("enabled by its style", [=] { SetWindowLongA(button, GWL_STYLE, style); });
    redraw("redrawn enabled");
    step("text", [=] { SetWindowTextA(button, "Other"); });
    step("focus away", [&] { SetFocus(scene.parent().handle()); });
    trace.line("-- hidden");
    ShowWindow(button, SW_HIDE);
    redraw("redrawn hidden");
}

void traceMessageOrder(Trace& trace) {
    constexpr DWORD kStyles[] = {BS_PUSHBUTTON, BS_AUTOCHECKBOX, BS_AUTORADIOBUTTON};
    trace.section("messages of one click");
    for (const DWORD style : kStyles) {
        ButtonScene scene(trace);
        HWND button = scene.add(style | BS_NOTIFY, 10);
        scene.parent().drain();
        WindowSpy spy(trace, {}, Detail::Window);
        spy.ignorePainting();
        spy.watch(button);
        scene.pressInEveryWay(button);
    }
}

void traceArrowKeys(Trace& trace) {
    trace.section("arrow keys in a dialog");
    ButtonScene scene(trace, LoggingParent::Kind::Dialog);
    HWND radios[3];
    for (int i = 0; i < 3; ++i) {
        radios[i] = scene.add(BS_AUTORADIOBUTTON | BS_NOTIFY | (i == 0 ? WS_GROUP | WS_TABSTOP : 0), 20 + i, i);
    }
    scene.add(BS_AUTOCHECKBOX | BS_NOTIFY | WS_GROUP | WS_TABSTOP, 23, 3);
    SendMessageA(radios[0], BM_SETCHECK, BST_CHECKED, 0);
    SetFocus(radios[0]);
    for (const UINT key : {VK_DOWN, VK_RIGHT, VK_DOWN, VK_UP, VK_TAB, VK_SPACE, VK_TAB}) {
        postKey(GetFocus(), key);
        scene.state("key", GetFocus());
    }
}

void traceStatics(Trace& trace) {
    trace.section("statics");
    constexpr Kind kStatics[] = {
        {"left", SS_LEFT},
        {"left with notifications", SS_LEFT | SS_NOTIFY},
        {"centre", SS_CENTER},
        {"right", SS_RIGHT},
        {"simple", SS_SIMPLE},
        {"no wrap", SS_LEFTNOWORDWRAP},
        {"etched horizontal", SS_ETCHEDHORZ},
        {"etched vertical", SS_ETCHEDVERT},
        {"etched frame", SS_ETCHEDFRAME},
        {"black frame", SS_BLACKFRAME},
        {"white frame", SS_WHITEFRAME | SS_NOTIFY},
        {"black rectangle", SS_BLACKRECT},
        {"white rectangle", SS_WHITERECT},
        {"sunken", SS_LEFT | SS_SUNKEN},
    };
    for (const Kind& kind : kStatics) {
        LoggingParent parent(trace, LoggingParent::Kind::Window);
        trace.line("-- %s", kind.name);
        HWND label = parent.add("Static", "&Text", kind.style, 30, 10, 10, 90, 24);
        RECT client;
        RECT window;
        GetClientRect(label, &client);
        GetWindowRect(label, &window);
        trace.line("exstyle %#x client %d %d window %d %d hit %d code %#x",
                   static_cast<unsigned>(GetWindowLongA(label, GWL_EXSTYLE)), static_cast<int>(client.right),
                   static_cast<int>(client.bottom), static_cast<int>(window.right - window.left),
                   static_cast<int>(window.bottom - window.top),
                   static_cast<int>(SendMessageA(label, WM_NCHITTEST, 0, 0)),
                   static_cast<unsigned>(SendMessageA(label, WM_GETDLGCODE, 0, 0)));
        postClick(label);
        PostMessageA(label, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(5, 5));
        parent.drain();
        EnableWindow(label, FALSE);
        EnableWindow(label, TRUE);
    }
}

// On a ground of its own colour: what a static leaves alone shows that.
void traceFrames(Trace& trace) {
    trace.section("look of frames and rectangles");
    constexpr Kind kStatics[] = {
        {"black frame", SS_BLACKFRAME},       {"grey frame", SS_GRAYFRAME},
        {"white frame", SS_WHITEFRAME},       {"black rectangle", SS_BLACKRECT},
        {"white rectangle", SS_WHITERECT},    {"etched frame", SS_ETCHEDFRAME},
        {"sunken", SS_WHITERECT | SS_SUNKEN}, {"disabled", SS_BLACKRECT | WS_DISABLED},
    };
    HBRUSH ground = CreateSolidBrush(kRed);
    for (const Kind& kind : kStatics) {
        LoggingParent parent(trace, LoggingParent::Kind::Window);
        parent.setHook([ground](UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
            result = TRUE;
            constexpr RECT kAll = {0, 0, 100, 100};
            return message == WM_ERASEBKGND && FillRect(reinterpret_cast<HDC>(wParam), &kAll, ground) != 0;
        });
        parent.add("Static", "Text", kind.style, 30, 2, 2, 12, 5);
        InvalidateRect(parent.handle(), nullptr, TRUE);
        parent.drain();
        const Canvas canvas(16, 9);
        HDC dc = GetDC(parent.handle());
        BitBlt(canvas, 0, 0, 16, 9, dc, 0, 0, SRCCOPY);
        ReleaseDC(parent.handle(), dc);
        tracePicture(trace, kind.name, canvas);
    }
    DeleteObject(ground);
}

}  // namespace

void traceButtons(Trace& trace) {
    traceClicks(trace);
    traceInterruptedPresses(trace);
    traceChecks(trace);
    traceOwnerDraw(trace);
    traceMessageOrder(trace);
    traceArrowKeys(trace);
    traceStatics(trace);
    traceFrames(trace);
}
