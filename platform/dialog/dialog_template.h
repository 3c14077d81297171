// Dialog templates as they stand in a resource or in memory, read into plain values.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace platform {

// A text, or the ordinal number that stands in its place.
struct TextOrOrdinal {
    std::string text;  // Code page 1252.
    WORD ordinal = 0;  // 0: the text counts.

    // As the window API takes names; valid as long as this object.
    LPCSTR get() const { return ordinal != 0 ? MAKEINTRESOURCEA(ordinal) : text.c_str(); }
};

// Positions and sizes are dialog units.
struct DialogItem {
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
    DWORD id = 0;
    TextOrOrdinal className;
    TextOrOrdinal text;
    const void* creationData = nullptr;  // Inside the template; null for none.
};

struct DialogTemplate {
    DWORD style = 0;
    DWORD exStyle = 0;
    short x = 0;
    short y = 0;
    short width = 0;
    short height = 0;
    TextOrOrdinal className;  // Empty for the dialog class.
    std::string caption;      // Code page 1252.
    short pointSize = 0;      // 0 without DS_SETFONT.
    std::vector<DialogItem> items;
};

// Reads a classic or an extended template. Nothing for one that does not fit into the bytes or contradicts itself.
std::optional<DialogTemplate> parseDialogTemplate(std::span<const std::byte> bytes);

// Only what stands before the items, for callers that want the size and the caption.
std::optional<DialogTemplate> parseDialogHeader(std::span<const std::byte> bytes);

// The bytes of a dialog resource; empty when there is none.
std::span<const std::byte> dialogResource(HINSTANCE instance, LPCSTR name);

// The bytes of a template in memory, whose length its owner vouches for.
std::span<const std::byte> dialogInMemory(LPCDLGTEMPLATEA dialogTemplate);

}  // namespace platform
