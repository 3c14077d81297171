// What the items of the colour lists look like, pixel by pixel.
#include <gtest/gtest.h>

#include "pages/textcolor/colour_list.h"
#include "resources/resource.h"
#include "tests/support/canvas.h"

namespace {

constexpr int kWidth = 140;
constexpr RECT kItem = {30, 7, kWidth, 28};  // High enough for pictures of their own size.
constexpr int kHeight = 40;

std::string Difference(const Canvas& a, const Canvas& b) {
    for (int y = 0; y < kHeight; ++y) {
        for (int x = 0; x < kWidth; ++x) {
            if (a.at(x, y) != b.at(x, y)) {
                return "at " + std::to_string(x) + ", " + std::to_string(y);
            }
        }
    }
    return "";
}

TEST(ColourLists, DrawPictureNameAndNumber) {
    struct Case {
        UINT list;
        int position;
        UINT bitmap;
        COLORREF interior;
        const char* label;
    };
    const Case cases[] = {
        {IDC_ATTRIBUTE_COLOUR, 0, IDB_BY_BLOCK, 0, "ByBlock (0) "},
        {IDC_DESIGNATION_COLOUR, 1, IDB_BY_LAYER, 0, "ByLayer (256) "},
        {IDC_ATTRIBUTE_COLOUR, 8, IDB_SWATCH, RGB(255, 255, 255), "Svart/Vit (7) "},
        {IDC_DESIGNATION_COLOUR, 9, IDB_SWATCH, RGB(128, 128, 128), "(8) "},
        {IDC_LINE_COLOUR, 1, IDB_SWATCH, RGB(255, 255, 0), "Gul (2) "},
        {IDC_LINE_COLOUR, 254, IDB_SWATCH, RGB(255, 255, 255), "(255) "},
    };
    LoadColourBitmaps(AfxGetResourceHandle());
    for (const Case& c : cases) {
        SCOPED_TRACE(c.label);
        const Canvas drawn(kWidth, kHeight);
        DRAWITEMSTRUCT item{};
        item.CtlID = c.list;
        item.itemID = static_cast<UINT>(c.position);
        item.itemState = ODS_SELECTED | ODS_FOCUS;
        item.hDC = drawn;
        item.rcItem = kItem;
        DrawColourItem(item);

        Canvas expected(kWidth, kHeight);
        CDC context;
        context.Attach(expected);
        CBitmap bitmap;
        ASSERT_TRUE(bitmap.LoadBitmap(c.bitmap));
        CDC source;
        source.CreateCompatibleDC(&context);
        const CSelectObject selected(source, bitmap.GetSafeHandle());
        context.BitBlt(kItem.left + 3, kItem.top + 3, 16, 16, &source, 0, 0, SRCCOPY);
        if (c.bitmap == IDB_SWATCH) {
            const RECT interior = {kItem.left + 4, kItem.top + 4, kItem.left + 18, kItem.top + 18};
            expected.fill(interior, c.interior);
        }
        // From the context's edge, even over the picture.
        context.TextOut(20, kItem.top + 3, c.label);
        context.Detach();
        EXPECT_EQ(Difference(drawn, expected), "");
    }
}

// The items of finer screens are higher, and so are the pictures and their frames.
TEST(ColourLists, FillTheWholeInteriorOfALargeSwatch) {
    constexpr int kSide = 36;
    const Canvas drawn(kWidth, kWidth);
    DRAWITEMSTRUCT item{};
    item.CtlID = IDC_LINE_COLOUR;
    item.itemID = 1;
    item.hDC = drawn;
    item.rcItem = {100, 7, kWidth, 7 + kSide + 5};
    DrawColourItem(item);
    const int inside = drawn.count(RGB(255, 255, 0), 100, kWidth);
    EXPECT_GT(inside, (kSide - 6) * (kSide - 6));
    EXPECT_EQ(drawn.count(kRed, 0, kWidth), 0);
    EXPECT_EQ(drawn.count(kBlack, 103, 103 + kSide) + inside, kSide * kSide);
}

TEST(ColourLists, DrawNothingForWhatIsNoItem) {
    for (const int position : {-1, 257, 70000}) {
        const Canvas drawn(kWidth, kHeight);
        DRAWITEMSTRUCT item{};
        item.CtlID = IDC_ATTRIBUTE_COLOUR;
        item.itemID = static_cast<UINT>(position);
        item.hDC = drawn;
        item.rcItem = kItem;
        DrawColourItem(item);
        EXPECT_EQ(Difference(drawn, Canvas(kWidth, kHeight)), "") << position;
    }
}

}  // namespace
