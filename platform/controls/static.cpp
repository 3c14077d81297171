// The static control: labels, etched lines, frames and rectangles. Pictures and owner-drawn statics are not offered.
#include <windows.h>

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"
#include "platform/window/builtin_classes.h"

namespace platform {
namespace {

// Notification codes of WM_ENABLE, sent with SS_NOTIFY.
constexpr UINT kEnabledCode = 2;
constexpr UINT kDisabledCode = 3;

class Static {
public:
    explicit Static(HWND window) : window_(window) {}

    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);

private:
    DWORD kind() const { return styleOf(window_) & SS_TYPEMASK; }
    bool isText() const;
    void onWmCreate() const;
    void onWmPaint(HDC given) const;
    void paint(HDC dc) const;
    void paintText(HDC dc, const RECT& client) const;
    void notify(UINT code) const;

    HWND window_;
    HFONT font_ = nullptr;
};

LRESULT Static::handle(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            onWmCreate();
            return 0;
        case WM_NCHITTEST:
            // A label lets the mouse through to what lies behind it, unless its clicks are wanted.
            return styleOf(window_) & SS_NOTIFY ? HTCLIENT : HTTRANSPARENT;
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
            notify(wParam ? kEnabledCode : kDisabledCode);
            return 0;
        case WM_LBUTTONDOWN:
            notify(STN_CLICKED);
            return 0;
        case WM_LBUTTONDBLCLK:
            notify(STN_DBLCLK);
            return 0;
        default:
            return DefWindowProcA(window_, message, wParam, lParam);
    }
}

void Static::notify(UINT code) const {
    if (styleOf(window_) & SS_NOTIFY) {
        notifyCommand(window_, code);
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

// Etched lines are nothing but the static edge around an empty client area, so they are two lines thick whatever
// the template says; in the other direction the edge comes on top of the length given.
void Static::onWmCreate() const {
    const bool horizontal = kind() == SS_ETCHEDHORZ;
    const bool vertical = kind() == SS_ETCHEDVERT;
    if (!horizontal && !vertical && !(styleOf(window_) & SS_SUNKEN)) {
        return;
    }
    RECT client;
    GetClientRect(window_, &client);
    const LONG exStyle = GetWindowLongA(window_, GWL_EXSTYLE) | WS_EX_STATICEDGE;
    SetWindowLongA(window_, GWL_EXSTYLE, exStyle);
    UINT flags = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED;
    if (!horizontal && !vertical) {
        flags |= SWP_NOSIZE;
    }
    const int edge = 2 * GetSystemMetrics(SM_CXBORDER);
    SetWindowPos(window_, nullptr, 0, 0, (vertical ? 0 : client.right) + edge, (horizontal ? 0 : client.bottom) + edge,
                 flags);
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
        case SS_ETCHEDFRAME:
            DrawEdge(dc, &client, EDGE_ETCHED, BF_RECT);
            break;
        case SS_BLACKFRAME:
            frameByLine(dc, client, GetSysColorBrush(COLOR_3DDKSHADOW));
            break;
        case SS_GRAYFRAME:
            frameByLine(dc, client, GetSysColorBrush(COLOR_3DSHADOW));
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
    const DWORD style = styleOf(window_);
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
    if (style & SS_CENTERIMAGE) {
        format = (format & ~static_cast<UINT>(DT_WORDBREAK)) | DT_SINGLELINE | DT_VCENTER;
    }
    if (style & SS_NOPREFIX) {
        format |= DT_NOPREFIX;
    }
    drawCaption(dc, windowText(window_), client, format, IsWindowEnabled(window_) != 0);
}

}  // namespace

void registerStaticClass() {
    registerControlClass<Static>("Static", CS_PARENTDC);
}

}  // namespace platform
