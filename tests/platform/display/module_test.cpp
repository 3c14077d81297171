// Resources through the window API, with an image that the test program registers as its own.
#include "tests/platform/display/res_builder.h"

#include <tavrikdisplay.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace platform {
namespace {

// Registered memory must belong to the module.
alignas(4) std::array<char, 2048> ownImage;

class ModuleTest : public ::testing::Test {
protected:
    void SetUp() override {
        ResBuilder builder;
        builder.add(WORD{6}, WORD{1}, ResBuilder::stringBlock({u"noll", u"pil → slut"}));
        // The last string claims more than the block holds.
        builder.add(WORD{6}, WORD{3}, ResBuilder::stringBlock({u"ok"}).substr(0, 6) + std::string("\x40\0x", 3));
        builder.add(WORD{10}, u"RAW", "12345");
        ASSERT_LE(builder.bytes().size(), ownImage.size());
        std::copy(builder.bytes().begin(), builder.bytes().end(), ownImage.begin());
        TavrikRegisterResources(ownImage.data(), ownImage.data() + builder.bytes().size());
    }

    static std::string load(UINT id) {
        std::array<char, 64> text{};
        const int length = LoadStringA(GetModuleHandleA(nullptr), id, text.data(), static_cast<int>(text.size()));
        EXPECT_EQ(std::string(text.data()).size(), static_cast<std::size_t>(length));
        return text.data();
    }
};

TEST_F(ModuleTest, StringsEndWithTheirBlock) {
    EXPECT_EQ(load(1), "pil ? slut");
    EXPECT_EQ(load(0x10000), "noll");  // Only the low word counts.
    EXPECT_EQ(load(32), "ok");
    EXPECT_EQ(load(33), "");
}

TEST_F(ModuleTest, MissingResourceSetsTheErrorOfItsKind) {
    EXPECT_EQ(FindResourceA(nullptr, "other", RT_RCDATA), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_NAME_NOT_FOUND});
    EXPECT_EQ(FindResourceA(nullptr, "raw", RT_DIALOG), nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_RESOURCE_TYPE_NOT_FOUND});
    EXPECT_EQ(LoadBitmapA(nullptr, "raw"), nullptr);
}

TEST(ModuleHandle, NamesAndAddressesLeadToTheSameModule) {
    const HMODULE program = GetModuleHandleA(nullptr);
    HMODULE byAddress = nullptr;
    EXPECT_TRUE(GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, ownImage.data(), &byAddress));
    EXPECT_EQ(byAddress, program);
    EXPECT_EQ(GetModuleHandleA("DISPLAY_TESTS.exe"), program);
    const HMODULE library = GetModuleHandleA("x11");
    EXPECT_NE(library, nullptr);
    EXPECT_NE(library, program);
    EXPECT_EQ(GetModuleHandleA("libX11.so.6"), library);
}

TEST(ModuleHandle, UnknownModulesAreRefused) {
    HMODULE module = GetModuleHandleA(nullptr);
    EXPECT_FALSE(GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCSTR>(16), &module));
    EXPECT_EQ(module, nullptr);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_MOD_NOT_FOUND});
    EXPECT_EQ(GetModuleHandleA("nonesuch"), nullptr);
    std::array<char, MAX_PATH> path{};
    EXPECT_EQ(GetModuleFileNameA(reinterpret_cast<HMODULE>(16), path.data(), MAX_PATH), 0U);
}

TEST(ModuleHandle, FileNameIsCutToTheBuffer) {
    std::array<char, MAX_PATH> path{};
    const DWORD length = GetModuleFileNameA(nullptr, path.data(), MAX_PATH);
    EXPECT_EQ(std::filesystem::path(path.data()).filename(), "display_tests");
    EXPECT_EQ(length, std::string(path.data()).size());
    std::array<char, 4> small{'#', '#', '#', '#'};
    EXPECT_EQ(GetModuleFileNameA(nullptr, small.data(), 3), 3U);
    EXPECT_EQ(GetLastError(), DWORD{ERROR_INSUFFICIENT_BUFFER});
    EXPECT_EQ(std::string(small.data(), 4), std::string(path.data(), 2) + std::string("\0#", 2));
}

}  // namespace
}  // namespace platform
