// Message maps and window objects.
#include <stdexcept>
#include <utility>

#include "tests/framework/host_window.h"

namespace {

class Window : public CWnd {
    DECLARE_MESSAGE_MAP()

public:
    void OnTabClick(NMHDR* header, LRESULT* result) {
        m_log.push_back("notify " + std::to_string(header->code == NM_CLICK));
        *result = 42;
    }
    LRESULT OnOwnMessage(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }
    LRESULT OnThrow(WPARAM, LPARAM) { throw std::runtime_error("trasig"); }
    afx_msg void OnMeasureItem(int, LPMEASUREITEMSTRUCT item) { item->itemHeight = 17; }

    Texts m_log;
};
BEGIN_MESSAGE_MAP(Window, CWnd)
ON_NOTIFY(NM_CLICK, 0, &Window::OnTabClick)
ON_MESSAGE(WM_USER + 1, &Window::OnOwnMessage)
ON_MESSAGE(WM_USER + 2, &Window::OnThrow)
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

class MessageMap : public HostWindow {
protected:
    MessageMap() { m_window.SubclassWindow(m_host); }
    ~MessageMap() override { m_window.DestroyWindow(); }

    Texts Log() { return std::exchange(m_window.m_log, {}); }

    Window m_window;
};

TEST_F(MessageMap, CracksNotificationsAndMessages) {
    NMHDR header = {m_host, 0, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(m_window.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 42);
    EXPECT_EQ(m_window.SendMessage(WM_NOTIFY, 0, 0), 0);
    EXPECT_EQ(m_window.SendMessage(WM_USER + 1, 40, 2), 42);
    MEASUREITEMSTRUCT measure = {};
    m_window.SendMessage(WM_MEASUREITEM, 7, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, 17u);
    EXPECT_EQ(Log(), Texts({"notify 1"}));
}

TEST_F(MessageMap, ReportsAnExceptionInsteadOfLettingItOut) {
    EXPECT_EQ(m_window.SendMessage(WM_USER + 2), 0);
    EXPECT_EQ(BoxTexts(), Texts({"Internt fel. (trasig)"}));
    EXPECT_EQ(m_window.SendMessage(WM_USER + 1, 1, 1), 2);
}

TEST_F(MessageMap, WindowHasOneObjectUntilItIsGivenBack) {
    EXPECT_FALSE(Window().SubclassWindow(m_host));
    EXPECT_EQ(m_window.UnsubclassWindow(), m_host);
    EXPECT_EQ(::SendMessageA(m_host, WM_USER + 1, 40, 2), 0);
    EXPECT_EQ(CWnd::FromHandlePermanent(m_host), nullptr);
}

TEST_F(MessageMap, TemporaryObjectFitsItsWindowClassAndLivesAsLong) {
    const HWND edit = CreateWindowExA(0, "Edit", "text", WS_CHILD, 0, 0, 50, 20, m_host, nullptr, nullptr, nullptr);
    CWnd* object = CWnd::FromHandle(edit);
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CEdit)));
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), nullptr);
    CWnd::DeleteTempMap();
    EXPECT_EQ(CWnd::FromHandle(edit), object);
    EXPECT_EQ(object->GetParent(), &m_window);
}

TEST(Application, IsCalledAsItsModuleUnlessNamed) {
    const CWinApp unnamed;
    EXPECT_EQ(CString(unnamed.m_pszAppName).FindOneOf("/\\"), -1);
    EXPECT_STRNE(unnamed.m_pszAppName, "");
}

}  // namespace
