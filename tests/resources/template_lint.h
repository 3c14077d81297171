// Checks of a dialog template that hold for every dialog: all of it can be reached by the keyboard, seen and read.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

// Whether a template may put its controls in the order in which they are read, or has one that users are used to.
enum class ControlOrder { Free, Given };

// The complaint about a control that no text before it names.
constexpr char kUnnamed[] = "has no text before it that would name it";

// The complaints about a template, each with `name`, the control's number and its caption; in code page 1252. The
// dialog is made as a child of the popup, which has to be visible and active.
std::vector<std::string> lintTemplate(const std::string& name, std::vector<std::uint16_t> dialogTemplate, HWND popup,
                                      ControlOrder order = ControlOrder::Free);
