// Track bars: position and range, the places of their parts, mouse, keys, what they tell their parent, and their look.
#include "tests/conformance/control_stage.h"

#include <string>

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
        // Asked at each drawing, of which systems choose the number.
        parent().setHook([](UINT message, WPARAM, LPARAM lParam, LRESULT&) {
            return message == WM_NOTIFY &&
                   reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(NM_CUSTOMDRAW);
        });
        drawClassically(control());
        trace.line("-- %s", kind.name);
    }
    ~TrackStage() override { parent().setHook(nullptr); }
    using ControlStage::mouse;

    void state(const char* after) const override {
        drainQueue();
        trace_.line("%s -> %d of %d..%d%s%s", after, position(), number(ask(TBM_GETRANGEMIN)),
                    number(ask(TBM_GETRANGEMAX)), GetFocus() == control() ? " focus" : "",
                    GetCapture() == control() ? " capture" : "");
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
    void mouse(const std::string& what, UINT message, POINT point) const {
        PostMessageA(control(), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(point.x, point.y));
        state(what.c_str());
    }
    void picture(const char* what) {
        RECT client;
        drainQueue();
        GetClientRect(control(), &client);
        tracePixels(trace_, what, control(), client);
    }
};

void traceRange(Trace& trace) {
    trace.section("position and range");
    TrackStage stage(trace, kKinds[0]);
    stage.state("fresh");
    constexpr MessageStep kSteps[] = {
        {"TBM_SETPOS 101", TBM_SETPOS, TRUE, 101},         {"TBM_SETPOS -1", TBM_SETPOS, TRUE, -1},
        {"TBM_SETRANGEMIN 20", TBM_SETRANGEMIN, TRUE, 20}, {"TBM_SETRANGEMAX 90000", TBM_SETRANGEMAX, FALSE, 90000},
        {"TBM_SETPOS 80000", TBM_SETPOS, FALSE, 80000},    {"TBM_SETRANGEMAX 70000", TBM_SETRANGEMAX, TRUE, 70000},
    };
    stage.run(kSteps);
    trace.line("code %#x", static_cast<unsigned>(stage.ask(WM_GETDLGCODE)));
}

void traceParts(Trace& trace) {
    trace.section("places of the parts");
    constexpr Kind kSizes[] = {
        {"horizontal", kHorizontal, kLying},
        {"vertical", kVertical, kStanding},
        {"tiny", kHorizontal, {6, 4}},
    };
    struct Setting {
        int from, to, position;
    };
    for (const Kind& kind : kSizes) {
        const TrackStage stage(trace, kind);
        for (const Setting& setting : {Setting{0, 100, 0}, {0, 100, 33}, {0, 100, 100}, {-3, 4, 0}, {5, 5, 5}}) {
            stage.ask(TBM_SETRANGEMIN, TRUE, setting.from);
            stage.ask(TBM_SETRANGEMAX, TRUE, setting.to);
            stage.ask(TBM_SETPOS, TRUE, setting.position);
            drainQueue();
            const RECT thumb = stage.part(TBM_GETTHUMBRECT);
            const RECT channel = stage.part(TBM_GETCHANNELRECT);
            trace.line("%d of %d..%d: thumb %d,%d to %d,%d channel %d,%d to %d,%d", stage.position(), setting.from,
                       setting.to, number(thumb.left), number(thumb.top), number(thumb.right), number(thumb.bottom),
                       number(channel.left), number(channel.top), number(channel.right), number(channel.bottom));
        }
    }
}

