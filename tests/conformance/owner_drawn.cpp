// Combo boxes whose parent draws the entries: what it is asked to measure and to draw, in which state and order, and
// what a list that keeps no texts knows of its entries.
#include "tests/conformance/control_stage.h"
#include "tests/support/template_builder.h"

#include <algorithm>

namespace {

constexpr DWORD kWithTexts = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS | WS_VSCROLL;
constexpr DWORD kWithoutTexts = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | WS_VSCROLL;
constexpr int kItemHeight = 18;
constexpr SIZE kComboSize = {150, 117};

// Of the system font when there is none.
int fontHeight(LRESULT font = 0) {
    HDC dc = GetDC(nullptr);
    HGDIOBJ before = font ? SelectObject(dc, reinterpret_cast<HFONT>(font)) : nullptr;
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    if (before) {
        SelectObject(dc, before);
    }
    ReleaseDC(nullptr, dc);
    return metrics.tmHeight;
}

const char* colourName(COLORREF colour) {
    return colour == GetSysColor(COLOR_WINDOWTEXT) ? "plain" : colour == GetSysColor(COLOR_WINDOW) ? "ground" : "other";
}

// Writes down what a combo box asks the one who draws its entries.
class ItemLog {
public:
    explicit ItemLog(Trace& trace) : trace_(trace) {}

    // The height that is answered; 0 leaves the one that was proposed.
    void answerHeight(UINT height) { height_ = height; }
    bool answersHeight() const { return height_ != 0; }
    // Every drawing is a line of its own, in full; otherwise the entries of a step are collected in one line.
    void drawInFull(bool full) { full_ = full; }
    void muteDrawing(bool muted) { muted_ = muted; }
    // Leaves out what is drawn in whole: when that is painted is the system's own choice.
    void watchChanges(bool changes) { changes_ = changes; }
    std::string takeDrawn() { return std::exchange(drawn_, {}); }

    bool handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
        result = TRUE;
        switch (message) {
            case WM_MEASUREITEM:
                return measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam), wParam);
            case WM_DRAWITEM:
                draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), wParam);
                return true;
            case WM_DELETEITEM: {
                const auto& item = *reinterpret_cast<const DELETEITEMSTRUCT*>(lParam);
                trace_.line("WM_DELETEITEM %d type %u id %u item %d data %d, of the combo box %d", number(wParam),
                            item.CtlType, item.CtlID, static_cast<int>(item.itemID), static_cast<int>(item.itemData),
                            isCombo(item.hwndItem));
                return true;
            }
            default:
                return false;
        }
    }

private:
    static bool isCombo(HWND window) {
        char name[16] = "";
        GetClassNameA(window, name, sizeof name);
        return std::string(name) == "ComboBox";
    }
    bool measure(MEASUREITEMSTRUCT& item, WPARAM id) {
        trace_.line("WM_MEASUREITEM %d type %u id %u item %d data %d, %u wide, higher than the font by %d", number(id),
                    item.CtlType, item.CtlID, static_cast<int>(item.itemID), static_cast<int>(item.itemData),
                    item.itemWidth, static_cast<int>(item.itemHeight) - fontHeight());
        if (height_ != 0) {
            item.itemHeight = height_ + (item.itemID == 0 ? 0U : 2U);
        }
        return height_ != 0;
    }
    void draw(const DRAWITEMSTRUCT& item, WPARAM id) {
        if (muted_) {
            return;
        }
        if (changes_ && item.itemAction == ODA_DRAWENTIRE) {
            return;
        }
        char text[40];
        std::snprintf(text, sizeof text, "%s%d/%x/%x", drawn_.empty() ? "" : " ", static_cast<int>(item.itemID),
                      item.itemAction, item.itemState);
        drawn_ += text;
        if (!full_) {
            return;
        }
        RECT box{};
        GetClipBox(item.hDC, &box);
        HGDIOBJ font = SelectObject(item.hDC, GetStockObject(SYSTEM_FONT));
        SelectObject(item.hDC, font);
        const RECT& rect = item.rcItem;
        trace_.line("WM_DRAWITEM %d type %u id %u item %d action %x state %x data %d, of the combo box %d", number(id),
                    item.CtlType, item.CtlID, static_cast<int>(item.itemID), item.itemAction, item.itemState,
                    static_cast<int>(item.itemData), isCombo(item.hwndItem));
        trace_.line("%d,%d to %d,%d, clip %d,%d to %d,%d, text %s on %s, opaque %d, font %d", number(rect.left),
                    number(rect.top), number(rect.right), number(rect.bottom), number(box.left), number(box.top),
                    number(box.right), number(box.bottom), colourName(GetTextColor(item.hDC)),
                    colourName(GetBkColor(item.hDC)), SetBkMode(item.hDC, OPAQUE) == OPAQUE,
                    font == reinterpret_cast<HGDIOBJ>(SendMessageA(item.hwndItem, WM_GETFONT, 0, 0)));
    }

    Trace& trace_;
    UINT height_ = 0;
    bool full_ = false;
    bool muted_ = false;
    bool changes_ = false;
    std::string drawn_;
};

