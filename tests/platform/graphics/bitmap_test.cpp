// Device-independent bitmaps: reading every depth, refusing what is malformed, writing back.
#include "platform/graphics/window_dc.h"
#include "tests/support/canvas.h"

#include <gtest/gtest.h>

#include "platform/graphics/dib.h"

namespace {

struct Dib {
    std::vector<BYTE> bytes;

    Dib(int width, int height, int bits, const std::vector<DWORD>& colours, const std::vector<BYTE>& pixels) {
        BITMAPINFOHEADER header{};
        header.biSize = sizeof header;
        header.biWidth = width;
        header.biHeight = height;
        header.biPlanes = 1;
        header.biBitCount = static_cast<WORD>(bits);
        header.biClrUsed = static_cast<DWORD>(colours.size());
        append(&header, sizeof header);
        append(colours.data(), colours.size() * sizeof(DWORD));
        append(pixels.data(), pixels.size());
    }
    BITMAPINFOHEADER& header() { return *reinterpret_cast<BITMAPINFOHEADER*>(bytes.data()); }
    HBITMAP load() const { return platform::bitmapFromPackedDib(bytes.data(), bytes.size()); }

private:
    void append(const void* data, std::size_t size) {
        const auto* from = static_cast<const BYTE*>(data);
        bytes.insert(bytes.end(), from, from + size);
    }
};

Picture pictureOf(HBITMAP bitmap) {
    BITMAP description{};
    GetObjectA(bitmap, sizeof description, &description);
    Canvas canvas(description.bmWidth, description.bmHeight);
    const HDC source = CreateCompatibleDC(canvas);
    SelectObject(source, bitmap);
    BitBlt(canvas, 0, 0, description.bmWidth, description.bmHeight, source, 0, 0, SRCCOPY);
    DeleteDC(source);
    DeleteObject(bitmap);
    return canvas.picture();
}

constexpr DWORD kRedEntry = 0x00FF0000;  // Blue, green, red, reserved in memory.
constexpr DWORD kBlueEntry = 0x000000FF;

Dib smallDib() {
    return {2, 2, 24, {}, {255, 0, 0, 0, 0, 255, 9, 9, 0, 0, 0, 255, 255, 255, 9, 9}};
}

}  // namespace

// The outer pixels lie within one of the source's each, the middle one over both.
TEST(Stretching, HalftonesMixWhatAPixelCovers) {
    const Canvas source(2, 1);
    SetPixel(source, 0, 0, kBlack);
    SetPixel(source, 1, 0, kWhite);
    const Canvas canvas(5, 4);
    SetStretchBltMode(canvas, HALFTONE);
    StretchBlt(canvas, 1, 1, 3, 2, source, 0, 0, 2, 1, SRCCOPY);
    constexpr COLORREF kGrey = RGB(128, 128, 128);
    for (int y = 1; y < 3; ++y) {
        EXPECT_EQ(canvas.at(1, y), kBlack);
        EXPECT_EQ(canvas.at(2, y), kGrey);
        EXPECT_EQ(canvas.at(3, y), kWhite);
    }
    EXPECT_EQ(canvas.count(kGround, 0, 5), 5 * 4 - 3 * 2);
    StretchBlt(canvas, 4, 0, -3, 1, source, 0, 0, 2, 1, SRCCOPY);
    EXPECT_EQ(canvas.at(2, 0), kWhite) << "mirrored";
    EXPECT_EQ(canvas.at(4, 0), kBlack);
}

TEST(Dib, EveryDepthIsReadBottomUpOrTopDown) {
    EXPECT_EQ(pictureOf(Dib(10, 2, 1, {kRedEntry, kBlueEntry}, {0xFF, 0xC0, 0, 0, 0xA0, 0x40, 0, 0}).load()),
              (Picture{"BRBRRRRRRB", "BBBBBBBBBB"}));
    EXPECT_EQ(pictureOf(Dib(3, 2, 4, {0, kRedEntry, kBlueEntry}, {0x12, 0x00, 0, 0, 0x21, 0x20, 0, 0}).load()),
              (Picture{"BRB", "RBK"}));
    EXPECT_EQ(pictureOf(Dib(3, 1, 8, {0, kRedEntry, kBlueEntry}, {2, 1, 7, 0}).load()), (Picture{"BRK"}));
    EXPECT_EQ(pictureOf(smallDib().load()), (Picture{"KW", "BR"}));
    EXPECT_EQ(pictureOf(Dib(2, 1, 32, {}, {255, 0, 0, 77, 0, 0, 255, 0}).load()), (Picture{"BR"}));
    Dib topDown = smallDib();
    topDown.header().biHeight = -2;
    EXPECT_EQ(pictureOf(topDown.load()), (Picture{"BR", "KW"}));
}

TEST(Dib, MalformedDataGiveNoBitmap) {
    const auto loads = [](auto change) {
        Dib dib = smallDib();
        change(dib);
        const HBITMAP bitmap = dib.load();
        DeleteObject(bitmap);
        return bitmap != nullptr;
    };
    EXPECT_TRUE(loads([](Dib&) {}));
    EXPECT_FALSE(loads([](Dib& dib) { dib.bytes.pop_back(); }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.bytes.resize(39); }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.bytes.clear(); }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biSize = 12; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biSize = 0xFFFFFFFF; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biBitCount = 16; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biCompression = 1; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biWidth = 0; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biWidth = -2; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biWidth = 0x7FFFFFFF; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biHeight = static_cast<LONG>(0x80000000); }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biClrUsed = 0x40000000; }));
    EXPECT_FALSE(loads([](Dib& dib) { dib.header().biClrUsed = 1; }));
    EXPECT_EQ(platform::bitmapFromPackedDib(nullptr, 100), nullptr);
}
