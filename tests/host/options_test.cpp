// The host program's command line.

#include "host/options.h"

#include <gtest/gtest.h>

namespace {

using host::ParseOptions;

std::string ErrorOf(const std::vector<std::string>& arguments) {
    try {
        ParseOptions(arguments);
    } catch (const host::UsageError& error) {
        return error.what();
    }
    return "";
}

TEST(Options, SayWhatIsWrong) {
    EXPECT_EQ(ErrorOf({}), "no settings file given");
    EXPECT_EQ(ErrorOf({"--help"}), "");
    EXPECT_EQ(ErrorOf({"a", "b"}), "more than one settings file: 'b'");
    EXPECT_EQ(ErrorOf({"a", "--what"}), "unknown option '--what'");
    EXPECT_EQ(ErrorOf({"a", "--caption"}), "'--caption' needs a value");
    EXPECT_EQ(ErrorOf({"a", "--host-mode", "3x"}), "'3x' is not a number");
    EXPECT_EQ(ErrorOf({"a", "--dpi", "95"}), "'95' is not from 96 to 480");
    EXPECT_EQ(ErrorOf({"a", "--awareness", "none"}), "'none' is not unaware, system or monitor");
    EXPECT_EQ(ErrorOf({"a", "--memory"}), "--memory needs --scenario or --screenshots: nobody could see the windows");
    EXPECT_EQ(ErrorOf({"a", "--memory", "--scenario", "x.scn"}), "");
    EXPECT_EQ(ErrorOf({"a", "--scenario", "x.scn", "--screenshots", "d"}),
              "--scenario and --screenshots exclude each other");
}

}  // namespace
