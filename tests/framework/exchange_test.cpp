// Data exchange and validation, as tables of members, control contents and refusals.
#include <utility>

#include "resources/resource.h"
#include "tests/framework/host_window.h"

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
ON_EN_CHANGE(IDC_TEXT_X, &FieldsDialog::OnTextChange)
END_MESSAGE_MAP()

class DataExchange : public HostWindow {
protected:
    DataExchange() {
        m_dialog.Create(IDD_AUTO_TEXT, CWnd::FromHandle(m_host));
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

    FieldsDialog m_dialog;
};

template <typename Member>
Exchange TextOfMember(Member& member) {
    return [&member](CDataExchange* exchange) { DDX_Text(exchange, IDC_TEXT_X, member); };
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
        EXPECT_EQ(Text(IDC_TEXT_X), expected);
        SetText(IDC_TEXT_X, " 12");
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
        DDX_Text(exchange, IDC_TEXT_X, real);
        DDV_MinMaxDouble(exchange, real, 1.0, 100000.0);
    };
    const auto withIntBounds = [&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT_X, integer);
        DDV_MinMaxInt(exchange, integer, -3, 3);
    };
    const auto withLength = [&](CDataExchange* exchange) {
        DDX_Text(exchange, IDC_TEXT_X, text);
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
        SetText(IDC_TEXT_X, c.shown);
        SetText(IDC_TEXT_Y, "other");
        ::SetFocus(Item(IDC_TEXT_Y));
        CString later("untouched");
        EXPECT_FALSE(Read([&](CDataExchange* exchange) {
            c.exchange(exchange);
            DDX_Text(exchange, IDC_TEXT_Y, later);
        }));
        EXPECT_EQ(BoxTexts(), Texts({c.prompt}));
        EXPECT_EQ(later, "untouched");
        EXPECT_EQ(::GetFocus(), Item(IDC_TEXT_X));
        DWORD start = 99;
        DWORD end = 99;
        ::SendMessageA(Item(IDC_TEXT_X), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(std::make_pair(start, end), std::make_pair(DWORD{0}, static_cast<DWORD>(strlen(c.shown))));
    }
}

TEST_F(DataExchange, SetsATextOnlyWhenItDiffers) {
    CEdit edit;
    CString text("same");
    const auto caretAfterShowing = [&] {
        edit.SetSel(2, 2);
        Show([&](CDataExchange* data) {
            DDX_Control(data, IDC_TEXT_X, edit);
            DDX_Text(data, IDC_TEXT_X, text);
        });
        return LOWORD(edit.SendMessage(EM_GETSEL));
    };
    Show(TextOfMember(text));
    edit.SubclassWindow(Item(IDC_TEXT_X));
    EXPECT_EQ(caretAfterShowing(), 2);
    text = "Same";
    EXPECT_EQ(caretAfterShowing(), 0);
    EXPECT_EQ(m_dialog.GetDlgItem(IDC_TEXT_X), &edit);
}

TEST_F(DataExchange, NotificationsAreIgnoredOnlyMeanwhile) {
    CString text("filled");
    m_dialog.m_changes = 0;
    Show(TextOfMember(text));
    EXPECT_EQ(m_dialog.m_changes, 0);
    SetText(IDC_TEXT_X, "typed");
    EXPECT_EQ(m_dialog.m_changes, 1);
    int integer = 0;
    EXPECT_FALSE(Read(TextOfMember(integer)));
    SetText(IDC_TEXT_X, "typed again");
    EXPECT_EQ(m_dialog.m_changes, 2) << "a refusal ends the exchange too";
}

}  // namespace
