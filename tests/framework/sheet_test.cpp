// The life of a property sheet and its pages: activation and applying.
#include <utility>

#include "resources/resource.h"
#include "tests/framework/host_window.h"
#include "tests/support/template_builder.h"

namespace {

Texts g_trace;

class TracePage : public CPropertyPage {
public:
    explicit TracePage(std::string name) : CPropertyPage(IDD_AUTO_TEXT), m_name(std::move(name)) {}

    void DoDataExchange(CDataExchange* exchange) override {
        Trace(exchange->m_bSaveAndValidate ? "read" : "show");
        DDX_Text(exchange, IDC_TEXT_X, m_number);
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
        return m_acceptsApply && CPropertyPage::OnApply();
    }
    void OnReset() override { Trace("reset"); }

    int m_number = 1;
    bool m_acceptsApply = true;

private:
    void Trace(const char* what) { g_trace.push_back(m_name + " " + what); }

    std::string m_name;
};

class Sheet : public HostWindow {
protected:
    Sheet() {
        g_trace.clear();
        m_sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
        m_sheet.AddPage(&m_first);
        m_sheet.AddPage(&m_second);
    }

    Texts Trace() { return std::exchange(g_trace, {}); }
    void Press(int id) { m_sheet.SendDlgItemMessage(id, BM_CLICK); }
    INT_PTR Run(std::vector<std::function<void()>> steps) {
        RunInLoop(std::move(steps));
        return m_sheet.DoModal();
    }

    TracePage m_first{"first"};
    TracePage m_second{"second"};
    TracePage m_third{"third"};
    CPropertySheet m_sheet{"Inst\xE4llningar", CWnd::FromHandle(m_host), 0};
};

TEST_F(Sheet, CreatesPagesWhenShownAndRefreshesOnlyLaterActivations) {
    Run({[&] {
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
    EXPECT_EQ(Trace(), Texts({"first kill", "first read", "second init", "second show", "second active", "second kill",
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
    EXPECT_EQ(Trace(), Texts({"second kill", "second read", "first apply", "second apply"}));
}

// The part of a window that its parents and the screen let through is all of it.
bool IsInView(HWND window) {
    RECT all{};
    RECT seen{};
    ::GetWindowRect(window, &all);
    ::SystemParametersInfoA(SPI_GETWORKAREA, 0, &seen, 0);
    ::IntersectRect(&seen, &seen, &all);
    for (HWND parent = window; (::GetWindowLongPtrA(parent, GWL_STYLE) & WS_CHILD) != 0;) {
        parent = ::GetParent(parent);
        RECT around{};
        ::GetClientRect(parent, &around);
        ::MapWindowPoints(parent, nullptr, reinterpret_cast<POINT*>(&around), 2);
        ::IntersectRect(&seen, &seen, &around);
    }
    return ::EqualRect(&seen, &all) != FALSE;
}

TEST_F(Sheet, KeepsToTheScreenAndScrollsItsPagesBothWays) {
    const TemplateBuilder source =
        TemplateBuilder(TemplateBuilder::Form::Classic, WS_POPUP | WS_CAPTION, 1000, 800, "Stor")
            .add(kEdit, IDC_TEXT_X, "", 0)
            .add(kEdit, IDC_TEXT_Y, "", 0, 930, 780);
    CPropertyPage large(IDD_AUTO_TEXT);
    large.m_psp.dwFlags |= PSP_DLGINDIRECT;
    large.m_psp.pResource = source.get();
    CPropertySheet sheet("Stor", CWnd::FromHandle(m_host), 0);
    sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
    sheet.AddPage(&large);
    sheet.AddPage(&m_first);
    const auto field = [&](int id) { return ::GetDlgItem(large.m_hWnd, id); };
    const auto wheel = [&](int delta, int keys) {
        ::PostMessageA(::GetFocus(), WM_MOUSEWHEEL, MAKEWPARAM(keys, delta), MAKELPARAM(600, 500));
    };
    constexpr int kFar = 120 * 50;
    RunInLoop({[&] {
                   EXPECT_TRUE(IsInView(sheet.m_hWnd));
                   EXPECT_TRUE(IsInView(::GetDlgItem(sheet.m_hWnd, IDOK)));
                   EXPECT_TRUE(IsInView(::GetDlgItem(sheet.m_hWnd, IDCANCEL)));
                   EXPECT_TRUE(IsInView(field(IDC_TEXT_X)));
                   EXPECT_FALSE(IsInView(field(IDC_TEXT_Y)));
                   ::PostMessageA(field(IDC_TEXT_X), WM_KEYDOWN, VK_TAB, 0);
               },
               [&] {
                   EXPECT_EQ(::GetFocus(), field(IDC_TEXT_Y));
                   EXPECT_TRUE(IsInView(field(IDC_TEXT_Y)));
                   wheel(kFar, 0);
                   wheel(kFar, MK_SHIFT);
               },
               [&] {
                   EXPECT_TRUE(IsInView(field(IDC_TEXT_X)));
                   EXPECT_FALSE(IsInView(field(IDC_TEXT_Y)));
                   ::PostMessageA(field(IDC_TEXT_Y), WM_KEYDOWN, VK_END, 0);
               },
               [&] {
                   EXPECT_TRUE(IsInView(field(IDC_TEXT_Y))) << "what is typed is seen";
                   sheet.SetActivePage(1);
                   EXPECT_TRUE(IsInView(m_first.m_hWnd));
                   sheet.SetActivePage(0);
                   EXPECT_TRUE(IsInView(large.m_hWnd));
                   EXPECT_TRUE(IsInView(field(IDC_TEXT_Y))) << "each page keeps its place";
                   sheet.SendDlgItemMessage(IDCANCEL, BM_CLICK);
               }});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

}  // namespace
