// How the track bar looks: a sunken channel under a raised thumb, which is dotted while it is held or disabled. The
// parent may have a say in each step (NM_CUSTOMDRAW).
#include "platform/controls/control_base.h"
#include "platform/controls/control_colours.h"
#include "platform/controls/track_bar.h"
#include "platform/graphics/scale.h"

namespace platform {
namespace {

// All that a painting needs of the control, which the parent may destroy meanwhile.
struct Painter {
    HWND window;
    RECT client;
    RECT channel;
    RECT thumb;
    bool held;
    NMCUSTOMDRAW asked;

    // The parent's answer at that stage; one that has destroyed the control wants no more of it.
    LRESULT ask(DWORD stage) {
        asked.dwDrawStage = stage;
        const LRESULT answer =
            SendMessageA(GetParent(window), WM_NOTIFY, asked.hdr.idFrom, reinterpret_cast<LPARAM>(&asked));
        return IsWindow(window) ? answer : CDRF_SKIPDEFAULT;
    }
    void paint();
    bool erase(bool asks);
    // Paints one part, with what the parent answers before and after it.
    bool paintItem(DWORD_PTR item, const RECT& rect, bool asks);
    void paintThumb() const;
};

void Painter::paint() {
    const LRESULT answer = ask(CDDS_PREPAINT);
    const bool asks = (answer & CDRF_NOTIFYITEMDRAW) != 0;
    if ((answer & CDRF_SKIPDEFAULT) || !erase(asks) || !paintItem(TBCD_CHANNEL, channel, asks) ||
        !paintItem(TBCD_THUMB, thumb, asks)) {
        return;
    }
    if (GetFocus() == window) {
        DrawFocusRect(asked.hdc, &client);
    }
    if (answer & CDRF_NOTIFYPOSTPAINT) {
        ask(CDDS_POSTPAINT);
    }
}

bool Painter::erase(bool asks) {
    if (asks && (ask(CDDS_PREERASE) & CDRF_SKIPDEFAULT)) {
        return IsWindow(window) != 0;
    }
    FillRect(asked.hdc, &client, askColours(GetParent(window), window, asked.hdc, WM_CTLCOLORSTATIC));
    if (asks && IsWindow(window)) {
        ask(CDDS_POSTERASE);
    }
    return IsWindow(window) != 0;
}

bool Painter::paintItem(DWORD_PTR item, const RECT& rect, bool asks) {
    LRESULT answer = CDRF_DODEFAULT;
    if (asks) {
        asked.dwItemSpec = item;
        asked.rc = rect;
        asked.uItemState = held && item == TBCD_THUMB ? CDIS_HOT : CDIS_DEFAULT;
        answer = ask(CDDS_ITEMPREPAINT);
    }
    if (!(answer & CDRF_SKIPDEFAULT)) {
        if (item == TBCD_THUMB) {
            paintThumb();
        } else {
            RECT edge = rect;
            DrawEdge(asked.hdc, &edge, EDGE_SUNKEN, BF_RECT);
        }
    }
    if ((answer & CDRF_NOTIFYPOSTPAINT) && IsWindow(window)) {
        ask(CDDS_ITEMPOSTPAINT);
    }
    return IsWindow(window) != 0;
}

void Painter::paintThumb() const {
    RECT edge = thumb;
    DrawEdge(asked.hdc, &edge, EDGE_RAISED, BF_RECT | BF_SOFT | BF_MIDDLE);
    if (!held && IsWindowEnabled(window)) {
        return;
    }
    const int edgeWidth = 2 * lineWidth();
    const COLORREF dot = GetSysColor(COLOR_3DHIGHLIGHT);
    for (LONG y = thumb.top + edgeWidth; y < thumb.bottom - edgeWidth; ++y) {
        for (LONG x = thumb.left + edgeWidth; x < thumb.right - edgeWidth; ++x) {
            if ((x + y) % 2 != 0) {
                SetPixel(asked.hdc, static_cast<int>(x), static_cast<int>(y), dot);
            }
        }
    }
}

}  // namespace

void TrackBar::onWmPaint(HDC given) const {
    Painter painter{};
    painter.window = window_;
    GetClientRect(window_, &painter.client);
    painter.channel = channelRect();
    painter.thumb = thumbRect();
    painter.held = tracking_ == Tracking::Thumb;
    painter.asked.hdr = {window_, static_cast<UINT_PTR>(GetDlgCtrlID(window_)), NM_CUSTOMDRAW};
    painter.asked.rc = painter.client;
    paintControl(window_, given, [&painter](HDC dc) {
        painter.asked.hdc = dc;
        painter.paint();
    });
}

}  // namespace platform
