// The list view: rows, states, sorting, mouse, keys, geometry, scrolling, custom draw, and its header.
#include "tests/conformance/list_scene.h"
#include "tests/conformance/typing.h"

namespace {

constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

void traceItems(Trace& trace) {
    trace.section("items");
    ListScene scene(trace, 3);
    for (const int index : {1, 99, -1, 0}) {
        trace.line("insert at %d gives %d", index, scene.insertRow(index, "Ny", "  9", 10 + index));
    }
    trace.line("set text gives %d", scene.setText(0, 0, "Anders"));
    scene.step("selected 3", [&] { scene.setState(3, kBoth, kBoth); });
    scene.rows();
    trace.line("delete all gives %d", number(scene.ask(LVM_DELETEALLITEMS)));
    scene.state("empty");
}

void traceStates(Trace& trace) {
    trace.section("states");
    ListScene scene(trace, 5);
    constexpr struct {
        const char* what;
        int index;
        UINT state, mask;
    } kSteps[] = {
        {"select 2", 2, LVIS_SELECTED, LVIS_SELECTED},
        {"select 3, which takes it from 2", 3, LVIS_SELECTED, LVIS_SELECTED},
        {"focus 1", 1, LVIS_FOCUSED, LVIS_FOCUSED},
        {"both to 4", 4, kBoth, kBoth},
        {"check 2", 2, kChecked, LVIS_STATEIMAGEMASK},
        {"check and select 0", 0, kChecked | LVIS_SELECTED, LVIS_STATEIMAGEMASK | LVIS_SELECTED},
        {"clear all checks", -1, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK},
        {"deselect all", -1, 0, LVIS_SELECTED},
    };
    for (const auto& step : kSteps) {
        trace.line("-- gives %d", scene.setState(step.index, step.state, step.mask));
        scene.state(step.what);
    }
}

// How two parameters compare; the last argument chooses.
int CALLBACK compareParams(LPARAM a, LPARAM b, LPARAM order) {
    switch (order) {
        case 1:
            return static_cast<int>(b - a);
        case 2:
            return static_cast<int>(a / 2 - b / 2);  // Equal pairs keep their order.
        default:
            return a % 3 >= b % 3 ? 1 : -1;  // Equal ones are both before each other.
    }
}

void traceSorting(Trace& trace) {
    trace.section("sorting");
    ListScene scene(trace, 7);
    scene.setState(1, kBoth, kBoth);
    scene.setState(4, kChecked, LVIS_STATEIMAGEMASK);
    for (const WPARAM order : {1, 2, 3}) {
        trace.line("gives %d", number(scene.ask(LVM_SORTITEMS, order, reinterpret_cast<LPARAM>(&compareParams))));
        scene.state("sorted");
        scene.rows();
    }
}

void traceMouse(Trace& trace) {
    trace.section("mouse");
    ListScene scene(trace, 5);
    scene.click(scene.boxOf(1)).state("box of 1");
    scene.click(scene.labelOf(2)).state("label of 2");
    scene.click(scene.secondOf(3)).state("second column of 3");
    scene.click(scene.besideOf(1)).state("right of all columns");
    scene.click(scene.below()).state("below all rows");
    scene.doubleClick(scene.boxOf(3)).state("box of 3, twice");
    scene.doubleClick(scene.labelOf(3)).state("label of 3, twice");
    scene.doubleClick(scene.below()).state("below, twice");
    scene.step("right click", [&] { postRightClick(scene.list(), scene.labelOf(2).x, scene.labelOf(2).y); });
    scene.step("focus left", [&] { SetFocus(scene.other()); });
    scene.step("focus back", [&] { SetFocus(scene.list()); });
    // What the page does: a click on a box leaves just that row checked.
    scene.onNotify([&](const NMHDR& header) {
        if (header.code == static_cast<UINT>(NM_CLICK)) {
            scene.setState(-1, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK);
        }
    });
    scene.click(scene.boxOf(4)).state("a click that clears all checks first");
    scene.turnColumnsRound();
    scene.click({20, scene.labelOf(1).y}).state("clicked in the second column, which stands first");
    scene.click({ListScene::kSecondWidth + 8, scene.labelOf(2).y}).state("clicked on a box behind it");
}

void traceKeys(Trace& trace) {
    trace.section("keys");
    ListScene scene(trace, 12);
    trace.line("code %#x", static_cast<unsigned>(scene.ask(WM_GETDLGCODE)));
    SetFocus(scene.list());
    for (const UINT key :
         {VK_DOWN, VK_DOWN, VK_SPACE, VK_SPACE, VK_UP, VK_UP, VK_RIGHT, VK_LEFT, VK_RETURN, VK_DELETE, VK_ESCAPE}) {
        scene.step("", [&] { postKey(scene.list(), key); });
    }
    scene.hideChanges();
    for (const char* typed : {"cc", "c2", "cx", "pp"}) {
        scene.setState(4, kBoth, kBoth);
        scene.step(typed, [&] { typeKeys(scene.list(), typed); });
    }
}

// Printed is where a step leads, counted from the start or the end, since a page is of as many rows as the font lets.
void traceScrolling(Trace& trace) {
    trace.section("scrolling");
    ListScene scene(trace, 50);
    scene.hideChanges();
    SetFocus(scene.list());
    const int page = number(scene.ask(LVM_GETCOUNTPERPAGE));
    const auto where = [&](const char* what) {
        scene.drain();
        const int focused = number(scene.ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
        const int top = number(scene.ask(LVM_GETTOPINDEX));
        const bool fromEnd = top > 25;
        trace.line("%s: top %d %% of a page from the %s; focus at the top %d, at the bottom %d, first %d, last %d",
                   what, 100 * (fromEnd ? 50 - page - top : top) / (page - 1), fromEnd ? "end" : "start",
                   focused == top, focused == top + page - 1, focused == 0, focused == 49);
    };
    for (const UINT key : {VK_DOWN, VK_END, VK_DOWN, VK_HOME, VK_NEXT, VK_NEXT, VK_PRIOR, VK_NEXT, VK_NEXT, VK_PRIOR}) {
        postKey(scene.list(), key);
        where("key");
    }
    for (const WPARAM row : {49, 0}) {
        scene.ask(LVM_ENSUREVISIBLE, row, FALSE);
        where("ensured");
    }
    for (const int delta : {-120, -60, -60, 240, 1200}) {
        scene.ask(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)));
        trace.line("wheel: top %d", number(scene.ask(LVM_GETTOPINDEX)));
    }
}

