// Data exchange and validation, as tables of members, control contents and refusals.
#include <utility>

#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

using Exchange = std::function<void(CDataExchange*)>;

class FieldsDialog : public CDialog {
    DECLARE_MESSAGE_MAP()

public:
    void DoDataExchange(CDataExchange* exchange) override {
        if (m_exchange) {
            m_exchange(exchange);
        }
    }
    void OnTextChange() { ++m_changes; }

    Exchange m_exchange;
    int m_changes = 0;
};
BEGIN_MESSAGE_MAP(FieldsDialog, CDialog)
ON_EN_CHANGE(IDC_TEXT, &FieldsDialog::OnTextChange)
END_MESSAGE_MAP()

class DataExchange : public HostWindow {
protected:
    DataExchange() {
        m_dialog.Create(IDD_FIELDS, CWnd::FromHandle(m_host));
        m_dialog.ShowWindow(SW_SHOW);
    }
    ~DataExchange() override { m_dialog.DestroyWindow(); }

    HWND Item(int id) const { return ::GetDlgItem(m_dialog.m_hWnd, id); }
    std::string Text(int id) const { return TextOf(Item(id)); }
    void SetText(int id, LPCSTR text) { ::SetWindowTextA(Item(id), text); }

    BOOL Show(Exchange exchange) { return Run(std::move(exchange), FALSE); }
    BOOL Read(Exchange exchange) { return Run(std::move(exchange), TRUE); }
    BOOL Run(Exchange exchange, BOOL saveAndValidate) {
        m_dialog.m_exchange = std::move(exchange);
        return m_dialog.UpdateData(saveAndValidate);
    }
    // Which radio buttons of the group are checked, as in "010".
    std::string Radios() const {
        std::string checked;
        for (int id = IDC_RADIO_FIRST; id <= IDC_RADIO_LAST; ++id) {
            checked += m_dialog.IsDlgButtonChecked(id) != 0 ? '1' : '0';
        }
        return checked;
    }

    FieldsDialog m_dialog;
};

template <typename Member>
Exchange TextOfMember(Member& member) {
    return [&member](CDataExchange* exchange) { DDX_Text(exchange, IDC_TEXT, member); };
}

TEST_F(DataExchange, MembersGoOutAndComeBackAsText) {
    CString text("\xE5\xE4\xF6 'x'");
    int integer = -5;
    UINT positive = 4000000000u;
    long big = 70000;
    float single = 9.9f;
    double fraction = 0.1 + 0.2;
    const std::pair<Exchange, const char*> cases[] = {
        {TextOfMember(text), "\xE5\xE4\xF6 'x'"},
        {TextOfMember(integer), "-5"},
        {TextOfMember(positive), "4000000000"},
        {TextOfMember(big), "70000"},
        {TextOfMember(single), "9.9"},
        {TextOfMember(fraction), "0.3"},
    };
    for (const auto& [exchange, expected] : cases) {
        EXPECT_TRUE(Show(exchange));
        EXPECT_EQ(Text(IDC_TEXT), expected);
        SetText(IDC_TEXT, " 12");
        EXPECT_TRUE(Read(exchange));
    }
    EXPECT_EQ(text, " 12");
    EXPECT_TRUE(integer == 12 && positive == 12 && big == 12 && single == 12 && fraction == 12);
}

TEST_F(DataExchange, RefusalPromptsFocusesSelectsAndAbandons) {
    int integer = 7;
    double real = 7;
    CString text;
    struct Case {
        const char* shown;
        Exchange exchange;
        const char* prompt;
    };
    const auto withBounds = [&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT, real);
        DDV_MinMaxDouble(exchange, real, 1.0, 100000.0);
    };
    const auto withIntBounds = [&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT, integer);
        DDV_MinMaxInt(exchange, integer, -3, 3);
    };
    const auto withLength = [&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT, text);
        DDV_MaxChars(exchange, text, 3);
    };
    const Case cases[] = {
        {"2,5", TextOfMember(real), "Ange ett tal."},
        {"2.5", TextOfMember(integer), "Ange ett heltal."},
        {"0.5", withBounds, "Ange ett tal mellan 1 och 100000."},
        {"100000.1", withBounds, "Ange ett tal mellan 1 och 100000."},
        {"4", withIntBounds, "Ange ett tal mellan -3 och 3."},
        {"abcd", withLength, "Ange h\xF6gst 3 tecken."},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.prompt);
        SetText(IDC_TEXT, c.shown);
        SetText(IDC_OTHER, "other");
        ::SetFocus(Item(IDC_OTHER));
        CString later("untouched");
        EXPECT_FALSE(Read([&](CDataExchange* exchange) {
            c.exchange(exchange);
            DDX_Text(exchange, IDC_OTHER, later);
        }));
        EXPECT_EQ(BoxTexts(), Texts({c.prompt}));
        EXPECT_EQ(later, "untouched");
        EXPECT_EQ(::GetFocus(), Item(IDC_TEXT));
        DWORD start = 99;
        DWORD end = 99;
        ::SendMessageA(Item(IDC_TEXT), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(std::make_pair(start, end), std::make_pair(DWORD{0}, static_cast<DWORD>(strlen(c.shown))));
    }
}

