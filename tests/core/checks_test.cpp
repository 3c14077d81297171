// The field checks and the sheet, on a sheet without pages shown and, where a page must be left, with two.
#include <gtest/gtest.h>

#include <tuple>

#include "core/settings_page.h"
#include "core/sheet/projdescr.h"
#include "resources/resource.h"
#include "tests/core/box_answerer.h"

namespace {

constexpr char kFaultyField[] = "Felaktigt textf\xE4lt";
constexpr char kEmpty[] = "Textstr\xE4ngen kan inte vara tom!";
constexpr char kIsInvalid[] = "\xE4r ogiltigt!";
constexpr char kMinimum[] = "Minsta v\xE4rde \xE4r 0.1 !";
constexpr char kWrongValue[] = "Fel v\xE4rde";

std::string Invalid(char character) {
    return character + std::string(kIsInvalid);
}

using Boxes = std::vector<BoxSeen>;

// A top-level window with two edits, the second of which has the focus.
class Checks : public testing::Test {
protected:
    void SetUp() override {
        m_window =
            CreateWindowExA(0, "Static", "", WS_POPUP | WS_VISIBLE, 0, 0, 200, 100, nullptr, nullptr, nullptr, nullptr);
        m_edit = MakeEdit();
        m_other = MakeEdit();
        ::SetFocus(m_other);
    }
    void TearDown() override { DestroyWindow(m_window); }

