// Combo boxes whose parent draws the entries, which are numbers and not texts: what it is asked to measure and to draw,
// and in which state.
#include "tests/conformance/combo_stage.h"
#include "tests/support/template_builder.h"

namespace {

constexpr DWORD kStyle = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | WS_VSCROLL;
constexpr int kItemHeight = 18;
constexpr SIZE kComboSize = {150, 117};

// Of the system font when there is none.
int fontHeight(LRESULT font = 0) {
    HDC dc = GetDC(nullptr);
    HGDIOBJ before = SelectObject(dc, font ? reinterpret_cast<HFONT>(font) : GetStockObject(SYSTEM_FONT));
    TEXTMETRICA metrics{};
    GetTextMetricsA(dc, &metrics);
    SelectObject(dc, before);
    ReleaseDC(nullptr, dc);
    return metrics.tmHeight;
}

const char* colourName(COLORREF colour) {
    return colour == GetSysColor(COLOR_WINDOWTEXT) ? "plain" : colour == GetSysColor(COLOR_WINDOW) ? "ground" : "other";
}

// Writes down what a combo box asks the one who draws its entries.
class ItemLog {
public:
    // The height that is answered; 0 leaves the one that was proposed.
    ItemLog(Trace& trace, UINT height) : trace_(trace), height_(height) {}

    // The name of what is being drawn; what else is painted at some time leaves no trace.
    void expect(const char* drawn) { drawn_ = drawn; }

    bool handle(UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
        result = TRUE;
        switch (message) {
            case WM_MEASUREITEM:
                return measure(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
            case WM_DRAWITEM:
                draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
                return true;
            case WM_DELETEITEM: {
                const auto& item = *reinterpret_cast<const DELETEITEMSTRUCT*>(lParam);
                trace_.line("WM_DELETEITEM type %u id %u item %d data %d", item.CtlType, item.CtlID,
                            static_cast<int>(item.itemID), static_cast<int>(item.itemData));
                return true;
            }
            default:
                return false;
        }
    }

private:
    bool measure(MEASUREITEMSTRUCT& item) const {
        trace_.line("WM_MEASUREITEM type %u id %u item %d data %d, %u wide, higher than the font by %d", item.CtlType,
                    item.CtlID, static_cast<int>(item.itemID), static_cast<int>(item.itemData), item.itemWidth,
                    static_cast<int>(item.itemHeight) - fontHeight());
        if (height_ != 0) {
            item.itemHeight = height_ + (item.itemID == 0 ? 0U : 2U);
        }
        return height_ != 0;
    }
    void draw(const DRAWITEMSTRUCT& item) const {
        if (!drawn_) {
            return;
        }
        RECT box{};
        GetClipBox(item.hDC, &box);
        const RECT& rect = item.rcItem;
        trace_.line(
            "%s: WM_DRAWITEM id %u item %d data %d action %x state %x: %d,%d to %d,%d, clip %d,%d to %d,%d, "
            "text %s on %s",
            drawn_, item.CtlID, static_cast<int>(item.itemID), static_cast<int>(item.itemData), item.itemAction,
            item.itemState, number(rect.left), number(rect.top), number(rect.right), number(rect.bottom),
            number(box.left), number(box.top), number(box.right), number(box.bottom),
            colourName(GetTextColor(item.hDC)), colourName(GetBkColor(item.hDC)));
    }

    Trace& trace_;
    UINT height_;
    const char* drawn_ = nullptr;
};

// Heights that come of a font are written as what they are above it.
void traceSizes(Trace& trace, HWND combo, int itemFont, int fieldFont) {
    RECT window{};
    GetWindowRect(combo, &window);
    const int field = number(SendMessageA(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
    const int item = number(SendMessageA(combo, CB_GETITEMHEIGHT, 0, 0));
    trace.line("entries %d%s, field %d%s, window %d more", item - itemFont, itemFont ? " above the font" : "",
               field - fieldFont, fieldFont ? " above its font" : "", number(window.bottom - window.top) - field);
}

ItemLog* g_log = nullptr;

INT_PTR CALLBACK loggedDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    if (!g_log->handle(message, wParam, lParam, result)) {
        return FALSE;
    }
    SetWindowLongPtrA(dialog, DWLP_MSGRESULT, result);
    return TRUE;
}

// The dialog asks before WM_INITDIALOG, and gives its font afterwards.
void traceCreation(Trace& trace) {
    trace.section("owner-drawn combo: creation");
    for (const UINT height : {UINT{kItemHeight}, 0U}) {
        trace.line("-- answered %u", height);
        ItemLog log(trace, height);
        g_log = &log;
        const int itemFont = height ? 0 : fontHeight();
        TemplateBuilder builder(TemplateBuilder::Form::Classic, WS_POPUP | WS_VISIBLE, 200, 100, "");
        builder.add(kComboBox, 20, "", kStyle, 5, 5, 100, 80);
        HWND dialog = CreateDialogIndirectParamA(instance(), builder.get(), nullptr, loggedDialogProc, 0);
        HWND combo = GetDlgItem(dialog, 20);
        traceSizes(trace, combo, itemFont, fontHeight(SendMessageA(combo, WM_GETFONT, 0, 0)));
        SendMessageA(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), 23);
        traceSizes(trace, combo, itemFont, 0);
        SendMessageA(combo, CB_ADDSTRING, 0, 7);
        SendMessageA(combo, CB_ADDSTRING, 0, 8);
        trace.line("destroying");
        DestroyWindow(dialog);
        drainQueue();
    }
}

class OwnerStage : public ComboStage {
public:
    explicit OwnerStage(Trace& trace) : ComboStage(trace, kStyle, kComboSize), log_(trace, 0) {
        parent().setHook([this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
            return log_.handle(message, wParam, lParam, result);
        });
        ask(CB_SETITEMHEIGHT, 0, kItemHeight);
        ask(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), kItemHeight);
        for (int i = 0; i < 8; ++i) {
            ask(CB_ADDSTRING, 0, 100 + i);
        }
    }

    void state(const char* after) const override {
        drainQueue();
        trace_.line("%s: current %d, top %d, list %s", after, number(ask(CB_GETCURSEL)),
                    number(SendMessageA(list(), LB_GETTOPINDEX, 0, 0)), ask(CB_GETDROPPEDSTATE) ? "open" : "closed");
        redraw("field", control());
        if (ask(CB_GETDROPPEDSTATE)) {
            redraw("list", list());
        }
    }

private:
    void redraw(const char* what, HWND window) const {
        UpdateWindow(window);
        log_.expect(what);
        InvalidateRect(window, nullptr, TRUE);
        UpdateWindow(window);
        log_.expect(nullptr);
    }

    mutable ItemLog log_;
};

void traceStates(Trace& trace) {
    trace.section("owner-drawn combo: drawing");
    OwnerStage stage(trace);
    stage.type({"<focus>",    "<select 3>", "<select -1>", "<enable 0>", "<select 6>", "<enable 1>",
                "<redraw 0>", "<select 5>", "<redraw 1>",  " ",          "a",          "{pgdn}",
                "{f4}",       "{down}",     "{home}",      "{enter}",    "{A-down}",   "{down}",
                "<over 2>",   "<wheel -1>", "<down on 3>", "<up on 3>",  "<away>"});
}

}  // namespace

void traceOwnerDrawn(Trace& trace) {
    traceCreation(trace);
    traceStates(trace);
}
