// Where the sections about windows play: a shown, active top-level window with two children.
#pragma once

#include "tests/conformance/traced_windows.h"

#include <span>
#include <string>

constexpr DWORD kPopup = WS_POPUP;
constexpr DWORD kShownPopup = WS_POPUP | WS_VISIBLE;
constexpr DWORD kShownChild = WS_CHILD | WS_VISIBLE;
constexpr RECT kTopPlace = {50, 60, 200, 100};
constexpr UINT kOnlyFrame = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED;

// A shown, active top-level window with two children, whose own messages so far left no trace.
class Stage : public TracedWindows {
public:
    explicit Stage(Trace& trace)
        : TracedWindows(trace),
          top(createQuietly("top", kShownPopup, kTopPlace)),
          first(createQuietly("first", kShownChild, {10, 10, 50, 20}, top, 1)),
          second(createQuietly("second", kShownChild, {10, 40, 50, 20}, top, 2)) {}

    void note(const std::string& text) { spy().line(text); }
    void step(const char* what) {
        drainQueue();
        spy().line(std::string("-- ") + what);
    }
    template <class Action>
    void step(const char* what, Action action) {
        step(what);
        action();
    }
    void previous(HWND window) { note("previous " + name(window)); }
    void state() {
        note("active " + name(GetActiveWindow()) + ", focus " + name(GetFocus()) + ", capture " + name(GetCapture()));
    }
    void focusQuietly(HWND window) {
        spy().mute(true);
        SetFocus(window);
        drainQueue();
        spy().mute(false);
    }
    // Answers the message with the result until clearAnswer.
    void answer(UINT wanted, LRESULT with) {
        spy().setAnswer([wanted, with](HWND, UINT message, WPARAM, LPARAM, LRESULT& result) {
            result = with;
            return message == wanted;
        });
    }
    // Moves the focus on as soon as the window gets the message.
    void redirectFocus(HWND from, UINT on, HWND to) {
        spy().setAnswer([from, on, to](HWND window, UINT message, WPARAM, LPARAM, LRESULT&) {
            if (window == from && message == on) {
                SetFocus(to);
            }
            return false;
        });
    }
    void clearAnswer() { spy().setAnswer(nullptr); }

    HWND top;
    HWND first;
    HWND second;
};

// One section, which plays on a stage of its own.
struct StagedSection {
    const char* name;
    void (*run)(Stage& stage);
};

inline void play(Trace& trace, std::span<const StagedSection> sections) {
    for (const StagedSection& section : sections) {
        trace.section(section.name);
        Stage stage(trace);
        section.run(stage);
    }
}
