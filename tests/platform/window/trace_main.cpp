// Prints the traces of all scenarios: built for Windows it shows what the real system does, and its output is the
// expected one of the native test.
#include "tests/platform/window/message_trace.h"

#include <cstdio>

int main() {
    for (const trace::Scenario& scenario : trace::scenarios()) {
        trace::Recorder recorder;
        scenario.run(recorder);
        std::printf("## %s\n", scenario.name);
        for (const std::string& line : recorder.lines())
            std::printf("%s\n", line.c_str());
    }
    return 0;
}
