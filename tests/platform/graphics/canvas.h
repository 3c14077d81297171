// A memory context to draw into, and its pixels as a text picture.
#pragma once

#include "platform/graphics/window_dc.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kGround = RGB(1, 2, 3);

class Canvas {
public:
    Canvas(int width, int height, COLORREF ground = kGround) : width_(width), height_(height) {
        bitmap_ = CreateCompatibleBitmap(dc_, width, height);
        SelectObject(dc_, bitmap_);
        fill({0, 0, width, height}, ground);
    }
    ~Canvas() {
        DeleteDC(dc_);
        DeleteObject(bitmap_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    operator HDC() const { return dc_; }
    HBITMAP bitmap() const { return bitmap_; }

    void fill(RECT rect, COLORREF colour) {
        const HBRUSH brush = CreateSolidBrush(colour);
        FillRect(dc_, &rect, brush);
        DeleteObject(brush);
    }
    // Paints a picture of the letters that `picture` gives back.
    void paint(const std::vector<std::string>& rows) {
        for (std::size_t y = 0; y < rows.size(); ++y) {
            for (std::size_t x = 0; x < rows[y].size(); ++x) {
                SetPixel(dc_, static_cast<int>(x), static_cast<int>(y), colourOf(rows[y][x]));
            }
        }
    }

    // One letter a pixel, "?" for a colour without one.
    std::vector<std::string> picture() const {
        std::vector<std::string> rows;
        for (int y = 0; y < height_; ++y) {
            rows.emplace_back();
            for (int x = 0; x < width_; ++x) {
                rows.back() += letterOf(GetPixel(dc_, x, y));
            }
        }
        return rows;
    }

private:
    struct Letter {
        char letter;
        COLORREF colour;
    };
    static constexpr Letter kLetters[] = {
        {'.', kGround},
        {'W', RGB(255, 255, 255)},
        {'K', RGB(0, 0, 0)},
        {'D', RGB(64, 64, 64)},
        {'S', RGB(128, 128, 128)},
        {'f', RGB(212, 208, 200)},
        {'R', kRed},
        {'B', kBlue},
    };
    static char letterOf(COLORREF colour) {
        for (const Letter& entry : kLetters) {
            if (entry.colour == colour) {
                return entry.letter;
            }
        }
        return '?';
    }
    static COLORREF colourOf(char letter) {
        for (const Letter& entry : kLetters) {
            if (entry.letter == letter) {
                return entry.colour;
            }
        }
        return kGround;
    }

    int width_;
    int height_;
    HDC dc_ = CreateCompatibleDC(nullptr);
    HBITMAP bitmap_ = nullptr;
};

using Picture = std::vector<std::string>;
