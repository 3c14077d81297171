// Painting of combo boxes: the sunken edge, the drop-down button, and the selection of one without an edit.
#include "platform/controls/combo_box.h"
#include "platform/controls/control_base.h"
#include "platform/controls/control_colours.h"
#include "platform/graphics/scale.h"

namespace platform {

void ComboBox::onWmPaint(HDC given) {
    paintControl(window_, given, [this](HDC dc) { paint(dc); });
}

void ComboBox::paint(HDC dc) {
    RECT client;
    GetClientRect(window_, &client);
    const HWND window = window_;
    DrawEdge(dc, &client, EDGE_SUNKEN, BF_RECT);
    if (RectVisible(dc, &button_)) {
        RECT button = button_;
        DrawFrameControl(
            dc, &button, DFC_SCROLL,
            DFCS_SCROLLCOMBOBOX | (buttonDown_ ? DFCS_PUSHED : 0U) | (IsWindowEnabled(window) ? 0U : DFCS_INACTIVE));
    }
    const SelectedFont font(dc, font_);
    paintText(dc);
}

void ComboBox::paintText(HDC dc) {
    const bool enabled = IsWindowEnabled(window_) != FALSE;
    const UINT question = !enabled ? WM_CTLCOLORSTATIC : edit_ ? WM_CTLCOLOREDIT : WM_CTLCOLORLISTBOX;
    const HBRUSH background = askColours(GetParent(window_), window_, dc, question);
    RECT field;
    GetClientRect(window_, &field);
    InflateRect(&field, -GetSystemMetrics(SM_CXEDGE), -GetSystemMetrics(SM_CYEDGE));
    field.right = button_.left;
    if (edit_) {
        ExcludeClipRect(dc, item_.left, item_.top, item_.right, item_.bottom);
        FillRect(dc, &field, background);
        return;
    }
    if (!RectVisible(dc, &field)) {
        return;
    }
    FillRect(dc, &field, background);
    InflateRect(&field, -toScale(1), -toScale(1));
    const bool marked = focused_ && !open_;
    if (!enabled) {
        SetTextColor(dc, GetSysColor(COLOR_GRAYTEXT));
    }
    if (has(CBS_OWNERDRAWFIXED)) {
        drawOwnerText(dc, field, marked);
        return;
    }
    if (marked) {
        SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
        SetBkColor(dc, GetSysColor(COLOR_HIGHLIGHT));
    }
    const std::string text = currentText();
    ExtTextOutA(dc, static_cast<int>(field.left) + toScale(1), static_cast<int>(field.top) + toScale(2) - toScale(1),
                ETO_OPAQUE | ETO_CLIPPED, &field, text.data(), static_cast<UINT>(text.size()), nullptr);
    if (marked) {
        DrawFocusRect(dc, &field);
    }
}

// The parent draws the shown entry; number -1 when none is selected.
void ComboBox::drawOwnerText(HDC dc, RECT rect, bool marked) {
    const auto current = static_cast<int>(askList(LB_GETCURSEL));
    DRAWITEMSTRUCT draw{};
    draw.itemID = static_cast<UINT>(current);
    draw.itemAction = ODA_DRAWENTIRE;
    draw.itemState =
        ODS_COMBOBOXEDIT | (marked ? ODS_SELECTED | ODS_FOCUS : 0U) | (IsWindowEnabled(window_) ? 0U : ODS_DISABLED);
    draw.hDC = dc;
    draw.rcItem = rect;
    draw.itemData = static_cast<ULONG_PTR>(askList(LB_GETITEMDATA, static_cast<WPARAM>(current)));
    const int saved = SaveDC(dc);
    IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    onWmDrawItem(draw);
    RestoreDC(dc, saved);
}

}  // namespace platform