    HWND MakeEdit() {
        return CreateWindowExA(0, "Edit", "12345", WS_CHILD | WS_VISIBLE | ES_AUTOHSCROLL, 0, 0, 90, 20, m_window,
                               nullptr, nullptr, nullptr);
    }
    std::pair<DWORD, DWORD> Selection() const {
        DWORD start = 0;
        DWORD end = 0;
        SendMessageA(m_edit, EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return {start, end};
    }

    HWND m_window = nullptr;
    HWND m_edit = nullptr;
    HWND m_other = nullptr;
    BoxAnswerer m_boxes;
    projdescr m_sheet{"caption", nullptr, 0};
};

using TextCheck = int (CSettingsSheet::*)(CString&, CWnd*, LPCSTR, int);

TEST_F(Checks, TextFieldReportsAndGivesTheFocusBack) {
    struct Case {
        TextCheck check;
        const char* text;
        int required;
        int result;
        const char* textAfter;
        std::string message;
        bool selects;
    };
    constexpr TextCheck kSelecting = &CSettingsSheet::CheckTextField;
    constexpr TextCheck kPlain = &CSettingsSheet::CheckTextFieldNoSelect;
    const Case cases[] = {
        {kSelecting, "  x y  ", 1, 1, "x y", "", false},
        {kSelecting, "  x  ", 0, 1, "  x  ", "", false},
        {kSelecting, "", 0, 1, "", "", false},
        {kSelecting, "   ", 1, 0, "", kEmpty, false},
        {kSelecting, "a\"b;", 1, 0, "a\"b;", Invalid('"'), true},
        {kSelecting, "a;b\"", 0, 0, "a;b\"", Invalid(';'), true},
        {kPlain, " \t", 1, 0, "", kEmpty, false},
        {kPlain, "a;b", 1, 0, "a;b", Invalid(';'), false},
        {kPlain, " ok ", 1, 1, "ok", "", false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        for (const bool withControl : {true, false}) {
            ::SetFocus(m_other);
            SendMessageA(m_edit, EM_SETSEL, 1, 1);
            CString text = c.text;
            CWnd* control = withControl ? CWnd::FromHandle(m_edit) : nullptr;
            EXPECT_EQ((m_sheet.*c.check)(text, control, "\";", c.required), c.result);
            EXPECT_STREQ(text, c.textAfter);
            EXPECT_EQ(m_boxes.Take(), c.result != 0 ? Boxes{} : (Boxes{{kFaultyField, c.message, nullptr}}));
            EXPECT_EQ(GetFocus() == m_edit, c.result == 0 && withControl);
            const bool selected = c.selects && withControl;
            EXPECT_EQ(Selection(), (selected ? std::pair<DWORD, DWORD>(0, 5) : std::pair<DWORD, DWORD>(1, 1)));
        }
    }
}

TEST_F(Checks, NumberFieldAcceptsDigitsAndPointsFromATenthOn) {
    struct Case {
        const char* text;
        const char* caption;  // Null when accepted.
        std::string message;
    };
    const std::string kManyNines(400, '9');
    const std::string kTiny = "0." + std::string(400, '0') + "1";
    const Case cases[] = {
        {"0.1", nullptr, ""},
        {"2.5", nullptr, ""},
        {"1.2.3", nullptr, ""},
        {".5", nullptr, ""},
        {"007", nullptr, ""},
        {kManyNines.c_str(), nullptr, ""},
        {"12,5", kFaultyField, Invalid(',')},
        {"-1", kFaultyField, Invalid('-')},
        {" 1", kFaultyField, Invalid(' ')},
        {"1e3", kFaultyField, Invalid('e')},
        {"", kFaultyField, kEmpty},
        {"0.05", kWrongValue, kMinimum},
        {"0", kWrongValue, kMinimum},
        {".", kWrongValue, kMinimum},
        {"..5", kWrongValue, kMinimum},
        {kTiny.c_str(), kWrongValue, kMinimum},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        ::SetFocus(m_other);
        const bool accepted = c.caption == nullptr;
        EXPECT_EQ(m_sheet.CheckNumberField(c.text, CWnd::FromHandle(m_edit)), accepted ? 1 : 0);
        EXPECT_EQ(m_boxes.Take(), accepted ? Boxes{} : (Boxes{{c.caption, c.message, nullptr}}));
        EXPECT_EQ(GetFocus(), accepted ? m_other : m_edit);
    }
}

TEST_F(Checks, ApplicationNameIsLentWhileTheSheetLives) {
    const std::string lent = AfxGetApp()->m_pszAppName;
    EXPECT_EQ(lent, kWrongValue);
    AfxMessageBox("text");
    EXPECT_EQ(m_boxes.Take(), (Boxes{{kWrongValue, "text", nullptr}}));
}

TEST(Sheet, GivesTheApplicationNameBack) {
    for (const char* name : {"", "tavrik", "A name that is longer than the sheet's"}) {
        CWinApp* application = AfxGetApp();
        std::free(application->m_pszAppName);
        application->m_pszAppName = strdup(name);
        {
            const projdescr sheet("caption", nullptr, 0);
            EXPECT_STREQ(application->m_pszAppName, kWrongValue);
        }
        EXPECT_STREQ(application->m_pszAppName, name);
    }
}

TEST(Sheet, PutMirrorsThreeKeysWhateverTheStoreAndMergeNone) {
    projdescr sheet("caption", nullptr, 0);
    CMdb store;
    sheet.PutSetting(&store, "DRW_MODE", "2x");
    sheet.PutSetting(&store, "BET_PREFIX", "3");
    sheet.PutSetting(&store, "COORD_BET", "4");
    sheet.PutSetting(&store, "drw_mode", "9");
    const auto mirrored = [&] { return std::tuple(sheet.m_nDrwMode, sheet.m_nBetPrefix, sheet.m_nCoordBet); };
    EXPECT_EQ(mirrored(), std::tuple(2, 3, 4));
    CMdb other;
    sheet.PutSetting(&other, "DRW_MODE", "0");
    EXPECT_EQ(mirrored(), std::tuple(0, 3, 4));
    sheet.m_bEditable = 0;
    sheet.MergeSettings(&other, &store);
    EXPECT_EQ(CSettingsSheet::GetSettingNumber(&store, "DRW_MODE"), 2) << "a read-only sheet merges nothing";
    sheet.m_bEditable = 1;
    sheet.MergeSettings(&store, &other);
    EXPECT_EQ(CSettingsSheet::GetSettingNumber(&other, "DRW_MODE"), 2);
    EXPECT_EQ(mirrored(), std::tuple(0, 3, 4));
}

TEST(Sheet, HasItsRunTimeClass) {
    const projdescr sheet("caption", nullptr, 0);
    EXPECT_STREQ(sheet.GetRuntimeClass()->m_lpszClassName, "projdescr");
    EXPECT_TRUE(sheet.IsKindOf(RUNTIME_CLASS(CPropertySheet)));
    EXPECT_EQ(RUNTIME_CLASS(projdescr)->CreateObject(), nullptr);
}

// Two copies of one page make a sheet whose tabs can be left.
class TwoPages : public testing::Test {
protected:
    class Sheet : public CSettingsSheet {
    public:
        Sheet() : CSettingsSheet("two pages", nullptr, 0) {
            m_bEditable = 1;
            m_nDesignationOption = 1;
            m_nHostMode = 0;
            m_pHostSettings = &m_host;
            AddPage(&m_first);
            AddPage(&m_second);
        }
        CMdb m_host;
        dlgcircuit m_first;
        dlgcircuit m_second;
    };

    HWND Edit() { return m_sheet.m_first.GetDlgItem(IDC_START_X)->m_hWnd; }
    void Type(const char* text) {
        ::SetFocus(Edit());
        SendMessageA(Edit(), EM_SETSEL, 0, -1);
        SendMessageA(Edit(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text));
    }

    BoxAnswerer m_boxes;
    Sheet m_sheet;
};

TEST_F(TwoPages, AreNotLeftWhileTheForcedCheckFails) {
    m_boxes.WhenIdle([this] {
        Type("1;2");
        EXPECT_FALSE(m_sheet.SetActivePage(1));
        EXPECT_EQ(m_boxes.Take(), (Boxes{{kFaultyField, Invalid(';'), nullptr}}));
        EXPECT_EQ(m_sheet.GetActiveIndex(), 0);
        EXPECT_EQ(GetFocus(), Edit());
        Type("");
        EXPECT_FALSE(m_sheet.SetActivePage(1)) << "refused each time, not only the first";
        EXPECT_EQ(m_boxes.Take(), (Boxes{{kFaultyField, kEmpty, nullptr}}));
        Type("12");
        EXPECT_TRUE(m_sheet.SetActivePage(1));
        EXPECT_TRUE(m_boxes.Take().empty());
        EXPECT_TRUE(m_sheet.SetActivePage(0));
        m_sheet.PressButton(PSBTN_OK);
    });
    EXPECT_EQ(m_sheet.DoModal(), IDOK);
    CString value;
    EXPECT_EQ(CSettingsSheet::GetSetting(&m_sheet.m_workSettings, "X-COORD", value), 1);
    EXPECT_STREQ(value, "12");
}

TEST_F(TwoPages, ReadTheSheetsNumbersAgainWhenShownAgain) {
    m_boxes.WhenIdle([this] {
        HWND functionOriented = m_sheet.m_first.GetDlgItem(IDC_FUNCTION_ORIENTED)->m_hWnd;
        EXPECT_TRUE(IsWindowEnabled(functionOriented));
        m_sheet.SetActivePage(1);
        CMdb changes;
        m_sheet.PutSetting(&changes, "BET_PREFIX", "1");
        m_sheet.SetActivePage(0);
        EXPECT_FALSE(IsWindowEnabled(functionOriented));
        HWND combo = m_sheet.m_first.GetDlgItem(IDC_SYMBOL_STANDARD)->m_hWnd;
        EXPECT_EQ(SendMessageA(combo, CB_GETCOUNT, 0, 0), 3) << "one blank entry, however often the page is shown";
        m_sheet.PressButton(PSBTN_CANCEL);
    });
    EXPECT_EQ(m_sheet.DoModal(), IDCANCEL);
    EXPECT_EQ(m_sheet.m_workSettings.GetFirst(), nullptr);
}

// The pixels of a control's client area, or of a bitmap placed in its middle on the dialog's colour.
std::vector<COLORREF> PixelsOf(HDC context, SIZE size) {
    std::vector<COLORREF> pixels;
    for (int y = 0; y < size.cy; ++y) {
        for (int x = 0; x < size.cx; ++x) {
            pixels.push_back(GetPixel(context, x, y));
        }
    }
    return pixels;
}

std::vector<COLORREF> ExpectedPreview(UINT bitmapId, SIZE size) {
    CDC memory;
    memory.CreateCompatibleDC(nullptr);
    CClientDC screen(nullptr);
    CBitmap canvas;
    canvas.CreateCompatibleBitmap(&screen, size.cx, size.cy);
    const CSelectObject selected(memory, canvas.GetSafeHandle());
    const RECT all{0, 0, size.cx, size.cy};
    ::FillRect(memory, &all, GetSysColorBrush(COLOR_BTNFACE));
    CBitmap bitmap;
    BITMAP info{};
    if (bitmapId != 0 && bitmap.LoadBitmap(bitmapId) && bitmap.GetBitmap(&info) != 0) {
        CDC source;
        source.CreateCompatibleDC(&memory);
        const CSelectObject selectedSource(source, bitmap.GetSafeHandle());
        memory.BitBlt((size.cx - info.bmWidth) / 2, (size.cy - info.bmHeight) / 2, info.bmWidth, info.bmHeight, &source,
                      0, 0, SRCCOPY);
    }
    return PixelsOf(memory, size);
}

TEST_F(TwoPages, PreviewsShowTheBitmapOfTheChoice) {
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
        Sheet sheet;
        sheet.PutSetting(&sheet.m_host, "A2-A1", c.marking);
        sheet.PutSetting(&sheet.m_host, "CCT_CAB_CORE", c.core);
        sheet.PutSetting(&sheet.m_host, "CCT_CAB_BALLOON", c.label);
        sheet.m_first.LoadSettings(&sheet.m_host);
        m_boxes.WhenIdle([&] {
            sheet.RedrawWindow(nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
            for (const auto& [id, bitmap] :
                 {std::pair(IDC_MARKING_PREVIEW, c.markingBitmap), std::pair(IDC_CABLE_PREVIEW, c.cableBitmap)}) {
                CWnd* preview = sheet.m_first.GetDlgItem(id);
                RECT client{};
                preview->GetClientRect(&client);
                CClientDC context(preview);
                const SIZE size{client.right, client.bottom};
                EXPECT_TRUE(PixelsOf(context, size) == ExpectedPreview(bitmap, size)) << "control " << id;
            }
            sheet.PressButton(PSBTN_CANCEL);
        });
        EXPECT_EQ(sheet.DoModal(), IDCANCEL);
    }
}

}  // namespace
