// The tables of names.
#include "platform/trace/message_names.h"

#include <commctrl.h>
#include <prsht.h>

#include <cstdio>
#include <span>

namespace {

struct NamedCode {
    UINT code;
    const char* name;
};

// The code and its name are written once.
#define NAMED(code) \
    { static_cast<UINT>(code), #code }
#define ROW(code, shows, detail) \
    { code, #code, Shows::shows, Detail::detail, "" }
#define CLASS_ROW(windowClass, code, shows, detail) \
    { code, #code, Shows::shows, Detail::detail, windowClass }

constexpr MessageTraits kMessages[] = {
    ROW(WM_NCCREATE, Nothing, Window),
    ROW(WM_NCCALCSIZE, WParam, Window),
    ROW(WM_CREATE, Nothing, Dialog),
    ROW(WM_SIZE, Point, Window),
    ROW(WM_MOVE, Point, Window),
    ROW(WM_DISPLAYCHANGE, Point, Window),
    ROW(WM_SHOWWINDOW, Both, Dialog),
    ROW(WM_WINDOWPOSCHANGING, Placing, Window),
    ROW(WM_WINDOWPOSCHANGED, Placing, Window),
    ROW(WM_ACTIVATE, Activation, Dialog),
    ROW(WM_ACTIVATEAPP, WParam, Window),
    ROW(WM_NCACTIVATE, WParam, Window),
    ROW(WM_SETFOCUS, OtherWindow, Dialog),
    ROW(WM_KILLFOCUS, OtherWindow, Dialog),
    ROW(WM_ENABLE, WParam, Dialog),
    ROW(WM_CAPTURECHANGED, NewCapture, Window),
    ROW(WM_PARENTNOTIFY, LowWord, Window),
    ROW(WM_DESTROY, Nothing, Dialog),
    ROW(WM_NCDESTROY, Nothing, Window),
    ROW(WM_STYLECHANGING, Styles, Window),
    ROW(WM_STYLECHANGED, Styles, Window),
    ROW(WM_SETTEXT, Nothing, Window),
    ROW(WM_SETREDRAW, WParam, Window),
    ROW(WM_NCPAINT, Nothing, Window),
    ROW(WM_ERASEBKGND, Nothing, Window),
    ROW(WM_PAINT, Nothing, Window),
    ROW(WM_CLOSE, Nothing, Dialog),
    ROW(WM_SYSCOMMAND, WParam, Window),
    ROW(WM_SETFONT, Nothing, Dialog),
    ROW(WM_INITDIALOG, Nothing, Dialog),
    ROW(WM_COMMAND, Command, Dialog),
    ROW(WM_NOTIFY, Notification, Dialog),
    ROW(WM_ENTERIDLE, WParam, Dialog),
    ROW(WM_ENTERMENULOOP, Nothing, Window),
    ROW(WM_INITMENU, Nothing, Window),
    ROW(WM_INITMENUPOPUP, Nothing, Window),
    ROW(WM_UNINITMENUPOPUP, Nothing, Window),
    ROW(WM_EXITMENULOOP, Nothing, Window),
    ROW(WM_NEXTDLGCTL, Nothing, Dialog),
    ROW(WM_KEYDOWN, WParam, Dialog),
    ROW(WM_KEYUP, WParam, Window),
    ROW(WM_CHAR, WParam, Dialog),
    ROW(WM_SYSKEYDOWN, WParam, Window),
    ROW(WM_SYSKEYUP, WParam, Window),
    ROW(WM_SYSCHAR, WParam, Window),
    ROW(WM_LBUTTONDOWN, Point, Window),
    ROW(WM_LBUTTONUP, Point, Window),
    ROW(WM_LBUTTONDBLCLK, Point, Window),
    ROW(WM_NCLBUTTONDOWN, Nothing, Window),
    ROW(WM_MOUSEMOVE, Point, Window),
    ROW(WM_MOUSEWHEEL, HighWord, Window),
    ROW(WM_TIMER, WParam, Window),
    ROW(WM_APP, WParam, Window),
    ROW(BM_CLICK, WParam, Dialog),
    ROW(BM_SETSTYLE, Both, Dialog),
    ROW(BM_SETSTATE, WParam, Window),
    ROW(BM_SETCHECK, WParam, Window),
    CLASS_ROW("Edit", EM_SETSEL, Both, Dialog),
    CLASS_ROW("#32770", DM_SETDEFID, WParam, Dialog),
    CLASS_ROW("TavrikTraced", WM_USER, WParam, Window),
};
#undef ROW
#undef CLASS_ROW

constexpr NamedCode kButtonCodes[] = {NAMED(BN_CLICKED), NAMED(BN_DOUBLECLICKED), NAMED(BN_SETFOCUS),
                                      NAMED(BN_KILLFOCUS)};
constexpr NamedCode kEditCodes[] = {NAMED(EN_SETFOCUS), NAMED(EN_KILLFOCUS), NAMED(EN_CHANGE), NAMED(EN_UPDATE),
                                    NAMED(EN_MAXTEXT)};
constexpr NamedCode kListBoxCodes[] = {NAMED(LBN_SELCHANGE), NAMED(LBN_DBLCLK), NAMED(LBN_SETFOCUS),
                                       NAMED(LBN_KILLFOCUS)};
constexpr NamedCode kComboBoxCodes[] = {NAMED(CBN_SELCHANGE),  NAMED(CBN_SETFOCUS),   NAMED(CBN_KILLFOCUS),
                                        NAMED(CBN_EDITCHANGE), NAMED(CBN_EDITUPDATE), NAMED(CBN_DROPDOWN),
                                        NAMED(CBN_CLOSEUP),    NAMED(CBN_SELENDOK),   NAMED(CBN_SELENDCANCEL)};
constexpr NamedCode kNotifications[] = {NAMED(NM_CLICK),
                                        NAMED(NM_DBLCLK),
                                        NAMED(NM_RETURN),
                                        NAMED(NM_RCLICK),
                                        NAMED(NM_SETFOCUS),
                                        NAMED(NM_KILLFOCUS),
                                        NAMED(NM_CUSTOMDRAW),
                                        NAMED(NM_RELEASEDCAPTURE),
                                        NAMED(TCN_KEYDOWN),
                                        NAMED(TCN_SELCHANGE),
                                        NAMED(TCN_SELCHANGING),
                                        NAMED(LVN_ITEMCHANGING),
                                        NAMED(LVN_ITEMCHANGED),
                                        NAMED(LVN_INSERTITEM),
                                        NAMED(LVN_DELETEITEM),
                                        NAMED(LVN_DELETEALLITEMS),
                                        NAMED(LVN_BEGINLABELEDITA),
                                        NAMED(LVN_ENDLABELEDITA),
                                        NAMED(LVN_COLUMNCLICK),
                                        NAMED(LVN_ITEMACTIVATE),
                                        NAMED(LVN_KEYDOWN),
                                        NAMED(HDN_ITEMCLICKA),
                                        NAMED(HDN_DIVIDERDBLCLICKA),
                                        NAMED(HDN_ENDTRACKA),
                                        NAMED(HDN_BEGINDRAG),
                                        NAMED(HDN_ENDDRAG),
                                        NAMED(PSN_SETACTIVE),
                                        NAMED(PSN_KILLACTIVE),
                                        NAMED(PSN_APPLY),
                                        NAMED(PSN_RESET),
                                        NAMED(PSN_QUERYCANCEL)};
constexpr NamedCode kScrollCodes[] = {NAMED(TB_LINEUP),   NAMED(TB_LINEDOWN),      NAMED(TB_PAGEUP),
                                      NAMED(TB_PAGEDOWN), NAMED(TB_THUMBPOSITION), NAMED(TB_THUMBTRACK),
                                      NAMED(TB_TOP),      NAMED(TB_BOTTOM),        NAMED(TB_ENDTRACK)};
#undef NAMED

struct ClassCodes {
    std::string_view className;
    std::span<const NamedCode> codes;
};

constexpr ClassCodes kCommandCodes[] = {
    {"Button", kButtonCodes},
    {"Edit", kEditCodes},
    {"ListBox", kListBoxCodes},
    {"ComboBox", kComboBoxCodes},
};

const char* findName(std::span<const NamedCode> names, UINT code) {
    static char number[12];
    for (const NamedCode& named : names) {
        if (named.code == code) {
            return named.name;
        }
    }
    std::snprintf(number, sizeof number, "0x%04X", static_cast<unsigned>(code));
    return number;
}

}  // namespace

const MessageTraits* findMessage(UINT message, std::string_view windowClass) {
    for (const MessageTraits& traits : kMessages) {
        if (traits.code == message && (traits.windowClass.empty() || traits.windowClass == windowClass)) {
            return &traits;
        }
    }
    return nullptr;
}

const char* messageName(UINT message) {
    const MessageTraits* const traits = findMessage(message, "");
    return traits ? traits->name.data() : findName({}, message);
}

const char* commandName(HWND control, UINT code) {
    char className[32] = "";
    GetClassNameA(control, className, sizeof className);
    for (const ClassCodes& entry : kCommandCodes) {
        if (entry.className == className) {
            return findName(entry.codes, code);
        }
    }
    return findName({}, code);
}

const char* notificationName(UINT code) {
    return findName(kNotifications, code);
}

const char* scrollName(UINT code) {
    return findName(kScrollCodes, code);
}
