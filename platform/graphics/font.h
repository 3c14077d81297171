// Fonts at a size: metrics and glyphs, each glyph rendered once per process. Every face name gives the same
// sans-serif; there is a regular and a bold face, no italics and no underlining by the font.
#pragma once

#include "platform/graphics/gdi_objects.h"

#include <array>
#include <string_view>
#include <vector>

struct FT_FaceRec_;

namespace platform {

// A pixel that a glyph covers, wholly or in part.
struct InkedPixel {
    short x = 0;
    short y = 0;
    unsigned short weight = 0;  // Of the ink; the ground has the rest of kFullWeight.

    static constexpr unsigned short kFullWeight = 256;
};

struct Glyph {
    bool loaded = false;
    short advance = 0;  // To the next glyph, in pixels like all of the following.
    short left = 0;     // From the pen position to the first column.
    short top = 0;      // From the baseline up to the first row.
    short width = 0;
    short height = 0;
    std::vector<InkedPixel> ink;
};

class SizedFont {
public:
    // Without a face (null) the font measures and draws nothing.
    SizedFont(FT_FaceRec_* face, int emHeight, bool bold);

    int emHeight() const { return emHeight_; }
    bool bold() const { return bold_; }
    int height() const { return height_; }
    int ascent() const { return ascent_; }
    bool isUsual() const;  // For which the dialogs were drawn up.
    int averageWidth();    // Of the Latin letters without accents, of both cases.

    // By the character's byte in code page 1252.
    const Glyph& glyph(char character) {
        Glyph& glyph = glyphs_[static_cast<unsigned char>(character)];
        if (!glyph.loaded) {
            load(static_cast<unsigned char>(character), glyph);
        }
        return glyph;
    }
    int width(std::string_view text);

private:
    void load(unsigned char character, Glyph& glyph);

    FT_FaceRec_* face_;
    int emHeight_;
    bool bold_;
    int height_;
    int ascent_;
    int averageWidth_ = 0;  // Measured when it is first asked for.
    std::array<Glyph, 256> glyphs_;
};

SizedFont& sizedFont(Font& font);

}  // namespace platform
