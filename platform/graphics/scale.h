// The scale of the screen. Lengths stand in the code as pixels of a screen of 96 dots an inch; here they become those
// of the screen that is there.
#pragma once

#include <windows.h>

namespace platform {

constexpr int kUsualDotsPerInch = 96;
constexpr int kMostDotsPerInch = 480;

// Fixed when it is first asked for: what was wanted, else the environment variable TAVRIK_DPI, else what the display
// says. Never below 96, where the texts of the dialogs could not be read.
int fixDotsPerInch();
extern int g_dotsPerInch;  // 0 until then.
inline int dotsPerInch() {
    return g_dotsPerInch != 0 ? g_dotsPerInch : fixDotsPerInch();
}

// False when the scale is fixed already, or for one that is not between 96 and 480.
bool wantDotsPerInch(int wanted);

// The window room answers; it chooses the display where there is none yet. 0 where the display does not know.
int displayDotsPerInch();

inline int toScale(int pixels) {
    return (pixels * dotsPerInch() + kUsualDotsPerInch / 2) / kUsualDotsPerInch;
}

// The thickness of what is a line of one pixel at 96 dots an inch. It grows by whole pixels when there is room for one
// more, so that no line is a blur and all of one screen are alike.
inline int lineWidth() {
    return dotsPerInch() / kUsualDotsPerInch;
}

// FrameRect by a line of that thickness.
void frameByLine(HDC dc, RECT rect, HBRUSH brush);

}  // namespace platform
