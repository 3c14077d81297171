// Prints docs/settings.md: which setting stands on which page, what it may be, and what it is when the store does not
// have it. Rows and templates tell what they know; the page is asked for the rest, as a user would find out.
// With --keyboard it prints docs/keyboard.md: how each control is reached without a mouse.
#include "core/sheet/projdescr.h"
#include "resources/resource.h"
#include "tests/support/box_answerer.h"
#include "tools/settings/captions.h"
#include "tools/settings/keyboard.h"

#include <tavrikdisplay.h>

#include <array>
#include <cstdio>
#include <map>
#include <string>

namespace {

// Settings that are no rows of a page, which shows them in its own way.
struct OtherSetting {
    const char* key;
    const char* page;
    const char* caption;
    const char* allowed;
    const char* missing;
};

constexpr OtherSetting kOthers[] = {
    {"ACLTSHF1 to ACLTSHF4", "Projektbeskrivning", "the list of Bladspecifikt attribut; read only", "7 characters",
     "C2, D3, D4, D12"},
    {"DATABASEPREFIX", "Projektbeskrivning", "(Prefix)", "the first 4 characters of the database file", "empty"},
    {"PWD", "Projektbeskrivning", "none; read and kept", "any text", "empty"},
    {"USERLIB", "Blanketter", "where the dialogs for forms begin; read only", "a folder", "empty"},
    {"ATTR_COLOUR", "Texter/Färger", "Attribut", "0 to 256", "nothing is selected"},
    {"BET_COLOUR", "Texter/Färger", "Beteckningar", "0 to 256", "nothing is selected"},
    {"100_COLOUR", "Texter/Färger", "Dekorativa linjer", "1 to 255", "nothing is selected"},
    {"ASSEMBLY_TXTHGT", "Texter/Färger",
     "Beteckningar, montage; written along with ASSMBLY_TXTHGT, and preferred to it", "a number", "ASSMBLY_TXTHGT"},
    {"ASSEMBLY_TXTVISIBLE", "Yttre / Montage", "Synlig", "`1` checked, `0` unchecked", "seen when the text height is"},
    {"FORM_SIZE", "Blanketter", "the sheet size by which placements are shown", "a position in the list, from 0", "0"},
    {"AUTO_DATE", "Blanketter", "Datum: place, height and angle", "`X,Y;height;angle`", "off"},
    {"AUTO_TIME", "Blanketter", "Tid: place, height and angle", "`X,Y;height;angle`", "off"},
    {"DWG_TEXT", "Blanketter", "Ritningsnamn: place, height and angle", "`X,Y;height;angle`", "off"},
    {"DATEFORMAT", "Blanketter", "the form of the date", "0 to 7", "0"},
    {"XREF_FORMAT", "Pro", "the boxes of the format", "letters P, C and R with separators", "empty"},
    {"DRW_ANGLE_H", "Pro", "which pictures are shown; read only", "0, or another number", "0"},
    {"WHFBTYPE", "Förbind", "Partmärkning", "0, 2, 3, 4; 1 goes with DRW_MODE 1", "FBTYP of the profile file, else 0"},
    {"WHYDELTA", "Förbind", "Avstånd mellan apparatrader", "a number above 0", "YDELTA of the profile file, else 9.9"},
    {"NUMBER_OFFSET", "Förbind", "Avstånd från symbol", "a number above 0", "9.9"},
    {"WHCNL", "Förbind", "Max antal tecken", "8 to 15", "CNL of the profile file, else 10"},
    {"WHEXTSREF", "Förbind", "Visa bladhänvisning", "`1` checked, `0` unchecked", "0"},
    {"WHCOLC1 to WHCOLC255", "Förbind", "the comments", "7 characters",
     "C1 to C255 of the profile file, else c1 to c255"},
    {"WHCOLCDEF", "Förbind", "the comment with the tick", "1 to 255", "CDEF of the profile file, else 1"},
    {"WH1COLUMN", "Förbind", "the list's first column", "0 comment, 1 colour", "as it was last"},
    {"WHSORT", "Förbind", "the list's order", "-2 to 2", "as it was last"},
};

// What else reads a setting.
const std::map<std::string, const char*> kReaders = {
    {"DRW_MODE", "Förbind: 1 sets the part marking; Pro: anything but 0 closes the designation options"},
    {"BET_PREFIX", "Allmänt: closes Funktionsorienterat ritsätt"},
    {"COORD_BET", "Allmänt: closes Funktionsorienterat ritsätt"},
    {"X-COORD", "Yttre / Montage: stands in for a start point that is missing"},
    {"Y-COORD", "Yttre / Montage: stands in for a start point that is missing"},
    {"ASSMBLY_TXTHGT", "Yttre / Montage"},
    {"ASSEMBLY_TXTHGT", "Yttre / Montage"},
    {"NORV_LEVEL", "the sheet: with 3 it has the page Förbind"},
};

class Document {
public:
    explicit Document(bool isOfKeyboard) : m_isOfKeyboard(isOfKeyboard) {}

