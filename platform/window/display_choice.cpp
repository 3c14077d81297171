// Selection of the display, once in a process.
#include "platform/window/display_choice.h"

#include "platform/graphics/scale.h"
#include "platform/graphics/window_dc.h"

#include <tavrikdisplay.h>

namespace platform {
namespace {

struct Selection {
    // Never freed: windows may be destroyed as late as at the end of the process.
    Display* display = nullptr;
    int kind = -1;
};

Selection& selection() {
    static Selection only;
    return only;
}

bool select(int kind) {
    std::unique_ptr<Display> opened = kind == TAVRIK_DISPLAY_X11 ? openX11Display() : openMemoryDisplay();
    if (!opened) {
        return false;
    }
    selection() = {opened.release(), kind};
    return true;
}

}  // namespace

Display& display() {
    if (!selection().display && !select(TAVRIK_DISPLAY_X11)) {
        select(TAVRIK_DISPLAY_MEMORY);
    }
    return *selection().display;
}

int displayDotsPerInch() {
    return display().dotsPerInch();
}

bool isDisplaySelected() {
    return selection().display != nullptr;
}

bool isDisplayLost() {
    return isDisplaySelected() && selection().display->isLost();
}

}  // namespace platform

int TavrikDisplayInit(int kind) {
    if (kind != TAVRIK_DISPLAY_X11 && kind != TAVRIK_DISPLAY_MEMORY) {
        return 0;
    }
    if (platform::isDisplaySelected()) {
        return platform::selection().kind == kind ? 1 : 0;
    }
    return platform::select(kind) ? 1 : 0;
}

int TavrikSetDotsPerInch(int dots) {
    return platform::wantDotsPerInch(dots) ? 1 : 0;
}

int TavrikFontFound(void) {
    return platform::isFontFound() ? 1 : 0;
}

int TavrikDisplayKind(void) {
    return platform::selection().kind;
}

int TavrikDisplayLost(void) {
    return platform::isDisplayLost() ? 1 : 0;
}
