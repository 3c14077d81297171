// The list view: columns, rows, states, sorting, mouse, keys, geometry, scrolling, custom draw.
#include "tests/conformance/list_scene.h"
#include "tests/conformance/typing.h"

#include <array>

namespace {

constexpr DWORD kPlain = 0;
constexpr DWORD kChecks = LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP;

void traceColumns(Trace& trace) {
    trace.section("columns");
    ListScene scene(trace, {.rows = 1});
    const auto columns = [&](const char* what, LRESULT result) {
        std::string all;
        const LRESULT count = SendMessageA(scene.header(), HDM_GETITEMCOUNT, 0, 0);
        std::array<int, 8> order{};
        scene.ask(LVM_GETCOLUMNORDERARRAY, static_cast<WPARAM>(count), reinterpret_cast<LPARAM>(order.data()));
        for (int i = 0; i < count; ++i) {
            all += " " + std::to_string(order[static_cast<std::size_t>(i)]) + " width " +
                   std::to_string(scene.ask(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(i))) + " \"" + scene.textOf(0, i) +
                   "\"";
        }
        trace.line("%s gives %d:%s", what, number(result), all.c_str());
    };
    const auto reorder = [&](const char* what, std::initializer_list<int> order) {
        columns(what, scene.ask(LVM_SETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.begin())));
    };
    scene.hideChanges();
    for (const int index : {1, 9}) {
        const int inserted = scene.insertColumn(index, "Ny", 30);
        scene.setText(0, inserted, "set");
        columns("insert", inserted);
    }
    columns("insert at -1", scene.insertColumn(-1, "Ingen", 20));
    reorder("order 3 1 0 2", {3, 1, 0, 2});
    reorder("too few", {1, 0});
    reorder("with one twice", {0, 0, 1, 2});
    reorder("with one beyond", {0, 7, 1, 2});
    for (const int index : {1, 9, -1, 2}) {
        columns("delete", scene.ask(LVM_DELETECOLUMN, static_cast<WPARAM>(index)));
    }
    trace.line("width of no column %d", number(scene.ask(LVM_GETCOLUMNWIDTH, 9)));
}

void traceItems(Trace& trace) {
    trace.section("items");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 3});
    for (const int index : {1, 99, -1, 0}) {
        trace.line("insert at %d gives %d", index, scene.insertRow(index, "Ny", "  9", 10 + index));
    }
    scene.rows();
    LVITEMA item{};
    const auto run = [&](const char* what, UINT message) {
        trace.line("%s: %d", what, number(scene.ask(message, 0, reinterpret_cast<LPARAM>(&item))));
    };
    item.mask = LVIF_PARAM;
    item.iItem = 2;
    item.lParam = 77;
    run("set the parameter", LVM_SETITEMA);
    run("to the same", LVM_SETITEMA);
    item.iItem = 60;
    run("of no row", LVM_SETITEMA);
    run("get it", LVM_GETITEMA);
    item.iSubItem = 1;
    run("insert a sub-item", LVM_INSERTITEMA);
    constexpr struct {
        int row, column;
        const char* text;
    } kTexts[] = {{0, 0, "Anders"}, {0, 1, ""}, {0, 0, "Anders"}, {0, 5, "utanf\xF6r"}, {42, 0, "ingen"}};
    for (const auto& [row, column, text] : kTexts) {
        trace.line("text of %d.%d gives %d", row, column, scene.setText(row, column, text));
    }
    scene.step("selected 3", [&] { scene.setState(3, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED); });
    for (const int index : {1, 2, 99, -1, 0}) {
        trace.line("delete %d gives %d", index, number(scene.ask(LVM_DELETEITEM, static_cast<WPARAM>(index))));
        scene.state("deleted");
    }
    scene.rows();
    scene.setState(0, LVIS_FOCUSED, LVIS_FOCUSED);
    trace.line("delete all gives %d", number(scene.ask(LVM_DELETEALLITEMS)));
    scene.state("empty");
    trace.line("again %d", number(scene.ask(LVM_DELETEALLITEMS)));
    scene.insertRow(0, "Ensam");
    scene.answer(static_cast<UINT>(LVN_DELETEALLITEMS), TRUE);
    scene.step("empty without a word on each", [&] { scene.ask(LVM_DELETEALLITEMS); });
}