    void run() {
        projdescr sheet("Settings", nullptr, 0);
        CMdb store;
        sheet.m_pHostSettings = &store;
        sheet.m_bEditable = 1;
        sheet.m_nDesignationOption = 1;
        sheet.m_bOptionalPages = 1;
        sheet.m_nHostMode = 1;
        SetSetting(&store, "NORV_LEVEL", "3");
        m_boxes.WhenIdle([&] {
            if (m_isOfKeyboard) {
                describeKeyboard(sheet);
                sheet.PressButton(PSBTN_CANCEL);
                return;
            }
            std::printf(
                "# Settings\n\nWritten by `build/native/bin/tavriksettingsdoc`, and compared by `./test`. A value is "
                "stored as text.\n");
            for (int i = 0; i < sheet.GetPageCount(); ++i) {
                sheet.SetActivePage(i);
                describe(sheet, *dynamic_cast<CSettingsPage*>(sheet.GetActivePage()));
            }
            sheet.PressButton(PSBTN_CANCEL);
        });
        sheet.DoModal();
    }

private:
    // Tried out: the check of the field says what it takes.
    std::string allowedText(CSettingsPage& page, const TextRow& row) {
        const auto accepts = [&](const char* probe) {
            CString text = probe;
            CWnd* const field = page.GetDlgItem(static_cast<int>(row.control));
            const bool accepted = row.check == nullptr || row.check(page, text, nullptr, *field) != 0;
            m_boxes.Take();
            return accepted;
        };
        if (row.failedTransfer == FailedTransfer::Refuses) {
            return "a number from 1 to 100000";
        }
        const std::string length = row.maxLength != 0 ? ", " + std::to_string(row.maxLength) + " characters" : "";
        if (!accepts("x")) {
            return "a number from 0.1" + length;
        }
        return std::string(!accepts("")      ? "a text that is not empty"
                           : accepts("a\"b") ? "any text"
                                             : "any text without \"") +
               length;
    }

    static void line(const std::string& key, const std::string& caption, const std::string& allowed,
                     const std::string& missing) {
        const auto reader = kReaders.find(key);
        std::printf("| `%s` | %s | %s | %s | %s |\n", key.c_str(), caption.c_str(), allowed.c_str(), missing.c_str(),
                    reader != kReaders.end() ? reader->second : "");
    }

    static std::string nameOfTab(CSettingsSheet& sheet) {
        CTabCtrl* const tabs = sheet.GetTabControl();
        TCITEMA tab{};
        std::array<char, 60> title{};
        tab.mask = TCIF_TEXT;
        tab.pszText = title.data();
        tab.cchTextMax = static_cast<int>(title.size());
        SendMessageA(tabs->m_hWnd, TCM_GETITEMA, static_cast<WPARAM>(sheet.GetActiveIndex()),
                     reinterpret_cast<LPARAM>(&tab));
        return utf8(title.data());
    }

    void describe(CSettingsSheet& sheet, CSettingsPage& page) {
        const std::string name = nameOfTab(sheet);
        std::printf(
            "\n## %s\n\n| key | caption | allowed | without it | read on other pages |\n|---|---|---|---|---|\n",
            name.c_str());
        const auto control = [&](UINT id) { return ::GetDlgItem(page.m_hWnd, static_cast<int>(id)); };
        std::map<std::string, int> captions;
        for (const TextRow& row : page.Rows().texts) {
            ++captions[captionOf(page.m_hWnd, control(row.control))];
        }
        for (const TextRow& row : page.Rows().texts) {
            const std::string shown = textOf(control(row.control));
            std::string caption = captionOf(page.m_hWnd, control(row.control));
            const std::string above = captionAbove(page.m_hWnd, control(row.control));
            caption += captions[caption] > 1 && !above.empty() ? ", " + above : "";
            caption += IsWindowVisible(control(row.control)) ? "" : " (hidden)";
            line(row.key, caption, allowedText(page, row), shown.empty() ? "empty" : shown);
        }
        for (const CheckRow& row : page.Rows().checks) {
            const bool isChecked = SendMessageA(control(row.control), BM_GETCHECK, 0, 0) == BST_CHECKED;
            line(row.key, captionOf(page.m_hWnd, control(row.control)),
                 std::string("`") + row.checked + "` checked, `" + row.unchecked + "` unchecked",
                 isChecked ? "checked" : "unchecked");
        }
        for (const ChoiceRow& row : page.Rows().choices) {
            std::string allowed;
            std::string chosen = "none is chosen";
            for (size_t i = 0; i < row.buttons.size(); ++i) {
                const HWND button = control(row.buttons[i]);
                const std::string stored = "`" + std::to_string(row.StoredNumber(i)) + "` " + textOf(button);
                allowed += (i == 0 ? "" : ", ") + stored;
                if (SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED) {
                    chosen = textOf(button);
                }
            }
            std::string frame = captionOf(page.m_hWnd, control(row.buttons[0]));
            line(row.key, frame.substr(0, frame.find(':')), allowed, chosen);
        }
        for (const OtherSetting& other : kOthers) {
            if (name == other.page) {
                line(other.key, other.caption, other.allowed, other.missing);
            }
        }
    }

    static void describeKeyboard(CSettingsSheet& sheet) {
        printKeyboardIntroduction();
        for (int i = 0; i < sheet.GetPageCount(); ++i) {
            sheet.SetActivePage(i);
            printKeyboardTable(nameOfTab(sheet), sheet.GetActivePage()->m_hWnd);
        }
        const HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(IDD_AUTO_TEXT), RT_DIALOG);
        const HWND dialog = CreateDialogIndirectParamA(
            GetModuleHandleA(nullptr), static_cast<LPCDLGTEMPLATEA>(LockResource(LoadResource(nullptr, resource))),
            sheet.m_hWnd, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
        ShowWindow(dialog, SW_SHOW);
        printKeyboardTable("Automatisk text", dialog);
        DestroyWindow(dialog);
    }

    bool m_isOfKeyboard;
    BoxAnswerer m_boxes;
};

}  // namespace

int main(int argc, char** argv) {
    if (TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY) == 0) {
        return 2;
    }
    Document(argc > 1 && std::string(argv[1]) == "--keyboard").run();
    return 0;
}
