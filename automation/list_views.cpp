// A row that is out of sight is brought into view with the wheel first; headers are clicked and dragged by the mouse.

#include "automation/list_views.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "automation/finder.h"

namespace automation {
namespace {

constexpr int kWheelNotch = 120;
constexpr UINT kCheckedImage = 2;

template <typename Structure>
LPARAM Pointer(Structure& structure) {
    return reinterpret_cast<LPARAM>(&structure);
}

HWND ListOf(const Stage& stage, const Command& command) {
    const Argument& id = command.arguments[0];
    HWND list = ControlOf(stage, id);
    if (ClassOf(list) != WC_LISTVIEWA) {
        FailExpectation("control " + id.text + " to be a list view", "class " + ClassOf(list));
    }
    return list;
}

// A list that a user's mouse can reach.
HWND UsableListOf(const Stage& stage, const Command& command) {
    HWND list = ListOf(stage, command);
    if (!CanTakeInput(list)) {
        FailExpectation("control " + command.arguments[0].text + " to be visible and enabled", "it hidden or disabled");
    }
    return list;
}

// The argument as an index below the count.
int IndexBelow(const Argument& argument, LRESULT count, const std::string& what) {
    const int index = argument.Number();
    if (index < 0 || index >= count) {
        FailExpectation("a " + what + " " + argument.text, std::to_string(count) + " of them");
    }
    return index;
}

int RowOf(HWND list, const Command& command) {
    return IndexBelow(command.arguments[1], SendMessageA(list, LVM_GETITEMCOUNT, 0, 0), "row");
}

HWND HeaderOf(HWND list) {
    return reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
}

LRESULT ColumnCount(HWND list) {
    return SendMessageA(HeaderOf(list), HDM_GETITEMCOUNT, 0, 0);
}

std::vector<int> ColumnOrder(HWND list) {
    std::vector<int> order(static_cast<size_t>(std::max<LRESULT>(ColumnCount(list), 0)));
    SendMessageA(list, LVM_GETCOLUMNORDERARRAY, order.size(), reinterpret_cast<LPARAM>(order.data()));
    return order;
}

bool IsInView(HWND list, int row) {
    const LRESULT top = SendMessageA(list, LVM_GETTOPINDEX, 0, 0);
    return row >= top && row < top + SendMessageA(list, LVM_GETCOUNTPERPAGE, 0, 0);
}

// Turns the wheel notch by notch until the row is in view, and goes on with `then`, which queues what is next.
void BringIntoView(InputQueue& input, HWND list, int row, const std::function<void()>& then) {
    if (IsInView(list, row)) {
        then();
        return;
    }
    const LRESULT top = SendMessageA(list, LVM_GETTOPINDEX, 0, 0);
    const int delta = row < top ? kWheelNotch : -kWheelNotch;
    POINT middle = MiddleOf(list);
    ClientToScreen(list, &middle);
    PostMessageA(list, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), MAKELPARAM(middle.x, middle.y));
    input.Add([&input, list, row, top, then] {
        if (SendMessageA(list, LVM_GETTOPINDEX, 0, 0) == top) {
            FailExpectation("row " + std::to_string(row) + " to come into view", "a list that does not scroll");
        }
        BringIntoView(input, list, row, then);
    });
}

// Where the row's check box, its label or one of its columns is.
RECT PlaceInRow(HWND list, int row, const Argument& part) {
    RECT label = {LVIR_LABEL, 0, 0, 0};
    SendMessageA(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), Pointer(label));
    if (part.text == "label") {
        return label;
    }
    RECT place{};
    if (part.text == "check") {
        // Between the first column's left end, which moves with its place in the order, and the label.
        SendMessageA(HeaderOf(list), HDM_GETITEMRECT, 0, Pointer(place));
        MapWindowPoints(HeaderOf(list), list, reinterpret_cast<POINT*>(&place), 2);
        return {place.left, label.top, label.left, label.bottom};
    }
    const int column = IndexBelow(part, ColumnCount(list), "column");
    if (column == 0) {
        return label;
    }
    place = {LVIR_BOUNDS, column, 0, 0};
    SendMessageA(list, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row), Pointer(place));
    return place;
}

// Brings a row into view and does with the middle of one of its parts what is wanted; of a wide part what can be seen
// counts.
void ActOnRow(Stage& stage, const Command& command, const Argument& part,
              const std::function<void(InputQueue& input, HWND list, POINT point)>& act) {
    HWND list = UsableListOf(stage, command);
    const int row = RowOf(list, command);
    InputQueue& input = stage.input;
    input.Add([&input, list, row, part, act] {
        BringIntoView(input, list, row, [&input, list, row, part, act] {
            RECT place = PlaceInRow(list, row, part);
            RECT client{};
            GetClientRect(list, &client);
            if (!IntersectRect(&place, &place, &client)) {
                FailExpectation("the " + part.text + " of row " + std::to_string(row) + " to be in view", "it beside");
            }
            act(input, list, {(place.left + place.right) / 2, (place.top + place.bottom) / 2});
        });
    });
}

