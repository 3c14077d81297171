// What is left and how. A page that the sheet gains adds its rows to the first two tables.
#pragma once

#include <windows.h>

#include <vector>

#include "resources/resource.h"

// A page, and what a user may click there besides the field that he leaves; 0 where the page has no such control.
struct Page {
    const char* tab;
    int edit;
    int checkBox;
    int radioButton;
    int comboBox;
};

inline constexpr Page kGeneral{"Allmänt", IDC_START_Y, IDC_CAPITAL_DESIGNATIONS, IDC_MARKING_A2_A1,
                               IDC_SYMBOL_STANDARD};
// Its check box records a height that the Texts page shows.
inline constexpr Page kExternal{"Yttre / Montage", IDC_TERMINAL_BOX_WIDTH, 0, IDC_PART_BREAKING, 0};
inline constexpr Page kPro{"Pro", IDC_CONTINUED_TAG, IDC_SIGNAL_TYPE, IDC_MIRROR_CROSS, IDC_FORMAT_1};
inline constexpr Page kForms{"Blanketter", IDC_RULER_A3, 0, 0, 0};
inline constexpr Page kProject{"Projektbeskrivning", IDC_DESCRIPTION_2, 0, 0, IDC_SHEET_ATTRIBUTE};
inline constexpr Page kTextsAndColours{"Texter/Färger", 0, IDC_AUTOMATIC_TEXTS, 0, IDC_DESIGNATION_HEIGHT};

// A text that the user types, and the box that refuses it; without a box it is taken.
struct Text {
    const char* typed;  // null: nothing is typed; empty: the text is deleted
    const char* box = nullptr;
    const char* caption = "Felaktigt textfält";
};

struct Field {
    const Page& page;
    int id;
    const char* key;
    const char* before;       // In the host's store. What nobody changed is not checked, so it may be a refused one.
    const char* mended;       // What the user types after a box; null where nothing is refused.
    std::vector<Text> texts;  // typed one after the other
};

inline constexpr const char* kEmpty = "Textsträngen kan inte vara tom!";
inline constexpr const char* kRange = "Ange ett tal mellan 1 och 100000.";
inline constexpr const char* kWrongValue = "Fel värde";
inline constexpr const char* kQuote = "\"är ogiltigt!";

inline const std::vector<Field> kFields = {
    {kProject, IDC_DESCRIPTION_1, "TITLE_A3", "before", "mended", {{"a\"b", kQuote}, {""}, {"text"}}},
    {kProject, IDC_SHEET_ATTRIBUTE, "COMMENT_TAG", "D3", "E", {{"D\"", kQuote}, {"X9"}}},
    {kGeneral, IDC_START_X, "X-COORD", "1;2", "3", {{"12,5", ",är ogiltigt!"}, {"", kEmpty}, {"12.5"}}},
    // Nothing but digits can be typed here.
    {kGeneral, IDC_CROSS_DISTANCE, "CROSS_DIST", "1;2", "3", {{"", kEmpty}, {"25"}}},
    {kExternal, IDC_TERMINAL_X_HOR, "TERM_X_HOR", "1", "3", {{"", kEmpty}, {"25"}}},
    {kExternal, IDC_ASSEMBLY_SCALE, "ASSMBLY_SCALE", "1.5", "3.5", {{"0", kRange, kWrongValue}, {"2.5"}}},
    {kPro, IDC_CROSS_PREFIX, "CROSS_PREFIX", "b", "a", {{"a\"b", kQuote}, {""}}},
    {kForms, IDC_HEAD_A4, "NVST_HEAD4", "a4", nullptr, {{""}, {"a \"b"}}},
    {kGeneral, IDC_SYMBOL_STANDARD, "CCT_DIR", "iec1082", nullptr, {{""}, {"DIN \"40"}}},
    {kTextsAndColours, IDC_DESIGNATION_HEIGHT, "BET_HGT", "1;2", "3", {{"2,5", ",är ogiltigt!"}, {"12.5"}}},
    {kTextsAndColours, IDC_ASSEMBLY_HEIGHT, "ASSMBLY_TXTHGT", "1;2", "3", {{"1,5", ",är ogiltigt!"}, {"12.5"}}},
};

// What takes the focus other than by a key.
struct Place {
    const char* name;
    int Page::*onPage = nullptr;  // where the page's row has the control's number
    int control = 0;              // of the sheet itself
};

