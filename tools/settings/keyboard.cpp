#include "tools/settings/keyboard.h"

#include "tools/settings/captions.h"

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <map>
#include <vector>

namespace {

struct Way {
    const char* windowClass;
    DWORD mask;
    DWORD style;
    const char* keys;
};

constexpr Way kWays[] = {
    {"Button", 0xF, BS_PUSHBUTTON, "Space, Enter"},
    {"Button", 0xF, BS_DEFPUSHBUTTON, "Space, Enter"},
    {"Button", 0xF, BS_AUTORADIOBUTTON, "arrow keys"},
    {"Button", 0, 0, "Space"},
    {"Edit", ES_READONLY, ES_READONLY, "is read; Ctrl+C copies"},
    {"Edit", 0, 0, "typing"},
    {"ComboBox", CBS_DROPDOWNLIST, CBS_DROPDOWNLIST, "arrow keys, letters; F4 opens"},
    {"ComboBox", 0, 0, "typing, arrow keys; F4 opens"},
    {TRACKBAR_CLASSA, 0, 0, "as a slider: arrow keys, Page Up, Page Down, Home, End"},
    {WC_LISTVIEWA, 0, 0, "arrow keys, letters; Space ticks, F2 edits"},
};

const char* keysOf(HWND control) {
    const auto style = static_cast<DWORD>(GetWindowLongA(control, GWL_STYLE));
    const auto* const found = std::find_if(std::begin(kWays), std::end(kWays), [&](const Way& way) {
        return isClass(control, way.windowClass) && (style & way.mask) == way.style;
    });
    return found != std::end(kWays) ? found->keys : "?";
}

std::string nameOf(HWND dialog, HWND control) {
    std::string name = captionOf(dialog, control);
    if (name.empty()) {
        name = captionAbove(dialog, control);
    }
    return name.empty() ? "control " + std::to_string(GetDlgCtrlID(control)) : name;
}

bool isChoice(HWND control) {
    constexpr LRESULT kPush = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
    return isClass(control, "Button") && (SendMessageA(control, WM_GETDLGCODE, 0, 0) & kPush) == 0;
}

// The other check boxes and radio buttons of a group, which the arrow keys reach from its tab stop.
std::string groupOf(HWND dialog, HWND stop) {
    std::string names;
    if (!isChoice(stop)) {
        return names;
    }
    for (HWND next = GetNextDlgGroupItem(dialog, stop, FALSE); next != nullptr && next != stop;
         next = GetNextDlgGroupItem(dialog, next, FALSE)) {
        if (isChoice(next)) {
            names += (names.empty() ? "" : "; ") + nameOf(dialog, next);
        }
    }
    return names;
}

}  // namespace

void printKeyboardIntroduction() {
    std::printf(
        "# Without a mouse\n\n"
        "Written by `build/native/bin/tavriksettingsdoc --keyboard`, and compared by `./test`.\n\n"
        "Ctrl+Tab, Ctrl+Page Down and Ctrl+Shift+Tab, Ctrl+Page Up turn the pages; so do the arrow keys on the tabs. "
        "Tab and\n"
        "Shift+Tab go from stop to stop: the tabs, the page, OK, Avbryt. Enter is OK, Esc is Avbryt. Alt+Down and F4 "
        "open a\n"
        "list. Shift+F10 and the Menu key open the menu of a field. The tables are of an empty store; a control that "
        "is\n"
        "disabled or hidden then is not in them. The order and the place of the columns on the page \"Förbind\" have "
        "no key,\n"
        "as everywhere in the system's lists.\n");
}

void printKeyboardTable(const std::string& title, HWND dialog) {
    std::printf("\n## %s\n\n| Tab | control | arrow keys from there | worked by |\n|---|---|---|---|\n", title.c_str());
    std::vector<HWND> stops;
    std::map<std::string, int> named;
    for (HWND stop = GetNextDlgTabItem(dialog, nullptr, FALSE);
         stop != nullptr && std::find(stops.begin(), stops.end(), stop) == stops.end();
         stop = GetNextDlgTabItem(dialog, stop, FALSE)) {
        stops.push_back(stop);
        ++named[nameOf(dialog, stop)];
    }
    std::map<std::string, int> printed;
    for (std::size_t i = 0; i < stops.size(); ++i) {
        std::string name = nameOf(dialog, stops[i]);
        if (const int number = ++printed[name]; named[name] > 1) {
            const std::string above = captionAbove(dialog, stops[i]);
            name += above.empty() ? " (" + std::to_string(number) + ")" : ", " + above;
        }
        std::printf("| %zu | %s | %s | %s |\n", i + 1, name.c_str(), groupOf(dialog, stops[i]).c_str(),
                    keysOf(stops[i]));
    }
}
