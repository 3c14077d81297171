// Names of messages and notifications in the trace, and what of a message's arguments belongs into it.
#pragma once

#include <windows.h>

#include <string_view>

enum class Shows {
    Nothing,
    WParam,
    LowWord,   // Of wParam.
    HighWord,  // Of wParam, signed.
    Both,
    Point,  // In lParam.
    OtherWindow,
    NewCapture,
    Activation,
    Command,
    Notification,
    Placing,
    Styles,
};

// How closely windows are watched: a dialog's life in outline, or all that a window of its own is told.
enum class Detail { Dialog, Window };

struct MessageTraits {
    UINT code;
    std::string_view name;
    Shows shows;
    Detail detail;                 // The least that shows the message.
    std::string_view windowClass;  // Of codes that mean something else to every class; empty for all.
};

// What is known of a message to a window of the class; null for a message that no trace shows.
const MessageTraits* findMessage(UINT message, std::string_view windowClass);

// "WM_SETFOCUS" and the like, or the number in hexadecimal. The text is valid until the next call of the same function.
const char* messageName(UINT message);
// Name of a WM_COMMAND code, read by the class of the control ("BN_CLICKED", "EN_CHANGE" ...).
const char* commandName(HWND control, UINT code);
// Name of a WM_NOTIFY code ("TCN_SELCHANGE", "PSN_APPLY" ...).
const char* notificationName(UINT code);
// Name of a track bar's code in WM_HSCROLL and WM_VSCROLL ("TB_THUMBTRACK" ...).
const char* scrollName(UINT code);
