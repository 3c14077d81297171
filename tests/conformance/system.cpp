// What windows stand on: timers, the clipboard, pictures and resources.
#include "resources/resource.h"
#include "tests/conformance/traced_windows.h"

#include <array>
#include <chrono>
#include <cstdint>
#include <cstring>
#include <thread>

namespace {

// The first timers answer by ending themselves, so that each comes once however slow the machine is.
void CALLBACK onTimer(HWND window, UINT message, UINT_PTR id, DWORD) {
    KillTimer(window, id);
    PostMessageA(window, WM_USER, id, message);
}

void traceTimers(Trace& trace) {
    trace.section("timers");
    TracedWindows windows(trace);
    HWND top = windows.createQuietly("top", WS_POPUP | WS_VISIBLE, {50, 60, 200, 100});
    HWND gone = windows.createQuietly("gone", WS_CHILD | WS_VISIBLE, {0, 0, 10, 10}, top);
    windows.spy().setAnswer([](HWND window, UINT message, WPARAM id, LPARAM, LRESULT&) {
        if (message == WM_TIMER) {
            KillTimer(window, id);
        }
        return false;
    });
    trace.line("set %d", number(static_cast<LRESULT>(SetTimer(top, 3, 10, nullptr))));
    SetTimer(top, 4, 10, onTimer);
    SetTimer(top, 5, 10, nullptr);
    SetTimer(top, 6, 100000, nullptr);
    SetTimer(gone, 7, 10, nullptr);
    DestroyWindow(gone);
    trace.line("ended %d, again %d", KillTimer(top, 5) != 0, KillTimer(top, 5) != 0);
    InvalidateRect(top, nullptr, FALSE);
    PostMessageA(top, WM_APP, 1, 0);
    std::this_thread::sleep_for(std::chrono::milliseconds(40));
    drainQueue();
    MSG message;
    trace.line("more %d", PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_NOREMOVE) != 0);
}

void traceClipboard(Trace& trace) {
    trace.section("clipboard");
    const QuietParent parent(trace);
    setClipboard(parent.handle(), "text \xE5");
    trace.line("text there %d, read while closed %d", IsClipboardFormatAvailable(CF_TEXT) != 0,
               GetClipboardData(CF_TEXT) != nullptr);
    trace.line("opened %d", OpenClipboard(parent.handle()) != 0);
    HANDLE data = GetClipboardData(CF_TEXT);
    trace.line("\"%s\"", static_cast<const char*>(GlobalLock(data)));
    GlobalUnlock(data);
    EmptyClipboard();
    trace.line("emptied %d", IsClipboardFormatAvailable(CF_TEXT) != 0);
    trace.line("closed %d, again %d", CloseClipboard() != 0, CloseClipboard() != 0);
}

constexpr COLORREF kWhite = RGB(255, 255, 255);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);

// A white picture in memory, printed as one letter a pixel.
class Picture {
public:
    Picture(int width, int height) : width_(width), height_(height) {
        HDC screen = GetDC(nullptr);
        dc_ = CreateCompatibleDC(screen);
        bitmap_ = CreateCompatibleBitmap(screen, width, height);
        ReleaseDC(nullptr, screen);
        old_ = SelectObject(dc_, bitmap_);
        fill({0, 0, width, height}, kWhite);
    }
    ~Picture() {
        SelectObject(dc_, old_);
        DeleteObject(bitmap_);
        DeleteDC(dc_);
    }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    HDC dc() const { return dc_; }
    void fill(const RECT& rect, COLORREF colour) {
        HBRUSH brush = CreateSolidBrush(colour);
        FillRect(dc_, &rect, brush);
        DeleteObject(brush);
    }
    BOOL flood(int x, int y, COLORREF limit, UINT kind, COLORREF colour) {
        HBRUSH brush = CreateSolidBrush(colour);
        HGDIOBJ old = SelectObject(dc_, brush);
        const BOOL filled = ExtFloodFill(dc_, x, y, limit, kind);
        SelectObject(dc_, old);
        DeleteObject(brush);
        return filled;
    }
    // Two frames one in the other, the inner one open at a corner.
    void drawFrames() {
        fill({0, 0, 12, 8}, kBlack);
        fill({1, 1, 11, 7}, kWhite);
        fill({3, 3, 8, 6}, kBlack);
        fill({4, 4, 7, 5}, kWhite);
        fill({7, 5, 8, 6}, kWhite);
        fill({9, 2, 10, 3}, kRed);
    }
    void print(Trace& trace, const char* what) const {
        trace.line("-- %s", what);
        for (int y = 0; y < height_; ++y) {
            std::string row;
            for (int x = 0; x < width_; ++x) {
                const COLORREF colour = GetPixel(dc_, x, y);
                row += colour == kWhite   ? '.'
                       : colour == kBlack ? '#'
                       : colour == kRed   ? 'r'
                       : colour == kBlue  ? 'b'
                                          : '?';
            }
            trace.line("%s", row.c_str());
        }
    }

private:
    int width_;
    int height_;
    HDC dc_ = nullptr;
    HBITMAP bitmap_ = nullptr;
    HGDIOBJ old_ = nullptr;
};

