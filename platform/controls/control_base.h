// What the built-in controls have in common: one object a window, reached through the window's extra bytes.
#pragma once

#include "platform/graphics/scale.h"

#include <windows.h>

#include <string>

namespace platform {

// Window procedure of a control class whose windows carry a Control object. The class is registered with
// kControlExtraBytes. Control has a constructor from HWND and `LRESULT handle(UINT, WPARAM, LPARAM)`. A window may be
// destroyed while its control notifies the parent; the object is gone then, so a function that notifies asks
// IsWindow before it touches a member again.
template <class Control>
LRESULT CALLBACK controlProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* control = reinterpret_cast<Control*>(GetWindowLongPtrA(window, 0));
    if (message == WM_NCCREATE && !control) {
        control = new Control(window);
        SetWindowLongPtrA(window, 0, reinterpret_cast<LONG_PTR>(control));
    }
    if (!control) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrA(window, 0, 0);
        delete control;
        return DefWindowProcA(window, message, wParam, lParam);
    }
    return control->handle(message, wParam, lParam);
}

constexpr int kControlExtraBytes = static_cast<int>(sizeof(LONG_PTR));

// Registers a class of this kind for all modules, with double-clicks.
template <class Control>
void registerControlClass(LPCSTR name, UINT style, LPCSTR cursor = IDC_ARROW) {
    WNDCLASSA windowClass{};
    windowClass.style = CS_GLOBALCLASS | CS_DBLCLKS | style;
    windowClass.lpfnWndProc = controlProc<Control>;
    windowClass.cbWndExtra = kControlExtraBytes;
    windowClass.hCursor = LoadCursorA(nullptr, cursor);
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

inline std::string windowText(HWND window) {
    const int length = GetWindowTextLengthA(window);
    std::string text(static_cast<std::size_t>(length), '\0');
    GetWindowTextA(window, text.data(), length + 1);
    return text;
}

inline DWORD styleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongA(window, GWL_STYLE));
}

inline void notifyCommand(HWND control, UINT code) {
    SendMessageA(GetParent(control), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(control), code),
                 reinterpret_cast<LPARAM>(control));
}

// The context of a window to measure or draw in, for a scope.
class WindowDc {
public:
    explicit WindowDc(HWND window) : window_(window), dc_(GetDC(window)) {}
    ~WindowDc() { ReleaseDC(window_, dc_); }
    WindowDc(const WindowDc&) = delete;
    WindowDc& operator=(const WindowDc&) = delete;

    operator HDC() const { return dc_; }

private:
    HWND window_;
    HDC dc_;
};

// BeginPaint and EndPaint, whatever happens between them.
class PaintBracket {
public:
    explicit PaintBracket(HWND window) : window_(window) { BeginPaint(window, &paint_); }
    ~PaintBracket() { EndPaint(window_, &paint_); }
    PaintBracket(const PaintBracket&) = delete;
    PaintBracket& operator=(const PaintBracket&) = delete;

    // Null when there is no memory to paint with.
    HDC dc() const { return paint_.hdc; }

private:
    HWND window_;
    PAINTSTRUCT paint_;
};

// WM_PAINT, or WM_PRINTCLIENT with the context that it gives: calls `draw` with the context to draw into. An owner may
// destroy its control while it draws, so nothing of the control is touched afterwards.
template <class Draw>
void paintControl(HWND window, HDC given, Draw draw) {
    if (given) {
        draw(given);
        return;
    }
    const PaintBracket paint(window);
    if (paint.dc()) {
        draw(paint.dc());
    }
}

// Selects a control's font for the length of a drawing; null stands for the system font, which is selected anyway.
class SelectedFont {
public:
    SelectedFont(HDC dc, HFONT font) : dc_(dc), before_(font ? SelectObject(dc, font) : nullptr) {}
    ~SelectedFont() {
        if (before_) {
            SelectObject(dc_, before_);
        }
    }
    SelectedFont(const SelectedFont&) = delete;
    SelectedFont& operator=(const SelectedFont&) = delete;

private:
    HDC dc_;
    HGDIOBJ before_;
};

// Draws a caption in the context's text colour, or engraved when the control is disabled.
inline void drawCaption(HDC dc, const std::string& text, RECT rect, UINT format, bool enabled) {
    SetBkMode(dc, TRANSPARENT);
    const int length = static_cast<int>(text.size());
    if (enabled) {
        DrawTextA(dc, text.c_str(), length, &rect, format);
        return;
    }
    OffsetRect(&rect, lineWidth(), lineWidth());
    const COLORREF before = SetTextColor(dc, GetSysColor(COLOR_3DHIGHLIGHT));
    DrawTextA(dc, text.c_str(), length, &rect, format);
    OffsetRect(&rect, -lineWidth(), -lineWidth());
    SetTextColor(dc, GetSysColor(COLOR_3DSHADOW));
    DrawTextA(dc, text.c_str(), length, &rect, format);
    SetTextColor(dc, before);
}

}  // namespace platform
