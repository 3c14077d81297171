// Buttons and statics: what each kind tells its parent, its states, and how owner-drawn ones are asked to draw.
#include "tests/conformance/control_stage.h"
#include "tests/conformance/window_spy.h"

#include <array>

namespace {

struct Kind {
    const char* name;
    DWORD style;
};

constexpr Kind kKinds[] = {
    {"push", BS_PUSHBUTTON},         {"default push", BS_DEFPUSHBUTTON},
    {"auto check", BS_AUTOCHECKBOX}, {"auto radio", BS_AUTORADIOBUTTON},
    {"group box", BS_GROUPBOX},      {"owner-drawn", BS_OWNERDRAW},
};

constexpr LPARAM kInside = MAKELPARAM(5, 5);
constexpr LPARAM kOutside = MAKELPARAM(500, 5);

class ButtonStage : public ControlStage {
public:
    ButtonStage(Trace& trace, DWORD style) : ControlStage(trace, "Button", "Text", style, {90, 24}) {}
    ~ButtonStage() override { parent().setHook(nullptr); }

    HWND add(DWORD style, int row) {
        return parent().add("Button", "Text", style, kControlId + 1 + row, 10, 10 + 30 * row, 90, 24);
    }
    void state(const char* what) const override { stateOf(what, control()); }
    void stateOf(const char* what, HWND button) const {
        drainQueue();
        trace_.line("%s: check %d state %#x style %#x code %#x%s%s", what,
                    number(SendMessageA(button, BM_GETCHECK, 0, 0)),
                    static_cast<unsigned>(SendMessageA(button, BM_GETSTATE, 0, 0)),
                    static_cast<unsigned>(GetWindowLongA(button, GWL_STYLE)),
                    static_cast<unsigned>(SendMessageA(button, WM_GETDLGCODE, 0, 0)),
                    GetFocus() == button ? " focus" : "", GetCapture() == button ? " capture" : "");
    }
    void pressInEveryWay() {
        step("clicked", [this] { postClick(control()); });
        step("space", [this] { postKey(control(), VK_SPACE); });
        step("BM_CLICK", [this] { ask(BM_CLICK); });
    }
};

void traceClicks(Trace& trace) {
    trace.section("kinds");
    for (const Kind& kind : kKinds) {
        trace.line("-- %s", kind.name);
        ButtonStage stage(trace, kind.style);
        stage.state("fresh");
        stage.pressInEveryWay();
        stage.mouse("double-clicked", stage.control(), WM_LBUTTONDBLCLK, MK_LBUTTON, kInside);
        stage.mouse("released", stage.control(), WM_LBUTTONUP, 0, kInside);
        stage.run({"check", BM_SETCHECK, BST_CHECKED});
        stage.step("left", [&] { SetFocus(stage.other()); });
    }
}

void traceInterruptedPresses(Trace& trace) {
    trace.section("presses that do not end on the button");
    constexpr MessageStep kSteps[] = {
        {"down", WM_LBUTTONDOWN, MK_LBUTTON, kInside},
        {"dragged off", WM_MOUSEMOVE, MK_LBUTTON, kOutside},
        {"dragged back", WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(6, 5)},
        {"dragged off", WM_MOUSEMOVE, MK_LBUTTON, kOutside},
        {"released outside", WM_LBUTTONUP, 0, kOutside},
        {"down again", WM_LBUTTONDOWN, MK_LBUTTON, kInside},
        {"released outside without a move", WM_LBUTTONUP, 0, kOutside},
        {"down again", WM_LBUTTONDOWN, MK_LBUTTON, kInside},
        {"capture lost", WM_CANCELMODE, 0},
        {"space up alone", WM_KEYUP, VK_SPACE, 1},
        {"space down", WM_KEYDOWN, VK_SPACE, 1},
        {"another key while space is down", WM_KEYDOWN, VK_RETURN, 1},
        {"space up", WM_KEYUP, VK_SPACE, 1},
        {"space down", WM_KEYDOWN, VK_SPACE, 1},
    };
    for (const DWORD style : {DWORD{BS_PUSHBUTTON}, DWORD{BS_AUTOCHECKBOX}}) {
        trace.line("-- style %#x", static_cast<unsigned>(style));
        ButtonStage stage(trace, style);
        stage.run(kSteps);
        stage.step("focus lost", [&] { SetFocus(stage.other()); });
    }
}

void traceRadios(Trace& trace) {
    trace.section("radio groups");
    ButtonStage stage(trace, BS_GROUPBOX);
    std::array<HWND, 5> radios{};
    for (std::size_t i = 0; i < radios.size(); ++i) {
        radios[i] = stage.add(BS_AUTORADIOBUTTON | (i == 0 || i == 3 ? WS_GROUP : 0), static_cast<int>(i));
    }
    const auto states = [&](const char* what) {
        drainQueue();
        trace.line("-- %s", what);
        for (HWND radio : radios) {
            stage.stateOf("radio", radio);
        }
    };
    for (const std::size_t press : {1, 3, 2, 2}) {
        postClick(radios[press]);
        states("pressed");
    }
    SetFocus(radios[1]);
    states("focus alone");
    EnableWindow(radios[0], FALSE);
    SendMessageA(radios[0], BM_SETCHECK, BST_CHECKED, 0);
    states("a disabled one set");
    postClick(radios[1]);
    states("another one pressed");
}

void traceOwnerDraw(Trace& trace) {
    trace.section("drawing by the owner");
    ButtonStage stage(trace, BS_OWNERDRAW);
    stage.parent().setHook([&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        if (message != WM_DRAWITEM) {
            return false;
        }
        const auto* draw = reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        trace.line("WM_DRAWITEM %d: type %u id %u item %u action %#x state %#x rect %d %d %d %d data %d",
                   number(static_cast<LRESULT>(wParam)), draw->CtlType, draw->CtlID, draw->itemID, draw->itemAction,
                   draw->itemState, number(draw->rcItem.left), number(draw->rcItem.top), number(draw->rcItem.right),
                   number(draw->rcItem.bottom), static_cast<int>(draw->itemData));
        result = TRUE;
        return true;
    });
    HWND button = stage.control();
    const LONG style = GetWindowLongA(button, GWL_STYLE);
    const auto step = [&](const char* what, const auto& action) {
        trace.line("-- %s", what);
        action();
        drainQueue();
        trace.line("-- redrawn");
        InvalidateRect(button, nullptr, TRUE);
        UpdateWindow(button);
    };
    step("fresh", [] {});
    step("focus", [=] { SetFocus(button); });
    step("space down", [=] { PostMessageA(button, WM_KEYDOWN, VK_SPACE, 1); });
    step("space up", [=] { PostMessageA(button, WM_KEYUP, VK_SPACE, 1); });
    step("disabled", [=] { EnableWindow(button, FALSE); });
    step("enabled by its style", [=] { SetWindowLongA(button, GWL_STYLE, style); });
    step("text", [=] { SetWindowTextA(button, "Other"); });
    step("focus away", [&] { SetFocus(stage.other()); });
    step("hidden", [=] { ShowWindow(button, SW_HIDE); });
}

void traceMessageOrder(Trace& trace) {
    trace.section("messages of one click");
    for (const DWORD style : {DWORD{BS_PUSHBUTTON}, DWORD{BS_AUTOCHECKBOX}, DWORD{BS_AUTORADIOBUTTON}}) {
        ButtonStage stage(trace, style);
        drainQueue();
        WindowSpy spy(trace, {}, Detail::Window);
        spy.ignorePainting();
        spy.watch(stage.control());
        stage.pressInEveryWay();
    }
}

// On a ground of its own colour: what a static leaves alone shows that.
void traceStatics(Trace& trace) {
    trace.section("statics");
    constexpr Kind kStatics[] = {
        {"text", SS_LEFT},
        {"black frame", SS_BLACKFRAME},
        {"white frame", SS_WHITEFRAME},
        {"black rectangle", SS_BLACKRECT},
        {"white rectangle", SS_WHITERECT},
        {"disabled", SS_BLACKRECT | WS_DISABLED},
    };
    HBRUSH ground = CreateSolidBrush(kRed);
    for (const Kind& kind : kStatics) {
        LoggingParent parent(trace);
        parent.setHook([ground](UINT message, WPARAM wParam, LPARAM, LRESULT& result) {
            result = TRUE;
            constexpr RECT kAll = {0, 0, 100, 100};
            return message == WM_ERASEBKGND && FillRect(reinterpret_cast<HDC>(wParam), &kAll, ground) != 0;
        });
        HWND label = parent.add("Static", "", kind.style, 30, 2, 2, 12, 5);
        InvalidateRect(parent, nullptr, TRUE);
        postClick(label);
        drainQueue();
        trace.line("exstyle %#x hit %d code %#x", static_cast<unsigned>(GetWindowLongA(label, GWL_EXSTYLE)),
                   number(SendMessageA(label, WM_NCHITTEST, 0, 0)),
                   static_cast<unsigned>(SendMessageA(label, WM_GETDLGCODE, 0, 0)));
        tracePixels(trace, kind.name, parent, {0, 0, 16, 9});
    }
    DeleteObject(ground);
}

}  // namespace

void traceButtons(Trace& trace) {
    traceClicks(trace);
    traceInterruptedPresses(trace);
    traceRadios(trace);
    traceOwnerDraw(trace);
    traceMessageOrder(trace);
    traceStatics(trace);
}
