// A parent in memory that remembers what its controls tell it.
#pragma once

#include "tests/support/canvas.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <vector>

class ControlTest : public testing::Test {
protected:
    using Hook = std::function<LRESULT(UINT message, UINT code)>;

    ControlTest() {
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
    std::vector<UINT> codes_;  // Of WM_COMMAND, WM_NOTIFY and WM_HSCROLL, in the order received.
    Hook hook_;                // Called for these, WM_DRAWITEM and WM_DELETEITEM (code 0); its result is the answer.

private:
    static LRESULT CALLBACK parentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_NCCREATE) {
            const auto* create = reinterpret_cast<const CREATESTRUCTA*>(lParam);
            SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(create->lpCreateParams));
        }
        auto* self = reinterpret_cast<ControlTest*>(GetWindowLongPtrA(window, GWLP_USERDATA));
        const bool isAboutItem = message == WM_DRAWITEM || message == WM_DELETEITEM;
        if (message != WM_COMMAND && message != WM_NOTIFY && message != WM_HSCROLL && !isAboutItem) {
            return DefWindowProcA(window, message, wParam, lParam);
        }
        UINT code = 0;
        if (!isAboutItem) {
            code = message == WM_COMMAND   ? HIWORD(wParam)
                   : message == WM_HSCROLL ? LOWORD(wParam)
                                           : reinterpret_cast<const NMHDR*>(lParam)->code;
            self->codes_.push_back(code);
        }
        return self->hook_ ? self->hook_(message, code) : 0;
    }
};

// What a control paints in its client area, on a ground that no control paints with.
class Painted : public Canvas {
public:
    Painted(HWND window, int width, int height) : Canvas(width, height) {
        HDC dc = *this;
        SendMessageA(window, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    }
};
