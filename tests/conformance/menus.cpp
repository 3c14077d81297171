// Popup menus: what their owner is told, keys and mouse inside them; messages that ask for one; the edit's own menu.
// While a menu is open the user's next step comes when its owner is told that nothing is waiting.
#include "tests/conformance/control_stage.h"

#include <deque>
#include <map>

namespace {

constexpr UINT kOne = 10;
constexpr UINT kTwo = 11;
constexpr UINT kThree = 12;
constexpr UINT kFour = 13;
constexpr UINT kRing = 14;
constexpr UINT kBeside = 0;  // A place outside the menu, instead of an item.

// Plays a user of one menu at a time and writes down what the window that the menu is for is told of it.
class MenuUser {
public:
    using Steps = std::deque<std::function<void()>>;

    explicit MenuUser(Trace& trace) : trace_(trace) {}

    // Sees every message to the owner.
    void see(HWND owner, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
            case WM_ENTERMENULOOP:
            case WM_INITMENU:
            case WM_INITMENUPOPUP:
            case WM_UNINITMENUPOPUP:
            case WM_EXITMENULOOP:
                trace_.line("%s", messageName(message));
                break;
            case WM_MENUSELECT:
                trace_.line("WM_MENUSELECT %d flags %x%s", LOWORD(wParam), static_cast<unsigned>(HIWORD(wParam)),
                            lParam ? "" : " closed");
                selected_ = lParam ? LOWORD(wParam) : kBeside;
                break;
            case WM_ENTERIDLE:
                if (wParam == MSGF_MENU) {
                    goOn(owner);
                }
                break;
            default:
                break;
        }
    }
    // What is done in the next menu; at the end Esc is pressed.
    void plan(Steps steps) { steps_ = std::move(steps); }
    // The number of steps that were left, because the menu had closed.
    std::size_t left() { return std::exchange(steps_, {}).size(); }
    UINT selected() const { return selected_; }

private:
    void goOn(HWND owner) {
        if (steps_.empty()) {
            trace_.line("-- Esc");
            PostMessageA(owner, WM_KEYDOWN, VK_ESCAPE, 1);
            return;
        }
        const auto step = std::move(steps_.front());
        steps_.pop_front();
        step();
    }

    Trace& trace_;
    Steps steps_;
    UINT selected_ = kBeside;
};

class MenuStage {
public:
    explicit MenuStage(Trace& trace) : trace_(trace), parent_(trace, LoggingParent::Kind::Window), user_(trace) {
        parent_.setHook([this](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
            user_.see(parent_, message, wParam, lParam);
            if (message == WM_LBUTTONDOWN) {
                trace_.line("WM_LBUTTONDOWN for the window beside");
            }
            return false;
        });
    }
    ~MenuStage() { parent_.setHook(nullptr); }

    HWND window() const { return parent_.handle(); }
    LoggingParent& parent() { return parent_; }

    void track(const char* what, UINT flags, MenuUser::Steps steps) {
        trace_.line("%s", what);
        const HMENU menu = CreatePopupMenu();
        AppendMenuA(menu, MF_STRING, kOne, "&One");
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING | MF_GRAYED, kTwo, "&Two");
        AppendMenuA(menu, MF_STRING, kThree, "T&hree");
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, kFour, "Four && m&ore");
        AppendMenuA(menu, MF_STRING, kRing, "&\xC5");
        user_.plan(std::move(steps));
        const BOOL result = TrackPopupMenu(menu, flags, 600, 100, 0, parent_, nullptr);
        DestroyMenu(menu);
        drainQueue();
        trace_.line("= %d, steps left %d", result, static_cast<int>(user_.left()));
    }
    std::function<void()> key(UINT virtualKey) const {
        return [this, virtualKey] {
            trace_.line("-- key %x", virtualKey);
            PostMessageA(parent_, WM_KEYDOWN, virtualKey, 1);
        };
    }
    std::function<void()> character(char typed) const {
        return [this, typed] { PostMessageA(parent_, WM_CHAR, static_cast<BYTE>(typed), 1); };
    }
    // At an item that findRows has found.
    std::function<void()> mouse(const char* what, UINT message, UINT item) {
        return [this, what, message, item] {
            trace_.line("-- %s", what);
            const LPARAM at = item == kBeside ? MAKELPARAM(550, 300) : MAKELPARAM(620, rows_[item]);
            PostMessageA(parent_, message, message == WM_LBUTTONDOWN ? MK_LBUTTON : 0, at);
        };
    }
    // Moves the mouse down over the menu, line by line, and learns where the items are.
    void findRows() {
        MenuUser::Steps steps;
        steps.push_back([this] {
            char name[16] = "";
            GetClassNameA(GetCapture(), name, sizeof name);
            RECT menu{};
            GetWindowRect(GetCapture(), &menu);
            trace_.line("%s at %d,%d, focus %s", name, static_cast<int>(menu.left), static_cast<int>(menu.top),
                        GetFocus() == parent_ ? "kept" : "moved");
            sweep(menu.top, menu.bottom);
        });
        track("the mouse moves over the menu", TPM_RETURNCMD, std::move(steps));
    }

