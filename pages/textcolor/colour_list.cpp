// The colour lists.
#include "pages/textcolor/colour_list.h"

#include <array>
#include <charconv>
#include <iterator>

#include "core/colour_swatch.h"
#include "core/field_messages.h"
#include "core/palette.h"
#include "core/pixels.h"
#include "resources/resource.h"

namespace {

// Positions in the table of pictures. Those behind the swatch, of the colours 2 to 7, are loaded with the others though
// every swatch is drawn from the first.
enum Picture { kByBlock, kByLayer, kSwatch };

constexpr UINT kPictureIds[] = {IDB_BY_BLOCK,      IDB_BY_LAYER,       IDB_SWATCH,
                                IDB_SWATCH_YELLOW, IDB_SWATCH_GREEN,   IDB_SWATCH_CYAN,
                                IDB_SWATCH_BLUE,   IDB_SWATCH_MAGENTA, IDB_SWATCH_BLACK_WHITE};
CBitmap g_pictures[std::size(kPictureIds)];

constexpr int kColourByLayer = 256;
constexpr int kLastNamedColour = IDS_COLOUR_BLACK_WHITE;

// From the upper edge of an item to its label.
constexpr int kLabelTop = 3;

struct Item {
    Picture picture;
    int colour;
    UINT name;  // 0 for none
};

Item ItemAt(UINT list, int position) {
    if (list != IDC_LINE_COLOUR && position < 2) {
        return position == 0 ? Item{kByBlock, 0, IDS_BY_BLOCK} : Item{kByLayer, kColourByLayer, IDS_BY_LAYER};
    }
    const int colour = list == IDC_LINE_COLOUR ? position + 1 : position - 1;
    // The names' strings have the numbers of their colours.
    return {kSwatch, colour, colour <= kLastNamedColour ? static_cast<UINT>(colour) : 0};
}

CString LabelOf(const Item& item) {
    CString label;
    if (item.name != 0) {
        label.Format("%s (%d) ", LoadText(item.name).GetString(), item.colour);
    } else {
        label.Format("(%d) ", item.colour);
    }
    return label;
}

}  // namespace

void LoadColourBitmaps(HINSTANCE module) {
    for (size_t i = 0; i < std::size(kPictureIds); ++i) {
        g_pictures[i].DeleteObject();
        g_pictures[i].Attach(::LoadBitmapA(module, MAKEINTRESOURCEA(kPictureIds[i])));
    }
}

void FillColourList(CComboBox& list, int count) {
    list.ResetContent();
    for (int i = 1; i <= count; ++i) {
        std::array<char, 8> text{};
        std::to_chars(text.begin(), text.end() - 1, i);
        list.AddString(text.data());
    }
}

void FitColourField(CComboBox& list) {
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    TEXTMETRICA metrics{};
    CClientDC context(&list);
    const CSelectObject selected(context, reinterpret_cast<HFONT>(list.SendMessage(WM_GETFONT)));
    if (list.SendMessage(CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info)) == 0 ||
        !::GetTextMetricsA(context.GetSafeHdc(), &metrics)) {
        return;
    }
    // What is drawn keeps off the field's edges.
    constexpr int kFieldEdge = 1;
    const int height = kLabelTop + metrics.tmHeight;
    if (info.rcItem.bottom - info.rcItem.top - 2 * kFieldEdge < height) {
        list.SendMessage(CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), height);
    }
}

void DrawColourItem(const DRAWITEMSTRUCT& draw) {
    const int position = static_cast<int>(draw.itemID);
    // The field of a list without a selection is position -1.
    CDC* const context = CDC::FromHandle(draw.hDC);
    if (position < 0 || position >= kFullListItems || context == nullptr) {
        return;
    }
    const Item item = ItemAt(draw.CtlID, position);
    CDC& target = *context;
    const CBitmap& picture = g_pictures[item.picture];
    if (item.picture == kSwatch) {
        DrawItemSwatch(picture, target, draw.rcItem, GetAciColor(item.colour));
    } else {
        DrawItemBitmap(picture, target, draw.rcItem);
    }
    // From the context's origin, so that the labels of field and list are in line with each other.
    constexpr int kLabelLeft = 16 + 4;
    target.TextOut(ScaledPixels(target, kLabelLeft), draw.rcItem.top + kLabelTop, LabelOf(item));
}
