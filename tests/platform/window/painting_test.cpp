// Which pixels are painted.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

namespace {

using testing_window::Scene;
using testing_window::screen;

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

void fill(HWND window, COLORREF colour) {
    const HDC dc = GetDC(window);
    const HBRUSH brush = CreateSolidBrush(colour);
    RECT client;
    GetClientRect(window, &client);
    FillRect(dc, &client, brush);
    DeleteObject(brush);
    ReleaseDC(window, dc);
}

COLORREF pixelOf(HWND window, int x, int y) {
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

TEST(Painting, ParentIsClippedByItsChildrenOnlyWhenItAsksForIt) {
    Scene scene;
    SetWindowLongPtrA(scene.top, GWL_STYLE, GetWindowLongPtrA(scene.top, GWL_STYLE) | WS_CLIPCHILDREN);
    fill(scene.top, kRed);
    EXPECT_EQ(kRed, pixelOf(scene.top, 5, 5));
    EXPECT_EQ(kWhite, pixelOf(scene.first, 5, 5));
    SetWindowLongPtrA(scene.top, GWL_STYLE, GetWindowLongPtrA(scene.top, GWL_STYLE) & ~WS_CLIPCHILDREN);
    fill(scene.top, kBlue);
    EXPECT_EQ(kBlue, pixelOf(scene.first, 5, 5));
}

TEST(Painting, ChildIsClippedByItsParentAndBySiblingsAbove) {
    Scene scene;
    MoveWindow(scene.second, 10, 20, 50, 20, TRUE);  // Covered by the first one in its upper half.
    MoveWindow(scene.first, 10, 10, 500, 20, TRUE);
    drainQueue();
    SetWindowLongPtrA(scene.second, GWL_STYLE, WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS);
    fill(scene.second, kRed);
    EXPECT_EQ(kWhite, pixelOf(scene.top, 15, 25));
    EXPECT_EQ(kRed, pixelOf(scene.top, 15, 35));
    fill(scene.first, kBlue);
    EXPECT_EQ(kBlue, pixelOf(scene.top, 199, 15));
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

TEST(Painting, SunkenEdgeIsDrawnAroundTheClientArea) {
    Scene scene;
    scene.windows.create("edged", WS_CHILD | WS_VISIBLE, {100, 10, 50, 20}, scene.top, 0, WS_EX_CLIENTEDGE);
    drainQueue();
    EXPECT_EQ(GetSysColor(COLOR_3DSHADOW), pixelOf(scene.top, 100, 10));
    EXPECT_EQ(GetSysColor(COLOR_3DHILIGHT), pixelOf(scene.top, 149, 20));
    EXPECT_EQ(kWhite, pixelOf(scene.top, 102, 12));
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
