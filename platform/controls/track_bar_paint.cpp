// How the track bar looks: a sunken channel under a raised thumb, which is dotted while it is held or disabled.
#include "platform/controls/control_base.h"
#include "platform/controls/control_colours.h"
#include "platform/controls/track_bar.h"
#include "platform/graphics/scale.h"

namespace platform {
namespace {

void paintThumb(HDC dc, const RECT& thumb, bool dotted) {
    RECT edge = thumb;
    DrawEdge(dc, &edge, EDGE_RAISED, BF_RECT | BF_SOFT | BF_MIDDLE);
    if (!dotted) {
        return;
    }
    const int edgeWidth = 2 * lineWidth();
    const COLORREF dot = GetSysColor(COLOR_3DHIGHLIGHT);
    for (LONG y = thumb.top + edgeWidth; y < thumb.bottom - edgeWidth; ++y) {
        for (LONG x = thumb.left + edgeWidth; x < thumb.right - edgeWidth; ++x) {
            if ((x + y) % 2 != 0) {
                SetPixel(dc, static_cast<int>(x), static_cast<int>(y), dot);
            }
        }
    }
}

}  // namespace

// The parent may destroy the control when it is asked for its colours.
void TrackBar::onWmPaint(HDC given) const {
    const HWND window = window_;
    RECT client;
    GetClientRect(window, &client);
    RECT channel = channelRect();
    const RECT thumb = thumbRect();
    const bool held = tracking_ == Tracking::Thumb;
    paintControl(window, given, [&](HDC dc) {
        FillRect(dc, &client, askColours(GetParent(window), window, dc, WM_CTLCOLORSTATIC));
        DrawEdge(dc, &channel, EDGE_SUNKEN, BF_RECT);
        paintThumb(dc, thumb, held || !IsWindowEnabled(window));
        if (GetFocus() == window) {
            DrawFocusRect(dc, &client);
        }
    });
}

}  // namespace platform