void traceStates(Trace& trace) {
    trace.section("states");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 5});
    constexpr UINT kBoth = LVIS_SELECTED | LVIS_FOCUSED;
    constexpr struct {
        const char* what;
        int index;
        UINT state, mask;
    } kSteps[] = {
        {"select 2", 2, LVIS_SELECTED, LVIS_SELECTED},
        {"select 3, which takes it from 2", 3, LVIS_SELECTED, LVIS_SELECTED},
        {"focus 1", 1, LVIS_FOCUSED, LVIS_FOCUSED},
        {"both to 4", 4, kBoth, kBoth},
        {"again", 4, kBoth, kBoth},
        {"drop the selection", 4, 0, LVIS_SELECTED},
        {"drop the focus", 4, 0, LVIS_FOCUSED},
        {"check 2", 2, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK},
        {"check it again", 2, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK},
        {"check and select 0", 0, INDEXTOSTATEIMAGEMASK(2) | LVIS_SELECTED, LVIS_STATEIMAGEMASK | LVIS_SELECTED},
        {"clear all checks", -1, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK},
        {"deselect all", -1, 0, LVIS_SELECTED},
        {"select all", -1, LVIS_SELECTED, LVIS_SELECTED},
        {"beyond", 7, LVIS_SELECTED, LVIS_SELECTED},
        {"nothing", 1, 0, 0},
    };
    for (const auto& step : kSteps) {
        const BOOL done = scene.setState(step.index, step.state, step.mask);
        trace.line("-- gives %d", done);
        scene.state(step.what);
    }
    scene.answer(static_cast<UINT>(LVN_ITEMCHANGING), TRUE);
    scene.step("refused", [&] { scene.setState(1, kBoth | INDEXTOSTATEIMAGEMASK(2), kBoth | LVIS_STATEIMAGEMASK); });
    scene.click(scene.labelOf(2)).state("refused to the mouse");
    scene.clearAnswer();
    scene.setState(3, kBoth, kBoth);
    constexpr struct {
        int from;
        UINT flags;
    } kSearches[] = {{-1, LVNI_ALL},     {1, LVNI_ALL},      {4, LVNI_ALL},     {9, LVNI_ALL},
                     {-1, LVNI_FOCUSED}, {3, LVNI_SELECTED}, {2, LVNI_SELECTED}};
    for (const auto& search : kSearches) {
        trace.line(
            "next of %d with %#x: %d", search.from, search.flags,
            number(scene.ask(LVM_GETNEXTITEM, static_cast<WPARAM>(search.from), static_cast<LPARAM>(search.flags))));
    }
}

// How two parameters compare; the last argument chooses.
int CALLBACK compareParams(LPARAM a, LPARAM b, LPARAM order) {
    switch (order) {
        case 0:
            return static_cast<int>(a - b);
        case 1:
            return static_cast<int>(b - a);
        case 2:
            return static_cast<int>(a / 2 - b / 2);  // Equal pairs keep their order.
        case 3:
            return 0;
        default:
            return a % 3 >= b % 3 ? 1 : -1;  // Equal ones are both before each other.
    }
}

void traceSorting(Trace& trace) {
    trace.section("sorting");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 7});
    scene.setState(1, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    scene.step("before", [&] { scene.setState(4, INDEXTOSTATEIMAGEMASK(2), LVIS_STATEIMAGEMASK); });
    for (const LPARAM order : {1, 2, 3, 4, 0}) {
        trace.line(
            "order %d gives %d", static_cast<int>(order),
            number(scene.ask(LVM_SORTITEMS, static_cast<WPARAM>(order), reinterpret_cast<LPARAM>(&compareParams))));
        scene.state("sorted");
        scene.rows();
    }
    scene.ask(LVM_DELETEALLITEMS);
    trace.line("empty gives %d", number(scene.ask(LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(&compareParams))));
}

