// The random user's habits, as tables. A page that comes adds its keys here; its controls are found on the screen.
#pragma once

#include "tests/random/view.h"

namespace random_user {

// Records of the host's store.
constexpr const char* kKeys[] = {
    "CROSS_DIST",     "A2-A1",           "CCT_CAB_BALLOON", "CCT_CAB_CORE",     "X-COORD",          "Y-COORD",
    "PHASE_DIST_HOR", "CCT_DIR",         "PHASE_DIST_VER",  "PHASE_LENGTH_VER", "PHASE_LENGTH_HOR", "DRW_MODE",
    "STR_INCR",       "BET_CAPITALS",    "BET_PREFIX",      "COORD_BET",        "NORV_LEVEL",       "UNRELATED",
    "PROJ_NAME",      "TITLE_A1",        "TITLE_A5",        "TITLE_B2",         "COMMENT_TAG",      "ACLTSHF1",
    "ACLTSHF3",       "TDS_DEF",         "RDS_DEF",         "DATABASEPREFIX",   "ATTR_COLOUR",      "BET_COLOUR",
    "100_COLOUR",     "BET_HGT",         "TERM_BET1HGT",    "ASSEMBLY_TXTHGT",  "ASSMBLY_TXTHGT",   "COLOR_INTERACT",
    "BROKEN_PART",    "CABLE_BALLOON_H", "TERMINAL_HEIGHT", "TERMINAL_WIDTH",   "TERM_X_HOR",       "ASSMBLY_SCALE",
    "NVST_HEAD4",     "NVST_FORM3",      "AUTO_DATE",       "AUTO_TIME",        "DWG_TEXT",         "FORM_SIZE",
    "DWG_PATH",       "XREF_FORMAT",     "CROSS_PREFIX",    "TBL_TYPE",         "SIGNAL_ONLY",      "WHCOLC5",
    "WHCOLCDEF",      "WHSORT",          "WH1COLUMN",       "WHFBTYPE",         "WHYDELTA",         "WHCNL",
    "WHEXTSREF",      "NUMBER_OFFSET"};
// None begins with a letter outside ASCII: where those stand in a sorted list depends on the desktop's language.
constexpr const char* kValues[] = {"",
                                   "0",
                                   "1",
                                   "2",
                                   "3",
                                   "4",
                                   "8",
                                   "-1",
                                   "12.5",
                                   "1,5",
                                   "abc",
                                   " 7 ",
                                   "1x",
                                   "iec617",
                                   "IEC",
                                   "DIN \xE5s",
                                   "\"",
                                   "0.05",
                                   "1.2.3",
                                   "20,10;2.5;-90",
                                   "$P.$C",
                                   "99999999999999999999",
                                   "x \xE5\xE4\xF6 \xC5\xC4\xD6 \x80\x96",
                                   "ett mycket l\xE5ngt v\xE4rde som inte f\xE5r plats"};

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
inline bool HasUncopied(const View& view) {
    return view.caret && view.caret->begin < view.caret->end &&
           view.Focused()->text.substr(static_cast<size_t>(view.caret->begin),
                                       static_cast<size_t>(view.caret->end - view.caret->begin)) != view.clipboard;
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
    return view.openList != nullptr ? view.highlighted > 0 : view.Focused()->selection > 0;
}
inline bool HasEntryBehind(const View& view) {
    return view.openList != nullptr ? view.highlighted + 1 < view.listCount
                                    : view.Focused()->selection + 1 < view.Focused()->count;
}

// How many entries a page has depends on the fonts, but any page reaches over these.
constexpr int kFewEntries = 3;
inline bool HasPageBefore(const View& view) {
    const int selected = view.openList != nullptr ? view.highlighted : view.Focused()->selection;
    return selected > 0 && selected <= kFewEntries;
}
inline bool HasPageBehind(const View& view) {
    const bool isOpen = view.openList != nullptr;
    const int selected = isOpen ? view.highlighted : view.Focused()->selection;
    const int behind = (isOpen ? view.listCount : view.Focused()->count) - 1 - selected;
    // Any first key selects the entry that it would start from.
    return behind > 0 && (behind <= kFewEntries || selected < 0);
}
inline bool CanSelectFirst(const View& view) {
    const SeenControl& list = *view.Focused();
    const int selected = view.openList != nullptr ? view.highlighted : list.selection;
    return list.kind == SeenControl::Kind::ListCombo && selected < 0 && list.count > 0;
}

struct KeyHabit {
    const char* key;
    int weight;
    unsigned where;
    bool (*works)(const View& view);  // whether it can do anything; null for always
    bool isAccepting = false;         // on some systems: only in a list that is as it was before it opened
};

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
    {"CTRL+C", 4, kInText, HasUncopied},
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
    {"F4", 6, kInOpenList, nullptr, true},
    {"ALT+UP", 6, kInOpenList, nullptr, true},
    {"ALT+DOWN", 3, kInOpenList, nullptr, true},
    {"TAB", 6, kInOpenList, nullptr, true},
    {"SHIFT+TAB", 3, kInOpenList, nullptr, true},
};

}  // namespace random_user
