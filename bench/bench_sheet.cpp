// The user's waiting times, in memory: until the sheet is there, for a whole round, for a key and a tab.
#include <benchmark/benchmark.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <commctrl.h>
#include <prsht.h>

#include <chrono>
#include <string>

#include "core/store/settings.h"
#include "include/tavrikconfig.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSettings = 110;
constexpr int kDescription = 1002;
constexpr UINT kStep = WM_APP;
constexpr UINT kDialogStep = WM_APP + 1;
constexpr char kCaption[] = "Bench";

// What a step does once the sheet's modal loop runs; it ends with closing the sheet.
using Step = void (*)(HWND sheet);
Step g_step = nullptr;
Clock::time_point g_painted;

LRESULT CALLBACK StepProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kStep && message != kDialogStep) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    HWND front = FindWindowA("#32770", message == kStep ? kCaption : "Automatiskt datum");
    ShowWindow(front, SW_SHOW);  // A dialog is shown when the queue is empty; this is not to be waited for.
    RedrawWindow(front, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    g_painted = Clock::now();
    g_step(front);
    return 0;
}

HWND StepWindow() {
    static const HWND window = [] {
        WNDCLASSA stepClass{};
        stepClass.lpfnWndProc = &StepProc;
        stepClass.lpszClassName = "TavrikBench";
        RegisterClassA(&stepClass);
        return CreateWindowExA(0, "TavrikBench", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    }();
    return window;
}

HWND FindControl(HWND sheet, int id) {
    for (HWND child = GetWindow(sheet, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
        if (HWND control = GetDlgItem(child, id)) {
            return control;
        }
    }
    return nullptr;
}

void Fill(CMdb& store) {
    store.RemoveAll();
    for (int i = 0; i < kSettings - 2; ++i) {
        SetSetting(&store, ("KEY_" + std::to_string(i)).c_str(), "value");
    }
    SetSetting(&store, "TITLE_A3", "10");
    SetSetting(&store, "CCT_DIR", "iec617");
}

// The host mode in which the forms page has automatic texts.
constexpr int kHostMode = 1;

int Open(CMdb& store, Step step) {
    g_step = step;
    PostMessageA(StepWindow(), kStep, 0, 0);
    return Tavrikconfig(nullptr, kCaption, &store, 1, 1, kHostMode);
}

void Press(HWND sheet, int button) {
    PostMessageA(sheet, WM_COMMAND, static_cast<WPARAM>(button), reinterpret_cast<LPARAM>(GetDlgItem(sheet, button)));
}

void OpenToFirstPaint(benchmark::State& state) {
    CMdb store;
    Fill(store);
    while (state.KeepRunning()) {
        const Clock::time_point start = Clock::now();
        Open(store, [](HWND sheet) { Press(sheet, IDCANCEL); });
        state.SetIterationTime(std::chrono::duration<double>(g_painted - start).count());
    }
}
BENCHMARK(OpenToFirstPaint)->UseManualTime()->Unit(benchmark::kMicrosecond);

void OpenChangeAndMerge(benchmark::State& state) {
    CMdb store;
    while (state.KeepRunning()) {
        state.PauseTiming();
        Fill(store);
        state.ResumeTiming();
        const int result = Open(store, [](HWND sheet) {
            HWND edit = FindControl(sheet, kDescription);
            SetFocus(edit);
            SendMessageA(edit, EM_SETSEL, 0, -1);
            SendMessageA(edit, WM_CHAR, '5', 1);
            UpdateWindow(edit);
            Press(sheet, IDOK);
        });
        if (result != 1) {
            state.SkipWithError("The sheet did not end with OK");
            break;
        }
    }
}
BENCHMARK(OpenChangeAndMerge)->Unit(benchmark::kMicrosecond);

benchmark::State* g_keyState = nullptr;

void KeyToPaint(benchmark::State& state) {
    CMdb store;
    Fill(store);
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        HWND edit = FindControl(sheet, kDescription);
        SetFocus(edit);
        for (auto _ : *g_keyState) {
            SendMessageA(edit, WM_CHAR, '5', 1);
            UpdateWindow(edit);
            SendMessageA(edit, WM_CHAR, VK_BACK, 1);
            UpdateWindow(edit);
        }
        g_keyState->SetItemsProcessed(2 * g_keyState->iterations());
        Press(sheet, IDCANCEL);
    });
}
BENCHMARK(KeyToPaint)->Unit(benchmark::kMicrosecond);

// From one page to the other, painted; both have been shown before.
void TabSwitch(benchmark::State& state) {
    CMdb store;
    Fill(store);
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        WPARAM page = 0;
        SendMessageA(sheet, PSM_SETCURSEL, 1, 0);
        for (auto _ : *g_keyState) {
            SendMessageA(sheet, PSM_SETCURSEL, page, 0);
            RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            page = 1 - page;
        }
        Press(sheet, IDCANCEL);
    });
}
BENCHMARK(TabSwitch)->Unit(benchmark::kMicrosecond);

// From another page to one, painted.
void Activate(benchmark::State& state, WPARAM page) {
    static WPARAM activated;
    activated = page;
    CMdb store;
    Fill(store);
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        for (auto _ : *g_keyState) {
            g_keyState->PauseTiming();
            SendMessageA(sheet, PSM_SETCURSEL, 0, 0);
            RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            g_keyState->ResumeTiming();
            SendMessageA(sheet, PSM_SETCURSEL, activated, 0);
            RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        }
        Press(sheet, IDCANCEL);
    });
}

constexpr WPARAM kTextsPage = 2;
constexpr WPARAM kFormsPage = 4;
constexpr WPARAM kConnectPage = 6;
constexpr int kColourList = 1057;

