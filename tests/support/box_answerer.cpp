#include "tests/support/box_answerer.h"

#include <utility>

namespace {

constexpr UINT kPollMs = 10;
constexpr int kBoxTextId = 0xFFFF;

BoxAnswerer* g_answerer = nullptr;

std::string TextOf(HWND window) {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(window)), '\0');
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

BOOL CALLBACK FindBox(HWND window, LPARAM found) {
    // A box has one button; other dialogs can be cancelled.
    if (IsWindowVisible(window) && IsWindowEnabled(window) && GetDlgItem(window, kBoxTextId) != nullptr &&
        GetDlgItem(window, IDCANCEL) == nullptr) {
        *reinterpret_cast<HWND*>(found) = window;
        return FALSE;
    }
    return TRUE;
}

}  // namespace

BoxAnswerer::BoxAnswerer() : m_timer(SetTimer(nullptr, 0, kPollMs, &OnTimer)) {
    g_answerer = this;
}

BoxAnswerer::~BoxAnswerer() {
    KillTimer(nullptr, m_timer);
    g_answerer = nullptr;
}

std::vector<BoxSeen> BoxAnswerer::Take() {
    return std::exchange(m_seen, {});
}

void BoxAnswerer::WhenIdle(std::function<void()> action) {
    m_action = std::move(action);
}

void BoxAnswerer::BeforeAnswer(std::function<void()> action) {
    m_beforeAnswer = std::move(action);
}

void CALLBACK BoxAnswerer::OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    HWND box = nullptr;
    EnumThreadWindows(GetCurrentThreadId(), &FindBox, reinterpret_cast<LPARAM>(&box));
    if (box != nullptr) {
        g_answerer->m_seen.push_back({TextOf(box), TextOf(GetDlgItem(box, kBoxTextId)), GetWindow(box, GW_OWNER)});
        if (g_answerer->m_beforeAnswer) {
            std::exchange(g_answerer->m_beforeAnswer, nullptr)();
        }
        SendMessageA(box, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
        return;
    }
    if (g_answerer->m_action) {
        std::exchange(g_answerer->m_action, nullptr)();
    }
}
