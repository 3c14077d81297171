// Profile files: what is found in texts of every form.
#include "automation/scratch.h"
#include "tests/conformance/trace.h"

#include <array>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

namespace {

using namespace std::literals;

// Each text becomes a file of its own, since Wine keeps what it has read.
std::string addFile(const std::filesystem::path& folder, std::string_view text) {
    static int count = 0;
    std::string path = (folder / (std::to_string(++count) + ".ini")).string();
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

std::string escaped(std::string_view text) {
    std::string result;
    for (const char c : text) {
        result += c < ' ' || c > '~' ? "\\" + std::to_string(static_cast<unsigned char>(c)) : std::string(1, c);
    }
    return result;
}

// The text with its length, and whether the byte behind it stayed.
void traceText(Trace& trace, const std::string& file, const char* section, const char* key,
               const char* fallback = "none", DWORD size = 40) {
    std::array<char, 42> room{};
    room.fill('#');
    const DWORD length = GetPrivateProfileStringA(section, key, fallback, room.data(), size, file.c_str());
    const std::string_view shown(room.data(), size == 0 ? 0 : length + 1);
    trace.line("[%s] %s, %u: %u \"%s\"%s", escaped(section).c_str(), escaped(key).c_str(), static_cast<unsigned>(size),
               static_cast<unsigned>(length), escaped(shown).c_str(), room[size] == '#' ? "" : " overrun");
}

constexpr std::string_view kForms =
    "before=1\r\n[S]\r\nA=1\r\nb = two words \r\n c=3\r\nQ=\"quoted\"\r\nQ1='one'\r\nQ2=\"half\r\nQ3=\"\"\r\n"
    "Q7='mix\"\r\nQ8=\"a\"b\"\r\n;com=5\r\nE=\r\nnoval\r\nnoval=late\r\nD=first\r\nD=second\r\nD2=x ; trailing\r\n"
    "=empty\r\nk k=sp\r\nT=\ttab\t\r\nAA=\xC5\r\neq=a=b\r\n[s]\r\nA=again\r\nnewin=1\r\n[ Sp ]\r\nx=1\r\n[Br]junk\r\n"
    "x=2\r\n[No\r\nx=3\r\n[a]b]\r\nx=4\r\n[]\r\nx=5\r\n  [Ind]\r\nx=6\r\n[L]\nlf=1\ncr=2\rcr2=3\nctl=a\x1A\n"
    "nb=\xA0n\xA0\nnul=x\0y\nlast=z\x1A"sv;

void traceForms(Trace& trace, const std::filesystem::path& folder) {
    trace.section("forms of lines");
    const std::string file = addFile(folder, kForms);
    for (const char* key : {"A",    "a", " A ",   "b", "c",  "Q", "Q1",  "Q2", "Q3", "Q7", "Q8",    "com",
                            ";com", "E", "noval", "D", "D2", "",  "k k", "T",  "AA", "eq", "newin", "before"}) {
        traceText(trace, file, "S", key);
    }
    for (const char* section : {"", " ", "Sp", " Sp ", "Br", "Br]junk", "No", "[No", "a", "a]b", "Ind"}) {
        traceText(trace, file, section, "x");
    }
    for (const char* key : {"lf", "cr", "cr2", "ctl", "nb", "nul", "last"}) {
        traceText(trace, file, "L", key);
    }
    traceText(trace, file, "S", "missing", "end  ");
    for (const DWORD size : {0U, 1U, 2U, 9U, 10U}) {
        traceText(trace, file, "S", "b", "none", size);
        traceText(trace, file, "S", "missing", "fallback", size);
    }
}

void traceFiles(Trace& trace, const std::filesystem::path& folder) {
    trace.section("texts of files");
    const std::string huge(100000, 'y');
    for (const std::string& text :
         {"[S]\nA=1"s, "[S]\r\r\nA=1\r\r\n"s, "A=1\n"s, "[S]\n[T]\n[S]\nA=2\n"s, ";[S]\nA=1\n[S]\nA=2\n"s,
          std::string("[S]\n").append(huge).append("=3\n[").append(huge).append("]\nA=2\n[S]\nA=4\n"),
          "[S]\nA=" + huge}) {
        const std::string file = addFile(folder, text);
        traceText(trace, file, "S", "A");
        std::array<char, 40> sections{};
        const DWORD length = GetPrivateProfileStringA(nullptr, nullptr, "", sections.data(), 40, file.c_str());
        trace.line("sections %u \"%s\"", static_cast<unsigned>(length), escaped({sections.data(), length}).c_str());
    }
    for (const char* name : {"none.ini", "none/none.ini", ""}) {
        traceText(trace, (folder / name).string(), "S", "A");
    }
}

void traceNumbers(Trace& trace, const std::filesystem::path& folder) {
    trace.section("numbers");
    for (const char* text : {"12", "-3", "+4", "0x1F", " 7", "12abc", "abc", "", "\"5\"", "99999999999", "4294967295",
                             "0b101", "- 3", "1.9", "2147483648", "010", "--3", "0x"}) {
        const std::string file = addFile(folder, "[S]\nA=" + std::string(text) + "\n");
        trace.line("%s: %d", text, static_cast<int>(GetPrivateProfileIntA("S", "A", -77, file.c_str())));
    }
}

}  // namespace

void traceProfiles(Trace& trace) {
    const automation::ScratchFolder scratch;
    traceForms(trace, scratch.Path());
    traceFiles(trace, scratch.Path());
    traceNumbers(trace, scratch.Path());
}
