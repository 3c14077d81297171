// Borders, background and printing as every window does them by default. Captions and frames of top-level windows are
// the window manager's business.
#include "platform/window/default_frame.h"

#include "platform/graphics/scale.h"
#include "platform/window/position.h"
#include "platform/window/window.h"

#include <algorithm>

namespace platform {
namespace {

// Class backgrounds below this are a system colour plus one.
constexpr std::uintptr_t kLastColourBrush = 64;

LRESULT onWmNcCalcSize(HWND handle, LPARAM lParam) {
    const Window* window = findWindow(handle);
    auto* rect = reinterpret_cast<RECT*>(lParam);
    if (!window || !rect) {
        return 0;
    }
    const int border = borderWidth(window->style, window->exStyle, isTopLevel(*window));
    rect->left += border;
    rect->top += border;
    rect->right = std::max(rect->left, rect->right - border);
    rect->bottom = std::max(rect->top, rect->bottom - border);
    return 0;
}

void drawBorders(const Window& window, HDC dc, RECT rect) {
    if (window.hasEx(WS_EX_CLIENTEDGE)) {
        DrawEdge(dc, &rect, EDGE_SUNKEN, BF_RECT | BF_ADJUST);
    }
    if (window.hasEx(WS_EX_STATICEDGE)) {
        DrawEdge(dc, &rect, BDR_SUNKENOUTER, BF_RECT | BF_ADJUST);
    }
    const bool framed = (window.style & static_cast<DWORD>(WS_CAPTION)) == static_cast<DWORD>(WS_BORDER);
    if (framed) {
        frameByLine(dc, rect, GetSysColorBrush(COLOR_WINDOWFRAME));
    }
}

LRESULT onWmNcPaint(HWND handle) {
    const Window* window = findWindow(handle);
    if (!window || EqualRect(&window->rect, &window->client) || !isShown(*window)) {
        return 0;
    }
    const HDC dc = GetWindowDC(handle);
    drawBorders(*window, dc, {0, 0, widthOf(window->rect), heightOf(window->rect)});
    ReleaseDC(handle, dc);
    return 0;
}

LRESULT onWmEraseBkgnd(HWND handle, WPARAM wParam) {
    const Window* window = findWindow(handle);
    if (!window || !window->windowClass || !window->windowClass->background) {
        return FALSE;
    }
    const HDC dc = reinterpret_cast<HDC>(wParam);
    HBRUSH brush = window->windowClass->background;
    const auto number = reinterpret_cast<std::uintptr_t>(brush);
    if (number <= kLastColourBrush) {
        brush = GetSysColorBrush(static_cast<int>(number) - 1);
    }
    RECT clip;
    GetClipBox(dc, &clip);
    FillRect(dc, &clip, brush);
    return TRUE;
}

LRESULT onWmPaint(HWND handle) {
    PAINTSTRUCT paint;
    if (BeginPaint(handle, &paint)) {
        EndPaint(handle, &paint);
    }
    return 0;
}

LRESULT onWmPrint(HWND handle, WPARAM wParam, LPARAM flags) {
    const HDC dc = reinterpret_cast<HDC>(wParam);
    if (flags & PRF_ERASEBKGND) {
        SendMessageA(handle, WM_ERASEBKGND, wParam, 0);
    }
    if (flags & PRF_CLIENT) {
        SendMessageA(handle, WM_PRINTCLIENT, wParam, flags);
    }
    const Window* window = findWindow(handle);
    if (!window || !(flags & PRF_CHILDREN)) {
        return 0;
    }
    for (const HWND child : childHandles(*window)) {
        const Window* inner = findWindow(child);
        if (!inner || !inner->has(WS_VISIBLE)) {
            continue;
        }
        POINT old;
        SetViewportOrgEx(dc, 0, 0, &old);
        SetViewportOrgEx(dc, old.x + inner->client.left, old.y + inner->client.top, nullptr);
        SendMessageA(child, WM_PRINT, wParam, flags);
        SetViewportOrgEx(dc, old.x, old.y, nullptr);
    }
    return 0;
}

HBRUSH onCtlColor(UINT message, WPARAM wParam) {
    const HDC dc = reinterpret_cast<HDC>(wParam);
    const bool field = message == WM_CTLCOLOREDIT || message == WM_CTLCOLORLISTBOX;
    const int background = field ? COLOR_WINDOW : COLOR_3DFACE;
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    SetBkColor(dc, GetSysColor(background));
    return GetSysColorBrush(background);
}

}  // namespace

LRESULT onWmNcHitTest(HWND handle, LPARAM lParam) {
    const Window* window = findWindow(handle);
    if (!window) {
        return HTNOWHERE;
    }
    const POINT origin = windowOrigin(*window);
    const POINT at{GET_X_LPARAM(lParam) - origin.x + window->rect.left,
                   GET_Y_LPARAM(lParam) - origin.y + window->rect.top};
    if (!PtInRect(&window->rect, at)) {
        return HTNOWHERE;
    }
    return PtInRect(&window->client, at) ? HTCLIENT : HTBORDER;
}

LRESULT handlePainting(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCCALCSIZE:
            return onWmNcCalcSize(handle, lParam);
        case WM_NCPAINT:
            return onWmNcPaint(handle);
        case WM_ERASEBKGND:
            return onWmEraseBkgnd(handle, wParam);
        case WM_PAINT:
            return onWmPaint(handle);
        case WM_PRINT:
            return onWmPrint(handle, wParam, lParam);
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
            return reinterpret_cast<LRESULT>(onCtlColor(message, wParam));
        default:
            return 0;
    }
}

}  // namespace platform
