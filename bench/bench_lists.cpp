// The user's waiting times for long lists whose parent draws the entries, in memory: filling, opening, moving.
#include <benchmark/benchmark.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <array>
#include <cstdio>

namespace {

constexpr int kLists = 3;
constexpr int kEntries = 257;
constexpr int kPictureSide = 16;
constexpr COLORREF kGround = RGB(255, 0, 0);

// A frame around a ground to be filled.
class Swatch {
public:
    Swatch() {
        HDC screen = GetDC(nullptr);
        m_hDC = CreateCompatibleDC(screen);
        m_hBitmap = CreateCompatibleBitmap(screen, kPictureSide, kPictureSide);
        ReleaseDC(nullptr, screen);
        m_hBefore = SelectObject(m_hDC, m_hBitmap);
        PatBlt(m_hDC, 0, 0, kPictureSide, kPictureSide, BLACKNESS);
        const RECT inside = {1, 1, kPictureSide - 1, kPictureSide - 1};
        HBRUSH brush = CreateSolidBrush(kGround);
        FillRect(m_hDC, &inside, brush);
        DeleteObject(brush);
        SelectObject(m_hDC, m_hBefore);
    }
    ~Swatch() {
        DeleteDC(m_hDC);
        DeleteObject(m_hBitmap);
    }
    Swatch(const Swatch&) = delete;
    Swatch& operator=(const Swatch&) = delete;

    // As a list of colours draws an entry.
    void Draw(const DRAWITEMSTRUCT& item) const {
        const int entry = static_cast<int>(item.itemID);
        const RECT& rect = item.rcItem;
        const int side = rect.bottom - rect.top - 5;
        HDC picture = CreateCompatibleDC(item.hDC);
        HGDIOBJ before = SelectObject(picture, m_hBitmap);
        StretchBlt(item.hDC, rect.left + 3, rect.top + 3, side, side, picture, 0, 0, kPictureSide, kPictureSide,
                   SRCCOPY);
        HBRUSH brush = CreateSolidBrush(RGB(entry % 256, 255 - entry % 256, 100));
        HGDIOBJ brushBefore = SelectObject(item.hDC, brush);
        ExtFloodFill(item.hDC, rect.left + 4, rect.top + 4, kGround, FLOODFILLSURFACE);
        SelectObject(item.hDC, brushBefore);
        DeleteObject(brush);
        std::array<char, 16> label{};
        const int length = std::snprintf(label.data(), label.size(), "(%d) ", entry);
        TextOutA(item.hDC, 20, rect.top + 3, label.data(), length);
        SelectObject(picture, before);
        DeleteDC(picture);
    }

private:
    HDC m_hDC = nullptr;
    HBITMAP m_hBitmap = nullptr;
    HGDIOBJ m_hBefore = nullptr;
};

LRESULT CALLBACK DrawingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const Swatch swatch;
    if (message == WM_DRAWITEM && reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->itemID != UINT(-1)) {
        swatch.Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// A shown window with three lists.
class Stage {
public:
    Stage() {
        WNDCLASSA drawingClass{};
        drawingClass.lpfnWndProc = &DrawingProc;
        drawingClass.lpszClassName = "TavrikBench";
        RegisterClassA(&drawingClass);
        m_hWnd = CreateWindowExA(0, "TavrikBench", "", WS_POPUP | WS_VISIBLE, 100, 100, 500, 300, nullptr, nullptr,
                                 nullptr, nullptr);
        for (int i = 0; i < kLists; ++i) {
            m_lists[static_cast<std::size_t>(i)] = CreateWindowExA(
                0, "ComboBox", "", WS_CHILD | WS_VISIBLE | CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | WS_VSCROLL,
                10 + 150 * i, 10, 140, 250, m_hWnd, nullptr, nullptr, nullptr);
        }
    }
    ~Stage() { DestroyWindow(m_hWnd); }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    HWND List() const { return m_lists.front(); }
    HWND OpenedList() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        SendMessageA(List(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        return info.hwndList;
    }
    void Fill() const {
        for (HWND list : m_lists) {
            SendMessageA(list, CB_RESETCONTENT, 0, 0);
            for (int i = 0; i < kEntries; ++i) {
                SendMessageA(list, CB_ADDSTRING, 0, i + 1);
            }
        }
    }
    void Paint() const {
        RedrawWindow(m_hWnd, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        UpdateWindow(OpenedList());
    }

private:
    HWND m_hWnd = nullptr;
    std::array<HWND, kLists> m_lists{};
};

void FillEmptyLists(benchmark::State& state) {
    while (state.KeepRunning()) {
        state.PauseTiming();
        {
            const Stage stage;
            state.ResumeTiming();
            stage.Fill();
            state.PauseTiming();
        }
        state.ResumeTiming();
    }
}
BENCHMARK(FillEmptyLists)->Unit(benchmark::kMicrosecond);

// What was there goes first, each entry with a message.
void RefillLists(benchmark::State& state) {
    const Stage stage;
    while (state.KeepRunning()) {
        stage.Fill();
    }
}
BENCHMARK(RefillLists)->Unit(benchmark::kMicrosecond);

void OpenListToPaint(benchmark::State& state) {
    const Stage stage;
    stage.Fill();
    SetFocus(stage.List());
    while (state.KeepRunning()) {
        SendMessageA(stage.List(), CB_SHOWDROPDOWN, TRUE, 0);
        stage.Paint();
        state.PauseTiming();
        SendMessageA(stage.List(), CB_SHOWDROPDOWN, FALSE, 0);
        stage.Paint();
        state.ResumeTiming();
    }
}
BENCHMARK(OpenListToPaint)->Unit(benchmark::kMicrosecond);

void KeyInOpenListToPaint(benchmark::State& state) {
    const Stage stage;
    stage.Fill();
    SetFocus(stage.List());
    SendMessageA(stage.List(), CB_SHOWDROPDOWN, TRUE, 0);
    WPARAM key = VK_NEXT;
    while (state.KeepRunning()) {
        SendMessageA(stage.List(), WM_KEYDOWN, key, 1);
        stage.Paint();
        if (SendMessageA(stage.List(), CB_GETCURSEL, 0, 0) % (kEntries - 1) == 0) {
            key = key == VK_NEXT ? VK_PRIOR : VK_NEXT;
        }
    }
}
BENCHMARK(KeyInOpenListToPaint)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
