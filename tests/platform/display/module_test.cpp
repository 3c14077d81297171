// Modules by their names and addresses.
#include <windows.h>

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace platform {
namespace {

int ownVariable = 0;

TEST(ModuleHandle, NamesAndAddressesLeadToTheSameModule) {
    const HMODULE program = GetModuleHandleA(nullptr);
    HMODULE byAddress = nullptr;
    EXPECT_TRUE(
        GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCSTR>(&ownVariable), &byAddress));
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
