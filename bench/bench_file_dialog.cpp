// The user's waiting time for the open-file dialog on a full folder, in memory: from the call to the first painting.
#include <benchmark/benchmark.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <commdlg.h>

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

using Clock = std::chrono::steady_clock;

Clock::time_point g_painted;

// The owner, which is told when the dialog has been shown and has nothing else to do.
LRESULT CALLBACK PaintAndCancel(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_ENTERIDLE) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    const auto dialog = reinterpret_cast<HWND>(lParam);
    RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    g_painted = Clock::now();
    PostMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    return 0;
}

HWND MakeOwner() {
    WNDCLASSA ownerClass{};
    ownerClass.lpfnWndProc = &PaintAndCancel;
    ownerClass.lpszClassName = "TavrikBench";
    RegisterClassA(&ownerClass);
    return CreateWindowExA(0, "TavrikBench", "", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                           nullptr);
}

std::filesystem::path MakeFolder(int files) {
    std::filesystem::path folder = std::filesystem::temp_directory_path() / "tavrik-bench";
    std::filesystem::create_directories(folder);
    for (int i = 0; i < files; ++i) {
        std::ofstream(folder / ("kraftcentral " + std::to_string(i) + ".tds"));
    }
    return folder;
}

void OpenFolderToFirstPaint(benchmark::State& state) {
    const std::filesystem::path folder = MakeFolder(static_cast<int>(state.range(0)));
    const std::string start = folder.string();
    HWND owner = MakeOwner();
    while (state.KeepRunning()) {
        std::array<char, MAX_PATH> file{};
        OPENFILENAMEA ofn{};
        ofn.lStructSize = sizeof ofn;
        ofn.hwndOwner = owner;
        ofn.lpstrFilter = "Databasfiler (*.tds)\0*.tds\0";
        ofn.lpstrFile = file.data();
        ofn.nMaxFile = static_cast<DWORD>(file.size());
        ofn.lpstrInitialDir = start.c_str();
        ofn.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR;
        const Clock::time_point begin = Clock::now();
        GetOpenFileNameA(&ofn);
        state.SetIterationTime(std::chrono::duration<double>(g_painted - begin).count());
    }
    DestroyWindow(owner);
    std::filesystem::remove_all(folder);
}
BENCHMARK(OpenFolderToFirstPaint)->Arg(10)->Arg(10000)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
