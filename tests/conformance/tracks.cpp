// Track bars: position and range, the places of their parts, mouse, keys, what they tell their parent, and their look.
#include "tests/conformance/control_stage.h"
#include "tests/conformance/window_spy.h"

#include <iterator>

namespace {

constexpr DWORD kHorizontal = TBS_BOTH | TBS_NOTICKS;
constexpr DWORD kVertical = TBS_VERT | TBS_BOTH | TBS_NOTICKS;
constexpr SIZE kLying = {146, 24};  // As long as a dialog has them.
constexpr SIZE kStanding = {24, 98};

struct Kind {
    const char* name;
    DWORD style;
    SIZE size;
};

constexpr Kind kKinds[] = {{"horizontal", kHorizontal, kLying}, {"vertical", kVertical, kStanding}};

class TrackStage : public ControlStage {
public:
    TrackStage(Trace& trace, const Kind& kind) : ControlStage(trace, TRACKBAR_CLASSA, "", kind.style, kind.size) {
        parent().setHook(
            [this](UINT message, WPARAM, LPARAM lParam, LRESULT& result) { return hook(message, lParam, result); });
        drawClassically(control());
        trace.line("-- %s", kind.name);
    }
    ~TrackStage() override { parent().setHook(nullptr); }

    void state(const char* after) const override {
        trace_.line("%s -> %d of %d..%d, page %d, line %d%s%s", after, position(), number(ask(TBM_GETRANGEMIN)),
                    number(ask(TBM_GETRANGEMAX)), number(ask(TBM_GETPAGESIZE)), number(ask(TBM_GETLINESIZE)),
                    GetFocus() == control() ? " focus" : "", GetCapture() == control() ? " capture" : "");
    }
    TrackStage& after(const char* what) {
        parent().drain();
        trace_.line("%s -> %d%s%s", what, position(), GetFocus() == control() ? " focus" : "",
                    GetCapture() == control() ? " capture" : "");
        return *this;
    }
    template <class Action>
    void step(const char* what, Action action) {
        trace_.line("%s", what);
        action();
        parent().drain();
    }

