#include "platform/graphics/font_files.h"

#include <fontconfig/fontconfig.h>

#include <cstdlib>
#include <fstream>
#include <memory>

namespace platform {

namespace {

struct PatternDeleter {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternPtr = std::unique_ptr<FcPattern, PatternDeleter>;

struct ConfigDeleter {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};

const FcChar8* asFcString(const char* text) {
    return reinterpret_cast<const FcChar8*>(text);
}

std::string findFile(FcConfig& config, int weight) {
    // In the order of preference: narrow enough for captions that were laid out for the usual dialog font.
    static constexpr const char* kFamilies[] = {"Liberation Sans", "DejaVu Sans Condensed", "sans-serif"};
    PatternPtr wanted(FcPatternCreate());
    if (wanted == nullptr) {
        return {};
    }
    for (const char* family : kFamilies) {
        FcPatternAddString(wanted.get(), FC_FAMILY, asFcString(family));
    }
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, weight);
    FcPatternAddInteger(wanted.get(), FC_SLANT, FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_OUTLINE, FcTrue);
    FcConfigSubstitute(&config, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const PatternPtr match(FcFontMatch(&config, wanted.get(), &result));
    FcChar8* file = nullptr;
    if (match == nullptr || FcPatternGetString(match.get(), FC_FILE, 0, &file) != FcResultMatch) {
        return {};
    }
    return reinterpret_cast<const char*>(file);
}

// Where the usual dialog font lies on most systems. Asking fontconfig costs more than all else that happens until the
// first sheet is there.
FontFiles usualFontFiles() {
    if (std::getenv("FONTCONFIG_FILE") != nullptr || std::getenv("FONTCONFIG_PATH") != nullptr) {
        return {};
    }
    for (const char* const folder : {"/usr/share/fonts/truetype/liberation", "/usr/share/fonts/truetype/liberation2",
                                     "/usr/share/fonts/liberation-sans", "/usr/share/fonts/liberation"}) {
        FontFiles files = {std::string(folder) + "/LiberationSans-Regular.ttf",
                           std::string(folder) + "/LiberationSans-Bold.ttf"};
        if (std::ifstream(files.regular).good() && std::ifstream(files.bold).good()) {
            return files;
        }
    }
    return {};
}

}  // namespace

FontFiles findFontFiles() {
    if (FontFiles usual = usualFontFiles(); !usual.regular.empty()) {
        return usual;
    }
    // A configuration of our own, so that releasing its memory takes nothing from a host that uses fontconfig too.
    const std::unique_ptr<FcConfig, ConfigDeleter> config(FcInitLoadConfigAndFonts());
    if (config == nullptr) {
        return {};
    }
    return {findFile(*config, FC_WEIGHT_REGULAR), findFile(*config, FC_WEIGHT_BOLD)};
}

}  // namespace platform
