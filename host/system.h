// What the host program needs of the system besides windows and files.
#pragma once

#include <windows.h>

#include <filesystem>
#include <string>
#include <vector>

#include "include/tavrikconfig.h"

namespace host {

// The program's arguments without its own name, UTF-8.
std::vector<std::string> CommandLineArguments(int argc, char** argv);

// Takes the descriptors of standard streams that whoever started the program had closed, so that no file or connection
// gets one of their numbers, and with it what is printed. Reading and writing them fails as before. To be called first.
void ReserveStandardStreams();

// Makes a console show what the program prints as the UTF-8 that it is. When the program exits, the console gets back
// the code page that it had, for the programs that are run after this one.
void UseUtf8Console();

// The component's one function.
using ExportFunction = int (*)(HWND parent, const char* caption, CMdb* hostStore, int designationOption,
                               int optionalPages, int hostMode);

// Finds the function in the component's library. Throws a FileError when the library or the function is not there.
ExportFunction BindExport();

enum class Display {
    Screen,          // a person is to see the windows
    ScreenOrMemory,  // a screen if there is one, else windows in memory
    Memory,          // where the system offers it
};

// Makes profile files that are named without a folder lie in this one, where the system leaves it to the program.
void UseProfileFolder(const std::filesystem::path& folder);

// Makes windows as large as a screen of that many dots an inch needs them, where the system leaves it to the program.
// To be called before ChooseDisplay.
void UseDotsPerInch(int dots);

// Tells Windows what the program knows of the screen's fineness: nothing (0), the system's (1) or each monitor's (2).
// Elsewhere there is nothing to be told. To be called before the first window.
void UseAwareness(int awareness);

// Selects where windows appear, before the first one. False when there is no such display.
bool ChooseDisplay(Display display);

// Whether texts can be shown.
bool IsFontFound();

// Whether the windows have vanished for good, because the X server went away.
bool IsDisplayLost();

// The reason, one line of English, after ChooseDisplay found no screen.
std::string WhyNoDisplay();

}  // namespace host