void traceMouse(Trace& trace) {
    for (const DWORD exStyle : {kPlain, kChecks}) {
        trace.section(exStyle ? "mouse with check boxes" : "mouse");
        ListScene scene(trace, {.exStyle = exStyle, .rows = 5});
        const struct {
            const char* what;
            POINT point;
            bool twice;
        } kClicks[] = {{"left end of 1", scene.boxOf(1), false},
                       {"again", scene.boxOf(1), false},
                       {"label of 2", scene.labelOf(2), false},
                       {"second column of 3", scene.secondOf(3), false},
                       {"right of all columns", scene.besideOf(1), false},
                       {"label of 0", scene.labelOf(0), false},
                       {"below all rows", scene.below(), false},
                       {"left end of 3, twice", scene.boxOf(3), true},
                       {"label of 3, twice", scene.labelOf(3), true},
                       {"second column of 1, twice", scene.secondOf(1), true},
                       {"below, twice", scene.below(), true}};
        for (const auto& [what, point, twice] : kClicks) {
            twice ? scene.doubleClick(point) : scene.click(point);
            scene.state(what);
        }
        const POINT label = scene.labelOf(2);
        PostMessageA(scene.list(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(label.x, label.y));
        scene.step("right click", [&] { PostMessageA(scene.list(), WM_RBUTTONUP, 0, MAKELPARAM(label.x, label.y)); });
        scene.step("focus left", [&] { SetFocus(scene.other()); });
        scene.step("focus back", [&] { SetFocus(scene.list()); });
        // What the page does: a click on a box leaves just that row checked.
        scene.onNotify([&](const NMHDR& header) {
            if (header.code == static_cast<UINT>(NM_CLICK)) {
                scene.setState(-1, INDEXTOSTATEIMAGEMASK(1), LVIS_STATEIMAGEMASK);
            }
        });
        scene.click(scene.boxOf(4)).state("a click that clears all checks first");
        scene.answer(static_cast<UINT>(NM_CLICK), TRUE);
        scene.click(scene.boxOf(4)).state("an answered click");
    }
}

void traceKeys(Trace& trace) {
    for (const LoggingParent::Kind kind : {LoggingParent::Kind::Window, LoggingParent::Kind::Dialog}) {
        trace.section(kind == LoggingParent::Kind::Window ? "keys" : "keys in a dialog");
        ListScene scene(trace, {.exStyle = kChecks, .rows = 40, .kind = kind});
        trace.line("code %#x", static_cast<unsigned>(scene.ask(WM_GETDLGCODE)));
        SetFocus(scene.list());
        for (const UINT key :
             {VK_DOWN, VK_DOWN, VK_SPACE, VK_SPACE, VK_UP, VK_UP, VK_RIGHT, VK_LEFT, VK_RETURN, VK_DELETE, VK_ESCAPE}) {
            scene.step("", [&] { postKey(scene.list(), key); });
        }
    }
    trace.section("keys that scroll");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 40});
    const int page = number(scene.ask(LVM_GETCOUNTPERPAGE));
    SetFocus(scene.list());
    scene.hideChanges();
    // Printed is where a key leads, counted in pages.
    for (const UINT key : {VK_DOWN, VK_END, VK_DOWN, VK_HOME, VK_NEXT, VK_NEXT, VK_PRIOR, VK_NEXT, VK_NEXT, VK_NEXT,
                           VK_NEXT, VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_PRIOR, VK_PRIOR}) {
        postKey(scene.list(), key);
        scene.drain();
        const int focused = number(scene.ask(LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
        const int top = number(scene.ask(LVM_GETTOPINDEX));
        const bool fromEnd = top > 20;
        trace.line("focus at the top %d, at the bottom %d, first %d, last %d; top %d pages from the %s", focused == top,
                   focused == top + page - 1, focused == 0, focused == 39,
                   (fromEnd ? 40 - page - top : top) / (page - 1), fromEnd ? "end" : "start");
    }
}

void traceTypeAhead(Trace& trace) {
    trace.section("type-ahead");
    for (const char* text : {"cc", "c2", "cx", "B", "pp", " p", "x"}) {
        ListScene scene(trace, {.exStyle = kChecks, .rows = 12});
        scene.hideChanges();
        SetFocus(scene.list());
        typeKeys(scene.list(), text);
        scene.state(text);
    }
}

void traceGeometry(Trace& trace) {
    for (const DWORD exStyle : {kPlain, kChecks}) {
        trace.section(exStyle ? "geometry with check boxes" : "geometry");
        ListScene scene(trace, {.exStyle = exStyle, .rows = 5});
        RECT header{};
        GetWindowRect(scene.header(), &header);
        const LONG head = header.bottom - header.top;
        const RECT first = scene.rectOf(0, LVIR_BOUNDS);
        const LONG height = first.bottom - first.top;
        const auto print = [&](int column, const RECT& rect) {
            trace.line("column %d: left %d top %+d right %d height %+d", column, static_cast<int>(rect.left),
                       static_cast<int>(rect.top - head - 2 * height), static_cast<int>(rect.right),
                       static_cast<int>(rect.bottom - rect.top - height));
        };
        const auto all = [&](const char* what) {
            trace.line("-- %s", what);
            for (const int part : {LVIR_BOUNDS, LVIR_LABEL}) {
                print(-1, scene.rectOf(2, part));
                print(0, scene.cellOf(2, 0, part));
                print(1, scene.cellOf(2, 1, part));
            }
            const RECT select = scene.rectOf(2, LVIR_SELECTBOUNDS);
            trace.line("select bounds: left %d, %s the label's end", static_cast<int>(select.left),
                       select.right < scene.rectOf(2, LVIR_LABEL).right ? "before" : "to");
        };
        all("as made");
        scene.turnColumnsRound();
        all("second column first");
        RECT none = {LVIR_BOUNDS, 0, 0, 0};
        trace.line("of no row %d", number(scene.ask(LVM_GETITEMRECT, 9, reinterpret_cast<LPARAM>(&none))));
    }
}

void hit(ListScene& scene, LONG x, LONG y) {
    LVHITTESTINFO row{};
    row.pt = {x, y};
    LVHITTESTINFO cell{};
    cell.pt = row.pt;
    const int found = number(scene.ask(LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&row)));
    const int inCell = number(scene.ask(LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&cell)));
    scene.trace().line("hit at %d: %d %#x, cell %d.%d %#x", static_cast<int>(x), found, row.flags, inCell,
                       cell.iSubItem, inCell < 0 ? 0U : cell.flags);
}