TEST_F(DataExchange, BoundsAndLengthItselfPass) {
    double real = 0;
    CString text;
    for (const char* shown : {"1", "1e5"}) {
        SetText(IDC_TEXT, shown);
        EXPECT_TRUE(Read([&](CDataExchange* exchange) {
            DDX_Text(exchange, IDC_TEXT, real);
            DDV_MinMaxDouble(exchange, real, 1.0, 100000.0);
            DDX_Text(exchange, IDC_TEXT, text);
            DDV_MaxChars(exchange, text, 3);
        }));
    }
    EXPECT_EQ(real, 100000.0);
    real = 0;
    EXPECT_TRUE(Show([&](CDataExchange* exchange) {
        DDV_MinMaxDouble(exchange, real, 1.0, 2.0);  // What a member holds is shown as it is.
        DDX_Text(exchange, IDC_TEXT, text);
        DDV_MaxChars(exchange, text, 4);
    }));
    EXPECT_EQ(::SendMessageA(Item(IDC_TEXT), EM_GETLIMITTEXT, 0, 0), 4);
    EXPECT_EQ(BoxTexts(), Texts());
}

TEST_F(DataExchange, SetsATextOnlyWhenItDiffers) {
    CEdit edit;
    CString text("same");
    const auto caretAfterShowing = [&] {
        edit.SetSel(2, 2);
        Show([&](CDataExchange* data) {
            DDX_Control(data, IDC_TEXT, edit);
            DDX_Text(data, IDC_TEXT, text);
        });
        return LOWORD(edit.SendMessage(EM_GETSEL));
    };
    Show(TextOfMember(text));
    edit.SubclassWindow(Item(IDC_TEXT));
    EXPECT_EQ(caretAfterShowing(), 2);
    text = "Same";
    EXPECT_EQ(caretAfterShowing(), 0);
    EXPECT_EQ(m_dialog.GetDlgItem(IDC_TEXT), &edit);
}

TEST_F(DataExchange, NotificationsAreIgnoredOnlyMeanwhile) {
    CString text("filled");
    m_dialog.m_changes = 0;
    Show(TextOfMember(text));
    EXPECT_EQ(m_dialog.m_changes, 0);
    SetText(IDC_TEXT, "typed");
    EXPECT_EQ(m_dialog.m_changes, 1);
    int integer = 0;
    EXPECT_FALSE(Read(TextOfMember(integer)));
    SetText(IDC_TEXT, "typed again");
    EXPECT_EQ(m_dialog.m_changes, 2) << "a refusal ends the exchange too";
}

TEST_F(DataExchange, ButtonsAndListsShowTheirNumbersOrNothing) {
    int number = 0;
    const Exchange radio = [&](CDataExchange* data) { DDX_Radio(data, IDC_RADIO_FIRST, number); };
    const Exchange check = [&](CDataExchange* data) { DDX_Check(data, IDC_CHECK, number); };
    const Exchange list = [&](CDataExchange* data) { DDX_CBIndex(data, IDC_LIST, number); };
    struct Case {
        const Exchange& exchange;
        int shown;
        int read;
        const char* radios;
    };
    const Case cases[] = {
        {radio, 1, 1, "010"},  {radio, 0, 0, "100"},  {radio, 2, 2, "001"}, {radio, -1, -1, "000"},
        {radio, 3, -1, "000"}, {check, 1, 1, "000"},  {check, 2, 2, "000"}, {check, 0, 0, "000"},
        {check, 3, 0, "000"},  {check, -1, 0, "000"}, {list, 1, 1, "000"},  {list, -1, -1, "000"},
        {list, 1, 1, "000"},   {list, 99, -1, "000"}, {list, 0, 0, "000"},  {list, -7, -1, "000"},
    };
    for (const Case& c : cases) {
        number = c.shown;
        Show(c.exchange);
        EXPECT_EQ(Radios(), c.radios);
        number = 99;
        Read(c.exchange);
        EXPECT_EQ(number, c.read);
        EXPECT_TRUE(&c.exchange == &check || m_dialog.IsDlgButtonChecked(IDC_CHECK) == 0) << "the next group";
    }
}

TEST_F(DataExchange, ComboSelectsByPrefixElseShowsTheText) {
    CString text;
    const Exchange exchange = [&](CDataExchange* data) { DDX_CBString(data, IDC_COMBO, text); };
    struct Case {
        const char* member;
        const char* shown;
        LRESULT selection;
    };
    const Case cases[] = {
        {"iec6", "IEC617", 1}, {"IEC", "iec1082", 0}, {"DIN", "DIN", CB_ERR}, {"iec617", "IEC617", 1}, {"", "", CB_ERR},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.member);
        // A text that is set leaves the selection as it is.
        m_dialog.SendDlgItemMessage(IDC_COMBO, CB_SETCURSEL, static_cast<WPARAM>(-1));
        text = c.member;
        Show(exchange);
        EXPECT_EQ(Text(IDC_COMBO), c.shown);
        EXPECT_EQ(::SendMessageA(Item(IDC_COMBO), CB_GETCURSEL, 0, 0), c.selection);
        Read(exchange);
        EXPECT_EQ(text, c.shown);
    }
}

TEST_F(DataExchange, MissingControlIsReportedAndRefused) {
    CString text;
    EXPECT_FALSE(Read([&](CDataExchange* exchange) { DDX_Text(exchange, 12345, text); }));
    EXPECT_EQ(BoxTexts(), Texts({"Internt fel. (not supported)"}));
}

}  // namespace
