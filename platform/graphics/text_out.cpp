// Drawing and measuring of single lines. Text is aligned to its upper left corner only.
#include "platform/graphics/text_out.h"

#include <windows.h>

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

constexpr BYTE kFullCoverage = 255;

// Mixes by coverage, red and blue at once: each has a byte of room above it.
Pixel mixed(Pixel under, Pixel over, unsigned coverage) {
    constexpr Pixel kRedBlue = 0x00FF00FF;
    constexpr Pixel kGreen = 0x0000FF00;
    const unsigned weight = coverage + (coverage >> 7);  // 0 to 256.
    const Pixel redBlue = ((under & kRedBlue) * (256 - weight) + (over & kRedBlue) * weight) >> 8;
    const Pixel green = ((under & kGreen) * (256 - weight) + (over & kGreen) * weight) >> 8;
    return (redBlue & kRedBlue) | (green & kGreen);
}

void drawGlyph(Surface& surface, const Glyph& glyph, const RECT& box, const RECT& part, Pixel colour) {
    const RECT visible = overlapOf(box, part);
    for (int y = visible.top; y < visible.bottom; ++y) {
        const BYTE* coverage = glyph.coverage.get() + static_cast<std::ptrdiff_t>(y - box.top) * glyph.width - box.left;
        Pixel* row = surface.row(y);
        for (int x = visible.left; x < visible.right; ++x) {
            if (coverage[x] == kFullCoverage) {
                row[x] = colour;
            } else if (coverage[x] != 0) {
                row[x] = mixed(row[x], colour, coverage[x]);
            }
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
        if (glyph.coverage != nullptr) {
            const RECT box = glyphBox(glyph, x, baseline);
            ink = {std::min(ink.left, box.left), std::min(ink.top, box.top), std::max(ink.right, box.right),
                   std::max(ink.bottom, box.bottom)};
        }
    });
    const Pixel colour = pixelOf(dc.state().textColour);
    paintVisible(dc, overlapOf(ink, limit), [&](const RECT& part) {
        forEachGlyph(font, at, text, advances, [&](const Glyph& glyph, int x) {
            if (glyph.coverage != nullptr) {
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
