// The life of a property sheet and its pages: activation, leaving, applying, results, pages that come and go.
#include <utility>

#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

Texts g_trace;

class TracePage : public CPropertyPage {
    DECLARE_MESSAGE_MAP()

public:
    TracePage(UINT templateId, std::string name) : CPropertyPage(templateId), m_name(std::move(name)) {}

    void DoDataExchange(CDataExchange* exchange) override {
        Trace(exchange->m_bSaveAndValidate ? "read" : "show");
        DDX_Text(exchange, IDC_TEXT, m_number);
    }
    BOOL OnInitDialog() override {
        Trace("init");
        return CPropertyPage::OnInitDialog();
    }
    BOOL OnSetActive() override {
        Trace("active");
        return CPropertyPage::OnSetActive();
    }
    BOOL OnKillActive() override {
        Trace("kill");
        return CPropertyPage::OnKillActive();
    }
    BOOL OnApply() override {
        Trace("apply");
        if (m_onApply) {
            m_onApply();
        }
        return m_acceptsApply && CPropertyPage::OnApply();
    }
    void OnReset() override { Trace("reset"); }
    BOOL OnQueryCancel() override { return m_acceptsCancel; }
    void OnTextLeft() { Trace("left"); }

    int m_number = 1;
    std::function<void()> m_onApply;
    bool m_acceptsApply = true;
    bool m_acceptsCancel = true;

private:
    void Trace(const char* what) { g_trace.push_back(m_name + " " + what); }

    std::string m_name;
};
BEGIN_MESSAGE_MAP(TracePage, CPropertyPage)
ON_EN_KILLFOCUS(IDC_TEXT, &TracePage::OnTextLeft)
END_MESSAGE_MAP()

class TestSheet : public CPropertySheet {
    DECLARE_DYNAMIC(TestSheet)
    DECLARE_MESSAGE_MAP()

public:
    explicit TestSheet(CWnd* parent) : CPropertySheet("Inst\xE4llningar", parent, 0) {
        m_psh.dwFlags |= PSH_NOAPPLYNOW;
    }
    afx_msg int OnCreate(LPCREATESTRUCT createStruct) {
        m_created = true;
        return CPropertySheet::OnCreate(createStruct) == -1 ? -1 : 0;
    }
    BOOL OnInitDialog() override {
        m_wasCreatedFirst = m_created;
        return CPropertySheet::OnInitDialog();
    }

    bool m_created = false;
    bool m_wasCreatedFirst = false;
};
IMPLEMENT_DYNAMIC(TestSheet, CPropertySheet)
BEGIN_MESSAGE_MAP(TestSheet, CPropertySheet)
ON_WM_CREATE()
END_MESSAGE_MAP()

class Sheet : public HostWindow {
protected:
    Sheet() {
        g_trace.clear();
        m_sheet.AddPage(&m_first);
        m_sheet.AddPage(&m_second);
    }

    Texts Trace() { return std::exchange(g_trace, {}); }
    // The trace without the fields left, which depends on where the system puts the focus.
    Texts PageTrace() {
        std::erase_if(g_trace, [](const std::string& line) { return line.ends_with(" left"); });
        return Trace();
    }
    void Press(int id) { m_sheet.SendDlgItemMessage(id, BM_CLICK); }
    INT_PTR Run(std::vector<std::function<void()>> steps) {
        RunInLoop(std::move(steps));
        return m_sheet.DoModal();
    }

    TracePage m_first{IDD_FIELDS, "first"};
    TracePage m_second{IDD_SECOND, "second"};
    TracePage m_third{IDD_SECOND, "third"};
    TestSheet m_sheet{CWnd::FromHandle(m_host)};
};

TEST_F(Sheet, CreatesPagesWhenShownAndRefreshesOnlyLaterActivations) {
    Run({[&] {
             EXPECT_TRUE(m_sheet.m_wasCreatedFirst);
             EXPECT_EQ(TextOf(m_sheet.m_hWnd), "Inst\xE4llningar");
             EXPECT_EQ(Trace(), Texts({"first init", "first show", "first active"}));
             EXPECT_EQ(m_second.m_hWnd, nullptr);
             EXPECT_EQ(m_first.GetParent(), &m_sheet);
             m_sheet.SetActivePage(1);
         },
         [&] {
             EXPECT_EQ(m_sheet.GetActivePage(), &m_second);
             m_sheet.SetActivePage(&m_first);
             EXPECT_EQ(m_sheet.GetActiveIndex(), 0);
             Press(IDCANCEL);
         }});
    EXPECT_EQ(PageTrace(),
              Texts({"first kill", "first read", "second init", "second show", "second active", "second kill",
                     "second read", "first active", "first show", "first reset", "second reset"}));
}

TEST_F(Sheet, OkAsksTheCurrentPageAndAppliesTheCreatedOnesInOrder) {
    m_sheet.AddPage(&m_third);
    const INT_PTR result = Run({[&] {
                                    m_sheet.SetActivePage(1);
                                    m_first.m_acceptsApply = false;
                                    Press(IDOK);
                                },
                                [&] {
                                    EXPECT_EQ(m_sheet.GetActivePage(), &m_second) << "also when another page refuses";
                                    m_first.m_acceptsApply = true;
                                    Trace();
                                    Press(IDOK);
                                }});
    EXPECT_EQ(result, IDOK);
    EXPECT_EQ(m_third.m_hWnd, nullptr) << "never shown";
    EXPECT_EQ(PageTrace(), Texts({"second kill", "second read", "first apply", "second apply"}));
}

