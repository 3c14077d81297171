// The message sequences of all scenarios against those of the real system, which traces.expected holds: it is the
// output of the program windowtrace, built for Windows.
#include "tests/platform/window/memory_screen.h"

#include <gtest/gtest.h>

#include <fstream>

namespace {

std::map<std::string, std::vector<std::string>> readExpected() {
    std::map<std::string, std::vector<std::string>> traces;
    std::ifstream file(TRACES);
    std::vector<std::string>* current = nullptr;
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("## "))
            current = &traces[line.substr(3)];
        else if (current)
            current->push_back(line);
    }
    return traces;
}

class MessageSequence : public testing::TestWithParam<trace::Scenario> {};

TEST_P(MessageSequence, IsThatOfTheRealSystem) {
    static const auto expected = readExpected();
    testing_window::screen();
    trace::Recorder recorder;
    GetParam().run(recorder);
    ASSERT_TRUE(expected.contains(GetParam().name));
    EXPECT_EQ(expected.at(GetParam().name), recorder.lines());
}

std::string testName(const testing::TestParamInfo<trace::Scenario>& info) {
    std::string name = info.param.name;
    for (char& character : name) {
        if (!isalnum(static_cast<unsigned char>(character)))
            character = '_';
    }
    return name;
}

INSTANTIATE_TEST_SUITE_P(All, MessageSequence, testing::ValuesIn(trace::scenarios()), testName);

}  // namespace
