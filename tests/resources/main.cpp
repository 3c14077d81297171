// Checks all dialog templates of the resources, after the checks themselves: each has to find the fault that is put
// into a sound template. With --other-font the fonts are not the usual ones, or not of the usual size, and that part is
// left out.
#include "automation/codepage.h"
#include "resources/resource.h"
#include "tests/resources/template_lint.h"
#include "tests/support/template_builder.h"

#include <windows.h>

#include <commctrl.h>

#ifndef _WIN32
#include <tavrikdisplay.h>  // Windows has one display; natively the dialogs are made in memory.
#endif

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

constexpr DWORD kCheckBox = BS_AUTOCHECKBOX;
constexpr DWORD kRadio = BS_AUTORADIOBUTTON;

// Their users know them by this order of the keyboard.
constexpr WORD kGivenOrder[] = {IDD_AUTO_TEXT, IDD_CONNECTION, IDD_CROSS_REFERENCE, IDD_TEXTS_AND_COLOURS};

// Controls whose names do not stand before them.
struct Unnamed {
    WORD dialog;
    WORD control;
    const char* why;
};
constexpr char kLabelFollows[] = "the given order has its label later";
constexpr char kOfPicture[] = "moves what the picture beside it shows; no text is about it";
constexpr char kOfCheckBox[] = "belongs to the check box above it, which stands just before it";
constexpr Unnamed kUnnamedControls[] = {
    {IDD_AUTO_TEXT, IDC_SLIDER_X, kOfPicture},
    {IDD_AUTO_TEXT, IDC_SLIDER_Y, kOfPicture},
    {IDD_CONNECTION, IDC_ROW_DISTANCE, kLabelFollows},
    {IDD_CONNECTION, IDC_CABLE_CHARACTERS, kLabelFollows},
    {IDD_CROSS_REFERENCE, IDC_CONTINUED_TAG, kLabelFollows},
    {IDD_CROSS_REFERENCE, IDC_AUTO_BET_FORMAT, kOfCheckBox},
    {IDD_TEXTS_AND_COLOURS, IDC_ATTRIBUTE_COLOUR, kLabelFollows},
    {IDD_TEXTS_AND_COLOURS, IDC_DESIGNATION_COLOUR, kLabelFollows},
    {IDD_TEXTS_AND_COLOURS, IDC_LINE_COLOUR, kLabelFollows},
    {IDD_TEXTS_AND_COLOURS, IDC_DESIGNATION_HEIGHT, kLabelFollows},
    {IDD_TEXTS_AND_COLOURS, IDC_OUTLET_HEIGHT, kLabelFollows},
    {IDD_TEXTS_AND_COLOURS, IDC_OUTER_TERMINAL_HEIGHT, kLabelFollows},
    {IDD_TEXTS_AND_COLOURS, IDC_TERMINAL_HEIGHT, kLabelFollows},
};

// Of 120 by 90 units.
constexpr TemplateItem kSound[] = {
    {kButton, -1, "Boxes", BS_GROUPBOX | WS_GROUP, 5, 5, 110, 40},
    {kButton, 1, "First", kCheckBox | WS_GROUP | WS_TABSTOP, 12, 16, 45, 10},
    {kButton, 2, "Second", kCheckBox, 12, 28, 45, 10},
    {kButton, -1, "Choice", BS_GROUPBOX | WS_GROUP, 5, 49, 50, 36},
    {kButton, 3, "One", kRadio | WS_GROUP, 12, 59, 40, 10},
    {kButton, 4, "Two", kRadio, 12, 71, 40, 10},
    {kStatic, -1, "Text:", WS_GROUP, 60, 51, 25, 8},
    {kEdit, 5, "", WS_TABSTOP, 88, 49, 27, 13},
    {kButton, 6, "Press", WS_GROUP | WS_TABSTOP, 60, 68, 50, 14},
};

// What is complained of when an item of the sound template is another; null for nothing.
struct Fault {
    std::size_t index;
    TemplateItem item;
    const char* complaint;
};

