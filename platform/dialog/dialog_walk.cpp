// Walks over the controls of a dialog: tab stops and groups. The controls of a nested page that is visible and
// enabled stand in the row where the page stands.
#include "platform/window/out_of_memory.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

namespace platform {

namespace {

bool isReachable(DWORD style) {
    return (style & (WS_VISIBLE | WS_DISABLED)) == WS_VISIBLE;
}

struct WalkedControl {
    HWND window;
    DWORD style;
};

// The controls in the order of the walk, and where in it the control stands from which the walk begins.
class ControlRow {
public:
    ControlRow(HWND dialog, HWND from) : from_(from), controls_(std::move(spareRow())) {
        controls_.clear();
        collect(dialog);
    }
    ~ControlRow() { spareRow() = std::move(controls_); }
    ControlRow(const ControlRow&) = delete;
    ControlRow& operator=(const ControlRow&) = delete;

    const std::vector<WalkedControl>& controls() const { return controls_; }
    // Index of the control itself, or of the one that contains it; nothing when it is outside the row.
    std::optional<std::size_t> at() const { return at_; }
    // A page is no control of its own: the walk goes on behind its controls, or before them.
    bool startsAtPage() const { return pageEnd_.has_value(); }
    std::size_t pageEnd() const { return pageEnd_.value_or(0); }

private:
    // The memory of the row before: a walk takes none once the dialog has been walked.
    static std::vector<WalkedControl>& spareRow() {
        static std::vector<WalkedControl> row;
        return row;
    }

    void collect(HWND parent) {
        for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
            const auto style = static_cast<DWORD>(GetWindowLongA(child, GWL_STYLE));
            const bool isPage = (GetWindowLongA(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0 && isReachable(style);
            if (isPage) {
                collectPage(child);
                continue;
            }
            if (from_ != nullptr && (child == from_ || IsChild(child, from_))) {
                at_ = controls_.size();
            }
            controls_.push_back({child, style});
        }
    }

    void collectPage(HWND page) {
        const std::size_t begin = controls_.size();
        collect(page);
        if (page == from_) {
            at_ = begin;
            pageEnd_ = controls_.size();
        }
    }

    HWND from_;
    std::vector<WalkedControl> controls_;
    std::optional<std::size_t> at_;
    std::optional<std::size_t> pageEnd_;
};

bool isTabStop(const WalkedControl& control) {
    return (control.style & WS_TABSTOP) != 0 && isReachable(control.style);
}

HWND nextTabStop(const ControlRow& row, HWND from) {
    const auto& controls = row.controls();
    std::size_t first = 0;
    if (row.at()) {
        first = row.startsAtPage() ? row.pageEnd() : *row.at() + 1;
    }
    for (std::size_t i = 0; i < controls.size(); ++i) {
        const WalkedControl& control = controls[(first + i) % controls.size()];
        if (isTabStop(control)) {
            return control.window;
        }
    }
    return from;
}

HWND previousTabStop(const ControlRow& row, HWND from) {
    const auto& controls = row.controls();
    const std::size_t end = row.at().value_or(controls.size());
    for (std::size_t i = 1; i <= controls.size(); ++i) {
        const WalkedControl& control = controls[(end + controls.size() - i) % controls.size()];
        if (isTabStop(control)) {
            return control.window;
        }
    }
    return from;
}

// A group runs from a control with WS_GROUP to the one before the next, round the end of the row.
HWND groupNeighbour(const ControlRow& row, std::size_t at, bool previous) {
    const auto& controls = row.controls();
    const std::size_t count = controls.size();
    const auto startsGroup = [&](std::size_t index) { return (controls[index % count].style & WS_GROUP) != 0; };
    std::size_t first = at + count;
    while (!startsGroup(first) && first > at + 1) {
        --first;
    }
    std::size_t end = first + 1;
    while (end < first + count && !startsGroup(end)) {
        ++end;
    }
    // From the control round the group, to the first that can be reached or back to itself.
    const std::size_t length = end - first;
    const std::size_t own = (at + count - first % count) % count;
    for (std::size_t step = 1; step < length; ++step) {
        const std::size_t place = first + (own + (previous ? length - step : step)) % length;
        if (isReachable(controls[place % count].style)) {
            return controls[place % count].window;
        }
    }
    return controls[at].window;
}

HWND nextOfGroup(HWND dialog, HWND from, bool previous) {
    const ControlRow row(dialog, from);
    if (from == nullptr) {
        const auto& controls = row.controls();
        const auto first = std::find_if(controls.begin(), controls.end(),
                                        [](const WalkedControl& candidate) { return isReachable(candidate.style); });
        return first != controls.end() ? first->window : nullptr;
    }
    if (!row.at() || row.startsAtPage()) {
        return IsChild(dialog, from) ? from : nullptr;
    }
    return groupNeighbour(row, *row.at(), previous);
}

}  // namespace

}  // namespace platform

HWND GetNextDlgTabItem(HWND dialog, HWND control, BOOL previous) {
    HWND from = control == dialog ? nullptr : control;
    if (from == nullptr && previous != FALSE) {
        return nullptr;
    }
    return platform::orOutOfMemory(
        [&] {
            const platform::ControlRow row(dialog, from);
            return previous != FALSE ? platform::previousTabStop(row, from) : platform::nextTabStop(row, from);
        },
        from);
}

HWND GetNextDlgGroupItem(HWND dialog, HWND control, BOOL previous) {
    HWND from = control == dialog ? nullptr : control;
    if (from == nullptr && previous != FALSE) {
        return nullptr;
    }
    return platform::orOutOfMemory([&] { return platform::nextOfGroup(dialog, from, previous != FALSE); }, from);
}
