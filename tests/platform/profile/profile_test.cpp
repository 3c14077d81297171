// Where profile files lie, and that any bytes do no harm; what is found in them the conformance sections compare with
// the real system.
#include "platform/profile/profile_text.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <windows.h>

#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace platform {
namespace {

constexpr const char* kFile = "TEST.INI";

class ProfileTest : public testing::Test {
protected:
    ProfileTest() {
        std::string name = (std::filesystem::temp_directory_path() / "tavrik-XXXXXX").string();
        root_ = mkdtemp(name.data());
        for (const char* variable : {"TAVRIK_PROFILE_DIR", "XDG_CONFIG_HOME", "HOME"}) {
            unsetenv(variable);
        }
    }
    ~ProfileTest() override { std::filesystem::remove_all(root_); }

    // Makes a folder with a profile below it that holds its name.
    std::string addProfile(const std::string& folder, const std::string& below) {
        std::filesystem::create_directories(root_ / (folder + below));
        std::ofstream(root_ / (folder + below) / kFile) << "[S]\nA=" << folder << "\n";
        return root_ / folder;
    }
    static std::string read(const char* file = kFile) {
        std::array<char, 64> text{};
        GetPrivateProfileStringA("S", "A", "none", text.data(), text.size(), file);
        return text.data();
    }

    std::filesystem::path root_;
};

TEST_F(ProfileTest, AFileWithoutAFolderLiesWhereTheFirstVariableSays) {
    EXPECT_EQ(read(), "none");
    setenv("HOME", addProfile("home", "/.config/tavrik").c_str(), 1);
    EXPECT_EQ(read(), "home");
    setenv("XDG_CONFIG_HOME", "relative", 1);
    EXPECT_EQ(read(), "home");
    setenv("XDG_CONFIG_HOME", addProfile("config", "/tavrik").c_str(), 1);
    EXPECT_EQ(read(), "config");
    setenv("TAVRIK_PROFILE_DIR", addProfile("\xC3\xA5\xE2\x86\x92", "").c_str(), 1);
    EXPECT_EQ(read(), "\xC3\xA5\xE2\x86\x92");
    EXPECT_TRUE(WritePrivateProfileStringA("S", "A", "written", kFile));
    EXPECT_EQ(read(), "written");
}

TEST_F(ProfileTest, APipeIsNotWaitedFor) {
    const std::string pipe = (root_ / "pipe").string();
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(read(pipe.c_str()), "none");
    EXPECT_FALSE(WritePrivateProfileStringA("S", "A", "1", pipe.c_str()));
}

// What is written into any text is found in it, and nothing else changes for another key.
TEST(ProfileText, RandomBytesAreReadAndChanged) {
    std::mt19937 random(1);
    const std::string alphabet("[]=;\"'\r\n \tSAx0\0\x1A\xE5", 18);
    for (int round = 0; round < 20000; ++round) {
        std::string text(random() % 40, ' ');
        for (char& c : text) {
            c = alphabet[random() % alphabet.size()];
        }
        const std::string before(findProfileEntry(text, "S", "x").value.value_or("none"));
        const std::string changed = withProfileEntry(text, "S", "A", "new");
        ASSERT_EQ(findProfileEntry(changed, "S", "A").value, "new") << testing::PrintToString(text);
        ASSERT_EQ(findProfileEntry(changed, "S", "x").value.value_or("none"), before) << testing::PrintToString(text);
        profileNumber(withoutQuotes(text));
    }
}

}  // namespace
}  // namespace platform