// With three lists of colours, which are filled anew each time.
void ActivateTexts(benchmark::State& state) {
    Activate(state, kTextsPage);
}
BENCHMARK(ActivateTexts)->Unit(benchmark::kMicrosecond);

void ActivateForms(benchmark::State& state) {
    Activate(state, kFormsPage);
}
BENCHMARK(ActivateForms)->Unit(benchmark::kMicrosecond);

// Opens the list of colours to its painted first rows.
void OpenColourList(benchmark::State& state) {
    CMdb store;
    Fill(store);
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        SendMessageA(sheet, PSM_SETCURSEL, kTextsPage, 0);
        HWND combo = FindControl(sheet, kColourList);
        SetFocus(combo);
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        SendMessageA(combo, CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        for (auto _ : *g_keyState) {
            SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
            UpdateWindow(info.hwndList);
            g_keyState->PauseTiming();
            SendMessageA(combo, CB_SHOWDROPDOWN, FALSE, 0);
            g_keyState->ResumeTiming();
        }
        Press(sheet, IDCANCEL);
    });
}
BENCHMARK(OpenColourList)->Unit(benchmark::kMicrosecond);

constexpr int kComments = 2042;

// Of the table of 255 comments, to its first paint.
void ShowConnectPage(benchmark::State& state) {
    CMdb store;
    Fill(store);
    SetSetting(&store, "NORV_LEVEL", "3");
    g_keyState = &state;
    while (state.KeepRunning()) {
        Open(store, [](HWND sheet) {
            const Clock::time_point start = Clock::now();
            SendMessageA(sheet, PSM_SETCURSEL, kConnectPage, 0);
            RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            g_keyState->SetIterationTime(std::chrono::duration<double>(Clock::now() - start).count());
            if (FindControl(sheet, kComments) == nullptr) {
                g_keyState->SkipWithError("There is no table of comments");
            }
            Press(sheet, IDCANCEL);
        });
    }
}
BENCHMARK(ShowConnectPage)->UseManualTime()->Unit(benchmark::kMicrosecond);

// From the click on a heading to the painted list, sorted by the names.
void SortComments(benchmark::State& state) {
    CMdb store;
    Fill(store);
    SetSetting(&store, "NORV_LEVEL", "3");
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        SendMessageA(sheet, PSM_SETCURSEL, kConnectPage, 0);
        HWND list = FindControl(sheet, kComments);
        HWND header = reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
        RECT head{};
        SendMessageA(header, HDM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&head));
        const LPARAM point = MAKELPARAM((head.left + head.right) / 2, (head.top + head.bottom) / 2);
        for (auto _ : *g_keyState) {
            SendMessageA(header, WM_LBUTTONDOWN, MK_LBUTTON, point);
            SendMessageA(header, WM_LBUTTONUP, 0, point);
            RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        }
        Press(sheet, IDCANCEL);
    });
}
BENCHMARK(SortComments)->Unit(benchmark::kMicrosecond);

constexpr int kDateChange = 1078;
constexpr int kSliderX = 1114;

// Runs a step in the dialog that places the automatic date, as soon as it is there.
void InPlacementDialog(HWND sheet, Step step) {
    g_step = step;
    PostMessageA(StepWindow(), kDialogStep, 0, 0);
    SendMessageA(FindControl(sheet, kDateChange), BM_CLICK, 0, 0);
}

void OpenPlacementDialog(benchmark::State& state) {
    CMdb store;
    Fill(store);
    SetSetting(&store, "AUTO_DATE", "20,30;2.5;90");
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        SendMessageA(sheet, PSM_SETCURSEL, kFormsPage, 0);
        while (g_keyState->KeepRunning()) {
            const Clock::time_point start = Clock::now();
            InPlacementDialog(sheet, [](HWND dialog) { Press(dialog, IDCANCEL); });
            g_keyState->SetIterationTime(std::chrono::duration<double>(g_painted - start).count());
        }
        Press(sheet, IDCANCEL);
    });
}
BENCHMARK(OpenPlacementDialog)->UseManualTime()->Unit(benchmark::kMicrosecond);

// A step of a dragged slider, to the moved and painted marker.
void DragPlacement(benchmark::State& state) {
    CMdb store;
    Fill(store);
    SetSetting(&store, "AUTO_DATE", "20,30;2.5;90");
    g_keyState = &state;
    Open(store, [](HWND sheet) {
        SendMessageA(sheet, PSM_SETCURSEL, kFormsPage, 0);
        InPlacementDialog(sheet, [](HWND dialog) {
            HWND slider = GetDlgItem(dialog, kSliderX);
            RECT thumb{};
            SetFocus(slider);  // Leaving the field sets the slider.
            SendMessageA(slider, TBM_SETPOS, TRUE, 25);
            SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
            const LPARAM left = MAKELPARAM((thumb.left + thumb.right) / 2, (thumb.top + thumb.bottom) / 2);
            const LPARAM right = left + 20;
            SendMessageA(slider, WM_LBUTTONDOWN, MK_LBUTTON, left);
            SendMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, right);
            if (SendMessageA(slider, TBM_GETPOS, 0, 0) == 25) {
                g_keyState->SkipWithError("The thumb does not move");
            }
            for (auto _ : *g_keyState) {
                SendMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, right);
                RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
                SendMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, left);
                RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            }
            g_keyState->SetItemsProcessed(2 * g_keyState->iterations());
            SendMessageA(slider, WM_LBUTTONUP, 0, left);
            Press(dialog, IDCANCEL);
        });
        Press(sheet, IDCANCEL);
    });
}
BENCHMARK(DragPlacement)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