// Heights that come of a font are written as what they are above it.
void traceSizes(Trace& trace, HWND combo, int itemFont, int fieldFont) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    SendMessageA(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    RECT window{};
    RECT client{};
    GetWindowRect(combo, &window);
    GetClientRect(combo, &client);
    const int field = number(SendMessageA(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
    const int item = number(SendMessageA(combo, CB_GETITEMHEIGHT, 0, 0));
    trace.line("entries %d%s, field %d%s, window %d more", item - itemFont, itemFont ? " above the font" : "",
               field - fieldFont, fieldFont ? " above its font" : "", number(window.bottom - window.top) - field);
    trace.line("button %d,%d to %d,%d", number(client.right - info.rcButton.left), number(info.rcButton.top),
               number(client.right - info.rcButton.right), number(client.bottom - info.rcButton.bottom));
}

// The parent answers, or leaves the proposed heights.
void traceCreation(Trace& trace) {
    trace.section("owner-drawn combo: creation");
    for (const UINT height : {UINT{kItemHeight}, UINT{30}, 0U}) {
        trace.line("-- answered %u", height);
        LoggingParent parent(trace, LoggingParent::Kind::Window);
        ItemLog log(trace);
        log.muteDrawing(true);
        log.answerHeight(height);
        parent.setHook([&](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
            return log.handle(message, wParam, lParam, result);
        });
        HWND combo =
            CreateWindowExA(0, "ComboBox", "", kWithoutTexts | WS_CHILD | WS_VISIBLE, 10, 10, kComboSize.cx,
                            kComboSize.cy, parent.handle(), reinterpret_cast<HMENU>(INT_PTR{20}), instance(), nullptr);
        const int itemFont = height ? 0 : fontHeight();
        traceSizes(trace, combo, itemFont, itemFont);
        HGDIOBJ font = GetStockObject(DEFAULT_GUI_FONT);
        SendMessageA(combo, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
        trace.line("with a font");
        traceSizes(trace, combo, itemFont, fontHeight(reinterpret_cast<LRESULT>(font)));
        constexpr struct {
            int item;
            int height;
        } kHeights[] = {{-1, 23}, {0, 25}, {0, 256}, {0, 255}, {0, 0}, {-1, 0}};
        for (const auto& row : kHeights) {
            trace.line("item %d as high as %d: %d", row.item, row.height,
                       number(SendMessageA(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(row.item), row.height)));
            traceSizes(trace, combo, row.item == -1 && row.height ? itemFont : 0, 0);
        }
        parent.setHook(nullptr);
    }
}

ItemLog* g_dialogLog = nullptr;

INT_PTR CALLBACK loggedDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        HWND combo = GetDlgItem(dialog, 20);
        traceSizes(*reinterpret_cast<Trace*>(lParam), combo, g_dialogLog->answersHeight() ? 0 : fontHeight(),
                   fontHeight(SendMessageA(combo, WM_GETFONT, 0, 0)));
    }
    LRESULT result = 0;
    if (!g_dialogLog->handle(message, wParam, lParam, result)) {
        return FALSE;
    }
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
    return TRUE;
}

// The dialog asks before WM_INITDIALOG, and gives its font afterwards.
void traceTemplate(Trace& trace) {
    trace.section("owner-drawn combo: in a dialog template");
    for (const UINT height : {UINT{kItemHeight}, 0U}) {
        trace.line("-- answered %u", height);
        ItemLog log(trace);
        log.muteDrawing(true);
        log.answerHeight(height);
        g_dialogLog = &log;
        TemplateBuilder builder(TemplateBuilder::Form::Classic, WS_POPUP | WS_VISIBLE, 200, 100, "");
        builder.add(kComboBox, 20, "", kWithoutTexts, 5, 5, 100, 80);
        HWND dialog = CreateDialogIndirectParamA(instance(), builder.get(), nullptr, loggedDialogProc,
                                                 reinterpret_cast<LPARAM>(&trace));
        HWND combo = GetDlgItem(dialog, 20);
        SendMessageA(combo, CB_ADDSTRING, 0, 7);
        SendMessageA(combo, CB_ADDSTRING, 0, 8);
        trace.line("destroying");
        DestroyWindow(dialog);
        drainQueue();
    }
}

class OwnerStage {
public:
    OwnerStage(Trace& trace, DWORD style, int count)
        : trace_(trace), log_(trace), parent_(trace, LoggingParent::Kind::Window) {
        parent_.setQuiet(true);
        log_.muteDrawing(true);
        combo_ = parent_.add("ComboBox", "", style, ControlStage::kControlId, 10, 10, kComboSize.cx, kComboSize.cy);
        other_ = parent_.add("Edit", "", 0, ControlStage::kControlId + 1, 250, 10, 100, 20);
        parent_.setHook([this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
            return log_.handle(message, wParam, lParam, result);
        });
        ask(CB_SETITEMHEIGHT, 0, kItemHeight);
        ask(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), kItemHeight);
        for (int i = 0; i < count; ++i) {
            ask(CB_ADDSTRING, 0, 100 + i);
        }
        info_.cbSize = sizeof info_;
        ask(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info_));
        SetFocus(other_);
        settle();
        parent_.setQuiet(false);
    }
    ~OwnerStage() { parent_.setHook(nullptr); }

    HWND combo() const { return combo_; }
    HWND other() const { return other_; }
    HWND list() const { return info_.hwndList; }
    ItemLog& log() { return log_; }

    LRESULT ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(combo_, message, wParam, lParam);
    }
    void note(const char* text, LRESULT value) { trace_.line("%s = %d", text, number(value)); }

    // Does a step; writes down what is drawn in it at once, then all that is painted anew.
    template <class Step>
    void step(const char* what, Step run) {
        settle();
        trace_.line("-- %s", what);
        log_.muteDrawing(false);
        log_.watchChanges(true);
        run();
        flush("at once");
        log_.watchChanges(false);
        log_.muteDrawing(true);
        settle();
        show();
    }
    void type(const char* keys) {
        step(keys, [=, this] { typeKeys(combo_, keys); });
    }
    void send(const char* what, UINT message, WPARAM wParam, LPARAM lParam) {
        step(what, [&] { note("answer", ask(message, wParam, lParam)); });
    }
    void mouse(const char* what, HWND window, UINT message, WPARAM keys, LPARAM point) {
        step(what, [&] { SendMessageA(window, message, keys, point); });
    }
    LPARAM entryPoint(int index) const {
        RECT rect{};
        SendMessageA(list(), LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        return MAKELPARAM(20, (rect.top + rect.bottom) / 2);
    }
    LPARAM buttonPoint() const {
        return MAKELPARAM((info_.rcButton.left + info_.rcButton.right) / 2,
                          (info_.rcButton.top + info_.rcButton.bottom) / 2);
    }
    void show() {
        trace_.line("current %d, top %d, list %s", number(ask(CB_GETCURSEL)), number(ask(CB_GETTOPINDEX)),
                    ask(CB_GETDROPPEDSTATE) ? "open" : "closed");
        redraw("field", combo_);
        if (ask(CB_GETDROPPEDSTATE)) {
            redraw("list", list());
        }
    }

private:
    void settle() {
        drainQueue();
        UpdateWindow(combo_);
        UpdateWindow(info_.hwndList);
    }
    void flush(const char* what) {
        const std::string drawn = log_.takeDrawn();
        if (!drawn.empty()) {
            trace_.line("%s %s", what, drawn.c_str());
        }
    }
    void redraw(const char* what, HWND window) {
        log_.muteDrawing(false);
        InvalidateRect(window, nullptr, TRUE);
        UpdateWindow(window);
        log_.muteDrawing(true);
        flush(what);
    }

    Trace& trace_;
    ItemLog log_;
    LoggingParent parent_;
    HWND combo_ = nullptr;
    HWND other_ = nullptr;
    COMBOBOXINFO info_{};
};

