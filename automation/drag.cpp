// How a user drags the thumb of a track bar: takes it in its middle, moves to about where it is to go, and then pixel
// by pixel until the bar says so. Where a pixel is more than one position, the arrow keys do the rest.

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>

#include "automation/actions.h"
#include "automation/finder.h"

namespace automation {
namespace {

constexpr int kMoves = 4;        // to about where the thumb is to go
constexpr int kPresses = 3;      // at most, to take hold of the thumb
constexpr int kMostPixels = 20;  // by which that place may be wrong
constexpr int kMostKeys = 10;    // to a position between two pixels

struct ThumbDrag {
    InputQueue& input;
    HWND bar;
    int target;

    int Ask(UINT message) const { return static_cast<int>(SendMessageA(bar, message, 0, 0)); }

    RECT Part(UINT message) const {
        RECT part{};
        SendMessageA(bar, message, 0, reinterpret_cast<LPARAM>(&part));
        return part;
    }

    bool IsVertical() const { return (GetWindowLongA(bar, GWL_STYLE) & TBS_VERT) != 0; }

    POINT ThumbMiddle() const {
        const RECT thumb = Part(TBM_GETTHUMBRECT);
        return {(thumb.left + thumb.right) / 2, (thumb.top + thumb.bottom) / 2};
    }

    // Where the thumb has its middle at the target position.
    POINT Goal() const {
        const RECT thumb = Part(TBM_GETTHUMBRECT);
        const RECT channel = Part(TBM_GETCHANNELRECT);
        const std::int64_t least = Ask(TBM_GETRANGEMIN);
        const std::int64_t range = std::max<std::int64_t>(Ask(TBM_GETRANGEMAX) - least, 1);
        const auto along = [&](LONG channelStart, LONG channelEnd, LONG thumbWidth) {
            const std::int64_t way = channelEnd - channelStart - thumbWidth;
            return channelStart + thumbWidth / 2 + static_cast<LONG>(way * (target - least) / range);
        };
        POINT goal = ThumbMiddle();
        if (IsVertical()) {
            goal.y = along(channel.top, channel.bottom, thumb.bottom - thumb.top);
        } else {
            goal.x = along(channel.left, channel.right, thumb.right - thumb.left);
        }
        return goal;
    }
};

POINT Between(POINT from, POINT to, int part, int parts) {
    return {from.x + (to.x - from.x) * part / parts, from.y + (to.y - from.y) * part / parts};
}

void PressToTarget(const ThumbDrag& drag, int presses) {
    const int position = drag.Ask(TBM_GETPOS);
    if (position == drag.target) {
        return;
    }
    if (std::abs(drag.target - position) > presses || !HasFocus(drag.bar)) {
        FailExpectation(
            "control " + std::to_string(GetDlgCtrlID(drag.bar)) + " to be dragged to " + std::to_string(drag.target),
            "it at " + std::to_string(position));
    }
    drag.input.Press(*ParseKey(position < drag.target ? "RIGHT" : "LEFT"));
    drag.input.Add([drag, presses] { PressToTarget(drag, presses - 1); });
}

void Settle(const ThumbDrag& drag, POINT mouse, int pixels) {
    const int position = drag.Ask(TBM_GETPOS);
    const int step = position < drag.target ? 1 : -1;
    const bool turnsBack = pixels != 0 && (pixels < 0) != (step < 0);
    if (position == drag.target || turnsBack || std::abs(pixels) == kMostPixels) {
        drag.input.ReleaseButton(drag.bar, mouse);
        drag.input.Add([drag] { PressToTarget(drag, kMostKeys); });
        return;
    }
    (drag.IsVertical() ? mouse.y : mouse.x) += step;
    drag.input.MoveHeld(drag.bar, mouse);
    drag.input.Add([drag, mouse, pixels, step] { Settle(drag, mouse, pixels + step); });
}

void TakeThumb(const ThumbDrag& drag, int presses) {
    const POINT start = drag.ThumbMiddle();
    drag.input.PressButton(drag.bar, start);
    drag.input.Add([drag, start, presses, before = drag.Ask(TBM_GETPOS)] {
        // A field that lost the focus may have moved the thumb away under the mouse.
        if (drag.Ask(TBM_GETPOS) != before && presses > 1) {
            drag.input.ReleaseButton(drag.bar, start);
            drag.input.Add([drag, presses] { TakeThumb(drag, presses - 1); });
            return;
        }
        const POINT goal = drag.Goal();
        for (int i = 1; i <= kMoves; ++i) {
            drag.input.MoveHeld(drag.bar, Between(start, goal, i, kMoves));
        }
        drag.input.Add([drag, goal] { Settle(drag, goal, 0); });
    });
}

}  // namespace

void Drag(Stage& stage, const Command& command) {
    TrackBarOf(stage, command.arguments[0]);
    const ThumbDrag drag{stage.input, UsableControl(stage, command.arguments[0]), command.arguments[1].Number()};
    const int least = drag.Ask(TBM_GETRANGEMIN);
    const int most = drag.Ask(TBM_GETRANGEMAX);
    if (drag.target < least || drag.target > most) {
        FailExpectation("a position from " + std::to_string(least) + " to " + std::to_string(most),
                        command.arguments[1].text);
    }
    TakeThumb(drag, kPresses);
}

}  // namespace automation
