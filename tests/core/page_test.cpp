// What all pages do alike, on sheets of the component's own pages and of a page with one row of each kind.
#include <gtest/gtest.h>

#include "core/assembly_height.h"
#include "core/settings_page.h"
#include "pages/circuit/dlgcircuit.h"
#include "pages/circuit/dlgextern.h"
#include "pages/project/form.h"
#include "resources/resource.h"
#include "tests/support/box_answerer.h"

namespace {

// An editable sheet of any pages; it notes what the pages tell it of their modification.
class Sheet : public CSettingsSheet {
public:
    explicit Sheet(std::initializer_list<CSettingsPage*> pages) : CSettingsSheet("sheet", nullptr, 0) {
        m_bEditable = 1;
        m_nDesignationOption = 1;
        m_nHostMode = 0;
        m_pHostSettings = &m_host;
        for (CSettingsPage* page : pages) {
            AddPage(page);
        }
    }

    void Load(std::initializer_list<std::pair<const char*, const char*>> settings) {
        for (const auto& [key, value] : settings) {
            PutSetting(&m_host, key, value);
        }
        for (int i = 0; i < GetPageCount(); ++i) {
            static_cast<CSettingsPage*>(GetPage(i))->LoadSettings(&m_host);
        }
    }

    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        if (message == PSM_CHANGED || message == PSM_UNCHANGED) {
            m_notices += message == PSM_CHANGED ? '+' : '-';
        }
        return CSettingsSheet::WindowProc(message, wParam, lParam);
    }

    CMdb m_host;
    // One sign a notice: + modified, - unmodified.
    std::string m_notices;
};

class Pages : public testing::Test {
protected:
    void Run(Sheet& sheet, const std::function<void()>& action, INT_PTR result) {
        m_boxes.WhenIdle(action);
        EXPECT_EQ(sheet.DoModal(), result);
    }

    static HWND Control(const CSettingsPage& page, UINT id) { return ::GetDlgItem(page.m_hWnd, static_cast<int>(id)); }

    static void Replace(HWND field, const char* text) {
        if (GetWindow(field, GW_CHILD) != nullptr) {
            field = GetWindow(field, GW_CHILD);  // The edit inside a combo box.
        }
        ::SetFocus(field);
        SendMessageA(field, EM_SETSEL, 0, -1);
        SendMessageA(field, EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
    }

    static std::string TextOf(HWND window) {
        char text[200] = "";
        GetWindowTextA(window, text, sizeof text);
        return text;
    }

    static bool IsChecked(HWND button) { return SendMessageA(button, BM_GETCHECK, 0, 0) == BST_CHECKED; }

    BoxAnswerer m_boxes;
};

// The general page's dialog with one row of each kind that departs from the usual.
class OddPage : public CSettingsPage {
public:
    OddPage() : CSettingsPage(IDD_GENERAL, kRows) {}

    void OnReset() override {
        CSettingsPage::OnReset();
        if (m_focusAtReset != nullptr) {
            ::SetFocus(m_focusAtReset);
        }
    }

    CString m_strPicked;
    CString m_strTyped;
    CString m_strLimited;
    int m_nRecorded = 0;
    int m_nUndone = 0;
    int m_nChoice = -1;
    HWND m_focusAtReset = nullptr;
    bool m_picksText = false;

private:
    void Pick(const TextRow& row) { m_picksText ? PickShownText(row) : PickEntry(row); }
    static int RefuseSemicolons(CSettingsPage& page, CString& text, CWnd* refocus, CWnd& field) {
        EXPECT_TRUE(refocus == nullptr || refocus == &field);
        return page.GetSheet()->CheckTextField(text, refocus, ";", 0);
    }
    static const TextRow kTexts[];
    static const CheckRow kChecks[];
    static const ChoiceRow kChoices[];
    static const PageRows kRows;
};

constexpr UINT kChoiceButtons[] = {IDC_CORE_ARROW, IDC_CORE_SLASH};
const TextRow OddPage::kTexts[] = {
    {IDC_START_X, "TYPED", PageMember(&OddPage::m_strTyped), &RefuseSemicolons},
    {IDC_START_Y, "LIMITED", PageMember(&OddPage::m_strLimited), nullptr, &DDX_Text, 7},
    {.control = IDC_SYMBOL_STANDARD,
     .key = "PICKED",
     .member = PageMember(&OddPage::m_strPicked),
     .exchange = &DDX_CBString,
     .pick = static_cast<TextRow::Pick>(&OddPage::Pick)},
};
const CheckRow OddPage::kChecks[] = {
    {IDC_FUNCTION_ORIENTED, "RECORDED", PageMember(&OddPage::m_nRecorded), ReadOnlyClick::Recorded, SheetNotice::None,
     "3", "2", [](int number) { return number == 3 ? 1 : 0; }},
    {IDC_CAPITAL_DESIGNATIONS, "UNDONE", PageMember(&OddPage::m_nUndone)},
};
const ChoiceRow OddPage::kChoices[] = {
    {"CHOICE", 5, kChoiceButtons, PageMember(&OddPage::m_nChoice), 0, ReadOnlyClick::Recorded}};
const PageRows OddPage::kRows = {OddPage::kTexts, OddPage::kChecks, OddPage::kChoices};

class OddPages : public Pages {
protected:
    HWND Typed() { return Control(m_page, IDC_START_X); }
    HWND Combo() { return Control(m_page, IDC_SYMBOL_STANDARD); }
    void Click(UINT id) { SendMessageA(Control(m_page, id), BM_CLICK, 0, 0); }

