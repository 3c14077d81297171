// The scenario parser: lines into words and texts, those into commands of known shape.

#include "automation/scenario.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

#include "automation/codepage.h"
#include "automation/keys.h"

namespace automation {
namespace {

constexpr std::string_view kBlanks = " \t";

// What a line's author did wrong; the caller adds file and line.
struct LineError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

// Arguments in code page 1252 are made of words and texts in UTF-8; a comment may hold any character.
std::string To1252(std::string_view utf8) {
    std::string bytes;
    std::string problem;
    if (!ConvertTo1252(utf8, bytes, problem)) {
        throw LineError(problem);
    }
    return bytes;
}

// @ and the entry's number.
bool IsEntryNumber(const std::string& word) {
    return word.size() > 1 && word[0] == '@' && word.find_first_not_of("0123456789", 1) == std::string::npos;
}

// Reads a text in double quotes that begins at `rest`, and leaves `rest` behind its closing quote.
std::string TakeQuoted(std::string_view& rest) {
    std::string text;
    for (size_t i = 1; i < rest.size(); ++i) {
        char c = rest[i];
        if (c == '"') {
            rest.remove_prefix(i + 1);
            return To1252(text);
        }
        if (c == '\\') {
            constexpr std::string_view kEscapes = "\"\\nt";
            constexpr std::string_view kMeanings = "\"\\\n\t";
            const size_t which = ++i < rest.size() ? kEscapes.find(rest[i]) : std::string_view::npos;
            if (which == std::string_view::npos) {
                throw LineError("unknown escape in a text (known are \\\" \\\\ \\n \\t)");
            }
            c = kMeanings[which];
        }
        text += c;
    }
    throw LineError("a text without its closing quote");
}

Argument TakeArgument(std::string_view& rest) {
    Argument argument;
    if (rest.front() == '"') {
        argument.kind = Argument::Kind::Text;
        argument.text = TakeQuoted(rest);
    } else {
        const size_t end = std::min(rest.find_first_of(" \t\"#"), rest.size());
        argument.text = To1252(rest.substr(0, end));
        rest.remove_prefix(end);
        const size_t equals = argument.text.find('=');
        if (equals != std::string::npos) {
            argument.kind = Argument::Kind::Option;
            argument.name = argument.text.substr(0, equals);
            argument.text.erase(0, equals + 1);
            if (argument.text.empty() && rest.starts_with('"')) {
                argument.text = TakeQuoted(rest);
            }
        }
    }
    if (!rest.empty() && kBlanks.find(rest.front()) == std::string_view::npos && rest.front() != '#') {
        throw LineError("arguments must be separated by blanks");
    }
    return argument;
}

std::vector<Argument> SplitLine(std::string_view line) {
    std::vector<Argument> arguments;
    for (;;) {
        line.remove_prefix(std::min(line.find_first_not_of(kBlanks), line.size()));
        if (line.empty() || line.front() == '#') {
            return arguments;
        }
        arguments.push_back(TakeArgument(line));
    }
}

// Null when the argument has the shape, else what was expected instead.
const char* Mismatch(char shape, const Argument& argument) {
    const bool word = argument.kind == Argument::Kind::Word;
    const bool text = argument.kind == Argument::Kind::Text;
    const std::string& value = argument.text;
    switch (shape) {
        case 'n':
            return (word || text) && argument.IsNumber() ? nullptr : "a number";
        case 't':
            return word || text ? nullptr : "a text";
        case 'e':
            return text || (word && (!value.starts_with('@') || IsEntryNumber(value))) ? nullptr
                                                                                       : "an entry's text or @N";
        case 'r':
            return (word || text) && (argument.IsNumber() || value == "check" || value == "label")
                       ? nullptr
                       : "check, label or a number";
        case 'p':
            return (word || text) && ParseKey(value) ? nullptr : "a key to press";
        default:
            return text ? "an option" : nullptr;
    }
}

void CheckShape(const Command& command, std::string_view shape) {
    const bool open = shape.ends_with('*');
    if (open) {
        shape.remove_suffix(1);
    }
    const size_t fixed = open ? shape.size() - 1 : shape.size();
    const size_t given = command.arguments.size();
    if (given < fixed || (given > fixed && !open)) {
        throw LineError("'" + command.name + "' takes " + std::to_string(fixed) + (open ? " or more" : "") +
                        " arguments, got " + std::to_string(given));
    }
    for (size_t i = 0; i < given; ++i) {
        const char* expected = Mismatch(shape[std::min(i, shape.size() - 1)], command.arguments[i]);
        if (expected != nullptr) {
            throw LineError("'" + command.name + "': argument " + std::to_string(i + 1) + " must be " + expected);
        }
    }
}

std::optional<Command> ParseLine(std::string_view utf8, const ShapeOf& shapeOf) {
    Command command;
    command.arguments = SplitLine(utf8);
    if (command.arguments.empty()) {
        return std::nullopt;
    }
    const auto takeName = [&command] {
        std::string word = command.arguments.front().text;
        command.arguments.erase(command.arguments.begin());
        return word;
    };
    command.name = takeName();
    if (command.name == "expect" && !command.arguments.empty()) {
        command.name += " " + takeName();
    }
    const char* shape = shapeOf(command.name);
    if (shape == nullptr) {
        throw LineError("unknown command '" + ConvertFrom1252(command.name) + "'");
    }
    CheckShape(command, shape);
    return command;
}

}  // namespace

bool Argument::IsNumber() const {
    int value = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, value);
    return error == std::errc() && stopped == end;
}

int Argument::Number() const {
    int value = 0;
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

Scenario ParseScenario(const std::string& fileName, std::string_view utf8, const ShapeOf& shapeOf) {
    Scenario scenario{fileName, {}, {}};
    if (utf8.starts_with("\xEF\xBB\xBF")) {
        utf8.remove_prefix(3);
    }
    for (int line = 1; !utf8.empty(); ++line) {
        const size_t end = std::min(utf8.find('\n'), utf8.size());
        std::string_view text = utf8.substr(0, end);
        utf8.remove_prefix(std::min(end + 1, utf8.size()));
        if (text.ends_with('\r')) {
            text.remove_suffix(1);
        }
        try {
            if (std::optional<Command> command = ParseLine(text, shapeOf)) {
                command->line = line;
                command->source = text;
                scenario.commands.push_back(std::move(*command));
            }
        } catch (const LineError& error) {
            scenario.errors.push_back(fileName + ":" + std::to_string(line) + ": " + error.what());
        }
    }
    return scenario;
}

Scenario ReadScenario(const std::string& fileName, const ShapeOf& shapeOf) {
    const std::u8string name(fileName.begin(), fileName.end());
    std::ifstream file(std::filesystem::path(name), std::ios::binary);
    std::string text;
    char block[4096];
    // A folder can be opened in places, and fails when it is read.
    while (file.read(block, sizeof(block)) || file.gcount() > 0) {
        text.append(block, static_cast<size_t>(file.gcount()));
    }
    if (!file.is_open() || file.bad()) {
        return {fileName, {}, {fileName + ": cannot be read: " + std::strerror(errno)}};
    }
    return ParseScenario(fileName, text, shapeOf);
}

}  // namespace automation