    int position() const { return number(ask(TBM_GETPOS)); }
    RECT part(UINT message) const {
        RECT rect{};
        ask(message, 0, reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    // A point on the track's middle line, that far along it from the middle of the thumb.
    POINT besideThumb(int offset) const {
        const RECT thumb = part(TBM_GETTHUMBRECT);
        const bool vertical = (GetWindowLongA(control(), GWL_STYLE) & TBS_VERT) != 0;
        const POINT middle = {(thumb.left + thumb.right) / 2, (thumb.top + thumb.bottom) / 2};
        return vertical ? POINT{middle.x, middle.y + offset} : POINT{middle.x + offset, middle.y};
    }
    TrackStage& mouse(UINT message, POINT point) {
        PostMessageA(control(), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(point.x, point.y));
        return *this;
    }
    void traceDrawing(LRESULT answer) {
        tracesDrawing_ = true;
        answer_ = answer;
    }
    void redraw(const char* what) const {
        trace_.line("%s", what);
        InvalidateRect(control(), nullptr, TRUE);
        UpdateWindow(control());
    }
    void picture(const char* what) {
        parent().drain();
        RECT client;
        GetClientRect(control(), &client);
        const Canvas canvas(client.right, client.bottom);
        HDC dc = GetDC(control());
        BitBlt(canvas, 0, 0, client.right, client.bottom, dc, 0, 0, SRCCOPY);
        ReleaseDC(control(), dc);
        tracePicture(trace_, what, canvas);
    }

private:
    bool hook(UINT message, LPARAM lParam, LRESULT& result) {
        if (message == WM_CTLCOLORSTATIC && tracesDrawing_) {
            trace_.line("WM_CTLCOLORSTATIC");
        }
        if (message != WM_NOTIFY || reinterpret_cast<const NMHDR*>(lParam)->code != static_cast<UINT>(NM_CUSTOMDRAW)) {
            return false;
        }
        const auto* draw = reinterpret_cast<const NMCUSTOMDRAW*>(lParam);
        if (tracesDrawing_) {
            trace_.line("NM_CUSTOMDRAW stage %#x item %d state %#x rect %d,%d to %d,%d",
                        static_cast<unsigned>(draw->dwDrawStage), static_cast<int>(draw->dwItemSpec), draw->uItemState,
                        number(draw->rc.left), number(draw->rc.top), number(draw->rc.right), number(draw->rc.bottom));
        }
        result = answer_;
        return true;
    }

    bool tracesDrawing_ = false;
    LRESULT answer_ = CDRF_DODEFAULT;
};

void traceRange(Trace& trace) {
    trace.section("position and range");
    TrackStage stage(trace, kKinds[0]);
    stage.state("fresh");
    constexpr MessageStep kSteps[] = {
        {"TBM_SETPOS 40", TBM_SETPOS, TRUE, 40, nullptr},
        {"TBM_SETPOS 40 again, no redraw", TBM_SETPOS, FALSE, 40, nullptr},
        {"TBM_SETPOS 101", TBM_SETPOS, TRUE, 101, nullptr},
        {"TBM_SETPOS -1", TBM_SETPOS, TRUE, -1, nullptr},
        {"TBM_SETPOS 70", TBM_SETPOS, TRUE, 70, nullptr},
        {"TBM_SETRANGE 10..60", TBM_SETRANGE, TRUE, MAKELPARAM(10, 60), nullptr},
        {"TBM_SETRANGE 20..20", TBM_SETRANGE, TRUE, MAKELPARAM(20, 20), nullptr},
        {"TBM_SETRANGE -5..5", TBM_SETRANGE, FALSE, MAKELPARAM(-5, 5), nullptr},
        {"TBM_SETPAGESIZE 7", TBM_SETPAGESIZE, 0, 7, nullptr},
        {"TBM_SETPAGESIZE 0", TBM_SETPAGESIZE, 0, 0, nullptr},
        {"TBM_SETRANGE 0..400", TBM_SETRANGE, TRUE, MAKELPARAM(0, 400), nullptr},
        {"TBM_SETPAGESIZE -1", TBM_SETPAGESIZE, 0, -1, nullptr},
        {"TBM_SETRANGE 0..50", TBM_SETRANGE, TRUE, MAKELPARAM(0, 50), nullptr},
        {"TBM_SETLINESIZE 3", TBM_SETLINESIZE, 0, 3, nullptr},
        {"TBM_SETLINESIZE -1", TBM_SETLINESIZE, 0, -1, nullptr},
        {"TBM_SETLINESIZE 2", TBM_SETLINESIZE, 0, 2, nullptr},
        {"TBM_SETRANGEMIN 20", TBM_SETRANGEMIN, TRUE, 20, nullptr},
        {"TBM_SETRANGEMAX 90000", TBM_SETRANGEMAX, FALSE, 90000, nullptr},
        {"TBM_SETPOS 80000", TBM_SETPOS, FALSE, 80000, nullptr},
        {"TBM_SETRANGEMAX 70000", TBM_SETRANGEMAX, TRUE, 70000, nullptr},
    };
    for (const MessageStep& step : kSteps) {
        stage.run(step);
    }
    trace.line("code %#x", static_cast<unsigned>(stage.ask(WM_GETDLGCODE)));
}

void traceParts(Trace& trace) {
    trace.section("places of the parts");
    constexpr Kind kSizes[] = {
        {"horizontal", kHorizontal, kLying},     {"vertical", kVertical, kStanding},
        {"wide", kHorizontal, {173, 21}},        {"thick", kHorizontal, {200, 60}},
        {"thin", kHorizontal, {100, 12}},        {"short", kHorizontal, {30, 24}},
        {"tiny", kHorizontal, {6, 4}},           {"high", kVertical, {30, 300}},
        {"thin, upright", kVertical, {12, 100}}, {"short, upright", kVertical, {24, 25}},
    };
    const auto print = [&trace](TrackStage& stage, const char* what) {
        stage.parent().drain();
        const RECT thumb = stage.part(TBM_GETTHUMBRECT);
        const RECT channel = stage.part(TBM_GETCHANNELRECT);
        trace.line("%s: at %d thumb %d,%d to %d,%d channel %d,%d to %d,%d", what, stage.position(), number(thumb.left),
                   number(thumb.top), number(thumb.right), number(thumb.bottom), number(channel.left),
                   number(channel.top), number(channel.right), number(channel.bottom));
    };
    for (const Kind& kind : kSizes) {
        TrackStage stage(trace, kind);
        for (const LPARAM position : {0, 1, 33, 50, 51, 99, 100}) {
            stage.ask(TBM_SETPOS, TRUE, position);
            print(stage, "0..100");
        }
        stage.ask(TBM_SETRANGE, TRUE, MAKELPARAM(-3, 4));
        for (const LPARAM position : {-3, -2, 0, 3}) {
            stage.ask(TBM_SETPOS, TRUE, position);
            print(stage, "-3..4");
        }
        stage.ask(TBM_SETRANGE, TRUE, MAKELPARAM(5, 5));
        print(stage, "5..5");
        stage.ask(TBM_SETRANGE, TRUE, MAKELPARAM(0, 1));
        SetWindowPos(stage.control(), nullptr, 0, 0, 90, 40, SWP_NOMOVE | SWP_NOZORDER);
        print(stage, "resized");
        EnableWindow(stage.control(), FALSE);
        print(stage, "disabled");
    }
}

void traceDrag(Trace& trace) {
    trace.section("drag");
    for (const Kind& kind : kKinds) {
        TrackStage stage(trace, kind);
        stage.ask(TBM_SETPOS, TRUE, 40);
        const POINT start = stage.besideThumb(0);
        const auto along = [&](int offset, int beside = 0) {
            return kind.style & TBS_VERT ? POINT{start.x + beside, start.y + offset}
                                         : POINT{start.x + offset, start.y + beside};
        };
        stage.mouse(WM_LBUTTONDOWN, start).after("down");
        for (const int offset : {0, 1, 2, 3, 3, 10, 30, 25, -20, 300, 320, -300, 0}) {
            stage.mouse(WM_MOUSEMOVE, along(offset)).after(("moved by " + std::to_string(offset)).c_str());
        }
        stage.mouse(WM_MOUSEMOVE, along(15, 200)).after("moved far beside");
        stage.mouse(WM_LBUTTONUP, along(15)).after("up");

        stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(4)).after("down beside the thumb's middle");
        const POINT edge = stage.besideThumb(7);
        stage.mouse(WM_MOUSEMOVE, edge).after("moved");
        stage.mouse(WM_LBUTTONUP, edge).after("up");

        stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(0)).mouse(WM_LBUTTONUP, stage.besideThumb(0));
        stage.after("pressed without a move");
        stage.mouse(WM_MOUSEMOVE, stage.besideThumb(20)).after("moved without the button");

        stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(0)).mouse(WM_MOUSEMOVE, stage.besideThumb(-12));
        stage.after("dragged");
        SetCapture(stage.other());
        stage.after("capture taken away");
        ReleaseCapture();
        stage.mouse(WM_MOUSEMOVE, stage.besideThumb(12)).after("moved on");
        stage.mouse(WM_LBUTTONUP, stage.besideThumb(0)).after("up");
    }
}

