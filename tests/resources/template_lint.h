// Checks of a dialog template that hold for every dialog: all of it can be reached by the keyboard, seen and read.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// The complaints about a template, each with `name`, the control's number and its caption; in code page 1252. The
// dialog is made as a child of the popup, which has to be visible and active.
std::vector<std::string> lintTemplate(const std::string& name, std::vector<std::uint16_t> dialogTemplate, HWND popup);
