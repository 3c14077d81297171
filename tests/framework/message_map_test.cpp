// Message maps, window objects and run-time classes.
#include <memory>
#include <stdexcept>
#include <utility>

#include "tests/framework/host_window.h"
#include "tests/framework/test_resource.h"

namespace {

class Base : public CWnd {
    DECLARE_DYNAMIC(Base)
    DECLARE_MESSAGE_MAP()

public:
    void OnFirst() { m_log.push_back("base first"); }
    void OnOnlyInBase() { m_log.push_back("only in base"); }

    Texts m_log;
};
IMPLEMENT_DYNAMIC(Base, CWnd)
BEGIN_MESSAGE_MAP(Base, CWnd)
ON_BN_CLICKED(1, &Base::OnFirst)
ON_EN_CHANGE(2, &Base::OnOnlyInBase)
END_MESSAGE_MAP()

class Derived : public Base {
    DECLARE_DYNCREATE(Derived)
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
    afx_msg void OnDrawItem(int id, LPDRAWITEMSTRUCT) { m_log.push_back("draw " + std::to_string(id)); }
    afx_msg void OnMeasureItem(int, LPMEASUREITEMSTRUCT item) { item->itemHeight = 17; }
    afx_msg void OnDestroy() {
        m_log.push_back("destroy");
        Base::OnDestroy();
    }
};
IMPLEMENT_DYNCREATE(Derived, Base)
BEGIN_MESSAGE_MAP(Derived, Base)
ON_BN_CLICKED(1, &Derived::OnFirst)
ON_CONTROL_RANGE(EN_KILLFOCUS, 10, 12, &Derived::OnRange)
ON_NOTIFY(NM_CLICK, 0, &Derived::OnTabClick)
ON_COMMAND(20, &Derived::OnMenu)
ON_MESSAGE(WM_USER + 1, &Derived::OnOwnMessage)
ON_MESSAGE(WM_USER + 2, &Derived::OnThrow)
ON_WM_DRAWITEM()
ON_WM_MEASUREITEM()
ON_WM_DESTROY()
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
    // Another code or another control is somebody else's.
    EXPECT_EQ(Control(1, EN_CHANGE), 0);
    EXPECT_EQ(Control(3, BN_CLICKED), 0);
    EXPECT_EQ(Log(), Texts());
}

TEST_F(MessageMap, RangeEntriesReceiveTheControlId) {
    for (int id = 9; id <= 13; ++id) {
        Control(id, EN_KILLFOCUS);
    }
    EXPECT_EQ(Log(), Texts({"range 10", "range 11", "range 12"}));
}

TEST_F(MessageMap, CracksNotificationsAndMessages) {
    NMHDR header = {m_host, 0, static_cast<UINT>(NM_CLICK)};
    EXPECT_EQ(m_window.SendMessage(WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&header)), 42);
    EXPECT_EQ(m_window.SendMessage(WM_NOTIFY, 0, 0), 0);
    EXPECT_EQ(m_window.SendMessage(WM_USER + 1, 40, 2), 42);
    DRAWITEMSTRUCT draw = {};
    EXPECT_EQ(m_window.SendMessage(WM_DRAWITEM, 7, reinterpret_cast<LPARAM>(&draw)), TRUE);
    MEASUREITEMSTRUCT measure = {};
    m_window.SendMessage(WM_MEASUREITEM, 7, reinterpret_cast<LPARAM>(&measure));
    EXPECT_EQ(measure.itemHeight, 17u);
    EXPECT_EQ(Log(), Texts({"notify 1", "draw 7"}));
}

TEST_F(MessageMap, ReportsAnExceptionInsteadOfLettingItOut) {
    EXPECT_EQ(m_window.SendMessage(WM_USER + 2), 0);
    EXPECT_EQ(BoxTexts(), Texts({"Internt fel. (trasig)"}));
    EXPECT_EQ(m_window.SendMessage(WM_USER + 1, 1, 1), 2);
}

