// The whole sheet in one process, in memory: open, visit all seven pages, change one field on each, OK, merge into the
// store. Prints medians in microseconds, one a line, in the form that bench/compare reads.
//
//   bench_round SETTINGS_FILE [ROUNDS] [--first-only] [--records N]
//
// --first-only presses OK after the first paint, for the time of a new process; --records adds settings that no page
// knows until the store has N. Exit status 3 when a round did not do its work.
#include <sys/resource.h>
#include <tavrikdisplay.h>
#include <windows.h>

#include <prsht.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include "core/store/settings.h"
#include "include/tavrikconfig.h"

namespace {

using Clock = std::chrono::steady_clock;
using Settings = std::vector<std::pair<std::string, std::string>>;

constexpr char kCaption[] = "Bench";
constexpr char kNewText[] = "3.75";
constexpr int kHostMode = 1;  // In which the forms page has automatic texts.
constexpr UINT kStep = WM_APP;

// The field that is changed on each page, in the order of the tabs.
constexpr std::array kFields = {1002, 1089, 2002, 1019, 2017, 1063, 10047};
constexpr int kPages = static_cast<int>(kFields.size());

[[noreturn]] void Fail(const std::string& what) {
    std::fprintf(stderr, "bench_round: %s\n", what.c_str());
    std::exit(3);
}

double Micros(Clock::duration time) {
    return std::chrono::duration<double, std::micro>(time).count();
}

double Median(std::vector<double> values) {
    if (values.empty()) {
        return 0;
    }
    std::sort(values.begin(), values.end());
    return (values[(values.size() - 1) / 2] + values[values.size() / 2]) / 2;
}

double ProcessorMicros() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e6 +
           static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
}

struct Results {
    Clock::time_point started;
    double mainToFirstPaint = 0;
    std::vector<double> opened;
    std::array<std::vector<double>, kPages> firstSwitch;
    std::array<std::vector<double>, kPages> laterSwitch;
    std::vector<double> rounds;
};

struct Run {
    Results results;
    bool firstOnly = false;
    Clock::time_point openedAt;
    double aside = 0;  // Of this round.
};
Run g_run;

void Paint(HWND sheet) {
    RedrawWindow(sheet, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

HWND FindField(HWND sheet, int id) {
    HWND page = reinterpret_cast<HWND>(SendMessageA(sheet, PSM_GETCURRENTPAGEHWND, 0, 0));
    HWND field = GetDlgItem(page, id);
    if (field == nullptr) {
        Fail("a page has no field " + std::to_string(id));
    }
    HWND inner = GetWindow(field, GW_CHILD);
    return inner != nullptr ? inner : field;
}

void ChangeField(HWND sheet, int page) {
    HWND field = FindField(sheet, kFields[static_cast<std::size_t>(page)]);
    SetFocus(field);
    SendMessageA(field, EM_SETSEL, 0, -1);
    SendMessageA(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(kNewText));
    Paint(sheet);
}

double SwitchTo(HWND sheet, int page) {
    const Clock::time_point start = Clock::now();
    SendMessageA(sheet, PSM_SETCURSEL, static_cast<WPARAM>(page), 0);
    Paint(sheet);
    return Micros(Clock::now() - start);
}

// To the pages behind the first one and back to it, as a user who changes a field on each.
void VisitPages(HWND sheet) {
    for (int step = 1; step <= kPages; ++step) {
        const int page = step % kPages;
        g_run.results.firstSwitch[static_cast<std::size_t>(page)].push_back(SwitchTo(sheet, page));
        ChangeField(sheet, page);
    }
    // A user who goes through the pages once more; not a part of the round.
    for (int step = 1; step <= kPages; ++step) {
        const int page = step % kPages;
        const double time = SwitchTo(sheet, page);
        g_run.results.laterSwitch[static_cast<std::size_t>(page)].push_back(time);
        g_run.aside += time;
    }
}

LRESULT CALLBACK StepProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kStep) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    HWND sheet = FindWindowA("#32770", kCaption);
    Paint(sheet);
    g_run.results.opened.push_back(Micros(Clock::now() - g_run.openedAt));
    if (g_run.results.mainToFirstPaint == 0) {
        g_run.results.mainToFirstPaint = Micros(Clock::now() - g_run.results.started);
    }
    if (!g_run.firstOnly) {
        VisitPages(sheet);
    }
    PostMessageA(sheet, WM_COMMAND, IDOK, reinterpret_cast<LPARAM>(GetDlgItem(sheet, IDOK)));
    return 0;
}

