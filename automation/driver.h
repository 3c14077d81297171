// Runs steps from inside whatever message loop of this thread is running: the sheet's, a message box's, a dialog's.
#pragma once

#include <windows.h>

#include <chrono>
#include <functional>

namespace automation {

class StepClient {
public:
    virtual ~StepClient() = default;

    // The windows have dealt with all input and painted themselves. Returns false when no further step is wanted.
    virtual bool OnStep() = 0;

    // No step could be run for kStuckAfter, or OnProgress was not called for that long.
    virtual void OnStuck() = 0;
};

// One window of its own, never shown, gets a posted message for each step.
class Driver {
public:
    static constexpr std::chrono::seconds kStuckAfter{20};

    explicit Driver(StepClient& client);
    ~Driver();
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    // Calls `modalCall` and runs steps for as long as it has not returned.
    void RunDuring(const std::function<void()>& modalCall);

    // To be called when a command begins and after each piece of its input, as a long text may take a slow system
    // minutes: restarts the time after which the client is told that it is stuck.
    void OnProgress();

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static LRESULT CALLBACK OnMessageTaken(int code, WPARAM wParam, LPARAM lParam);
    void OnStepMessage();
    void OnTimer();
    void PostStep();
    void AskAtNextMessage();
    void StopAsking();

    static Driver* s_pAsking;  // Whose hook is set; a hook procedure gets no pointer of ours.

    StepClient& m_client;
    HWND m_hWnd = nullptr;
    HHOOK m_hHook = nullptr;
    bool m_bRunning = false;
    bool m_bStepPosted = false;
    std::chrono::steady_clock::time_point m_lastProgress;
};

// Paints what is invalid in all visible windows of this thread, now.
void FlushPaints();

}  // namespace automation