void tracePaging(Trace& trace) {
    trace.section("a press beside the thumb");
    for (const Kind& kind : kKinds) {
        TrackStage stage(trace, kind);
        stage.ask(TBM_SETPOS, TRUE, 40);
        for (const int offset : {30, -30, 9, -9}) {
            const POINT point = stage.besideThumb(offset);
            stage.mouse(WM_LBUTTONDOWN, point).after(("down at " + std::to_string(offset)).c_str());
            stage.mouse(WM_LBUTTONUP, point).after("up");
        }
        const POINT off = kind.style & TBS_VERT ? POINT{1, 90} : POINT{140, 1};
        stage.mouse(WM_LBUTTONDOWN, off).mouse(WM_LBUTTONUP, off).after("beside the channel");

        stage.ask(TBM_SETPOS, TRUE, 0);
        const POINT beyond = stage.besideThumb(50);
        stage.mouse(WM_LBUTTONDOWN, beyond).after("held");
        for (const int offset : {30, 0, -20, 30}) {
            stage.mouse(WM_MOUSEMOVE, stage.besideThumb(offset));
            stage.after(("moved to " + std::to_string(offset)).c_str());
        }
        stage.mouse(WM_LBUTTONUP, beyond).after("up");
    }
}

void traceKeys(Trace& trace) {
    trace.section("keys");
    constexpr const char* kKeys[] = {"{right}", "{down}", "{left}",  "{up}",   "{pgdn}",  "{pgdn}",
                                     "{pgup}",  "{end}",  "{right}", "{pgdn}", "{end}",   "{home}",
                                     "{left}",  "{home}", "{esc}",   "x",      "{enter}", "{C-right}"};
    for (const Kind& kind : kKinds) {
        TrackStage stage(trace, kind);
        SetFocus(stage.control());
        stage.ask(TBM_SETLINESIZE, 0, 3);
        for (const char* keys : kKeys) {
            stage.type(keys);
        }
        stage.ask(TBM_SETPOS, TRUE, 50);
        for (const int delta : {120, -120, 60, 60, -360, 360, -1200}) {
            stage.ask(WM_MOUSEWHEEL, MAKEWPARAM(0, delta), MAKELPARAM(0, 0));
            stage.after(("wheel " + std::to_string(delta)).c_str());
        }
    }
}