TEST_F(Sheet, RefusalsKeepItOpen) {
    const auto put = [&](LPCSTR text) { m_first.SetDlgItemText(IDC_TEXT, text); };
    const INT_PTR result = Run({[&] {
                                    put("x");
                                    EXPECT_FALSE(m_sheet.SetActivePage(1));
                                    EXPECT_EQ(m_sheet.GetActivePage(), &m_first);
                                },
                                [&] {
                                    EXPECT_EQ(BoxTexts(), Texts({"Ange ett heltal."}));
                                    Trace();
                                    Press(IDOK);
                                },
                                [&] {
                                    EXPECT_EQ(BoxTexts(), Texts({"Ange ett heltal."}));
                                    for (const std::string& line : Trace()) {
                                        EXPECT_NE(line, "first apply");
                                    }
                                    put("4");
                                    m_first.m_acceptsApply = false;
                                    Press(IDOK);
                                },
                                [&] {
                                    m_first.m_acceptsCancel = false;
                                    Press(IDCANCEL);
                                },
                                [&] {
                                    EXPECT_TRUE(m_sheet.ContinueModal());
                                    m_first.m_acceptsCancel = true;
                                    Press(IDCANCEL);
                                }});
    EXPECT_EQ(result, IDCANCEL) << "a refused OK leaves no trace in the result";
    EXPECT_EQ(m_first.m_number, 4);
}

TEST_F(Sheet, DestroyedByTheHostIsNotAccepted) {
    const auto destroy = [&] { ::DestroyWindow(m_sheet.m_hWnd); };
    m_first.m_acceptsApply = false;
    EXPECT_EQ(Run({[&] { Press(IDOK); }, destroy}), -1) << "after a page refused";
    m_first.m_acceptsApply = true;
    m_first.m_onApply = destroy;
    EXPECT_EQ(Run({[&] { Press(IDOK); }}), -1) << "while a page was asked";
    EXPECT_EQ(m_first.m_hWnd, nullptr);
    EXPECT_TRUE(::IsWindowEnabled(m_host));
}

TEST_F(Sheet, EveryWayOutHasItsResult) {
    const std::pair<std::function<void()>, INT_PTR> cases[] = {
        {[&] { Press(IDOK); }, IDOK},
        {[&] { m_sheet.PressButton(PSBTN_OK); }, IDOK},
        {[&] { Press(IDCANCEL); }, IDCANCEL},
        {[&] { m_sheet.PressButton(PSBTN_CANCEL); }, IDCANCEL},
        {[&] { m_sheet.PostMessage(WM_CLOSE); }, IDCANCEL},
        {[&] { m_sheet.PostMessage(WM_SYSCOMMAND, SC_CLOSE); }, IDCANCEL},
        {[&] { m_first.EndDialog(12); }, 12},
    };
    for (const auto& [leave, expected] : cases) {
        EXPECT_EQ(Run({leave}), expected);
        const Texts trace = Trace();
        EXPECT_EQ(std::count(trace.begin(), trace.end(), "first apply"), expected == IDOK);
        EXPECT_EQ(std::count(trace.begin(), trace.end(), "first init"), 1) << "each opening makes its own window";
        EXPECT_EQ(std::count(trace.begin(), trace.end(), "first show"), 1);
        EXPECT_EQ(m_sheet.m_hWnd, nullptr);
        EXPECT_EQ(m_first.m_hWnd, nullptr);
    }
}

TEST_F(Sheet, OwnerIsTheHostsTopLevelWindowAndGetsTheActivationBack) {
    const HWND child =
        CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 50, m_host, nullptr, nullptr, nullptr);
    TestSheet sheet(CWnd::FromHandle(child));
    sheet.AddPage(&m_first);
    RunInLoop({[&] {
        EXPECT_EQ(::GetWindow(sheet.m_hWnd, GW_OWNER), m_host);
        EXPECT_FALSE(::IsWindowEnabled(m_host));
        EXPECT_EQ(::GetActiveWindow(), sheet.m_hWnd);
        sheet.EndDialog(IDCANCEL);
    }});
    sheet.DoModal();
    EXPECT_TRUE(::IsWindowEnabled(m_host));
    EXPECT_EQ(::GetActiveWindow(), m_host);
}

TEST_F(Sheet, PagesComeAndGoWhileItRuns) {
    Run({[&] {
             m_sheet.AddPage(&m_third);
             EXPECT_EQ(m_sheet.GetTabControl()->GetItemCount(), 3);
             EXPECT_TRUE(m_sheet.SetActivePage(&m_third));
         },
         [&] {
             EXPECT_NE(m_third.m_hWnd, nullptr);
             EXPECT_TRUE(m_sheet.SetActivePage(0));
             m_sheet.RemovePage(&m_third);
             EXPECT_EQ(m_sheet.GetTabControl()->GetItemCount(), 2);
             EXPECT_EQ(m_third.m_hWnd, nullptr);
             EXPECT_EQ(m_sheet.GetPageIndex(&m_third), -1);
             m_sheet.RemovePage(&m_third);
             EXPECT_EQ(m_sheet.GetPageCount(), 2);
         },
         [&] {
             Trace();
             m_sheet.AddPage(&m_third);
             m_sheet.SetActivePage(2);
             EXPECT_EQ(PageTrace(), Texts({"first kill", "first read", "third init", "third show", "third active"}));
             Press(IDOK);
         }});
    EXPECT_EQ(Trace().back(), "third apply");
}

TEST_F(Sheet, ClosingDoesNotLeaveTheFocusedField) {
    Run({[&] {
        m_first.GetDlgItem(IDC_TEXT)->SetFocus();
        m_first.SetModified();
        Trace();
        m_sheet.PostMessage(WM_CLOSE);
    }});
    EXPECT_EQ(Trace(), Texts({"first reset"}));
}

}  // namespace