    OddPage m_page;
    OddPage m_other;
    Sheet m_sheet{&m_page, &m_other};
};

TEST_F(OddPages, MarkTheSheetModifiedUntilTheyAreApplied) {
    Run(
        m_sheet,
        [this] {
            Click(IDC_FUNCTION_ORIENTED);
            EXPECT_EQ(m_sheet.m_notices, "") << "a row that tells the sheet nothing";
            Click(IDC_CORE_ARROW);
            EXPECT_EQ(m_sheet.m_notices, "+");
            m_sheet.m_notices.clear();
            Replace(Typed(), "1");
            EXPECT_EQ(m_sheet.m_notices, "+");
            EXPECT_TRUE(m_page.OnApply());
            EXPECT_EQ(m_sheet.m_notices, "+-");
            Replace(Typed(), "2");
            EXPECT_EQ(m_sheet.m_notices, "+--") << "not before the page is shown again";
            EXPECT_TRUE(m_sheet.SetActivePage(1));
            EXPECT_TRUE(m_sheet.SetActivePage(0));
            Replace(Typed(), "3");
            EXPECT_EQ(m_sheet.m_notices.back(), '+');
            m_sheet.PressButton(PSBTN_CANCEL);
        },
        IDCANCEL);
}

TEST_F(OddPages, CheckNothingOnTheWayToAButtonThatCancels) {
    for (const char* caption : {"Avbryt", "Cancel"}) {
        Run(
            m_sheet,
            [&] {
                const HWND button = ::GetDlgItem(m_sheet.m_hWnd, IDCANCEL);
                Replace(Typed(), ";");
                SetWindowTextA(button, caption);
                ::SetFocus(button);
                EXPECT_TRUE(m_boxes.Take().empty()) << caption;
                ::SetFocus(Typed());
                SetWindowTextA(button, "Annat");
                ::SetFocus(button);
                EXPECT_EQ(m_boxes.Take().size(), 1U) << "a sheet that runs again checks again";
                // The focus leaves the field while the sheet is being cancelled.
                m_page.m_focusAtReset = button;
                m_sheet.PressButton(PSBTN_CANCEL);
            },
            IDCANCEL);
        EXPECT_TRUE(m_boxes.Take().empty()) << caption;
        m_page.m_focusAtReset = nullptr;
    }
}

TEST_F(OddPages, OutliveTheirWindowsUnderAMessageBox) {
    using Leaving = std::function<void()>;
    const auto spoil = [this] {
        Replace(Typed(), ";");
        m_boxes.BeforeAnswer([this] { m_sheet.DestroyWindow(); });
    };
    const auto spoilTransfer = [this] {
        ::SetFocus(Control(m_page, IDC_CORE_ARROW));
        SetWindowTextA(Control(m_page, IDC_START_Y), "123456789");
        m_boxes.BeforeAnswer([this] { m_sheet.DestroyWindow(); });
    };
    const auto pick = [&](bool text) {
        m_page.m_picksText = text;
        spoilTransfer();
        SendMessageA(m_page.m_hWnd, WM_COMMAND, MAKEWPARAM(IDC_SYMBOL_STANDARD, CBN_SELENDOK),
                     reinterpret_cast<LPARAM>(Combo()));
    };
    const Leaving leavings[] = {
        [&] { spoil(), ::SetFocus(Combo()); },
        [&] { spoil(), m_sheet.SetActivePage(1); },
        [&] { spoil(), m_page.OnApply(); },
        [&] { spoilTransfer(), m_page.OnApply(); },
        [&] { spoilTransfer(), m_sheet.SetActivePage(1); },
        [&] { spoilTransfer(), Click(IDC_CAPITAL_DESIGNATIONS); },
        [&] { Replace(Typed(), "1"), spoilTransfer(), ::SetFocus(Typed()), ::SetFocus(Combo()); },
        [&] { pick(false); },
        [&] { pick(true); },
    };
    for (const Leaving& leave : leavings) {
        m_sheet.Load({});
        Run(m_sheet, leave, -1);
        EXPECT_EQ(m_boxes.Take().size(), 1U);
        EXPECT_ANY_THROW(m_page.GetSheet());
    }
}

// Whether a control shows the bitmap in its middle, and the dialog's colour around it; bitmap 0 is none.
bool Shows(const CSettingsPage& page, UINT preview, UINT bitmapId) {
    CWnd* control = page.GetDlgItem(static_cast<int>(preview));
    RECT client{};
    control->GetClientRect(&client);
    CClientDC context(control);
    CDC source;
    source.CreateCompatibleDC(&context);
    CBitmap bitmap;
    BITMAP info{};
    if (bitmapId != 0 && (!bitmap.LoadBitmap(bitmapId) || bitmap.GetBitmap(&info) == 0)) {
        return false;
    }
    const CSelectObject selected(source, bitmap.GetSafeHandle());
    for (int y = 0; y < client.bottom; ++y) {
        for (int x = 0; x < client.right; ++x) {
            const int left = x - (client.right - info.bmWidth) / 2;
            const int top = y - (client.bottom - info.bmHeight) / 2;
            const bool isInside = left >= 0 && left < info.bmWidth && top >= 0 && top < info.bmHeight;
            if (GetPixel(context, x, y) != (isInside ? GetPixel(source, left, top) : GetSysColor(COLOR_BTNFACE))) {
                return false;
            }
        }
    }
    return true;
}

TEST_F(Pages, GeneralShowsTheBitmapsOfItsChoices) {
    struct Case {
        const char* marking;
        const char* core;
        const char* label;
        UINT markingBitmap;
        UINT cableBitmap;
    };
    const Case cases[] = {
        {"0", "0", "0", 150, 2007}, {"1", "0", "2", 152, 2008}, {"2", "0", "4", 152, 2009}, {"0", "4", "0", 150, 2010},
        {"0", "4", "2", 150, 2011}, {"0", "4", "4", 150, 2014}, {"0", "8", "0", 150, 0},    {"0", "0", "6", 150, 0},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.core) + " " + c.label);
        dlgcircuit page;
        Sheet sheet({&page});
        sheet.Load({{"A2-A1", c.marking}, {"CCT_CAB_CORE", c.core}, {"CCT_CAB_BALLOON", c.label}});
        Run(
            sheet,
            [&] {
                sheet.RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
                EXPECT_TRUE(Shows(page, IDC_MARKING_PREVIEW, c.markingBitmap));
                EXPECT_TRUE(Shows(page, IDC_CABLE_PREVIEW, c.cableBitmap));
                // A choice is painted at once.
                SendMessageA(Control(page, IDC_MARKING_A2_A1), BM_CLICK, 0, 0);
                EXPECT_TRUE(Shows(page, IDC_MARKING_PREVIEW, 152));
                sheet.PressButton(PSBTN_CANCEL);
            },
            IDCANCEL);
    }
}

