// What the page "Projektbeskrivning" makes of paths and files.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "pages/project/file_pickers.h"
#include "pages/project/first_line.h"

namespace {

TEST(ProjectPaths, NameTheFolderThatTheDialogShowsFirst) {
    const std::string longName(300, 'x');
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"artiklar.tds", ""},
        {"C:\\Data\\artiklar.tds", "C:\\Data"},
        {"C:\\Data\\", "C:\\Data"},
        {"C:\\Data\\*", "C:\\Data\\"},
        {"*", ""},
        {"/data/projekt/artiklar.tds", "/data/projekt"},
        {"/data/projekt/*", "/data/projekt/"},
        {"C:\\Data/blandat\\artiklar.tds", "C:\\Data/blandat"},
        {"\\\\server\\*\\x*", "\\\\server\\"},
        {"C:\\" + longName + "\\a.tds", "C:\\" + longName},
    };
    for (const auto& [path, folder] : cases) {
        EXPECT_STREQ(FolderShownFirst(path.c_str()), folder.c_str()) << path;
    }
    const PickedFile file = {"/data/artiklar.tds", 6};
    EXPECT_STREQ(file.Folder(), "/data/");
    EXPECT_STREQ(file.Name(), "artiklar.tds");
}

class FirstLine : public testing::Test {
protected:
    void SetUp() override { std::filesystem::create_directory(m_folder); }
    void TearDown() override { std::filesystem::remove_all(m_folder); }

    // The line, or nothing when the file cannot be read.
    static std::optional<std::string> Read(const std::filesystem::path& path) {
        CString line = "before";
        if (!ReadFirstLine(path.c_str(), 4, line)) {
            EXPECT_STREQ(line, "before");
            return std::nullopt;
        }
        return std::string(line.GetString(), static_cast<size_t>(line.GetLength()));
    }
    std::filesystem::path Write(const char* name, const std::string& content) const {
        std::ofstream(m_folder / name, std::ios::binary) << content;
        return m_folder / name;
    }

    const std::filesystem::path m_folder =
        std::filesystem::temp_directory_path() / ("tavrik-first-line-" + std::to_string(getpid()));
};

TEST_F(FirstLine, IsReadAsTextAndBounded) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},
        {"\n", "\n"},
        {"AB\nC", "AB\n"},
        {"ABC\n", "ABC\n"},
        {"ABCD\n", "ABCD"},
        {"ABCDE\n", "ABCD"},
        {"AB", "AB"},
        {"AB\r\nCD", "AB\n"},
        {"ABC\r\n", "ABC\n"},
        {"ABCD\r\n", "ABCD"},
        {"A\rB\n", "A\rB\n"},
        {"A\r", "A\r"},
        {"\r\r\n", "\r\n"},
        {std::string("A\0B\n", 4), "A"},
        {"A\x1A"
         "B",
         "A"},
        {std::string(100000, 'x'), "xxxx"},
    };
    for (const auto& [content, line] : cases) {
        EXPECT_EQ(Read(Write("f.tds", content)), line) << testing::PrintToString(content);
    }
}

TEST_F(FirstLine, OfWhatIsNoReadableFileIsNone) {
    EXPECT_EQ(Read(m_folder / "missing"), std::nullopt);
    EXPECT_EQ(Read(m_folder), std::nullopt);
    const std::filesystem::path pipe = m_folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(Read(pipe), std::nullopt);
    // The name in code page 1252; the file system has it in UTF-8.
    Write("\u00E5.tds", "ABC");
    EXPECT_EQ(Read(m_folder / "\xE5.tds"), "ABC");
}

}  // namespace
