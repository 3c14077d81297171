// Which font files the text is drawn from.
#pragma once

#include <string>

namespace platform {

// Paths; empty when the system has no sans-serif font.
struct FontFiles {
    std::string regular;
    std::string bold;
};

// Once per process: asks fontconfig, which takes milliseconds, unless the usual font is where it is on most systems and
// no variable of fontconfig's is set.
FontFiles findFontFiles();

}  // namespace platform
