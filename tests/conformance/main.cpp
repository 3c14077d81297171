// Prints what the controls, dialogs and sheets of the window system do, section by section, for comparison between
// systems, or compares it with the sums that are kept of it.
//
//   tavrikconformance [--expect FILE] [SECTION...]
//
// Prints the trace, each section with its sum; with --expect only the sections that depart from the file's sums, and
// gives 1 then. SECTION is a group of sections, or the beginning of a section's name with the group before it.
#include "tests/conformance/sums.h"
#include "tests/conformance/trace.h"

#ifndef _WIN32
#include <tavrikdisplay.h>  // Windows has one display; natively the sections run in memory.
#endif

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>
#include <vector>

namespace {

struct Group {
    std::string_view name;
    void (*run)(Trace& trace);
};

constexpr Group kGroups[] = {
    {"windows", traceWindows}, {"painting", tracePainting}, {"drawing", traceDrawing},  {"buttons", traceButtons},
    {"tabs", traceTabs},       {"tracks", traceTracks},     {"edits", traceEdits},      {"combos", traceCombos},
    {"dialogs", traceDialogs}, {"sheets", traceSheets},     {"files", traceFileDialog}, {"lists", traceListViews},
    {"labels", traceLabels},   {"profiles", traceProfiles}, {"menus", traceMenus},
};

// Takes the trace line by line. Without expected sums it prints each section and its sum, else what is not as expected.
class Recorder {
public:
    Recorder(Sums* expected, std::vector<std::string_view> wanted) : expected_(expected), wanted_(std::move(wanted)) {}

    void take(const std::string& line) {
        if (line.starts_with('[')) {
            finishSection();
            section_.name = line.substr(1, line.size() - 2);
        } else {
            section_.lines.push_back(line);
        }
        if (!expected_ && wants(section_.name)) {
            std::puts(line.c_str());
            std::fflush(stdout);
        }
    }
    // Whether all was as expected.
    bool finish() {
        finishSection();
        for (const auto& [name, sum] : expected_ ? *expected_ : Sums{}) {
            if (wants(name)) {
                std::printf("[%s] is missing\n", name.c_str());
                asExpected_ = false;
            }
        }
        return asExpected_;
    }

private:
    bool wants(std::string_view section) const {
        return wanted_.empty() || std::any_of(wanted_.begin(), wanted_.end(),
                                              [=](std::string_view name) { return section.starts_with(name); });
    }
    void finishSection() {
        const TracedSection section = std::exchange(section_, {});
        if (section.name.empty() || !wants(section.name)) {
            return;
        }
        if (expected_) {
            asExpected_ = isExpected(section, *expected_) && asExpected_;
        } else {
            std::printf("= %s\n", sumOf(section).c_str());
        }
    }

    Sums* expected_;
    std::vector<std::string_view> wanted_;
    TracedSection section_;
    bool asExpected_ = true;
};

}  // namespace

int main(int argc, char** argv) {
    const bool expects = argc > 2 && argv[1] == std::string_view("--expect");
    Sums expected = expects ? readSums(argv[2]) : Sums{};
    if (expects ? expected.empty() : argc > 1 && *argv[1] == '-') {
        std::fputs("usage: tavrikconformance [--expect FILE] [SECTION...]\n", stderr);
        return 2;
    }
#ifndef _WIN32
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
#endif
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES | ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);

    const std::vector<std::string_view> wanted(argv + (expects ? 3 : 1), argv + argc);
    Recorder recorder(expects ? &expected : nullptr, wanted);
    for (const Group& group : kGroups) {
        if (wanted.empty() || std::any_of(wanted.begin(), wanted.end(),
                                          [&group](std::string_view name) { return name.starts_with(group.name); })) {
            Trace trace([&recorder](const std::string& line) { recorder.take(line); }, std::string(group.name));
            group.run(trace);
        }
    }
    if (!recorder.finish()) {
        std::puts(
            "tests/conformance/refresh.sh shows what Wine does there, or takes the new sums when Wine does the same.");
        return 1;
    }
    return 0;
}
