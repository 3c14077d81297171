// A control under test beside another one that can take the focus, in a parent that logs what they tell it.
#pragma once

#include "tests/conformance/trace.h"
#include "tests/conformance/typing.h"

#include <initializer_list>
#include <span>

class ControlStage {
public:
    ControlStage(Trace& trace, const char* className, const char* text, DWORD style, SIZE size)
        : trace_(trace), parent_(trace) {
        parent_.setQuiet(true);
        control_ = parent_.add(className, text, style, kControlId, 10, 10, size.cx, size.cy);
        other_ = parent_.add("Edit", "", 0, kControlId + 1, 250, 10, 100, 20);
        SetFocus(other_);
        parent_.setQuiet(false);
    }
    virtual ~ControlStage() = default;

    HWND control() const { return control_; }
    HWND other() const { return other_; }
    LoggingParent& parent() { return parent_; }

    // Writes what the control holds, after the step that is named.
    virtual void state(const char* after) const = 0;
    virtual HWND keyboardTarget() const { return control_; }
    template <class Action>
    void step(const char* after, Action action) {
        action();
        state(after);
    }

    LRESULT ask(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageA(control_, message, wParam, lParam);
    }
    // Types the keys, or does another thing that a stage knows by its name.
    virtual void perform(const char* step) { typeKeys(keyboardTarget(), step); }
    void type(const char* keys) {
        perform(keys);
        state(keys);
    }
    void type(std::initializer_list<const char*> steps) {
        for (const char* keys : steps) {
            type(keys);
        }
    }
    void mouse(const char* what, HWND window, UINT message, WPARAM keys, LPARAM point) {
        step(what, [=] { SendMessageA(window, message, keys, point); });
    }
    void run(const MessageStep& step) {
        trace_.line("%s %s = %d", step.what, step.text ? step.text : "", number(step.send(control_)));
        state("");
    }
    void run(std::span<const MessageStep> steps) {
        for (const MessageStep& step : steps) {
            run(step);
        }
    }

    static constexpr int kControlId = 20;

protected:
    Trace& trace_;

private:
    LoggingParent parent_;
    HWND control_ = nullptr;
    HWND other_ = nullptr;
};
