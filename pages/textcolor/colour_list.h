// The colour lists: drop-down lists that know an item by its position alone and leave its drawing to their page.
#pragma once

#include "framework/framework.h"

// A full list begins with the colours by block and by layer; a palette list has the palette's colours alone.
constexpr int kFullListItems = 257;
constexpr int kPaletteListItems = 255;

// Loads the pictures that the items show, once for the library; those loaded before are replaced.
void LoadColourBitmaps(HINSTANCE module);

// Replaces the items of a list by as many new ones; nothing is selected then.
void FillColourList(CComboBox& list, int count);

// Makes the field of a list as high as its label needs, where the system has made it lower.
void FitColourField(CComboBox& list);

// Draws an item of a colour list: its picture, name and colour number, whatever its state. The background stays.
void DrawColourItem(const DRAWITEMSTRUCT& item);