RECT HeadRect(HWND header, int column) {
    RECT rect{};
    SendMessageA(header, HDM_GETITEMRECT, static_cast<WPARAM>(column), Pointer(rect));
    return rect;
}

// A point of a column's head, in parts of its width from the left.
POINT PointOfHead(HWND header, int column, int part, int parts) {
    const RECT rect = HeadRect(header, column);
    return {rect.left + (rect.right - rect.left) * part / parts, (rect.top + rect.bottom) / 2};
}

void ExpectRowCheck(Stage& stage, const Command& command, bool expected) {
    HWND list = ListOf(stage, command);
    const auto row = static_cast<WPARAM>(RowOf(list, command));
    const LRESULT state = SendMessageA(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK);
    const bool got = state == static_cast<LRESULT>(INDEXTOSTATEIMAGEMASK(kCheckedImage));
    if (got != expected) {
        FailExpectation("row " + command.arguments[1].text + " " + (expected ? "checked" : "unchecked"),
                        got ? "checked" : "unchecked");
    }
}

std::string CellText(HWND list, int row, int column) {
    std::array<char, 1024> text{};
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = text.data();
    item.cchTextMax = static_cast<int>(text.size());
    SendMessageA(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(row), Pointer(item));
    return text.data();
}

}  // namespace

void ClickRow(Stage& stage, const Command& command) {
    ActOnRow(stage, command, command.arguments[2],
             [](InputQueue& input, HWND list, POINT point) { input.Click(list, point); });
}

void DoubleClickRow(Stage& stage, const Command& command) {
    ActOnRow(stage, command, command.arguments[2],
             [](InputQueue& input, HWND list, POINT point) { input.DoubleClick(list, point); });
}

void RenameRow(Stage& stage, const Command& command) {
    const std::string text = ExpandText(stage, command.arguments[2].text);
    const Argument label{Argument::Kind::Word, "", "label"};
    ActOnRow(stage, command, label, [text](InputQueue& input, HWND list, POINT point) {
        input.DoubleClick(list, point);
        input.Add([list] {
            if (SendMessageA(list, LVM_GETEDITCONTROL, 0, 0) == 0) {
                FailExpectation("a double click to begin the edit of a label", "none");
            }
        });
        if (text.empty()) {
            input.Press(*ParseKey("DELETE"));
        } else {
            input.Type(text);
        }
        input.Press(*ParseKey("ENTER"));
    });
}

void ClickHeader(Stage& stage, const Command& command) {
    HWND list = UsableListOf(stage, command);
    const int column = IndexBelow(command.arguments[1], ColumnCount(list), "column");
    HWND header = HeaderOf(list);
    stage.input.Click(header, PointOfHead(header, column, 1, 2));
}

// The half of the target on which the button is released decides on which side of it the column lands.
void DragHeader(Stage& stage, const Command& command) {
    HWND list = UsableListOf(stage, command);
    const std::vector<int> order = ColumnOrder(list);
    const auto count = static_cast<LRESULT>(order.size());
    const int column = IndexBelow(command.arguments[1], count, "column");
    const int place = IndexBelow(command.arguments[2], count, "place");
    const auto own = std::find(order.begin(), order.end(), column) - order.begin();
    HWND header = HeaderOf(list);
    const POINT from = PointOfHead(header, column, 1, 2);
    const POINT to = PointOfHead(header, order[static_cast<size_t>(place)], place > own ? 7 : 1, 8);
    stage.input.Drag(header, from, place == own ? from : to);
}

void ExpectRows(Stage& stage, const Command& command) {
    const LRESULT got = SendMessageA(ListOf(stage, command), LVM_GETITEMCOUNT, 0, 0);
    if (got != command.arguments[1].Number()) {
        FailExpectation("rows of " + command.arguments[0].text + " " + command.arguments[1].text, std::to_string(got));
    }
}

void ExpectCell(Stage& stage, const Command& command) {
    HWND list = ListOf(stage, command);
    const int row = RowOf(list, command);
    const int column = IndexBelow(command.arguments[2], ColumnCount(list), "column");
    const std::string got = CellText(list, row, column);
    const std::string expected = ExpandLike(stage, command.arguments[3].text, got);
    if (got != expected) {
        FailExpectation("cell " + command.arguments[1].text + " " + command.arguments[2].text + " " + Quote(expected),
                        Quote(got));
    }
}

void ExpectRowChecked(Stage& stage, const Command& command) {
    ExpectRowCheck(stage, command, true);
}

void ExpectRowUnchecked(Stage& stage, const Command& command) {
    ExpectRowCheck(stage, command, false);
}

void ExpectColumns(Stage& stage, const Command& command) {
    std::string expected;
    for (size_t i = 1; i < command.arguments.size(); ++i) {
        expected += " " + command.arguments[i].text;
    }
    std::string got;
    for (const int column : ColumnOrder(ListOf(stage, command))) {
        got += " " + std::to_string(column);
    }
    if (got != expected) {
        FailExpectation("columns of " + command.arguments[0].text + expected, got.empty() ? "none" : got.substr(1));
    }
}

}  // namespace automation
