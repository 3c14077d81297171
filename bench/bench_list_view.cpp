// The user's waiting times in a list view, in memory: until it is filled, sorted, scrolled and painted.
#include <benchmark/benchmark.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <string>
#include <vector>

namespace {

constexpr int kColours = 255;
constexpr int kMany = 100'000;

using Texts = std::vector<std::string>;

HWND Header(HWND list) {
    return reinterpret_cast<HWND>(SendMessageA(list, LVM_GETHEADER, 0, 0));
}

int CALLBACK CompareTexts(LPARAM a, LPARAM b, LPARAM direction) {
    return static_cast<int>(direction) * lstrcmpiA(reinterpret_cast<LPCSTR>(a), reinterpret_cast<LPCSTR>(b));
}

// Sorts by the other direction at each click on a column's head.
LRESULT CALLBACK ParentProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static LPARAM direction = 1;
    if (message == WM_NOTIFY && reinterpret_cast<const NMHDR*>(lParam)->code == LVN_COLUMNCLICK) {
        direction = -direction;
        SendMessageA(reinterpret_cast<const NMHDR*>(lParam)->hwndFrom, LVM_SORTITEMS, static_cast<WPARAM>(direction),
                     reinterpret_cast<LPARAM>(&CompareTexts));
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// A shown list of two columns with check boxes, as wide and high as a page's.
class List {
public:
    explicit List(int rows) {
        WNDCLASSA parentClass{};
        parentClass.lpfnWndProc = &ParentProc;
        parentClass.lpszClassName = "TavrikBench";
        RegisterClassA(&parentClass);
        parent_ = CreateWindowExA(0, "TavrikBench", "", WS_POPUP | WS_VISIBLE, 0, 0, 300, 300, nullptr, nullptr,
                                  nullptr, nullptr);
        list_ = CreateWindowExA(0, WC_LISTVIEWA, "", WS_CHILD | WS_VISIBLE | WS_BORDER | LVS_REPORT | LVS_SINGLESEL, 0,
                                0, 160, 142, parent_, nullptr, nullptr, nullptr);
        SendMessageA(list_, WM_SETFONT, reinterpret_cast<WPARAM>(GetStockObject(DEFAULT_GUI_FONT)), FALSE);
        SendMessageA(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_CHECKBOXES);
        for (const int width : {90, 48}) {
            LVCOLUMNA column{};
            column.mask = LVCF_WIDTH;
            column.cx = width;
            SendMessageA(list_, LVM_INSERTCOLUMNA, 9, reinterpret_cast<LPARAM>(&column));
        }
        for (int row = 0; row < rows; ++row) {
            char text[20];
            std::snprintf(text, sizeof text, "c%d", (row * 7919) % rows);
            names_.emplace_back(text);
            std::snprintf(text, sizeof text, "%3d", row);
            numbers_.emplace_back(text);
        }
        UpdateWindow(parent_);
    }
    ~List() { DestroyWindow(parent_); }
    List(const List&) = delete;
    List& operator=(const List&) = delete;

    operator HWND() const { return list_; }
    // As a page fills it: with the drawing switched off.
    void Fill() {
        SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
        for (std::size_t row = 0; row < names_.size(); ++row) {
            LVITEMA item{};
            item.mask = LVIF_TEXT | LVIF_PARAM;
            item.iItem = static_cast<int>(row);
            item.pszText = names_[row].data();
            item.lParam = reinterpret_cast<LPARAM>(names_[row].c_str());
            SendMessageA(list_, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
            item.iSubItem = 1;
            item.pszText = numbers_[row].data();
            SendMessageA(list_, LVM_SETITEMTEXTA, row, reinterpret_cast<LPARAM>(&item));
        }
        SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    }
    void Paint() const { UpdateWindow(parent_); }

private:
    HWND parent_;
    HWND list_;
    Texts names_;
    Texts numbers_;
};

void InsertRows(benchmark::State& state) {
    List list(static_cast<int>(state.range(0)));
    while (state.KeepRunning()) {
        list.Fill();
        state.PauseTiming();
        SendMessageA(list, LVM_DELETEALLITEMS, 0, 0);
        state.ResumeTiming();
    }
}
BENCHMARK(InsertRows)->Arg(kColours)->Arg(kMany)->Unit(benchmark::kMicrosecond);

void HeaderClickToPaint(benchmark::State& state) {
    List list(static_cast<int>(state.range(0)));
    list.Fill();
    list.Paint();
    while (state.KeepRunning()) {
        SendMessageA(Header(list), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(30, 8));
        SendMessageA(Header(list), WM_LBUTTONUP, 0, MAKELPARAM(30, 8));
        list.Paint();
    }
}
BENCHMARK(HeaderClickToPaint)->Arg(kColours)->Unit(benchmark::kMicrosecond);

// Down and up again by three rows each.
void WheelStepToPaint(benchmark::State& state) {
    List list(static_cast<int>(state.range(0)));
    list.Fill();
    list.Paint();
    short delta = -WHEEL_DELTA;
    while (state.KeepRunning()) {
        SendMessageA(list, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(delta)), 0);
        list.Paint();
        delta = static_cast<short>(-delta);
    }
}
BENCHMARK(WheelStepToPaint)->Arg(kColours)->Arg(kMany)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
