// Message boxes where the traces that are compared with Windows do not reach: Swedish captions, copying, boxes
// without a Cancel button or an owner.
#include <windows.h>

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace {

std::function<void(HWND box)> whenIdle;

void CALLBACK onTimer(HWND, UINT, UINT_PTR timer, DWORD) {
    KillTimer(nullptr, timer);
    whenIdle(GetActiveWindow());
}

int runBox(HWND owner, const char* text, UINT type, std::function<void(HWND)> action) {
    whenIdle = std::move(action);
    SetTimer(nullptr, 0, 10, onTimer);
    return MessageBoxA(owner, text, "Rubrik", type);
}

void press(UINT key) {
    PostMessageA(GetFocus(), WM_KEYDOWN, key, 1);
}

TEST(MessageBoxTest, ControlCCopiesCaptionTextAndButtons) {
    runBox(nullptr, "En\nTv\xE5", MB_OKCANCEL, [](HWND) {
        PostMessageA(GetFocus(), WM_CHAR, 3, 1);
        press(VK_ESCAPE);
    });
    ASSERT_TRUE(OpenClipboard(nullptr));
    const char* copied = static_cast<const char*>(GlobalLock(GetClipboardData(CF_TEXT)));
    std::string rule(27, '-');
    rule += "\r\n";
    EXPECT_EQ(std::string(copied != nullptr ? copied : ""),
              rule + "Rubrik\r\n" + rule + "En\r\nTv\xE5\r\n" + rule + "OK   Avbryt   \r\n" + rule);
    CloseClipboard();
}

TEST(MessageBoxTest, TaskModalBoxDisablesEveryWindowAndGivesTheFocusBack) {
    const auto create = [](DWORD style) {
        return CreateWindowExA(0, "Static", "", WS_POPUP | WS_VISIBLE | style, 0, 0, 50, 50, nullptr, nullptr, nullptr,
                               nullptr);
    };
    HWND disabled = create(WS_DISABLED);
    HWND window = create(0);
    SetFocus(window);
    BOOL enabledMeanwhile = TRUE;
    runBox(nullptr, "Klart", MB_OK | MB_TASKMODAL, [&](HWND) {
        enabledMeanwhile = IsWindowEnabled(window);
        press(VK_RETURN);
    });
    EXPECT_FALSE(enabledMeanwhile);
    EXPECT_TRUE(IsWindowEnabled(window));
    EXPECT_FALSE(IsWindowEnabled(disabled)) << "was so before";
    EXPECT_EQ(GetFocus(), window);
    DestroyWindow(window);
    DestroyWindow(disabled);
}

}  // namespace
