// Prints what the controls, dialogs and sheets of the window system do, section by section, for comparison between
// systems. Arguments name the sections to run; without any, all run.
#include "tests/conformance/trace.h"

#ifndef _WIN32
#include <tavrikdisplay.h>  // Windows has one display; natively the sections run in memory.
#endif

#include <algorithm>
#include <cstdio>
#include <string_view>

namespace {

struct Section {
    std::string_view name;
    void (*run)(Trace& trace);
};

constexpr Section kSections[] = {
    {"windows", traceWindows}, {"system", traceSystem}, {"buttons", traceButtons},
    {"tabs", traceTabs},       {"edits", traceEdits},   {"combos", traceCombos},
    {"dialogs", traceDialogs}, {"sheets", traceSheets}, {"texts", traceTexts},
    {"files", traceFileDialog},
};

}  // namespace

int main(int argc, char** argv) {
#ifndef _WIN32
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
#endif
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_TAB_CLASSES};
    InitCommonControlsEx(&controls);

    for (int i = 1; i < argc; ++i) {
        const bool known = std::any_of(std::begin(kSections), std::end(kSections),
                                       [&](const Section& section) { return section.name == argv[i]; });
        if (!known) {
            std::fprintf(stderr, "unknown section: %s\n", argv[i]);
            return 2;
        }
    }
    Trace trace([](const std::string& line) { std::puts(line.c_str()); });
    for (const Section& section : kSections) {
        const bool wanted = argc == 1 || std::find(argv + 1, argv + argc, section.name) != argv + argc;
        if (wanted) {
            section.run(trace);
            std::fflush(stdout);
        }
    }
    return 0;
}
