// Prints what the controls, dialogs and sheets of the window system do, section by section, for comparison between
// systems, or compares it with the sums that are kept of it.
//
//   tavrikconformance [--trace FILE] [--sums | --expect FILE] [SECTION...]
//
// Without options the trace is printed. --trace writes it to a file, --sums prints the sums instead, --expect prints
// only the lines that depart from the file's sums and gives 1 then. SECTION is the beginning of a section's name.
#include "tests/conformance/sums.h"
#include "tests/conformance/trace.h"

#ifndef _WIN32
#include <tavrikdisplay.h>  // Windows has one display; natively the sections run in memory.
#endif

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

namespace {

struct Group {
    std::string_view name;
    void (*run)(Trace& trace);
};

constexpr Group kGroups[] = {
    {"windows", traceWindows}, {"painting", tracePainting}, {"drawing", traceDrawing}, {"system", traceSystem},
    {"buttons", traceButtons}, {"tabs", traceTabs},         {"edits", traceEdits},     {"combos", traceCombos},
    {"dialogs", traceDialogs}, {"sheets", traceSheets},     {"texts", traceTexts},     {"files", traceFileDialog},
};

struct Options {
    std::FILE* trace = nullptr;
    bool sums = false;
    const char* expectedFile = nullptr;
    std::vector<std::string_view> wanted;  // Beginnings of the sections' names.

    bool wants(std::string_view section) const {
        return wanted.empty() || std::any_of(wanted.begin(), wanted.end(),
                                             [=](std::string_view name) { return section.starts_with(name); });
    }
    bool wantsSomeOf(std::string_view group) const {
        return wants(group) || std::any_of(wanted.begin(), wanted.end(),
                                           [=](std::string_view name) { return name.starts_with(group); });
    }
};

// False when the arguments cannot be understood.
bool read(int count, char** arguments, Options& options) {
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--sums") {
            options.sums = true;
        } else if (argument == "--expect" && i + 1 < count) {
            options.expectedFile = arguments[++i];
        } else if (argument == "--trace" && i + 1 < count) {
            options.trace = std::fopen(arguments[++i], "wb");
            if (!options.trace) {
                return false;
            }
        } else if (argument.starts_with("--")) {
            return false;
        } else {
            options.wanted.push_back(argument);
        }
    }
    if (!options.sums && !options.expectedFile) {
        options.trace = stdout;
    }
    return true;
}

// Takes the trace line by line and does with each section what the options say.
class Recorder {
public:
    explicit Recorder(const Options& options) : options_(options) {}

    // False when there are no sums to compare with.
    bool readExpected() { return !options_.expectedFile || expected_.read(options_.expectedFile); }
    void take(const std::string& line) {
        const bool heading = line.starts_with('[');
        if (heading) {
            finishSection();
            section_.name = line.substr(1, line.size() - 2);
        } else {
            section_.lines.push_back(line);
        }
        if (options_.trace && options_.wants(section_.name)) {
            std::fprintf(options_.trace, "%s\n", line.c_str());
            std::fflush(options_.trace);
        }
    }
    // Whether all was as expected.
    bool finish() {
        finishSection();
        for (const std::string& name : expected_.unchecked()) {
            if (options_.wants(name)) {
                std::printf("[%s] is missing\n", name.c_str());
                asExpected_ = false;
            }
        }
        return asExpected_;
    }

private:
    void finishSection() {
        const TracedSection section = std::exchange(section_, {});
        if (section.lines.empty() || !options_.wants(section.name)) {
            return;
        }
        if (options_.sums) {
            std::puts(sumOf(section).c_str());
        }
        if (options_.expectedFile && !expected_.check(section)) {
            asExpected_ = false;
        }
    }

    const Options& options_;
    ExpectedSums expected_;
    TracedSection section_;
    bool asExpected_ = true;
};

}  // namespace

int main(int argc, char** argv) {
    Options options;
    Recorder recorder(options);
    if (!read(argc, argv, options) || !recorder.readExpected()) {
        std::fputs("usage: tavrikconformance [--trace FILE] [--sums | --expect FILE] [SECTION...]\n", stderr);
        return 2;
    }
#ifndef _WIN32
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
#endif
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES};
    InitCommonControlsEx(&controls);

    for (const Group& group : kGroups) {
        if (options.wantsSomeOf(group.name)) {
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
