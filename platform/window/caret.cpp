// The caret. It is drawn by inversion, so that drawing it twice takes it away again. It blinks by the clock of the
// message loop; programs see no timer for it. A bitmap as its shape is not supported.
#include "platform/window/caret.h"

#include "platform/window/display_choice.h"

#include <algorithm>

namespace platform {
namespace {

constexpr int kBlinkMs = 530;

struct Caret {
    HWND window = nullptr;
    RECT rect{};  // Client coordinates.
    bool shown = false;
    bool on = false;  // The phase of blinking.
    bool drawn = false;
    DWORD nextBlink = 0;
};

Caret& caret() {
    static Caret only;
    return only;
}

void invert() {
    const HDC dc = GetDC(caret().window);
    if (!dc) {
        return;
    }
    InvertRect(dc, &caret().rect);
    ReleaseDC(caret().window, dc);
}

void setDrawn(bool drawn) {
    if (caret().drawn == drawn) {
        return;
    }
    caret().drawn = drawn;
    invert();
}

// Starts a phase in which the caret is seen.
void restartBlinking() {
    caret().on = true;
    caret().nextBlink = GetTickCount() + kBlinkMs;
    setDrawn(caret().shown);
}

void tellInputMethod() {
    Window* window = findWindow(caret().window);
    const Window* top = window ? topLevelOf(*window) : nullptr;
    if (!top || !top->top.onDisplay) {
        return;
    }
    const POINT origin = clientOrigin(*window);
    const POINT topOrigin = clientOrigin(*top);
    RECT rect = caret().rect;
    OffsetRect(&rect, origin.x - topOrigin.x, origin.y - topOrigin.y);
    display().setCaretRect(top->handle, rect);
}

bool ownsCaret(HWND window) {
    return caret().window && (!window || window == caret().window);
}

}  // namespace

void hideCaretOver(const Window& window) {
    if (!caret().window) {
        return;
    }
    const Window* owner = findWindow(caret().window);
    if (owner && (owner == &window || isDescendant(window, *owner))) {
        setDrawn(false);
    }
}

void restoreCaret() {
    if (caret().window && caret().shown && caret().on) {
        setDrawn(true);
    }
}

void dropCaretOf(const Window& window) {
    if (caret().window == window.handle) {
        caret() = Caret{};
    }
}

void blinkCaret() {
    Caret& bar = caret();
    if (!bar.window || !bar.shown || static_cast<int>(bar.nextBlink - GetTickCount()) > 0) {
        return;
    }
    bar.on = !bar.on;
    bar.nextBlink = GetTickCount() + kBlinkMs;
    setDrawn(bar.on);
}

int timeToBlink() {
    const Caret& bar = caret();
    if (!bar.window || !bar.shown) {
        return -1;
    }
    return std::max(0, static_cast<int>(bar.nextBlink - GetTickCount()));
}

}  // namespace platform

using platform::caret;

BOOL CreateCaret(HWND window, HBITMAP, int width, int height) {
    if (!platform::requireWindow(window)) {
        return FALSE;
    }
    DestroyCaret();
    caret() = platform::Caret{};
    caret().window = window;
    caret().rect = {0, 0, std::max(width, 1), std::max(height, 1)};
    return TRUE;
}

BOOL DestroyCaret(void) {
    if (!caret().window) {
        return FALSE;
    }
    platform::setDrawn(false);
    caret() = platform::Caret{};
    return TRUE;
}

BOOL HideCaret(HWND window) {
    if (!platform::ownsCaret(window)) {
        return FALSE;
    }
    caret().shown = false;
    platform::setDrawn(false);
    return TRUE;
}

BOOL ShowCaret(HWND window) {
    if (!platform::ownsCaret(window)) {
        return FALSE;
    }
    if (!caret().shown) {
        caret().shown = true;
        platform::restartBlinking();
    }
    return TRUE;
}

BOOL SetCaretPos(int x, int y) {
    platform::Caret& bar = caret();
    if (!bar.window) {
        return FALSE;
    }
    if (bar.rect.left != x || bar.rect.top != y) {
        platform::setDrawn(false);
        OffsetRect(&bar.rect, x - bar.rect.left, y - bar.rect.top);
        platform::tellInputMethod();
    }
    if (bar.shown) {
        platform::restartBlinking();
    }
    return TRUE;
}

BOOL GetCaretPos(LPPOINT point) {
    if (!point) {
        return FALSE;
    }
    *point = {caret().rect.left, caret().rect.top};
    return TRUE;
}
