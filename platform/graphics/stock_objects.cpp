// Objects that are always there and belong to nobody.
#include "platform/graphics/stock_objects.h"

#include "platform/graphics/window_dc.h"

namespace platform {

namespace {

struct StockEntry {
    int index;
    GdiObject* object;
};

HGDIOBJ stockHandle(int index) {
    static const auto brush = [](Pixel colour, bool hollow = false) -> GdiObject* {
        return &makePermanent(std::make_unique<Brush>(colour, hollow));
    };
    static const auto pen = [](int style, Pixel colour) -> GdiObject* {
        return &makePermanent(std::make_unique<Pen>(style, 1, colour));
    };
    static const StockEntry kStock[] = {
        {WHITE_BRUSH, brush(kWhite)},       {LTGRAY_BRUSH, brush(0x00C0C0C0)}, {GRAY_BRUSH, brush(0x00808080)},
        {BLACK_BRUSH, brush(kBlack)},       {NULL_BRUSH, brush(kBlack, true)}, {WHITE_PEN, pen(PS_SOLID, kWhite)},
        {BLACK_PEN, pen(PS_SOLID, kBlack)}, {NULL_PEN, pen(PS_NULL, kBlack)},  {SYSTEM_FONT, &defaultFont()},
        {DEFAULT_GUI_FONT, &defaultFont()},
    };
    for (const auto& entry : kStock) {
        if (entry.index == index) {
            return entry.object->handle;
        }
    }
    return nullptr;
}

}  // namespace

Pen& defaultPen() {
    static Pen& pen = *findObject<Pen>(stockHandle(BLACK_PEN));
    return pen;
}

Brush& defaultBrush() {
    static Brush& brush = *findObject<Brush>(stockHandle(WHITE_BRUSH));
    return brush;
}

Font& defaultFont() {
    constexpr int kDialogPointSize = 8;
    static Font& font = *findObject<Font>(dialogFont(kDialogPointSize));
    return font;
}

}  // namespace platform

HGDIOBJ GetStockObject(int index) {
    return platform::stockHandle(index);
}
