// Saving: whose changes a file holds afterwards, and what the file keeps besides its bytes.

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>
#include <cstring>
#include <fstream>
#include <iterator>

#include "automation/scratch.h"
#include "host/document.h"
#include "host/files.h"

namespace {

namespace fs = std::filesystem;
using host::Document;
using host::Setting;

class Saving : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return (m_scratch.Path() / name).string(); }

    void Write(const std::string& content) const { std::ofstream(m_strFile, std::ios::binary) << content; }

    static std::string Read(const std::string& path) {
        std::ifstream file(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // What Save throws, or what it says.
    static std::string Save(Document& document, const std::string& key, const std::string& value) {
        std::vector<Setting> settings = document.Settings();
        for (Setting& setting : settings) {
            if (setting.key == key) {
                setting.value = value;
            }
        }
        try {
            return document.Save(settings);
        } catch (const host::FileError& error) {
            return error.what();
        }
    }

    std::string SaveNew(const std::string& value) const {
        Document document(m_strFile);
        return Save(document, "A", value);
    }

    size_t FilesInFolder() const {
        return static_cast<size_t>(std::distance(fs::directory_iterator(m_scratch.Path()), {}));
    }

    const automation::ScratchFolder m_scratch;
    const std::string m_strFile = Path("p.settings");
};

// An access control list as the kernel has it: a version, then tag, permissions and id of each entry.
std::string AclFor(unsigned char namedUserMay) {
    const std::string noId(4, '\xFF');
    const auto entry = [](char tag, unsigned char may, const std::string& id) {
        return std::string{tag, '\0', static_cast<char>(may), '\0'} + id;
    };
    return std::string("\2\0\0\0", 4) + entry(1, 6, noId) + entry(2, namedUserMay, std::string("\x39\x30\0\0", 4)) +
           entry(4, 4, noId) + entry(0x10, namedUserMay, noId) + entry(0x20, 0, noId);
}

constexpr const char* kAcl = "system.posix_acl_access";

TEST_F(Saving, KeepsPermissionsAttributesOwnerAndLinks) {
    Write("A=1\n");
    chmod(m_strFile.c_str(), 0640);
    const bool isRoot = geteuid() == 0;
    if (isRoot) {
        ASSERT_EQ(chown(m_strFile.c_str(), 12345, 12346), 0);
    }
    const bool hasAttributes = setxattr(m_strFile.c_str(), "user.note", "mine", 4, 0) == 0;
    // The folder would give a new file more readers than the old one has.
    const std::string more = AclFor(6);
    const bool hasLists =
        setxattr(m_scratch.Path().c_str(), "system.posix_acl_default", more.data(), more.size(), 0) == 0;
    fs::create_symlink("p.settings", Path("link"));

    Document linked(Path("link"));
    EXPECT_EQ(Save(linked, "A", "2"), "");
    EXPECT_EQ(Read(m_strFile), "A=2\n");
    EXPECT_TRUE(fs::is_symlink(Path("link")));
    struct stat status {};
    ASSERT_EQ(stat(m_strFile.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0640U);
    if (isRoot) {
        EXPECT_EQ(status.st_uid, 12345U);
        EXPECT_EQ(status.st_gid, 12346U);
    }
    char value[256] = {};
    if (hasAttributes) {
        EXPECT_EQ(getxattr(m_strFile.c_str(), "user.note", value, sizeof(value)), 4);
    }
    if (hasLists) {
        EXPECT_LT(getxattr(m_strFile.c_str(), kAcl, value, sizeof(value)), 0) << "the folder's list came in";
        const std::string list = AclFor(4);
        ASSERT_EQ(setxattr(m_strFile.c_str(), kAcl, list.data(), list.size(), 0), 0);
        EXPECT_EQ(SaveNew("3"), "");
        const ssize_t size = getxattr(m_strFile.c_str(), kAcl, value, sizeof(value));
        EXPECT_EQ(std::string(value, static_cast<size_t>(std::max<ssize_t>(size, 0))), list);
    }
}

TEST_F(Saving, WritesAFileWithTwoNamesInPlace) {
    Write("A=1\nB=long enough to be cut off\n");
    fs::create_hard_link(m_strFile, Path("other"));
    EXPECT_EQ(SaveNew("22"), "");
    EXPECT_EQ(Read(Path("other")), "A=22\nB=long enough to be cut off\n");
    Document document(m_strFile);
    EXPECT_EQ(Save(document, "B", ""), "");
    EXPECT_EQ(Read(Path("other")), "A=22\nB=\n");
    EXPECT_EQ(fs::hard_link_count(m_strFile), 2U);
    EXPECT_EQ(FilesInFolder(), 2U) << "the copy of the old content was left";
}

TEST_F(Saving, WritesAFileOfAnotherOwnerInPlace) {
    if (geteuid() != 0) {
        GTEST_SKIP() << "only root can give a file away";
    }
    Write("A=1\n");
    chmod(m_strFile.c_str(), 0666);
    chmod(m_scratch.Path().c_str(), 0777);
    ASSERT_EQ(seteuid(65534), 0);
    const std::string said = SaveNew("2");
    ASSERT_EQ(seteuid(0), 0);
    EXPECT_EQ(said, "");
    EXPECT_EQ(Read(m_strFile), "A=2\n");
    struct stat status {};
    ASSERT_EQ(stat(m_strFile.c_str(), &status), 0);
    EXPECT_EQ(status.st_uid, 0U);
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(Saving, AFullDiskLeavesAFileThatIsWrittenInPlace) {
    const std::string before = "A=1\n# " + std::string(1000, 'x') + "\n";
    Write(before);
    fs::create_hard_link(m_strFile, Path("other"));
    // A limit on the size of files stands for the disk: the copy has space, the longer content has none.
    const auto oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{1020, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    const std::string said = SaveNew(std::string(100, '2'));
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_EQ(said, m_strFile +
                        ": cannot be written: File too large; no other file can be written either, not saved:\n" +
                        "changed A: \"1\" -> \"" + std::string(100, '2') + "\"");
    EXPECT_EQ(Read(m_strFile), before);
    EXPECT_EQ(FilesInFolder(), 2U);
}

TEST_F(Saving, PutsItsChangesOnTopOfSomeoneElses) {
    Write("A=1\nB=1\nC=1\nC=2\n");
    Document document(m_strFile);
    Write("# new\r\nB=5\r\nA=7\r\nC=1\r\nC=2\r\nZ=9");
    EXPECT_EQ(Save(document, "A", "2"),
              m_strFile + " was changed by someone else meanwhile: those changes stay, these are added\n" +
                  "replaced A: \"7\", which someone else had set\n");
    EXPECT_EQ(Read(m_strFile), "# new\r\nB=5\r\nA=2\r\nC=1\r\nC=2\r\nZ=9");
    // The next changes are told from what this run had, not from what the file holds.
    EXPECT_EQ(document.Save({{"A", "2"}, {"B", "1"}, {"C", "1"}, {"C", "3"}, {"D", "4"}}), "");
    EXPECT_EQ(Read(m_strFile), "# new\r\nB=5\r\nA=2\r\nC=1\r\nC=3\r\nZ=9\r\nD=4");
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(Saving, KeepsTheChangesInAnotherFileWhenItFails) {
    Write("A=1\n");
    Document document(m_strFile);
    fs::remove(m_strFile);
    fs::create_directory(m_strFile);
    const std::string said = Save(document, "A", "2");
    const std::string beginning = m_strFile + ": is a folder, not a file; the changed settings are in ";
    ASSERT_TRUE(said.starts_with(beginning)) << said;
    const std::string rescued = said.substr(beginning.size());
    EXPECT_EQ(Read(rescued), "A=2\n");
    struct stat status {};
    ASSERT_EQ(stat(rescued.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0600U);
    EXPECT_EQ(host::DescribeLeftovers(m_strFile),
              std::vector<std::string>{rescued + " has the settings of a run that could not save them"});
}

}  // namespace
