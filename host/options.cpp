// Options are rows of one table; each says what its value, if it takes one, is for.

#include "host/options.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "automation/codepage.h"

namespace host {

const char* const kUsage =
    "usage: tavrikhost [options] FILE\n"
    "\n"
    "Opens the settings in FILE. OK writes the changes into FILE and lists them; Cancel changes nothing.\n"
    "\n"
    "  --caption TEXT        the sheet's title\n"
    "  --designation N       non-zero offers the designation options\n"
    "  --optional-pages N    non-zero adds the optional pages\n"
    "  --host-mode N         the kind of drawing\n"
    "  --scenario FILE.scn...  play scenarios instead of waiting for a user; OK writes FILE as ever\n"
    "  --screenshots DIR     write a PNG picture of each page and cancel\n"
    "  --dpi N               dots an inch of the screen, 96 to 480; as the desktop says without it\n"
    "  --awareness KIND      unaware, system or monitor: what a Windows host knows of the screen's dots an inch\n"
    "  --memory              windows in memory, also where there is a display; for scenarios and screenshots\n"
    "  -h, --help            this text\n"
    "  --version             the version\n"
    "\n"
    "Exit status: 0 after OK, 1 after Cancel or a failed scenario, 2 for a wrong command line or a file error,\n"
    "3 when the X server went away, 4 when there is no display.\n";

namespace {

struct Row {
    std::string_view name;
    bool takesValue;
    void (*set)(Options& options, const std::string& value);
};

int ParseNumber(const std::string& text) {
    int number = 0;
    const char* end = text.data() + text.size();
    const auto [stopped, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stopped != end) {
        throw UsageError("'" + text + "' is not a number");
    }
    return number;
}

int ParseDotsPerInch(const std::string& text) {
    constexpr int kLeast = 96;
    constexpr int kMost = 480;
    const int dots = ParseNumber(text);
    if (dots < kLeast || dots > kMost) {
        throw UsageError("'" + text + "' is not from " + std::to_string(kLeast) + " to " + std::to_string(kMost));
    }
    return dots;
}

// From the least on.
int ParseAwareness(const std::string& text) {
    constexpr std::string_view kKinds[] = {"unaware", "system", "monitor"};
    const auto* kind = std::find(std::begin(kKinds), std::end(kKinds), text);
    if (kind == std::end(kKinds)) {
        throw UsageError("'" + text + "' is not unaware, system or monitor");
    }
    return static_cast<int>(kind - std::begin(kKinds));
}

std::string ParseText(const std::string& utf8) {
    std::string bytes;
    std::string problem;
    if (!automation::ConvertTo1252(utf8, bytes, problem)) {
        throw UsageError("'" + utf8 + "': " + problem);
    }
    return bytes;
}

constexpr Row kRows[] = {
    {"--caption", true, [](Options& o, const std::string& v) { o.open.caption = ParseText(v); }},
    {"--designation", true, [](Options& o, const std::string& v) { o.open.designation = ParseNumber(v); }},
    {"--optional-pages", true, [](Options& o, const std::string& v) { o.open.optionalPages = ParseNumber(v); }},
    {"--host-mode", true, [](Options& o, const std::string& v) { o.open.hostMode = ParseNumber(v); }},
    {"--screenshots", true, [](Options& o, const std::string& v) { o.screenshotFolder = v; }},
    {"--scenario", true, [](Options& o, const std::string& v) { o.scenarios.push_back(v); }},
    {"--dpi", true, [](Options& o, const std::string& v) { o.dotsPerInch = ParseDotsPerInch(v); }},
    {"--awareness", true, [](Options& o, const std::string& v) { o.awareness = ParseAwareness(v); }},
    {"--memory", false, [](Options& o, const std::string&) { o.usesMemoryDisplay = true; }},
    {"--help", false, [](Options& o, const std::string&) { o.showsHelp = true; }},
    {"-h", false, [](Options& o, const std::string&) { o.showsHelp = true; }},
    {"--version", false, [](Options& o, const std::string&) { o.showsVersion = true; }},
};

void TakeFileName(Options& options, const std::string& argument) {
    // What follows --scenario and is named like one is a further one.
    if (!options.scenarios.empty() && argument.ends_with(".scn")) {
        options.scenarios.push_back(argument);
    } else if (argument.starts_with('-')) {
        throw UsageError("unknown option '" + argument + "'");
    } else if (options.settingsFile.empty()) {
        options.settingsFile = argument;
    } else {
        throw UsageError("more than one settings file: '" + argument + "'");
    }
}

void CheckTogether(const Options& options) {
    if (options.showsHelp || options.showsVersion) {
        return;
    }
    if (options.settingsFile.empty()) {
        throw UsageError("no settings file given");
    }
    if (!options.scenarios.empty() && !options.screenshotFolder.empty()) {
        throw UsageError("--scenario and --screenshots exclude each other");
    }
    if (options.usesMemoryDisplay && options.IsInteractive()) {
        throw UsageError("--memory needs --scenario or --screenshots: nobody could see the windows");
    }
}

}  // namespace

Options ParseOptions(const std::vector<std::string>& arguments) {
    Options options;
    for (size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const auto* row = std::find_if(std::begin(kRows), std::end(kRows),
                                       [&argument](const Row& candidate) { return candidate.name == argument; });
        if (row == std::end(kRows)) {
            TakeFileName(options, argument);
            continue;
        }
        if (row->takesValue && i + 1 == arguments.size()) {
            throw UsageError("'" + argument + "' needs a value");
        }
        row->set(options, row->takesValue ? arguments[++i] : "");
    }
    CheckTogether(options);
    return options;
}

}  // namespace host
