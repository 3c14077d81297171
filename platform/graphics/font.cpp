#include "platform/graphics/font.h"

#include "platform/graphics/font_files.h"
#include "platform/graphics/scale.h"
#include "platform/graphics/window_dc.h"
#include "platform/resources/code_page.h"

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H

#include <algorithm>
#include <cmath>
#include <cstring>
#include <vector>

namespace platform {

namespace {

constexpr int kPointsPerInch = 72;

// The usual dialog font at 96 dots per inch. Sizes without a face are in proportion to it.
constexpr int kDialogPoints = 8;
constexpr int kDialogEm = 11;
constexpr int kDialogHeight = 13;
constexpr int kDialogAverageWidth = 6;

constexpr const char* kUsualFamily = "Liberation Sans";

// Captions that fill their place in the dialogs, and how long they are in the usual font.
struct TightCaption {
    const char* text;
    double ems;
};
constexpr TightCaption kTightCaptions[] = {
    {"Attribut", 3.168}, {"apparatrader", 5.726}, {"(standard)", 4.558}, {"OBS! En rds-fil", 6.613}};

// By which the real system finds the average width of a dialog font's characters.
constexpr std::string_view kMeasuredLetters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";

constexpr int kLargestEm = 400;

int inProportion(int em, int ofDialogFont) {
    return std::max(1, (em * ofDialogFont + kDialogEm / 2) / kDialogEm);
}

// The two faces, opened when first needed and kept: the cached glyphs of a size are added one by one.
class Faces {
public:
    FT_Face face(bool bold) {
        if (!searched_) {
            search();
        }
        return bold ? bold_ : regular_;
    }

private:
    void search() {
        searched_ = true;
        if (FT_Init_FreeType(&library_) != 0) {
            return;
        }
        // Stems on whole pixels in both directions: the later interpreter leaves them blurred at this size.
        FT_UInt interpreter = 35;
        FT_Property_Set(library_, "truetype", "interpreter-version", &interpreter);
        const FontFiles files = findFontFiles();
        regular_ = open(files.regular);
        bold_ = open(files.bold);
        bold_ = bold_ == nullptr ? regular_ : bold_;
    }

    FT_Face open(const std::string& path) {
        FT_Face face = nullptr;
        const bool opened = !path.empty() && FT_New_Face(library_, path.c_str(), 0, &face) == 0;
        return opened && FT_IS_SCALABLE(face) ? face : nullptr;
    }

    bool searched_ = false;
    FT_Library library_ = nullptr;
    FT_Face regular_ = nullptr;
    FT_Face bold_ = nullptr;
};

// Both stay until the process ends: text may be drawn from a host's last destructors.
Faces& faces() {
    static auto* theFaces = new Faces;
    return *theFaces;
}

std::vector<std::unique_ptr<SizedFont>>& sizedFonts() {
    static auto* fonts = new std::vector<std::unique_ptr<SizedFont>>;
    return *fonts;
}

int emOfPoints(int points, int dots) {
    return (std::clamp(points, 1, kLargestEm) * dots + kPointsPerInch / 2) / kPointsPerInch;
}

// A positive height is that of the line, a negative one that of the characters, as documented.
int emOf(const LOGFONTA& font) {
    constexpr int kLargestHeight = 2 * kLargestEm;
    const int height = std::clamp(font.lfHeight, -kLargestHeight, kLargestHeight);
    if (height == 0) {
        return emOfPoints(kDialogPoints, dotsPerInch());
    }
    const int em = height < 0 ? -height : (height * kDialogEm + kDialogHeight / 2) / kDialogHeight;
    return std::clamp(em, 1, kLargestEm);
}

// The weights from semi-bold up are drawn with the bold face.
bool isBold(const LOGFONTA& font) {
    return font.lfWeight > (FW_NORMAL + FW_BOLD) / 2;
}

struct LineMetrics {
    int height;
    int ascent;
};

LineMetrics lineMetricsOf(FT_Face face, int em) {
    if (face == nullptr || face->units_per_EM == 0) {
        return {inProportion(em, kDialogHeight), inProportion(em, kDialogHeight - 3)};
    }
    const auto pixels = [&](int fontUnits) {
        return static_cast<int>(std::ceil(static_cast<double>(fontUnits) * em / face->units_per_EM));
    };
    // A few fonts claim lines many times their size, and others none.
    const int ascent = std::clamp(pixels(face->ascender), (em + 1) / 2, 2 * em);
    return {ascent + std::clamp(pixels(-face->descender), 0, em), ascent};
}

// FreeType measures in 64ths of a pixel.
short wholePixels(FT_Pos position) {
    return static_cast<short>((position + 32) / 64);
}

SizedFont& fontOfSize(int em, bool bold) {
    auto& fonts = sizedFonts();
    auto found = std::find_if(fonts.begin(), fonts.end(), [em, bold](const std::unique_ptr<SizedFont>& candidate) {
        return candidate->emHeight() == em && candidate->bold() == bold;
    });
    if (found == fonts.end()) {
        fonts.push_back(std::make_unique<SizedFont>(faces().face(bold), em, bold));
        found = std::prev(fonts.end());
    }
    return **found;
}

// The dialogs were drawn up for the usual font at its usual size. Another one may have wide small letters beside narrow
// capitals, so that its average would cut captions off.
SIZE baseUnitsOf(int em) {
    SizedFont& font = fontOfSize(em, false);
    double needed = 0;
    if (!font.isUsual() || em != kDialogEm) {
        for (const TightCaption& caption : kTightCaptions) {
            needed = std::max(needed, font.width(caption.text) / caption.ems);
        }
    }
    const int forCaptions = static_cast<int>(std::ceil(needed * kDialogAverageWidth / kDialogEm));
    return {std::max(font.averageWidth(), forCaptions), font.height()};
}

std::vector<InkedPixel> inkOf(const FT_Bitmap& bitmap) {
    std::vector<InkedPixel> ink;
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        const unsigned char* row = bitmap.buffer + static_cast<std::ptrdiff_t>(y) * bitmap.pitch;
        for (unsigned x = 0; x < bitmap.width; ++x) {
            if (row[x] != 0) {
                const int weight = row[x] + (row[x] >> 7);  // 255 is full.
                ink.push_back({static_cast<short>(x), static_cast<short>(y), static_cast<unsigned short>(weight)});
            }
        }
    }
    return ink;
}

}  // namespace

