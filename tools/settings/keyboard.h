// How the controls of a page or dialog are reached and worked without a mouse.
#pragma once

#include <windows.h>

#include <string>

void printKeyboardIntroduction();

// Goes through the dialog with Tab and the arrow keys, as its focus goes, and prints a table of it.
void printKeyboardTable(const std::string& title, HWND dialog);
