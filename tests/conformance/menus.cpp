// The edit's own menu: what its owner is told of the keys inside it, and what its entries do. While a menu is open the
// user's next key comes when its owner is told that nothing is waiting.
#include "tests/conformance/control_stage.h"

#include <initializer_list>
#include <vector>

namespace {

constexpr UINT kHover = 1;  // The mouse moves over the first entry, instead of a key.

// An edit whose menu is used.
class EditMenuStage : public ControlStage {
public:
    EditMenuStage(Trace& trace, DWORD style) : ControlStage(trace, "Edit", "some text", style, {150, 20}) {
        s_stage = this;
        proc_ = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&EditMenuStage::spy)));
    }
    ~EditMenuStage() override { SetWindowLongPtrA(control(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(proc_)); }

    void state(const char* after) const override { trace_.line("%s -> %s", after, describeEdit(control()).c_str()); }
    // Opens the menu by the mouse and presses the keys in it, and Esc when it is still open then.
    void open(const char* what, std::initializer_list<UINT> keys) {
        keys_ = keys;
        next_ = 0;
        ask(WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(8, 8));
        ask(WM_RBUTTONUP, 0, MAKELPARAM(8, 8));
        drainQueue();
        trace_.line("keys left %d", static_cast<int>(keys_.size() - std::min(next_, keys_.size())));
        state(what);
    }

private:
    static LRESULT CALLBACK spy(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        s_stage->see(message, wParam, lParam);
        return CallWindowProcA(s_stage->proc_, window, message, wParam, lParam);
    }
    void see(UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_ENTERMENULOOP || message == WM_INITMENUPOPUP || message == WM_EXITMENULOOP) {
            trace_.line("%s", messageName(message));
        } else if (message == WM_MENUSELECT) {
            trace_.line("WM_MENUSELECT %d flags %x%s", LOWORD(wParam), static_cast<unsigned>(HIWORD(wParam)),
                        lParam ? "" : " closed");
        } else if (message == WM_ENTERIDLE && wParam == MSGF_MENU) {
            pressNext();
        }
    }
    void pressNext() {
        const UINT key = next_ < keys_.size() ? keys_[next_] : UINT{VK_ESCAPE};
        ++next_;
        trace_.line("-- key %x", key);
        if (key == kHover) {
            POINT at = {12, 20};
            ClientToScreen(control(), &at);
            PostMessageA(control(), WM_MOUSEMOVE, 0, MAKELPARAM(at.x, at.y));
        } else {
            PostMessageA(control(), WM_KEYDOWN, key, 1);
        }
    }

    inline static EditMenuStage* s_stage = nullptr;
    std::vector<UINT> keys_;
    std::size_t next_ = 0;
    WNDPROC proc_ = nullptr;
};

}  // namespace

void traceMenus(Trace& trace) {
    trace.section("the edit's menu");
    setClipboard(nullptr, "paste");
    EditMenuStage stage(trace, ES_AUTOHSCROLL);
    stage.open("keys", {VK_DOWN, VK_HOME, VK_UP, VK_DOWN, VK_END, VK_LEFT, VK_PRIOR, VK_TAB, '!'});
    stage.open("nothing selected", {VK_RETURN, VK_DOWN, VK_SPACE, VK_DOWN});
    stage.open("mouse and keys", {kHover, VK_DOWN});
    stage.open("F10", {VK_F10, VK_DOWN});
    stage.open("everything", {VK_UP, VK_RETURN});
    stage.step("part", [&] { stage.ask(EM_SETSEL, 0, 4); });
    stage.open("cut", {VK_DOWN, VK_DOWN, VK_RETURN});
    stage.open("undone", {VK_DOWN, VK_RETURN});
    stage.open("copied", {VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    stage.open("pasted", {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_RETURN});
    stage.step("read only", [&] { stage.ask(EM_SETREADONLY, TRUE); });
    stage.open("all entries", {VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN, VK_DOWN});
}
