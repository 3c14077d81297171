// Labels of list views that are edited: how it begins, how it ends, and what is told.
#include "tests/conformance/list_scene.h"
#include "tests/conformance/typing.h"

#include <functional>

namespace {

constexpr DWORD kChecks = LVS_EX_CHECKBOXES | LVS_EX_HEADERDRAGDROP;

// Waits for the label edit that a click began; a plain wait for a message, because a timer brings it up.
void waitForEdit(ListScene& scene) {
    SetTimer(scene.other(), 99, 3000, nullptr);
    MSG message{};
    while (!scene.ask(LVM_GETEDITCONTROL) && GetMessageA(&message, nullptr, 0, 0) > 0 &&
           !(message.hwnd == scene.other() && message.message == WM_TIMER && message.wParam == 99)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    KillTimer(scene.other(), 99);
}

class EditScene : public ListScene {
public:
    explicit EditScene(Trace& trace) : ListScene(trace, {.exStyle = kChecks, .rows = 20}) { SetFocus(list()); }

    HWND edit() const { return reinterpret_cast<HWND>(ask(LVM_GETEDITCONTROL)); }
    EditScene& begin(int index) {
        const bool given = ask(LVM_EDITLABELA, static_cast<WPARAM>(index)) != 0;
        HWND control = edit();
        DWORD from = 0;
        DWORD to = 0;
        if (control) {
            SendMessageA(control, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
        }
        trace().line("edit of %d: %s, control %s, selected %u to %u", index, given ? "given" : "none",
                     !control                ? "none"
                     : GetFocus() == control ? "with the focus"
                                             : "without the focus",
                     static_cast<unsigned>(from), static_cast<unsigned>(to));
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
    trace.section("messages and keys");
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
        {"Enter on the same text", 4, "{enter}", [] {}},
        {"another begun", 4, "Fj\xE4rde", [&] { scene.begin(5); }},
        {"click elsewhere", 5, "Femte", [&] { scene.click(scene.labelOf(6)); }},
        {"wheel", 5, "Rullad", [&] { scene.ask(WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-120))); }},
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
    scene.onNotify([&](const NMHDR& header) {
        if (header.code == static_cast<UINT>(LVN_BEGINLABELEDITA)) {
            SendMessageA(scene.edit(), EM_LIMITTEXT, 7, 0);
        }
    });
    scene.begin(0).type("L\xE5ngtext{enter}").labels("limited");
    scene.begin(0);
    DestroyWindow(scene.list());
    trace.line("destroyed meanwhile, focus %s", GetFocus() == nullptr ? "nowhere" : "somewhere");
}

int CALLBACK compareBackwards(LPARAM a, LPARAM b, LPARAM) {
    return static_cast<int>(b - a);
}

// What becomes of an edit whose row moves or goes.
void traceEditOfMovingRow(Trace& trace) {
    constexpr struct {
        const char* name;
        UINT message;
        WPARAM wParam;
    } kMoves[] = {{"row above deleted", LVM_DELETEITEM, 2},
                  {"row deleted", LVM_DELETEITEM, 4},
                  {"rows sorted", LVM_SORTITEMS, 1}};
    for (const auto& move : kMoves) {
        trace.section(move.name);
        EditScene scene(trace);
        scene.hideChanges();
        scene.hide(static_cast<UINT>(LVN_DELETEITEM));
        scene.answer(static_cast<UINT>(LVN_ENDLABELEDITA), TRUE);
        scene.begin(4).type("Typed");
        scene.ask(move.message, move.wParam,
                  move.message == LVM_SORTITEMS ? reinterpret_cast<LPARAM>(&compareBackwards) : 0);
        scene.state("done");
        scene.type("{enter}").labels("Enter");
        trace.line("row 15 \"%s\"", scene.textOf(15).c_str());
    }
}

void traceEditByUser(Trace& trace) {
    trace.section("by the user");
    ListScene scene(trace, {.exStyle = kChecks, .rows = 5});
    const auto giveUp = [&] { typeKeys(reinterpret_cast<HWND>(scene.ask(LVM_GETEDITCONTROL)), "{esc}"); };
    scene.click(scene.labelOf(1)).click(scene.labelOf(1));
    scene.step("slow second click", [&] { waitForEdit(scene); });
    giveUp();
    scene.click(scene.boxOf(1)).state("the box is no label");
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
