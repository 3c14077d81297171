// The header of a list view: clicks, columns that are dragged, widened and fitted, geometry.
#include "tests/conformance/list_scene.h"

namespace {

constexpr DWORD kDragging = LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP;

class HeaderScene : public ListScene {
public:
    explicit HeaderScene(Trace& trace, DWORD exStyle = kDragging) : ListScene(trace, {.exStyle = exStyle, .rows = 4}) {
        insertColumn(2, "Tredje", 40);
        for (int row = 0; row < count(); ++row) {
            setText(row, 2, "sub");
        }
        drain();
    }

    HeaderScene& press(int x) { return post(WM_LBUTTONDOWN, MK_LBUTTON, x, kMiddle); }
    HeaderScene& move(int x, int y = kMiddle) { return post(WM_MOUSEMOVE, MK_LBUTTON, x, y); }
    HeaderScene& release(int x, int y = kMiddle) { return post(WM_LBUTTONUP, 0, x, y); }
    HeaderScene& twice(int x) { return press(x).release(x).post(WM_LBUTTONDBLCLK, MK_LBUTTON, x, kMiddle).release(x); }
    HeaderScene& drag(int from, int to, int y = kMiddle) {
        return press(from).move(from + (to > from ? 3 : -3)).move((from + to) / 2, y).move(to, y).release(to, y);
    }
    void columns(const char* after) {
        drain();
        int order[3] = {};
        ask(LVM_GETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(order));
        std::string all;
        for (WPARAM i = 0; i < 3; ++i) {
            RECT rect{};
            SendMessageA(header(), HDM_GETITEMRECT, i, reinterpret_cast<LPARAM>(&rect));
            all += " " + std::to_string(i) + ": " + std::to_string(rect.left) + " to " + std::to_string(rect.right);
        }
        trace().line("%s: order %d %d %d,%s%s%s", after, order[0], order[1], order[2], all.c_str(),
                     GetCapture() ? ", captured" : "", GetFocus() == list() ? ", list has the focus" : "");
    }

private:
    static constexpr int kMiddle = 8;
    HeaderScene& post(UINT message, WPARAM keys, int x, int y) {
        PostMessageA(header(), message, keys, MAKELPARAM(x, y));
        drain();
        return *this;
    }
};

void traceClicks(Trace& trace) {
    trace.section("clicks");
    HeaderScene scene(trace);
    scene.press(30).columns("pressed");
    scene.release(30).columns("released");
    scene.press(130).release(30).columns("released on another column");
    scene.press(130).release(130, 60).columns("released below");
    scene.twice(130).columns("twice");
    scene.press(210).release(210).columns("beside all columns");
    PostMessageA(scene.header(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(30, 8));
    PostMessageA(scene.header(), WM_RBUTTONUP, 0, MAKELPARAM(30, 8));
    scene.columns("right button");
}

void traceDrags(Trace& trace) {
    trace.section("columns dragged");
    HeaderScene scene(trace);
    scene.drag(120, 20).columns("second before first");
    scene.drag(10, 150).columns("and back behind it");
    scene.drag(20, 190).columns("first to the end");
    scene.drag(150, 5).columns("last to the front");
    scene.drag(30, 60).columns("within itself");
    scene.drag(30, 110).columns("to the next one's first half");
    scene.drag(30, 130, 150).columns("far below");
    scene.answer(static_cast<UINT>(HDN_ENDDRAG), TRUE);
    scene.drag(30, 150).columns("refused at the end");
    scene.answer(static_cast<UINT>(HDN_BEGINDRAG), TRUE);
    scene.drag(30, 150).columns("refused at the beginning");
    scene.clearAnswer();
    scene.press(30).move(31).release(31).columns("hardly moved");
}

void traceWidths(Trace& trace) {
    trace.section("widths");
    HeaderScene scene(trace);
    scene.drag(100, 130).columns("first wider");
    scene.drag(128, 90).columns("narrower by its right side");
    scene.drag(91, 10).columns("dragged beyond its left side");
    scene.drag(14, -30).columns("to nothing");
    scene.drag(2, 80).columns("and back");
    RECT before{};
    SendMessageA(scene.header(), HDM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&before));
    scene.twice(before.right);
    scene.drain();
    trace.line("fitted: narrower %d", scene.ask(LVM_GETCOLUMNWIDTH, 1) < before.right - before.left);
}

void traceGeometry(Trace& trace) {
    trace.section("geometry");
    HeaderScene scene(trace);
    RECT header{};
    RECT client{};
    GetWindowRect(scene.header(), &header);
    GetClientRect(scene.list(), &client);
    MapWindowPoints(nullptr, scene.list(), reinterpret_cast<POINT*>(&header), 2);
    trace.line("header at %d,%d, %s, rows begin below it %d", static_cast<int>(header.left),
               static_cast<int>(header.top), header.right >= client.right ? "to the right end" : "shorter",
               scene.rectOf(0, LVIR_BOUNDS).top == header.bottom);
    trace.line("style %#lx, id %d, code %#x", static_cast<unsigned long>(GetWindowLongA(scene.header(), GWL_STYLE)),
               GetDlgCtrlID(scene.header()), static_cast<unsigned>(SendMessageA(scene.header(), WM_GETDLGCODE, 0, 0)));
    constexpr int kOrder[] = {2, 0, 1};
    for (const bool reordered : {false, true}) {
        if (reordered) {
            scene.ask(LVM_SETCOLUMNORDERARRAY, 3, reinterpret_cast<LPARAM>(kOrder));
            scene.columns("reordered");
        }
        std::string line;
        for (const int x : {-5, 0, 5, 38, 40, 45, 92, 95, 100, 105, 109, 112, 150, 157, 160, 165, 195, 215, 300}) {
            HDHITTESTINFO hit{};
            hit.pt = {x, 8};
            SendMessageA(scene.header(), HDM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            char text[40];
            std::snprintf(text, sizeof text, "%d: %d %#x | ", x, hit.iItem, hit.flags);
            line += text;
        }
        trace.line("%s", line.c_str());
    }
}

}  // namespace

void traceHeaders(Trace& trace) {
    traceClicks(trace);
    traceDrags(trace);
    traceWidths(trace);
    traceGeometry(trace);
}
