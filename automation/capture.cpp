// Reads a window's pixels through its device context, so what is seen is what was painted, not a second painting.

#include "automation/capture.h"

#include <windows.h>

#include <filesystem>
#include <fstream>

#include "automation/input.h"

namespace automation {
namespace {

class WindowContext {
public:
    explicit WindowContext(HWND window) : m_hWnd(window), m_hDC(GetDC(window)) {}
    ~WindowContext() { ReleaseDC(m_hWnd, m_hDC); }
    WindowContext(const WindowContext&) = delete;
    WindowContext& operator=(const WindowContext&) = delete;
    HDC Get() const { return m_hDC; }

private:
    HWND m_hWnd;
    HDC m_hDC;
};

// A memory device context with a bitmap of that size selected.
class MemoryContext {
public:
    MemoryContext(HDC like, int width, int height)
        : m_hDC(CreateCompatibleDC(like)),
          m_hBitmap(CreateCompatibleBitmap(like, width, height)),
          m_hOldBitmap(SelectObject(m_hDC, m_hBitmap)) {}
    ~MemoryContext() {
        Deselect();
        DeleteObject(m_hBitmap);
        DeleteDC(m_hDC);
    }
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    HDC Get() const { return m_hDC; }

    // The bitmap's bits may be read only while no device context holds it.
    HBITMAP Deselect() {
        SelectObject(m_hDC, m_hOldBitmap);
        return m_hBitmap;
    }

private:
    HDC m_hDC;
    HBITMAP m_hBitmap;
    HGDIOBJ m_hOldBitmap;
};

}  // namespace

Picture CaptureClient(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    Picture picture{client.right, client.bottom, {}};
    picture.pixels.resize(static_cast<size_t>(client.right) * static_cast<size_t>(client.bottom));

    const WindowContext source(window);
    MemoryContext copy(source.Get(), client.right, client.bottom);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(info.bmiHeader);
    info.bmiHeader.biWidth = client.right;
    info.bmiHeader.biHeight = -client.bottom;  // Rows from the top.
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    const bool copied = BitBlt(copy.Get(), 0, 0, client.right, client.bottom, source.Get(), 0, 0, SRCCOPY) != FALSE;
    HBITMAP bitmap = copy.Deselect();
    if (!copied || GetDIBits(source.Get(), bitmap, 0, static_cast<UINT>(client.bottom), picture.pixels.data(), &info,
                             DIB_RGB_COLORS) == 0) {
        return {};
    }
    for (std::uint32_t& pixel : picture.pixels) {
        pixel &= 0xFFFFFF;
    }
    return picture;
}

void SaveClient(HWND window, const std::string& fileName) {
    const Picture picture = CaptureClient(window);
    if (picture.pixels.empty()) {
        throw Failure("expected a picture of the window, got none");
    }
    const std::u8string name(fileName.begin(), fileName.end());
    std::ofstream file(std::filesystem::path(name), std::ios::binary);
    const std::string png = EncodePng(picture);
    file.write(png.data(), static_cast<std::streamsize>(png.size()));
    if (!file.flush()) {
        throw Failure("expected to write " + fileName + ", got an error");
    }
}

}  // namespace automation
