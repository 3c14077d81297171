// The user's waiting time for a dragged slider, in memory: from a step of the mouse to the painted thumb.
#include <benchmark/benchmark.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <commctrl.h>

namespace {

void DragStepToPaint(benchmark::State& state) {
    HWND dialog =
        CreateWindowExA(0, "#32770", "", WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr, nullptr, nullptr);
    HWND bar = CreateWindowExA(0, TRACKBAR_CLASSA, "", WS_CHILD | WS_VISIBLE | TBS_BOTH | TBS_NOTICKS, 10, 10, 146, 24,
                               dialog, nullptr, nullptr, nullptr);
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    constexpr int kStart = 13;
    constexpr int kEnd = 130;
    constexpr int kMiddle = 12;
    SendMessageA(bar, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(kStart, kMiddle));
    int x = kStart;
    int step = 2;
    while (state.KeepRunning()) {
        x += step;
        step = x + step > kEnd || x + step < kStart ? -step : step;
        SendMessageA(bar, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, kMiddle));
        UpdateWindow(bar);
    }
    SendMessageA(bar, WM_LBUTTONUP, 0, MAKELPARAM(x, kMiddle));
    DestroyWindow(dialog);
}
BENCHMARK(DragStepToPaint)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
