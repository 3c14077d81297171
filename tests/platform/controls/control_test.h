// A parent in memory that remembers what its controls tell it.
#pragma once

#include <gtest/gtest.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <functional>
#include <vector>

class ControlTest : public testing::Test {
protected:
    using Hook = std::function<LRESULT(UINT message, UINT code)>;

    ControlTest() {
        TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = parentProc;
        windowClass.lpszClassName = "ControlTestParent";
        RegisterClassA(&windowClass);
        parent_ = CreateWindowExA(0, "ControlTestParent", "", WS_POPUP | WS_VISIBLE, 0, 0, 700, 300, nullptr, nullptr,
                                  nullptr, this);
        SetActiveWindow(parent_);
    }
    ~ControlTest() override { DestroyWindow(parent_); }

    HWND add(const char* className, const char* text, DWORD style, int width, int height) {
        return CreateWindowExA(0, className, text, style | WS_CHILD | WS_VISIBLE, 0, 0, width, height, parent_,
                               reinterpret_cast<HMENU>(10), nullptr, nullptr);
    }

    HWND parent_ = nullptr;
    std::vector<UINT> codes_;  // Of WM_COMMAND and WM_NOTIFY, in the order received.
    Hook hook_;                // Called for these and WM_DRAWITEM (code 0); its result is the answer.

private:
    static LRESULT CALLBACK parentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE) {
            const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
            SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        }
        auto* self = reinterpret_cast<ControlTest*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        if (message != WM_COMMAND && message != WM_NOTIFY && message != WM_DRAWITEM) {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        UINT code = 0;
        if (message != WM_DRAWITEM) {
            code = message == WM_COMMAND ? HIWORD(wParam) : reinterpret_cast<const NMHDR*>(lParam)->code;
            self->codes_.push_back(code);
        }
        return self->hook_ ? self->hook_(message, code) : 0;
    }
};

// A picture of a control's client area, on a ground that no control paints with.
class Picture {
public:
    static constexpr COLORREF kGround = RGB(255, 0, 255);

    Picture(HWND window, int width, int height) : width_(width), height_(height) {
        HDC screen = GetDC(window);
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(window, screen);
        before_ = SelectObject(dc_, bitmap_);
        const RECT all = {0, 0, width, height};
        HBRUSH ground = CreateSolidBrush(kGround);
        FillRect(dc_, &all, ground);
        DeleteObject(ground);
        SendMessageA(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc_), PRF_CLIENT);
    }
    ~Picture() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }
    // The number of pixels of the colour in the columns from `left` up to `right`.
    int count(COLORREF colour, int left, int right) const {
        int found = 0;
        for (int y = 0; y < height_; ++y) {
            for (int x = left; x < right; ++x) {
                found += at(x, y) == colour;
            }
        }
        return found;
    }
    int width() const { return width_; }

private:
    int width_;
    int height_;
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};
