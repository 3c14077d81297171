// The random user's habits, as tables with weights.
#include "tests/random/generator.h"

#include <iterator>
#include <random>

#include "resources/resource.h"

namespace {

constexpr int kButtons[] = {IDC_FUNCTION_ORIENTED, IDC_COUNT_UP_DESIGNATIONS, IDC_CAPITAL_DESIGNATIONS,
                            IDC_MARKING_A1_A2,     IDC_MARKING_A2_A1,         IDC_CORE_ARROW,
                            IDC_CORE_SLASH,        IDC_CABLE_BALLOON,         IDC_CABLE_TEXT1,
                            IDC_CABLE_TEXT2,       IDC_MARKING_PREVIEW};
constexpr int kFields[] = {IDC_CROSS_DISTANCE,     IDC_START_X,          IDC_START_Y,
                           IDC_PHASE_DISTANCE_VER, IDC_PHASE_LENGTH_VER, IDC_PHASE_DISTANCE_HOR,
                           IDC_PHASE_LENGTH_HOR,   IDC_SYMBOL_STANDARD};
// Without the field whose number is also that of the picture in Wine's message boxes.
constexpr int kReadFields[] = {IDC_START_X, IDC_START_Y, IDC_PHASE_LENGTH_HOR, IDC_SYMBOL_STANDARD};
constexpr int kCombos[] = {IDC_SYMBOL_STANDARD};

constexpr const char* kTabs[] = {"Allmänt"};
constexpr const char* kKeys[] = {
    "CROSS_DIST",     "A2-A1",        "CCT_CAB_BALLOON", "CCT_CAB_CORE",     "X-COORD",          "Y-COORD",
    "PHASE_DIST_HOR", "CCT_DIR",      "PHASE_DIST_VER",  "PHASE_LENGTH_VER", "PHASE_LENGTH_HOR", "DRW_MODE",
    "STR_INCR",       "BET_CAPITALS", "BET_PREFIX",      "COORD_BET",        "NORV_LEVEL",       "UNRELATED"};
// None begins with a letter outside ASCII: where those stand in a sorted list depends on the desktop's language.
constexpr const char* kValues[] = {"",
                                   "0",
                                   "1",
                                   "2",
                                   "3",
                                   "4",
                                   "8",
                                   "-1",
                                   "12.5",
                                   "1,5",
                                   "abc",
                                   " 7 ",
                                   "1x",
                                   "iec617",
                                   "IEC",
                                   "DIN ås",
                                   "\\\"",
                                   "0.05",
                                   "1.2.3",
                                   "99999999999999999999",
                                   "x åäö ÅÄÖ é",
                                   "ett mycket långt värde som inte får plats"};
constexpr const char* kPressedKeys[] = {
    "TAB",    "TAB",       "TAB",        "SHIFT+TAB",  "SHIFT+TAB", "SPACE",         "UP",     "DOWN",
    "LEFT",   "RIGHT",     "HOME",       "END",        "PAGEUP",    "PAGEDOWN",      "DELETE", "BACKSPACE",
    "F4",     "ALT+DOWN",  "SHIFT+END",  "SHIFT+HOME", "CTRL+A",    "CTRL+C",        "CTRL+X", "CTRL+V",
    "CTRL+Z", "CTRL+LEFT", "CTRL+RIGHT", "SHIFT+LEFT", "CTRL+TAB",  "CTRL+PAGEDOWN", "ENTER",  "ESC"};
constexpr const char* kTexts[] = {"1", "25",   "2.5", "1,5",  "",     "   ", "-3",      "abc",      "iec",
                                  "i", "xåäö", "9.",  "\\\"", "0.1 ", " 4",  "iec6179", "DIN 40900"};

class Generator {
public:
    explicit Generator(std::uint32_t seed) : m_random(seed) {}

    std::string Make() {
        const int records = Below(12);
        for (int i = 0; i < records; ++i) {
            Line(std::string("given ") + Pick(kKeys) + Quoted(Pick(kValues)));
        }
        const int runs = 1 + Below(3);
        for (int i = 0; i < runs; ++i) {
            Run();
        }
        return m_text;
    }

private:
    // Not a standard distribution: those differ from one library to another.
    int Below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    template <typename T, std::size_t size>
    T Pick(const T (&values)[size]) {
        return values[Below(static_cast<int>(size))];
    }
    static std::string Quoted(const std::string& text) { return " \"" + text + "\""; }
    void Line(const std::string& line) { m_text += line + "\n"; }
    void OnControl(const char* command, int id, const std::string& rest = {}) {
        Line(command + (" " + std::to_string(id)) + rest);
    }

    void Run() {
        constexpr int kHostModes[] = {0, 0, 1, 3};
        Line("open designation=" + std::to_string(Below(2)) + " optional-pages=" + std::to_string(Below(2)) +
             " host-mode=" + std::to_string(Pick(kHostModes)));
        const int actions = 5 + Below(40);
        for (int i = 0; i < actions; ++i) {
            Act();
        }
        // Whatever has happened, the sheet is closed now: a list, a box, and the sheet itself.
        constexpr const char* kEndings[] = {"ok", "cancel", "close", "press ENTER"};
        Line(Pick(kEndings));
        Line("press ESC");
        Line("press ESC");
        Line("result 1");
    }

    void Act() {
        const int what = Below(100);
        if (what < 28) {
            OnControl("click", Pick(kButtons));
        } else if (what < 48) {
            OnControl("type", Pick(kFields), Quoted(Pick(kTexts)));
        } else if (what < 58) {
            Line("keys" + Quoted(Pick(kTexts)));
        } else if (what < 82) {
            Line(std::string("press ") + Pick(kPressedKeys));
        } else if (what < 88) {
            OnControl("select", Pick(kCombos), " @" + std::to_string(Below(4)));
        } else if (what < 94) {
            OnControl("focus", Below(2) == 0 ? Pick(kFields) : Pick(kButtons));
        } else if (what < 97) {
            Line("tab" + Quoted(Pick(kTabs)));
        } else if (what < 99) {
            OnControl("expect text", Pick(kReadFields), Quoted("?"));
        } else {
            Line(Below(2) == 0 ? "ok" : "cancel");
        }
    }

    std::mt19937 m_random;
    std::string m_text;
};

}  // namespace

std::string RandomScenario(std::uint32_t seed) {
    return Generator(seed).Make();
}