void traceHits(Trace& trace) {
    {
        trace.section("hits");
        ListScene scene(trace, {.exStyle = kChecks, .rows = 5});
        const RECT bounds = scene.rectOf(1, LVIR_BOUNDS);
        for (const LONG x : {-1, 8, 14, 18, 50, 99, 103, 159, 161, 215, 300}) {
            hit(scene, x, bounds.top + 1);
        }
        for (const LONG y : {LONG{-1}, LONG{1}, bounds.top, bounds.bottom, LONG{190}, LONG{400}}) {
            hit(scene, 30, y);
        }
    }
    trace.section("hits in columns that are turned round");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 5});
    scene.turnColumnsRound();
    for (const LONG x : {20, 70, 90}) {
        hit(scene, x, scene.rectOf(1, LVIR_BOUNDS).top + 1);
        scene.click({x, scene.rectOf(1, LVIR_BOUNDS).top + 1}).state("clicked there");
    }
}

void traceScrolling(Trace& trace) {
    trace.section("scrolling");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 50});
    const int page = number(scene.ask(LVM_GETCOUNTPERPAGE));
    const auto where = [&](const char* what, LRESULT result) {
        const int top = number(scene.ask(LVM_GETTOPINDEX));
        const bool fromEnd = top > 25;
        trace.line("%s gives %d: top %d from the %s", what, number(result), fromEnd ? 50 - page - top : top,
                   fromEnd ? "end" : "start");
    };
    where("start", 0);
    scene.ask(LVM_ENSUREVISIBLE, 30, FALSE);
    trace.line("ensured at the bottom: %d", number(scene.ask(LVM_GETTOPINDEX)) + page - 1);
    where("ensure 5", scene.ask(LVM_ENSUREVISIBLE, 5, FALSE));
    where("ensure 6", scene.ask(LVM_ENSUREVISIBLE, 6, TRUE));
    where("ensure 49", scene.ask(LVM_ENSUREVISIBLE, 49, FALSE));
    where("ensure 60", scene.ask(LVM_ENSUREVISIBLE, 60, FALSE));
    where("ensure -1", scene.ask(LVM_ENSUREVISIBLE, static_cast<WPARAM>(-1), FALSE));
    scene.ask(LVM_ENSUREVISIBLE, 0, FALSE);
    for (const int delta : {-120, -60, -60, 240, 1200}) {
        where("wheel", scene.ask(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta))));
    }
    const RECT row = scene.rectOf(0, LVIR_BOUNDS);
    scene.ask(LVM_ENSUREVISIBLE, 49, FALSE);
    const RECT moved = scene.rectOf(0, LVIR_BOUNDS);
    trace.line("row 0 is as far away as the list is scrolled %d, the last in view %d",
               (row.top - moved.top) / (row.bottom - row.top) == scene.ask(LVM_GETTOPINDEX),
               scene.rectOf(49, LVIR_BOUNDS).bottom <= 198);
    trace.line("delete gives %d", number(scene.ask(LVM_DELETEITEM, 0)));
    trace.line("scrolled to the end still %d", scene.ask(LVM_GETTOPINDEX) == 49 - page);
    scene.insertColumn(2, "Bred", 200);
    const RECT bounds = scene.rectOf(48, LVIR_BOUNDS);
    trace.line("wide: row from %d to %d, fewer in view %d", static_cast<int>(bounds.left),
               static_cast<int>(bounds.right), scene.ask(LVM_GETCOUNTPERPAGE) < page);
    scene.hide(static_cast<UINT>(LVN_DELETEITEM));
    scene.ask(LVM_DELETECOLUMN, 2);
    scene.ask(LVM_DELETEALLITEMS);
    where("emptied", 0);
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
                       ofRow ? static_cast<int>(draw.nmcd.lItemlParam) : 0, static_cast<int>(rect.left),
                       static_cast<int>(rect.top - bounds.top), static_cast<int>(rect.right),
                       static_cast<int>(rect.bottom - bounds.bottom));
}