inline constexpr Place kEdit{"a click on edit ", &Page::edit};
inline constexpr Place kCheckBox{"a click on check box ", &Page::checkBox};
inline constexpr Place kRadioButton{"a click on radio button ", &Page::radioButton};
inline constexpr Place kComboBox{"a click on combo box ", &Page::comboBox};
inline constexpr Place kComboArrow{"a click on the arrow of combo box ", &Page::comboBox};
inline constexpr Place kOwnTab{"a click on its own tab"};
inline constexpr Place kOtherTab{"a click on another tab"};
inline constexpr Place kOk{"a click on OK", nullptr, IDOK};
inline constexpr Place kCancel{"a click on Cancel", nullptr, IDCANCEL};
inline constexpr Place kCancelLetGo{"a press on Cancel let go beside it"};
inline constexpr Place kCloseBox{"the close box"};
inline constexpr Place kOtherWindow{"another window of the program"};
inline constexpr Place kOtherProgram{"another program"};
inline constexpr Place kMinimisedHost{"minimising the host"};

// A key, or a place.
struct Step {
    constexpr Step(const char* pressed) : key(pressed) {}
    constexpr Step(const Place& where) : place(&where) {}
    const char* key = nullptr;
    const Place* place = nullptr;
};

// Where the user is after a text that is taken. A refused one keeps him in the field, but for Cancels. What he sees in
// the fields is what OK stores.
enum class Goes {
    NextControl,
    PreviousControl,
    Clicked,    // on the control or the tabs
    OtherPage,  // on another page
    Back,       // in the field, once he is back in the sheet
    Accepts,    // the sheet ends with OK
    Cancels,    // the sheet ends, says nothing, and leaves the store alone
    AsShown,    // anywhere, with any text in the combo box
};

struct Way {
    std::vector<Step> steps;
    Goes goes;
};

inline const std::vector<Way> kWays = {
    {{"TAB"}, Goes::NextControl},
    {{"SHIFT+TAB"}, Goes::PreviousControl},
    {{kEdit}, Goes::Clicked},
    {{kCheckBox}, Goes::Clicked},
    {{kRadioButton}, Goes::Clicked},
    {{kComboBox}, Goes::Clicked},
    {{kComboArrow}, Goes::Clicked},
    {{kOwnTab}, Goes::Clicked},
    {{kOtherTab}, Goes::OtherPage},
    {{"CTRL+TAB"}, Goes::OtherPage},
    {{"CTRL+SHIFT+TAB"}, Goes::OtherPage},
    {{"CTRL+PAGEDOWN"}, Goes::OtherPage},
    {{"CTRL+PAGEUP"}, Goes::OtherPage},
    {{kOtherWindow}, Goes::Back},
    {{kOtherProgram}, Goes::Back},
#ifdef SW_MINIMIZE  // A program cannot minimise the native windows.
    {{kMinimisedHost}, Goes::Back},
#endif
    {{kOk}, Goes::Accepts},
    {{"ENTER"}, Goes::Accepts},
    {{kCancelLetGo, kOk}, Goes::Accepts},
    {{kCancel}, Goes::Cancels},
    {{"ESC"}, Goes::Cancels},
    {{kCloseBox}, Goes::Cancels},
    // Picks from a combo box's list, most of them taken back.
    {{"DOWN", "TAB"}, Goes::AsShown},
    {{"F4", "DOWN", "TAB"}, Goes::AsShown},
    {{"F4", "DOWN", "F4"}, Goes::AsShown},
    {{"F4", "DOWN", "ENTER"}, Goes::AsShown},
    {{"ALT+DOWN", "DOWN", "ALT+UP"}, Goes::AsShown},
    {{"F4", "DOWN", "ESC"}, Goes::AsShown},
    {{"F4", "DOWN", "ESC", "ENTER"}, Goes::AsShown},
    {{"F4", "DOWN", "ENTER", "F4", "UP", "ESC"}, Goes::AsShown},
    {{kComboArrow, "DOWN", kComboArrow}, Goes::AsShown},
    {{"F4", "DOWN", kEdit}, Goes::AsShown},
    {{"F4", "DOWN", kOtherWindow}, Goes::AsShown},
    {{"F4", "DOWN", "CTRL+TAB"}, Goes::AsShown},
};
