// The tab control: items, selection by message, mouse and keys, refusal, focus, geometry.
#include "tests/conformance/trace.h"

#include <iterator>
#include <string>

namespace {

constexpr const char* kCaptions[] = {"Projekt", "Allm\xE4nt", "F\xF6rbind", "Pro"};

class TabScene {
public:
    explicit TabScene(Trace& trace, DWORD style = 0, LoggingParent::Kind kind = LoggingParent::Kind::Window)
        : trace_(trace), parent_(trace, kind) {
        tabs_ = parent_.add(WC_TABCONTROLA, "", style | WS_TABSTOP, 40, 10, 10, 360, 200);
        for (const char* caption : kCaptions) {
            insert(static_cast<int>(SendMessageA(tabs_, TCM_GETITEMCOUNT, 0, 0)), caption);
        }
        parent_.setHook([this](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
            const bool asked =
                message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == TCN_SELCHANGING && refuse_;
            if (asked) {
                trace_.line("TCN_SELCHANGING refused at %d", selection());
                result = TRUE;
            }
            return asked;
        });
        parent_.drain();
    }

    int insert(int index, const char* caption) {
        TCITEMA item{};
        item.mask = TCIF_TEXT | TCIF_PARAM;
        item.pszText = const_cast<LPSTR>(caption);
        item.lParam = 100 + index;
        return static_cast<int>(
            SendMessageA(tabs_, TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
    }
    int selection() const { return static_cast<int>(SendMessageA(tabs_, TCM_GETCURSEL, 0, 0)); }
    RECT itemRect(int index) const {
        RECT rect{};
        SendMessageA(tabs_, TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    void click(int index) {
        const RECT rect = itemRect(index);
        postClick(tabs_, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    }
    void state(const char* what) {
        parent_.drain();
        trace_.line("%s: selection %d count %d%s", what, selection(),
                    static_cast<int>(SendMessageA(tabs_, TCM_GETITEMCOUNT, 0, 0)), GetFocus() == tabs_ ? " focus" : "");
    }
    void captions() const {
        const int count = static_cast<int>(SendMessageA(tabs_, TCM_GETITEMCOUNT, 0, 0));
        for (int i = 0; i < count; ++i) {
            char text[32] = "";
            TCITEMA item{};
            item.mask = TCIF_TEXT | TCIF_PARAM;
            item.pszText = text;
            item.cchTextMax = sizeof text;
            const BOOL done = static_cast<BOOL>(
                SendMessageA(tabs_, TCM_GETITEMA, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&item)));
            trace_.line("item %d: %d \"%s\" %d", i, done, item.pszText, static_cast<int>(item.lParam));
        }
    }
    HWND tabs() const { return tabs_; }
    LoggingParent& parent() { return parent_; }
    void setRefuse(bool refuse) { refuse_ = refuse; }

private:
    Trace& trace_;
    LoggingParent parent_;
    HWND tabs_ = nullptr;
    bool refuse_ = false;
};

void traceItems(Trace& trace) {
    trace.section("items");
    TabScene scene(trace);
    HWND tabs = scene.tabs();
    scene.state("filled");
    scene.captions();
    trace.line("insert at 1 gives %d", scene.insert(1, "Korsreferens"));
    scene.state("inserted before");
    trace.line("insert far gives %d", scene.insert(99, "Texter/F\xE4rger"));
    scene.captions();
    for (const int select : {2, 99, -1, 3}) {
        trace.line("TCM_SETCURSEL %d gives %d", select,
                   static_cast<int>(SendMessageA(tabs, TCM_SETCURSEL, static_cast<WPARAM>(select), 0)));
        scene.state("selected");
    }
    trace.line("insert at the selected one gives %d", scene.insert(3, "Blanketter"));
    scene.state("inserted there");
    for (const int index : {5, 3, 0, 7}) {
        trace.line("delete %d gives %d", index,
                   static_cast<int>(SendMessageA(tabs, TCM_DELETEITEM, static_cast<WPARAM>(index), 0)));
        scene.state("deleted");
    }
    scene.captions();
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = const_cast<LPSTR>("Ny");
    trace.line("TCM_SETITEM gives %d",
               static_cast<int>(SendMessageA(tabs, TCM_SETITEMA, 1, reinterpret_cast<LPARAM>(&item))));
    scene.captions();
    char small[3] = "";
    item.pszText = small;
    item.cchTextMax = sizeof small;
    SendMessageA(tabs, TCM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    trace.line("short buffer \"%s\"", item.pszText);
    trace.line("item beyond: %d",
               static_cast<int>(SendMessageA(tabs, TCM_GETITEMA, 50, reinterpret_cast<LPARAM>(&item))));
    trace.line("delete all gives %d", static_cast<int>(SendMessageA(tabs, TCM_DELETEALLITEMS, 0, 0)));
    scene.state("empty");
    trace.line("first item gives %d", scene.insert(0, "Ensam"));
    scene.state("one");
}

void traceSelection(Trace& trace) {
    trace.section("selection by mouse and message");
    for (const DWORD style : {0, TCS_FOCUSNEVER}) {
        TabScene scene(trace, style);
        trace.line("-- style %#x code %#x", static_cast<unsigned>(style),
                   static_cast<unsigned>(SendMessageA(scene.tabs(), WM_GETDLGCODE, 0, 0)));
        scene.click(1);
        scene.state("first click");
        scene.click(1);
        scene.state("click on the same");
        scene.click(2);
        scene.state("click on another");
        scene.setRefuse(true);
        scene.click(3);
        scene.state("refused click");
        scene.setRefuse(false);
        SendMessageA(scene.tabs(), TCM_SETCURFOCUS, 3, 0);
        scene.state("TCM_SETCURFOCUS");
        SendMessageA(scene.tabs(), TCM_SETCURFOCUS, 77, 0);
        scene.state("TCM_SETCURFOCUS beyond");
        postClick(scene.tabs(), 350, 10);
        scene.state("click beside the tabs");
        postClick(scene.tabs(), 50, 120);
        scene.state("click in the page area");
        PostMessageA(scene.tabs(), WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(10, 10));
        PostMessageA(scene.tabs(), WM_LBUTTONUP, 0, MAKELPARAM(10, 10));
        scene.state("double-click");
        PostMessageA(scene.tabs(), WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(10, 10));
        PostMessageA(scene.tabs(), WM_RBUTTONUP, 0, MAKELPARAM(10, 10));
        scene.state("right click");
    }
}

void traceKeys(Trace& trace) {
    trace.section("keys");
    constexpr struct {
        const char* name;
        UINT key;
    } kKeys[] = {{"right", VK_RIGHT}, {"right", VK_RIGHT}, {"end", VK_END},   {"right", VK_RIGHT}, {"left", VK_LEFT},
                 {"home", VK_HOME},   {"left", VK_LEFT},   {"down", VK_DOWN}, {"space", VK_SPACE}};
    for (const LoggingParent::Kind kind : {LoggingParent::Kind::Window, LoggingParent::Kind::Dialog}) {
        trace.line("-- in a %s", kind == LoggingParent::Kind::Window ? "window" : "dialog");
        TabScene scene(trace, 0, kind);
        SetFocus(scene.tabs());
        scene.state("focus");
        for (const auto& key : kKeys) {
            postKey(scene.tabs(), key.key);
            scene.state(key.name);
        }
    }
}

void traceGeometry(Trace& trace) {
    trace.section("geometry");
    TabScene scene(trace);
    // Widths depend on the font; everything else is compared.
    HDC dc = GetDC(scene.tabs());
    HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageA(scene.tabs(), WM_GETFONT, 0, 0)));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(scene.tabs(), dc);
    int rowHeight = 0;
    for (int i = 0; i < static_cast<int>(std::size(kCaptions)); ++i) {
        const RECT rect = scene.itemRect(i);
        const RECT next = scene.itemRect(i + 1);
        trace.line("item %d: first left %d top %d joined %d", i, i == 0 ? static_cast<int>(rect.left) : 0,
                   static_cast<int>(rect.top), next.left == 0 || next.left == rect.right);
        rowHeight = rect.bottom;
    }
    trace.line("rows %d, %d higher than the text", static_cast<int>(SendMessageA(scene.tabs(), TCM_GETROWCOUNT, 0, 0)),
               rowHeight - 2 - static_cast<int>(metrics.tmHeight));
    RECT rect = {0, 0, 360, 200};
    SendMessageA(scene.tabs(), TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&rect));
    trace.line("display area: left %d below tabs %d right %d bottom %d", static_cast<int>(rect.left),
               static_cast<int>(rect.top) - rowHeight, static_cast<int>(rect.right), static_cast<int>(rect.bottom));
    SendMessageA(scene.tabs(), TCM_ADJUSTRECT, TRUE, reinterpret_cast<LPARAM>(&rect));
    trace.line("and back: %d %d %d %d", static_cast<int>(rect.left), static_cast<int>(rect.top),
               static_cast<int>(rect.right), static_cast<int>(rect.bottom));
    const RECT second = scene.itemRect(1);
    constexpr struct {
        int dx;
        int y;
    } kPoints[] = {{1, 10}, {-1, 10}, {1, 100}, {1, 0}, {1000, 10}};
    for (const auto& point : kPoints) {
        TCHITTESTINFO hit{};
        hit.pt = {second.left + point.dx, point.y};
        const int index = static_cast<int>(SendMessageA(scene.tabs(), TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
        trace.line("hit at %+d, %d: item %d flags %#x", point.dx, point.y, index, static_cast<unsigned>(hit.flags));
    }
    POINT beside = {350, 10};
    ClientToScreen(scene.tabs(), &beside);
    trace.line("WM_NCHITTEST beside the tabs %d",
               static_cast<int>(SendMessageA(scene.tabs(), WM_NCHITTEST, 0, MAKELPARAM(beside.x, beside.y))));
}

// Tabs that are all as narrow as a tab can be, whatever the font, and the rows that they stand in.
class RowScene {
public:
    RowScene(Trace& trace, int count, DWORD style = 0, LoggingParent::Kind kind = LoggingParent::Kind::Window)
        : trace_(trace), parent_(trace, kind) {
        tabs_ = parent_.add(WC_TABCONTROLA, "", TCS_MULTILINE | WS_TABSTOP | style, 40, 10, 10, 360, 200);
        for (int i = 0; i < count; ++i) {
            insert(i);
        }
        rows("filled with " + std::to_string(count));
    }

    LRESULT ask(UINT message, int index = 0, LPARAM lParam = 0) const {
        return SendMessageA(tabs_, message, static_cast<WPARAM>(index), lParam);
    }
    void insert(int index) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<LPSTR>("i");
        ask(TCM_INSERTITEMA, index, reinterpret_cast<LPARAM>(&item));
    }
    RECT itemRect(int index) const {
        RECT rect{};
        ask(TCM_GETITEMRECT, index, reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    POINT middle(int index) const {
        const RECT rect = itemRect(index);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    // Writes the tabs with their left and right ends, row by row from the top, and how far the display area is below.
    void rows(const std::string& what) {
        parent_.drain();
        const int count = number(ask(TCM_GETITEMCOUNT));
        const int rowCount = number(ask(TCM_GETROWCOUNT));
        trace_.line("%s: %d rows, selection %d%s", what.c_str(), rowCount, number(ask(TCM_GETCURSEL)),
                    GetFocus() == tabs_ ? " focus" : "");
        const RECT first = itemRect(0);
        const int height = static_cast<int>(first.bottom - first.top);
        for (int row = 0; row < rowCount; ++row) {
            std::string line;
            for (int i = 0; i < count; ++i) {
                const RECT rect = itemRect(i);
                if (rect.top == 2 + row * height) {
                    line +=
                        " " + std::to_string(i) + ":" + std::to_string(rect.left) + "-" + std::to_string(rect.right);
                }
            }
            trace_.line("  %s", line.c_str());
        }
        RECT display = {0, 0, 360, 200};
        ask(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&display));
        trace_.line("   display area %d below", static_cast<int>(display.top) - rowCount * height);
    }
    void select(int index) {
        ask(TCM_SETCURSEL, index);
        rows("select " + std::to_string(index));
    }
    void remove(int index) {
        ask(TCM_DELETEITEM, index);
        rows("delete " + std::to_string(index));
    }
    void resize(int width) {
        SetWindowPos(tabs_, nullptr, 0, 0, width, 200, SWP_NOMOVE | SWP_NOZORDER);
        rows("width " + std::to_string(width));
    }
    HWND tabs() const { return tabs_; }

private:
    Trace& trace_;
    LoggingParent parent_;
    HWND tabs_ = nullptr;
};

void traceRows(Trace& trace) {
    for (const DWORD style : {0, TCS_RAGGEDRIGHT}) {
        trace.section(style == 0 ? "rows" : "rows, ragged");
        for (const int count : {0, 1, 6, 7, 12, 20}) {
            RowScene scene(trace, count, style);
        }
        RowScene scene(trace, 14, style);
        for (const int index : {13, 0, 7, 6, -1, 5}) {
            scene.select(index);
        }
        scene.insert(0);
        scene.rows("insert at 0");
        scene.insert(15);
        scene.rows("insert at 15");
        for (const int index : {6, 14, 0}) {
            scene.remove(index);
        }
        scene.select(12);
        scene.remove(0);
        for (const int width : {250, 1000, 360}) {
            scene.resize(width);
        }
        while (scene.ask(TCM_GETITEMCOUNT) > 6) {
            scene.ask(TCM_DELETEITEM, 6);
        }
        scene.rows("one row again");
    }
}

void traceRowInput(Trace& trace) {
    trace.section("rows by mouse and keys");
    RowScene scene(trace, 14);
    for (const int index : {13, 2, 7, 7}) {
        const POINT point = scene.middle(index);
        TCHITTESTINFO hit{};
        hit.pt = point;
        const int found = number(scene.ask(TCM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
        trace.line("hit in %d: item %d flags %#x", index, found, static_cast<unsigned>(hit.flags));
        postClick(scene.tabs(), point.x, point.y);
        scene.rows("click");
    }
    constexpr struct {
        const char* name;
        UINT key;
    } kKeys[] = {{"left", VK_LEFT}, {"left", VK_LEFT}, {"left", VK_LEFT},   {"left", VK_LEFT}, {"up", VK_UP},
                 {"down", VK_DOWN}, {"end", VK_END},   {"right", VK_RIGHT}, {"up", VK_UP},     {"home", VK_HOME}};
    for (const auto& key : kKeys) {
        postKey(scene.tabs(), key.key);
        scene.rows(key.name);
    }
}

}  // namespace

void traceTabs(Trace& trace) {
    traceItems(trace);
    traceSelection(trace);
    traceKeys(trace);
    traceGeometry(trace);
    traceRows(trace);
    traceRowInput(trace);
}
