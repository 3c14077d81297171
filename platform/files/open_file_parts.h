// What the parts of the open-file dialog share.
#pragma once

#include <windows.h>

#include <string>

namespace platform {

// Buttons beside the documented controls.
constexpr int kUpButtonId = 0x04F1;
constexpr int kHomeButtonId = 0x04F2;
// Posted by the dialog to itself: a folder has been picked in the drop-down list, which has closed since.
constexpr UINT kPlacePicked = WM_APP + 1;

// The user's home folder and the current one, as the file system has them.
std::string homeFolder();
std::string currentFolder();

bool isFolder(const std::string& path);
// The path in code page 1252, with "?" for what that cannot hold.
std::string shownPath(const std::string& path);

}  // namespace platform