private:
    void sweep(int y, int bottom) {
        if (user_.selected() != kBeside && !rows_.contains(user_.selected())) {
            rows_[user_.selected()] = y + 2;
        }
        if (y >= bottom) {
            PostMessageA(parent_, WM_KEYDOWN, VK_ESCAPE, 1);
            return;
        }
        PostMessageA(parent_, WM_MOUSEMOVE, 0, MAKELPARAM(620, y));
        user_.plan({[this, y, bottom] { sweep(y + 1, bottom); }});
    }

    Trace& trace_;
    LoggingParent parent_;
    MenuUser user_;
    std::map<UINT, int> rows_;
};

void traceKeys(Trace& trace) {
    trace.section("keys");
    MenuStage stage(trace);
    const auto press = [&stage](std::initializer_list<UINT> keys) {
        MenuUser::Steps steps;
        for (const UINT key : keys) {
            steps.push_back(stage.key(key));
        }
        return steps;
    };
    stage.track("down to the end and round", TPM_RETURNCMD,
                press({VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN}));
    stage.track("up", TPM_RETURNCMD, press({VK_UP, VK_UP, VK_RETURN}));
    stage.track("home and end", TPM_RETURNCMD, press({VK_END, VK_HOME, VK_UP}));
    stage.track("keys without a meaning", TPM_RETURNCMD, press({VK_LEFT, VK_RIGHT, VK_PRIOR, VK_TAB, 'X'}));
    stage.track("nothing selected", TPM_RETURNCMD, press({VK_RETURN, VK_DOWN}));
    stage.track("a disabled item", TPM_RETURNCMD, press({VK_DOWN, VK_DOWN, VK_SPACE, VK_DOWN}));
    stage.track("a letter", TPM_RETURNCMD, press({'H', VK_DOWN}));
    stage.track("a letter behind an ampersand", TPM_RETURNCMD, {stage.character('O')});
    stage.track("a letter in the other case", TPM_RETURNCMD, {stage.character('\xE5')});
    stage.track("a disabled letter", TPM_RETURNCMD, press({'T', VK_DOWN}));
    stage.track("F10", TPM_RETURNCMD, press({VK_F10, VK_DOWN}));
    stage.track("Alt", TPM_RETURNCMD, press({VK_MENU, VK_DOWN}));
    stage.track("as a command", 0, press({'H'}));
    stage.track("quietly", TPM_NONOTIFY, press({'H'}));
}

void traceMouse(Trace& trace) {
    trace.section("mouse");
    MenuStage stage(trace);
    stage.findRows();
    const auto down = [&stage](UINT item) { return stage.mouse("down", WM_LBUTTONDOWN, item); };
    const auto move = [&stage](UINT item) { return stage.mouse("move", WM_MOUSEMOVE, item); };
    const auto up = [&stage](UINT item) { return stage.mouse("up", WM_LBUTTONUP, item); };
    const auto rightDown = stage.mouse("right down", WM_RBUTTONDOWN, kThree);
    const auto rightUp = stage.mouse("right up", WM_RBUTTONUP, kThree);
    stage.track("hover and click", TPM_RETURNCMD, {move(kOne), move(kBeside), move(kThree), down(kThree), up(kThree)});
    stage.track("a disabled item stays", TPM_RETURNCMD, {down(kTwo), up(kTwo), down(kOne), up(kOne)});
    stage.track("drag", TPM_RETURNCMD, {down(kOne), move(kFour), up(kFour)});
    stage.track("drag out", TPM_RETURNCMD, {down(kOne), move(kBeside), up(kBeside)});
    stage.track("release alone", TPM_RETURNCMD, {up(kBeside), up(kOne)});
    stage.track("right button", TPM_RETURNCMD | TPM_RIGHTBUTTON, {rightDown, rightUp});
    stage.track("right button without the flag", TPM_RETURNCMD, {rightDown, rightUp});
    stage.track("keys go on from the mouse", TPM_RETURNCMD, {move(kThree), stage.key(VK_DOWN), stage.key(VK_RETURN)});
    stage.track("press beside", TPM_RETURNCMD, {move(kThree), down(kBeside), up(kBeside)});
    stage.track("cancelled", TPM_RETURNCMD,
                {[&stage] { SendMessageA(stage.window(), WM_CANCELMODE, 0, 0); }, stage.key(VK_DOWN)});
}

