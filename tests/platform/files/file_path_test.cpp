// Taking paths apart, patterns, and the order in which a Swede expects names.
#include "platform/files/file_path.h"
#include "platform/files/folder_listing.h"
#include "platform/files/swedish_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace platform {
namespace {

TEST(FilePathTest, FindsNameAndExtensionBehindEitherSeparator) {
    struct Row {
        std::string path;
        std::size_t name;
        std::size_t extension;
    };
    const std::string longFolder = "/" + std::string(300, 'x') + "/";
    const Row rows[] = {
        {"", 0, 0},
        {"a.tds", 0, 2},
        {"/db/a.tds", 4, 6},
        {"C:\\db\\a.tds", 6, 8},
        {"\\\\server\\del/a.tds", 13, 15},
        {"/db.old/a", 8, 0},
        {"/db/", 4, 0},
        {"/db/a.", 4, 6},
        {"/db/.dold", 4, 5},
        {"a3head.rev.dwg", 0, 11},
        {longFolder + "a.tds", 302, 304},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(fileNameOffset(row.path), row.name) << row.path;
        EXPECT_EQ(fileExtensionOffset(row.path), row.extension) << row.path;
    }
}

TEST(FilePathTest, ResolvesWhatUsersType) {
    struct Row {
        const char* typed;
        const char* resolved;
    };
    constexpr Row kRows[] = {
        {"a.tds", "/db/nord/a.tds"},
        {"", "/db/nord"},
        {".", "/db/nord"},
        {"..", "/db"},
        {"../../../..", "/"},
        {"..\\syd\\a.tds", "/db/syd/a.tds"},
        {"/a//b/./c/", "/a/b/c"},
        {"\\a\\b", "/a/b"},
        {"/", "/"},
        {"~", "/home/ylva"},
        {"~/a.tds", "/home/ylva/a.tds"},
        {"~ylva/a.tds", "/db/nord/~ylva/a.tds"},
        {"C:\\db", "/db/nord/C:/db"},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(resolvePath(row.typed, "/db/nord", "/home/ylva"), row.resolved) << row.typed;
    }
    EXPECT_EQ(parentFolder("/db/nord"), "/db");
    EXPECT_EQ(parentFolder("/db"), "/");
    EXPECT_EQ(parentFolder("/"), "/");
    EXPECT_EQ(trimmedName("  \"en fil.tds\" "), "en fil.tds");
    EXPECT_EQ(trimmedName(" \""), "");
}

TEST(FilePathTest, MatchesPatternsWithoutRegardToCase) {
    struct Row {
        const char* name;
        const char* pattern;
        bool matches;
    };
    constexpr Row kRows[] = {
        {"a.tds", "*.tds", true},     {"A.TDS", "*.tds", true},
        {"\xE5.tds", "\xC5.*", true}, {"a.tdsx", "*.tds", false},
        {"tds", "*.tds", false},      {"utan", "*.*", true},
        {"utan", "*", true},          {"ab", "a?", true},
        {"a", "a?", false},           {"", "*", true},
        {"aab.tds", "*ab*s", true},   {"a.tds", "", false},
        {"xaxbxc", "*a*b*c", true},   {"xaxbxcx", "*a*b*c", false},
    };
    for (const Row& row : kRows) {
        EXPECT_EQ(matchesPattern(row.name, row.pattern), row.matches) << row.name << " " << row.pattern;
    }
    EXPECT_EQ(splitPatterns("*.tds; *.rds;"), (std::vector<std::string>{"*.tds", "*.rds"}));
}

TEST(SwedishTextTest, OrdersNamesAsASwedeExpects) {
    const std::vector<std::string> ordered = {
        "",       "_a",     "1",       "2",      "10",       "010a",   "a",     "a.tds",       "a b.tds",
        "A1.tds", "a2.tds", "a10.tds", "abc",    "\xE1n",    "eb",     "\xC9l", "ritning.dwg", "ritning2.dwg",
        "yb",     "\xFCl",  "zebra",   "\xE5sa", "\xC4pple", "\xE6ra", "\xF6",  "\xD8re"};
    std::vector<std::string> sorted(ordered.rbegin(), ordered.rend());
    std::sort(sorted.begin(), sorted.end(),
              [](const std::string& a, const std::string& b) { return sortKey(a) < sortKey(b); });
    EXPECT_EQ(sorted, ordered);
    EXPECT_EQ(sortKey("\xC5NGE"), sortKey("\xE5nge"));
}

TEST(SwedishTextTest, WritesSizesInShort) {
    struct Row {
        std::uint64_t bytes;
        const char* text;
    };
    constexpr Row kRows[] = {{0, "0 byte"},       {1023, "1023 byte"},    {1024, "1,0 kB"},
                             {102300, "99,9 kB"}, {102399, "100 kB"},     {1048000, "1023 kB"},
                             {1048575, "1,0 MB"}, {5368709120, "5,0 GB"}, {~std::uint64_t{0}, "16384 PB"}};
    for (const Row& row : kRows) {
        EXPECT_EQ(sizeText(row.bytes), row.text);
    }
}

class FolderListingTest : public testing::Test {
protected:
    FolderListingTest() {
        std::filesystem::create_directories(folder_ / "mapp");
        std::filesystem::create_directories(folder_ / ".dold");
        const std::pair<const char*, int> files[] = {
            {"b.tds", 30}, {"a.TDS", 20}, {"c.txt", 10}, {".dold.tds", 1}, {"\xCE\xA9.tds", 5}};
        for (const auto& [name, size] : files) {
            std::ofstream(folder_ / name) << std::string(static_cast<std::size_t>(size), 'x');
        }
        std::filesystem::create_symlink("mapp", folder_ / "l\xC3\xA4nk");
        std::filesystem::create_symlink("ingenting", folder_ / "bruten.tds");
    }
    ~FolderListingTest() override { std::filesystem::remove_all(folder_); }

