// Helps that actions and checks share.

#include "automation/stage.h"

#include <commctrl.h>

#include <algorithm>
#include <array>
#include <cctype>

#include "automation/codepage.h"
#include "automation/finder.h"

namespace automation {
namespace {

constexpr std::string_view kScratch = "%SCRATCH%";
constexpr std::string_view kToday = "%TODAY:";

// A date conversion in those that every system knows.
std::string PlainConversion(char conversion, const std::tm& day) {
    switch (conversion) {
        case 'D':
        case 'x':
            return "%m/%d/%y";
        case 'F':
            return "%Y-%m-%d";
        case 'e':
            return (day.tm_mday < 10 ? " " : "") + std::to_string(day.tm_mday);
        case 'h':
            return "%b";
        default:
            if (std::string_view("aAbBdjmUwWyY").find(conversion) == std::string_view::npos) {
                FailExpectation("a conversion of dates", std::string("%") + conversion);
            }
            return std::string("%") + conversion;
    }
}

std::string FormatDay(const std::string& format, std::time_t when) {
    const std::tm day = *std::localtime(&when);
    std::string plain;
    for (size_t i = 0; i < format.size(); ++i) {
        // Behind each % is a letter, as the search for the format's end has seen.
        plain += format[i] == '%' ? PlainConversion(format[++i], day) : std::string(1, format[i]);
    }
    std::array<char, 256> text{};
    const size_t length = std::strftime(text.data(), text.size(), plain.c_str(), &day);
    return {text.data(), length};
}

// The position of the % that ends a %TODAY: format whose conversions themselves begin with %.
size_t EndOfToday(const std::string& text, size_t position) {
    for (size_t i = position; i < text.size(); ++i) {
        if (text[i] != '%') {
            continue;
        }
        const bool isConversion = i + 1 < text.size() && std::isalpha(static_cast<unsigned char>(text[i + 1])) != 0;
        if (!isConversion) {
            return i;
        }
        ++i;
    }
    throw Failure("expected a % at the end of " + Quote(text.substr(position)) + ", got none");
}

}  // namespace

void FailExpectation(const std::string& expected, const std::string& got) {
    throw Failure("expected " + expected + ", got " + got);
}

std::string Quote(const std::string& text) {
    std::string quoted = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            quoted += '\\';
        }
        if (c == '\n') {
            quoted += "\\n";
        } else if (c == '\t') {
            quoted += "\\t";
        } else {
            quoted += c;
        }
    }
    return ConvertFrom1252(quoted + "\"");
}

HWND ControlOf(const Stage& stage, const Argument& id) {
    HWND control = FindControl(stage.front, id.Number());
    if (control == nullptr) {
        FailExpectation("a control " + id.text + " in " + Quote(TextOf(stage.front)), "none");
    }
    return control;
}

void ExpectReadableTexts(HWND control) {
    if (!HasReadableTexts(control)) {
        FailExpectation("texts in control " + std::to_string(GetDlgCtrlID(control)), "entries that its owner draws");
    }
}

HWND VisibleControl(const Stage& stage, const Argument& id) {
    HWND control = ControlOf(stage, id);
    if (!IsWindowVisible(control)) {
        FailExpectation("control " + id.text + " to be visible", "it hidden");
    }
    return control;
}

HWND UsableControl(const Stage& stage, const Argument& id) {
    HWND control = VisibleControl(stage, id);
    if (!CanTakeInput(control)) {
        FailExpectation("control " + id.text + " to be enabled", "it disabled");
    }
    return control;
}

HWND TrackBarOf(const Stage& stage, const Argument& id) {
    HWND control = ControlOf(stage, id);
    if (ClassOf(control) != TRACKBAR_CLASSA) {
        FailExpectation("control " + id.text + " to be a track bar", "class " + ClassOf(control));
    }
    return control;
}

HWND TabsOf(const Stage& stage) {
    HWND tabs = TabControl(stage.front);
    if (tabs == nullptr) {
        FailExpectation("a sheet in front", Quote(TextOf(stage.front)));
    }
    return tabs;
}

namespace {

std::string Expand(const Stage& stage, const std::string& text, std::time_t when) {
    std::string result = text;
    for (size_t at = 0; (at = result.find(kScratch, at)) != std::string::npos;) {
        std::string folder;
        std::string problem;
        const std::u8string path = stage.options.scratchFolder.u8string();
        if (!ConvertTo1252({reinterpret_cast<const char*>(path.data()), path.size()}, folder, problem)) {
            throw Failure("the scratch folder cannot be written in a text: " + problem);
        }
        result.replace(at, kScratch.size(), folder);
        at += folder.size();
    }
    for (size_t at = 0; (at = result.find(kToday, at)) != std::string::npos;) {
        const size_t begin = at + kToday.size();
        const size_t end = EndOfToday(result, begin);
        const std::string day = FormatDay(result.substr(begin, end - begin), when);
        result.replace(at, end + 1 - at, day);
        at += day.size();
    }
    return result;
}

}  // namespace

std::string WithSlashes(std::string path) {
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string ExpandText(const Stage& stage, const std::string& text) {
    return Expand(stage, text, std::time(nullptr));
}

std::string ExpandLike(const Stage& stage, const std::string& text, const std::string& got) {
    const bool isPath = text.find(kScratch) != std::string::npos;
    for (const std::time_t when : {stage.began, std::time(nullptr)}) {
        const std::string expanded = Expand(stage, text, when);
        if (expanded == got || (isPath && WithSlashes(expanded) == WithSlashes(got))) {
            return got;
        }
    }
    return ExpandText(stage, text);
}

}  // namespace automation
