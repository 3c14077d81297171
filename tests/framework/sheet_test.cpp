// A property sheet whose page is larger than the screen.
#include <functional>
#include <utility>
#include <vector>

#include "resources/resource.h"
#include "tests/framework/host_window.h"
#include "tests/support/template_builder.h"

namespace {

class LargeSheet : public HostWindow {
protected:
    // Runs the steps one after another from inside the modal loop that follows.
    void RunInLoop(std::vector<std::function<void()>> steps) {
        m_steps = std::move(steps);
        m_boxes.WhenIdle([this] { RunNextStep(); });
    }

private:
    void RunNextStep() {
        const std::function<void()> step = m_steps.front();
        m_steps.erase(m_steps.begin());
        if (!m_steps.empty()) {
            m_boxes.WhenIdle([this] { RunNextStep(); });
        }
        step();
    }

    std::vector<std::function<void()>> m_steps;
};

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

TEST_F(LargeSheet, KeepsToTheScreenAndScrollsItsPagesBothWays) {
    const TemplateBuilder source =
        TemplateBuilder(TemplateBuilder::Form::Classic, WS_POPUP | WS_CAPTION, 1000, 800, "Stor")
            .add(kEdit, IDC_TEXT_X, "", WS_TABSTOP)
            .add(kEdit, IDC_TEXT_Y, "", WS_TABSTOP, 930, 780);
    CPropertyPage large(IDD_AUTO_TEXT);
    large.m_psp.dwFlags |= PSP_DLGINDIRECT;
    large.m_psp.pResource = source.get();
    CPropertySheet sheet("Stor", CWnd::FromHandle(m_host), 0);
    sheet.m_psh.dwFlags |= PSH_NOAPPLYNOW;
    sheet.AddPage(&large);
    CPropertyPage small(IDD_AUTO_TEXT);
    sheet.AddPage(&small);
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
                   EXPECT_TRUE(IsInView(small.m_hWnd));
                   sheet.SetActivePage(0);
                   EXPECT_TRUE(IsInView(large.m_hWnd));
                   EXPECT_TRUE(IsInView(field(IDC_TEXT_Y))) << "each page keeps its place";
                   sheet.SendDlgItemMessage(IDCANCEL, BM_CLICK);
               }});
    EXPECT_EQ(sheet.DoModal(), IDCANCEL);
}

}  // namespace
