// Data exchange and validation, as tables of members, control contents and refusals.
#include <utility>

#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

using Exchange = std::function<void(CDataExchange*)>;

// Counts how often its text is set.
class CountingEdit : public CEdit {
public:
    int m_settings = 0;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override {
        m_settings += message == WM_SETTEXT;
        return CEdit::WindowProc(message, wParam, lParam);
    }
};

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

TEST_F(DataExchange, ShowsMembersAsText) {
    CString text("\xE5\xE4\xF6 'x'");
    int integer = -5;
    UINT positive = 4000000000u;
    long big = 70000;
    float single = 9.9f;
    double exact = 1.0;
    double fraction = 0.1 + 0.2;
    const std::pair<Exchange, const char*> cases[] = {
        {TextOfMember(text), "\xE5\xE4\xF6 'x'"},
        {TextOfMember(integer), "-5"},
        {TextOfMember(positive), "4000000000"},
        {TextOfMember(big), "70000"},
        {TextOfMember(single), "9.9"},
        {TextOfMember(exact), "1"},
        {TextOfMember(fraction), "0.3"},
    };
    for (const auto& [exchange, expected] : cases) {
        EXPECT_TRUE(Show(exchange));
        EXPECT_EQ(Text(IDC_TEXT), expected);
        SetText(IDC_TEXT, "");
    }
}

TEST_F(DataExchange, ReadsMembersFromText) {
    CString text;
    int integer = 0;
    float single = 0;
    double exact = 0;
    SetText(IDC_TEXT, " 12");
    EXPECT_TRUE(Read([&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT, text);
        DDX_Text(exchange, IDC_TEXT, integer);
        DDX_Text(exchange, IDC_TEXT, single);
        DDX_Text(exchange, IDC_TEXT, exact);
    }));
    EXPECT_EQ(text, " 12");
    EXPECT_EQ(integer, 12);
    EXPECT_EQ(single, 12.0f);
    EXPECT_EQ(exact, 12.0);
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
    EXPECT_TRUE(Show([&](CDataExchange* exchange) { DDV_MinMaxDouble(exchange, real, 1.0, 2.0); }))
        << "what a member holds is shown as it is";
    EXPECT_EQ(BoxTexts(), Texts());
}

TEST_F(DataExchange, LengthLimitsTypingInEditsAndCombos) {
    CString text;
    Show([&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT, text);
        DDV_MaxChars(exchange, text, 4);
        DDX_CBString(exchange, IDC_COMBO, text);
        DDV_MaxChars(exchange, text, 5);
    });
    EXPECT_EQ(::SendMessageA(Item(IDC_TEXT), EM_GETLIMITTEXT, 0, 0), 4);
    EXPECT_EQ(::SendMessageA(::GetWindow(Item(IDC_COMBO), GW_CHILD), EM_GETLIMITTEXT, 0, 0), 5);
}

TEST_F(DataExchange, SetsATextOnlyWhenItDiffers) {
    CountingEdit edit;
    CString text("same");
    const Exchange exchange = [&](CDataExchange* data) {
        DDX_Control(data, IDC_TEXT, edit);
        DDX_Text(data, IDC_TEXT, text);
    };
    Show(exchange);
    Show(exchange);
    EXPECT_EQ(edit.m_settings, 1);
    text = "Same";
    Show(exchange);
    EXPECT_EQ(edit.m_settings, 2);
    EXPECT_EQ(m_dialog.GetDlgItem(IDC_TEXT), &edit);
    m_dialog.DestroyWindow();
    EXPECT_EQ(edit.m_hWnd, nullptr);
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

TEST_F(DataExchange, RadioIndexOutsideTheGroupLeavesAllClear) {
    int index = 1;
    const Exchange exchange = [&](CDataExchange* data) { DDX_Radio(data, IDC_RADIO_FIRST, index); };
    const std::pair<int, const char*> cases[] = {{1, "010"}, {0, "100"}, {2, "001"}, {-1, "000"}, {3, "000"}};
    for (const auto& [shown, expected] : cases) {
        index = shown;
        Show(exchange);
        EXPECT_EQ(Radios(), expected);
        index = 99;
        Read(exchange);
        EXPECT_EQ(index, shown >= 0 && shown <= 2 ? shown : -1);
    }
    EXPECT_EQ(m_dialog.IsDlgButtonChecked(IDC_CHECK), 0u) << "the next group is not touched";
}

TEST_F(DataExchange, CheckTakesThreeStates) {
    int state = 0;
    const Exchange exchange = [&](CDataExchange* data) { DDX_Check(data, IDC_CHECK, state); };
    const std::pair<int, int> cases[] = {{1, 1}, {2, 2}, {0, 0}, {3, 0}, {-1, 0}};
    for (const auto& [shown, expected] : cases) {
        state = shown;
        Show(exchange);
        EXPECT_EQ(state, expected) << "the member becomes what is shown";
        state = 99;
        Read(exchange);
        EXPECT_EQ(state, expected);
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

TEST_F(DataExchange, ComboIndexIsExchanged) {
    int index = 1;
    CString text;
    const Exchange exchange = [&](CDataExchange* data) {
        DDX_CBIndex(data, IDC_LIST, index);
        DDX_CBString(data, IDC_LIST, text);
    };
    Show([&](CDataExchange* data) { DDX_CBIndex(data, IDC_LIST, index); });
    index = 99;
    Read(exchange);
    EXPECT_EQ(index, 1);
    EXPECT_EQ(text, "tv\xE5");
    index = -1;
    Show([&](CDataExchange* data) { DDX_CBIndex(data, IDC_LIST, index); });
    Read(exchange);
    EXPECT_EQ(index, -1);
}

TEST_F(DataExchange, MissingControlIsReportedAndRefused) {
    CString text;
    EXPECT_FALSE(Read([&](CDataExchange* exchange) { DDX_Text(exchange, 12345, text); }));
    EXPECT_EQ(BoxTexts(), Texts({"Internt fel. (not supported)"}));
}

}  // namespace
