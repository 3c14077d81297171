// The colour palette of the host's drawings: colour number to RGB. Number 0 (by block) has an entry of its own, which
// no drawing shows; 256 (by layer) has none.
#pragma once

#include <windows.h>

constexpr int kPaletteSize = 256;

// All three take a colour number from 0 to 255; another one counts modulo 256.

COLORREF GetAciColor(int index);

// 255 minus each component.
COLORREF GetAciInverseColor(int index);

// Five bits a component, red in bits 11 to 15, green in 5 to 9, blue in 0 to 4. Bit 10 is always 0,
// on purpose.
WORD GetAciColor15(int index);
