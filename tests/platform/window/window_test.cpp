// Threads and the comparison of texts.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

#include <thread>

namespace {

using testing_window::Scene;

TEST(Threads, PostingFromAnotherOneIsRefused) {
    Scene scene;
    BOOL posted = TRUE;
    std::thread([&posted, &scene] { posted = PostMessageA(scene.first, WM_USER, 0, 0); }).join();
    EXPECT_FALSE(posted);
    EXPECT_TRUE(PostMessageA(scene.first, WM_USER, 0, 0));
}

TEST(Text, ComparisonIgnoresCaseOfTheCodePage) {
    EXPECT_EQ(0, lstrcmpiA("\xC5gr\xC4n", "\xE5GR\xE4N"));
    EXPECT_GT(lstrcmpiA("b", "A"), 0);
    EXPECT_LT(lstrcmpiA("a", "ab"), 0);
    EXPECT_NE(0, lstrcmpiA("\xD7", "\xF7"));
}

}  // namespace