HWND StepWindow() {
    static const HWND window = [] {
        WNDCLASSA stepClass{};
        stepClass.lpfnWndProc = &StepProc;
        stepClass.lpszClassName = "TavrikRound";
        RegisterClassA(&stepClass);
        return CreateWindowExA(0, "TavrikRound", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    }();
    return window;
}

Settings ReadSettings(const char* file) {
    Settings settings;
    std::ifstream in(file, std::ios::binary);
    for (std::string line; std::getline(in, line);) {
        const std::size_t equals = line.find('=');
        if (equals != std::string::npos && !line.starts_with('#')) {
            settings.emplace_back(line.substr(0, equals), line.substr(equals + 1));
        }
    }
    if (settings.empty()) {
        Fail(std::string("no settings in ") + file);
    }
    return settings;
}

int CountChanges(const CMdb& store, const Settings& before) {
    return static_cast<int>(std::count_if(before.begin(), before.end(), [&](const auto& setting) {
        const CMdbRecord* record = FindSettingRecord(&store, setting.first.c_str());
        return record == nullptr || setting.second != record->GetField(2);
    }));
}

void PlayRound(const Settings& settings) {
    CMdb store;
    for (const auto& [key, value] : settings) {
        SetSetting(&store, key.c_str(), value.c_str());
    }
    PostMessageA(StepWindow(), kStep, 0, 0);
    g_run.aside = 0;
    g_run.openedAt = Clock::now();
    if (Tavrikconfig(nullptr, kCaption, &store, 1, 1, kHostMode) != 1) {
        Fail("the sheet did not end with OK");
    }
    g_run.results.rounds.push_back(Micros(Clock::now() - g_run.openedAt) - g_run.aside);
    const int changes = CountChanges(store, settings);
    if (changes < (g_run.firstOnly ? 0 : kPages)) {
        Fail("only " + std::to_string(changes) + " settings were changed");
    }
}

void Print(const char* name, const std::array<std::vector<double>, kPages>& switches) {
    std::vector<double> all;
    for (const auto& each : switches) {
        all.insert(all.end(), each.begin(), each.end());
    }
    std::printf("%s %.0f\n%s_by_page", name, Median(all), name);
    for (const auto& each : switches) {
        std::printf(" %.0f", Median(each));
    }
    std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
    g_run.results.started = Clock::now();
    int rounds = 20;
    std::size_t records = 0;
    for (int i = 2; i < argc; ++i) {
        if (std::strcmp(argv[i], "--first-only") == 0) {
            g_run.firstOnly = true;
        } else if (std::strcmp(argv[i], "--records") == 0 && i + 1 < argc) {
            records = static_cast<std::size_t>(std::atoi(argv[++i]));
        } else {
            rounds = std::max(1, std::atoi(argv[i]));
        }
    }
    if (argc < 2 || TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    Settings settings = ReadSettings(argv[1]);
    while (settings.size() < records) {
        settings.emplace_back("OTHER_" + std::to_string(settings.size()), "value");
    }
    const double before = ProcessorMicros();
    for (int i = 0; i < rounds; ++i) {
        PlayRound(settings);
    }
    const Results& results = g_run.results;
    std::printf("settings %zu\nmain_to_first_paint %.0f\nopen_to_first_paint %.0f\n", settings.size(),
                results.mainToFirstPaint, Median(results.opened));
    Print("tab_switch", results.firstSwitch);
    Print("later_tab_switch", results.laterSwitch);
    std::printf("full_round_trip %.0f\ncpu_per_round_trip %.0f\n", Median(results.rounds),
                (ProcessorMicros() - before) / rounds);
    return 0;
}
