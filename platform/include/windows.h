// The window API of this library's own window system, under the documented names. Declared is what is
// called by the code above and by the controls; text is single-byte, code page 1252.
// Split by subject: types, window management, messages and styles, graphics, the rest of the system.
#pragma once

#include "tavrikwin/types.h"

#include "tavrikwin/files.h"
#include "tavrikwin/graphics.h"
#include "tavrikwin/menus.h"
#include "tavrikwin/messages.h"
#include "tavrikwin/styles.h"
#include "tavrikwin/system.h"
#include "tavrikwin/window.h"
