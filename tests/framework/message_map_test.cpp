// Message maps and window objects.
#include <stdexcept>
#include <utility>

#include "tests/framework/host_window.h"

namespace {

class Base : public CWnd {
    DECLARE_MESSAGE_MAP()

public:
    void OnFirst() { m_log.push_back("base first"); }
    void OnOnlyInBase() { m_log.push_back("only in base"); }

    Texts m_log;
};
BEGIN_MESSAGE_MAP(Base, CWnd)
ON_BN_CLICKED(1, &Base::OnFirst)
ON_EN_CHANGE(2, &Base::OnOnlyInBase)
END_MESSAGE_MAP()

class Derived : public Base {
    DECLARE_MESSAGE_MAP()

public:
    void OnFirst() { m_log.push_back("derived first"); }
    void OnRange(UINT id) { m_log.push_back("range " + std::to_string(id)); }
    void OnTabClick(NMHDR* header, LRESULT* result) {
        m_log.push_back("notify " + std::to_string(header->code == NM_CLICK));
        *result = 42;
    }
    void OnMenu() { m_log.push_back("menu"); }
    LRESULT OnOwnMessage(WPARAM wParam, LPARAM lParam) { return static_cast<LRESULT>(wParam) + lParam; }
    LRESULT OnThrow(WPARAM, LPARAM) { throw std::runtime_error("trasig"); }
    afx_msg void OnMeasureItem(int, LPMEASUREITEMSTRUCT item) { item->itemHeight = 17; }
};
BEGIN_MESSAGE_MAP(Derived, Base)
ON_BN_CLICKED(1, &Derived::OnFirst)
ON_CONTROL_RANGE(EN_KILLFOCUS, 10, 12, &Derived::OnRange)
ON_NOTIFY(NM_CLICK, 0, &Derived::OnTabClick)
ON_COMMAND(20, &Derived::OnMenu)
ON_MESSAGE(WM_USER + 1, &Derived::OnOwnMessage)
ON_MESSAGE(WM_USER + 2, &Derived::OnThrow)
ON_WM_MEASUREITEM()
END_MESSAGE_MAP()

class MessageMap : public HostWindow {
protected:
    MessageMap() { m_window.SubclassWindow(m_host); }
    ~MessageMap() override { m_window.DestroyWindow(); }

    Texts Log() { return std::exchange(m_window.m_log, {}); }
    LRESULT Control(int id, int code) {
        // Any window will do as the notifying control.
        return m_window.SendMessage(WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(m_host));
    }

    Derived m_window;
};

TEST_F(MessageMap, FindsTheDerivedEntryFirstAndThenTheBases) {
    Control(1, BN_CLICKED);
    Control(2, EN_CHANGE);
    m_window.SendMessage(WM_COMMAND, 20);
    EXPECT_EQ(Log(), Texts({"derived first", "only in base", "menu"}));
    for (int id = 9; id <= 13; ++id) {
        Control(id, EN_KILLFOCUS);
    }
    EXPECT_EQ(Log(), Texts({"range 10", "range 11", "range 12"}));
    // Another code or another control is somebody else's.
    EXPECT_EQ(Control(1, EN_CHANGE), 0);
    EXPECT_EQ(Control(3, BN_CLICKED), 0);
    EXPECT_EQ(Log(), Texts());
}

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
    EXPECT_FALSE(Derived().SubclassWindow(m_host));
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
