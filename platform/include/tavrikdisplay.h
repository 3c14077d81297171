// Choice of the native display. Windows has one display and no such choice, so this header is native only.
#pragma once

#include <cstddef>

#define TAVRIK_DISPLAY_X11 0     // The X server named by the environment variable DISPLAY.
#define TAVRIK_DISPLAY_MEMORY 1  // The same windows in memory: nothing is shown, pictures can be taken.

#pragma GCC visibility push(default)
extern "C" {

// Selects the display. To be called before the first window is created; without a call the first window
// selects X11 where a server answers, else memory. Returns non-zero on success; on failure nothing is selected.
int TavrikDisplayInit(int kind);

// The display in use: TAVRIK_DISPLAY_X11, TAVRIK_DISPLAY_MEMORY, or -1 before one is selected.
int TavrikDisplayKind(void);

// How many dots an inch of the screen has, from 96 (the usual size) to 480: all windows are laid out and painted for
// it. To be called before the first window is created; without a call the environment variable TAVRIK_DPI decides, else
// the resource Xft.dpi of the X server, else it is 96. GetDeviceCaps tells it (LOGPIXELSX). Returns non-zero on
// success.
int TavrikSetDotsPerInch(int dots);

// Non-zero when the system has a font for the texts of windows. Without one property sheets and message boxes fail at
// once: nobody could read them.
int TavrikFontFound(void);

// Non-zero once the X server is gone. Windows stay valid handles that nobody sees; GetMessage returns WM_QUIT from then
// on, so that every modal loop ends without its dialog being accepted, and so does the program's own loop.
int TavrikDisplayLost(void);

// The primary selection: the text that was marked last, in whichever program. An X server has it beside the clipboard,
// and the middle button inserts it. Both texts are code page 1252. Reading copies what fits into the buffer, the final
// NUL included, and returns the text's whole length; it may wait for the other program, a second at most.
void TavrikOfferSelection(const char* text);
std::size_t TavrikReadSelection(char* buffer, std::size_t size);

// Hands the address range of a module's compiled resources (.res) to the window system. The module is the shared
// object or program that contains `begin`; the range stays owned by the module and must live as long as it is loaded.
void TavrikRegisterResources(const void* begin, const void* end);

}  // extern "C"
#pragma GCC visibility pop
