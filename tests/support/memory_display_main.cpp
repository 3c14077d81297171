// The main function of test programs that open windows: the windows live in memory, whatever DISPLAY says.
#include <gtest/gtest.h>

#include "tavrikdisplay.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    return RUN_ALL_TESTS();
}
