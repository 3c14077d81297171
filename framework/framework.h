// The dialog framework as a whole: what a page, the sheet or a dialog includes.
#pragma once

#include "framework/application.h"
#include "framework/common_controls.h"
#include "framework/controls.h"
#include "framework/cstring.h"
#include "framework/data_exchange.h"
#include "framework/dialog.h"
#include "framework/exception.h"
#include "framework/file_dialog.h"
#include "framework/gdi.h"
#include "framework/geometry.h"
#include "framework/module_state.h"
#include "framework/property_page.h"
#include "framework/property_sheet.h"
#include "framework/runtime_class.h"
#include "framework/window.h"
#include "framework/window_contexts.h"