void traceCustomDraw(Trace& trace) {
    trace.section("custom draw");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 3});
    scene.setState(1, LVIS_SELECTED | LVIS_FOCUSED | INDEXTOSTATEIMAGEMASK(2),
                   LVIS_SELECTED | LVIS_FOCUSED | LVIS_STATEIMAGEMASK);
    struct {
        const char* what;
        LRESULT onPrepaint, onItem, onSubItem;
    } constexpr kAnswers[] = {
        {"no answer", CDRF_DODEFAULT, CDRF_DODEFAULT, CDRF_DODEFAULT},
        {"items", CDRF_NOTIFYITEMDRAW, CDRF_DODEFAULT, CDRF_DODEFAULT},
        {"sub-items", CDRF_NOTIFYITEMDRAW, CDRF_NOTIFYSUBITEMDRAW, CDRF_DODEFAULT},
        {"sub-items of their own", CDRF_NOTIFYITEMDRAW, CDRF_NOTIFYSUBITEMDRAW, CDRF_SKIPDEFAULT},
        {"items of their own", CDRF_NOTIFYITEMDRAW, CDRF_SKIPDEFAULT, CDRF_DODEFAULT},
        {"all of its own", CDRF_SKIPDEFAULT, CDRF_DODEFAULT, CDRF_DODEFAULT},
    };
    LRESULT onPrepaint = 0;
    LRESULT onItem = 0;
    LRESULT onSubItem = 0;
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
    for (const auto& answers : kAnswers) {
        trace.line("-- %s", answers.what);
        onPrepaint = answers.onPrepaint;
        onItem = answers.onItem;
        onSubItem = answers.onSubItem;
        InvalidateRect(scene.list(), nullptr, TRUE);
        UpdateWindow(scene.list());
    }
    trace.line("-- with the focus, and the columns turned round");
    onItem = CDRF_NOTIFYSUBITEMDRAW;
    onSubItem = onPrepaint = CDRF_NOTIFYITEMDRAW;
    SetFocus(scene.list());
    scene.turnColumnsRound();
    InvalidateRect(scene.list(), nullptr, TRUE);
    UpdateWindow(scene.list());
    trace.line("-- one row");
    const RECT row = scene.rectOf(1, LVIR_BOUNDS);
    InvalidateRect(scene.list(), &row, TRUE);
    UpdateWindow(scene.list());
}

void traceRedraw(Trace& trace) {
    trace.section("redraw switch");
    ListScene scene(trace, {.rows = 3});
    const auto pending = [&](const char* what) {
        RECT update{};
        scene.trace().line("%s: %s", what,
                           GetUpdateRect(scene.list(), &update, FALSE) ? "to be painted" : "nothing to paint");
        UpdateWindow(scene.list());
    };
    pending("at first");
    scene.ask(WM_SETREDRAW, FALSE);
    scene.insertRow(0, "Ny", "  9");
    scene.setState(1, LVIS_SELECTED, LVIS_SELECTED);
    pending("changed while off");
    scene.ask(WM_SETREDRAW, TRUE);
    pending("switched on");
    scene.setState(2, LVIS_SELECTED, LVIS_SELECTED);
    pending("changed while on");
}

}  // namespace

void traceListViews(Trace& trace) {
    traceColumns(trace);
    traceItems(trace);
    traceStates(trace);
    traceSorting(trace);
    traceMouse(trace);
    traceKeys(trace);
    traceTypeAhead(trace);
    traceGeometry(trace);
    traceHits(trace);
    traceScrolling(trace);
    traceCustomDraw(trace);
    traceRedraw(trace);
}
