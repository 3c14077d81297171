// Records the messages that reach windows of the class "Traced" as short lines of text. It uses the window API
// alone, so that the same scenarios run here and on the real system, and their traces can be compared.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace trace {

// What a scenario wants a window to do on a message; true when `result` is the answer instead of the default one.
using Answer = std::function<bool(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result)>;

class Recorder {
public:
    Recorder();
    ~Recorder();
    Recorder(const Recorder&) = delete;
    Recorder& operator=(const Recorder&) = delete;

    // Creates a window of the traced class; its title is the name under which it appears in the trace.
    HWND create(const char* name, DWORD style, DWORD exStyle, RECT place, HWND parent, int id = 0);
    // Dispatches what waits, without waiting for more.
    void drain();
    void note(const std::string& line) { lines_.push_back(line); }
    const std::vector<std::string>& lines() const { return lines_; }
    // While muted, messages leave no trace; notes still do. Returns what was before.
    bool mute(bool muted) { return std::exchange(muted_, muted); }
    // Leaves painting out of the trace where the real system copies pixels that are painted anew here.
    void ignorePainting() { paintingIgnored_ = true; }
    std::string name(HWND window) const;
    void setAnswer(Answer answer) { answer_ = std::move(answer); }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void record(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    std::map<HWND, std::string> names_;
    std::string pendingName_;
    std::vector<std::string> lines_;
    Answer answer_;
    bool muted_ = false;
    bool paintingIgnored_ = false;
};

// A scenario that records its trace; the table names all of them.
struct Scenario {
    const char* name;
    void (*run)(Recorder& recorder);
};
const std::vector<Scenario>& scenarios();

}  // namespace trace
