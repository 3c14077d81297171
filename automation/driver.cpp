// The step pump. A step is due when the queue holds neither input nor posted messages; paints are forced, timers
// are not waited for.

#include "automation/driver.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "automation/finder.h"

namespace automation {
namespace {

constexpr const char* kWindowClass = "TavrikScenarioStep";
constexpr UINT kStepMessage = WM_APP + 1;
constexpr UINT_PTR kWatchdogTimer = 1;
constexpr UINT kWatchdogPeriodMs = 10;

// Posted messages come out of the queue before the real mouse's moves, and those before paints and timers. So any of
// these in front means that nothing posted is left, and the real mouse resting on a window holds nothing up.
bool IsQueueIdle() {
    MSG message{};
    if (!PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE)) {
        return true;
    }
    constexpr std::array<UINT, 5> kNotAwaited = {WM_MOUSEMOVE, WM_NCMOUSEMOVE, WM_PAINT, WM_TIMER, WM_QUIT};
    return std::find(kNotAwaited.begin(), kNotAwaited.end(), message.message) != kNotAwaited.end();
}

}  // namespace

Driver* Driver::s_pAsking = nullptr;

Driver::Driver(StepClient& client) : m_client(client) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
    m_hWnd =
        CreateWindowExA(0, kWindowClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, windowClass.hInstance, nullptr);
    SetWindowLongPtrA(m_hWnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    OnProgress();
}

Driver::~Driver() {
    DestroyWindow(m_hWnd);
}

void Driver::RunDuring(const std::function<void()>& modalCall) {
    m_bRunning = true;
    OnProgress();
    SetTimer(m_hWnd, kWatchdogTimer, kWatchdogPeriodMs, nullptr);
    PostStep();
    modalCall();
    KillTimer(m_hWnd, kWatchdogTimer);
    StopAsking();
    m_bRunning = false;
    MSG message{};
    while (PeekMessageA(&message, m_hWnd, 0, 0, PM_REMOVE)) {
    }
    m_bStepPosted = false;
}

void Driver::OnProgress() {
    m_lastProgress = std::chrono::steady_clock::now();
}

// A window that has come up is painted, so the next message that is taken from the queue is the moment to look again.
void Driver::AskAtNextMessage() {
    if (m_hHook == nullptr) {
        s_pAsking = this;
        m_hHook = SetWindowsHookExA(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId());
    }
}

void Driver::StopAsking() {
    if (m_hHook != nullptr) {
        UnhookWindowsHookEx(m_hHook);
        m_hHook = nullptr;
        s_pAsking = nullptr;
    }
}

LRESULT CALLBACK Driver::OnMessageTaken(int code, WPARAM wParam, LPARAM lParam) {
    const LRESULT answer = CallNextHookEx(nullptr, code, wParam, lParam);
    if (code == HC_ACTION && wParam == PM_REMOVE && s_pAsking != nullptr) {
        Driver& driver = *s_pAsking;
        driver.StopAsking();
        if (!driver.m_bStepPosted) {
            driver.PostStep();
        }
    }
    return answer;
}

void Driver::PostStep() {
    m_bStepPosted = PostMessageA(m_hWnd, kStepMessage, 0, 0) != FALSE;
}

LRESULT CALLBACK Driver::WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* driver = reinterpret_cast<Driver*>(GetWindowLongPtrA(window, GWLP_USERDATA));
    if (driver == nullptr || !driver->m_bRunning) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (message == kStepMessage) {
        driver->OnStepMessage();
    } else if (message == WM_TIMER) {
        driver->OnTimer();
    } else {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    return 0;
}

void Driver::OnStepMessage() {
    m_bStepPosted = false;
    if (std::chrono::steady_clock::now() - m_lastProgress > kStuckAfter) {
        OnProgress();
        m_client.OnStuck();
    }
    FlushPaints();
    // A message can be posted while paints are sent, so the queue is looked at last. Until a window is in front,
    // posting on would starve the paints and timers that bring it up; then whatever comes next in the queue asks again.
    if (!IsQueueIdle()) {
        PostStep();
        return;
    }
    HWND front = FrontWindow();
    if (front == nullptr) {
        AskAtNextMessage();
        return;
    }
    // Posted before the step is run: a step that opens a modal loop is followed by the next one inside that loop.
    PostStep();
    if (!IsEndedSheet(front) && !m_client.OnStep()) {
        m_bRunning = false;
    }
}

void Driver::OnTimer() {
    const bool stuck = std::chrono::steady_clock::now() - m_lastProgress > kStuckAfter;
    if (!m_bStepPosted || stuck) {
        PostStep();
    }
}

void FlushPaints() {
    for (HWND window : VisibleWindows()) {
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
}

}  // namespace automation
