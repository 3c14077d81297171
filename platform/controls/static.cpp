// The static control: labels, frames and rectangles. Etched lines, pictures, owner-drawn statics and notifications are
// not offered.
#include <windows.h>

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

namespace platform {
namespace {

class Static {
public:
    explicit Static(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    DWORD kind() const { return styleOf(window_) & SS_TYPEMASK; }
    bool isText() const;
    void onWmPaint(HDC given) const;
    void paint(HDC dc) const;
    void paintText(HDC dc, const RECT& client) const;

    HWND window_;
    HFONT font_ = nullptr;
};

LRESULT Static::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NCHITTEST:
            return HTTRANSPARENT;  // The mouse gets through to what lies behind.
        case WM_GETDLGCODE:
            return DLGC_STATIC;
        case WM_ERASEBKGND:
            return TRUE;
        case WM_PAINT:
        case WM_PRINTCLIENT:
            onWmPaint(reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            if (LOWORD(lParam)) {
                InvalidateRect(window_, nullptr, TRUE);
            }
            return 0;
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(font_);
        case WM_SETTEXT: {
            const LRESULT result = DefWindowProcA(window_, message, wParam, lParam);
            InvalidateRect(window_, nullptr, TRUE);
            return result;
        }
        case WM_ENABLE:
            InvalidateRect(window_, nullptr, TRUE);
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

bool Static::isText() const {
    switch (kind()) {
        case SS_LEFT:
        case SS_CENTER:
        case SS_RIGHT:
        case SS_SIMPLE:
        case SS_LEFTNOWORDWRAP:
            return true;
        default:
            return false;
    }
}

void Static::onWmPaint(HDC given) const {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void Static::paint(HDC dc) const {
    RECT client;
    GetClientRect(window_, &client);
    const SelectedFont selected(dc, font_);
    const auto background = reinterpret_cast<HBRUSH>(SendMessageA(
        GetParent(window_), WM_CTLCOLORSTATIC, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(window_)));
    switch (kind()) {
        case SS_BLACKFRAME:
            frameByLine(dc, client, GetSysColorBrush(COLOR_3DDKSHADOW));
            break;
        case SS_WHITEFRAME:
            frameByLine(dc, client, GetSysColorBrush(COLOR_3DHIGHLIGHT));
            break;
        case SS_BLACKRECT:
            FillRect(dc, &client, GetSysColorBrush(COLOR_3DDKSHADOW));
            break;
        case SS_WHITERECT:
            FillRect(dc, &client, GetSysColorBrush(COLOR_3DHIGHLIGHT));
            break;
        default:
            if (isText()) {
                FillRect(dc, &client, background);
                paintText(dc, client);
            }
            break;
    }
}

void Static::paintText(HDC dc, const RECT& client) const {
    UINT format = DT_EXPANDTABS;
    switch (kind()) {
        case SS_CENTER:
            format |= DT_CENTER | DT_WORDBREAK;
            break;
        case SS_RIGHT:
            format |= DT_RIGHT | DT_WORDBREAK;
            break;
        case SS_SIMPLE:
            format = DT_SINGLELINE;
            break;
        case SS_LEFTNOWORDWRAP:
            break;
        default:
            format |= DT_WORDBREAK;
            break;
    }
    if (styleOf(window_) & SS_NOPREFIX) {
        format |= DT_NOPREFIX;
    }
    drawCaption(dc, windowText(window_), client, format, IsWindowEnabled(window_) != 0);
}

}  // namespace

void registerStaticClass() {
    registerControlClass<Static>("Static", CS_PARENTDC);
}

}  // namespace platform