TEST_F(MessageMap, ObjectLetsGoOfADestroyedWindow) {
    EXPECT_EQ(CWnd::FromHandle(m_host), &m_window);
    EXPECT_FALSE(Derived().SubclassWindow(m_host)) << "a window has one object";
    ::DestroyWindow(m_host);
    EXPECT_EQ(m_window.m_hWnd, nullptr);
    EXPECT_EQ(CWnd::FromHandlePermanent(m_host), nullptr);
    EXPECT_EQ(Log(), Texts({"destroy"}));
}

TEST_F(MessageMap, UnsubclassedWindowLives) {
    EXPECT_EQ(m_window.UnsubclassWindow(), m_host);
    EXPECT_TRUE(::IsWindow(m_host));
    EXPECT_EQ(::SendMessageA(m_host, WM_USER + 1, 40, 2), 0);
}

TEST_F(MessageMap, TemporaryObjectFitsItsWindowClassAndDoesNotOwnIt) {
    const HWND edit = CreateWindowExA(0, "Edit", "text", WS_CHILD, 0, 0, 50, 20, m_host, nullptr, nullptr, nullptr);
    CWnd* object = CWnd::FromHandle(edit);
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CEdit)));
    EXPECT_EQ(CWnd::FromHandlePermanent(edit), nullptr);
    CWnd::DeleteTempMap();
    EXPECT_EQ(CWnd::FromHandle(edit), object) << "kept while the window lives";
    EXPECT_EQ(object->GetParent(), &m_window);
    ::DestroyWindow(edit);
    CWnd::DeleteTempMap();
    EXPECT_EQ(CWnd::FromHandle(nullptr), nullptr);
}

TEST(RuntimeClass, KnowsNameBaseAndCreation) {
    const std::unique_ptr<CObject> object(RUNTIME_CLASS(Derived)->CreateObject());
    ASSERT_NE(object, nullptr);
    EXPECT_STREQ(object->GetRuntimeClass()->m_lpszClassName, "Derived");
    EXPECT_TRUE(object->IsKindOf(RUNTIME_CLASS(CWnd)));
    EXPECT_FALSE(object->IsKindOf(RUNTIME_CLASS(CDialog)));
    EXPECT_NE(DYNAMIC_DOWNCAST(Base, object.get()), nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CDialog, object.get()), nullptr);
    EXPECT_EQ(RUNTIME_CLASS(Base)->CreateObject(), nullptr);
}

TEST(Application, NameIsTheModulesUnlessGivenAndIsRestorable) {
    EXPECT_EQ(AfxGetApp(), nullptr);
    {
        const CWinApp unnamed;
        EXPECT_EQ(AfxGetApp(), &unnamed);
        EXPECT_STREQ(unnamed.m_pszAppName, AfxGetAppName());
        const std::string name = unnamed.m_pszAppName;
        EXPECT_FALSE(name.empty());
        EXPECT_EQ(name.find_first_of("/\\"), std::string::npos);
        EXPECT_EQ(unnamed.m_hInstance, AfxGetResourceHandle());
    }
    EXPECT_EQ(AfxGetApp(), nullptr);
}

TEST(ModuleState, IsRestoredOnEveryWayOut) {
    AFX_MODULE_STATE other;
    try {
        AFX_MANAGE_STATE(&other);
        EXPECT_EQ(AfxGetModuleState(), &other);
        throw std::runtime_error("out");
    } catch (const std::runtime_error&) {
        EXPECT_EQ(AfxGetModuleState(), AfxGetStaticModuleState());
    }
}

TEST_F(HostWindow, MessageBoxesCarryNameAndFrontOwner) {
    AfxMessageBox("text");
    AfxMessageBox(IDS_NAME);
    const std::vector<BoxSeen> boxes = m_boxes.Take();
    ASSERT_EQ(boxes.size(), 2u);
    EXPECT_EQ(boxes[0], (BoxSeen{kApplicationName, "text", nullptr}));
    EXPECT_EQ(boxes[0].owner, m_host);
    EXPECT_EQ(boxes[1].text, "Fel v\xE4rde");
    EXPECT_TRUE(::IsWindowEnabled(m_host));
}

}  // namespace