void traceGeometry(Trace& trace) {
    trace.section("geometry");
    ListScene scene(trace, 5);
    const RECT first = scene.rectOf(0, LVIR_BOUNDS);
    const auto print = [&](const char* what, const RECT& rect) {
        trace.line("%s: left %d top %+d right %d bottom %+d", what, number(rect.left), number(rect.top - first.top),
                   number(rect.right), number(rect.bottom - first.bottom));
    };
    for (const char* columns : {"as made", "second column first"}) {
        trace.line("-- %s", columns);
        for (const int part : {LVIR_BOUNDS, LVIR_LABEL}) {
            print("row", scene.rectOf(0, part));
            print("first column", scene.cellOf(0, 0, part));
            print("second column", scene.cellOf(0, 1, part));
        }
        scene.turnColumnsRound();
    }
}

// A row's place is printed by its distance from the row's bounds, the whole list's as it is.
void printDrawing(const ListScene& scene, const NMLVCUSTOMDRAW& draw) {
    const bool ofRow = (draw.nmcd.dwDrawStage & CDDS_ITEM) != 0;
    const int row = ofRow ? static_cast<int>(draw.nmcd.dwItemSpec) : -1;
    const RECT bounds = ofRow ? scene.rectOf(row, LVIR_BOUNDS) : RECT{};
    const RECT& rect = draw.nmcd.rc;
    scene.trace().line("stage %#x item %d.%d state %#x param %d rect %d,%d to %d,%d",
                       static_cast<unsigned>(draw.nmcd.dwDrawStage), row,
                       (draw.nmcd.dwDrawStage & CDDS_SUBITEM) != 0 ? draw.iSubItem : 0, draw.nmcd.uItemState,
                       ofRow ? static_cast<int>(draw.nmcd.lItemlParam) : 0, number(rect.left),
                       number(rect.top - bounds.top), number(rect.right), number(rect.bottom - bounds.bottom));
}

