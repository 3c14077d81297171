// Handles, stored data, threads and the comparison of texts.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using testing_window::Scene;

TEST(Handle, OfADestroyedWindowStaysInvalid) {
    Scene scene;
    const HWND stale = scene.first;
    DestroyWindow(stale);
    const HWND reused = scene.windows.create("third", WS_CHILD, {0, 0, 1, 1}, scene.top);
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
    DestroyWindow(window);
}

TEST(Threads, PostingFromAnotherOneIsRefused) {
    Scene scene;
    BOOL posted = TRUE;
    std::thread([&posted, &scene] { posted = PostMessageA(scene.first, WM_USER, 0, 0); }).join();
    EXPECT_FALSE(posted);
    EXPECT_TRUE(PostMessageA(scene.first, WM_USER, 0, 0));
}

TEST(Text, ComparisonIgnoresCaseOfTheCodePage) {
    EXPECT_EQ(0, lstrcmpiA("\xC5gr\xC4n", "\xE5GR\xE4N"));
    EXPECT_GT(lstrcmpiA("b", "A"), 0);
    EXPECT_LT(lstrcmpiA("a", "ab"), 0);
    EXPECT_NE(0, lstrcmpiA("\xD7", "\xF7"));
}

}  // namespace
