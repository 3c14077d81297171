// The scripted user on a list without texts, which the dialog draws: a coloured square for each entry.
#include <gtest/gtest.h>

#include <sstream>

#include "automation/player.h"
#include "automation/scratch.h"
#include "host/store.h"
#include "tests/support/template_builder.h"

namespace {

constexpr int kList = 20;
constexpr int kEntries = 257;

INT_PTR CALLBACK DrawingDialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            for (int i = 0; i < kEntries; ++i) {
                SendDlgItemMessageA(dialog, kList, CB_ADDSTRING, 0, i);
            }
            return TRUE;
        case WM_DRAWITEM: {
            const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
            const RECT square = {item.rcItem.left, item.rcItem.top, item.rcItem.left + 10, item.rcItem.top + 10};
            HBRUSH brush = CreateSolidBrush(RGB(item.itemID % 256, item.itemID / 256, 7));
            FillRect(item.hDC, &square, brush);
            DeleteObject(brush);
            return TRUE;
        }
        case WM_COMMAND:
            if (wParam == IDOK || wParam == IDCANCEL) {
                EndDialog(dialog, LOWORD(wParam));
            }
            return TRUE;
        default:
            return FALSE;
    }
}

std::optional<int> OpenDialog(const automation::OpenArguments& /*arguments*/) {
    TemplateBuilder builder(TemplateBuilder::Form::Classic, WS_POPUP | WS_CAPTION, 150, 100, "Drawn");
    builder.add(kComboBox, kList, "", CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | WS_VSCROLL | WS_TABSTOP, 5, 5, 80, 80)
        .add(kButton, IDOK, "OK", BS_DEFPUSHBUTTON | WS_TABSTOP, 95, 5, 50, 14);
    return static_cast<int>(
        DialogBoxIndirectParamA(GetModuleHandleA(nullptr), builder.get(), nullptr, DrawingDialogProc, 0));
}

TEST(ScriptedUser, SelectsAndSeesEntriesThatTheOwnerDraws) {
    constexpr const char* kCommands =
        "open\n"
        "expect count 20 257\n"
        "expect selection 20 -1\n"
        "select 20 @200\n"
        "expect selection 20 200\n"
        "expect pixel 20 6 6 200 0 7\n"
        "press F4\n"
        "screenshot \"%SCRATCH%/open.png\"\n"
        "press DOWN\n"
        "expect pixel 20 6 6 201 0 7\n"
        "press END\n"
        "press ENTER\n"
        "expect selection 20 256\n"
        "expect pixel 20 6 6 0 1 7\n"
        "select 20 @0\n"
        "expect pixel 20 6 6 0 0 7\n"
        "select 20 @257\n"
        "select 20 \"Red\"\n"
        "expect items 20 \"Red\"\n"
        "expect text 20 \"Red\"\n"
        "ok\n"
        "result 1\n";
    CMdb records;
    host::ScenarioStore store(records);
    const automation::ScratchFolder scratch;
    std::ostringstream said;
    PlayScenario(automation::ParseScenario("drawn.scn", kCommands, automation::ShapeOfCommand), store, OpenDialog, said,
                 {scratch.Path(), false});
    EXPECT_EQ(said.str(),
              "drawn.scn:17: expected an entry @257, got 257 entries\n"
              "drawn.scn:18: expected texts in control 20, got entries that its owner draws\n"
              "drawn.scn:19: expected texts in control 20, got entries that its owner draws\n"
              "drawn.scn:20: expected texts in control 20, got entries that its owner draws\n"
              "9 passed, 4 failed\n");
}

}  // namespace