void traceCustomDraw(Trace& trace) {
    trace.section("custom draw");
    ListScene scene(trace, 3);
    scene.setState(1, kBoth | kChecked, kBoth | LVIS_STATEIMAGEMASK);
    SetFocus(scene.list());
    LRESULT onPrepaint = CDRF_NOTIFYITEMDRAW;
    LRESULT onItem = CDRF_NOTIFYSUBITEMDRAW;
    LRESULT onSubItem = CDRF_DODEFAULT;
    scene.parent().setHook([&](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
        const auto* const draw = reinterpret_cast<const NMLVCUSTOMDRAW*>(lParam);
        const bool isAsked = message == WM_NOTIFY && draw->nmcd.hdr.code == static_cast<UINT>(NM_CUSTOMDRAW) &&
                             draw->nmcd.hdr.hwndFrom == scene.list();
        if (isAsked) {
            printDrawing(scene, *draw);
            const DWORD stage = draw->nmcd.dwDrawStage;
            result = stage == CDDS_PREPAINT ? onPrepaint : stage == CDDS_ITEMPREPAINT ? onItem : onSubItem;
        }
        return isAsked;
    });
    const auto redraw = [&](const char* what) {
        trace.line("-- %s", what);
        InvalidateRect(scene.list(), nullptr, TRUE);
        UpdateWindow(scene.list());
    };
    redraw("sub-items");
    onSubItem = CDRF_SKIPDEFAULT;
    scene.turnColumnsRound();
    redraw("sub-items of their own, in columns that are turned round");
    onItem = CDRF_DODEFAULT;
    redraw("items");
    onPrepaint = CDRF_SKIPDEFAULT;
    redraw("all of its own");
}

// The header: clicks, and columns that are dragged, widened and fitted.
class HeaderScene : public ListScene {
public:
    explicit HeaderScene(Trace& trace) : ListScene(trace, 4) {
        insertColumn(2, "Tredje", 40);
        for (int row = 0; row < count(); ++row) {
            setText(row, 2, "sub");
        }
        drain();
    }

    void post(UINT message, int x, int y = kMiddle) {
        PostMessageA(header(), message, message == WM_LBUTTONUP ? 0 : MK_LBUTTON, MAKELPARAM(x, y));
        drain();
    }
    void drag(const char* what, int from, int to, int y = kMiddle) {
        post(WM_LBUTTONDOWN, from);
        post(WM_MOUSEMOVE, from + (to > from ? 3 : -3));
        post(WM_MOUSEMOVE, to, y);
        post(WM_LBUTTONUP, to, y);
        columns(what);
    }
    RECT rectOfColumn(int column) const {
        RECT rect{};
        SendMessageA(header(), HDM_GETITEMRECT, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    void columns(const char* after) {
        std::string all;
        for (int i = 0; i < 3; ++i) {
            const RECT rect = rectOfColumn(i);
            all += " " + std::to_string(i) + ": " + std::to_string(rect.left) + " to " + std::to_string(rect.right);
        }
        trace().line("%s:%s%s%s", after, all.c_str(), GetCapture() ? ", captured" : "",
                     GetFocus() == list() ? ", list has the focus" : "");
    }

    static constexpr int kMiddle = 8;
};

void traceHeader(Trace& trace) {
    trace.section("columns moved");
    HeaderScene scene(trace);
    scene.drag("clicked", 30, 30);
    scene.drag("released below", 130, 130, 60);
    scene.drag("beside all columns", 210, 210);
    scene.drag("far below", 30, 130, 150);
    scene.drag("second before first", 120, 20);
    scene.drag("and back behind it", 10, 150);
    scene.drag("first to the end", 20, 190);
    scene.drag("to the next one's first half", 30, 110);

    trace.section("columns widened");
    HeaderScene other(trace);
    other.drag("first wider", 100, 130);
    other.drag("narrower by its right side", 128, 90);
    other.drag("dragged beyond its left side", 91, -30);
    other.drag("and back", 2, 80);
    const RECT before = other.rectOfColumn(1);
    for (const UINT message : {WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK, WM_LBUTTONUP}) {
        other.post(message, number(before.right));
    }
    trace.line("fitted: narrower %d", other.rectOfColumn(1).right < before.right);
}

}  // namespace

void traceListViews(Trace& trace) {
    traceItems(trace);
    traceStates(trace);
    traceSorting(trace);
    traceMouse(trace);
    traceKeys(trace);
    traceScrolling(trace);
    traceGeometry(trace);
    traceCustomDraw(trace);
    traceHeader(trace);
}
