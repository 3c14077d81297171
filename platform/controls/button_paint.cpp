// How buttons look: raised, in the system colours, with a dotted rectangle for the focus.
#include "platform/controls/button.h"

#include <algorithm>

#include "platform/controls/control_base.h"
#include "platform/graphics/scale.h"

namespace platform {
namespace {

// All in pixels at 96 dots an inch.
constexpr int kMarkSize = 13;        // Side of a check box or radio button.
constexpr int kMarkGap = 4;          // Between the mark and its caption.
constexpr int kPushFocusInset = 4;   // From the edge of a push button to its focus rectangle.
constexpr int kGroupCaptionX = 8;    // From the frame's left edge to its caption.
constexpr int kGroupCaptionPad = 2;  // Ground kept free before and after the caption.

SIZE captionSize(HDC dc, const std::string& text) {
    RECT size{};
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &size, DT_SINGLELINE | DT_CALCRECT);
    return {size.right, size.bottom};
}

}  // namespace

void Button::onWmEraseBkgnd(HDC dc) const {
    // The other kinds cover what they need when they paint, and a group box is transparent.
    if (isOwnerDrawn()) {
        RECT client;
        GetClientRect(window_, &client);
        FillRect(dc, &client, askParentColour(dc, WM_CTLCOLORBTN));
    }
}

void Button::onWmPaint(HDC given) const {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void Button::showChange(UINT ownerDrawAction) const {
    if (!isOwnerDrawn()) {
        InvalidateRect(window_, nullptr, FALSE);
        return;
    }
    if (IsWindowVisible(window_)) {
        const HWND window = window_;
        const WindowDc dc(window);
        drawByOwner(dc, ownerDrawAction);
    }
}

HBRUSH Button::askParentColour(HDC dc, UINT message) const {
    return reinterpret_cast<HBRUSH>(
        SendMessageA(GetParent(window_), message, reinterpret_cast<WPARAM>(dc), reinterpret_cast<LPARAM>(window_)));
}

void Button::paint(HDC dc) const {
    RECT client;
    GetClientRect(window_, &client);
    if (isOwnerDrawn()) {
        drawByOwner(dc, ODA_DRAWENTIRE);
        return;
    }
    const SelectedFont selected(dc, font_);
    switch (kind()) {
        case BS_PUSHBUTTON:
        case BS_DEFPUSHBUTTON:
            paintPush(dc, client);
            break;
        case BS_GROUPBOX:
            paintGroupBox(dc, client);
            break;
        default:
            paintMark(dc, client);
            break;
    }
}

void Button::drawByOwner(HDC dc, UINT action) const {
    const SelectedFont selected(dc, font_);
    askParentColour(dc, WM_CTLCOLORBTN);
    DRAWITEMSTRUCT draw{};
    draw.CtlType = ODT_BUTTON;
    draw.CtlID = static_cast<UINT>(GetDlgCtrlID(window_));
    draw.itemAction = action;
    draw.itemState = (state_ & BST_PUSHED ? ODS_SELECTED : 0u) | (state_ & BST_FOCUS ? ODS_FOCUS : 0u) |
                     (isEnabled() ? 0u : ODS_DISABLED);
    draw.hwndItem = window_;
    draw.hDC = dc;
    GetClientRect(window_, &draw.rcItem);
    SendMessageA(GetParent(window_), WM_DRAWITEM, draw.CtlID, reinterpret_cast<LPARAM>(&draw));
}

void Button::paintPush(HDC dc, RECT client) const {
    const bool pushed = (state_ & BST_PUSHED) != 0;
    const RECT whole = client;
    askParentColour(dc, WM_CTLCOLORBTN);
    if (kind() == BS_DEFPUSHBUTTON) {
        frameByLine(dc, client, GetSysColorBrush(COLOR_WINDOWFRAME));
        InflateRect(&client, -lineWidth(), -lineWidth());
    }
    if (pushed) {
        frameByLine(dc, client, GetSysColorBrush(COLOR_3DSHADOW));
        InflateRect(&client, -lineWidth(), -lineWidth());
        FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    } else {
        DrawFrameControl(dc, &client, DFC_BUTTON, DFCS_BUTTONPUSH);
    }
    RECT caption = whole;
    if (pushed) {
        OffsetRect(&caption, lineWidth(), lineWidth());
    }
    SetTextColor(dc, GetSysColor(COLOR_BTNTEXT));
    drawCaption(dc, windowText(window_), caption, DT_CENTER | DT_VCENTER | DT_SINGLELINE, isEnabled());
    if (state_ & BST_FOCUS) {
        RECT focus = whole;
        InflateRect(&focus, -toScale(kPushFocusInset), -toScale(kPushFocusInset));
        DrawFocusRect(dc, &focus);
    }
}

void Button::paintMark(HDC dc, const RECT& client) const {
    FillRect(dc, &client, askParentColour(dc, WM_CTLCOLORSTATIC));

    const DWORD type = kind();
    UINT look = DFCS_BUTTONCHECK;
    if (type == BS_RADIOBUTTON || type == BS_AUTORADIOBUTTON) {
        look = DFCS_BUTTONRADIO;
    }
    if (state_ & BST_CHECKED) {
        look |= DFCS_CHECKED;
    }
    if (state_ & BST_PUSHED) {
        look |= DFCS_PUSHED;
    }
    if (!isEnabled()) {
        look |= DFCS_INACTIVE;
    }
    const int markSize = toScale(kMarkSize);
    const LONG top = (client.bottom - markSize) / 2;
    RECT mark = {0, top, markSize, top + markSize};
    DrawFrameControl(dc, &mark, DFC_BUTTON, look);

    const std::string text = windowText(window_);
    if (text.empty()) {
        return;
    }
    const RECT caption = {markSize + toScale(kMarkGap), 0, client.right, client.bottom};
    drawCaption(dc, text, caption, DT_LEFT | DT_VCENTER | DT_SINGLELINE, isEnabled());
    if (state_ & BST_FOCUS) {
        const SIZE size = captionSize(dc, text);
        const LONG textTop = (client.bottom - size.cy) / 2;
        RECT focus = {caption.left, textTop, caption.left + size.cx, textTop + size.cy};
        InflateRect(&focus, lineWidth(), lineWidth());
        IntersectRect(&focus, &focus, &client);
        DrawFocusRect(dc, &focus);
    }
}

void Button::paintGroupBox(HDC dc, const RECT& client) const {
    const std::string text = windowText(window_);
    const HBRUSH ground = askParentColour(dc, WM_CTLCOLORSTATIC);
    // An empty caption still leaves room for a line of text above the frame's middle.
    const SIZE size = captionSize(dc, text.empty() ? std::string(" ") : text);
    RECT frame = client;
    frame.top += size.cy / 2 - lineWidth();
    DrawEdge(dc, &frame, EDGE_ETCHED, BF_RECT);
    if (text.empty()) {
        return;
    }
    const LONG left = toScale(kGroupCaptionX);
    const RECT caption = {left, 0, std::min(left + size.cx, client.right - left), size.cy};
    RECT gap = caption;
    InflateRect(&gap, toScale(kGroupCaptionPad), 0);
    FillRect(dc, &gap, ground);
    drawCaption(dc, text, caption, DT_LEFT | DT_SINGLELINE, isEnabled());
}

}  // namespace platform
