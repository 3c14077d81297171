// The list view's commands on a dialog with a list of 200 rows that behaves as a page's does: a double click on a label
// begins its edit, a click on a column's head turns the rows round, a box is ticked alone. Beside it is a track bar
// with more positions than pixels.

#include <gtest/gtest.h>
#include <windows.h>

#include <commctrl.h>

#include <sstream>

#include "automation/player.h"
#include "host/store.h"
#include "tests/support/template_builder.h"

namespace {

constexpr int kRows = 200;
constexpr const char* kScenario = R"(open
expect rows 20 200
click-row 20 3 check
click-row 20 150 check
expect row-checked 20 150
expect row-unchecked 20 3
double-click-row 20 150 check
expect row-checked 20 150
rename-row 20 5 "Pump åäö"
expect cell 20 5 0 "Pump åäö"
expect focus 20
click-header 20 1
expect cell 20 194 0 "Pump åäö"
drag-header 20 1 0
expect columns 20 1 0
rename-row 20 100 "mitt"
expect cell 20 100 0 "mitt"
drag-header 20 1 1
drag-header 20 0 0
expect columns 20 0 1
drag 21 101
expect position 21 101
expect cell 20 0 1 "first"
expect rows 20 1
expect row-checked 20 150
click-row 20 200 label
click-row 20 1 2
rename-row 2 0 "x"
drag 21 301
drag 20 5
close
)";

LRESULT Send(HWND list, UINT message, int row, void* structure) {
    return SendMessageA(list, message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(structure));
}

void Fill(HWND list) {
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP);
    for (int column = 0; column < 2; ++column) {
        LVCOLUMNA inserted{};
        inserted.mask = LVCF_WIDTH;
        inserted.cx = 70;
        Send(list, LVM_INSERTCOLUMNA, column, &inserted);
    }
    for (int row = 0; row < kRows; ++row) {
        std::string text = "name " + std::to_string(row);
        LVITEMA item{};
        item.mask = LVIF_TEXT | LVIF_PARAM;
        item.iItem = row;
        item.pszText = text.data();
        item.lParam = row;
        Send(list, LVM_INSERTITEMA, 0, &item);
        item.iSubItem = 1;
        Send(list, LVM_SETITEMTEXTA, row, &item);
    }
}

LRESULT OnNotify(NMHDR& header) {
    const auto& click = reinterpret_cast<const NMITEMACTIVATE&>(header);
    HWND list = header.hwndFrom;
    if (header.code == NM_CLICK) {
        LVITEMA unticked{};
        unticked.state = INDEXTOSTATEIMAGEMASK(1);
        unticked.stateMask = LVIS_STATEIMAGEMASK;
        Send(list, LVM_SETITEMSTATE, -1, &unticked);
    } else if (header.code == NM_DBLCLK) {
        RECT label = {LVIR_LABEL, 0, 0, 0};
        Send(list, LVM_GETITEMRECT, click.iItem, &label);
        if (click.ptAction.x >= label.left) {
            SendMessageA(list, LVM_EDITLABELA, static_cast<WPARAM>(click.iItem), 0);
        }
    } else if (header.code == LVN_COLUMNCLICK) {
        const PFNLVCOMPARE turnRound = [](LPARAM a, LPARAM b, LPARAM) -> int { return static_cast<int>(b - a); };
        SendMessageA(list, LVM_SORTITEMS, 0, reinterpret_cast<LPARAM>(turnRound));
    }
    return header.code == LVN_ENDLABELEDITA;
}

INT_PTR CALLBACK DialogProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Fill(GetDlgItem(dialog, 20));
        SendDlgItemMessageA(dialog, 21, TBM_SETRANGE, TRUE, MAKELPARAM(0, 300));
    } else if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) {
        EndDialog(dialog, IDCANCEL);
    } else if (message == WM_NOTIFY && wParam == 20) {
        SetWindowLongPtrA(dialog, DWLP_MSGRESULT, OnNotify(*reinterpret_cast<NMHDR*>(lParam)));
        return TRUE;
    }
    return FALSE;
}

std::optional<int> RunListDialog(const automation::OpenArguments&) {
    TemplateBuilder dialog(TemplateBuilder::Form::Classic, WS_POPUP | WS_CAPTION, 160, 120, "Lista");
    dialog.add(WC_LISTVIEWA, 20, "", LVS_REPORT | LVS_SINGLESEL | LVS_EDITLABELS | WS_TABSTOP, 5, 5, 110, 90);
    dialog.add(TRACKBAR_CLASSA, 21, "", TBS_BOTH | TBS_NOTICKS | WS_TABSTOP, 60, 98, 60, 15);
    dialog.add(kButton, IDCANCEL, "Avbryt", WS_TABSTOP, 5, 100);
    return static_cast<int>(DialogBoxIndirectParamA(GetModuleHandleA(nullptr), dialog.get(), nullptr, DialogProc, 0));
}

TEST(ListViewCommands, ActOnRowsAndColumnsAndSayWhatIsNotThere) {
    CMdb records;
    host::ScenarioStore store(records);
    std::ostringstream said;
    const automation::Scenario scenario = automation::ParseScenario("a.scn", kScenario, automation::ShapeOfCommand);
    ASSERT_TRUE(scenario.errors.empty()) << scenario.errors.front();
    PlayScenario(scenario, store, RunListDialog, said, {".", false});
    EXPECT_EQ(said.str(),
              "a.scn:23: expected cell 0 1 \"first\", got \"name 199\"\n"
              "a.scn:24: expected rows of 20 1, got 200\n"
              "a.scn:25: expected row 150 checked, got unchecked\n"
              "a.scn:26: expected a row 200, got 200 of them\n"
              "a.scn:27: expected a column 2, got 2 of them\n"
              "a.scn:28: expected control 2 to be a list view, got class Button\n"
              "a.scn:29: expected a position from 0 to 300, got 301\n"
              "a.scn:30: expected control 20 to be a track bar, got class SysListView32\n"
              "11 passed, 8 failed\n");
}

}  // namespace
