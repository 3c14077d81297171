// A scenario file as data: its commands in order, with their arguments checked against each command's shape.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace automation {

struct Argument {
    enum class Kind {
        Word,    // a bare word or number
        Text,    // a text in double quotes, escapes resolved
        Option,  // name=value, the value bare or in double quotes
    };
    Kind kind = Kind::Word;
    std::string name;  // an option's name, else empty
    std::string text;  // code page 1252

    bool IsNumber() const;

    // The decimal number that the text is; 0 when it is none.
    int Number() const;
};

struct Command {
    int line = 0;
    std::string source;  // the line as written, UTF-8
    std::string name;    // of an `expect` command both words: "expect text"
    std::vector<Argument> arguments;
};

struct Scenario {
    std::string fileName;
    std::vector<Command> commands;
    // "FILE:LINE: ..." each, or one "FILE: ..." of a file that cannot be read. With errors, it is not to be played.
    std::vector<std::string> errors;
};

// What arguments a command takes: one letter an argument.
//   n number   t text   e list entry (text or @N); each with or without quotes, which blanks and nothing need
//   p key to press   o option or flag word   r part of a row (the word `check` or `label`, or a column's number)
// A `*` behind the last letter means any number of those, also none.
// Null for a command that does not exist.
using ShapeOf = std::function<const char*(std::string_view name)>;

// Parses the UTF-8 text of a scenario. Never fails as a whole: what is wrong is in the result's errors.
Scenario ParseScenario(const std::string& fileName, std::string_view utf8, const ShapeOf& shapeOf);

// As ParseScenario. A file that cannot be read has no commands and one error, which says why.
Scenario ReadScenario(const std::string& fileName, const ShapeOf& shapeOf);

}  // namespace automation