    static void readAll(FolderListing& listing) {
        while (listing.isBusy()) {
            listing.advance(FolderListing::Clock::now());  // The shortest of slices.
        }
    }
    static std::string rows(const FolderListing& listing) {
        std::string all;
        for (std::size_t row = 0; row < listing.rowCount(); ++row) {
            all += listing.row(row).shown + " ";
        }
        return all;
    }

    const std::filesystem::path folder_ =
        std::filesystem::temp_directory_path() / ("tavrik-listing-" + std::to_string(getpid()));
    FolderListing listing_;
};

TEST_F(FolderListingTest, ListsFoldersFirstAndLeavesOutHiddenAndBrokenEntries) {
    ASSERT_EQ(listing_.open(folder_.string()), 0);
    readAll(listing_);
    EXPECT_EQ(rows(listing_), "l\xE4nk mapp ?.tds a.TDS b.tds c.txt ");
    EXPECT_FALSE(listing_.row(2).isNameable);
    EXPECT_TRUE(listing_.row(0).isFolder && listing_.row(0).isNameable);
    listing_.setPatterns({"*.tds"});
    EXPECT_EQ(rows(listing_), "l\xE4nk mapp ?.tds a.TDS b.tds ");
}

TEST_F(FolderListingTest, OrdersBySizeBothWaysBelowTheFolders) {
    listing_.setOrder({FolderListing::Column::Size, false});
    ASSERT_EQ(listing_.open(folder_.string()), 0);
    readAll(listing_);
    EXPECT_EQ(rows(listing_), "l\xE4nk mapp ?.tds c.txt a.TDS b.tds ");
    listing_.setOrder({FolderListing::Column::Size, true});
    readAll(listing_);
    EXPECT_EQ(rows(listing_), "l\xE4nk mapp b.tds a.TDS c.txt ?.tds ");
}

}  // namespace
}  // namespace platform
