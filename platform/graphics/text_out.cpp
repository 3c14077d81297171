// Drawing and measuring of single lines. Text is aligned to its upper left corner only.
#include "platform/graphics/text_out.h"

#include <windows.h>

#include <array>

namespace platform {

namespace {

int advanceOf(SizedFont& font, std::string_view text, const INT* advances, std::size_t index) {
    return advances != nullptr ? advances[index] : font.glyph(text[index]).advance;
}

std::int64_t totalWidth(SizedFont& font, std::string_view text, const INT* advances) {
    std::int64_t width = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        width += advanceOf(font, text, advances, i);
    }
    return width;
}

// Calls use(glyph, x) for each character with the pen position of it.
template <class Use>
void forEachGlyph(SizedFont& font, POINT at, std::string_view text, const INT* advances, Use use) {
    int x = at.x;
    for (std::size_t i = 0; i < text.size(); ++i) {
        use(font.glyph(text[i]), x);
        x = limited(std::int64_t{x} + advanceOf(font, text, advances, i));
    }
}

RECT glyphBox(const Glyph& glyph, int x, int baseline) {
    return {x + glyph.left, baseline - glyph.top, x + glyph.left + glyph.width, baseline - glyph.top + glyph.height};
}

// Mixes by weight, red and blue at once: each has a byte of room above it.
Pixel mixed(Pixel under, Pixel over, unsigned weight) {
    constexpr Pixel kRedBlue = 0x00FF00FF;
    constexpr Pixel kGreen = 0x0000FF00;
    const unsigned rest = InkedPixel::kFullWeight - weight;
    const Pixel redBlue = ((under & kRedBlue) * rest + (over & kRedBlue) * weight) >> 8;
    const Pixel green = ((under & kGreen) * rest + (over & kGreen) * weight) >> 8;
    return (redBlue & kRedBlue) | (green & kGreen);
}

// All mixtures of an ink and a ground. Most text stands on one ground, and there are few of both.
struct Mixtures {
    Pixel ink = 0;
    Pixel ground = 0;
    std::array<Pixel, InkedPixel::kFullWeight + 1> byWeight{};
};

const Mixtures& mixturesOf(Pixel ink, Pixel ground) {
    static std::array<Mixtures, 8> known;
    static std::size_t oldest = 0;
    for (const Mixtures& mixtures : known) {
        if (mixtures.ink == ink && mixtures.ground == ground) {
            return mixtures;
        }
    }
    Mixtures& mixtures = known[oldest];
    oldest = (oldest + 1) % known.size();
    mixtures.ink = ink;
    mixtures.ground = ground;
    for (unsigned weight = 0; weight <= InkedPixel::kFullWeight; ++weight) {
        mixtures.byWeight[weight] = mixed(ground, ink, weight);
    }
    return mixtures;
}

void drawGlyph(Surface& surface, const Glyph& glyph, const RECT& box, const RECT& part, Pixel colour) {
    const RECT visible = overlapOf(box, part);
    if (isEmpty(visible)) {
        return;
    }
    const bool isWhole = EqualRect(&visible, &box) != FALSE;
    const Mixtures& mixtures = mixturesOf(colour, surface.row(visible.top)[visible.left]);
    Pixel* const pixels = surface.row(0);
    const std::ptrdiff_t stride = surface.width();
    const std::ptrdiff_t origin = box.top * stride + box.left;
    for (const InkedPixel& inked : glyph.ink) {
        if (isWhole || PtInRect(&visible, {box.left + inked.x, box.top + inked.y})) {
            Pixel& pixel = pixels[origin + inked.y * stride + inked.x];
            pixel = pixel == mixtures.ground ? mixtures.byWeight[inked.weight] : mixed(pixel, colour, inked.weight);
        }
    }
}

}  // namespace

