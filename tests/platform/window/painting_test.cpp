// Which pixels are painted.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

namespace {

using testing_window::Scene;
using testing_window::screen;

constexpr COLORREF kWhite = RGB(255, 255, 255);

COLORREF pixelOf(HWND window, int x, int y) {
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

TEST(Painting, OnlyTheInvalidPartIsPaintedAndShown) {
    Scene scene;
    screen().takePresented(scene.top);
    RECT painted{};
    scene.windows.spy().setAnswer([&painted, &scene](HWND window, UINT message, WPARAM, LPARAM, LRESULT& result) {
        if (message != WM_PAINT) {
            return false;
        }
        EXPECT_EQ(scene.second, window);
        PAINTSTRUCT paint;
        BeginPaint(window, &paint);
        painted = paint.rcPaint;
        EndPaint(window, &paint);
        result = 0;
        return true;
    });
    const RECT part{3, 4, 13, 9};
    InvalidateRect(scene.second, &part, TRUE);
    drainQueue();
    EXPECT_TRUE(EqualRect(&part, &painted));
    const RECT shown = screen().takePresented(scene.top);
    const RECT onTop{13, 44, 23, 49};
    EXPECT_TRUE(EqualRect(&onTop, &shown));
}

TEST(Caret, IsInvertedPixelsThatPaintingLeavesAlone) {
    Scene scene;
    CreateCaret(scene.first, nullptr, 1, 10);
    SetCaretPos(4, 5);
    EXPECT_EQ(kWhite, pixelOf(scene.first, 4, 5));
    ShowCaret(scene.first);
    EXPECT_NE(kWhite, pixelOf(scene.first, 4, 5));
    InvalidateRect(scene.first, nullptr, TRUE);
    UpdateWindow(scene.first);
    EXPECT_NE(kWhite, pixelOf(scene.first, 4, 5));
    SetCaretPos(8, 5);
    EXPECT_EQ(kWhite, pixelOf(scene.first, 4, 5));
    DestroyCaret();
    EXPECT_EQ(kWhite, pixelOf(scene.first, 8, 5));
}

}  // namespace