void traceFloodFill(Trace& trace) {
    trace.section("flood fill");
    constexpr struct {
        const char* what;
        int x;
        int y;
        COLORREF limit;
        UINT kind;
    } kFills[] = {
        {"up to black", 1, 1, kBlack, FLOODFILLBORDER},
        {"up to black, inside", 5, 4, kBlack, FLOODFILLBORDER},
        {"all that is white", 1, 1, kWhite, FLOODFILLSURFACE},
        {"all that is red", 9, 2, kRed, FLOODFILLSURFACE},
        {"from the border itself", 0, 0, kBlack, FLOODFILLBORDER},
        {"from another colour", 0, 0, kWhite, FLOODFILLSURFACE},
        {"outside", 12, 3, kBlack, FLOODFILLBORDER},
    };
    for (const auto& row : kFills) {
        Picture picture(12, 8);
        picture.drawFrames();
        trace.line("gives %d", picture.flood(row.x, row.y, row.limit, row.kind, kBlue) != 0);
        picture.print(trace, row.what);
    }
}

void traceCopies(Trace& trace) {
    trace.section("copies of pictures");
    Picture source(12, 8);
    source.drawFrames();
    Picture overlapping(12, 8);
    overlapping.drawFrames();
    BitBlt(overlapping.dc(), 2, 1, 12, 8, overlapping.dc(), 0, 0, SRCCOPY);
    overlapping.print(trace, "onto itself");
    constexpr struct {
        const char* what;
        int mode;
        RECT to;  // Position and size, as those of `from`.
        RECT from;
    } kStretches[] = {
        {"twice as wide", COLORONCOLOR, {0, 0, 24, 8}, {0, 0, 12, 8}},
        {"two thirds wider", COLORONCOLOR, {1, 1, 20, 12}, {0, 0, 12, 8}},
        {"half as large", COLORONCOLOR, {0, 0, 6, 4}, {0, 0, 12, 8}},
        {"two thirds as large", COLORONCOLOR, {2, 0, 8, 5}, {0, 0, 12, 8}},
        {"two thirds as large, black kept", BLACKONWHITE, {2, 0, 8, 5}, {0, 0, 12, 8}},
        {"mirrored", COLORONCOLOR, {18, 10, -17, -9}, {0, 0, 12, 8}},
        {"a part, enlarged", COLORONCOLOR, {0, 0, 16, 12}, {7, 1, 4, 3}},
        {"a part outside", COLORONCOLOR, {0, 0, 24, 8}, {6, 0, 12, 8}},
        {"beyond the edges", COLORONCOLOR, {-4, -2, 40, 20}, {0, 0, 12, 8}},
    };
    for (const auto& row : kStretches) {
        Picture target(24, 13);
        target.fill({0, 0, 24, 13}, kBlue);
        SetStretchBltMode(target.dc(), row.mode);
        StretchBlt(target.dc(), row.to.left, row.to.top, row.to.right, row.to.bottom, source.dc(), row.from.left,
                   row.from.top, row.from.right, row.from.bottom, SRCCOPY);
        target.print(trace, row.what);
    }
}

void traceResources(Trace& trace) {
    trace.section("resources");
    for (const UINT id : {IDS_COLOUR_RED, IDS_WRONG_PASSWORD, IDS_CLOSE, 31999}) {
        std::array<char, 200> text{};
        const int whole = LoadStringA(instance(), id, text.data(), static_cast<int>(text.size()));
        std::array<char, 4> cut{};
        const int part = LoadStringA(instance(), id, cut.data(), static_cast<int>(cut.size()));
        trace.line("string %u: %d \"%s\", cut %d \"%s\"", id, whole, text.data(), part, cut.data());
    }
    for (const int id : {IDB_MARKING_A1_A2, IDB_ARROW_BALLOON, IDB_SLASH_TEXT2}) {
        HBITMAP bitmap = LoadBitmapA(instance(), MAKEINTRESOURCEA(id));
        BITMAP size{};
        GetObjectA(bitmap, sizeof size, &size);
        Picture picture(size.bmWidth, size.bmHeight);
        HDC memory = CreateCompatibleDC(picture.dc());
        HGDIOBJ old = SelectObject(memory, bitmap);
        BitBlt(picture.dc(), 0, 0, size.bmWidth, size.bmHeight, memory, 0, 0, SRCCOPY);
        std::uint32_t sum = 0;
        for (int at = 0; at < size.bmWidth * size.bmHeight; ++at) {
            sum = sum * 31 + GetPixel(picture.dc(), at % size.bmWidth, at / size.bmWidth);
        }
        trace.line("bitmap %d: %d by %d, pixels %08x", id, number(size.bmWidth), number(size.bmHeight), sum);
        SelectObject(memory, old);
        DeleteDC(memory);
        DeleteObject(bitmap);
    }
}

}  // namespace

void traceSystem(Trace& trace) {
    traceTimers(trace);
    traceClipboard(trace);
    traceFloodFill(trace);
    traceCopies(trace);
    traceResources(trace);
}
