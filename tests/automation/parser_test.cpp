// The scenario parser: a table of bad lines.

#include <gtest/gtest.h>

#include "automation/player.h"

namespace {

using automation::Scenario;

Scenario Parse(std::string_view text) {
    return automation::ParseScenario("a.scn", text, automation::ShapeOfCommand);
}

TEST(ScenarioParser, NamesFileLineAndFaultOfEachBadLine) {
    const struct {
        const char* line;
        const char* fault;
    } rows[] = {
        {"fly 1", "unknown command 'fly'"},
        {"expect", "unknown command 'expect'"},
        {"click 10x", "'click': argument 1 must be a number"},
        {"click", "'click' takes 1 arguments, got 0"},
        {"ok 1", "'ok' takes 0 arguments, got 1"},
        {"type 1 a=2", "'type': argument 2 must be a text"},
        {"type 1 \"a", "a text without its closing quote"},
        {"type 1 \"a\"b", "arguments must be separated by blanks"},
        {"keys \"\\q\"", "unknown escape in a text (known are \\\" \\\\ \\n \\t)"},
        {"keys \"\xC5\x81\"", "the character U+0141 is outside code page 1252"},
        {"keys \"\xC5\"", "malformed UTF-8"},
        {"keys \"\xE0\x80\xAF\"", "malformed UTF-8"},
        {"keys \"\xED\xA0\x80\"", "malformed UTF-8"},
        {"keys \"\xF4\x90\x80\x80\"", "malformed UTF-8"},
        {"press CTRL+CTRL+A", "'press': argument 1 must be a key to press"},
        {"select 1 @", "'select': argument 2 must be an entry's text or @N"},
        {"select 1 @-1", "'select': argument 2 must be an entry's text or @N"},
        {"click-row 1 2 box", "'click-row': argument 3 must be check, label or a number"},
    };
    for (const auto& row : rows) {
        const Scenario scenario = Parse(std::string("\xEF\xBB\xBFok\r\n") + row.line + "\ncancel\n");
        ASSERT_EQ(scenario.errors.size(), 1U) << row.line;
        EXPECT_EQ(scenario.errors.front(), std::string("a.scn:2: ") + row.fault);
        EXPECT_EQ(scenario.commands.size(), 2U) << row.line;
    }
}

}  // namespace