void traceMessages(Trace& trace) {
    for (const DWORD style : {kWithTexts, kWithoutTexts}) {
        const bool hasTexts = style == kWithTexts;
        trace.section(hasTexts ? "owner-drawn combo: entries with texts" : "owner-drawn combo: entries without texts");
        OwnerStage stage(trace, style, 0);
        constexpr const char* kTexts[] = {"Apple", "banana", "apricot"};
        // Without texts the same parameters are numbers.
        const auto entry = [&](int i) { return hasTexts ? textParam(kTexts[i]) : LPARAM{100 + i}; };
        stage.note("add", stage.ask(CB_ADDSTRING, 0, entry(0)));
        stage.note("add", stage.ask(CB_ADDSTRING, 0, entry(1)));
        stage.note("insert", stage.ask(CB_INSERTSTRING, 1, entry(2)));
        stage.note("insert beyond", stage.ask(CB_INSERTSTRING, 9, entry(2)));
        stage.note("add nothing", stage.ask(CB_ADDSTRING, 0, hasTexts ? textParam("") : 0));
        for (const WPARAM i : {WPARAM{0}, WPARAM{1}, WPARAM{3}, WPARAM{4}, static_cast<WPARAM>(-1)}) {
            ULONG_PTR data[4] = {};
            const LRESULT length = stage.ask(CB_GETLBTEXTLEN, i);
            const LRESULT got = stage.ask(CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(data));
            const auto inPointers = [&](LRESULT value) { return number(value == sizeof(ULONG_PTR) ? -2 : value); };
            trace.line("entry %d: data %d, length %d, got %d: %d", number(static_cast<LRESULT>(i)),
                       number(stage.ask(CB_GETITEMDATA, i)), inPointers(length), inPointers(got),
                       static_cast<int>(data[0]));
        }
        stage.note("set data", stage.ask(CB_SETITEMDATA, 2, 55));
        stage.note("set data beyond", stage.ask(CB_SETITEMDATA, 4, 55));
        for (const WPARAM after : {static_cast<WPARAM>(-1), WPARAM{0}, WPARAM{1}}) {
            stage.note("find", stage.ask(CB_FINDSTRING, after, hasTexts ? textParam("ap") : 102));
            stage.note("find exactly", stage.ask(CB_FINDSTRINGEXACT, after, hasTexts ? textParam("APPLE") : 100));
        }
        stage.note("select", stage.ask(CB_SELECTSTRING, 0, hasTexts ? textParam("ap") : 102));
        stage.note("select what is not there", stage.ask(CB_SELECTSTRING, 0, hasTexts ? textParam("x") : 999));
        stage.note("current", stage.ask(CB_GETCURSEL));
        stage.note("text length", stage.ask(WM_GETTEXTLENGTH));
        char text[16] = "none";
        stage.note("text", stage.ask(WM_GETTEXT, sizeof text, textParam(text)));
        trace.line("%s", hasTexts ? text : "");
        stage.note("delete current", stage.ask(CB_DELETESTRING, 1));
        stage.note("current", stage.ask(CB_GETCURSEL));
        stage.note("delete beyond", stage.ask(CB_DELETESTRING, 3));
        stage.note("select 0", stage.ask(CB_SETCURSEL, 0));
        stage.note("set data of none", stage.ask(CB_SETITEMDATA, 0, 0));
        stage.note("reset", stage.ask(CB_RESETCONTENT));
        stage.note("current", stage.ask(CB_GETCURSEL));
    }
}