void traceDrag(Trace& trace) {
    trace.section("drag");
    for (const Kind& kind : kKinds) {
        const TrackStage stage(trace, kind);
        stage.ask(TBM_SETPOS, TRUE, 40);
        const POINT start = stage.besideThumb(0);
        const auto along = [&](int offset, int beside = 0) {
            return kind.style & TBS_VERT ? POINT{start.x + beside, start.y + offset}
                                         : POINT{start.x + offset, start.y + beside};
        };
        stage.mouse("down", WM_LBUTTONDOWN, start);
        for (const int offset : {0, 1, 2, 3, 3, 10, -20, 300, -300, 0}) {
            stage.mouse("moved by " + std::to_string(offset), WM_MOUSEMOVE, along(offset));
        }
        stage.mouse("moved far beside", WM_MOUSEMOVE, along(15, 200));
        stage.mouse("up", WM_LBUTTONUP, along(15));
        stage.mouse("down beside the thumb's middle", WM_LBUTTONDOWN, stage.besideThumb(4));
        stage.mouse("moved", WM_MOUSEMOVE, stage.besideThumb(7));
        stage.mouse("up", WM_LBUTTONUP, stage.besideThumb(7));
        stage.mouse("moved without the button", WM_MOUSEMOVE, stage.besideThumb(20));
    }
    const TrackStage stage(trace, kKinds[0]);
    stage.mouse("down", WM_LBUTTONDOWN, stage.besideThumb(0));
    stage.mouse("dragged", WM_MOUSEMOVE, stage.besideThumb(12));
    SetCapture(stage.other());
    stage.state("capture taken away");
    ReleaseCapture();
    stage.mouse("moved on", WM_MOUSEMOVE, stage.besideThumb(12));
    stage.mouse("up", WM_LBUTTONUP, stage.besideThumb(0));
}

void tracePaging(Trace& trace) {
    trace.section("a press beside the thumb");
    for (const Kind& kind : kKinds) {
        const TrackStage stage(trace, kind);
        stage.ask(TBM_SETPOS, TRUE, 40);
        for (const int offset : {30, -30, 9, -9}) {
            stage.mouse("down at " + std::to_string(offset), WM_LBUTTONDOWN, stage.besideThumb(offset));
            stage.mouse("up", WM_LBUTTONUP, stage.besideThumb(offset));
        }
        stage.mouse("held", WM_LBUTTONDOWN, stage.besideThumb(50));
        stage.mouse("moved back over the thumb", WM_MOUSEMOVE, stage.besideThumb(-20));
        stage.mouse("moved on", WM_MOUSEMOVE, stage.besideThumb(40));
        stage.mouse("up", WM_LBUTTONUP, stage.besideThumb(0));
        const POINT off = kind.style & TBS_VERT ? POINT{1, 90} : POINT{140, 1};
        stage.mouse("beside the channel", WM_LBUTTONDOWN, off);
        stage.mouse("up", WM_LBUTTONUP, off);
    }
}

void traceKeys(Trace& trace) {
    trace.section("keys");
    for (const Kind& kind : kKinds) {
        TrackStage stage(trace, kind);
        SetFocus(stage.control());
        stage.type({"{right}", "{down}", "{left}", "{up}", "{pgdn}", "{pgdn}", "{pgup}", "{end}", "{right}", "{pgdn}",
                    "{end}", "{home}", "{left}", "{home}", "{esc}", "x", "{enter}", "{C-right}"});
        stage.ask(TBM_SETPOS, TRUE, 50);
        for (const int delta : {120, -120, 60, 60, -360, 360, -1200}) {
            stage.mouse(("wheel " + std::to_string(delta)).c_str(), stage.control(), WM_MOUSEWHEEL,
                        MAKEWPARAM(0, delta), 0);
        }
    }
}

void traceLook(Trace& trace) {
    trace.section("look");
    constexpr Kind kSmall[] = {{"horizontal", kHorizontal, {40, 24}}, {"vertical", kVertical, {24, 40}}};
    for (const Kind& kind : kSmall) {
        TrackStage stage(trace, kind);
        stage.ask(TBM_SETPOS, TRUE, 30);
        SetFocus(stage.control());
        stage.picture("focused");
        stage.mouse("down", WM_LBUTTONDOWN, stage.besideThumb(0));
        stage.picture("pressed");
        stage.mouse("up", WM_LBUTTONUP, stage.besideThumb(0));
        SetFocus(stage.other());
        EnableWindow(stage.control(), FALSE);
        stage.picture("disabled");
        stage.ask(TBM_SETRANGEMAX, TRUE, 0);
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
    traceLook(trace);
}
