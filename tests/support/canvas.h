// A context in memory to draw into, and its pixels as a picture of letters.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kGround = RGB(1, 2, 3);  // Nothing is drawn in this colour.

using Picture = std::vector<std::string>;

class Canvas {
public:
    Canvas(int width, int height, COLORREF ground = kGround) : width_(width), height_(height) {
        HDC screen = GetDC(nullptr);
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        before_ = SelectObject(dc_, bitmap_);
        fill({0, 0, width, height}, ground);
    }
    ~Canvas() {
        SelectObject(dc_, before_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    operator HDC() const { return dc_; }
    HBITMAP bitmap() const { return bitmap_; }
    COLORREF at(int x, int y) const { return GetPixel(dc_, x, y); }

    void fill(RECT rect, COLORREF colour) {
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(dc_, &rect, brush);
        DeleteObject(brush);
    }
    // Paints a picture of the letters that `picture` gives back.
    void paint(const Picture& rows) {
        for (std::size_t y = 0; y < rows.size(); ++y) {
            for (std::size_t x = 0; x < rows[y].size(); ++x) {
                for (const Letter& entry : kLetters) {
                    if (entry.letter == rows[y][x]) {
                        SetPixel(dc_, static_cast<int>(x), static_cast<int>(y), entry.colour);
                    }
                }
            }
        }
    }
    // One letter a pixel, "?" for a colour without one.
    Picture picture() const {
        Picture rows;
        for (int y = 0; y < height_; ++y) {
            rows.emplace_back();
            for (int x = 0; x < width_; ++x) {
                rows.back() += letterOf(at(x, y));
            }
        }
        return rows;
    }
    // The number of pixels of the colour in the columns from `left` up to `right`.
    int count(COLORREF colour, int left, int right) const {
        int found = 0;
        for (int y = 0; y < height_; ++y) {
            for (int x = left; x < right; ++x) {
                found += at(x, y) == colour;
            }
        }
        return found;
    }

private:
    struct Letter {
        char letter;
        COLORREF colour;
    };
    static constexpr Letter kLetters[] = {{'.', kGround}, {'W', kWhite}, {'K', kBlack}, {'R', kRed}, {'B', kBlue}};

    // Systems differ in their colours, but not in where they use which.
    static char letterOf(COLORREF colour) {
        const Letter systemLetters[] = {{'K', GetSysColor(COLOR_WINDOWFRAME)},
                                        {'D', GetSysColor(COLOR_3DDKSHADOW)},
                                        {'S', GetSysColor(COLOR_3DSHADOW)},
                                        {'f', GetSysColor(COLOR_3DLIGHT)},
                                        {'f', GetSysColor(COLOR_3DFACE)}};
        for (const Letter& entry : kLetters) {
            if (entry.colour == colour) {
                return entry.letter;
            }
        }
        for (const Letter& entry : systemLetters) {
            if (entry.colour == colour) {
                return entry.letter;
            }
        }
        return '?';
    }

    int width_;
    int height_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ before_ = nullptr;
};
