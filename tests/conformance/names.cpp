// Names of messages and notifications in the trace.
#include "trace.h"

#include <cstdio>
#include <cstring>
#include <span>

namespace {

struct NamedCode {
    UINT code;
    const char* name;
};

// The code and its name are written once.
#define NAMED(code) \
    { static_cast<UINT>(code), #code }

constexpr NamedCode kMessages[] = {
    NAMED(WM_CREATE),          NAMED(WM_DESTROY),        NAMED(WM_MOVE),         NAMED(WM_SIZE),
    NAMED(WM_ACTIVATE),        NAMED(WM_SETFOCUS),       NAMED(WM_KILLFOCUS),    NAMED(WM_ENABLE),
    NAMED(WM_SETREDRAW),       NAMED(WM_SETTEXT),        NAMED(WM_GETTEXT),      NAMED(WM_GETTEXTLENGTH),
    NAMED(WM_PAINT),           NAMED(WM_CLOSE),          NAMED(WM_ERASEBKGND),   NAMED(WM_SHOWWINDOW),
    NAMED(WM_CANCELMODE),      NAMED(WM_MOUSEACTIVATE),  NAMED(WM_NEXTDLGCTL),   NAMED(WM_DRAWITEM),
    NAMED(WM_MEASUREITEM),     NAMED(WM_DELETEITEM),     NAMED(WM_SETFONT),      NAMED(WM_GETFONT),
    NAMED(WM_COMPAREITEM),     NAMED(WM_NOTIFY),         NAMED(WM_STYLECHANGED), NAMED(WM_NCCREATE),
    NAMED(WM_NCDESTROY),       NAMED(WM_NCHITTEST),      NAMED(WM_NCACTIVATE),   NAMED(WM_GETDLGCODE),
    NAMED(WM_KEYDOWN),         NAMED(WM_KEYUP),          NAMED(WM_CHAR),         NAMED(WM_SYSKEYDOWN),
    NAMED(WM_SYSKEYUP),        NAMED(WM_SYSCHAR),        NAMED(WM_INITDIALOG),   NAMED(WM_COMMAND),
    NAMED(WM_SYSCOMMAND),      NAMED(WM_TIMER),          NAMED(WM_ENTERIDLE),    NAMED(WM_CTLCOLOREDIT),
    NAMED(WM_CTLCOLORLISTBOX), NAMED(WM_CTLCOLORBTN),    NAMED(WM_CTLCOLORDLG),  NAMED(WM_CTLCOLORSTATIC),
    NAMED(WM_MOUSEMOVE),       NAMED(WM_LBUTTONDOWN),    NAMED(WM_LBUTTONUP),    NAMED(WM_LBUTTONDBLCLK),
    NAMED(WM_PARENTNOTIFY),    NAMED(WM_CAPTURECHANGED), NAMED(WM_CUT),          NAMED(WM_COPY),
    NAMED(WM_PASTE),           NAMED(WM_CLEAR),          NAMED(WM_UNDO),         NAMED(BM_GETCHECK),
    NAMED(BM_SETCHECK),        NAMED(BM_GETSTATE),       NAMED(BM_SETSTATE),     NAMED(BM_SETSTYLE),
    NAMED(BM_CLICK),           NAMED(DM_GETDEFID),       NAMED(DM_SETDEFID),     NAMED(EM_SETSEL),
    NAMED(EM_GETSEL),
};

constexpr NamedCode kButtonCodes[] = {
    NAMED(BN_CLICKED), NAMED(BN_PAINT),         NAMED(BN_HILITE),   NAMED(BN_UNHILITE),
    NAMED(BN_DISABLE), NAMED(BN_DOUBLECLICKED), NAMED(BN_SETFOCUS), NAMED(BN_KILLFOCUS),
};
constexpr NamedCode kStaticCodes[] = {NAMED(STN_CLICKED), NAMED(STN_DBLCLK)};
constexpr NamedCode kEditCodes[] = {
    NAMED(EN_SETFOCUS), NAMED(EN_KILLFOCUS), NAMED(EN_CHANGE),  NAMED(EN_UPDATE),
    NAMED(EN_ERRSPACE), NAMED(EN_MAXTEXT),   NAMED(EN_HSCROLL),
};
constexpr NamedCode kListBoxCodes[] = {
    NAMED(LBN_SELCHANGE), NAMED(LBN_DBLCLK), NAMED(LBN_SELCANCEL), NAMED(LBN_SETFOCUS), NAMED(LBN_KILLFOCUS),
};
constexpr NamedCode kComboBoxCodes[] = {
    NAMED(CBN_SELCHANGE),  NAMED(CBN_DBLCLK),   NAMED(CBN_SETFOCUS), NAMED(CBN_KILLFOCUS), NAMED(CBN_EDITCHANGE),
    NAMED(CBN_EDITUPDATE), NAMED(CBN_DROPDOWN), NAMED(CBN_CLOSEUP),  NAMED(CBN_SELENDOK),  NAMED(CBN_SELENDCANCEL),
};
constexpr NamedCode kNotifications[] = {
    NAMED(NM_CLICK),
    NAMED(NM_RCLICK),
    NAMED(NM_RELEASEDCAPTURE),
    NAMED(TCN_KEYDOWN),
    NAMED(TCN_SELCHANGE),
    NAMED(TCN_SELCHANGING),
    NAMED(PSN_SETACTIVE),
    NAMED(PSN_KILLACTIVE),
    NAMED(PSN_APPLY),
    NAMED(PSN_RESET),
    NAMED(PSN_QUERYCANCEL),
    NAMED(PSN_HELP),
    NAMED(PSN_QUERYINITIALFOCUS),
};
#undef NAMED

struct ClassCodes {
    const char* className;
    std::span<const NamedCode> codes;
};

constexpr ClassCodes kCommandCodes[] = {
    {"Button", kButtonCodes},   {"Static", kStaticCodes},     {"Edit", kEditCodes},
    {"ListBox", kListBoxCodes}, {"ComboBox", kComboBoxCodes},
};

const char* findName(std::span<const NamedCode> names, UINT code, std::span<char> buffer) {
    for (const NamedCode& named : names) {
        if (named.code == code) {
            return named.name;
        }
    }
    std::snprintf(buffer.data(), buffer.size(), "0x%04X", static_cast<unsigned>(code));
    return buffer.data();
}

}  // namespace

const char* messageName(UINT message) {
    static char number[12];
    return findName(kMessages, message, number);
}

const char* commandName(HWND control, UINT code) {
    static char number[12];
    char className[32] = "";
    GetClassNameA(control, className, sizeof className);
    for (const ClassCodes& entry : kCommandCodes) {
        if (std::strcmp(entry.className, className) == 0) {
            return findName(entry.codes, code, number);
        }
    }
    return findName({}, code, number);
}

const char* notificationName(UINT code) {
    static char number[12];
    return findName(kNotifications, code, number);
}
