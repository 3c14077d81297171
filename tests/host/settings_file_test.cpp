// Settings files: what is read, what is refused, and that only changed lines are rewritten.

#include "host/settings_file.h"

#include <gtest/gtest.h>

namespace {

using host::FileError;
using host::Setting;
using host::SettingsFile;

using Settings = std::vector<Setting>;

std::string ErrorOf(const std::string& bytes) {
    try {
        const SettingsFile file("p.settings", bytes);
    } catch (const FileError& error) {
        return error.what();
    }
    return "";
}

std::string Rewrite(const std::string& bytes, const Settings& settings) {
    SettingsFile file("p.settings", bytes);
    file.SetSettings(settings);
    return file.Bytes();
}

TEST(SettingsFile, ReadsRecordsInOrderWithEscapesAndDuplicates) {
    const SettingsFile file(
        "p.settings", "# comment=1\n \t\nA= x \nA=2\nT\xC3\x84=C:\\\\d\\r\\n\\t\\x07\\xe5\n\\#k\\=v\\\\=a=b#c\nE=");
    const Settings expected = {
        {"A", " x "}, {"A", "2"}, {"T\xC4", "C:\\d\r\n\t\x07\xE5"}, {"#k=v\\", "a=b#c"}, {"E", ""}};
    EXPECT_EQ(file.Settings(), expected);
}

TEST(SettingsFile, GivesBackEveryByteWhenNothingChanged) {
    for (const std::string bytes : {"", "\n", "A=1", "A=1\r\n# x\r\n\r\nB=\\x41\r\n", "# x\rA=1\n\r\n\r\rB=2",
                                    "\xEF\xBB\xBF# bom\nA=\\=\n", "A=1\r"}) {
        SettingsFile file("p.settings", bytes);
        file.SetSettings(Settings(file.Settings()));
        EXPECT_EQ(file.Bytes(), bytes);
    }
}

TEST(SettingsFile, RewritesOnlyTheLinesOfChangedRecords) {
    const struct {
        const char* before;
        Settings settings;
        const char* after;
    } rows[] = {
        {"# c\nA=1\nB=\\x41\n", {{"A", "2"}, {"B", "A"}}, "# c\nA=2\nB=\\x41\n"},
        {"A=1\nA=1\n", {{"A", "1"}, {"A", "\xE5\n=#"}}, "A=1\nA=\xC3\xA5\\n=#\n"},
        {"\\#A\\=B=1\n", {{"#A=B", "2"}}, "\\#A\\=B=2\n"},
        {"A=1\r\n# c", {{"A", "1"}, {"#=", "\x7F\x81"}, {"C", "3"}}, "A=1\r\n# c\r\n\\#\\==\\x7F\\x81\r\nC=3"},
        {"A=1", {{"A", "1"}, {"B", "2"}}, "A=1\nB=2"},
        {"# c\rA=1\rB=2\r", {{"A", "3"}, {"B", "2"}, {"C", "4"}}, "# c\rA=3\rB=2\rC=4\r"},
        {"A=1\r\nB=1\rC=1", {{"A", "2"}, {"B", "2"}, {"C", "1"}, {"D", "1"}}, "A=2\r\nB=2\rC=1\rD=1"},
        {"", {{"A", "1"}}, "A=1\n"},
        {"A=1\n\nB=2\nC=3\n", {{"A", "1"}, {"X", "2"}}, "A=1\n\nX=2\n"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Rewrite(row.before, row.settings), row.after) << row.before;
    }
}

TEST(SettingsFile, EveryTextSurvivesWritingAndReading) {
    Settings settings;
    for (int byte = 1; byte < 256; ++byte) {
        const std::string text(1, static_cast<char>(byte));
        settings.push_back({text + "#=\\", text + " "});
    }
    EXPECT_EQ(SettingsFile("p.settings", Rewrite("", settings)).Settings(), settings);
}

TEST(SettingsFile, NamesFileLineAndFaultOfABadLine) {
    using namespace std::string_literals;
    const std::string longestKey(79, 'K');
    EXPECT_EQ(ErrorOf(longestKey + "=1"), "");
    const struct {
        std::string line;
        const char* fault;
    } rows[] = {
        {"KEY", "expected KEY=value"},
        {"KEY\\=1", "expected KEY=value"},
        {"=1", "the key is empty"},
        {longestKey + "K=1", "the key is longer than 79 characters"},
        {"A=\\q", "unknown escape (known are \\\\ \\n \\r \\t \\xHH \\= \\#)"},
        {"A=\\", "unknown escape (known are \\\\ \\n \\r \\t \\xHH \\= \\#)"},
        {"A=\\x4", "\\x must be followed by two hexadecimal digits"},
        {"A=\\x+4", "\\x must be followed by two hexadecimal digits"},
        {"A=\\x00", "a settings file cannot hold the character 0"},
        {"A=\0"s, "a settings file cannot hold the character 0"},
        {"A=\xD0\x96", "the character U+0416 is outside code page 1252"},
        {"A=\xE5", "malformed UTF-8"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(ErrorOf("B=1\n" + row.line + "\nC=1\n"), std::string("p.settings:2: ") + row.fault);
    }
}

}  // namespace