void traceMessageOrder(Trace& trace) {
    trace.section("messages of presses and focus");
    TrackStage stage(trace, kKinds[0]);
    stage.ask(TBM_SETPOS, TRUE, 40);
    stage.parent().drain();
    WindowSpy spy(trace, {}, Detail::Window);
    spy.ignorePainting();
    spy.watch(stage.control());
    stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(0)).mouse(WM_MOUSEMOVE, stage.besideThumb(20));
    stage.mouse(WM_LBUTTONUP, stage.besideThumb(20)).after("dragged");
    SetFocus(stage.other());
    stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(-30)).mouse(WM_LBUTTONUP, stage.besideThumb(-30)).after("paged");
    EnableWindow(stage.control(), FALSE);
    stage.after("disabled");
}

void traceCustomDraw(Trace& trace) {
    trace.section("drawing, as the parent is asked");
    for (const Kind& kind : kKinds) {
        TrackStage stage(trace, kind);
        stage.parent().drain();
        stage.traceDrawing(CDRF_DODEFAULT);
        stage.redraw("by itself");
        for (const LRESULT answer :
             {CDRF_NOTIFYITEMDRAW, CDRF_NOTIFYITEMDRAW | CDRF_NOTIFYPOSTPAINT, CDRF_SKIPDEFAULT}) {
            stage.traceDrawing(answer);
            stage.redraw(("answered " + std::to_string(answer)).c_str());
        }
        stage.traceDrawing(CDRF_NOTIFYITEMDRAW);
        stage.step("focus", [&] { SetFocus(stage.control()); });
        stage.step("position", [&] { stage.ask(TBM_SETPOS, TRUE, 10); });
        stage.step("down", [&] { stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(0)); });
        stage.step("moved", [&] { stage.mouse(WM_MOUSEMOVE, stage.besideThumb(5)); });
        stage.step("up", [&] { stage.mouse(WM_LBUTTONUP, stage.besideThumb(0)); });
        stage.step("disabled", [&] { EnableWindow(stage.control(), FALSE); });
        stage.step("position, no redraw", [&] { stage.ask(TBM_SETPOS, FALSE, 20); });
    }
}

void traceLook(Trace& trace) {
    trace.section("look");
    constexpr Kind kSmall[] = {{"horizontal", kHorizontal, {40, 24}}, {"vertical", kVertical, {24, 40}}};
    for (const Kind& kind : kSmall) {
        TrackStage stage(trace, kind);
        stage.ask(TBM_SETPOS, TRUE, 30);
        stage.picture("plain");
        SetFocus(stage.control());
        stage.picture("focused");
        stage.mouse(WM_LBUTTONDOWN, stage.besideThumb(0)).picture("pressed");
        stage.mouse(WM_MOUSEMOVE, stage.besideThumb(12)).picture("dragged");
        stage.mouse(WM_LBUTTONUP, stage.besideThumb(0));
        stage.parent().drain();
        SetFocus(stage.other());
        EnableWindow(stage.control(), FALSE);
        stage.picture("disabled");
        stage.ask(TBM_SETRANGE, TRUE, MAKELPARAM(5, 5));
        stage.picture("without a range");
    }
}

}  // namespace

void traceTracks(Trace& trace) {
    traceRange(trace);
    traceParts(trace);
    traceDrag(trace);
    tracePaging(trace);
    traceKeys(trace);
    traceMessageOrder(trace);
    traceCustomDraw(trace);
    traceLook(trace);
}