SizedFont::SizedFont(FT_Face face, int emHeight, bool bold)
    : face_(face),
      emHeight_(emHeight),
      bold_(bold),
      height_(lineMetricsOf(face, emHeight).height),
      ascent_(lineMetricsOf(face, emHeight).ascent) {}

bool SizedFont::isUsual() const {
    return face_ == nullptr || face_->family_name == nullptr || std::strcmp(face_->family_name, kUsualFamily) == 0;
}

int SizedFont::averageWidth() {
    if (averageWidth_ == 0) {
        const auto letters = static_cast<int>(kMeasuredLetters.size());
        averageWidth_ = face_ == nullptr ? inProportion(emHeight_, kDialogAverageWidth)
                                         : std::max(1, (2 * width(kMeasuredLetters) / letters + 1) / 2);
    }
    return averageWidth_;
}

void SizedFont::load(unsigned char character, Glyph& glyph) {
    glyph.loaded = true;
    glyph.advance = static_cast<short>(inProportion(emHeight_, kDialogAverageWidth));
    if (face_ == nullptr || FT_Set_Pixel_Sizes(face_, 0, static_cast<FT_UInt>(emHeight_)) != 0 ||
        FT_Load_Char(face_, characterOfByte(character), FT_LOAD_RENDER | FT_LOAD_TARGET_NORMAL | FT_LOAD_NO_BITMAP) !=
            0) {
        return;
    }
    const FT_GlyphSlot slot = face_->glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    glyph.advance = wholePixels(slot->advance.x);
    if (bitmap.pixel_mode != FT_PIXEL_MODE_GRAY || bitmap.width == 0 || bitmap.rows == 0) {
        return;
    }
    glyph.left = static_cast<short>(slot->bitmap_left);
    glyph.top = static_cast<short>(slot->bitmap_top);
    glyph.width = static_cast<short>(bitmap.width);
    glyph.height = static_cast<short>(bitmap.rows);
    glyph.ink = inkOf(bitmap);
}

int SizedFont::width(std::string_view text) {
    std::int64_t sum = 0;
    for (const char character : text) {
        sum += glyph(character).advance;
    }
    return static_cast<int>(std::min<std::int64_t>(sum, INT32_MAX));
}

SizedFont& sizedFont(Font& font) {
    if (font.sized == nullptr) {
        font.sized = &fontOfSize(emOf(font.logical), isBold(font.logical));
    }
    return *font.sized;
}

SIZE dialogBaseUnits(int pointSize) {
    SIZE base = baseUnitsOf(emOfPoints(pointSize, dotsPerInch()));
    if (dotsPerInch() != kUsualDotsPerInch) {
        // Sizes of fonts are rounded, and what is no text needs its part too.
        const SIZE usual = baseUnitsOf(emOfPoints(pointSize, kUsualDotsPerInch));
        base = {std::max<LONG>(base.cx, toScale(static_cast<int>(usual.cx))),
                std::max<LONG>(base.cy, toScale(static_cast<int>(usual.cy)))};
    }
    return base;
}

bool isFontFound() {
    return faces().face(false) != nullptr;
}

HFONT dialogFont(int pointSize) {
    static auto* fonts = new std::vector<Font*>;
    LOGFONTA description{};
    description.lfHeight = -emOfPoints(pointSize, dotsPerInch());
    description.lfWeight = FW_NORMAL;
    description.lfCharSet = ANSI_CHARSET;
    std::strncpy(description.lfFaceName, "MS Sans Serif", LF_FACESIZE - 1);
    for (Font* font : *fonts) {
        if (font->logical.lfHeight == description.lfHeight) {
            return static_cast<HFONT>(font->handle);
        }
    }
    fonts->push_back(&makePermanent(std::make_unique<Font>(description)));
    return static_cast<HFONT>(fonts->back()->handle);
}

}  // namespace platform
