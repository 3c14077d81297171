// A message as a line of a trace.
#pragma once

#include "platform/trace/message_names.h"

#include <windows.h>

#include <functional>
#include <string>

// Class and control id; "none" for null.
std::string describeWindow(HWND window);

// What follows the name of a message: what `shows` says of its arguments, with a blank before each. Other windows are
// called what `nameOf` says.
using NameOfWindow = std::function<std::string(HWND)>;
std::string messageArguments(Shows shows, WPARAM wParam, LPARAM lParam, const NameOfWindow& nameOf);