TEST_F(Pages, ExternalShowsThePicturesOfItsChoicesForBothDirectionsOfWires) {
    struct Case {
        int verticalWires;
        UINT balloons[2];
        UINT parts[2];
    };
    for (const Case& c : {Case{0, {159, 160}, {158, 157}}, Case{1, {169, 164}, {171, 170}}}) {
        dlgextern page;
        Sheet sheet({&page});
        // A choice outside the group shows the last picture.
        sheet.Load({{"CABLE_BALLOON_H", "1"}, {"BROKEN_PART", "2"}});
        page.m_bVerticalWires = c.verticalWires;
        Run(
            sheet,
            [&] {
                sheet.RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
                EXPECT_TRUE(Shows(page, IDC_VERTICAL_ROW_PREVIEW, 155));
                EXPECT_TRUE(Shows(page, IDC_HORIZONTAL_ROW_PREVIEW, 156));
                EXPECT_TRUE(Shows(page, IDC_BALLOON_PREVIEW, c.balloons[0]));
                EXPECT_TRUE(Shows(page, IDC_PART_PREVIEW, c.parts[1]));
                SendMessageA(Control(page, IDC_BALLOON_VERTICAL), BM_CLICK, 0, 0);
                SendMessageA(Control(page, IDC_PART_ABOVE), BM_CLICK, 0, 0);
                EXPECT_TRUE(Shows(page, IDC_BALLOON_PREVIEW, c.balloons[1]));
                EXPECT_TRUE(Shows(page, IDC_PART_PREVIEW, c.parts[0]));
                sheet.PressButton(PSBTN_CANCEL);
            },
            IDCANCEL);
    }
}

