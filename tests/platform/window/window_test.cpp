// Handles, stored data, timers and the clipboard.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

#include <cstring>
#include <thread>

namespace {

using testing_window::Scene;

TEST(Handle, OfADestroyedWindowStaysInvalid) {
    Scene scene;
    const HWND stale = scene.first;
    DestroyWindow(stale);
    const HWND reused = scene.recorder.create("third", WS_CHILD, 0, {0, 0, 1, 1}, scene.top);
    EXPECT_NE(stale, reused);
    SetLastError(ERROR_SUCCESS);
    EXPECT_FALSE(IsWindow(stale));
    EXPECT_FALSE(SetWindowTextA(stale, "x"));
    EXPECT_EQ(DWORD{ERROR_INVALID_WINDOW_HANDLE}, GetLastError());
    EXPECT_EQ(0, SendMessageA(stale, WM_USER, 0, 0));
    EXPECT_FALSE(PostMessageA(stale, WM_USER, 0, 0));
    EXPECT_EQ(nullptr, SetFocus(stale));
    EXPECT_FALSE(IsWindow(reinterpret_cast<HWND>(std::uintptr_t{0x12345678})));
}

TEST(WindowData, IsKeptPerWindow) {
    Scene scene;
    EXPECT_EQ(1, GetWindowLongPtrA(scene.first, GWLP_ID));
    EXPECT_EQ(0, SetWindowLongPtrA(scene.first, GWLP_USERDATA, 77));
    EXPECT_EQ(77, GetWindowLongPtrA(scene.first, GWLP_USERDATA));
    EXPECT_EQ(0, GetWindowLongPtrA(scene.second, GWLP_USERDATA));
    int value = 0;
    EXPECT_TRUE(SetPropA(scene.first, "Tag", &value));
    EXPECT_EQ(&value, GetPropA(scene.first, "tag"));
    EXPECT_EQ(nullptr, GetPropA(scene.second, "Tag"));
    EXPECT_EQ(&value, RemovePropA(scene.first, "TAG"));
    EXPECT_EQ(nullptr, GetPropA(scene.first, "Tag"));
}

TEST(WindowData, ExtraBytesEndWhereTheClassSaid) {
    Scene scene;
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefWindowProcA;
    windowClass.cbWndExtra = 12;
    windowClass.lpszClassName = "WithExtra";
    ASSERT_NE(0, RegisterClassA(&windowClass));
    EXPECT_EQ(0, RegisterClassA(&windowClass));
    const HWND window = CreateWindowExA(0, "wITHeXTRA", "", WS_CHILD, 0, 0, 1, 1, scene.top, nullptr, nullptr, nullptr);
    char name[20];
    GetClassNameA(window, name, sizeof name);
    EXPECT_STREQ("WithExtra", name);
    SetWindowLongPtrA(window, 4, 0x123456789);
    EXPECT_EQ(0x123456789, GetWindowLongPtrA(window, 4));
    EXPECT_EQ(0, SetWindowLongPtrA(window, 8, 5));
    EXPECT_EQ(0, GetWindowLongPtrA(window, 8));
    EXPECT_FALSE(UnregisterClassA("WithExtra", nullptr));
    DestroyWindow(window);
    EXPECT_TRUE(UnregisterClassA("WithExtra", nullptr));
}

TEST(Timer, ComesAfterPaintingAndEndsWithItsWindow) {
    Scene scene;
    SetTimer(scene.first, 3, 1, nullptr);
    SetTimer(scene.second, 4, 1, nullptr);
    InvalidateRect(scene.second, nullptr, FALSE);
    std::this_thread::sleep_for(std::chrono::milliseconds(12));
    MSG message;
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(UINT{WM_PAINT}, message.message);
    ValidateRect(scene.second, nullptr);
    DestroyWindow(scene.first);
    ValidateRect(scene.top, nullptr);
    ASSERT_TRUE(GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER));
    EXPECT_EQ(scene.second, message.hwnd);
    EXPECT_EQ(WPARAM{4}, message.wParam);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    std::this_thread::sleep_for(std::chrono::milliseconds(12));
    EXPECT_TRUE(KillTimer(scene.second, 4));
    EXPECT_FALSE(KillTimer(scene.second, 4));
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
}

TEST(Threads, PostingFromAnotherOneIsRefused) {
    Scene scene;
    BOOL posted = TRUE;
    std::thread([&posted, &scene] { posted = PostMessageA(scene.first, WM_USER, 0, 0); }).join();
    EXPECT_FALSE(posted);
    EXPECT_TRUE(PostMessageA(scene.first, WM_USER, 0, 0));
}

TEST(Clipboard, CarriesText) {
    Scene scene;
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, 5);
    std::memcpy(GlobalLock(memory), "abc\0", 5);
    GlobalUnlock(memory);
    ASSERT_TRUE(OpenClipboard(scene.top));
    EXPECT_FALSE(OpenClipboard(scene.top));
    EmptyClipboard();
    SetClipboardData(CF_TEXT, memory);
    CloseClipboard();
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_TEXT));
    EXPECT_EQ(nullptr, GetClipboardData(CF_TEXT));
    OpenClipboard(scene.top);
    EXPECT_STREQ("abc", static_cast<const char*>(GlobalLock(GetClipboardData(CF_TEXT))));
    CloseClipboard();
}

TEST(Text, ComparisonIgnoresCaseOfTheCodePage) {
    EXPECT_EQ(0, lstrcmpiA("\xC5gr\xC4n", "\xE5GR\xE4N"));
    EXPECT_GT(lstrcmpiA("b", "A"), 0);
    EXPECT_LT(lstrcmpiA("a", "ab"), 0);
    EXPECT_NE(0, lstrcmpiA("\xD7", "\xF7"));
}

}  // namespace
