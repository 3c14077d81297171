// What a reader calls a control: the captions around it, in UTF-8.
#pragma once

#include "automation/codepage.h"

#include <windows.h>

#include <array>
#include <climits>
#include <string>

inline std::string utf8(const std::string& text) {
    return automation::ConvertFrom1252(text);
}

inline std::string textOf(HWND window) {
    std::array<char, 200> text{};
    GetWindowTextA(window, text.data(), static_cast<int>(text.size()));
    std::string result = text.data();
    std::erase(result, '&');
    return utf8(result);
}

inline RECT placeOf(HWND window) {
    RECT place{};
    GetWindowRect(window, &place);
    return place;
}

inline bool isClass(HWND window, const char* name) {
    std::array<char, 20> found{};
    GetClassNameA(window, found.data(), static_cast<int>(found.size()));
    return std::string(found.data()) == name;
}

inline bool isFrame(HWND window) {
    return isClass(window, "Button") && (GetWindowLongA(window, GWL_STYLE) & 0xF) == BS_GROUPBOX;
}

// The smallest frame around a control; null without one.
inline HWND frameAround(HWND page, HWND control) {
    const RECT place = placeOf(control);
    HWND frame = nullptr;
    LONG width = INT_MAX;
    for (HWND child = GetWindow(page, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const RECT other = placeOf(child);
        const bool isAround = child != control && other.left <= place.left && other.right >= place.right &&
                              other.top <= place.top && other.bottom >= place.bottom;
        if (isFrame(child) && isAround && other.right - other.left < width) {
            frame = child;
            width = other.right - other.left;
        }
    }
    return frame;
}

// The caption of that frame, and of the label or the button before the control on its line.
inline std::string captionOf(HWND page, HWND control) {
    const RECT place = placeOf(control);
    const LONG middle = (place.top + place.bottom) / 2;
    std::string label;
    LONG labelEnd = INT_MIN;
    for (HWND child = GetWindow(page, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const RECT other = placeOf(child);
        const bool isPush = isClass(child, "Button") && (GetWindowLongA(child, GWL_STYLE) & 0xF) <= BS_DEFPUSHBUTTON;
        if ((isPush || isClass(child, "Static")) && other.top <= middle && other.bottom >= middle &&
            other.right <= place.left + 4 && other.left > labelEnd && !textOf(child).empty()) {
            label = textOf(child);
            labelEnd = other.left;
        }
    }
    if (isClass(control, "Button")) {
        label = textOf(control);
    }
    const HWND around = frameAround(page, control);
    const std::string frame = around != nullptr ? textOf(around) : "";
    return frame + (frame.empty() || label.empty() ? "" : ": ") + label;
}

// The nearest label above a control in its frame, for the columns of a grid.
inline std::string captionAbove(HWND page, HWND control) {
    const RECT place = placeOf(control);
    const LONG middle = (place.left + place.right) / 2;
    const HWND frame = frameAround(page, control);
    std::string label;
    LONG labelEnd = INT_MIN;
    for (HWND child = GetWindow(page, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        const RECT other = placeOf(child);
        if (isClass(child, "Static") && other.left <= middle && other.right >= middle && other.bottom <= place.top &&
            other.bottom > labelEnd && frameAround(page, child) == frame && !textOf(child).empty()) {
            label = textOf(child);
            labelEnd = other.bottom;
        }
    }
    return label;
}