TEST_F(Pages, ExternalAppliesWithoutTheFocusedFieldAndGoesOnToNoticeChanges) {
    SetAssemblyTextHeight("3.5");
    dlgextern page;
    Sheet sheet({&page});
    sheet.Load({{"ASSMBLY_TXTHGT", "2.5"}});
    Run(
        sheet,
        [&] {
            SendMessageA(Control(page, IDC_DESIGNATION_VISIBLE), BM_CLICK, 0, 0);
            Replace(Control(page, IDC_TERMINAL_BOX_WIDTH), "7");
            sheet.m_notices.clear();
            EXPECT_TRUE(page.OnApply());
            Replace(Control(page, IDC_TERMINAL_BOX_WIDTH), "8");
            EXPECT_EQ(sheet.m_notices, "-+");
            sheet.PressButton(PSBTN_CANCEL);
        },
        IDCANCEL);
    std::string records;
    for (const CMdbRecord* record = sheet.m_workSettings.GetFirst(); record != nullptr; record = record->GetNext()) {
        records +=
            std::string(record->GetField(CMdbRecord::kKeyTag)) + "=" + record->GetField(CMdbRecord::kValueTag) + " ";
    }
    EXPECT_EQ(g_assemblyHeightKeyFound, 1);
    EXPECT_EQ(records, "ASSEMBLY_TXTHGT=3.5 ASSEMBLY_TXTVISIBLE=0 ASSMBLY_TXTHGT=0.0001 ");
}

TEST_F(Pages, FormsDrawsAMarkerForATextThatIsOn) {
    CForm page;
    Sheet sheet({&page});
    sheet.m_nHostMode = 1;
    sheet.Load({{"AUTO_TIME", "84,56;6;0"}, {"FORM_SIZE", "0"}});
    Run(
        sheet,
        [&] {
            CWnd* preview = page.GetDlgItem(IDC_TIME_PREVIEW);
            RECT client{};
            preview->GetClientRect(&client);
            const auto isDrawn = [&](int x, int y) {
                return GetPixel(CClientDC(preview), x, y) != GetSysColor(COLOR_BTNFACE);
            };
            sheet.RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
            const int left = client.right / 10;
            const int right = left + client.right / 25 * 6 - 1;
            const int bottom = client.bottom - client.bottom / 10 - 1;
            const int top = bottom - client.bottom / 40 * 6 + 1;
            EXPECT_TRUE(isDrawn(left, bottom) && isDrawn(right, top));
            EXPECT_FALSE(isDrawn(left - 1, bottom) || isDrawn(left, bottom + 1));
            EXPECT_FALSE(isDrawn(right + 1, top) || isDrawn(right, top - 1));
            SendMessageA(Control(page, IDC_TIME_ON), BM_CLICK, 0, 0);
            EXPECT_FALSE(isDrawn(left, bottom)) << "painted at once";
            sheet.PressButton(PSBTN_CANCEL);
        },
        IDCANCEL);
}

// The box belongs to the sheet, so the dialog is enabled under it.
TEST_F(Pages, FormsKeepTheDialogOfAPlacementBehindItsBox) {
    CForm page;
    Sheet sheet({&page});
    sheet.m_nHostMode = 1;
    sheet.Load({{"AUTO_TIME", "84,56;6;0"}});
    const auto cancel = [](HWND dialog) { SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0); };
    const auto leaveWrongHeight = [&] {
        HWND dialog = GetActiveWindow();
        HWND heights = ::GetDlgItem(dialog, IDC_TEXT_HEIGHT);
        Replace(heights, "x");
        m_boxes.BeforeAnswer([&] {
            EXPECT_EQ(SendMessageA(dialog, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATEANDEAT);
            cancel(dialog);
            EXPECT_TRUE(IsWindow(dialog));
        });
        ::SetFocus(::GetDlgItem(dialog, IDC_TEXT_ANGLE));
        EXPECT_EQ(m_boxes.Take().size(), 1U);
        EXPECT_NE(SendMessageA(dialog, WM_MOUSEACTIVATE, 0, 0), MA_NOACTIVATEANDEAT);
        cancel(dialog);
    };
    Run(
        sheet,
        [&] {
            m_boxes.WhenIdle(leaveWrongHeight);
            SendMessageA(Control(page, IDC_TIME_CHANGE), BM_CLICK, 0, 0);
            sheet.PressButton(PSBTN_CANCEL);
        },
        IDCANCEL);
}

}  // namespace
