// What a user and a program do with a combo box.
#include "tests/conformance/combo_stage.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

namespace {

constexpr LPARAM kOutside = MAKELPARAM(-50, -50);
constexpr LPARAM kBeside = MAKELPARAM(300, 20);

struct Action {
    const char* name;
    void (*act)(const ComboStage& stage, int value);
};

constexpr Action kActions[] = {
    {"<focus", [](const ComboStage& stage, int) { SetFocus(stage.control()); }},
    {"<away", [](const ComboStage& stage, int) { SetFocus(stage.other()); }},
    {"<kill focus", [](const ComboStage& stage, int) { SendMessageA(stage.keyboardTarget(), WM_KILLFOCUS, 0, 0); }},
    {"<enable", [](const ComboStage& stage, int value) { EnableWindow(stage.control(), value); }},
    {"<open", [](const ComboStage& stage, int) { stage.ask(CB_SHOWDROPDOWN, TRUE); }},
    {"<close", [](const ComboStage& stage, int) { stage.ask(CB_SHOWDROPDOWN, FALSE); }},
    {"<select", [](const ComboStage& stage, int value) { stage.ask(CB_SETCURSEL, static_cast<WPARAM>(value)); }},
    {"<redraw", [](const ComboStage& stage, int value) { stage.ask(WM_SETREDRAW, value != 0); }},
    {"<button down", [](const ComboStage& stage, int) { stage.mouseOnButton(WM_LBUTTONDOWN, MK_LBUTTON); }},
    {"<button up", [](const ComboStage& stage, int) { stage.mouseOnButton(WM_LBUTTONUP, 0); }},
    {"<over", [](const ComboStage& stage, int value) { stage.mouseOnList(WM_MOUSEMOVE, 0, value); }},
    {"<drag to", [](const ComboStage& stage, int value) { stage.mouseOnList(WM_MOUSEMOVE, MK_LBUTTON, value); }},
    {"<drag into",
     [](const ComboStage& stage, int value) {
         POINT entry = {20, 15};
         MapWindowPoints(stage.list(), stage.control(), &entry, 1);
         stage.ask(WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(entry.x, entry.y));
         stage.mouseOnList(WM_MOUSEMOVE, MK_LBUTTON, value);
     }},
    {"<down on", [](const ComboStage& stage, int value) { stage.mouseOnList(WM_LBUTTONDOWN, MK_LBUTTON, value); }},
    {"<up on", [](const ComboStage& stage, int value) { stage.mouseOnList(WM_LBUTTONUP, 0, value); }},
    {"<drag outside",
     [](const ComboStage& stage, int) { SendMessageA(stage.list(), WM_MOUSEMOVE, MK_LBUTTON, kBeside); }},
    {"<down outside",
     [](const ComboStage& stage, int) { SendMessageA(stage.list(), WM_LBUTTONDOWN, MK_LBUTTON, kOutside); }},
    {"<up outside", [](const ComboStage& stage, int) { SendMessageA(stage.list(), WM_LBUTTONUP, 0, kBeside); }},
    {"<wheel",
     [](const ComboStage& stage, int value) {
         SendMessageA(stage.keyboardTarget(), WM_MOUSEWHEEL, MAKEWPARAM(0, value * WHEEL_DELTA), 0);
     }},
};

}  // namespace

void ComboStage::state(const char* after) const {
    char text[64];
    GetWindowTextA(control(), text, sizeof text);
    const LRESULT selection = info_.hwndItem ? SendMessageA(info_.hwndItem, EM_GETSEL, 0, 0) : 0;
    trace_.line("%s -> \"%s\" %d..%d current %d, list %d%s%s%s", after, text, LOWORD(selection), HIWORD(selection),
                number(ask(CB_GETCURSEL)), number(SendMessageA(list(), LB_GETCURSEL, 0, 0)),
                ask(CB_GETDROPPEDSTATE) ? " open" : "", GetFocus() == keyboardTarget() ? " focus" : "",
                GetCapture() == list() ? " captured" : "");
}

void ComboStage::perform(const char* step) {
    const auto* action = std::find_if(std::begin(kActions), std::end(kActions), [=](const Action& row) {
        return std::strncmp(row.name, step, std::strlen(row.name)) == 0;
    });
    if (action == std::end(kActions)) {
        typeKeys(keyboardTarget(), step);
    } else {
        action->act(*this, std::atoi(step + std::strcspn(step, "-0123456789")));
    }
}

void ComboStage::mouseOnList(UINT message, WPARAM keys, int entry) const {
    RECT rect{};
    SendMessageA(list(), LB_GETITEMRECT, static_cast<WPARAM>(entry), reinterpret_cast<LPARAM>(&rect));
    SendMessageA(list(), message, keys, MAKELPARAM(20, (rect.top + rect.bottom) / 2));
}

void ComboStage::mouseOnButton(UINT message, WPARAM keys) const {
    ask(message, keys,
        MAKELPARAM((info_.rcButton.left + info_.rcButton.right) / 2, (info_.rcButton.top + info_.rcButton.bottom) / 2));
}
