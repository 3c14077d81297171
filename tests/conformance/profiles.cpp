// Profile files: what is found in texts of every form.
#include "automation/scratch.h"
#include "tests/conformance/trace.h"

#include <algorithm>
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
    const std::string path = (folder / (std::to_string(++count) + ".ini")).string();
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
    "before=1\r\n[S]\r\nA=1\r\nb = two words \r\n c=3\r\nQ=\"quoted\"\r\nQ1='one'\r\nQ2=\"half\r\nQ3=\"\"\r\nQ4=\"\r\n"
    "Q5=\" in \"x\r\nQ6=\" sp \"\r\nQ7='mix\"\r\nQ8=\"a\"b\"\r\n;com=5\r\n  ; com2=6\r\nE=\r\nnoval\r\nnoval=late\r\n"
    "D=first\r\nD=second\r\nD2=x ; trailing\r\n#h=9\r\n=empty\r\nk k=sp\r\nT=\ttab\t\r\nAA=\xC5\r\neq=a=b\r\n[s]\r\n"
    "A=again\r\nnewin=1\r\n[ Sp ]\r\nx=1\r\n[Br]junk\r\nx=2\r\n[No\r\nx=3\r\n[a]b]\r\nx=4\r\n[]\r\nx=5\r\n  [Ind]\r\n"
    "x=6\r\n[L]\nlf=1\ncr=2\rcr2=3\nctl=a\x1A\nvt=\x0Bv\x0C\nnb=\xA0n\xA0\nnul=x\0y\n[S\0x]\nC=1\nlast=z\x1A"sv;

void traceForms(Trace& trace, const std::filesystem::path& folder) {
    trace.section("forms of lines");
    const std::string file = addFile(folder, kForms);
    for (const char* key :
         {"A",    "a", " A ",   "b", "c",  "Q",  "Q1", "Q2",  "Q3", "Q4", "Q5", "Q6",    "Q7",     "Q8", "com",
          "com2", "E", "noval", "D", "D2", "#h", "",   "k k", "T",  "AA", "eq", "newin", "before", "C"}) {
        traceText(trace, file, "S", key);
    }
    for (const char* section : {"", " ", "Sp", " Sp ", "Br", "Br]junk", "No", "[No", "a", "a]b", "Ind"}) {
        traceText(trace, file, section, "x");
    }
    for (const char* key : {"lf", "cr", "cr2", "ctl", "vt", "nb", "nul"}) {
        traceText(trace, file, "L", key);
    }
    traceText(trace, file, "", "before");
    for (DWORD size = 0; size < 11; ++size) {
        traceText(trace, file, "S", "b", "none", size);
        traceText(trace, file, "S", "missing", "fallback", size);
    }
    for (const char* fallback : {"end  ", "  begin", "\"quoted\"", "tab\t", "   ", ""}) {
        traceText(trace, file, "S", "missing", fallback);
    }
}

void traceSectionLists(Trace& trace, const std::filesystem::path& folder) {
    trace.section("lists of sections");
    const auto list = [&](const std::string& file, DWORD size) {
        std::array<char, 202> room{};
        room.fill('#');
        const DWORD length = GetPrivateProfileStringA(nullptr, nullptr, "fallback", room.data(), size, file.c_str());
        const std::string_view shown(room.data(), std::min<size_t>(length + 1, size));
        trace.line("%u: %u \"%s\"%s", static_cast<unsigned>(size), static_cast<unsigned>(length),
                   escaped(shown).c_str(), room[size] == '#' ? "" : " overrun");
    };
    for (const std::string_view text : {kForms, "A=1\n"sv, ""sv, "[]\n"sv, "[ab]\n[c]\n[ab]\n"sv}) {
        list(addFile(folder, text), 200);
    }
    list((folder / "none.ini").string(), 200);
    const std::string file = addFile(folder, "[ab]\n[c]\n");
    for (const DWORD size : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U}) {
        list(file, size);
    }
}

void traceTextsOfFiles(Trace& trace, const std::filesystem::path& folder) {
    trace.section("texts of files");
    const std::string huge(100000, 'y');
    for (const std::string& text :
         {"[S]\nA=1"s, "[S]\r\r\nA=1\r\r\n"s, "A=1\n"s, "[S]\n[T]\n[S]\nA=2\n"s, "[S]\n[]\nA=2\n"s,
          ";[S]\nA=1\n[S]\nA=2\n"s, "[S]\n" + huge + "=3\n[" + huge + "]\nA=2\n[S]\nA=4\n",
          "[S]\nB=" + huge + "\nA=2\n", "[S]\nA=" + huge}) {
        const std::string file = addFile(folder, text);
        traceText(trace, file, "S", "A");
        traceText(trace, file, "", "A");
    }
    for (const char* name : {"none.ini", "none/none.ini", ""}) {
        traceText(trace, (folder / name).string(), "S", "A");
    }
}

void traceNumbers(Trace& trace, const std::filesystem::path& folder) {
    trace.section("numbers");
    for (const char* text : {"12",
                             "-3",
                             "+4",
                             "0x1F",
                             " 7",
                             "12abc",
                             "abc",
                             "",
                             "\"5\"",
                             "99999999999",
                             "4294967295",
                             "0b101",
                             "0o17",
                             "- 3",
                             "1.9",
                             "2147483648",
                             "010",
                             "\t8",
                             "--3",
                             "0X1f",
                             "0x",
                             "+-3",
                             "00000000000000000000000000000012",
                             "\"\"",
                             "123456789012345678901234567890123"}) {
        const std::string file = addFile(folder, "[S]\nA=" + std::string(text) + "\n");
        trace.line("%s: %d", escaped(text).c_str(),
                   static_cast<int>(GetPrivateProfileIntA("S", "a", -77, file.c_str())));
    }
    trace.line("%d", static_cast<int>(GetPrivateProfileIntA("S", "B", -77, addFile(folder, "[S]\n").c_str())));
}

}  // namespace

void traceProfiles(Trace& trace) {
    const automation::ScratchFolder scratch;
    traceForms(trace, scratch.Path());
    traceSectionLists(trace, scratch.Path());
    traceTextsOfFiles(trace, scratch.Path());
    traceNumbers(trace, scratch.Path());
}
