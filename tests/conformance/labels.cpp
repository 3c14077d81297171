// Labels of list views that are edited: how it begins, how it ends, and what is told.
#include "tests/conformance/list_scene.h"
#include "tests/conformance/typing.h"

#include <functional>

namespace {

class EditScene : public ListScene {
public:
    explicit EditScene(Trace& trace) : ListScene(trace, 20) { SetFocus(list()); }

    HWND edit() const { return reinterpret_cast<HWND>(ask(LVM_GETEDITCONTROL)); }
    EditScene& begin(int index) {
        const bool given = ask(LVM_EDITLABELA, static_cast<WPARAM>(index)) != 0;
        trace().line("edit of %d: given %d, %s%s", index, given, edit() ? describeEdit(edit()).c_str() : "none",
                     edit() && GetFocus() == edit() ? " focus" : "");
        return *this;
    }
    EditScene& type(const char* keys) {
        typeKeys(edit(), keys);
        drain();
        return *this;
    }
    void labels(const char* after) {
        state(after);
        std::string all;
        for (int row = 0; row < 7; ++row) {
            all += " \"" + textOf(row) + "\"";
        }
        trace().line("labels%s", all.c_str());
    }
};

void traceLabelEdit(Trace& trace) {
    trace.section("edited");
    EditScene scene(trace);
    SetFocus(scene.other());
    scene.begin(1);
    trace.line("code %#x", static_cast<unsigned>(SendMessageA(scene.edit(), WM_GETDLGCODE, 0, 0)));
    scene.type("Ny{enter}").labels("not stored without an answer");
    scene.answer(static_cast<UINT>(LVN_ENDLABELEDITA), TRUE);
    const struct {
        const char* what;
        int row;
        const char* keys;
        std::function<void()> then;
    } kEdits[] = {
        {"Enter", 2, "Ny{enter}", [] {}},
        {"Esc", 3, "Annan{esc}", [] {}},
        {"focus lost", 3, "Tredje", [&] { SetFocus(scene.other()); }},
        {"another begun", 4, "Fj\xE4rde", [&] { scene.begin(5); }},
        {"click elsewhere", 5, "Femte", [&] { scene.click(scene.labelOf(6)); }},
        {"out of sight, and back", 19, "Sist", [&] { scene.ask(LVM_ENSUREVISIBLE, 0, FALSE); }},
    };
    for (const auto& edit : kEdits) {
        SetFocus(scene.list());
        scene.begin(edit.row).type(edit.keys);
        edit.then();
        scene.labels(edit.what);
    }
    scene.answer(static_cast<UINT>(LVN_BEGINLABELEDITA), TRUE);
    scene.begin(1);
    scene.clearAnswer();
    scene.begin(40);
}

int CALLBACK compareBackwards(LPARAM a, LPARAM b, LPARAM) {
    return static_cast<int>(b - a);
}

// An edit whose row moves has come to its end before.
void traceEditOfMovingRow(Trace& trace) {
    trace.line("-- rows sorted");
    EditScene scene(trace);
    scene.hideChanges();
    scene.answer(static_cast<UINT>(LVN_ENDLABELEDITA), TRUE);
    scene.begin(4).type("Typed");
    scene.ask(LVM_SORTITEMS, 1, reinterpret_cast<LPARAM>(&compareBackwards));
    scene.state("done");
    scene.type("{enter}").labels("Enter");
    trace.line("row 15 \"%s\"", scene.textOf(15).c_str());
}

void traceEditByUser(Trace& trace) {
    trace.line("-- by the user");
    ListScene scene(trace, 5);
    scene.doubleClick(scene.labelOf(1)).state("double click");
    scene.onNotify([&](const NMHDR& header) {
        if (header.code == static_cast<UINT>(NM_DBLCLK)) {
            scene.ask(LVM_EDITLABELA, 1);
        }
    });
    scene.doubleClick(scene.labelOf(1)).state("edit begun in the double click");
}

}  // namespace

void traceLabels(Trace& trace) {
    traceLabelEdit(trace);
    traceEditOfMovingRow(trace);
    traceEditByUser(trace);
}
