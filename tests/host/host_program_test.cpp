// The host program as a process, with windows in memory: files, output and exit status.

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <iterator>

#include "automation/scratch.h"

namespace {

struct Outcome {
    int status = -1;
    std::string output;  // standard output and standard error, as they came
};

class HostProgram : public testing::Test {
protected:
    std::string Path(const std::string& name) const { return (m_scratch.Path() / name).string(); }

    std::string Write(const std::string& name, const std::string& content) const {
        std::ofstream(Path(name), std::ios::binary) << content;
        return Path(name);
    }

    std::string Read(const std::string& name) const {
        std::ifstream file(Path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    // `before` are shell commands that set the process up. A redirection among the arguments is of standard output
    // only. `by` is a command that runs the program.
    static Outcome Run(const std::string& arguments, const std::string& before = "unset DISPLAY",
                       const std::string& by = "") {
        std::FILE* pipe = popen((before + "; " + by + TAVRIK_HOST " 2>&1 " + arguments).c_str(), "r");
        Outcome outcome;
        for (int c = 0; (c = std::fgetc(pipe)) != EOF;) {
            outcome.output += static_cast<char>(c);
        }
        const int status = pclose(pipe);
        outcome.status = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        return outcome;
    }

    const automation::ScratchFolder m_scratch;
};

constexpr const char* kSettings = "# projekt\r\nX-COORD=10\r\nTITLE_A3=\xC3\x85\xC3\xA4\r\n";
constexpr const char* kChangeX =
    "open\ntab \"Allm\xC3\xA4nt\"\ntype 1089 \"12.5\"\npress TAB\nclick 1043\nok\nresult 1\n";

TEST_F(HostProgram, WritesChangesBackAndListsThem) {
    Write("p.settings", kSettings);
    Write("x.scn", kChangeX);
    chmod(Path("p.settings").c_str(), 0640);
    const Outcome outcome = Run(Path("p.settings") + " --scenario " + Path("x.scn"));
    EXPECT_EQ(outcome.status, 0) << outcome.output;
    EXPECT_EQ(outcome.output, "changed X-COORD: \"10\" -> \"12.5\"\nadded BET_CAPITALS: \"1\"\n1 passed, 0 failed\n");
    EXPECT_EQ(Read("p.settings"), "# projekt\r\nX-COORD=12.5\r\nTITLE_A3=\xC3\x85\xC3\xA4\r\nBET_CAPITALS=1\r\n");
    struct stat status {};
    ASSERT_EQ(stat(Path("p.settings").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777U, 0640U);
}

TEST_F(HostProgram, CancelAndAFailedScenarioLeaveTheFileAlone) {
    Write("p.settings", kSettings);
    Write("x.scn", "open\ntab \"Allm\xC3\xA4nt\"\nclick 1043\ncancel\nresult 1\nunchanged\n");
    const Outcome outcome = Run(Path("p.settings") + " --scenario " + Path("x.scn"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_NE(outcome.output.find("x.scn:5: expected result 1, got 0\n1 passed, 1 failed\n"), std::string::npos)
        << outcome.output;
    EXPECT_EQ(Read("p.settings"), kSettings);
}

TEST_F(HostProgram, AFullDiskLeavesTheOldFile) {
    Write("p.settings", kSettings);
    Write("x.scn", kChangeX);
    // A limit on the size of files stands for the disk; the larger output here is the new settings file. A program that
    // counts what the tests take cannot write down its counts.
    const Outcome outcome = Run(Path("p.settings") + " --scenario " + Path("x.scn"),
                                "unset DISPLAY; export LLVM_PROFILE_FILE=/dev/null; trap '' XFSZ; ulimit -f 0");
    EXPECT_EQ(outcome.status, 2);
    EXPECT_EQ(outcome.output,
              "tavrikhost: " + Path("p.settings") +
                  ": cannot be written: File too large; no other file can be written either, not saved:\n"
                  "changed X-COORD: \"10\" -> \"12.5\"\nadded BET_CAPITALS: \"1\"\n");
    EXPECT_EQ(Read("p.settings"), kSettings);
    const auto files = std::filesystem::directory_iterator(m_scratch.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 2) << "a temporary file was left behind";
}

TEST_F(HostProgram, SaysInOneLineWhyItCannotRun) {
    Write("bad.settings", "A=1\nB\n");
    Write("p.settings", kSettings);
    Write("bad.scn", "open\nfly\n");
    mkfifo(Path("pipe").c_str(), 0600);
    const struct {
        std::string arguments;
        std::string message;
    } rows[] = {
        {"", "no settings file given (see --help)"},
        {Path("none"), Path("none") + ": cannot be read: No such file or directory"},
        {m_scratch.Path().string(), m_scratch.Path().string() + ": is a folder, not a file"},
        {"/dev/zero", "/dev/zero: is a device, not a file"},
        {Path("pipe"), Path("pipe") + ": is a pipe, not a file"},
        {Path("p.settings") + " --scenario " + Path("pipe"), Path("pipe") + ": is a pipe, not a file"},
        {Path("bad.settings"), Path("bad.settings") + ":2: expected KEY=value"},
        {Path("p.settings") + " --scenario " + Path("bad.scn"), Path("bad.scn") + ":2: unknown command 'fly'"},
        {Path("p.settings") + " --scenario " + Path("no.scn"),
         Path("no.scn") + ": cannot be read: No such file or directory"},
        {"--help >/dev/full", "standard output cannot be written"},
        {"--version >/dev/full", "standard output cannot be written"},
    };
    for (const auto& row : rows) {
        const Outcome outcome = Run(row.arguments);
        EXPECT_EQ(outcome.status, 2) << row.arguments;
        EXPECT_EQ(outcome.output, "tavrikhost: " + row.message + "\n");
    }
}

TEST_F(HostProgram, SaysWhyNoSheetCanBeSeen) {
    Write("p.settings", kSettings);
    Outcome outcome = Run(Path("p.settings"));
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.output, "tavrikhost: there is no display (DISPLAY is not set)\n");
    outcome = Run(Path("p.settings"), "export DISPLAY=:4711");
    EXPECT_EQ(outcome.status, 4);
    EXPECT_EQ(outcome.output, "tavrikhost: no display answers (DISPLAY is ':4711')\n");
}

// Without the right to pass over permissions, which root has.
TEST_F(HostProgram, SaysFirstWhatStandsInTheWayOfSaving) {
    Write("p.settings", kSettings);
    Write("p.settings.new-7", "half");
    Write("p.settings.new-7b", "someone's");
    Write("x.scn", kChangeX);
    chmod(Path("p.settings").c_str(), 0400);
    const std::string drop = geteuid() == 0 ? "setpriv --bounding-set=-dac_override --inh-caps=-dac_override " : "";
    const Outcome outcome = Run(Path("p.settings") + " --scenario " + Path("x.scn"), "unset DISPLAY", drop);
    EXPECT_EQ(outcome.status, 2);
    const std::string denied = "tavrikhost: " + Path("p.settings") + ": cannot be written: Permission denied; ";
    EXPECT_EQ(outcome.output.substr(0, outcome.output.find(".unsaved-")),
              "tavrikhost: " + Path("p.settings.new-7") +
                  " was left by a run that did not finish saving; it may be incomplete\n" + denied +
                  "OK will put the changed settings into another file\n" + denied + "the changed settings are in " +
                  Path("p.settings"));
    EXPECT_EQ(Read("p.settings"), kSettings);
}

TEST_F(HostProgram, PhotographsEveryPage) {
    Write("p.settings", kSettings);
    const Outcome outcome = Run(Path("p.settings") + " --screenshots " + Path("pictures"));
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output, "");
    bool hasGeneralPage = false;
    for (const auto& file : std::filesystem::directory_iterator(Path("pictures"))) {
        EXPECT_GT(file.file_size(), 500U) << file.path();
        hasGeneralPage = hasGeneralPage || file.path().filename().string().find("Allmant.png") != std::string::npos;
    }
    EXPECT_TRUE(hasGeneralPage);
    EXPECT_EQ(Read("p.settings"), kSettings);
}

}  // namespace
