// The life of a property sheet and its pages: activation, applying, pages that come and go.
#include <memory>
#include <utility>

#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

Texts g_trace;

class TracePage : public CPropertyPage {
public:
    explicit TracePage(std::string name) : CPropertyPage(IDD_FIELDS), m_name(std::move(name)) {}

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
             m_sheet.AddPage(&m_third);
             m_sheet.SetActivePage(2);
             Press(IDOK);
         }});
    EXPECT_EQ(Trace().back(), "third apply");
}

TEST_F(Sheet, GrowsInItsPlaceForAnotherRowOfTabs) {
    std::vector<std::unique_ptr<TracePage>> more;
    const auto frame = [&] {
        RECT rect{};
        ::GetWindowRect(m_sheet.m_hWnd, &rect);
        return rect;
    };
    const auto shownPage = [&] {
        RECT rect{};
        ::GetClientRect(m_sheet.GetActivePage()->m_hWnd, &rect);
        return rect;
    };
    RECT opened{};
    RECT page{};
    const auto grown = [&] { return frame().bottom - opened.bottom; };
    Run({[&] {
             opened = frame();
             page = shownPage();
             for (int i = 0; i < 5; ++i) {
                 m_sheet.AddPage(more.emplace_back(std::make_unique<TracePage>("more")).get());
             }
             EXPECT_EQ(m_sheet.GetTabControl()->SendMessage(TCM_GETROWCOUNT), 2);
             RECT tab{};
             m_sheet.GetTabControl()->SendMessage(TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
             EXPECT_EQ(grown(), tab.bottom - tab.top);
             EXPECT_EQ(frame().left, opened.left);
             EXPECT_EQ(frame().top, opened.top);
             const RECT pageNow = shownPage();
             EXPECT_TRUE(::EqualRect(&pageNow, &page)) << "no part is covered";
         },
         [&] {
             const LONG before = grown();
             for (const auto& one : more) {
                 m_sheet.RemovePage(one.get());
             }
             EXPECT_EQ(grown(), before) << "the room stays";
             Press(IDCANCEL);
         }});
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
    CPropertyPage large(IDD_LARGE);
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
                   EXPECT_TRUE(IsInView(field(IDC_TEXT)));
                   EXPECT_FALSE(IsInView(field(IDC_OTHER)));
                   ::PostMessageA(field(IDC_TEXT), WM_KEYDOWN, VK_TAB, 0);
               },
               [&] {
                   EXPECT_EQ(::GetFocus(), field(IDC_OTHER));
                   EXPECT_TRUE(IsInView(field(IDC_OTHER)));
                   wheel(kFar, 0);
                   wheel(kFar, MK_SHIFT);
               },
               [&] {
                   EXPECT_TRUE(IsInView(field(IDC_TEXT)));
                   EXPECT_FALSE(IsInView(field(IDC_OTHER)));
                   ::PostMessageA(field(IDC_OTHER), WM_KEYDOWN, VK_END, 0);
               },
               [&] {
                   EXPECT_TRUE(IsInView(field(IDC_OTHER))) << "what is typed is seen";
                   sheet.SetActivePage(1);
                   EXPECT_TRUE(IsInView(m_first.m_hWnd));
                   sheet.SetActivePage(0);
                   EXPECT_TRUE(IsInView(large.m_hWnd));
                   EXPECT_TRUE(IsInView(field(IDC_OTHER))) << "each page keeps its place";
                   sheet.SendDlgItemMessage(IDCANCEL, BM_CLICK);
               }});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

}  // namespace
