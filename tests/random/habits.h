// The random user's habits, as tables. A page that comes adds its keys here; its controls are found on the screen.
#pragma once

#include "tests/random/view.h"

namespace random_user {

// Records of the host's store.
constexpr const char* kKeys[] = {
    "CROSS_DIST",   "A2-A1",      "CCT_CAB_BALLOON", "CCT_CAB_CORE", "X-COORD",         "CCT_DIR",    "PHASE_DIST_VER",
    "DRW_MODE",     "STR_INCR",   "BET_CAPITALS",    "BET_PREFIX",   "COORD_BET",       "NORV_LEVEL", "UNRELATED",
    "PROJ_NAME",    "TITLE_A5",   "COMMENT_TAG",     "ACLTSHF3",     "TDS_DEF",         "BET_COLOUR", "DATABASEPREFIX",
    "ATTR_COLOUR",  "100_COLOUR", "BET_HGT",         "TERM_BET1HGT", "ASSEMBLY_TXTHGT", "NVST_HEAD4", "COLOR_INTERACT",
    "BROKEN_PART",  "NVST_FORM3", "AUTO_DATE",       "DWG_TEXT",     "TERMINAL_HEIGHT", "FORM_SIZE",  "CABLE_BALLOON_H",
    "XREF_FORMAT",  "TBL_TYPE",   "SIGNAL_ONLY",     "WHCOLC5",      "WHCOLCDEF",       "WHSORT",     "NUMBER_OFFSET",
    "CROSS_PREFIX", "WHFBTYPE",   "WHYDELTA",        "WHCNL",        "WHEXTSREF",       "TERM_X_HOR", "ASSMBLY_SCALE"};
// None begins with a letter outside ASCII: where those stand in a sorted list depends on the desktop's language.
constexpr const char* kValues[] = {
    "",   "0",  "1",    "2",     "3",   "4",   "8",    "-1",     "12.5",          "1,5", "abc", " 7 ",
    "1x", "\"", "0.05", "1.2.3", "IEC", "a$C", "20,1", "iec617", "x\xE5\x80\x96", "-90", "5;2"};

// What is typed into fields.
constexpr const char* kTexts[] = {"1",   "25",      "2.5",      "1,5",           "",   "   ", "-3",
                                  "abc", "iec",     "i",        "x\xE5\x80\x96", "9.", "\"",  "0.1 ",
                                  " 4",  "iec6179", "DIN 40900"};

// Where a key is pressed, as bits.
enum Where : unsigned {
    kInEdit = 1,
    kInEditCombo = 2,
    kInListCombo = 4,
    kOnCheck = 8,
    kOnRadio = 16,
    kOnPush = 32,
    kOnClosing = 64,  // OK and Cancel
    kElsewhere = 128,
    kInOpenList = 256,  // then none of the others
    kInText = kInEdit | kInEditCombo,
    kInCombo = kInEditCombo | kInListCombo,
    kClosed = kInText | kInListCombo | kOnCheck | kOnRadio | kOnPush | kOnClosing | kElsewhere,
};

inline bool HasTabs(const View& view) {
    return view.tabs.size() > 1;
}
inline bool HasBefore(const View& view) {
    return view.caret && view.caret->end > 0;
}
inline bool HasBehind(const View& view) {
    return view.caret && view.caret->begin < view.caret->length;
}
inline bool HasSelected(const View& view) {
    return view.caret && view.caret->begin < view.caret->end;
}
inline bool HasClipboard(const View& view) {
    return !view.clipboard.empty();
}
inline bool HasUndo(const View& view) {
    return view.caret && view.caret->canUndo;
}
inline bool IsUnchecked(const View& view) {
    return !view.Focused()->isChecked;
}
inline bool HasEntryBefore(const View& view) {
    return view.Entry() > 0;
}
inline bool HasEntryBehind(const View& view) {
    return view.Entry() + 1 < view.EntryCount();
}

// How many entries a page has depends on the fonts, but any page reaches over these.
constexpr int kFewEntries = 3;
inline bool HasPageBefore(const View& view) {
    return view.Entry() > 0 && view.Entry() <= kFewEntries;
}
inline bool HasPageBehind(const View& view) {
    const int behind = view.EntryCount() - 1 - view.Entry();
    // Any first key selects the entry that it would start from.
    return behind > 0 && (behind <= kFewEntries || view.Entry() < 0);
}
inline bool CanSelectFirst(const View& view) {
    return view.Focused()->kind == SeenControl::Kind::ListCombo && view.Entry() < 0 && view.EntryCount() > 0;
}

struct KeyHabit {
    const char* key;
    int weight;
    unsigned where;
    bool (*works)(const View& view);  // whether it can do anything; null for always
};

// In an open list only keys that end a pick alike on all systems.
constexpr KeyHabit kKeyHabits[] = {
    {"TAB", 12, kClosed, nullptr},
    {"SHIFT+TAB", 8, kClosed, nullptr},
    {"CTRL+TAB", 6, kClosed, HasTabs},
    {"CTRL+SHIFT+TAB", 3, kClosed, HasTabs},
    {"CTRL+PAGEDOWN", 3, kClosed, HasTabs},
    {"CTRL+PAGEUP", 2, kClosed, HasTabs},
    {"ENTER", 1, kClosed, nullptr},
    {"ESC", 1, kClosed, nullptr},

    {"LEFT", 3, kInText, HasBefore},
    {"RIGHT", 3, kInText, HasBehind},
    {"HOME", 3, kInText, HasBefore},
    {"END", 3, kInText, HasBehind},
    {"SHIFT+HOME", 3, kInText, HasBefore},
    {"SHIFT+END", 3, kInText, HasBehind},
    {"SHIFT+LEFT", 3, kInText, HasBefore},
    {"CTRL+LEFT", 2, kInText, HasBefore},
    {"CTRL+RIGHT", 2, kInText, HasBehind},
    {"DELETE", 4, kInText, HasBehind},
    {"BACKSPACE", 4, kInText, HasBefore},
    {"CTRL+C", 4, kInText, HasSelected},
    {"CTRL+X", 4, kInText, HasSelected},
    {"CTRL+V", 4, kInText, HasClipboard},
    {"CTRL+Z", 4, kInText, HasUndo},

    {"UP", 5, kInCombo, HasEntryBefore},
    {"DOWN", 5, kInCombo, HasEntryBehind},
    {"PAGEUP", 2, kInCombo, HasPageBefore},
    {"PAGEDOWN", 2, kInCombo, HasPageBehind},
    {"SPACE", 6, kInListCombo | kInOpenList, CanSelectFirst},
    {"F4", 10, kInCombo, nullptr},
    {"ALT+DOWN", 8, kInCombo, nullptr},
    {"ALT+UP", 4, kInCombo, nullptr},

    {"SPACE", 12, kOnCheck | kOnPush, nullptr},
    {"SPACE", 6, kOnRadio, IsUnchecked},
    {"SPACE", 1, kOnClosing, nullptr},
    {"UP", 6, kOnRadio, nullptr},
    {"DOWN", 6, kOnRadio, nullptr},
    {"LEFT", 3, kOnRadio, nullptr},
    {"RIGHT", 3, kOnRadio, nullptr},

    {"UP", 12, kInOpenList, HasEntryBefore},
    {"DOWN", 16, kInOpenList, HasEntryBehind},
    {"PAGEUP", 3, kInOpenList, HasPageBefore},
    {"PAGEDOWN", 3, kInOpenList, HasPageBehind},
    {"ENTER", 10, kInOpenList, nullptr},
    {"ESC", 10, kInOpenList, nullptr},
};

}  // namespace random_user
