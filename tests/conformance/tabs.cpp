// The tab control: items, selection by message, mouse and keys, refusal, focus, geometry, rows.
#include "tests/conformance/control_stage.h"

#include <initializer_list>
#include <string>

namespace {

class TabStage : public ControlStage {
public:
    TabStage(Trace& trace, std::initializer_list<const char*> captions, DWORD style = 0)
        : ControlStage(trace, WC_TABCONTROLA, "", style | WS_TABSTOP, {360, 200}) {
        for (const char* caption : captions) {
            insert(count(), caption);
        }
        parent().setHook([this](UINT message, WPARAM, LPARAM lParam, LRESULT& result) {
            result = TRUE;
            return message == WM_NOTIFY && refuses_ &&
                   reinterpret_cast<const NMHDR*>(lParam)->code == static_cast<UINT>(TCN_SELCHANGING);
        });
    }
    ~TabStage() override { parent().setHook(nullptr); }

    int count() const { return number(ask(TCM_GETITEMCOUNT)); }
    int insert(int index, const char* caption) {
        TCITEMA item{};
        item.mask = TCIF_TEXT;
        item.pszText = const_cast<LPSTR>(caption);
        return number(ask(TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item)));
    }
    RECT itemRect(int index) const {
        RECT rect{};
        ask(TCM_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    RECT displayArea() const {
        RECT rect = {0, 0, 360, 200};
        ask(TCM_ADJUSTRECT, FALSE, reinterpret_cast<LPARAM>(&rect));
        return rect;
    }
    void click(int index) {
        const RECT rect = itemRect(index);
        postClick(control(), (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
        state(("click on " + std::to_string(index)).c_str());
    }
    void state(const char* what) const override {
        drainQueue();
        trace_.line("%s: selection %d of %d%s", what, number(ask(TCM_GETCURSEL)), count(),
                    GetFocus() == control() ? " focus" : "");
        if ((GetWindowLongA(control(), GWL_STYLE) & TCS_MULTILINE) != 0) {
            rows();
        }
    }
    void setRefuses(bool refuses) { refuses_ = refuses; }

private:
    // The tabs with their left and right ends, row by row from the top, and how far the display area is below.
    void rows() const {
        const int rowCount = number(ask(TCM_GETROWCOUNT));
        const RECT first = itemRect(0);
        const int height = number(first.bottom - first.top);
        for (int row = 0; row < rowCount; ++row) {
            std::string line;
            for (int i = 0; i < count(); ++i) {
                const RECT rect = itemRect(i);
                if (rect.top == 2 + row * height) {
                    line +=
                        " " + std::to_string(i) + ":" + std::to_string(rect.left) + "-" + std::to_string(rect.right);
                }
            }
            trace_.line("  %s", line.c_str());
        }
        trace_.line("   display area %d below", number(displayArea().top) - rowCount * height);
    }

    bool refuses_ = false;
};

constexpr std::initializer_list<const char*> kCaptions = {"Projekt", "Allm\xE4nt", "F\xF6rbind", "Pro"};

void traceItems(Trace& trace) {
    trace.section("items");
    TabStage stage(trace, kCaptions);
    trace.line("insert at 1 gives %d", stage.insert(1, "Korsreferens"));
    trace.line("insert far gives %d", stage.insert(99, "Texter/F\xE4rger"));
    constexpr MessageStep kSelect[] = {{"select 2", TCM_SETCURSEL, 2},
                                       {"select 99", TCM_SETCURSEL, 99},
                                       {"select -1", TCM_SETCURSEL, WPARAM(-1)},
                                       {"select 3", TCM_SETCURSEL, 3}};
    stage.run(kSelect);
    trace.line("insert at the selected one gives %d", stage.insert(3, "Blanketter"));
    constexpr MessageStep kDelete[] = {{"delete the selected one", TCM_DELETEITEM, 4},
                                       {"delete 0", TCM_DELETEITEM, 0},
                                       {"no such", TCM_DELETEITEM, 7}};
    stage.run(kDelete);
    const RECT first = stage.itemRect(0);
    const RECT area = stage.displayArea();
    trace.line("first at %d,%d, joined %d, display area from %d, %d below the tabs, to %d,%d", number(first.left),
               number(first.top), stage.itemRect(1).left == first.right, number(area.left),
               number(area.top - first.bottom), number(area.right), number(area.bottom));
}

void traceInput(Trace& trace) {
    trace.section("mouse and keys");
    TabStage stage(trace, kCaptions);
    trace.line("code %#x", static_cast<unsigned>(stage.ask(WM_GETDLGCODE)));
    for (const int index : {1, 1, 2}) {
        stage.click(index);
    }
    stage.setRefuses(true);
    stage.click(3);
    stage.setRefuses(false);
    stage.step("click beside the tabs", [&] { postClick(stage.control(), 350, 10); });
    stage.step("click in the page area", [&] { postClick(stage.control(), 50, 120); });
    stage.step("right click", [&] { postRightClick(stage.control(), 10, 10); });
    stage.type({"{right}", "{end}", "{right}", "{left}", "{home}", "{left}", "{down}", "{space}"});
}

// Tabs that are all as narrow as a tab can be, whatever the font, and the rows that they stand in.
void traceRows(Trace& trace) {
    trace.section("rows");
    TabStage stage(trace, {"i"}, TCS_MULTILINE);
    for (const int count : {6, 7, 14}) {
        while (stage.count() < count) {
            stage.insert(stage.count(), "i");
        }
        stage.state("filled");
    }
    for (const WPARAM index : {13, 0, 7, 6}) {
        stage.run({"select", TCM_SETCURSEL, index});
    }
    stage.step("insert at 0", [&] { stage.insert(0, "i"); });
    for (const WPARAM index : {6, 13, 0}) {
        stage.run({"delete", TCM_DELETEITEM, index});
    }
    for (const int width : {250, 1000, 360}) {
        stage.step("resized",
                   [&] { SetWindowPos(stage.control(), nullptr, 0, 0, width, 200, SWP_NOMOVE | SWP_NOZORDER); });
    }
    for (const int index : {11, 2, 7, 7}) {
        stage.click(index);
    }
    stage.type({"{left}", "{left}", "{up}", "{down}", "{end}", "{right}", "{up}", "{home}"});
}

}  // namespace

void traceTabs(Trace& trace) {
    traceItems(trace);
    traceInput(trace);
    traceRows(trace);
}
