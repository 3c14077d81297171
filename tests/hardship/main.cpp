// The main function: the windows live in memory, and the sweep of failing allocations leaves points out unless --all is
// given.
#include <gtest/gtest.h>

#include <string_view>

#include "tavrikdisplay.h"
#include "tests/hardship/sweep.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        g_everyPoint = g_everyPoint || std::string_view(argv[i]) == "--all";
    }
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    return RUN_ALL_TESTS();
}
