// Which font files the text is drawn from.
#pragma once

#include <string>

namespace platform {

// Paths; empty when the system has no sans-serif font.
struct FontFiles {
    std::string regular;
    std::string bold;
};

// Asks fontconfig, which takes milliseconds: once per process.
FontFiles findFontFiles();

}  // namespace platform