// What asks for a menu goes up to whoever has one.
void traceAsking(Trace& trace) {
    trace.section("asking for a menu");
    MenuStage stage(trace);
    const HWND text = stage.parent().add("Static", "", 0, 20, 10, 10, 50, 20);
    const HWND combo = stage.parent().add("ComboBox", "", CBS_DROPDOWNLIST, 21, 10, 40, 100, 90);
    for (const HWND control : {text, combo}) {
        // Told relative to the control, since frames differ.
        stage.parent().setHook([&trace, control](UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
            if (message == WM_CONTEXTMENU) {
                POINT at{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
                if (lParam != -1) {
                    ScreenToClient(control, &at);
                }
                trace.line("WM_CONTEXTMENU %s at %d,%d", reinterpret_cast<HWND>(wParam) == control ? "own" : "other",
                           static_cast<int>(at.x), static_cast<int>(at.y));
            }
            return false;
        });
        trace.line("release of the right button");
        SendMessageA(control, WM_RBUTTONUP, 0, MAKELPARAM(7, 8));
        trace.line("F10");
        SendMessageA(control, WM_SYSKEYDOWN, VK_F10, 1);
        const HeldKeys shift("S");
        trace.line("Shift+F10");
        SendMessageA(control, WM_SYSKEYDOWN, VK_F10, 1);
    }
}

// An edit whose menu is used.
class EditMenuStage : public ControlStage {
public:
    EditMenuStage(Trace& trace, DWORD style, const char* text)
        : ControlStage(trace, "Edit", text, ES_AUTOHSCROLL | style, {150, 20}), user_(trace) {
        s_stage = this;
        proc_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EditMenuStage::spy)));
    }
    ~EditMenuStage() override {
        SetWindowLongPtrA(control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc_));
        s_stage = nullptr;
    }

    void state(const char* after) const override {
        char text[64];
        DWORD start = 0;
        DWORD end = 0;
        GetWindowTextA(control(), text, sizeof text);
        ask(EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        trace_.line("%s -> \"%s\" %u..%u%s%s", after, text, static_cast<unsigned>(start), static_cast<unsigned>(end),
                    ask(EM_CANUNDO) ? " undoable" : "", GetFocus() == control() ? " focus" : "");
    }
    // Opens the menu by the mouse and goes down to the entry of that number, or through all and round.
    void open(const char* what, UINT entry = 0) {
        walk(entry);
        ask(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(8, 8));
        ask(WM_RBUTTONUP, 0, MAKELPARAM(8, 8));
        user_.plan({});
        drainQueue();
        state(what);
    }

private:
    static LRESULT CALLBACK spy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        s_stage->user_.see(window, message, wParam, lParam);
        return CallWindowProcA(s_stage->proc_, window, message, wParam, lParam);
    }
    void walk(UINT entry, int done = 0) {
        constexpr int kEntries = 6;
        user_.plan({[this, entry, done] {
            const bool there = entry != 0 && user_.selected() == entry;
            if (there || done == kEntries) {
                PostMessageA(control(), WM_KEYDOWN, there ? VK_RETURN : VK_ESCAPE, 1);
                return;
            }
            PostMessageA(control(), WM_KEYDOWN, VK_DOWN, 1);
            walk(entry, done + 1);
        }});
    }

    inline static EditMenuStage* s_stage = nullptr;
    MenuUser user_;
    WNDPROC proc_ = nullptr;
};

void traceEditMenu(Trace& trace) {
    trace.section("the edit's menu");
    setClipboard(nullptr, "paste");
    {
        EditMenuStage stage(trace, 0, "some text");
        stage.open("nothing selected");
        stage.open("everything", EM_SETSEL);
        stage.open("with everything selected");
        stage.step("part", [&] { stage.ask(EM_SETSEL, 0, 4); });
        stage.open("cut", WM_CUT);
        stage.open("undone", EM_UNDO);
        stage.open("copied", WM_COPY);
        stage.open("removed", WM_CLEAR);
        stage.open("pasted", WM_PASTE);
    }
    {
        EditMenuStage stage(trace, 0, "");
        stage.open("empty");
    }
    for (const DWORD style : {DWORD{ES_READONLY}, DWORD{ES_PASSWORD}}) {
        EditMenuStage stage(trace, style, "some text");
        stage.ask(EM_SETSEL, 0, 4);
        stage.open(style == ES_READONLY ? "read only" : "password");
    }
}

}  // namespace

void traceMenus(Trace& trace) {
    traceKeys(trace);
    traceMouse(trace);
    traceAsking(trace);
    traceEditMenu(trace);
}
