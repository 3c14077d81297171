// Answers message boxes from inside their modal loops and remembers what they said.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

struct BoxSeen {
    std::string caption;
    std::string text;
    HWND owner;

    bool operator==(const BoxSeen& other) const { return caption == other.caption && text == other.text; }
};

// From construction to destruction, presses OK in every message box of the thread. One at a time.
class BoxAnswerer {
public:
    BoxAnswerer();
    ~BoxAnswerer();
    BoxAnswerer(const BoxAnswerer&) = delete;
    BoxAnswerer& operator=(const BoxAnswerer&) = delete;

    // The boxes since the last call, in order.
    std::vector<BoxSeen> Take();
    // Runs once, from inside the loop of the next box, before it is answered.
    void BeforeAnswer(std::function<void()> action);
    // Runs once, from inside the next modal loop in which no box is in front.
    void WhenIdle(std::function<void()> action);

private:
    static void CALLBACK OnTimer(HWND window, UINT message, UINT_PTR id, DWORD time);

    UINT_PTR m_timer;
    std::vector<BoxSeen> m_seen;
    std::function<void()> m_beforeAnswer;
    std::function<void()> m_action;
};