void traceDrawings(Trace& trace) {
    trace.section("owner-drawn combo: drawing");
    OwnerStage stage(trace, kWithoutTexts, 8);
    stage.log().drawInFull(true);
    stage.step("nothing selected", [] {});
    stage.send("select", CB_SETCURSEL, 1, 0);
    stage.send("open", CB_SHOWDROPDOWN, TRUE, 0);
    stage.send("close", CB_SHOWDROPDOWN, FALSE, 0);
    stage.step("disabled", [&] { EnableWindow(stage.combo(), FALSE); });
    stage.note("list enabled", IsWindowEnabled(stage.list()));
}

void traceStates(Trace& trace) {
    trace.section("owner-drawn combo: focus and selection");
    OwnerStage stage(trace, kWithoutTexts, 12);
    stage.step("focus", [&] { SetFocus(stage.combo()); });
    stage.send("select", CB_SETCURSEL, 3, 0);
    stage.send("the same", CB_SETCURSEL, 3, 0);
    stage.send("select", CB_SETCURSEL, 4, 0);
    stage.send("none", CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    stage.send("select", CB_SETCURSEL, 5, 0);
    stage.step("focus away", [&] { SetFocus(stage.other()); });
    stage.step("focus back", [&] { SetFocus(stage.combo()); });
    stage.step("disabled", [&] { EnableWindow(stage.combo(), FALSE); });
    stage.send("select while disabled", CB_SETCURSEL, 6, 0);
    stage.step("enabled", [&] { EnableWindow(stage.combo(), TRUE); });
    stage.send("open", CB_SHOWDROPDOWN, TRUE, 0);
    stage.send("select while open", CB_SETCURSEL, 0, 0);
    stage.send("out of sight", CB_SETCURSEL, 11, 0);
    stage.send("none", CB_SETCURSEL, static_cast<WPARAM>(-1), 0);
    stage.step("top", [&] { SendMessageA(stage.list(), LB_SETTOPINDEX, 4, 0); });
    stage.send("delete", CB_DELETESTRING, 5, 0);
    stage.send("add", CB_ADDSTRING, 0, 300);
    stage.send("insert", CB_INSERTSTRING, 0, 301);
    stage.send("data", CB_SETITEMDATA, 5, 302);
    stage.send("redraw off", WM_SETREDRAW, FALSE, 0);
    stage.send("select", CB_SETCURSEL, 6, 0);
    stage.send("add", CB_ADDSTRING, 0, 303);
    stage.send("redraw on", WM_SETREDRAW, TRUE, 0);
    stage.send("reset", CB_RESETCONTENT, 0, 0);
}

void traceKeys(Trace& trace) {
    trace.section("owner-drawn combo: keys closed");
    {
        OwnerStage stage(trace, kWithoutTexts, 12);
        SetFocus(stage.combo());
        for (const char* keys : {" ", "a", "{down}", "{down}", "{up}", " ", "{pgdn}", "{pgdn}", "{pgdn}", "{pgdn}",
                                 "{pgup}", "{end}", "{right}", "{home}", "{left}", "e", "{enter}", "{esc}"}) {
            stage.type(keys);
        }
        stage.send("wheel", WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    }
    trace.section("owner-drawn combo: keys open");
    OwnerStage stage(trace, kWithoutTexts, 12);
    SetFocus(stage.combo());
    for (const char* keys :
         {"{f4}",  " ",      "d",      "{down}",  "{down}",   "{pgdn}", "{pgdn}", "{pgdn}", "{up}",     "{pgup}",
          "{end}", "{home}", "{down}", "{enter}", "{A-down}", "{down}", "{down}", "{esc}",  "{A-down}", "{enter}"}) {
        stage.type(keys);
    }
}

void traceMouse(Trace& trace) {
    trace.section("owner-drawn combo: mouse");
    OwnerStage stage(trace, kWithoutTexts, 12);
    const HWND list = stage.list();
    const auto button = [&](const char* what, UINT message, WPARAM keys) {
        stage.mouse(what, stage.combo(), message, keys, stage.buttonPoint());
    };
    button("button down", WM_LBUTTONDOWN, MK_LBUTTON);
    button("button up", WM_LBUTTONUP, 0);
    stage.mouse("over 2", list, WM_MOUSEMOVE, 0, stage.entryPoint(2));
    stage.mouse("over 3", list, WM_MOUSEMOVE, 0, stage.entryPoint(3));
    stage.mouse("down on 3", list, WM_LBUTTONDOWN, MK_LBUTTON, stage.entryPoint(3));
    stage.mouse("up on 3", list, WM_LBUTTONUP, 0, stage.entryPoint(3));
    button("button down", WM_LBUTTONDOWN, MK_LBUTTON);
    button("button up", WM_LBUTTONUP, 0);
    stage.mouse("wheel in the list", list, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    stage.mouse("over 7", list, WM_MOUSEMOVE, 0, stage.entryPoint(7));
    stage.mouse("down outside", list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(-50, -50));
    button("button down", WM_LBUTTONDOWN, MK_LBUTTON);
    button("button up", WM_LBUTTONUP, 0);
    stage.mouse("over 4", list, WM_MOUSEMOVE, 0, stage.entryPoint(4));
    button("button down", WM_LBUTTONDOWN, MK_LBUTTON);
    button("button up", WM_LBUTTONUP, 0);
}

}  // namespace

void traceOwnerDrawn(Trace& trace) {
    traceCreation(trace);
    traceTemplate(trace);
    traceMessages(trace);
    traceDrawings(trace);
    traceStates(trace);
    traceKeys(trace);
    traceMouse(trace);
}