void drawText(DeviceContext& dc, POINT at, std::string_view text, const INT* advances, const RECT& limit) {
    if (dc.surface() == nullptr || text.empty()) {
        return;
    }
    SizedFont& font = sizedFont(*dc.state().font);
    if (dc.state().backMode == OPAQUE) {
        const RECT cell = {at.x, at.y, limited(at.x + totalWidth(font, text, advances)), at.y + font.height()};
        fillArea(dc, overlapOf(cell, limit), pixelOf(dc.state().backColour));
    }
    const int baseline = at.y + font.ascent();
    RECT ink = {kFarthest, kFarthest, -kFarthest, -kFarthest};
    forEachGlyph(font, at, text, advances, [&](const Glyph& glyph, int x) {
        if (!glyph.ink.empty()) {
            const RECT box = glyphBox(glyph, x, baseline);
            ink = {std::min(ink.left, box.left), std::min(ink.top, box.top), std::max(ink.right, box.right),
                   std::max(ink.bottom, box.bottom)};
        }
    });
    const Pixel colour = pixelOf(dc.state().textColour);
    paintVisible(dc, overlapOf(ink, limit), [&](const RECT& part) {
        forEachGlyph(font, at, text, advances, [&](const Glyph& glyph, int x) {
            if (!glyph.ink.empty()) {
                drawGlyph(*dc.surface(), glyph, glyphBox(glyph, x, baseline), part, colour);
            }
        });
    });
}

}  // namespace platform

using namespace platform;

BOOL TextOutA(HDC dc, int x, int y, LPCSTR text, int length) {
    return length >= 0 && ExtTextOutA(dc, x, y, 0, nullptr, text, static_cast<UINT>(length), nullptr);
}

BOOL ExtTextOutA(HDC handle, int x, int y, UINT options, LPCRECT rect, LPCSTR text, UINT length, const INT* advances) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || (text == nullptr && length > 0)) {
        return FALSE;
    }
    RECT limit = kNoLimit;
    if (rect != nullptr && (options & (ETO_OPAQUE | ETO_CLIPPED)) != 0) {
        const RECT area = toSurface(*dc, rect->left, rect->top, rect->right, rect->bottom);
        if ((options & ETO_OPAQUE) != 0) {
            fillArea(*dc, area, pixelOf(dc->state().backColour));
        }
        limit = (options & ETO_CLIPPED) != 0 ? area : limit;
    }
    drawText(*dc, toSurface(*dc, x, y), {text, length}, advances, limit);
    return TRUE;
}

BOOL GetTextExtentPoint32A(HDC dc, LPCSTR text, int length, LPSIZE size) {
    return GetTextExtentExPointA(dc, text, length, 0, nullptr, nullptr, size);
}

BOOL GetTextExtentExPointA(HDC handle, LPCSTR text, int length, int maxExtent, LPINT fit, LPINT extents, LPSIZE size) {
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || size == nullptr || length < 0 || (text == nullptr && length > 0)) {
        return FALSE;
    }
    SizedFont& font = sizedFont(*dc->state().font);
    int width = 0;
    int fitting = 0;
    for (int i = 0; i < length; ++i) {
        width = limited(std::int64_t{width} + font.glyph(text[i]).advance);
        fitting += width <= maxExtent ? 1 : 0;
        if (extents != nullptr && (fit == nullptr || width <= maxExtent)) {
            extents[i] = width;
        }
    }
    if (fit != nullptr) {
        *fit = fitting;
    }
    // The system gives an empty text no height either.
    *size = {width, length > 0 ? font.height() : 0};
    return TRUE;
}

BOOL GetTextMetricsA(HDC handle, LPTEXTMETRICA metrics) {
    constexpr BYTE kVariablePitchOutlineSwiss = 0x27;
    DeviceContext* dc = contextFromHandle(handle);
    if (dc == nullptr || metrics == nullptr) {
        return FALSE;
    }
    SizedFont& font = sizedFont(*dc->state().font);
    *metrics = {};
    metrics->tmHeight = font.height();
    metrics->tmAscent = font.ascent();
    metrics->tmDescent = font.height() - font.ascent();
    metrics->tmInternalLeading = font.height() - font.emHeight();
    metrics->tmAveCharWidth = font.averageWidth();
    metrics->tmMaxCharWidth = std::max<int>(font.glyph('W').advance, font.glyph('@').advance);
    metrics->tmWeight = font.bold() ? FW_BOLD : FW_NORMAL;
    metrics->tmDigitizedAspectX = GetDeviceCaps(handle, LOGPIXELSX);
    metrics->tmDigitizedAspectY = GetDeviceCaps(handle, LOGPIXELSY);
    metrics->tmFirstChar = ' ';
    metrics->tmLastChar = 0xFF;
    metrics->tmDefaultChar = '?';
    metrics->tmBreakChar = ' ';
    metrics->tmPitchAndFamily = kVariablePitchOutlineSwiss;
    metrics->tmCharSet = ANSI_CHARSET;
    return TRUE;
}
