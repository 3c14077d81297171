// What the conformance sections share: the trace, a parent that writes down what its controls tell it, and a user's
// keys and clicks. Uses the window API alone, so that the same program runs
// natively and on Windows and both traces can be compared line by line.
#pragma once

#include "platform/trace/message_names.h"
#include "tests/support/canvas.h"

#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <functional>
#include <string>
#include <utility>

// Hands on lines; all but section headings are indented by two blanks.
class Trace {
public:
    using Sink = std::function<void(const std::string& line)>;
    // The group stands before the name of each section.
    explicit Trace(Sink sink, const std::string& group = "")
        : sink_(std::move(sink)), prefix_(group.empty() ? "" : group + ": ") {}

    // No two sections have the same name.
    void section(const std::string& name) { sink_("[" + prefix_ + name + "]"); }
    [[gnu::format(printf, 2, 3)]] void line(const char* format, ...);

private:
    Sink sink_;
    std::string prefix_;
};

// A visible top-level window of 400 by 300 pixels which writes a line for every WM_COMMAND and WM_NOTIFY that it gets.
// The window is destroyed with the object.
class LoggingParent {
public:
    // Sees every message before it is logged; returns true when it has answered it with `result`.
    using Hook = std::function<bool(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)>;

    explicit LoggingParent(Trace& trace);
    ~LoggingParent();
    LoggingParent(const LoggingParent&) = delete;
    LoggingParent& operator=(const LoggingParent&) = delete;

    HWND handle() const { return window_; }
    operator HWND() const { return window_; }
    // A visible child control in the dialog font.
    HWND add(const char* className, const char* text, DWORD style, int id, int x, int y, int width, int height);
    void setHook(Hook hook) { hook_ = std::move(hook); }
    // Nothing is logged while quiet, for preparations that belong to no trace.
    void setQuiet(bool quiet) { quiet_ = quiet; }

private:
    static LRESULT CALLBACK windowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    bool handle(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

    Trace& trace_;
    HWND window_ = nullptr;
    Hook hook_;
    bool quiet_ = false;
};

inline HINSTANCE instance() {
    return GetModuleHandleA(nullptr);
}
inline LPARAM textParam(const char* text) {
    return reinterpret_cast<LPARAM>(text);
}
inline int number(LRESULT value) {
    return static_cast<int>(value);
}

// A message to a control and how the trace calls it; `text` stands for lParam when it is not null.
struct MessageStep {
    const char* what;
    UINT message;
    WPARAM wParam;
    LPARAM lParam = 0;
    const char* text = nullptr;

    LRESULT send(HWND window) const { return SendMessageA(window, message, wParam, text ? textParam(text) : lParam); }
};

void setClipboard(HWND owner, const char* text);

// A parent for sections whose trace a spy writes.
class QuietParent : public LoggingParent {
public:
    explicit QuietParent(Trace& trace) : LoggingParent(trace) { setQuiet(true); }
};

// Writes the rows of a picture, or of a window's pixels, below its name.
void tracePicture(Trace& trace, const char* what, const Canvas& canvas);
void tracePixels(Trace& trace, const char* what, HWND window, RECT part);
// A text, where it is selected, and whether it was changed and that can be undone.
std::string describeEdit(HWND edit);
// Windows draws common controls in a style of the user's otherwise.
void drawClassically(HWND control);
// Dispatches everything that is queued for this thread; with a dialog, through IsDialogMessage first.
void drainQueue(HWND dialog = nullptr);
// Posts a key press and its release, as an unmodified key would arrive; the character follows from translation.
void postKey(HWND window, UINT virtualKey);
// Posts the characters of a text (code page 1252).
void postText(HWND window, const char* text);
// Posts press and release of the left button, or the right one, at a client point.
void postClick(HWND window, int x, int y);
void postRightClick(HWND window, int x, int y);
// The same in the middle of the window.
void postClick(HWND window);

// The sections.
void traceWindows(Trace& trace);
void tracePainting(Trace& trace);
void traceDrawing(Trace& trace);
void traceButtons(Trace& trace);
void traceTabs(Trace& trace);
void traceTracks(Trace& trace);
void traceEdits(Trace& trace);
void traceCombos(Trace& trace);
void traceOwnerDrawn(Trace& trace);  // of the combo boxes
void traceDialogs(Trace& trace);
void traceSheets(Trace& trace);
void traceFileDialog(Trace& trace);
void traceListViews(Trace& trace);
void traceLabels(Trace& trace);
void traceProfiles(Trace& trace);
void traceMenus(Trace& trace);