constexpr Fault kFaults[] = {
    {0, kSound[0], nullptr},
    {6, {kStatic, -1, "Two words", WS_GROUP, 60, 51, 25, 16}, nullptr},
    {7, {kComboBox, 5, "", CBS_DROPDOWN | WS_TABSTOP, 88, 49, 27, 80}, nullptr},
    {5, {kButton, 3, "Two", kRadio, 12, 71, 40, 10}, "3 \"Two\" has the number of another control"},
    {8, {kButton, 6, "Press", WS_GROUP | WS_TABSTOP, 60, 77, 50, 14}, "6 \"Press\" lies outside of the page"},
    {7, {kEdit, 5, "", WS_TABSTOP, 83, 49, 27, 13}, "5 \"\" lies over unnumbered \"Text:\""},
    {1,
     {kButton, 1, "First", kCheckBox | WS_GROUP | WS_TABSTOP, 12, 12, 45, 10},
     "1 \"First\" covers the caption of unnumbered \"Boxes\""},
    {6, {kStatic, -1, "Two words", WS_GROUP, 60, 51, 25, 8}, "unnumbered \"Two words\" is cut off"},
    {2, {kButton, 2, "Second box", kCheckBox, 12, 28, 45, 10}, "2 \"Second box\" is cut off"},
    {8, {kButton, 6, "Press the button", WS_GROUP | WS_TABSTOP, 60, 68, 50, 14}, "6 \"Press the button\" is cut off"},
    {3,
     {kButton, -1, "Choice of two", BS_GROUPBOX | WS_GROUP, 5, 49, 50, 36},
     "unnumbered \"Choice of two\" is cut off"},
    {4, {kButton, 3, "One", kRadio, 12, 59, 40, 10}, "3 \"One\" does not begin its group"},
    {6, {kStatic, -1, "Text:", 0, 60, 51, 25, 8}, "unnumbered \"Text:\" goes on with the group of 4 \"Two\""},
    {1,
     {kButton, 1, "First", kCheckBox | WS_GROUP | WS_TABSTOP, 66, 28, 45, 10},
     "2 \"Second\" is read before 1 \"First\", which Tab reaches first"},
    {1, {kButton, 1, "First", kCheckBox | WS_TABSTOP, 12, 16, 45, 10}, "unnumbered \"Boxes\" gets the focus"},
    {2,
     {kButton, 2, "Second", BS_PUSHBUTTON, 12, 28, 45, 10},
     "2 \"Second\" is where the arrow keys go from 1 \"First\""},
    {2, {kButton, 2, "Second", kCheckBox | WS_GROUP, 12, 28, 45, 10}, "2 \"Second\" is out of reach of the keyboard"},
    {6, {kStatic, -1, "", WS_GROUP, 60, 51, 25, 8}, "5 \"\" has no text before it that would name it"},
    {6, {kStatic, -1, "Text:", WS_GROUP, 60, 76, 25, 8}, "5 \"\" has no text before it that would name it"},
};

class Program {
public:
    Program()
        : popup_(CreateWindowExA(0, "Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 900, 700, nullptr, nullptr, nullptr,
                                 nullptr)) {
        SetActiveWindow(popup_);
        for (const Unnamed& row : kUnnamedControls) {
            unnamed_.push_back("dialog " + std::to_string(row.dialog) + ": " + std::to_string(row.control) + " \"\" " +
                               kUnnamed);
        }
    }
    ~Program() { DestroyWindow(popup_); }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // The test of the checks has lengths for the usual font.
    bool run(bool withUsualFont) {
        for (const Fault& fault : kFaults) {
            if (withUsualFont) {
                testWith(fault);
            }
        }
        int dialogs = 0;
        for (WORD id = 1; id != 0; ++id) {
            if (HRSRC resource = FindResourceA(nullptr, MAKEINTRESOURCEA(id), RT_DIALOG)) {
                lintResource(id, resource);
                ++dialogs;
            }
        }
        for (const std::string& gone : unnamed_) {
            complain("No longer: " + gone);
        }
        std::printf("%d dialogs, %d complaints\n", dialogs, complaints_);
        return dialogs > 0 && complaints_ == 0;
    }

private:
    void complain(const std::string& complaint) {
        std::printf("%s\n", automation::ConvertFrom1252(complaint).c_str());
        ++complaints_;
    }

    void lintResource(WORD id, HRSRC resource) {
        std::vector<std::uint16_t> words(SizeofResource(nullptr, resource) / sizeof(std::uint16_t));
        std::memcpy(words.data(), LockResource(LoadResource(nullptr, resource)), words.size() * sizeof(std::uint16_t));
        const bool isGiven = std::find(std::begin(kGivenOrder), std::end(kGivenOrder), id) != std::end(kGivenOrder);
        for (const std::string& complaint : lintTemplate("dialog " + std::to_string(id), words, popup_,
                                                         isGiven ? ControlOrder::Given : ControlOrder::Free)) {
            const auto found = std::find(unnamed_.begin(), unnamed_.end(), complaint);
            if (found != unnamed_.end()) {
                unnamed_.erase(found);
            } else {
                complain(complaint);
            }
        }
    }

    void testWith(const Fault& fault) {
        TemplateBuilder dialog(TemplateBuilder::Form::Classic, 0, 120, 90, "");
        for (std::size_t i = 0; i < std::size(kSound); ++i) {
            dialog.add(i == fault.index ? fault.item : kSound[i]);
        }
        const std::vector<std::string> found = lintTemplate("test", dialog.words(), popup_);
        if (!fault.complaint) {
            for (const std::string& complaint : found) {
                complain("Wrongly found: " + complaint);
            }
        } else if (std::find(found.begin(), found.end(), std::string("test: ") + fault.complaint) == found.end()) {
            complain(std::string("Not found: ") + fault.complaint);
        }
    }

    HWND popup_;
    std::vector<std::string> unnamed_;  // Complaints that are still to be expected.
    int complaints_ = 0;
};

}  // namespace

int main(int argc, char** argv) {
#ifndef _WIN32
    TavrikDisplayInit(TAVRIK_DISPLAY_MEMORY);
#endif
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_BAR_CLASSES | ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    const bool sound = Program().run(argc < 2 || std::strcmp(argv[1], "--other-font") != 0);
    return sound ? 0 : 1;
}
